#pragma once

#include "macro/file_system.h"
#include "macro/object.h"

#include <functional>
#include <optional>

namespace tv::macro {

/// What a macro may name at compile time beyond the language: the application's type library. Names are given folded
/// (lower case).
class Library
{
public:
    virtual ~Library() = default;
    /// A member of one of the application's enumerations, such as tvDocPART.
    virtual std::optional<Value> Constant(std::u16string_view name) const = 0;
    /// Whether the name is a global object, such as Application.
    virtual bool HasGlobal(std::u16string_view name) const = 0;
    /// Whether the name is one of the application's libraries, such as torvane in `As Torvane.ModelDoc2`.
    virtual bool HasLibrary(std::u16string_view name) const = 0;
    /// Whether a class or an enumeration of that name may stand behind As.
    virtual bool HasType(std::u16string_view name) const = 0;
    virtual bool HasEnumeration(std::u16string_view name) const = 0;
};

/// A function behind a Declare statement.
using ExternalFunction = std::function<Value(Arguments&)>;

/// What a running macro reaches outside of itself.
class Host
{
public:
    virtual ~Host() = default;
    /// The global object that Library::HasGlobal promised.
    virtual Value Global(std::u16string_view foldedName) = 0;
    /// An object by its program id, or null when there is none (error 429). The scripting objects of the language
    /// ("Scripting.FileSystemObject", "Scripting.Dictionary") are made without the host.
    virtual Ref<Object> CreateObject(std::u16string_view progId) = 0;
    /// GetObject; null means error 432.
    virtual Ref<Object> GetObject(std::u16string_view path, std::u16string_view progId);
    /// The function of a library, or null when the library or the entry is unknown (error 453 at the call). Both names
    /// are folded; a library's name comes without ".dll".
    virtual const ExternalFunction* FindFunction(std::u16string_view library, std::u16string_view entry) = 0;
    virtual FileSystem& Files() = 0;
    /// Local time in days since 30 December 1899.
    virtual double Now() = 0;
    /// Returns the button's number, such as 1 for OK.
    virtual int32_t MessageBox(const std::u16string& prompt, int32_t buttons, const std::u16string& title) = 0;
    virtual std::u16string InputBox(const std::u16string& prompt, const std::u16string& title,
                                    const std::u16string& suggestion);
    virtual void DoEvents() {}
    virtual void DebugPrint(const std::u16string& line);
    /// What the function Environ tells: "NAME=value", in the order of their numbers.
    virtual std::vector<std::u16string> Environment();
};

} // namespace tv::macro
