// Windows paths as text. Nothing here looks at a disk.
#pragma once

#include <string>
#include <string_view>

namespace tv {

/// Last component: what stands behind the last backslash, slash or drive colon. Empty for a path that ends in one.
std::u16string FileNameOf(std::u16string_view path);

/// The path without its last component and without a backslash at the end, save for a root: the folder of "C:\a" is
/// "C:\". Empty when the path has a single component.
std::u16string FolderOf(std::u16string_view path);

/// What stands behind the last dot of the last component, without the dot; empty when it has none.
std::u16string ExtensionOf(std::u16string_view path);

/// The path without the extension of its last component and without the dot before it.
std::u16string WithoutExtension(std::u16string_view path);

/// The last component without its extension.
std::u16string FileStemOf(std::u16string_view path);

/// The path with another extension, which is given with its dot.
std::u16string WithExtension(std::u16string_view path, std::u16string_view extension);

std::u16string WithoutTrailingBackslashes(std::u16string_view path);

/// Appends as the shell does: a relative path, with or without leading backslashes, goes below `folder`; one with a
/// drive letter or a UNC path replaces it. Dots in the result are resolved.
std::u16string AppendPath(std::u16string_view folder, std::u16string_view more);

/// Resolves "." and ".." as the shell does. ".." doesn't leave the root of a drive or share. An empty result becomes
/// "\", and a bare drive "C:" becomes "C:\".
std::u16string CanonicalPath(std::u16string_view path);

/// True for "\\server…".
bool IsUncPath(std::u16string_view path);
/// True for a path that begins with a letter and a colon.
bool HasDriveLetter(std::u16string_view path);

} // namespace tv
