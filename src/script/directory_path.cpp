#include "script/directory_path.h"

namespace tv {

namespace {

constexpr size_t kLongestPath = 260;

bool EndsFolder(std::u16string_view path, size_t position)
{
    const bool separator = path[position] == u'\\' || path[position] == u'/';
    return separator && position > 0 && path[position - 1] != u':';
}

} // namespace

bool MakeDirectoryPath(FileService& files, std::u16string_view path)
{
    if (path.size() > kLongestPath) {
        return false;
    }
    for (size_t i = 0; i < path.size(); ++i) {
        if (EndsFolder(path, i)) {
            files.CreateDirectory(path.substr(0, i));
        }
    }
    return files.CreateDirectory(path) == 0;
}

} // namespace tv
