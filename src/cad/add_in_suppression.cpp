#include "cad/add_in_suppression.h"

#include "support/registry.h"
#include "support/text_compare.h"

namespace tv {

namespace {

constexpr std::u16string_view kParentKeys[] = {
    u"Software\\Torvane\\AddInsStartup",
    u"Software\\Torvane\\Startup\\Applications",
};

constexpr uint32_t kFirstCapacity = 260;
constexpr std::u16string_view kDefaultValue = u"";
constexpr std::u16string_view kSavedNumber = u"1";

std::u16string ReadText(Registry& key, uint32_t& capacity)
{
    std::u16string text(capacity + 1, u'\0');
    if (key.ReadStringInto(kDefaultValue, text.data(), capacity) != kErrorSuccess) {
        return {};
    }
    text.resize(capacity == 0 ? 0 : capacity - 1);
    return text;
}

} // namespace

void AddInSuppression::Suppress()
{
    saved.clear();
    for (std::u16string_view parent : kParentKeys) {
        SuppressBelow(parent);
    }
}

void AddInSuppression::SuppressBelow(std::u16string_view parentPath)
{
    Registry parent(registry);
    if (parent.Open(kCurrentUserRoot, parentPath, kKeyRead) != kErrorSuccess) {
        return;
    }
    // What a read leaves as its size is the capacity of the next one: a text that is longer than the one before it stays
    // in force, and so does every text behind a failed read. Users have add-ins that are kept alive by this.
    uint32_t capacity = kFirstCapacity;
    std::u16string name;
    for (uint32_t index = 0;; ++index) {
        const uint32_t found = registry.EnumKey(parent.Key(), index, name);
        if (found != kErrorSuccess && found != kErrorMoreData) {
            return;
        }
        Registry addIn(registry);
        if (found == kErrorMoreData || addIn.Open(parent.Key(), name, kKeyReadWrite) != kErrorSuccess) {
            continue;
        }
        const std::u16string path = std::u16string(parentPath) + u"\\" + name;
        uint32_t number = 0;
        if (addIn.ReadNumber(kDefaultValue, number) == kErrorSuccess) {
            SuppressNumber(addIn, path, number);
        } else {
            SuppressText(addIn, path, ReadText(addIn, capacity));
        }
    }
}

void AddInSuppression::SuppressNumber(Registry& addIn, const std::u16string& path, uint32_t number)
{
    if (number == 1 && addIn.WriteNumber(kDefaultValue, 0) == kErrorSuccess) {
        saved[path] = kSavedNumber;
    }
}

void AddInSuppression::SuppressText(Registry& addIn, const std::u16string& path, const std::u16string& text)
{
    if (!text.empty() && addIn.WriteString(kDefaultValue, u"")) {
        saved[path] = text;
    }
}

void AddInSuppression::Restore()
{
    for (const auto& [path, value] : saved) {
        Registry addIn(registry);
        if (addIn.Open(kCurrentUserRoot, path, kKeyReadWrite) != kErrorSuccess) {
            continue;
        }
        if (EqualIgnoringCase(value, kSavedNumber)) {
            addIn.WriteNumber(kDefaultValue, 1);
        } else {
            addIn.WriteString(kDefaultValue, value);
        }
    }
}

} // namespace tv
