#include "vault/text.h"

#include <cstddef>
#include <cstdint>

namespace tv::local {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t point)
{
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0 | (point >> 6));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        out += static_cast<char>(0xE0 | (point >> 12));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (point >> 18));
        out += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    }
}

/// Reads one character and moves the position behind it.
char32_t NextPoint(std::string_view text, size_t& position)
{
    const auto first = static_cast<uint8_t>(text[position++]);
    if (first < 0x80) {
        return first;
    }
    const int more = first >= 0xF0 && first < 0xF8   ? 3
                     : first >= 0xE0 && first < 0xF0 ? 2
                     : first >= 0xC2 && first < 0xE0 ? 1
                                                     : 0;
    if (more == 0) {
        return kReplacement;
    }
    char32_t point = static_cast<char32_t>(first & (0x3F >> more));
    for (int i = 0; i < more; ++i) {
        if (position >= text.size() || (static_cast<uint8_t>(text[position]) & 0xC0) != 0x80) {
            return kReplacement;
        }
        point = (point << 6) | (static_cast<uint8_t>(text[position++]) & 0x3F);
    }
    constexpr char32_t kLeast[] = {0, 0x80, 0x800, 0x10000};
    const bool surrogate = point >= 0xD800 && point < 0xE000;
    return point < kLeast[more] || point > 0x10FFFF || surrogate ? kReplacement : point;
}

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
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (point >= 0xD800 && point < 0xE000) {
            const bool paired = point < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000;
            point = paired ? 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u) : kReplacement;
        }
        AppendUtf8(out, point);
    }
    return out;
}

std::u16string Utf16(std::string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (size_t position = 0; position < text.size();) {
        const char32_t point = NextPoint(text, position);
        if (point >= 0x10000) {
            out += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
            out += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
        } else {
            out += static_cast<char16_t>(point);
        }
    }
    return out;
}

std::string FoldName(std::string_view name)
{
    std::string out;
    out.reserve(name.size());
    for (size_t position = 0; position < name.size();) {
        AppendUtf8(out, Capital(NextPoint(name, position)));
    }
    return out;
}

} // namespace tv::local
