#include "vault/output_list.h"

#include "support/text_compare.h"

namespace tv {

void OutputList::Clear()
{
    files.clear();
    byPath.clear();
}

void OutputList::Add(TaskFile file)
{
    byPath[InCapitals(file.path)].push_back(files.size());
    files.push_back(std::move(file));
}

const std::vector<size_t>& OutputList::WithPath(std::u16string_view path) const
{
    static const std::vector<size_t> kNone;
    const auto found = byPath.find(InCapitals(path));
    return found != byPath.end() ? found->second : kNone;
}

} // namespace tv
