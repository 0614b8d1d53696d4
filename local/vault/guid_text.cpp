#include "vault/guid_text.h"

#include "com/guid.h"
#include "vault/text.h"

#include <cstring>
#include <random>

namespace tv::local {

std::string NewGuidText()
{
    std::random_device random;
    uint32_t words[4];
    for (uint32_t& word : words) {
        word = random();
    }
    GUID id;
    static_assert(sizeof id == sizeof words);
    std::memcpy(&id, words, sizeof id);
    // Marks it as a random id, version 4.
    id.Data3 = static_cast<uint16_t>((id.Data3 & 0x0FFF) | 0x4000);
    id.Data4[0] = static_cast<uint8_t>((id.Data4[0] & 0x3F) | 0x80);
    return Utf8(GuidText(id));
}

} // namespace tv::local
