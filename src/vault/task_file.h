// TaskFile: one file that a task works on, or one that it left behind.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tv {

struct TaskFile
{
    std::u16string path;       ///< local path
    std::u16string revision;   ///< of a selected file, known once its card was read
    std::u16string state;      ///< workflow state of a selected file, known once its card was read
    std::u16string outputConf; ///< configuration or sheet that an output came from
    std::u16string extra;      ///< name of a print output, or the extra text of a stored list
    int32_t fileId = 0;
    int32_t folderId = 0;
    int32_t version = 0; ///< requested version, 0 for the latest; of an output, the version that it overwrites
    int32_t latestVersion = -1;
    std::u16string conf;  ///< configuration that the selection asks for
    bool inVault = false; ///< stands in the vault, so it must be checked in at the end
    bool isLog = false;
    bool isCadDocument = false;
    bool isPrinted = false; ///< a printed item, never added to the vault
    bool underVaultRoot = false;
    TaskFile* source = nullptr; ///< the selected file that an output came from; borrowed
};

/// The files of a selection, owned by the list. Outputs point at them, so they stay where they are.
using SelectedFiles = std::vector<std::unique_ptr<TaskFile>>;

} // namespace tv
