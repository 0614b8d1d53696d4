#include "macro/text.h"

#include "macro/error.h"
#include "macro/long_work.h"

#include <algorithm>

namespace tv::macro {

namespace {

constexpr char16_t kHighHalf[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

bool Within(char16_t unit, char16_t first, char16_t last)
{
    return unit >= first && unit <= last;
}

char16_t Offset(char16_t unit, int distance)
{
    return static_cast<char16_t>(unit + distance);
}

bool IsPairedLatin(char16_t unit)
{
    return Within(unit, 0x100, 0x137) || Within(unit, 0x14A, 0x177) || Within(unit, 0x1E00, 0x1E95) ||
           Within(unit, 0x460, 0x481) || Within(unit, 0x48A, 0x4BF) || Within(unit, 0x4D0, 0x52F);
}

bool IsOddPairedLatin(char16_t unit)
{
    return Within(unit, 0x139, 0x148) || Within(unit, 0x179, 0x17E);
}

/// One element of a bracket list: a set of units and its negation. Returns the position behind the closing bracket.
struct BracketList
{
    std::u16string_view content;
    bool negated = false;
    size_t end = 0;
};

BracketList ReadBracketList(std::u16string_view pattern, size_t start)
{
    size_t position = start + 1;
    BracketList list;
    if (position < pattern.size() && pattern[position] == u'!') {
        // "[!]" means the exclamation mark itself.
        if (position + 1 < pattern.size() && pattern[position + 1] != u']') {
            list.negated = true;
            ++position;
        }
    }
    size_t close = pattern.find(u']', position);
    if (close == std::u16string_view::npos) {
        Raise(kInvalidPattern);
    }
    list.content = pattern.substr(position, close - position);
    list.end = close + 1;
    return list;
}

bool InList(const BracketList& list, char16_t unit, bool ignoreCase)
{
    auto fold = [ignoreCase](char16_t value) { return ignoreCase ? LowerUnit(value) : value; };
    bool found = false;
    std::u16string_view content = list.content;
    for (size_t i = 0; i < content.size(); ++i) {
        if (i + 2 < content.size() && content[i + 1] == u'-') {
            if (content[i] > content[i + 2]) {
                Raise(kInvalidPattern);
            }
            found = found || Within(fold(unit), fold(content[i]), fold(content[i + 2]));
            i += 2;
        } else {
            found = found || fold(unit) == fold(content[i]);
        }
    }
    return found != list.negated;
}

void ChangeUnits(std::u16string& text, char16_t (*change)(char16_t))
{
    constexpr size_t kPart = 1 << 16;
    for (size_t at = 0; at < text.size(); at += kPart) {
        auto begin = text.begin() + static_cast<std::ptrdiff_t>(at);
        auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(text.size(), at + kPart));
        std::transform(begin, end, begin, change);
        LongWork::Did(static_cast<size_t>(end - begin));
    }
}

} // namespace

char16_t LowerUnit(char16_t unit)
{
    if (Within(unit, u'A', u'Z') || (Within(unit, 0xC0, 0xDE) && unit != 0xD7)) {
        return Offset(unit, 32);
    }
    if (unit < 0xC0) {
        return unit;
    }
    if (unit == 0x178) {
        return 0xFF;
    }
    if (IsPairedLatin(unit)) {
        return static_cast<char16_t>(unit | 1);
    }
    if (IsOddPairedLatin(unit)) {
        return (unit & 1) != 0 ? Offset(unit, 1) : unit;
    }
    if (Within(unit, 0x391, 0x3A9) || Within(unit, 0x410, 0x42F)) {
        return Offset(unit, 32);
    }
    if (Within(unit, 0x400, 0x40F)) {
        return Offset(unit, 80);
    }
    return unit;
}

char16_t UpperUnit(char16_t unit)
{
    if (Within(unit, u'a', u'z') || (Within(unit, 0xE0, 0xFE) && unit != 0xF7)) {
        return Offset(unit, -32);
    }
    if (unit < 0xFF) {
        return unit;
    }
    if (unit == 0xFF) {
        return 0x178;
    }
    if (IsPairedLatin(unit)) {
        return static_cast<char16_t>(unit & ~1);
    }
    if (IsOddPairedLatin(unit)) {
        return (unit & 1) == 0 ? Offset(unit, -1) : unit;
    }
    if (Within(unit, 0x3B1, 0x3C9) && unit != 0x3C2) {
        return Offset(unit, -32);
    }
    if (Within(unit, 0x430, 0x44F)) {
        return Offset(unit, -32);
    }
    if (Within(unit, 0x450, 0x45F)) {
        return Offset(unit, -80);
    }
    return unit;
}

std::u16string Lower(std::u16string_view text)
{
    std::u16string result(text);
    ChangeUnits(result, LowerUnit);
    return result;
}

std::u16string Upper(std::u16string_view text)
{
    std::u16string result(text);
    ChangeUnits(result, UpperUnit);
    return result;
}

std::u16string_view TrimBlanks(std::u16string_view text)
{
    while (!text.empty() && text.front() == u' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == u' ') {
        text.remove_suffix(1);
    }
    return text;
}

bool EqualIgnoringCase(std::u16string_view left, std::u16string_view right)
{
    return left.size() == right.size() && CompareTexts(left, right, true) == 0;
}

int CompareTexts(std::u16string_view left, std::u16string_view right, bool ignoreCase)
{
    if (!ignoreCase) {
        int order = left.compare(right);
        return order < 0 ? -1 : (order > 0 ? 1 : 0);
    }
    size_t common = std::min(left.size(), right.size());
    for (size_t i = 0; i < common; ++i) {
        char16_t a = LowerUnit(left[i]);
        char16_t b = LowerUnit(right[i]);
        if (a != b) {
            return a < b ? -1 : 1;
        }
    }
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

size_t FindText(std::u16string_view text, std::u16string_view wanted, size_t start, bool ignoreCase)
{
    if (wanted.empty()) {
        return start <= text.size() ? start : std::u16string_view::npos;
    }
    for (size_t i = start; i + wanted.size() <= text.size(); ++i) {
        if (!ignoreCase) {
            size_t next = text.find(wanted[0], i);
            if (next > text.size() - wanted.size()) {
                LongWork::Did(text.size() - i);
                break;
            }
            LongWork::Did(next - i);
            i = next;
        }
        LongWork::Did(wanted.size());
        if (CompareTexts(text.substr(i, wanted.size()), wanted, ignoreCase) == 0) {
            return i;
        }
    }
    return std::u16string_view::npos;
}

size_t FindTextBackwards(std::u16string_view text, std::u16string_view wanted, size_t start, bool ignoreCase)
{
    if (wanted.size() > text.size()) {
        return std::u16string_view::npos;
    }
    for (size_t i = std::min(start, text.size() - wanted.size()) + 1; i-- > 0;) {
        LongWork::Did(wanted.size());
        if (CompareTexts(text.substr(i, wanted.size()), wanted, ignoreCase) == 0) {
            return i;
        }
    }
    return std::u16string_view::npos;
}

bool MatchesPattern(std::u16string_view text, std::u16string_view pattern, bool ignoreCase)
{
    auto fold = [ignoreCase](char16_t unit) { return ignoreCase ? LowerUnit(unit) : unit; };
    constexpr size_t kNone = std::u16string_view::npos;
    size_t position = 0;
    size_t at = 0;
    // Only the last star needs to be tried again, so a pattern costs at most the product of both lengths.
    size_t starAt = kNone;
    size_t starPosition = 0;
    while (true) {
        bool matched = false;
        if (at < pattern.size()) {
            char16_t symbol = pattern[at];
            if (symbol == u'*') {
                starAt = ++at;
                starPosition = position;
                continue;
            }
            if (symbol == u'[') {
                BracketList list = ReadBracketList(pattern, at);
                if (list.content.empty() && !list.negated) {
                    at = list.end;
                    continue;
                }
                if (position < text.size() && InList(list, text[position], ignoreCase)) {
                    matched = true;
                    at = list.end;
                }
            } else if (position < text.size()) {
                char16_t unit = text[position];
                matched = symbol == u'?' || (symbol == u'#' && Within(unit, u'0', u'9')) ||
                          (symbol != u'#' && fold(symbol) == fold(unit));
                at += matched ? 1 : 0;
            }
        } else if (position == text.size()) {
            return true;
        }
        if (matched) {
            ++position;
            continue;
        }
        if (starAt == kNone || starPosition >= text.size()) {
            // What is left of the pattern is still checked, so that a bad pattern never depends on the text.
            while (at < pattern.size()) {
                at = pattern[at] == u'[' ? ReadBracketList(pattern, at).end : at + 1;
            }
            return false;
        }
        LongWork::Did(position - starPosition + at - starAt + 1);
        position = ++starPosition;
        at = starAt;
    }
}

char16_t NarrowToUnit(uint8_t byte)
{
    return byte >= 0x80 && byte < 0xA0 ? kHighHalf[byte - 0x80] : static_cast<char16_t>(byte);
}

uint8_t UnitToNarrow(char16_t unit)
{
    if (unit < 0x80 || Within(unit, 0xA0, 0xFF)) {
        return static_cast<uint8_t>(unit);
    }
    const char16_t* found = std::find(std::begin(kHighHalf), std::end(kHighHalf), unit);
    return found == std::end(kHighHalf) ? uint8_t{'?'} : static_cast<uint8_t>(0x80 + (found - std::begin(kHighHalf)));
}

std::string ToNarrow(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (char16_t unit : text) {
        bytes.push_back(static_cast<char>(UnitToNarrow(unit)));
    }
    return bytes;
}

std::u16string FromNarrow(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    for (char byte : bytes) {
        text.push_back(NarrowToUnit(static_cast<uint8_t>(byte)));
    }
    return text;
}

std::u16string Widen(std::string_view ascii)
{
    return std::u16string(ascii.begin(), ascii.end());
}

} // namespace tv::macro
