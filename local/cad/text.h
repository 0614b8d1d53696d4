// Texts of the application: paths are UTF-16 Windows paths, documents and the kernel speak UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace tv::app {

/// What isn't valid becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string ToUtf16(std::string_view text);

/// Text of a macro file: code page 1252. The five bytes that it leaves open stay as they are.
std::u16string FromCodePage1252(std::string_view bytes);

/// Whether two names or paths are the same to the file system.
bool SameIgnoringCase(std::u16string_view left, std::u16string_view right);

/// Last component of a path.
std::u16string FileNameOf(std::u16string_view path);

/// The path up to and without its last backslash; empty when it has none.
std::u16string FolderOf(std::u16string_view path);

/// Extension of the last component with its dot, in small letters; empty when it has none.
std::u16string ExtensionOf(std::u16string_view path);

/// Last component without its extension.
std::u16string StemOf(std::u16string_view path);

/// Joins a folder and a relative path whose names are parted by "/" or "\"; ".." and "." are resolved. An absolute path
/// stays as it is.
std::u16string JoinPath(std::u16string_view folder, std::u16string_view relative);

/// The path of `target` as seen from `folder`, with "/" between names. Empty when they don't share a root.
std::u16string RelativePath(std::u16string_view target, std::u16string_view folder);

bool IsAbsolutePath(std::u16string_view path);

} // namespace tv::app
