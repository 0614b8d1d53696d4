// What both systems ask of folders in the same way.
#pragma once

#include "host/health_machine.h"

namespace tv::local {

/// Writes a file into the folder and takes it away again.
FolderState TryFolderByFile(const std::string& path);

/// Room on the folder's disk for this user.
std::optional<uint64_t> FreeBytesOf(const std::string& path);

/// Files right in a folder whose names begin and end so, by name; none when the folder can't be read.
std::vector<FoundFile> FilesBetween(const std::string& folder, std::string_view begin, std::string_view end);

} // namespace tv::local
