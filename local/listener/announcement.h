// What the add-in tells a local listener of: a file that it is about to replace in the vault, or has for it.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tv::local {

/// The largest message that there is: the kind, and 260 characters of UTF-16 with a terminating zero.
inline constexpr size_t kLongestAnnouncement = 526;

struct Announcement
{
    uint32_t kind = 0;
    std::u16string path;
};

/// Reads one message; empty for bytes that are none: too few or too many, half a character, no terminating zero.
std::optional<Announcement> ReadAnnouncement(std::span<const uint8_t> message);

/// What the listener says about a message in one line of UTF-8, without its time.
std::string LineFor(std::span<const uint8_t> message);

} // namespace tv::local
