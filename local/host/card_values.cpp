#include "host/card_values.h"

#include "host/errors.h"
#include "host/task_variables.h"

#include "macro/dates.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace tv::local {

namespace {

struct CardKindRow
{
    std::string_view word;
    VARTYPE type;
    std::string_view example;
};

/// The first row of a word is what a value of that kind is written as.
constexpr CardKindRow kKinds[] = {
    {"text", VT_BSTR, "a text"},
    {"int", VT_I4, "a whole number such as 4"},
    {"float", VT_R8, "a number such as 12.5"},
    {"bool", VT_BOOL, "true or false"},
    {"date", VT_DATE, "a date such as 2026-11-21 or \"2026-11-21 09:30\""},
    {"int", VT_I2, ""},
    {"int", VT_UI1, ""},
    {"int", VT_UI4, ""},
    {"float", VT_R4, ""},
};

const CardKindRow* RowOfWord(std::string_view word)
{
    for (const CardKindRow& row : kKinds) {
        if (row.word == word) {
            return &row;
        }
    }
    return nullptr;
}

template <typename Number> std::string Shortest(Number number)
{
    char text[64];
    const auto [end, error] = std::to_chars(std::begin(text), std::end(text), number);
    return {text, end};
}

std::string DateText(double days)
{
    if (!macro::IsDateInRange(days)) {
        return Shortest(days);
    }
    const macro::DateParts parts = macro::SplitDate(days);
    char text[64];
    const bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
    std::snprintf(text, sizeof text, midnight ? "%04d-%02d-%02d" : "%04d-%02d-%02d %02d:%02d:%02d", parts.year,
                  parts.month, parts.day, parts.hour, parts.minute, parts.second);
    return text;
}

constexpr int kNoNumber = -1;

/// Takes a number of exactly so many digits.
int TakeDigits(std::string_view& text, size_t count)
{
    int number = 0;
    if (text.size() < count) {
        return kNoNumber;
    }
    const auto [rest, error] = std::from_chars(text.data(), text.data() + count, number);
    if (error != std::errc{} || rest != text.data() + count || text.front() == '-') {
        return kNoNumber;
    }
    text.remove_prefix(count);
    return number;
}

bool Take(std::string_view& text, char character)
{
    if (text.empty() || text.front() != character) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

/// "09:30" or "09:30:15", as a part of a day.
std::optional<double> ParseTime(std::string_view text)
{
    const int hour = TakeDigits(text, 2);
    const int minute = Take(text, ':') ? TakeDigits(text, 2) : kNoNumber;
    const int second = Take(text, ':') ? TakeDigits(text, 2) : 0;
    const bool isTime = hour >= 0 && hour <= 23 && minute >= 0 && minute <= 59 && second >= 0 && second <= 59;
    if (!isTime || !text.empty()) {
        return std::nullopt;
    }
    return macro::JoinTime(hour, minute, second);
}

/// "2026-11-21", with a time behind a blank or a "T" if there is one.
std::optional<double> ParseDay(std::string_view text)
{
    constexpr int kFirstYear = 100;
    const int year = TakeDigits(text, 4);
    const int month = Take(text, '-') ? TakeDigits(text, 2) : kNoNumber;
    const int day = Take(text, '-') ? TakeDigits(text, 2) : kNoNumber;
    if (year < kFirstYear || month < 1 || month > 12 || day < 1 || day > macro::DaysInMonth(year, month)) {
        return std::nullopt;
    }
    const bool hasTime = Take(text, ' ') || Take(text, 'T');
    const auto time = hasTime ? ParseTime(text) : std::optional(0.0);
    if (!time || (!hasTime && !text.empty())) {
        return std::nullopt;
    }
    return macro::CombineDate(macro::JoinDate(year, month, day), *time);
}

std::optional<StoredValue> ParseCardValue(VARTYPE type, std::string_view text)
{
    switch (type) {
    case VT_I4:
        return ParseValue(ValueKind::Int, text);
    case VT_BOOL:
        return ParseValue(ValueKind::Bool, text);
    case VT_DATE: {
        const auto date = ParseDay(text);
        return date ? std::optional(StoredValue{VT_DATE, *date}) : std::nullopt;
    }
    case VT_R8: {
        double number = 0;
        const char* const end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        const bool good = error == std::errc{} && rest == end && std::isfinite(number);
        return good ? std::optional(StoredValue{VT_R8, number}) : std::nullopt;
    }
    default:
        return StoredValue::FromText(text);
    }
}

} // namespace

std::string_view CardKindWord(const StoredValue& value)
{
    for (const CardKindRow& row : kKinds) {
        if (row.type == value.type) {
            return row.word;
        }
    }
    return "empty";
}

std::string CardValueText(const StoredValue& value)
{
    const auto* number = std::get_if<double>(&value.content);
    if (number != nullptr && value.type == VT_DATE) {
        return DateText(*number);
    }
    if (number != nullptr) {
        return value.type == VT_R4 ? Shortest(static_cast<float>(*number)) : Shortest(*number);
    }
    std::string text = value.Display();
    for (char& character : text) {
        character = static_cast<unsigned char>(character) < 0x20 ? ' ' : character;
    }
    return text;
}

NamedValue ParseCardAssignment(std::string_view text,
                               const std::function<std::optional<StoredValue>(std::string_view)>& current)
{
    const size_t equals = text.find('=');
    std::string_view name = text.substr(0, equals);
    const size_t colon = name.rfind(':');
    const bool hasKind = colon != std::string_view::npos;
    const std::string_view word = hasKind ? name.substr(colon + 1) : std::string_view();
    name = name.substr(0, colon);
    if (equals == std::string_view::npos || name.empty()) {
        throw UsageError("'" + std::string(text) + "' isn't an assignment; write VARIABLE=VALUE.");
    }
    const CardKindRow* row = RowOfWord(hasKind ? word : "text");
    if (row == nullptr) {
        throw UsageError("'" + std::string(word) + "' is no kind of value; write text, int, float, bool or date.");
    }
    if (const auto stored = hasKind ? std::nullopt : current(name); stored && CardKindWord(*stored) != "empty") {
        row = RowOfWord(CardKindWord(*stored));
    }
    const std::string_view value = text.substr(equals + 1);
    const auto parsed = ParseCardValue(row->type, value);
    if (!parsed) {
        throw UsageError("'" + std::string(value) + "' can't be the value of " + std::string(name) + "; it takes " +
                         std::string(row->example) + ".");
    }
    return {std::string(name), *parsed};
}

} // namespace tv::local
