#include "com/utf8.h"

namespace tv {

namespace {

constexpr char32_t kFirstOfTwoUnits = 0x10000;
constexpr char32_t kLastCharacter = 0x10FFFF;

bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

char32_t Checked(char32_t character, LoneSurrogate lone)
{
    const bool isLone = IsHighSurrogate(character) || IsLowSurrogate(character);
    return isLone && lone == LoneSurrogate::Replace ? kReplacementCharacter : character;
}

void AppendUtf16(std::u16string& text, char32_t character)
{
    if (character < kFirstOfTwoUnits) {
        text += static_cast<char16_t>(character);
    } else {
        const char32_t rest = character - kFirstOfTwoUnits;
        text += static_cast<char16_t>(0xD800 + (rest >> 10));
        text += static_cast<char16_t>(0xDC00 + (rest & 0x3FF));
    }
}

/// What the first byte of a sequence says: how many bytes follow, its own bits, and the smallest character that needs
/// that many.
struct LeadByte
{
    size_t following;
    char32_t bits;
    char32_t smallest;
};

LeadByte ReadLead(unsigned char byte)
{
    if (byte < 0x80) {
        return {0, byte, 0};
    }
    if (byte >= 0xC0 && byte < 0xE0) {
        return {1, byte & 0x1Fu, 0x80};
    }
    if (byte >= 0xE0 && byte < 0xF0) {
        return {2, byte & 0x0Fu, 0x800};
    }
    if (byte >= 0xF0 && byte < 0xF8) {
        return {3, byte & 0x07u, kFirstOfTwoUnits};
    }
    return {0, kReplacementCharacter, 0};
}

} // namespace

void AppendUtf8(std::string& bytes, char32_t character)
{
    const auto append = [&](char32_t value) { bytes += static_cast<char>(static_cast<unsigned char>(value)); };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0 | (character >> 6));
        append(0x80 | (character & 0x3F));
    } else if (character < kFirstOfTwoUnits) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
        append(0x80 | (character & 0x3F));
    }
}

char32_t TakeUtf8(std::string_view bytes, size_t& position, LoneSurrogate lone)
{
    const LeadByte lead = ReadLead(static_cast<unsigned char>(bytes[position++]));
    char32_t character = lead.bits;
    for (size_t i = 0; i < lead.following; ++i) {
        const unsigned next = position < bytes.size() ? static_cast<unsigned char>(bytes[position]) : 0U;
        if ((next & 0xC0) != 0x80) {
            return kReplacementCharacter;
        }
        character = (character << 6) | (next & 0x3Fu);
        ++position;
    }
    const bool isCharacter = character >= lead.smallest && character <= kLastCharacter;
    return isCharacter ? Checked(character, lone) : kReplacementCharacter;
}

std::string ToUtf8(std::u16string_view text, LoneSurrogate lone)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            const char32_t high = text[i] - 0xD800u;
            const char32_t low = text[++i] - 0xDC00u;
            AppendUtf8(bytes, kFirstOfTwoUnits + (high << 10) + low);
        } else {
            AppendUtf8(bytes, Checked(text[i], lone));
        }
    }
    return bytes;
}

std::u16string FromUtf8(std::string_view bytes, LoneSurrogate lone)
{
    std::u16string text;
    text.reserve(bytes.size());
    size_t position = 0;
    while (position < bytes.size()) {
        AppendUtf16(text, TakeUtf8(bytes, position, lone));
    }
    return text;
}

} // namespace tv
