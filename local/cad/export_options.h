// The application's preferences as options of the kernel's writers.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tv::app {

/// What a user or a macro has set, by the numbers of constants.h. A preference that nobody set has its default.
class Preferences
{
  public:
    Preferences();

    bool Toggle(int32_t number) const;
    void SetToggle(int32_t number, bool on) { toggles[number] = on; }
    int32_t Integer(int32_t number) const;
    void SetInteger(int32_t number, int32_t value) { integers[number] = value; }
    const std::u16string& StringList(int32_t number) const;
    void SetStringList(int32_t number, std::u16string text) { stringLists[number] = std::move(text); }

  private:
    std::map<int32_t, bool> toggles;
    std::map<int32_t, int32_t> integers;
    std::map<int32_t, std::u16string> stringLists;
};

/// The kernel's options for a target of that extension (small letters, with its dot).
std::map<std::string, std::string> ExportOptions(const Preferences& preferences, std::u16string_view extension);

} // namespace tv::app
