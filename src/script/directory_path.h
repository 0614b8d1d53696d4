// Creation of a folder with all the folders above it.
#pragma once

#include "platform/file_service.h"

#include <string_view>

namespace tv {

/// Creates every folder along the path and tells whether the creation of the last one succeeded: false, therefore, when
/// the whole path exists already. Paths of over 260 characters are refused.
bool MakeDirectoryPath(FileService& files, std::u16string_view path);

} // namespace tv
