// Task variables: how every part of the program reads and writes what a task remembers. The list of all variables
// stands in task_variable_table.h.
#pragma once

#include "com/variant.h"
#include "interfaces/vault.h"

#include <optional>
#include <string>
#include <string_view>

namespace tv {

/// Values of the variable "__type".
enum class TaskKind : int32_t
{
    Convert = 1,
    Print = 2,
    ExecuteScript = 3
};

/// Reads a variable from a handle that is a task definition or a task instance; the definition comes first when the
/// handle is both. False, with `value` empty, when the variable is absent. A failure is raised, E_POINTER for a handle
/// that is neither.
bool ReadVariable(IUnknown* handle, const char16_t* name, Variant& value);

/// Writes a variable by the same order of interfaces; a failure is raised.
void WriteVariable(IUnknown* handle, const char16_t* name, const Variant& value);

/// Read a variable as the wanted kind, converted by the platform's variant type change when it is stored as another; a
/// failed conversion is raised. Nothing when the variable is absent.
std::optional<int32_t> ReadInt(IUnknown* handle, const char16_t* name);
std::optional<float> ReadFloat(IUnknown* handle, const char16_t* name);
std::optional<bool> ReadBool(IUnknown* handle, const char16_t* name);
std::optional<std::u16string> ReadText(IUnknown* handle, const char16_t* name);

void WriteInt(IUnknown* handle, const char16_t* name, int32_t value);
void WriteFloat(IUnknown* handle, const char16_t* name, float value);
void WriteBool(IUnknown* handle, const char16_t* name, bool value);
void WriteText(IUnknown* handle, const char16_t* name, std::u16string_view value);

/// Reads the kind of a task, 3 when nobody set it. A failure is returned, not raised, and leaves `kind` untouched.
///
/// \param useInstance true asks the handle for the task instance, false for the task definition; E_POINTER without it
Result ReadTaskKind(IUnknown* handle, bool useInstance, int32_t& kind);

} // namespace tv
