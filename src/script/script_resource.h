// The macro templates that the module carries.
#pragma once

#include "platform/module_service.h"

#include <cstdint>
#include <string>

namespace tv {

inline constexpr int32_t kConvertTemplate = 209;
inline constexpr int32_t kPrintTemplate = 210;
inline constexpr int32_t kExecuteTemplate = 211;

/// One kind of task, its template, and the label by which the list of the kinds offers it.
struct TaskTypeRow
{
    int32_t type;
    int32_t resource;
    const char16_t* label; ///< the English text
    uint32_t textNumber;
};

inline constexpr TaskTypeRow kTaskTypes[] = {
    {1, kConvertTemplate, u"File Conversion", 89},
    {2, kPrintTemplate, u"Printing", 90},
    {3, kExecuteTemplate, u"General", 91},
};

/// The template of a task kind; one that isn't in the table is executed.
constexpr int32_t TemplateForType(int32_t type)
{
    for (const TaskTypeRow& row : kTaskTypes) {
        if (row.type == type) {
            return row.resource;
        }
    }
    return kExecuteTemplate;
}

/// Label of a row in the user's language.
std::u16string TaskTypeLabel(const TaskTypeRow& row);

/// The text of a template with one LF behind it. When it can't be read, a message box says so and the text is empty.
std::u16string ReadScriptResource(ModuleService& module, int32_t id);

} // namespace tv
