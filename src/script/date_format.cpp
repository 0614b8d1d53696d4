#include "script/date_format.h"

#include "script/date_format_table.h"
#include "support/dates.h"
#include "support/format.h"
#include "support/settings.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace tv {

namespace {

/// What can't be broken down prints as -1.
constexpr LocalTime kUnknownTime{-1, -1, -1, -1, -1, -1};
constexpr int32_t kNoon = 12;

LocalTime BreakDown(const DateValue& date)
{
    LocalTime time = kUnknownTime;
    if (date.valid) {
        LocalTimeFromDayCount(date.days, time);
    }
    return time;
}

const MonthName* FindMonth(int32_t number)
{
    return number >= 1 && number <= 12 ? &kMonthNames[number - 1] : nullptr;
}

std::u16string_view ShortMonthName(int32_t number)
{
    const MonthName* month = FindMonth(number);
    return month != nullptr ? month->shortName : std::u16string_view();
}

std::u16string_view LongMonthName(int32_t number)
{
    const MonthName* month = FindMonth(number);
    return month != nullptr ? month->longName : std::u16string_view();
}

FormatArgument ArgumentFor(DatePart part, const LocalTime& time)
{
    switch (part) {
    case DatePart::Year:
        return FormatArgument(time.year);
    case DatePart::YearOfCentury:
        return FormatArgument(time.year % 100);
    case DatePart::Month:
        return FormatArgument(time.month);
    case DatePart::ShortMonth:
        return FormatArgument(ShortMonthName(time.month));
    case DatePart::LongMonth:
        return FormatArgument(LongMonthName(time.month));
    case DatePart::Day:
        return FormatArgument(time.day);
    case DatePart::Hour:
        return FormatArgument(time.hour);
    case DatePart::Hour12:
        // Reduced above noon only: half past noon is "12:30 AM" here, and sites know their dates in that form.
        return FormatArgument(time.hour > kNoon ? time.hour - kNoon : time.hour);
    case DatePart::HalfOfDay:
        return FormatArgument(time.hour > kNoon ? u"PM" : u"AM");
    case DatePart::Minute:
        return FormatArgument(time.minute);
    case DatePart::Second:
    case DatePart::None:
        break;
    }
    return FormatArgument(time.second);
}

std::u16string FormatParts(std::u16string_view pattern, const DateParts& parts, const LocalTime& time)
{
    std::vector<FormatArgument> arguments;
    for (DatePart part : parts) {
        if (part != DatePart::None) {
            arguments.push_back(ArgumentFor(part, time));
        }
    }
    return FormatArguments(pattern, arguments);
}

const DateRow& FindRow(int32_t formatId)
{
    const auto* row = std::ranges::find(kDateRows, formatId, &DateRow::id);
    return row != std::end(kDateRows) ? *row : kOtherDateRow;
}

std::u16string TimeOfDay(DateStyle style, const LocalTime& time)
{
    switch (style) {
    case DateStyle::WithSeconds:
        return FormatText(u" %02d:%02d:%02d", time.hour, time.minute, time.second);
    case DateStyle::WithMinutes:
        return FormatText(u" %02d:%02d", time.hour, time.minute);
    case DateStyle::DateOnly:
        break;
    }
    return {};
}

} // namespace

bool FormatDate(std::u16string& text, const DateValue& date, int32_t formatId, DateStyle style)
{
    if (date.days == 0.0) {
        return false;
    }
    const LocalTime time = BreakDown(date);
    const DateRow& row = FindRow(formatId);
    if (!row.holdsTime) {
        text = FormatParts(row.pattern, row.parts, time) + TimeOfDay(style, time);
        return true;
    }
    const bool withTime = style == DateStyle::WithSeconds || style == DateStyle::WithMinutes;
    const bool cut = !withTime && !row.dateOnlyPattern.empty();
    text = FormatParts(cut ? row.dateOnlyPattern : row.pattern, row.parts, time);
    return true;
}

DateValue CurrentDate(ClockService& clock)
{
    constexpr DateValue kNoDate{0.0, false};
    LocalTime now{};
    DateValue date;
    if (!clock.GetLocalTime(now) || !DayCountFromLocalTime(now, date.days)) {
        return kNoDate;
    }
    LocalTime back{};
    date.valid = LocalTimeFromDayCount(date.days, back) && back == now;
    return date;
}

int32_t ReadDateFmt(Platform& platform, std::u16string_view vaultName)
{
    SettingsLight settings(platform.registry);
    Registry key(platform.registry);
    constexpr uint32_t kFlags = kUserSideOnly | kOpenForReading | kOpenForWriting;
    uint32_t format = 0;
    if (!settings.OpenVaultKey(vaultName, key, {}, MissingKey::Fail, kFlags) ||
        key.ReadNumberOfEitherOrder(u"DateFmt", format) != kErrorSuccess) {
        return 0;
    }
    return static_cast<int32_t>(format);
}

std::u16string DateForFileNames(Platform& platform, std::u16string_view vaultName)
{
    std::u16string text;
    FormatDate(text, CurrentDate(platform.clock), ReadDateFmt(platform, vaultName), DateStyle::DateOnly);
    std::ranges::replace(text, u'/', u'_');
    return text;
}

} // namespace tv
