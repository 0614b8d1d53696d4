#include "cad/text.h"

#include "com/utf8.h"
#include "macro/object.h"

#include <cstdint>
#include <vector>

namespace tv::app {

namespace {

/// Code page 1252 from 0x80 to 0x9F; the rest of the page is Latin-1.
constexpr char16_t kPage1252[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                    0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

size_t RootLength(std::u16string_view path)
{
    if (path.size() >= 2 && path[1] == u':') {
        return path.size() >= 3 && IsSeparator(path[2]) ? 3 : 2;
    }
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) {
        return 2;
    }
    return !path.empty() && IsSeparator(path[0]) ? 1 : 0;
}

std::vector<std::u16string_view> Components(std::u16string_view path)
{
    std::vector<std::u16string_view> names;
    while (!path.empty()) {
        const size_t end = path.find_first_of(u"\\/");
        const std::u16string_view name = path.substr(0, end);
        if (name == u"..") {
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (!name.empty() && name != u".") {
            names.push_back(name);
        }
        if (end == std::u16string_view::npos) {
            break;
        }
        path.remove_prefix(end + 1);
    }
    return names;
}

} // namespace

std::string ToUtf8(std::u16string_view text)
{
    return tv::ToUtf8(text, LoneSurrogate::Replace);
}

std::u16string ToUtf16(std::string_view text)
{
    return FromUtf8(text, LoneSurrogate::Replace);
}

std::u16string FromCodePage1252(std::string_view bytes)
{
    std::u16string out;
    out.reserve(bytes.size());
    for (char byte : bytes) {
        const auto code = static_cast<uint8_t>(byte);
        out += code >= 0x80 && code < 0xA0 ? kPage1252[code - 0x80] : static_cast<char16_t>(code);
    }
    return out;
}

bool SameIgnoringCase(std::u16string_view left, std::u16string_view right)
{
    return left.size() == right.size() && macro::FoldCase(left) == macro::FoldCase(right);
}

std::u16string FileNameOf(std::u16string_view path)
{
    const size_t slash = path.find_last_of(u"\\/");
    return std::u16string(slash == std::u16string_view::npos ? path : path.substr(slash + 1));
}

std::u16string FolderOf(std::u16string_view path)
{
    const size_t slash = path.find_last_of(u"\\/");
    return std::u16string(slash == std::u16string_view::npos ? std::u16string_view() : path.substr(0, slash));
}

std::u16string ExtensionOf(std::u16string_view path)
{
    const std::u16string name = FileNameOf(path);
    const size_t dot = name.find_last_of(u'.');
    return dot == std::u16string::npos ? std::u16string() : macro::FoldCase(name.substr(dot));
}

std::u16string StemOf(std::u16string_view path)
{
    const std::u16string name = FileNameOf(path);
    return name.substr(0, name.find_last_of(u'.'));
}

bool IsAbsolutePath(std::u16string_view path)
{
    return RootLength(path) > 0;
}

std::u16string JoinPath(std::u16string_view folder, std::u16string_view relative)
{
    if (IsAbsolutePath(relative)) {
        return std::u16string(relative);
    }
    const size_t root = RootLength(folder);
    const std::u16string joined = std::u16string(folder.substr(root)) + u"\\" + std::u16string(relative);
    std::u16string path(folder.substr(0, root));
    for (char16_t& unit : path) {
        if (unit == u'/') {
            unit = u'\\';
        }
    }
    bool first = true;
    for (std::u16string_view name : Components(joined)) {
        if (!first) {
            path += u'\\';
        }
        path += name;
        first = false;
    }
    return path;
}

std::u16string RelativePath(std::u16string_view target, std::u16string_view folder)
{
    const size_t root = RootLength(target);
    if (root != RootLength(folder) || !SameIgnoringCase(target.substr(0, root), folder.substr(0, root))) {
        return {};
    }
    const std::vector<std::u16string_view> to = Components(target.substr(root));
    const std::vector<std::u16string_view> from = Components(folder.substr(root));
    size_t shared = 0;
    while (shared < from.size() && shared + 1 < to.size() && SameIgnoringCase(from[shared], to[shared])) {
        ++shared;
    }
    std::u16string path;
    for (size_t i = shared; i < from.size(); ++i) {
        path += u"../";
    }
    for (size_t i = shared; i < to.size(); ++i) {
        path += to[i];
        if (i + 1 < to.size()) {
            path += u'/';
        }
    }
    return path;
}

} // namespace tv::app
