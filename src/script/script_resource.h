// The macro templates that the module carries.
#pragma once

#include "platform/module_service.h"

#include <cstdint>
#include <string>

namespace tv {

inline constexpr int32_t kConvertTemplate = 209;
inline constexpr int32_t kPrintTemplate = 210;
inline constexpr int32_t kExecuteTemplate = 211;

/// The template of a task kind: 1 convert, 2 print, everything else execute.
constexpr int32_t TemplateForType(int32_t type)
{
    return type == 1 ? kConvertTemplate : type == 2 ? kPrintTemplate : kExecuteTemplate;
}

/// The text of a template with one LF behind it. When it can't be read, a message box says so and the text is empty.
std::u16string ReadScriptResource(ModuleService& module, int32_t id);

} // namespace tv
