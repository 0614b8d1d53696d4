// The stored form of a list of files: XML with the elements `sels` and `sel`.
#pragma once

#include "vault/task_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace tv {

/// The text of a list. Log files are left out; a record with a source is written with the source's ids and path, and
/// with what became of it. \param taskKind decides what an output's `extra` element holds
std::u16string FileListText(const std::vector<TaskFile>& files, int32_t taskKind);

/// Appends the records of a stored list. A text that isn't XML is raised as E_FAIL.
void ParseFileList(std::u16string_view text, std::vector<TaskFile>& files);

} // namespace tv
