#pragma once

#include "macro/object.h"

#include <optional>
#include <span>
#include <string_view>

namespace tv::macro {

class Runtime;

/// One function or statement of the language's own library.
struct Builtin
{
    std::u16string_view name;
    size_t least = 0;
    size_t most = 0;
    /// Declared type of the result.
    Type result = Type::Variant;
    Value (*call)(Runtime& runtime, const Arguments& arguments) = nullptr;
    /// Parameter names, parted by blanks, for arguments given by name.
    std::u16string_view parameters = {};
};

inline constexpr size_t kAnyNumber = 0xFFFF;

/// Index of a built-in function by its folded name, or -1.
int32_t FindBuiltin(std::u16string_view folded);
const Builtin& GetBuiltin(int32_t index);

/// The name, as messages show it, of a function that the language has and this library leaves out; empty for others.
std::u16string_view LeftOutFunction(std::u16string_view folded);

/// A constant of the language such as vbCrLf, by its folded name.
std::optional<Value> FindBuiltinConstant(std::u16string_view folded);
/// Whether the language has an enumeration of that name, such as VbMsgBoxStyle.
bool IsBuiltinEnumeration(std::u16string_view folded);

/// Whether the language's library has a module of that name, such as Strings in `Strings.Left`.
bool IsLibraryModule(std::u16string_view folded);
/// Whether the module has a function of that name.
bool IsInLibraryModule(std::u16string_view foldedModule, std::u16string_view folded);

/// Whether New and As know the class, such as collection or scripting.dictionary.
bool IsBuiltinClass(std::u16string_view folded);
/// A new object of a built-in class, or null.
Ref<Object> CreateBuiltinObject(Runtime& runtime, std::u16string_view folded);

std::span<const Builtin> TextFunctions();
std::span<const Builtin> ByteFunctions();
std::span<const Builtin> NumberFunctions();
std::span<const Builtin> DateFunctions();
std::span<const Builtin> FormatFunctions();
std::span<const Builtin> FinancialFunctions();
std::span<const Builtin> InformationFunctions();
std::span<const Builtin> InteractionFunctions();
std::span<const Builtin> FileFunctions();

} // namespace tv::macro
