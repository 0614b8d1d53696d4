#include "support/narrow_text.h"

#include "com/base.h"

#include <algorithm>
#include <iterator>

namespace tv {

namespace {

// Bytes 0x80 to 0x9F of code page 1252; the rest equal their code points. The five unused bytes stand for themselves.
constexpr char16_t kWesternHighBytes[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};
static_assert(std::size(kWesternHighBytes) == 32);

char WesternByte(char16_t unit)
{
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
        return static_cast<char>(unit);
    }
    const auto place = std::find(std::begin(kWesternHighBytes), std::end(kWesternHighBytes), unit);
    return place == std::end(kWesternHighBytes) ? '?'
                                                : static_cast<char>(0x80 + (place - std::begin(kWesternHighBytes)));
}

} // namespace

std::string NarrowWesternText(std::u16string_view text)
{
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), WesternByte);
    return bytes;
}

std::u16string WideWesternText(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    for (char byte : bytes) {
        const unsigned char value = static_cast<unsigned char>(byte);
        text += value >= 0x80 && value < 0xA0 ? kWesternHighBytes[value - 0x80] : static_cast<char16_t>(value);
    }
    return text;
}

#ifdef _WIN32

std::string NarrowText(std::u16string_view text)
{
    if (text.empty()) {
        return {};
    }
    // A look-alike letter in a file name is a wrong file name, so the best fit is not wanted. UTF-8 fits always and
    // refuses the flag.
    const DWORD flags = GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, flags, wide, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, flags, wide, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

#else

std::string NarrowText(std::u16string_view text)
{
    return NarrowWesternText(text);
}

#endif

} // namespace tv
