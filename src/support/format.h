// FormatText: printf's format language over UTF-16 text, with arguments that know their own type.
#pragma once

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tv {

/// One argument of a format. Borrows a text; lives for the length of one call.
class FormatArgument
{
  public:
    template <std::integral Number>
    explicit FormatArgument(Number number)
        : kind(Kind::Number), bits(static_cast<uint64_t>(number)), isWide(sizeof(Number) > sizeof(int32_t))
    {}
    explicit FormatArgument(double number) : kind(Kind::Float), real(number) {}
    explicit FormatArgument(std::u16string_view words) : kind(Kind::Text), text(words) {}
    explicit FormatArgument(const std::u16string& words) : kind(Kind::Text), text(words) {}
    /// A null pointer prints as "(null)".
    explicit FormatArgument(const char16_t* words) : kind(Kind::Text), text(words == nullptr ? u"(null)" : words) {}

    bool IsText() const { return kind == Kind::Text; }
    std::u16string_view Text() const { return text; }
    double Real() const;
    int64_t Signed() const;
    uint64_t Unsigned() const;

    /// Letter of the conversion that suits the argument, for a format that asks for something else.
    char16_t NaturalConversion() const;

  private:
    enum class Kind
    {
        Number,
        Float,
        Text
    };

    Kind kind;
    uint64_t bits = 0;
    bool isWide = false;
    double real = 0;
    std::u16string_view text;
};

std::u16string FormatArguments(std::u16string_view format, std::span<const FormatArgument> arguments);

/// Builds a text as printf does. Conversions: %d %i %u %x %X %o %c %s %f %e %E %g %G %%, with the flags "-+ #0", width
/// and precision as digits or "*". Size letters (h, l, ll, I64) are read and passed over: the argument knows its size,
/// and a 32-bit argument prints as a 32-bit number whether it is signed or not. A format never makes the call unsafe:
/// an argument of another type prints in its own way, and a conversion without an argument stands in the result as it
/// is.
template <typename... Arguments> std::u16string FormatText(std::u16string_view format, const Arguments&... arguments)
{
    if constexpr (sizeof...(arguments) == 0) {
        return FormatArguments(format, {});
    } else {
        const FormatArgument list[] = {FormatArgument(arguments)...};
        return FormatArguments(format, list);
    }
}

} // namespace tv
