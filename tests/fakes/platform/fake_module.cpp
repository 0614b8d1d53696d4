#include "fakes/platform/fake_module.h"

#include "support/format.h"
#include "support/narrow_text.h"

namespace tv::fakes {

ScriptResource FakeModule::ReadScript(int32_t id)
{
    const auto found = scripts.find(id);
    if (log.Enter("module.ReadScript", FormatText(u"%d", id)) != 0 || found == scripts.end()) {
        return {{}, ResourceFailure::NotFound};
    }
    return found->second;
}

std::optional<std::u16string> FakeModule::ReadString(int32_t id)
{
    const auto found = strings.find(id);
    if (log.Enter("module.ReadString", FormatText(u"%d", id)) != 0 || found == strings.end()) {
        return std::nullopt;
    }
    return found->second;
}

std::u16string FakeModule::WideText(std::string_view bytes)
{
    return WideWesternText(bytes);
}

void FakeModule::ShowMessage(std::u16string_view text)
{
    log.Note("module.ShowMessage", text);
    messages.emplace_back(text);
}

} // namespace tv::fakes
