#include "vault/text.h"

#include "com/utf8.h"

namespace tv::local {

namespace {

char32_t Capital(char32_t point)
{
    if ((point >= 'a' && point <= 'z') || (point >= 0xE0 && point <= 0xFE && point != 0xF7)) {
        return point - 0x20;
    }
    // Pairs of capital and small letter, side by side.
    if ((point >= 0x100 && point <= 0x137 && point != 0x131) || (point >= 0x14A && point <= 0x177)) {
        return point & ~char32_t{1};
    }
    if ((point >= 0x139 && point <= 0x148) || (point >= 0x179 && point <= 0x17E)) {
        return point % 2 == 0 ? point - 1 : point;
    }
    if (point == 0xFF) {
        return 0x178;
    }
    if (point >= 0x3B1 && point <= 0x3CB && point != 0x3C2) {
        return point - 0x20;
    }
    if (point >= 0x430 && point <= 0x44F) {
        return point - 0x20;
    }
    if (point >= 0x450 && point <= 0x45F) {
        return point - 0x50;
    }
    return point;
}

} // namespace

std::string Utf8(std::u16string_view text)
{
    return ToUtf8(text, LoneSurrogate::Replace);
}

std::u16string Utf16(std::string_view text)
{
    return FromUtf8(text, LoneSurrogate::Replace);
}

std::string FoldName(std::string_view name)
{
    std::string out;
    out.reserve(name.size());
    for (size_t position = 0; position < name.size();) {
        AppendUtf8(out, Capital(TakeUtf8(name, position, LoneSurrogate::Replace)));
    }
    return out;
}

} // namespace tv::local
