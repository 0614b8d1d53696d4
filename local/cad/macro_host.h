// What the application's macros reach: its objects, declared functions of the system, files and messages.
#pragma once

#include "cad/objects.h"
#include "macro/macro.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tv::app {

class MacroHost : public macro::Host
{
  public:
    /// \param localTime gives the days since 30 December 1899
    /// \param showMessage shows a message box and returns the pressed button's number
    /// \param environment gives the "NAME=value" entries that Environ tells; without it there are none
    MacroHost(
        ObjectContext& context, macro::FileSystem& files, std::function<double()> localTime,
        std::function<int32_t(const std::u16string& prompt, int32_t buttons, const std::u16string& title)> showMessage,
        std::function<std::vector<std::u16string>()> environment = {});

    macro::Value Global(std::u16string_view foldedName) override;
    macro::Ref<macro::Object> CreateObject(std::u16string_view progId) override;
    const macro::ExternalFunction* FindFunction(std::u16string_view library, std::u16string_view entry) override;
    macro::FileSystem& Files() override { return files; }
    double Now() override { return now(); }
    int32_t MessageBox(const std::u16string& prompt, int32_t buttons, const std::u16string& title) override;
    void DebugPrint(const std::u16string& line) override;
    std::vector<std::u16string> Environment() override;

  private:
    ObjectContext& context;
    macro::FileSystem& files;
    std::function<double()> now;
    std::function<int32_t(const std::u16string&, int32_t, const std::u16string&)> messageBox;
    std::function<std::vector<std::u16string>()> entries;
    std::map<std::u16string, macro::ExternalFunction> functions;
};

} // namespace tv::app
