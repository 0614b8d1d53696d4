// Places in the vault: the names from the root down. Written "\Parts\screw.step"; the root is "\".
#pragma once

#include "vault/disk.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

using VaultPath = std::vector<std::string>;

/// The folder below the root that holds the vault's own things; no vault folder may be called so.
inline constexpr std::string_view kPrivateFolder = ".quellor";

/// Reads a path below the root, with either slash; "." and ".." are resolved. Raises E_VYX_INVALID_NAME with a line
/// that tells which name is wrong and why.
VaultPath ParseVaultPath(std::string_view text);

/// Raises E_VYX_INVALID_NAME for a name that Windows wouldn't take or that is the vault's own.
void CheckName(std::string_view name);

/// "\Parts\screw.step".
std::string VaultPathText(const VaultPath& path);

/// Reads a full path of the local view; empty for a path outside the root.
std::optional<VaultPath> BelowRoot(const std::filesystem::path& root, std::string_view fullPath);

/// The last name's part behind its last dot, in small letters; empty without a dot.
std::string ExtensionOf(std::string_view name);

} // namespace tv::local
