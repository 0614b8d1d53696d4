#include "cad/text.h"

#include "macro/object.h"

#include <cstdint>
#include <vector>

namespace tv::app {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t point)
{
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0 | (point >> 6));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        out += static_cast<char>(0xE0 | (point >> 12));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (point >> 18));
        out += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (point & 0x3F));
    }
}

void AppendUtf16(std::u16string& out, char32_t point)
{
    if (point < 0x10000) {
        out += static_cast<char16_t>(point);
    } else {
        out += static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10));
        out += static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF));
    }
}

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

/// Reads one code point and moves the index behind it; a byte that starts none is passed over.
char32_t NextPoint(std::string_view text, size_t& index)
{
    const auto byte = static_cast<uint8_t>(text[index++]);
    if (byte < 0x80) {
        return byte;
    }
    const int following = byte >= 0xF0 && byte < 0xF5   ? 3
                          : byte >= 0xE0 && byte < 0xF0 ? 2
                          : byte >= 0xC2 && byte < 0xE0 ? 1
                                                        : 0;
    if (following == 0) {
        return kReplacement;
    }
    char32_t point = byte & (0x3Fu >> following);
    const size_t start = index;
    for (int i = 0; i < following; ++i) {
        if (index >= text.size() || (static_cast<uint8_t>(text[index]) & 0xC0) != 0x80) {
            index = start;
            return kReplacement;
        }
        point = (point << 6) | (static_cast<uint8_t>(text[index++]) & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (point < smallest[following] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) {
        return kReplacement;
    }
    return point;
}

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
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        } else if (point >= 0xD800 && point < 0xE000) {
            point = kReplacement;
        }
        AppendUtf8(out, point);
    }
    return out;
}

std::u16string ToUtf16(std::string_view text)
{
    std::u16string out;
    out.reserve(text.size());
    for (size_t index = 0; index < text.size();) {
        AppendUtf16(out, NextPoint(text, index));
    }
    return out;
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
