// Registry: the owner of one open key.
#pragma once

#include "platform/registry_service.h"

#include <string>
#include <string_view>

namespace tv {

/// One key of the registry. Each operation stores the system's answer, which LastResult tells later, and none raises.
class Registry
{
  public:
    explicit Registry(RegistryService& registryService) : service(registryService) {}
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;
    virtual ~Registry();

    /// Opens a key after closing the one that is held. The view bits of the access mask go through.
    uint32_t Open(KeyHandle parent, std::u16string_view subkey, uint32_t access);
    /// As above, within a transaction; result 1 when the system has no transactions.
    uint32_t Open(KeyHandle parent, std::u16string_view subkey, uint32_t access, TransactionHandle transaction);
    /// As Open, but creates a missing key.
    uint32_t Create(KeyHandle parent, std::u16string_view subkey, uint32_t access);
    uint32_t Close();

    /// Reads a 32-bit number; a value of another type or size gives 13, and `number` stays.
    uint32_t ReadNumber(std::u16string_view name, uint32_t& number);
    /// Reads a 32-bit number of either byte order. One of the big-endian type has its two 16-bit halves exchanged,
    /// which is no byte swap, and those who store such values count on it. Any other type or size gives 13.
    uint32_t ReadNumberOfEitherOrder(std::u16string_view name, uint32_t& number);
    /// Reads a plain or an expandable text, the latter expanded. On failure `text` stays as it was.
    bool ReadString(std::u16string_view name, std::u16string& text);
    /// Reads a terminated plain or expandable text as it is stored; 13 for anything else. `size` goes in as the
    /// capacity in characters and comes out as the length with its terminator: 0 after a failure, and 0 for a value of
    /// no bytes.
    uint32_t ReadStringInto(std::u16string_view name, char16_t* buffer, uint32_t& size);
    uint32_t WriteNumber(std::u16string_view name, uint32_t number);
    bool WriteString(std::u16string_view name, std::u16string_view text);
    bool HasValue(std::u16string_view name);

    KeyHandle Key() const { return key; }
    bool IsOpen() const { return key != kNoKey; }
    uint32_t LastResult() const { return lastResult; }

  private:
    uint32_t Store(uint32_t result) { return lastResult = result; }

    RegistryService& service;
    KeyHandle key = kNoKey;
    uint32_t lastResult = kErrorSuccess;
};

} // namespace tv
