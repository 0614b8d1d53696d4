// The rows of the task variable FileCardData: which card variables of an output are written, and from what.
#pragma once

#include "interfaces/vault.h"

#include <string>
#include <string_view>
#include <vector>

namespace tv {

/// Where the value of a card variable comes from.
enum class CardSource : int32_t
{
    FileName = 1,
    FilePath = 2,
    Configuration = 3,
    Revision = 4,
    Version = 5,
    WorkflowState = 6,
    ConversionTime = 7,
    FreeText = 8,
    CardVariable = 100
};

struct FileCardRow
{
    int32_t destinationId = 0;
    int32_t sourceId = 0; ///< of a CardVariable
    CardSource source{};  ///< may hold a number that stands for nothing
    std::u16string text;  ///< of a FreeText
};

/// Reads the rows of a task: 0, or 1 when the variable is absent. The vault's card variables give the ids; a name that
/// the vault doesn't know has the id 0. A failure is raised.
Result ReadFileCardRows(IVyxTaskInstance* instance, IVyxVault* vault, std::vector<FileCardRow>& rows);

} // namespace tv
