// The registry as the add-in sees it: open keys, raw values, sub-key names. Error numbers are the system's.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tv {

/// An open key; 0 for none. The two roots are always open.
using KeyHandle = uint64_t;
inline constexpr KeyHandle kNoKey = 0;
/// A transaction of the system; 0 for none.
using TransactionHandle = uint64_t;
inline constexpr TransactionHandle kNoTransaction = 0;
inline constexpr KeyHandle kCurrentUserRoot = 0x80000001;
inline constexpr KeyHandle kLocalMachineRoot = 0x80000002;

/// Access masks.
inline constexpr uint32_t kKeyRead = 0x20019;
inline constexpr uint32_t kKeyWrite = 0x20006;
inline constexpr uint32_t kKeyReadWrite = kKeyRead | kKeyWrite;
inline constexpr uint32_t kKeyView64 = 0x100;
inline constexpr uint32_t kKeyView32 = 0x200;

/// Value types.
inline constexpr uint32_t kRegString = 1;
inline constexpr uint32_t kRegExpandString = 2;
inline constexpr uint32_t kRegBinary = 3;
inline constexpr uint32_t kRegNumber = 4;
inline constexpr uint32_t kRegNumberBigEndian = 5;

/// System error numbers that registry operations give.
inline constexpr uint32_t kErrorSuccess = 0;
inline constexpr uint32_t kErrorFileNotFound = 2;
inline constexpr uint32_t kErrorAccessDenied = 5;
inline constexpr uint32_t kErrorInvalidHandle = 6;
inline constexpr uint32_t kErrorInvalidData = 13;
inline constexpr uint32_t kErrorMoreData = 234;
inline constexpr uint32_t kErrorNoMoreItems = 259;

class RegistryService
{
  public:
    virtual ~RegistryService() = default;

    virtual uint32_t OpenKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key) = 0;
    /// Opens a key, creating it as non-volatile with an empty class when it is missing.
    virtual uint32_t CreateKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key) = 0;
    /// Opens a key within a transaction; 1 when the system has no transactions.
    virtual uint32_t OpenKeyTransacted(KeyHandle parent, std::u16string_view subkey, uint32_t access,
                                       TransactionHandle transaction, KeyHandle& key) = 0;
    virtual uint32_t CloseKey(KeyHandle key) = 0;
    /// Reads a value as RegQueryValueExW does. An empty name is the default value. `size` goes in as the capacity in
    /// bytes and comes out as the size of the value; a buffer without memory asks for type and size only.
    virtual uint32_t QueryValue(KeyHandle key, std::u16string_view name, uint32_t& type, uint8_t* buffer,
                                uint32_t& size) = 0;
    virtual uint32_t SetValue(KeyHandle key, std::u16string_view name, uint32_t type,
                              std::span<const uint8_t> data) = 0;
    /// Name of the sub-key at an index; kErrorNoMoreItems behind the last, kErrorMoreData for one of over 260 characters.
    virtual uint32_t EnumKey(KeyHandle key, uint32_t index, std::u16string& name) = 0;
    /// Replaces %NAME% references; false on failure.
    virtual bool ExpandEnvironment(std::u16string_view text, std::u16string& expanded) = 0;
};

} // namespace tv
