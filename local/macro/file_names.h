#pragma once

#include "macro/file_system.h"

namespace tv::macro {

bool HasWildcards(std::u16string_view text);

/// Wildcards of file names: "*.*" is every name, and brackets mean themselves.
bool FileNameMatches(std::u16string_view name, std::u16string_view pattern);

/// What stands in front of the last part of a path, with its separator; empty when there is nothing.
std::u16string FolderOf(const std::u16string& path);
std::u16string NameOf(const std::u16string& path);

/// The files and folders that a path with wildcards in its last part means. Error 76 when the folder isn't there.
std::vector<FileEntry> ListMatching(FileSystem& files, const std::u16string& path);

} // namespace tv::macro
