// FakeModule: resources by number, and a message box that only remembers what it was to show.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/module_service.h"

#include <map>

namespace tv::fakes {

class FakeModule final : public ModuleService
{
  public:
    explicit FakeModule(CallLog& callLog) : log(callLog) {}

    ScriptResource ReadScript(int32_t id) override;
    std::optional<std::u16string> ReadString(int32_t id) override;
    std::u16string WideText(std::string_view bytes) override;
    void ShowMessage(std::u16string_view text) override;

    void AddScript(int32_t id, std::string bytes) { scripts[id] = {std::move(bytes), std::nullopt}; }
    /// Makes one step of reading a script fail.
    void BreakScript(int32_t id, ResourceFailure failure) { scripts[id] = {{}, failure}; }
    void AddString(int32_t id, std::u16string text) { strings[id] = std::move(text); }
    const std::vector<std::u16string>& Messages() const { return messages; }

  private:
    CallLog& log;
    std::map<int32_t, ScriptResource> scripts;
    std::map<int32_t, std::u16string> strings;
    std::vector<std::u16string> messages;
};

} // namespace tv::fakes
