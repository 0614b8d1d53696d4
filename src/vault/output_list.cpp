#include "vault/output_list.h"

#include "support/text_compare.h"

#include <algorithm>

namespace tv {

namespace {

std::u16string KeyOf(std::u16string_view path)
{
    std::u16string key(path);
    std::ranges::transform(key, key.begin(), UpperCase);
    return key;
}

} // namespace

void OutputList::Clear()
{
    files.clear();
    byPath.clear();
}

void OutputList::Add(TaskFile file)
{
    byPath[KeyOf(file.path)].push_back(files.size());
    files.push_back(std::move(file));
}

const std::vector<size_t>& OutputList::WithPath(std::u16string_view path) const
{
    static const std::vector<size_t> kNone;
    const auto found = byPath.find(KeyOf(path));
    return found != byPath.end() ? found->second : kNone;
}

} // namespace tv
