#include "registry_place.h"

#include <gtest/gtest.h>

#include <sddl.h>

#include <cstdio>

namespace tv {

namespace {

constexpr DWORD kLongestName = 16384;

/// Owns an open key.
class OpenKey
{
  public:
    OpenKey() = default;
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    ~OpenKey()
    {
        if (key != nullptr) {
            RegCloseKey(key);
        }
    }
    HKEY* put() { return &key; }
    HKEY get() const { return key; }

  private:
    HKEY key = nullptr;
};

std::vector<StoredValue> ValuesOf(HKEY key)
{
    std::vector<StoredValue> values;
    DWORD longest = 0;
    RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &longest, nullptr,
                     nullptr);
    std::wstring name(kLongestName, L'\0');
    for (DWORD index = 0;; ++index) {
        std::vector<BYTE> bytes(longest + 1);
        DWORD length = kLongestName;
        DWORD size = static_cast<DWORD>(bytes.size());
        DWORD type = 0;
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS) {
            return values;
        }
        bytes.resize(size);
        values.push_back({name.substr(0, length), type, std::move(bytes)});
    }
}

StoredKey ReadKey(HKEY key, const std::wstring& name)
{
    StoredKey stored{name, ValuesOf(key), {}};
    std::wstring subkey(kLongestName, L'\0');
    for (DWORD index = 0;; ++index) {
        DWORD length = kLongestName;
        if (RegEnumKeyExW(key, index, subkey.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) {
            return stored;
        }
        OpenKey opened;
        const std::wstring found = subkey.substr(0, length);
        const LSTATUS result = RegOpenKeyExW(key, found.c_str(), 0, KEY_READ, opened.put());
        EXPECT_EQ(result, ERROR_SUCCESS) << "a key can't be read";
        if (result == ERROR_SUCCESS) {
            stored.subkeys.push_back(ReadKey(opened.get(), found));
        }
    }
}

LSTATUS PutValue(HKEY key, const StoredValue& value)
{
    // The system adds a terminator to a text that lacks one when a zero happens to stand behind it in memory.
    std::vector<BYTE> bytes = value.bytes;
    bytes.insert(bytes.end(), {0xFF, 0xFF, 0xFF, 0xFF});
    return RegSetValueExW(key, value.name.c_str(), 0, value.type, bytes.data(), static_cast<DWORD>(value.bytes.size()));
}

void WriteKey(HKEY parent, const std::wstring& path, REGSAM view, const StoredKey& stored)
{
    OpenKey key;
    EXPECT_EQ(
        RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE | view, nullptr, key.put(), nullptr),
        ERROR_SUCCESS);
    for (const StoredValue& value : stored.values) {
        EXPECT_EQ(PutValue(key.get(), value), ERROR_SUCCESS);
    }
    for (const StoredKey& subkey : stored.subkeys) {
        WriteKey(key.get(), subkey.name, 0, subkey);
    }
}

std::string Printable(const std::wstring& text)
{
    std::string printable;
    for (const wchar_t unit : text) {
        if (unit > L' ' && unit < L'\x7F') {
            printable += static_cast<char>(unit);
        } else {
            char code[8];
            std::snprintf(code, sizeof code, "#%04X", static_cast<unsigned>(unit));
            printable += code;
        }
    }
    return printable;
}

void AddLines(const StoredKey& key, const std::string& path, std::vector<std::string>& lines)
{
    lines.push_back(path);
    for (const StoredValue& value : key.values) {
        std::string line = path + " [" + Printable(value.name) + "] type " + std::to_string(value.type) + ":";
        for (const BYTE byte : value.bytes) {
            char text[4];
            std::snprintf(text, sizeof text, " %02x", static_cast<unsigned>(byte));
            line += text;
        }
        lines.push_back(std::move(line));
    }
    for (const StoredKey& subkey : key.subkeys) {
        AddLines(subkey, path + "\\" + Printable(subkey.name), lines);
    }
}

void SetAccess(HKEY root, const std::wstring& path, REGSAM view, const std::wstring& description)
{
    OpenKey key;
    ASSERT_EQ(RegOpenKeyExW(root, path.c_str(), 0, WRITE_DAC | view, key.put()), ERROR_SUCCESS);
    PSECURITY_DESCRIPTOR access = nullptr;
    ASSERT_TRUE(
        ConvertStringSecurityDescriptorToSecurityDescriptorW(description.c_str(), SDDL_REVISION_1, &access, nullptr));
    EXPECT_EQ(RegSetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, access), ERROR_SUCCESS);
    LocalFree(access);
}

} // namespace

std::optional<StoredKey> RegistryPlace::Read() const
{
    OpenKey key;
    if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ | view, key.put()) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    return ReadKey(key.get(), path.substr(path.rfind(L'\\') + 1));
}

std::vector<std::string> RegistryPlace::Lines() const
{
    std::vector<std::string> lines;
    if (const auto key = Read()) {
        AddLines(*key, Printable(key->name), lines);
    }
    return lines;
}

LSTATUS RegistryPlace::Put(const std::wstring& subkey, const StoredValue& value) const
{
    OpenKey key;
    const LSTATUS result =
        RegCreateKeyExW(root, Below(subkey).c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, key.put(), nullptr);
    return result == ERROR_SUCCESS ? PutValue(key.get(), value) : result;
}

LSTATUS RegistryPlace::Make(const std::wstring& subkey) const
{
    OpenKey key;
    return RegCreateKeyExW(root, Below(subkey).c_str(), 0, nullptr, 0, KEY_WRITE | view, nullptr, key.put(), nullptr);
}

void RegistryPlace::Write(const StoredKey& key) const
{
    Delete();
    WriteKey(root, path, view, key);
}

void RegistryPlace::Delete(const std::wstring& subkey) const
{
    const std::wstring whole = Below(subkey);
    const size_t cut = whole.rfind(L'\\');
    OpenKey parent;
    if (RegOpenKeyExW(root, whole.substr(0, cut).c_str(), 0, KEY_ALL_ACCESS | view, parent.put()) == ERROR_SUCCESS) {
        RegDeleteTreeW(parent.get(), whole.c_str() + cut + 1);
    }
}

RegistryPlace RegistryPlace::TopmostMissing() const
{
    for (size_t cut = path.find(L'\\'); cut != std::wstring::npos; cut = path.find(L'\\', cut + 1)) {
        OpenKey key;
        RegistryPlace above(root, path.substr(0, cut), view);
        if (RegOpenKeyExW(root, above.path.c_str(), 0, KEY_READ | view, key.put()) == ERROR_FILE_NOT_FOUND) {
            return above;
        }
    }
    return *this;
}

void RegistryPlace::Deny(const std::wstring& subkey, REGSAM rights) const
{
    const std::wstring everything = L"(A;;KA;;;WD)";
    const std::wstring denied = L"(D;;" + std::to_wstring(rights) + L";;;WD)";
    SetAccess(root, Below(subkey), view, L"D:P" + (rights == 0 ? everything : denied + everything));
}

BorrowedPlaces::BorrowedPlaces(const std::vector<RegistryPlace>& borrowed)
{
    for (const RegistryPlace& place : borrowed) {
        places.push_back({place, place.Read(), place.TopmostMissing()});
        place.Delete();
    }
}

BorrowedPlaces::~BorrowedPlaces()
{
    for (const Borrowed& borrowed : places) {
        if (borrowed.before) {
            borrowed.place.Write(*borrowed.before);
        } else {
            borrowed.made.Delete();
        }
    }
    for (const Borrowed& borrowed : places) {
        EXPECT_EQ(borrowed.place.Read(), borrowed.before) << "the registry isn't as it was before the test";
    }
}

} // namespace tv
