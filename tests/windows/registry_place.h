// RegistryPlace: a key of the machine's registry with all that stands below it, to look at and to put back.
#pragma once

#include "com/base.h"

#include <optional>
#include <string>
#include <vector>

namespace tv {

/// A value as it is stored.
struct StoredValue
{
    std::wstring name; ///< empty for the default value
    DWORD type;
    std::vector<BYTE> bytes;
    friend bool operator==(const StoredValue&, const StoredValue&) = default;
};

/// A key with its values and the keys below it, in the order in which the system lists them.
struct StoredKey
{
    std::wstring name;
    std::vector<StoredValue> values;
    std::vector<StoredKey> subkeys;
    friend bool operator==(const StoredKey&, const StoredKey&) = default;
};

class RegistryPlace
{
  public:
    /// `view` is 0, KEY_WOW64_32KEY or KEY_WOW64_64KEY.
    RegistryPlace(HKEY registryRoot, std::wstring keyPath, REGSAM keyView = 0)
        : root(registryRoot), path(std::move(keyPath)), view(keyView)
    {}

    /// The key as it stands; none when it is missing.
    std::optional<StoredKey> Read() const;
    /// One line for each key and each value below, with type and bytes; nothing when the key is missing.
    std::vector<std::string> Lines() const;

    /// Stores a value in the key or in one below it, which is made when it is missing. Every byte is stored as given.
    /// Returns the system's error, 0 for none.
    LSTATUS Put(const std::wstring& subkey, const StoredValue& value) const;
    /// Makes a key without values.
    LSTATUS Make(const std::wstring& subkey) const;
    /// Replaces all that stands here.
    void Write(const StoredKey& key) const;
    /// Deletes the key, or one below it; a missing key is none the worse for it.
    void Delete(const std::wstring& subkey = {}) const;

    /// The topmost key on the way here that is missing, or this place when none is.
    RegistryPlace TopmostMissing() const;

    /// Lets nobody use these rights on the key or on one below it, or lets everybody have all of them again with 0.
    void Deny(const std::wstring& subkey, REGSAM rights) const;

  private:
    std::wstring Below(const std::wstring& subkey) const { return subkey.empty() ? path : path + L"\\" + subkey; }

    HKEY root;
    std::wstring path;
    REGSAM view;
};

/// Empties places of the registry for the length of a test and leaves them as they were before.
class BorrowedPlaces
{
  public:
    explicit BorrowedPlaces(const std::vector<RegistryPlace>& borrowed);
    BorrowedPlaces(const BorrowedPlaces&) = delete;
    BorrowedPlaces& operator=(const BorrowedPlaces&) = delete;
    /// Puts everything back, and fails the test when that didn't succeed.
    ~BorrowedPlaces();

  private:
    struct Borrowed
    {
        RegistryPlace place;
        std::optional<StoredKey> before;
        RegistryPlace made; ///< what to delete in the end when nothing stood here before
    };

    std::vector<Borrowed> places;
};

} // namespace tv
