#include "vault/output_list.h"

#include "support/text_compare.h"

namespace tv {

void OutputList::Clear()
{
    files.clear();
    nextWithPath.clear();
    byPath.clear();
}

void OutputList::Reserve(size_t count)
{
    files.reserve(count);
    nextWithPath.reserve(count);
    byPath.reserve(count);
}

void OutputList::Add(TaskFile file)
{
    const size_t index = files.size();
    const auto [chain, isFirst] = byPath.try_emplace(InCapitals(file.path), Chain{index, index});
    if (!isFirst) {
        nextWithPath[chain->second.last] = index;
        chain->second.last = index;
    }
    nextWithPath.push_back(index);
    files.push_back(std::move(file));
}

std::vector<size_t> OutputList::WithPath(std::u16string_view path) const
{
    std::vector<size_t> indexes;
    if (const auto found = byPath.find(InCapitals(path)); found != byPath.end()) {
        size_t index = found->second.first;
        indexes.push_back(index);
        while (index != found->second.last) {
            index = nextWithPath[index];
            indexes.push_back(index);
        }
    }
    return indexes;
}

} // namespace tv
