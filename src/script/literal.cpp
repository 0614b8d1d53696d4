#include "script/literal.h"

#include "support/format.h"

namespace tv {

namespace {

constexpr char16_t kLastNarrowUnit = 255;
constexpr std::u16string_view kAmpersand = u" & ";
constexpr std::u16string_view kContinuation = u"_\r\n";
/// The macro language limits a source line; this is how far apart the breaks stand at least.
constexpr size_t kUnitsBetweenBreaks = 100;

std::u16string WithWideUnitsAsCalls(std::u16string_view value)
{
    std::u16string encoded;
    encoded.reserve(value.size());
    bool inRun = false;
    for (char16_t unit : value) {
        if (unit <= kLastNarrowUnit) {
            if (inRun) {
                encoded += u" & \"";
                inRun = false;
            }
            encoded += unit;
        } else {
            encoded += inRun ? u" & " : u"\" & ";
            encoded += FormatText(u"ChrW(%d)", static_cast<uint32_t>(unit));
            inRun = true;
        }
    }
    if (inRun) {
        encoded += u" & \"";
    }
    return encoded;
}

/// The search knows nothing of literals: an ampersand between blanks in a value is broken behind as well.
std::u16string WithLineContinuations(std::u16string_view text)
{
    std::u16string continued;
    size_t start = 0;
    for (;;) {
        const size_t found = text.find(kAmpersand, start + kUnitsBetweenBreaks);
        if (found == std::u16string_view::npos) {
            break;
        }
        const size_t behind = found + kAmpersand.size();
        continued += text.substr(start, behind - start);
        continued += kContinuation;
        start = behind;
    }
    continued += text.substr(start);
    return continued;
}

} // namespace

std::u16string EncodeLiteral(std::u16string_view value)
{
    return WithLineContinuations(WithWideUnitsAsCalls(value));
}

} // namespace tv
