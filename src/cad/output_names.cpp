#include "cad/output_names.h"

#include "support/texts.h"

namespace tv {

namespace {

constexpr uint32_t kAll = 2;
constexpr uint32_t kOneFileEach = 4;
constexpr uint32_t kNamed = 8;

std::u16string NameOfAll(OutputKind kind)
{
    return kind == OutputKind::Sheet ? AddInText(170, u"All sheets") : AddInText(169, u"All configurations");
}

} // namespace

std::u16string OutputName(const OutputChoice& choice, OutputKind kind, const std::u16string& name)
{
    if ((choice.files & kOneFileEach) != 0) {
        return name;
    }
    if ((choice.outputs & kAll) != 0) {
        return NameOfAll(kind);
    }
    if ((choice.outputs & kNamed) != 0) {
        return choice.named;
    }
    return name;
}

} // namespace tv
