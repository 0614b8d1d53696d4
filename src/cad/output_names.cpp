#include "cad/output_names.h"

#include "cad/output_name_texts.h"
#include "support/texts.h"

#include <algorithm>

namespace tv {

namespace {

constexpr uint32_t kAll = 2;
constexpr uint32_t kOneFileEach = 4;
constexpr uint32_t kNamed = 8;

std::u16string TextForAll(OutputKind kind)
{
    const NameOfAll& row = *std::ranges::find(kNamesOfAll, kind, &NameOfAll::kind);
    return AddInText(row.key, row.text);
}

} // namespace

std::u16string OutputName(const OutputChoice& choice, OutputKind kind, const std::u16string& name)
{
    if ((choice.files & kOneFileEach) != 0) {
        return name;
    }
    if ((choice.outputs & kAll) != 0) {
        return TextForAll(kind);
    }
    if ((choice.outputs & kNamed) != 0) {
        return choice.named;
    }
    return name;
}

} // namespace tv
