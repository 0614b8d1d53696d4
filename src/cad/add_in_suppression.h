// AddInSuppression: switches off the add-ins that the current user has set to load with the CAD application, for the
// length of a run, and puts back what it found.
#pragma once

#include "platform/platform.h"

#include <map>
#include <string>
#include <string_view>

namespace tv {

class Registry;

enum class StartupAddIns
{
    Suppress,
    Restore
};

/// Holds what was changed between the two calls. A process that dies in between leaves the add-ins switched off.
class AddInSuppression
{
  public:
    explicit AddInSuppression(RegistryService& service) : registry(service) {}

    void Suppress();
    void Restore();

    /// Full key path to the saved value; "1" stands for the number 1.
    const std::map<std::u16string, std::u16string>& Saved() const { return saved; }

  private:
    void SuppressBelow(std::u16string_view parentPath);
    void SuppressNumber(Registry& addIn, const std::u16string& path, uint32_t number);
    void SuppressText(Registry& addIn, const std::u16string& path, const std::u16string& text);

    RegistryService& registry;
    std::map<std::u16string, std::u16string> saved;
};

} // namespace tv
