#include "support/registry.h"

#include <bit>
#include <cstring>
#include <vector>

namespace tv {

namespace {

bool IsTextType(uint32_t type)
{
    return type == kRegString || type == kRegExpandString;
}

std::span<const uint8_t> BytesOf(const void* data, size_t size)
{
    return {static_cast<const uint8_t*>(data), size};
}

} // namespace

Registry::~Registry()
{
    if (IsOpen()) {
        service.CloseKey(key);
    }
}

uint32_t Registry::Open(KeyHandle parent, std::u16string_view subkey, uint32_t access)
{
    Close();
    return Store(service.OpenKey(parent, subkey, access, key));
}

uint32_t Registry::Open(KeyHandle parent, std::u16string_view subkey, uint32_t access, TransactionHandle transaction)
{
    if (transaction == kNoTransaction) {
        return Open(parent, subkey, access);
    }
    Close();
    return Store(service.OpenKeyTransacted(parent, subkey, access, transaction, key));
}

uint32_t Registry::Create(KeyHandle parent, std::u16string_view subkey, uint32_t access)
{
    Close();
    return Store(service.CreateKey(parent, subkey, access, key));
}

uint32_t Registry::Close()
{
    if (!IsOpen()) {
        return Store(kErrorSuccess);
    }
    const KeyHandle old = key;
    key = kNoKey;
    return Store(service.CloseKey(old));
}

uint32_t Registry::ReadNumber(std::u16string_view name, uint32_t& number)
{
    uint32_t type = 0;
    uint32_t stored = 0;
    uint32_t size = sizeof stored;
    uint8_t bytes[sizeof stored] = {};
    const uint32_t result = service.QueryValue(key, name, type, bytes, size);
    if (result != kErrorSuccess && result != kErrorMoreData) {
        return Store(result);
    }
    if (result == kErrorMoreData || type != kRegNumber || size != sizeof stored) {
        return Store(kErrorInvalidData);
    }
    std::memcpy(&stored, bytes, sizeof stored);
    number = stored;
    return Store(kErrorSuccess);
}

uint32_t Registry::ReadNumberOfEitherOrder(std::u16string_view name, uint32_t& number)
{
    uint32_t type = 0;
    uint32_t stored = 0;
    uint32_t size = sizeof stored;
    uint8_t bytes[sizeof stored] = {};
    const uint32_t result = service.QueryValue(key, name, type, bytes, size);
    if (result != kErrorSuccess && result != kErrorMoreData) {
        return Store(result);
    }
    const bool isNumber = type == kRegNumber || type == kRegNumberBigEndian;
    if (result == kErrorMoreData || !isNumber || size != sizeof stored) {
        return Store(kErrorInvalidData);
    }
    std::memcpy(&stored, bytes, sizeof stored);
    number = type == kRegNumberBigEndian ? std::rotl(stored, 16) : stored;
    return Store(kErrorSuccess);
}

bool Registry::ReadString(std::u16string_view name, std::u16string& text)
{
    uint32_t type = 0;
    uint32_t size = 0;
    if (Store(service.QueryValue(key, name, type, nullptr, size)) != kErrorSuccess) {
        return false;
    }
    if (!IsTextType(type)) {
        Store(kErrorInvalidData);
        return false;
    }
    // A stored text needn't be terminated, and its size needn't be even: zeros behind it make it both.
    std::vector<uint8_t> bytes(size + 2 + size % 2, uint8_t{0});
    if (Store(service.QueryValue(key, name, type, bytes.data(), size)) != kErrorSuccess) {
        return false;
    }
    std::u16string stored(bytes.size() / 2, u'\0');
    std::memcpy(stored.data(), bytes.data(), bytes.size());
    stored.resize(stored.find(u'\0'));
    if (type == kRegExpandString) {
        std::u16string expanded;
        if (!service.ExpandEnvironment(stored, expanded)) {
            return false;
        }
        stored = std::move(expanded);
    }
    text = std::move(stored);
    return true;
}

uint32_t Registry::ReadStringInto(std::u16string_view name, char16_t* buffer, uint32_t& size)
{
    const uint32_t capacity = size;
    uint32_t bytes = capacity * 2;
    uint32_t type = 0;
    size = 0;
    if (Store(service.QueryValue(key, name, type, reinterpret_cast<uint8_t*>(buffer), bytes)) != kErrorSuccess) {
        return lastResult;
    }
    if (!IsTextType(type)) {
        return Store(kErrorInvalidData);
    }
    if (bytes == 0) {
        if (capacity > 0) {
            buffer[0] = u'\0';
        }
        return lastResult;
    }
    if (bytes % 2 != 0 || buffer[bytes / 2 - 1] != u'\0') {
        return Store(kErrorInvalidData);
    }
    size = bytes / 2;
    return lastResult;
}

uint32_t Registry::WriteNumber(std::u16string_view name, uint32_t number)
{
    return Store(service.SetValue(key, name, kRegNumber, BytesOf(&number, sizeof number)));
}

bool Registry::WriteString(std::u16string_view name, std::u16string_view text)
{
    const std::u16string terminated(text);
    return Store(service.SetValue(key, name, kRegString, BytesOf(terminated.c_str(), (terminated.size() + 1) * 2))) ==
           kErrorSuccess;
}

bool Registry::HasValue(std::u16string_view name)
{
    uint32_t type = 0;
    uint32_t size = 0;
    return Store(service.QueryValue(key, name, type, nullptr, size)) == kErrorSuccess;
}

} // namespace tv
