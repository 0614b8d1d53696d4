// The variables of a task as an administrator writes them: name, kind, and the value that a new task gets.
#pragma once

#include "vault/vault_records.h"

#include <optional>
#include <span>
#include <string_view>

namespace tv::local {

enum class ValueKind
{
    Int,
    Float,
    Text,
    Bool,
};

std::string_view KindWord(ValueKind kind);
std::optional<ValueKind> KindOfWord(std::string_view word);
/// The kind of a stored value; empty for one that is none of the four.
std::optional<ValueKind> KindOfValue(const StoredValue& value);

struct VariableRow
{
    std::string_view name;
    ValueKind kind;
    /// The value in a new convert task, as it is written on the command line; null when it gets none.
    const char* convertDefault;
};

/// Every variable that the add-in knows.
std::span<const VariableRow> KnownVariables();
std::optional<ValueKind> KindOfVariable(std::string_view name);

/// Labels of the output formats, in which the macro finds the extension.
std::span<const std::string_view> OutputFormats();
/// The label that a person means: the label itself, its name or its extension, whatever the case.
std::optional<std::string_view> FindOutputFormat(std::string_view text);

/// Reads a value; empty when the text isn't one of that kind.
std::optional<StoredValue> ParseValue(ValueKind kind, std::string_view text);

/// Reads "NAME=VALUE" or "NAME:KIND=VALUE". A kind that isn't written is that of `current`, or else the known one.
/// Raises UsageError with a line that says what would be right.
NamedValue ParseAssignment(std::string_view text,
                           const std::function<std::optional<StoredValue>(std::string_view)>& current);

/// The variables of a new task of a kind, with its macro: as the add-in's pages would store them unchanged.
std::vector<NamedValue> NewTaskVariables(int32_t kind, std::string_view taskName, std::string_view script);

} // namespace tv::local
