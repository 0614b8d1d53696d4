// Functions of dates and times.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/format.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <cmath>

namespace tv::macro {

namespace {

double DateOf(const Value& value)
{
    return CoerceTo(Type::Date, value).Number();
}

template <int DateParts::*Part> Value PartOf(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    return Value(static_cast<int16_t>(SplitDate(DateOf(a[0])).*Part));
}

Value CheckedDate(double days)
{
    if (!IsDateInRange(days)) {
        Raise(kInvalidCall);
    }
    return Value::FromDate(days);
}

Value Now(Runtime& runtime, const Arguments&)
{
    return Value::FromDate(runtime.host.Now());
}
Value Today(Runtime& runtime, const Arguments&)
{
    return Value::FromDate(std::floor(runtime.host.Now()));
}

Value TimeOfDay(Runtime& runtime, const Arguments&)
{
    double now = runtime.host.Now();
    return Value::FromDate(now - std::floor(now));
}

Value TodayAsText(Runtime& runtime, const Arguments&)
{
    return Value(FormatValue(Value::FromDate(runtime.host.Now()), u"mm-dd-yyyy"));
}

Value TimeOfDayAsText(Runtime& runtime, const Arguments&)
{
    return Value(FormatValue(Value::FromDate(runtime.host.Now()), u"hh:nn:ss"));
}

Value Timer(Runtime& runtime, const Arguments&)
{
    double now = runtime.host.Now();
    return Value(static_cast<float>((now - std::floor(now)) * 86400));
}

Value DateSerial(Runtime&, const Arguments& a)
{
    int64_t year = a[0].ToInteger();
    if (year >= 0 && year < 100) {
        year += year < 30 ? 2000 : 1900;
    }
    return CheckedDate(JoinDate(year, a[1].ToInteger(), a[2].ToInteger()));
}

Value TimeSerial(Runtime&, const Arguments& a)
{
    return CheckedDate(JoinTime(a[0].ToInteger(), a[1].ToInteger(), a[2].ToInteger()));
}

Value DateValue(Runtime&, const Arguments& a)
{
    return Value::FromDate(std::trunc(DateOf(a[0])));
}

Value TimeValue(Runtime&, const Arguments& a)
{
    double date = DateOf(a[0]);
    return Value::FromDate(std::abs(date - std::trunc(date)));
}

double AddMonths(double date, double months)
{
    DateParts parts = SplitDate(date);
    int64_t total = int64_t{parts.year} * 12 + parts.month - 1 + static_cast<int64_t>(months);
    int64_t year = total >= 0 ? total / 12 : (total - 11) / 12;
    int month = static_cast<int>(total - year * 12) + 1;
    int day = std::min(parts.day, DaysInMonth(year, month));
    return CombineDate(JoinDate(year, month, day), std::abs(date - std::trunc(date)));
}

double AddSeconds(double date, double seconds)
{
    // Counted from a linear day line, so that dates before 1900 move the right way too.
    double day = std::trunc(date);
    double linear = day + std::abs(date - day) + seconds / 86400.0;
    double whole = std::floor(linear);
    return CombineDate(whole, linear - whole);
}

Value DateAdd(Runtime&, const Arguments& a)
{
    if (a[2].IsNull()) {
        return Value::Null();
    }
    std::u16string interval = Lower(a[0].ToText());
    double number = std::trunc(a[1].ToDouble());
    double date = DateOf(a[2]);
    if (std::abs(number) > 1e9) {
        Raise(kInvalidCall);
    }
    if (interval == u"yyyy" || interval == u"q" || interval == u"m") {
        return CheckedDate(AddMonths(date, number * (interval == u"yyyy" ? 12 : interval == u"q" ? 3 : 1)));
    }
    if (interval == u"d" || interval == u"y" || interval == u"w" || interval == u"ww") {
        return CheckedDate(AddSeconds(date, number * 86400 * (interval == u"ww" ? 7 : 1)));
    }
    double unit = interval == u"h" ? 3600 : interval == u"n" ? 60 : interval == u"s" ? 1 : 0;
    if (unit == 0) {
        Raise(kInvalidCall);
    }
    return CheckedDate(AddSeconds(date, number * unit));
}

int32_t FirstDay(const Arguments& a, size_t index)
{
    int32_t day = a.Has(index) ? a[index].ToLong() : 1;
    if (day < 0 || day > 7) {
        Raise(kInvalidCall);
    }
    return day == 0 ? 1 : day;
}

int32_t FirstWeek(const Arguments& a, size_t index)
{
    int32_t week = a.Has(index) ? a[index].ToLong() : 1;
    if (week < 0 || week > 3) {
        Raise(kInvalidCall);
    }
    return week == 0 ? 1 : week;
}

Value DateDiff(Runtime&, const Arguments& a)
{
    if (a[1].IsNull() || a[2].IsNull()) {
        return Value::Null();
    }
    std::u16string interval = Lower(a[0].ToText());
    double first = DateOf(a[1]);
    double second = DateOf(a[2]);
    DateParts from = SplitDate(first);
    DateParts to = SplitDate(second);
    double days = std::trunc(second) - std::trunc(first);
    // Weeks are told apart by their first day; the first week of a year is checked and changes nothing.
    const int32_t firstDay = FirstDay(a, 3);
    FirstWeek(a, 4);
    auto seconds = [](const DateParts& parts) {
        return static_cast<double>(parts.hour * 3600 + parts.minute * 60 + parts.second);
    };
    if (interval == u"yyyy") {
        return Value(int32_t{to.year - from.year});
    }
    if (interval == u"q") {
        return Value(int32_t{(to.year - from.year) * 4 + (to.month - 1) / 3 - (from.month - 1) / 3});
    }
    if (interval == u"m") {
        return Value(int32_t{(to.year - from.year) * 12 + to.month - from.month});
    }
    if (interval == u"d" || interval == u"y") {
        return Value(static_cast<int32_t>(days));
    }
    if (interval == u"w") {
        return Value(static_cast<int32_t>(days / 7));
    }
    if (interval == u"ww") {
        double start = std::trunc(first) - WeekdayFrom(from.weekday, firstDay);
        double end = std::trunc(second) - WeekdayFrom(to.weekday, firstDay);
        return Value(static_cast<int32_t>((end - start) / 7));
    }
    if (interval == u"h") {
        return CoerceTo(Type::Long, Value(days * 24 + to.hour - from.hour));
    }
    if (interval == u"n") {
        return CoerceTo(Type::Long, Value(days * 1440 + to.hour * 60 + to.minute - from.hour * 60 - from.minute));
    }
    if (interval == u"s") {
        return CoerceTo(Type::Long, Value(days * 86400 + seconds(to) - seconds(from)));
    }
    Raise(kInvalidCall);
}

Value DatePart(Runtime&, const Arguments& a)
{
    if (a[1].IsNull()) {
        return Value::Null();
    }
    std::u16string interval = Lower(a[0].ToText());
    double date = DateOf(a[1]);
    DateParts parts = SplitDate(date);
    const WeekRule weeks{FirstDay(a, 2), FirstWeek(a, 3)};
    struct Row
    {
        std::u16string_view interval;
        int value;
    };
    const Row rows[] = {
        {u"yyyy", parts.year},
        {u"q", (parts.month - 1) / 3 + 1},
        {u"m", parts.month},
        {u"y", parts.dayOfYear},
        {u"d", parts.day},
        {u"w", WeekdayFrom(parts.weekday, weeks.firstDay)},
        {u"ww", WeekOfYear(date, weeks)},
        {u"h", parts.hour},
        {u"n", parts.minute},
        {u"s", parts.second},
    };
    for (const Row& row : rows) {
        if (row.interval == interval) {
            return Value(static_cast<int16_t>(row.value));
        }
    }
    Raise(kInvalidCall);
}

Value Weekday(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    return Value(static_cast<int16_t>(WeekdayFrom(SplitDate(DateOf(a[0])).weekday, FirstDay(a, 1))));
}

Value NameOfMonth(Runtime&, const Arguments& a)
{
    int32_t month = a[0].ToLong();
    if (month < 1 || month > 12) {
        Raise(kInvalidCall);
    }
    std::u16string_view name = MonthName(month);
    return Value(a.Has(1) && a[1].ToBoolean() ? name.substr(0, 3) : name);
}

Value NameOfWeekday(Runtime&, const Arguments& a)
{
    int32_t day = a[0].ToLong();
    if (day < 1 || day > 7) {
        Raise(kInvalidCall);
    }
    std::u16string_view name = WeekdayName((day - 1 + FirstDay(a, 2) - 1) % 7 + 1);
    return Value(a.Has(1) && a[1].ToBoolean() ? name.substr(0, 3) : name);
}

constexpr Builtin kFunctions[] = {
    {u"date", 0, 0, Type::Variant, Today, {}},
    {u"date$", 0, 0, Type::String, TodayAsText, {}},
    {u"dateadd", 3, 3, Type::Variant, DateAdd, u"Interval Number Date"},
    {u"datediff", 3, 5, Type::Variant, DateDiff, u"Interval Date1 Date2 FirstDayOfWeek FirstWeekOfYear"},
    {u"datepart", 2, 4, Type::Variant, DatePart, u"Interval Date FirstDayOfWeek FirstWeekOfYear"},
    {u"dateserial", 3, 3, Type::Variant, DateSerial, u"Year Month Day"},
    {u"datevalue", 1, 1, Type::Variant, DateValue, u"Date"},
    {u"day", 1, 1, Type::Variant, PartOf<&DateParts::day>, u"Date"},
    {u"hour", 1, 1, Type::Variant, PartOf<&DateParts::hour>, u"Time"},
    {u"minute", 1, 1, Type::Variant, PartOf<&DateParts::minute>, u"Time"},
    {u"month", 1, 1, Type::Variant, PartOf<&DateParts::month>, u"Date"},
    {u"monthname", 1, 2, Type::String, NameOfMonth, u"Month Abbreviate"},
    {u"now", 0, 0, Type::Variant, Now, {}},
    {u"second", 1, 1, Type::Variant, PartOf<&DateParts::second>, u"Time"},
    {u"time", 0, 0, Type::Variant, TimeOfDay, {}},
    {u"time$", 0, 0, Type::String, TimeOfDayAsText, {}},
    {u"timer", 0, 0, Type::Single, Timer, {}},
    {u"timeserial", 3, 3, Type::Variant, TimeSerial, u"Hour Minute Second"},
    {u"timevalue", 1, 1, Type::Variant, TimeValue, u"Time"},
    {u"weekday", 1, 2, Type::Variant, Weekday, u"Date FirstDayOfWeek"},
    {u"weekdayname", 1, 3, Type::String, NameOfWeekday, u"Weekday Abbreviate FirstDayOfWeek"},
    {u"year", 1, 1, Type::Variant, PartOf<&DateParts::year>, u"Date"},
};

} // namespace

std::span<const Builtin> DateFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
