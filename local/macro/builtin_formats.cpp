// Functions that show a number or a date in a set form, and the ranges of Partition.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/format.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

constexpr int32_t kDefaultDecimals = 2;
constexpr int32_t kMostDecimals = 60;

/// One of vbTrue, vbFalse and vbUseDefault.
bool Choice(const Arguments& a, size_t index, bool otherwise)
{
    constexpr int32_t kUseDefault = -2;
    int32_t choice = a.Has(index) ? a[index].ToLong() : kUseDefault;
    return choice == kUseDefault ? otherwise : choice != 0;
}

Value NumberOf(const Value& value)
{
    return value.IsNumeric() && value.Kind() != Type::Date ? value : Value(value.ToDouble());
}

/// \param parentheses whether negative numbers stand in brackets unless the macro says otherwise
std::u16string NumberForm(const Arguments& a, std::u16string_view before, std::u16string_view behind, bool parentheses)
{
    int32_t decimals = a.Has(1) ? a[1].ToLong() : -1;
    if (decimals < -1 || decimals > kMostDecimals) {
        Raise(kInvalidCall);
    }
    decimals = decimals == -1 ? kDefaultDecimals : decimals;
    bool leadingZero = Choice(a, 2, true);
    bool grouped = Choice(a, 4, true);
    std::u16string form(before);
    form += grouped ? (leadingZero ? u"#,##0" : u"#,###") : (leadingZero ? u"0" : u"#");
    form += decimals > 0 ? u"." + std::u16string(static_cast<size_t>(decimals), u'0') : std::u16string();
    form += behind;
    return Choice(a, 3, parentheses) ? form + u";(" + form + u")" : form;
}

Value FormatNumber(Runtime&, const Arguments& a)
{
    return Value(FormatValue(NumberOf(a[0]), NumberForm(a, u"", u"", false)));
}

Value FormatCurrency(Runtime&, const Arguments& a)
{
    return Value(FormatValue(NumberOf(a[0]), NumberForm(a, u"$", u"", true)));
}

Value FormatPercent(Runtime&, const Arguments& a)
{
    return Value(FormatValue(NumberOf(a[0]), NumberForm(a, u"", u"%", false)));
}

Value FormatDateTime(Runtime&, const Arguments& a)
{
    // In the order of vbGeneralDate, vbLongDate, vbShortDate, vbLongTime and vbShortTime.
    constexpr std::u16string_view kForms[] = {u"General Date", u"Long Date", u"Short Date", u"Long Time",
                                              u"Short Time"};
    int32_t form = a.Has(1) ? a[1].ToLong() : 0;
    if (form < 0 || static_cast<size_t>(form) >= std::size(kForms)) {
        Raise(kInvalidCall);
    }
    return Value(FormatValue(CoerceTo(Type::Date, a[0]), kForms[form]));
}

Value Partition(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    int64_t number = a[0].ToLong();
    int64_t start = a[1].ToLong();
    int64_t stop = a[2].ToLong();
    int64_t interval = a[3].ToLong();
    if (start < 0 || stop <= start || interval < 1) {
        Raise(kInvalidCall);
    }
    std::u16string lower;
    std::u16string upper;
    if (number < start) {
        upper = Widen(std::to_string(start - 1));
    } else if (number > stop) {
        lower = Widen(std::to_string(stop + 1));
    } else {
        int64_t first = start + (number - start) / interval * interval;
        lower = Widen(std::to_string(first));
        upper = Widen(std::to_string(std::min(first + interval - 1, stop)));
    }
    size_t width = std::to_string(stop + 1).size();
    auto padded = [width](const std::u16string& text) {
        return std::u16string(width - std::min(width, text.size()), u' ') + text;
    };
    return Value(padded(lower) + u":" + padded(upper));
}

constexpr std::u16string_view kNumberParameters =
    u"Expression NumDigitsAfterDecimal IncludeLeadingDigit UseParensForNegativeNumbers GroupDigits";

constexpr Builtin kFunctions[] = {
    {u"formatcurrency", 1, 5, Type::String, FormatCurrency, kNumberParameters},
    {u"formatdatetime", 1, 2, Type::String, FormatDateTime, u"Expression NamedFormat"},
    {u"formatnumber", 1, 5, Type::String, FormatNumber, kNumberParameters},
    {u"formatpercent", 1, 5, Type::String, FormatPercent, kNumberParameters},
    {u"partition", 4, 4, Type::Variant, Partition, u"Number Start Stop Interval"},
};

} // namespace

std::span<const Builtin> FormatFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
