#include "macro/file_names.h"

#include "macro/text.h"

namespace tv::macro {

bool HasWildcards(std::u16string_view text)
{
    return text.find_first_of(u"*?") != std::u16string_view::npos;
}

bool FileNameMatches(std::u16string_view name, std::u16string_view pattern)
{
    if (pattern == u"*.*") {
        return true;
    }
    std::u16string like;
    for (char16_t unit : pattern) {
        if (unit == u'[' || unit == u'#') {
            like.append({u'[', unit, u']'});
        } else {
            like.push_back(unit);
        }
    }
    return MatchesPattern(name, like, true);
}

std::u16string FolderOf(const std::u16string& path)
{
    size_t end = path.find_last_of(u"\\/");
    return end == std::u16string::npos ? std::u16string() : path.substr(0, end + 1);
}

std::u16string NameOf(const std::u16string& path)
{
    size_t end = path.find_last_of(u"\\/");
    return end == std::u16string::npos ? path : path.substr(end + 1);
}

std::vector<FileEntry> ListMatching(FileSystem& files, const std::u16string& path)
{
    std::u16string folder = FolderOf(path);
    std::vector<FileEntry> matching;
    for (FileEntry& entry : files.List(folder.empty() ? files.CurrentFolder() : folder)) {
        if (FileNameMatches(entry.name, NameOf(path))) {
            matching.push_back(std::move(entry));
        }
    }
    return matching;
}

} // namespace tv::macro
