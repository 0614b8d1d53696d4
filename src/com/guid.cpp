#include "com/guid.h"

namespace tv {

namespace {

void AppendHex(std::u16string& text, uint32_t value, int digits)
{
    for (int shift = (digits - 1) * 4; shift >= 0; shift -= 4) {
        text += u"0123456789ABCDEF"[(value >> shift) & 0xFu];
    }
}

} // namespace

std::u16string GuidText(const GUID& id)
{
    std::u16string text = u"{";
    AppendHex(text, static_cast<uint32_t>(id.Data1), 8);
    text += u'-';
    AppendHex(text, id.Data2, 4);
    text += u'-';
    AppendHex(text, id.Data3, 4);
    text += u'-';
    for (size_t i = 0; i < 8; ++i) {
        if (i == 2) {
            text += u'-';
        }
        AppendHex(text, id.Data4[i], 2);
    }
    text += u'}';
    return text;
}

} // namespace tv
