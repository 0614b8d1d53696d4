#include "vault/vault_path.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr size_t kLongestName = 255;

std::vector<std::string> SplitAtSlashes(std::string_view text)
{
    std::vector<std::string> parts;
    std::string part;
    const auto finish = [&] {
        if (part == "..") {
            if (!parts.empty()) {
                parts.pop_back();
            }
        } else if (!part.empty() && part != ".") {
            parts.push_back(part);
        }
        part.clear();
    };
    for (char character : text) {
        if (character == '\\' || character == '/') {
            finish();
        } else {
            part += character;
        }
    }
    finish();
    return parts;
}

bool IsAbsolute(std::string_view path)
{
    return !path.empty() && (path[0] == '/' || path[0] == '\\' || (path.size() > 1 && path[1] == ':'));
}

} // namespace

void CheckName(std::string_view name)
{
    const auto refuse = [&](std::string_view why) {
        Fail(kErrorInvalidName, "The name '" + std::string(name) + "' " + std::string(why));
    };
    if (name.empty() || name.size() > kLongestName) {
        refuse("must have 1 to 255 characters.");
    }
    const auto forbidden = [](char character) {
        return static_cast<unsigned char>(character) < 0x20 ||
               std::string_view("\\/:*?\"<>|").find(character) != std::string_view::npos;
    };
    if (std::any_of(name.begin(), name.end(), forbidden)) {
        refuse("holds a character that a file name can't have: \\ / : * ? \" < > |");
    }
    if (name.back() == '.' || name.back() == ' ') {
        refuse("can't end with a dot or a blank.");
    }
    if (SameName(name, kPrivateFolder)) {
        refuse("is the vault's own.");
    }
}

VaultPath ParseVaultPath(std::string_view text)
{
    VaultPath path = SplitAtSlashes(text);
    std::for_each(path.begin(), path.end(), CheckName);
    return path;
}

std::string VaultPathText(const VaultPath& path)
{
    std::string text;
    for (const std::string& name : path) {
        text += '\\' + name;
    }
    return text.empty() ? "\\" : text;
}

std::optional<VaultPath> BelowRoot(const std::filesystem::path& root, std::string_view fullPath)
{
    if (!IsAbsolute(fullPath)) {
        return std::nullopt;
    }
    const VaultPath rootParts = SplitAtSlashes(TextOf(root));
    VaultPath parts = SplitAtSlashes(fullPath);
    if (parts.size() < rootParts.size() || !std::equal(rootParts.begin(), rootParts.end(), parts.begin(), SameName)) {
        return std::nullopt;
    }
    parts.erase(parts.begin(), parts.begin() + static_cast<std::ptrdiff_t>(rootParts.size()));
    if (!parts.empty() && SameName(parts.front(), kPrivateFolder)) {
        return std::nullopt;
    }
    return parts;
}

std::string ExtensionOf(std::string_view name)
{
    const size_t dot = name.rfind('.');
    if (dot == std::string_view::npos) {
        return {};
    }
    std::string extension(name.substr(dot + 1));
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return extension;
}

} // namespace tv::local
