// The application's type library as macros name it. Whoever compiles a macro for the application gives it to the
// compiler.
#pragma once

#include "macro/macro.h"

namespace tv::app {

class MacroLibrary : public macro::Library
{
  public:
    std::optional<macro::Value> Constant(std::u16string_view name) const override;
    bool HasGlobal(std::u16string_view name) const override;
    bool HasLibrary(std::u16string_view name) const override;
    bool HasType(std::u16string_view name) const override;
    bool HasEnumeration(std::u16string_view name) const override;
};

} // namespace tv::app
