// Which side of a vault's settings counts, by mode and by what stands on either side: written by hand, for the
// simulated registry and for the machine's own.
#pragma once

#include <cstdint>
#include <string>

namespace tv {

enum class VaultKeySide
{
    Missing,
    WithoutValue,
    WithValue
};

struct VaultKeyRow
{
    uint32_t mode;
    VaultKeySide machineSide;
    VaultKeySide userSide;
    uint32_t found; ///< 1 the machine's value, 2 the user's, 0 none
};

// clang-format off
inline constexpr VaultKeyRow kVaultKeyRows[] = {
    {1, VaultKeySide::Missing, VaultKeySide::Missing, 0},
    {1, VaultKeySide::Missing, VaultKeySide::WithoutValue, 0},
    {1, VaultKeySide::Missing, VaultKeySide::WithValue, 0},
    {1, VaultKeySide::WithoutValue, VaultKeySide::Missing, 0},
    {1, VaultKeySide::WithoutValue, VaultKeySide::WithoutValue, 0},
    {1, VaultKeySide::WithoutValue, VaultKeySide::WithValue, 0},
    {1, VaultKeySide::WithValue, VaultKeySide::Missing, 1},
    {1, VaultKeySide::WithValue, VaultKeySide::WithoutValue, 1},
    {1, VaultKeySide::WithValue, VaultKeySide::WithValue, 1},
    {2, VaultKeySide::Missing, VaultKeySide::Missing, 0},
    {2, VaultKeySide::Missing, VaultKeySide::WithoutValue, 0},
    {2, VaultKeySide::Missing, VaultKeySide::WithValue, 2},
    {2, VaultKeySide::WithoutValue, VaultKeySide::Missing, 0},
    {2, VaultKeySide::WithoutValue, VaultKeySide::WithoutValue, 0},
    {2, VaultKeySide::WithoutValue, VaultKeySide::WithValue, 2},
    {2, VaultKeySide::WithValue, VaultKeySide::Missing, 0},
    {2, VaultKeySide::WithValue, VaultKeySide::WithoutValue, 0},
    {2, VaultKeySide::WithValue, VaultKeySide::WithValue, 2},
    {4, VaultKeySide::Missing, VaultKeySide::Missing, 0},
    {4, VaultKeySide::Missing, VaultKeySide::WithoutValue, 0},
    {4, VaultKeySide::Missing, VaultKeySide::WithValue, 2},
    {4, VaultKeySide::WithoutValue, VaultKeySide::Missing, 0},
    {4, VaultKeySide::WithoutValue, VaultKeySide::WithoutValue, 0},
    {4, VaultKeySide::WithoutValue, VaultKeySide::WithValue, 2},
    {4, VaultKeySide::WithValue, VaultKeySide::Missing, 1},
    {4, VaultKeySide::WithValue, VaultKeySide::WithoutValue, 1},
    {4, VaultKeySide::WithValue, VaultKeySide::WithValue, 1},
    {8, VaultKeySide::Missing, VaultKeySide::Missing, 0},
    {8, VaultKeySide::Missing, VaultKeySide::WithoutValue, 0},
    {8, VaultKeySide::Missing, VaultKeySide::WithValue, 2},
    {8, VaultKeySide::WithoutValue, VaultKeySide::Missing, 0},
    {8, VaultKeySide::WithoutValue, VaultKeySide::WithoutValue, 0},
    {8, VaultKeySide::WithoutValue, VaultKeySide::WithValue, 2},
    {8, VaultKeySide::WithValue, VaultKeySide::Missing, 1},
    {8, VaultKeySide::WithValue, VaultKeySide::WithoutValue, 1},
    {8, VaultKeySide::WithValue, VaultKeySide::WithValue, 2},
    {0, VaultKeySide::WithValue, VaultKeySide::WithValue, 0},
    {3, VaultKeySide::WithValue, VaultKeySide::WithValue, 0},
    {16, VaultKeySide::WithValue, VaultKeySide::WithValue, 0},
};
// clang-format on

/// For a test's trace: mode and sides by number.
inline std::string TextOf(const VaultKeyRow& row)
{
    return std::to_string(row.mode) + " " + std::to_string(static_cast<int>(row.machineSide)) + " " +
           std::to_string(static_cast<int>(row.userSide));
}

} // namespace tv
