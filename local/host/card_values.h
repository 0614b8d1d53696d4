// The values of a file's card as a person reads and writes them.
#pragma once

#include "vault/vault_records.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tv::local {

/// "text", "int", "float", "bool" or "date"; "empty" for no value.
std::string_view CardKindWord(const StoredValue& value);

/// The value in one line: numbers with all their digits, dates as "2026-11-21 09:30:00", without the time at midnight.
std::string CardValueText(const StoredValue& value);

/// Reads "NAME=VALUE" or "NAME:KIND=VALUE" with one of the five kinds. A kind that isn't written is that of `current`,
/// or else text. Raises UsageError with a line that says what would be right.
NamedValue ParseCardAssignment(std::string_view text,
                               const std::function<std::optional<StoredValue>(std::string_view)>& current);

} // namespace tv::local
