// What the add-in's own module holds: texts, scripts, and the message box that belongs to a user's session.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tv {

/// A step of reading a resource that can fail.
enum class ResourceFailure
{
    NotFound,
    NoSize,
    NotLoaded,
    NotLocked
};

/// Outcome of reading a script resource: its bytes, or the step that failed.
struct ScriptResource
{
    std::string bytes;
    std::optional<ResourceFailure> failure;
};

class ModuleService
{
  public:
    virtual ~ModuleService() = default;
    /// A resource of the type "Script".
    virtual ScriptResource ReadScript(int32_t id) = 0;
    /// A string of the module's string table; absent when the table has none.
    virtual std::optional<std::u16string> ReadString(int32_t id) = 0;
    /// Bytes in the thread's ANSI code page as wide text.
    virtual std::u16string WideText(std::string_view bytes) = 0;
    virtual void ShowMessage(std::u16string_view text) = 0;
};

} // namespace tv
