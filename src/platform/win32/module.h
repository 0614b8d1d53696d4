// Win32Module: the resources of one loaded module.
#pragma once

#include "com/base.h"
#include "platform/module_service.h"

namespace tv::win32 {

class Win32Module final : public ModuleService
{
  public:
    /// \param handle the module whose resources are read
    explicit Win32Module(HINSTANCE handle) : instance(handle) {}

    ScriptResource ReadScript(int32_t id) override;
    std::optional<std::u16string> ReadString(int32_t id) override;
    std::u16string WideText(std::string_view bytes) override;
    void ShowMessage(std::u16string_view text) override;

  private:
    HINSTANCE instance;
};

} // namespace tv::win32
