// What a user may do in a folder of the vault.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tv::local {

enum class Right : uint32_t
{
    Read = 1,
    Add = 2,
    CheckOut = 4, ///< and whatever else changes a file that is there
    Delete = 8,
    Permit = 16, ///< change the permissions themselves
};

/// A set of rights.
struct Rights
{
    uint32_t bits = 0;

    bool Has(Right right) const { return (bits & static_cast<uint32_t>(right)) != 0; }
    bool operator==(const Rights&) const = default;
};

inline constexpr Rights kNoRights{0};
inline constexpr Rights kAllRights{31};

/// Stands for every user who has no row of his own.
inline constexpr std::string_view kEveryUser = "*";

/// "read", "add", "checkout", "delete" or "permit".
std::string_view RightWord(Right right);

/// "read,add"; "all" and "none" for the whole set and the empty one.
std::string RightsText(Rights rights);

/// Reads words as RightsText writes them, parted by commas or blanks. Raises E_INVALIDARG, naming the words there are.
Rights ParseRights(std::string_view text);

} // namespace tv::local
