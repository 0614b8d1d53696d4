#include "listener/announcement.h"

#include "com/utf8.h"

#include <cstring>

namespace tv::local {

std::optional<Announcement> ReadAnnouncement(std::span<const uint8_t> message)
{
    constexpr size_t kUnit = sizeof(char16_t);
    Announcement announcement;
    if (message.size() < sizeof announcement.kind + kUnit || message.size() > kLongestAnnouncement ||
        message.size() % kUnit != 0) {
        return std::nullopt;
    }
    std::memcpy(&announcement.kind, message.data(), sizeof announcement.kind);
    const std::span<const uint8_t> text = message.subspan(sizeof announcement.kind);
    announcement.path.resize(text.size() / kUnit);
    std::memcpy(announcement.path.data(), text.data(), text.size());
    const size_t end = announcement.path.find(u'\0');
    if (end == std::u16string::npos) {
        return std::nullopt;
    }
    announcement.path.resize(end);
    return announcement;
}

std::string LineFor(std::span<const uint8_t> message)
{
    const auto announcement = ReadAnnouncement(message);
    if (!announcement) {
        return "a message of " + std::to_string(message.size()) + " bytes that is none of the add-in's";
    }
    std::string path = ToUtf8(announcement->path, LoneSurrogate::Replace);
    for (char& character : path) {
        character = static_cast<unsigned char>(character) < 0x20 ? '?' : character;
    }
    return "kind " + std::to_string(announcement->kind) + "  " + (path.empty() ? "(no path)" : path);
}

} // namespace tv::local
