// The add-in as this machine has it registered. The host knows it by its class id alone, as a vault client does.
#pragma once

#include "interfaces/addin.h"

#include <cstdint>
#include <memory>
#include <string>

namespace tv::local {

/// The macro templates that the add-in carries.
inline constexpr int32_t kConvertTemplate = 209;
inline constexpr int32_t kPrintTemplate = 210;
inline constexpr int32_t kExecuteTemplate = 211;

class Component
{
  public:
    virtual ~Component() = default;

    /// Makes an add-in object. Raises a ResultError whose line says what to do when the add-in isn't registered.
    virtual ComPtr<IVyxAddIn5> Create() = 0;

    /// Reads a macro template out of the registered add-in: its text with one line feed behind it, in which form the
    /// add-in compares a task's script with it.
    virtual std::string Template(int32_t resource) = 0;
};

/// The registered add-in; on a system without component services each operation raises.
std::unique_ptr<Component> MakeRegisteredComponent();

} // namespace tv::local
