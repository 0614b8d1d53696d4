// Functions of texts.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/format.h"
#include "macro/long_work.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>
#include <cmath>

namespace tv::macro {

namespace {

constexpr size_t kNotFound = std::u16string_view::npos;

/// What an element of a list takes while the list is put together.
constexpr size_t kPartBytes = 96;

/// The compare argument: vbUseCompareOption -1, vbBinaryCompare 0, vbTextCompare 1; left out, what the function's rule
/// says.
bool IgnoresCase(const Runtime& runtime, const Arguments& arguments, size_t index, bool otherwise)
{
    if (!arguments.Has(index)) {
        return otherwise;
    }
    int32_t mode = arguments[index].ToLong();
    if (mode < -1 || mode > 2) {
        Raise(kInvalidCall);
    }
    return mode == -1 ? runtime.compareText : mode == 1;
}

size_t Count(const Value& value)
{
    int32_t count = value.ToLong();
    if (count < 0) {
        Raise(kInvalidCall);
    }
    return static_cast<size_t>(count);
}

/// The text of the value without a copy when it is one already: macros walk through long texts by Mid and InStr.
const std::u16string& TextOf(const Value& value, std::u16string& storage)
{
    if (value.IsString()) {
        return value.Text();
    }
    storage = value.ToText();
    return storage;
}

/// A text function of Null is Null.
template <Value (*Work)(const std::u16string&, const Arguments&)> Value OfText(Runtime&, const Arguments& arguments)
{
    if (arguments[0].IsNull()) {
        return Value::Null();
    }
    std::u16string converted;
    return Work(TextOf(arguments[0], converted), arguments);
}

Value LeftOf(const std::u16string& text, const Arguments& a)
{
    return Value(text.substr(0, Count(a[1])));
}

Value RightOf(const std::u16string& text, const Arguments& a)
{
    return Value(text.substr(text.size() - std::min(text.size(), Count(a[1]))));
}

Value MidOf(const std::u16string& text, const Arguments& a)
{
    size_t start = Count(a[1]);
    if (start == 0) {
        Raise(kInvalidCall);
    }
    size_t length = a.Has(2) ? Count(a[2]) : kNotFound;
    return start > text.size() ? Value(u"") : Value(text.substr(start - 1, length));
}

Value LowerOf(const std::u16string& text, const Arguments&)
{
    return Value(Lower(text));
}
Value UpperOf(const std::u16string& text, const Arguments&)
{
    return Value(Upper(text));
}
Value TrimOf(const std::u16string& text, const Arguments&)
{
    return Value(TrimBlanks(text));
}

Value LeftTrimOf(const std::u16string& text, const Arguments&)
{
    return Value(text.substr(std::min(text.find_first_not_of(u' '), text.size())));
}

Value RightTrimOf(const std::u16string& text, const Arguments&)
{
    return Value(text.substr(0, text.find_last_not_of(u' ') + 1));
}

Value Reverse(Runtime&, const Arguments& a)
{
    constexpr size_t kPart = 1 << 16;
    std::u16string text = a[0].ToText();
    for (size_t i = 0; i < text.size() / 2; ++i) {
        std::swap(text[i], text[text.size() - 1 - i]);
        if (i % kPart == 0) {
            LongWork::Did(kPart);
        }
    }
    return Value(std::move(text));
}

Value LengthOf(const std::u16string& text, const Arguments&)
{
    return Value(static_cast<int32_t>(text.size()));
}

Value InStr(Runtime& runtime, const Arguments& a)
{
    // With three arguments and more the first one is the start.
    bool hasStart = a.Count() > 2 && a.Has(2);
    size_t first = hasStart ? 1 : 0;
    if (a[first].IsNull() || a[first + 1].IsNull()) {
        return Value::Null();
    }
    int32_t start = hasStart ? a[0].ToLong() : 1;
    if (start < 1) {
        Raise(kInvalidCall);
    }
    std::u16string converted;
    const std::u16string& text = TextOf(a[first], converted);
    std::u16string wanted = a[first + 1].ToText();
    size_t from = static_cast<size_t>(start) - 1;
    if (from >= text.size()) {
        return Value(int32_t{0});
    }
    size_t found = FindText(text, wanted, from, IgnoresCase(runtime, a, 3, runtime.compareText));
    return Value(found == kNotFound ? 0 : static_cast<int32_t>(found) + 1);
}

Value InStrRev(Runtime& runtime, const Arguments& a)
{
    if (a[0].IsNull() || a[1].IsNull()) {
        return Value::Null();
    }
    std::u16string text = a[0].ToText();
    std::u16string wanted = a[1].ToText();
    int32_t start = a.Has(2) ? a[2].ToLong() : -1;
    if (start == 0 || start < -1) {
        Raise(kInvalidCall);
    }
    size_t end = start == -1 ? text.size() : static_cast<size_t>(start);
    if (end > text.size() || text.empty()) {
        return Value(int32_t{0});
    }
    if (wanted.empty()) {
        return Value(static_cast<int32_t>(end));
    }
    if (wanted.size() > end) {
        return Value(int32_t{0});
    }
    size_t found =
        FindTextBackwards(std::u16string_view(text).substr(0, end), wanted, end, IgnoresCase(runtime, a, 3, false));
    return Value(found == kNotFound ? 0 : static_cast<int32_t>(found) + 1);
}

Value Replace(Runtime& runtime, const Arguments& a)
{
    if (a[0].IsNull()) {
        Raise(kInvalidUseOfNull);
    }
    std::u16string converted;
    const std::u16string& text = TextOf(a[0], converted);
    std::u16string wanted = a[1].ToText();
    std::u16string with = a[2].ToText();
    int32_t start = a.Has(3) ? a[3].ToLong() : 1;
    int32_t most = a.Has(4) ? a[4].ToLong() : -1;
    if (start < 1 || most < -1) {
        Raise(kInvalidCall);
    }
    bool ignoreCase = IgnoresCase(runtime, a, 5, false);
    size_t at = static_cast<size_t>(start) - 1;
    if (at >= text.size()) {
        return Value(u"");
    }
    if (wanted.empty()) {
        return Value(text.substr(at));
    }
    std::u16string result;
    for (int32_t done = 0; most < 0 || done < most; ++done) {
        size_t found = FindText(text, wanted, at, ignoreCase);
        if (found == kNotFound) {
            break;
        }
        // The characters move once more when the result outgrows its place.
        MemoryBudget::Check(2 * (result.size() + found - at + with.size()) * sizeof(char16_t));
        result.append(text, at, found - at).append(with);
        LongWork::Did(with.size());
        at = found + wanted.size();
    }
    return Value(result.append(text, at));
}

Value Split(Runtime& runtime, const Arguments& a)
{
    std::u16string text = a[0].ToText();
    std::u16string delimiter = a.Has(1) ? a[1].ToText() : u" ";
    int32_t most = a.Has(2) ? a[2].ToLong() : -1;
    bool ignoreCase = IgnoresCase(runtime, a, 3, false);
    std::vector<std::u16string> parts;
    if (!text.empty() && most != 0) {
        size_t at = 0;
        while (!delimiter.empty() && (most < 0 || parts.size() + 1 < static_cast<size_t>(most))) {
            size_t found = FindText(text, delimiter, at, ignoreCase);
            if (found == kNotFound) {
                break;
            }
            parts.push_back(text.substr(at, found - at));
            MemoryBudget::Check(parts.size() * kPartBytes);
            at = found + delimiter.size();
        }
        parts.push_back(text.substr(at));
    }
    return Value(Array::FromTexts(parts));
}

Value Join(Runtime&, const Arguments& a)
{
    Ref<Array> array = a[0].ToArray();
    if (array->dimensions.size() > 1) {
        Raise(kInvalidCall);
    }
    std::u16string delimiter = a.Has(1) ? a[1].ToText() : u" ";
    std::u16string result;
    for (size_t i = 0; i < array->items.size(); ++i) {
        std::u16string part = array->items[i].ToText();
        MemoryBudget::Check(2 * (result.size() + delimiter.size() + part.size()) * sizeof(char16_t));
        result.append(i == 0 ? std::u16string_view() : delimiter).append(part);
        LongWork::Did(part.size() + 16);
    }
    return Value(std::move(result));
}

Value Filter(Runtime& runtime, const Arguments& a)
{
    Ref<Array> array = a[0].ToArray();
    std::u16string wanted = a[1].ToText();
    bool include = !a.Has(2) || a[2].ToBoolean();
    bool ignoreCase = IgnoresCase(runtime, a, 3, false);
    std::vector<std::u16string> kept;
    for (const Value& item : array->items) {
        std::u16string text = item.ToText();
        if ((FindText(text, wanted, 0, ignoreCase) != kNotFound) == include) {
            kept.push_back(std::move(text));
            MemoryBudget::Check(kept.size() * kPartBytes);
        }
    }
    return Value(Array::FromTexts(kept));
}

Value Chr(Runtime&, const Arguments& a)
{
    int32_t code = a[0].ToLong();
    if (code < 0 || code > 255) {
        Raise(kInvalidCall);
    }
    return Value(std::u16string(1, NarrowToUnit(static_cast<uint8_t>(code))));
}

Value ChrW(Runtime&, const Arguments& a)
{
    int32_t code = a[0].ToLong();
    if (code < -32768 || code > 65535) {
        Raise(kInvalidCall);
    }
    return Value(std::u16string(1, static_cast<char16_t>(code & 0xFFFF)));
}

char16_t FirstUnit(const Arguments& a)
{
    std::u16string text = a[0].ToText();
    if (text.empty()) {
        Raise(kInvalidCall);
    }
    return text[0];
}

Value Asc(Runtime&, const Arguments& a)
{
    return Value(static_cast<int16_t>(UnitToNarrow(FirstUnit(a))));
}
Value AscW(Runtime&, const Arguments& a)
{
    return Value(static_cast<int16_t>(FirstUnit(a)));
}

std::u16string Repeated(size_t count, char16_t unit)
{
    MemoryBudget::Check(count * sizeof(char16_t));
    constexpr size_t kPart = 1 << 16;
    std::u16string text;
    text.reserve(count);
    for (; count > 0; count -= std::min(count, kPart)) {
        text.append(std::min(count, kPart), unit);
        LongWork::Did(kPart);
    }
    return text;
}

Value Space(Runtime&, const Arguments& a)
{
    return Value(Repeated(Count(a[0]), u' '));
}

Value String(Runtime&, const Arguments& a)
{
    if (a[1].IsNull()) {
        return Value::Null();
    }
    size_t count = Count(a[0]);
    if (a[1].IsString()) {
        if (a[1].Text().empty()) {
            Raise(kInvalidCall);
        }
        return Value(Repeated(count, a[1].Text()[0]));
    }
    return Value(Repeated(count, NarrowToUnit(static_cast<uint8_t>(a[1].ToLong() & 0xFF))));
}

Value StrComp(Runtime& runtime, const Arguments& a)
{
    if (a[0].IsNull() || a[1].IsNull()) {
        return Value::Null();
    }
    bool ignoreCase = IgnoresCase(runtime, a, 2, runtime.compareText);
    return Value(static_cast<int16_t>(CompareTexts(a[0].ToText(), a[1].ToText(), ignoreCase)));
}

std::u16string InProperCase(std::u16string text)
{
    bool start = true;
    for (char16_t& unit : text) {
        unit = start ? UpperUnit(unit) : LowerUnit(unit);
        start = unit == u' ' || unit == 0 || (unit >= u'\t' && unit <= u'\r');
    }
    return text;
}

Value StrConv(Runtime&, const Arguments& a)
{
    constexpr int32_t kUpper = 1;
    constexpr int32_t kLower = 2;
    constexpr int32_t kProper = 3;
    constexpr int32_t kToCharacters = 64;
    constexpr int32_t kToBytes = 128;
    if (a[0].IsNull()) {
        return Value::Null();
    }
    Value text = CoerceTo(Type::String, a[0]);
    switch (a[1].ToLong()) {
    case kUpper:
        return Value(Upper(text.Text()));
    case kLower:
        return Value(Lower(text.Text()));
    case kProper:
        return Value(InProperCase(text.Text()));
    case kToCharacters:
        return Value(FromNarrow(text.TextBytes()));
    case kToBytes:
        return Value::FromBytes(ToNarrow(text.Text()));
    default:
        Raise(kInvalidCall);
    }
}

Value Str(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    Value number = a[0].IsString() ? Value(a[0].ToDouble()) : a[0];
    std::u16string text = number.ToText();
    if (!number.IsNumeric() || number.Kind() == Type::Date || number.Kind() == Type::Boolean) {
        return Value(std::move(text));
    }
    bool negative = text[0] == u'-';
    if (text.compare(negative ? 1 : 0, 2, u"0.") == 0) {
        text.erase(negative ? 1 : 0, 1);
    }
    return Value(negative ? text : u" " + text);
}

Value Val(Runtime&, const Arguments& a)
{
    // Reads as far as it makes sense; blanks between digits don't count.
    std::u16string text;
    for (char16_t unit : a[0].ToText()) {
        if (unit != u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r') {
            text.push_back(unit);
        }
    }
    bool isRadix = text.size() > 2 && text[0] == u'&';
    for (size_t length = std::min<size_t>(text.size(), 400); length > 0; --length) {
        std::u16string_view part = std::u16string_view(text).substr(0, length);
        if (part.find_first_of(u",$(") != kNotFound || part.back() == u'+' || part.back() == u'-' ||
            (isRadix && length < 3)) {
            continue;
        }
        if (std::optional<double> number = ParseNumber(part)) {
            if (std::isinf(*number)) {
                Raise(kOverflow);
            }
            return Value(*number);
        }
    }
    return Value(0.0);
}

Value Radix(const Value& value, uint32_t bits)
{
    if (value.IsNull()) {
        return Value::Null();
    }
    int64_t number = CoerceTo(Type::LongLong, value).Whole();
    uint64_t rest = static_cast<uint64_t>(number);
    if (value.Kind() == Type::Integer || value.Kind() == Type::Boolean) {
        rest &= 0xFFFF;
    } else if (value.Kind() != Type::LongLong) {
        rest = FitsInto(Type::Long, number) ? rest & 0xFFFFFFFF : (Raise(kOverflow), 0);
    }
    std::u16string text;
    do {
        text.insert(text.begin(), u"0123456789ABCDEF"[rest & ((1U << bits) - 1)]);
        rest >>= bits;
    } while (rest != 0);
    return Value(std::move(text));
}

Value Hex(Runtime&, const Arguments& a)
{
    return Radix(a[0], 4);
}
Value Oct(Runtime&, const Arguments& a)
{
    return Radix(a[0], 3);
}

Value Format(Runtime&, const Arguments& a)
{
    WeekRule weeks;
    weeks.firstDay = a.Has(2) ? std::max(a[2].ToLong(), 1) : weeks.firstDay;
    weeks.firstWeek = a.Has(3) ? std::max(a[3].ToLong(), 1) : weeks.firstWeek;
    if (weeks.firstDay > 7 || weeks.firstWeek > 3) {
        Raise(kInvalidCall);
    }
    return Value(FormatValue(a[0], a.Has(1) ? a[1].ToText() : std::u16string(), weeks));
}

/// The statement Mid: a part of the text is overwritten, its length stays.
Value AssignMid(Runtime&, const Arguments& a)
{
    std::u16string text = a[0].ToText();
    size_t start = Count(a[1]);
    std::u16string with = a[3].ToText();
    if (start == 0 || start > text.size()) {
        Raise(kInvalidCall);
    }
    size_t length = std::min({a.Has(2) ? Count(a[2]) : with.size(), with.size(), text.size() - start + 1});
    return Value(text.replace(start - 1, length, with.substr(0, length)));
}

/// A String of fixed length: cut or filled with blanks.
/// LSet and RSet keep the length of what the target holds.
Value AlignLeft(Runtime&, const Arguments& a)
{
    return FitText(a[1].ToText(), a[0].ToText().size());
}

Value AlignRight(Runtime&, const Arguments& a)
{
    std::u16string text = a[1].ToText();
    size_t length = a[0].ToText().size();
    text.insert(0, length > text.size() ? length - text.size() : 0, u' ');
    return FitText(std::move(text), length);
}

constexpr Builtin kFunctions[] = {
    {u"asc", 1, 1, Type::Integer, Asc, u"String"},
    {u"ascw", 1, 1, Type::Integer, AscW, u"String"},
    {u"chr", 1, 1, Type::Variant, Chr, u"CharCode"},
    {u"chrw", 1, 1, Type::Variant, ChrW, u"CharCode"},
    {u"filter", 2, 4, Type::Variant, Filter, u"SourceArray Match Include Compare"},
    {u"format", 1, 4, Type::Variant, Format, u"Expression Format FirstDayOfWeek FirstWeekOfYear"},
    {u"hex", 1, 1, Type::Variant, Hex, u"Number"},
    {u"instr", 2, 4, Type::Variant, InStr, u"Start String1 String2 Compare"},
    {u"instrrev", 2, 4, Type::Variant, InStrRev, u"StringCheck StringMatch Start Compare"},
    {u"join", 1, 2, Type::String, Join, u"SourceArray Delimiter"},
    {u"lcase", 1, 1, Type::Variant, OfText<LowerOf>, u"String"},
    {u"left", 2, 2, Type::Variant, OfText<LeftOf>, u"String Length"},
    {u"len", 1, 1, Type::Variant, OfText<LengthOf>, u"Expression"},
    {u"ltrim", 1, 1, Type::Variant, OfText<LeftTrimOf>, u"String"},
    {u"mid", 2, 3, Type::Variant, OfText<MidOf>, u"String Start Length"},
    {u"oct", 1, 1, Type::Variant, Oct, u"Number"},
    {u"replace", 3, 6, Type::String, Replace, u"Expression Find Replace Start Count Compare"},
    {u"right", 2, 2, Type::Variant, OfText<RightOf>, u"String Length"},
    {u"rtrim", 1, 1, Type::Variant, OfText<RightTrimOf>, u"String"},
    {u"space", 1, 1, Type::Variant, Space, u"Number"},
    {u"split", 1, 4, Type::Variant, Split, u"Expression Delimiter Limit Compare"},
    {u"str", 1, 1, Type::Variant, Str, u"Number"},
    {u"strcomp", 2, 3, Type::Variant, StrComp, u"String1 String2 Compare"},
    {u"strconv", 2, 3, Type::Variant, StrConv, u"String Conversion LocaleID"},
    {u"string", 2, 2, Type::Variant, String, u"Number Character"},
    {u"strreverse", 1, 1, Type::String, Reverse, u"Expression"},
    {u"trim", 1, 1, Type::Variant, OfText<TrimOf>, u"String"},
    {u"ucase", 1, 1, Type::Variant, OfText<UpperOf>, u"String"},
    {u"val", 1, 1, Type::Double, Val, u"String"},
    {u"#mid", 4, 4, Type::String, AssignMid, {}},
    {u"#lset", 2, 2, Type::String, AlignLeft, {}},
    {u"#rset", 2, 2, Type::String, AlignRight, {}},
};

} // namespace

std::span<const Builtin> TextFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
