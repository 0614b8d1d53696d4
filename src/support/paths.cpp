#include "support/paths.h"

#include <algorithm>
#include <vector>

namespace tv {

namespace {

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

/// Where the last component begins.
size_t NameStart(std::u16string_view path)
{
    const size_t last = path.find_last_of(u"\\/:");
    return last == std::u16string_view::npos ? 0 : last + 1;
}

/// Where the last component's extension begins, at its dot; the end of the path when there is none.
size_t ExtensionStart(std::u16string_view path)
{
    const size_t dot = path.rfind(u'.');
    return dot == std::u16string_view::npos || dot < NameStart(path) ? path.size() : dot;
}

/// Length of the part of a path that has no folder above it: "C:\", "\\server", "\" or nothing.
size_t RootLength(std::u16string_view path)
{
    if (IsUncPath(path)) {
        return std::min(path.find(u'\\', 2), path.size());
    }
    if (HasDriveLetter(path)) {
        return path.size() > 2 && IsSeparator(path[2]) ? 3 : 2;
    }
    return !path.empty() && IsSeparator(path[0]) ? 1 : 0;
}

/// A path cut at its backslashes, with "." and ".." resolved on the way.
class Components
{
  public:
    void Add(std::u16string_view name)
    {
        if (name == u".") {
            return;
        }
        if (name != u"..") {
            names.push_back(name);
        } else if (!names.empty() && names.back() != u"..") {
            names.pop_back();
            hasReachedTop = hasReachedTop || names.empty();
        } else if (keepsClimbing && !hasReachedTop) {
            names.push_back(name);
        }
    }

    std::vector<std::u16string_view> names;
    bool keepsClimbing = false; ///< a relative path may begin with ".."
    bool hasReachedTop = false; ///< a ".." has taken the first name off
};

std::u16string Join(const std::vector<std::u16string_view>& names)
{
    std::u16string joined;
    for (size_t i = 0; i < names.size(); ++i) {
        joined.append(i == 0 ? u"" : u"\\").append(names[i]);
    }
    return joined;
}

} // namespace

bool IsUncPath(std::u16string_view path)
{
    return path.starts_with(u"\\\\");
}

bool HasDriveLetter(std::u16string_view path)
{
    return path.size() >= 2 && path[1] == u':' &&
           ((path[0] >= u'A' && path[0] <= u'Z') || (path[0] >= u'a' && path[0] <= u'z'));
}

std::u16string FileNameOf(std::u16string_view path)
{
    return std::u16string(path.substr(NameStart(path)));
}

std::u16string FolderOf(std::u16string_view path)
{
    std::u16string_view folder = path.substr(0, NameStart(path));
    const size_t root = RootLength(path);
    while (folder.size() > root && IsSeparator(folder.back())) {
        folder.remove_suffix(1);
    }
    return std::u16string(folder);
}

std::u16string ExtensionOf(std::u16string_view path)
{
    const std::u16string_view extension = path.substr(ExtensionStart(path));
    return std::u16string(extension.empty() ? extension : extension.substr(1));
}

std::u16string WithoutExtension(std::u16string_view path)
{
    return std::u16string(path.substr(0, ExtensionStart(path)));
}

std::u16string FileStemOf(std::u16string_view path)
{
    return WithoutExtension(path.substr(NameStart(path)));
}

std::u16string WithExtension(std::u16string_view path, std::u16string_view extension)
{
    return WithoutExtension(path).append(extension);
}

std::u16string WithoutTrailingBackslashes(std::u16string_view path)
{
    const size_t last = path.find_last_not_of(u'\\');
    return std::u16string(path.substr(0, last == std::u16string_view::npos ? 0 : last + 1));
}

std::u16string AppendPath(std::u16string_view folder, std::u16string_view more)
{
    if (IsUncPath(more) || HasDriveLetter(more)) {
        return CanonicalPath(more);
    }
    more.remove_prefix(std::min(more.find_first_not_of(u'\\'), more.size()));
    std::u16string joined(folder);
    if (!more.empty()) {
        if (!joined.empty() && joined.back() != u'\\') {
            joined += u'\\';
        }
        joined += more;
    }
    return CanonicalPath(joined);
}

std::u16string CanonicalPath(std::u16string_view path)
{
    const size_t rootLength = RootLength(path);
    std::u16string root(path.substr(0, rootLength));
    Components components;
    components.keepsClimbing = rootLength == 0;
    size_t start = rootLength;
    if (IsUncPath(path) && start < path.size()) {
        root += u'\\';
        ++start;
    }
    while (start < path.size()) {
        const size_t end = std::min(path.find(u'\\', start), path.size());
        components.Add(path.substr(start, end - start));
        // A backslash at the very end stays, as the empty component behind it.
        if (end + 1 == path.size() && !components.names.empty()) {
            components.Add(u"");
        }
        start = end + 1;
    }
    // A relative path that climbs out of its first name leaves the backslash behind.
    if (rootLength == 0 && components.hasReachedTop &&
        (components.names.empty() || components.names.front() != u"..")) {
        root = u"\\";
    }
    std::u16string result = root + Join(components.names);
    if (HasDriveLetter(result) && result.size() == 2) {
        result += u'\\';
    }
    return result.empty() ? u"\\" : result;
}

} // namespace tv
