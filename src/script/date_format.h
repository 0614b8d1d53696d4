// Date text in the format that a vault is set to.
#pragma once

#include "platform/platform.h"

#include <string>
#include <string_view>

namespace tv {

/// A moment as an automation day count. 0 means no date; an invalid date can't be broken down.
struct DateValue
{
    double days = 0.0;
    bool valid = true;
};

/// What follows the date. Any other number is DateOnly.
enum class DateStyle : int32_t
{
    WithSeconds = 1,
    DateOnly = 2,
    WithMinutes = 3
};

/// Writes the date in the format of the given number; false, with the text untouched, when there is no date. The
/// numbers are the style numbers of SQL's date conversion; one without a row of its own gives the long form with the
/// time.
bool FormatDate(std::u16string& text, const DateValue& date, int32_t formatId, DateStyle style);

/// The local time as a date; no date when it can't be read.
DateValue CurrentDate(ClockService& clock);

/// The date format that the named vault is set to; 0 when it isn't set.
int32_t ReadDateFmt(Platform& platform, std::u16string_view vaultName);

/// Today's date in the vault's format, as it goes into file names: with "_" for "/".
std::u16string DateForFileNames(Platform& platform, std::u16string_view vaultName);

} // namespace tv
