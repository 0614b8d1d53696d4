#include "cad/constants.h"

#include "macro/object.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tv::app {

namespace {

struct FoldedConstant
{
    std::u16string name;
    int32_t value;
};

std::vector<FoldedConstant> SortedConstants()
{
    std::vector<FoldedConstant> sorted;
    for (const Constant& constant : kConstants) {
        sorted.push_back({macro::FoldCase(constant.name), constant.value});
    }
    std::ranges::sort(sorted, {}, &FoldedConstant::name);
    return sorted;
}

} // namespace

std::optional<int32_t> FindConstant(std::u16string_view name)
{
    static const std::vector<FoldedConstant> sorted = SortedConstants();
    const std::u16string folded = macro::FoldCase(name);
    const auto found = std::ranges::lower_bound(sorted, folded, {}, &FoldedConstant::name);
    if (found == sorted.end() || found->name != folded) {
        return std::nullopt;
    }
    return found->value;
}

} // namespace tv::app
