#include "fakes/platform/fake_registry.h"

#include "support/format.h"

#include <algorithm>
#include <cstring>

namespace tv::fakes {

namespace {

constexpr uint32_t kRightQuery = 0x0001;
constexpr uint32_t kRightSet = 0x0002;
constexpr uint32_t kRightEnumerate = 0x0008;
constexpr uint32_t kNotPossible = 1;

/// Takes the first name off a path.
std::u16string_view TakeName(std::u16string_view& path)
{
    const size_t end = std::min(path.find(u'\\'), path.size());
    const std::u16string_view name = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    return name;
}

bool IsBelowSoftware(std::u16string_view path)
{
    return EqualIgnoringCase(TakeName(path), u"Software");
}

template <typename Key> std::shared_ptr<Key> Walk(std::shared_ptr<Key> key, std::u16string_view path)
{
    while (key != nullptr && !path.empty()) {
        const auto found = key->subkeys.find(TakeName(path));
        key = found == key->subkeys.end() ? nullptr : found->second;
    }
    return key;
}

template <typename Key> std::shared_ptr<Key> WalkMaking(std::shared_ptr<Key> key, std::u16string_view path)
{
    while (!path.empty()) {
        std::shared_ptr<Key>& next = key->subkeys[std::u16string(TakeName(path))];
        if (next == nullptr) {
            next = std::make_shared<Key>();
        }
        key = next;
    }
    return key;
}

std::vector<uint8_t> BytesOf(const void* data, size_t size)
{
    std::vector<uint8_t> bytes(size);
    std::memcpy(bytes.data(), data, size);
    return bytes;
}

} // namespace

FakeRegistry::FakeRegistry(CallLog& callLog) : log(callLog)
{
    AddKey(kCurrentUserRoot, u"Software");
    AddKey(kLocalMachineRoot, u"Software", kKeyView64);
    AddKey(kLocalMachineRoot, u"Software", kKeyView32);
}

const FakeRegistry::Handle* FakeRegistry::Get(KeyHandle key) const
{
    const auto found = handles.find(key);
    return found == handles.end() ? nullptr : &found->second;
}

std::shared_ptr<FakeRegistry::Key> FakeRegistry::Start(KeyHandle parent, std::u16string_view path,
                                                       uint32_t access) const
{
    if (parent == kCurrentUserRoot) {
        return user;
    }
    if (parent == kLocalMachineRoot) {
        return (access & kKeyView32) != 0 && IsBelowSoftware(path) ? machine32 : machine64;
    }
    const Handle* handle = Get(parent);
    return handle == nullptr ? nullptr : handle->key;
}

std::shared_ptr<FakeRegistry::Key> FakeRegistry::Find(KeyHandle root, std::u16string_view path, uint32_t view) const
{
    return Walk(Start(root, path, view), path);
}

std::shared_ptr<FakeRegistry::Key> FakeRegistry::Make(KeyHandle root, std::u16string_view path, uint32_t view)
{
    return WalkMaking(Start(root, path, view), path);
}

uint32_t FakeRegistry::Hand(const std::shared_ptr<Key>& found, uint32_t access, KeyHandle& key)
{
    if (found->isDenied) {
        return kErrorAccessDenied;
    }
    key = ++lastHandle;
    handles[key] = {found, access};
    return kErrorSuccess;
}

uint32_t FakeRegistry::OpenKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key)
{
    key = kNoKey;
    accessMasks.push_back(access);
    if (const uint32_t error = log.Enter("registry.OpenKey", subkey)) {
        return error;
    }
    const std::shared_ptr<Key> start = Start(parent, subkey, access);
    if (start == nullptr) {
        return kErrorInvalidHandle;
    }
    const std::shared_ptr<Key> found = Walk(start, subkey);
    return found == nullptr ? kErrorFileNotFound : Hand(found, access, key);
}

uint32_t FakeRegistry::CreateKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key)
{
    key = kNoKey;
    accessMasks.push_back(access);
    if (const uint32_t error = log.Enter("registry.CreateKey", subkey)) {
        return error;
    }
    const std::shared_ptr<Key> start = Start(parent, subkey, access);
    return start == nullptr ? kErrorInvalidHandle : Hand(WalkMaking(start, subkey), access, key);
}

uint32_t FakeRegistry::OpenKeyTransacted(KeyHandle parent, std::u16string_view subkey, uint32_t access,
                                         TransactionHandle, KeyHandle& key)
{
    key = kNoKey;
    return hasTransactions ? OpenKey(parent, subkey, access, key) : kNotPossible;
}

uint32_t FakeRegistry::CloseKey(KeyHandle key)
{
    log.Note("registry.CloseKey");
    return handles.erase(key) == 1 ? kErrorSuccess : kErrorInvalidHandle;
}

uint32_t FakeRegistry::QueryValue(KeyHandle key, std::u16string_view name, uint32_t& type, uint8_t* buffer,
                                  uint32_t& size)
{
    if (const uint32_t error = log.Enter("registry.QueryValue", name)) {
        return error;
    }
    const Handle* handle = Get(key);
    if (handle == nullptr) {
        return kErrorInvalidHandle;
    }
    if ((handle->access & kRightQuery) == 0) {
        return kErrorAccessDenied;
    }
    const auto found = handle->key->values.find(name);
    if (found == handle->key->values.end()) {
        return kErrorFileNotFound;
    }
    const std::vector<uint8_t>& bytes = found->second.bytes;
    const uint32_t capacity = size;
    type = found->second.type;
    size = static_cast<uint32_t>(bytes.size());
    if (buffer == nullptr) {
        return kErrorSuccess;
    }
    if (capacity < size) {
        return kErrorMoreData;
    }
    std::copy(bytes.begin(), bytes.end(), buffer);
    return kErrorSuccess;
}

uint32_t FakeRegistry::SetValue(KeyHandle key, std::u16string_view name, uint32_t type, std::span<const uint8_t> data)
{
    if (const uint32_t error = log.Enter("registry.SetValue", name)) {
        return error;
    }
    const Handle* handle = Get(key);
    if (handle == nullptr) {
        return kErrorInvalidHandle;
    }
    if ((handle->access & kRightSet) == 0) {
        return kErrorAccessDenied;
    }
    handle->key->values[std::u16string(name)] = {type, {data.begin(), data.end()}};
    return kErrorSuccess;
}

uint32_t FakeRegistry::EnumKey(KeyHandle key, uint32_t index, std::u16string& name)
{
    constexpr size_t kLongestName = 260;
    if (const uint32_t error = log.Enter("registry.EnumKey")) {
        return error;
    }
    const Handle* handle = Get(key);
    if (handle == nullptr) {
        return kErrorInvalidHandle;
    }
    if ((handle->access & kRightEnumerate) == 0) {
        return kErrorAccessDenied;
    }
    const auto& subkeys = handle->key->subkeys;
    if (index >= subkeys.size()) {
        return kErrorNoMoreItems;
    }
    const std::u16string& found = std::next(subkeys.begin(), index)->first;
    if (found.size() > kLongestName) {
        return kErrorMoreData;
    }
    name = found;
    return kErrorSuccess;
}

bool FakeRegistry::ExpandEnvironment(std::u16string_view text, std::u16string& expanded)
{
    if (log.Enter("registry.ExpandEnvironment", text) != 0) {
        return false;
    }
    std::u16string result;
    while (!text.empty()) {
        const size_t end = text[0] == u'%' ? text.find(u'%', 1) : std::u16string_view::npos;
        const auto found =
            end == std::u16string_view::npos ? environment.end() : environment.find(text.substr(1, end - 1));
        if (found != environment.end()) {
            result += found->second;
            text.remove_prefix(end + 1);
        } else {
            result += text[0];
            text.remove_prefix(1);
        }
    }
    expanded = std::move(result);
    return true;
}

std::vector<std::u16string> FakeRegistry::Export() const
{
    std::vector<std::u16string> lines;
    ExportKey(*user, u"user", lines);
    ExportKey(*machine64, u"machine64", lines);
    ExportKey(*machine32, u"machine32", lines);
    return lines;
}

void FakeRegistry::ExportKey(const Key& key, const std::u16string& path, std::vector<std::u16string>& lines)
{
    lines.push_back(path);
    for (const auto& [name, value] : key.values) {
        std::u16string line = path + u" [" + name + u"] type " + FormatText(u"%u", value.type) + u":";
        for (const uint8_t byte : value.bytes) {
            line += FormatText(u" %02x", static_cast<uint32_t>(byte));
        }
        lines.push_back(std::move(line));
    }
    for (const auto& [name, subkey] : key.subkeys) {
        ExportKey(*subkey, path + u"\\" + name, lines);
    }
}

void FakeRegistry::AddKey(KeyHandle root, std::u16string_view path, uint32_t view)
{
    Make(root, path, view);
}

void FakeRegistry::DeleteKey(KeyHandle root, std::u16string_view path, uint32_t view)
{
    const size_t cut = path.rfind(u'\\');
    const std::u16string_view name = cut == std::u16string_view::npos ? path : path.substr(cut + 1);
    const std::u16string_view parentPath = cut == std::u16string_view::npos ? u"" : path.substr(0, cut);
    const std::shared_ptr<Key> parent = Walk(Start(root, path, view), parentPath);
    if (parent == nullptr) {
        return;
    }
    if (const auto found = parent->subkeys.find(name); found != parent->subkeys.end()) {
        parent->subkeys.erase(found);
    }
}

void FakeRegistry::PutNumber(KeyHandle root, std::u16string_view path, std::u16string_view name, uint32_t number,
                             uint32_t view)
{
    PutValue(root, path, name, {kRegNumber, BytesOf(&number, sizeof number)}, view);
}

void FakeRegistry::PutText(KeyHandle root, std::u16string_view path, std::u16string_view name, std::u16string_view text,
                           uint32_t view)
{
    const std::u16string terminated(text);
    PutValue(root, path, name, {kRegString, BytesOf(terminated.c_str(), (terminated.size() + 1) * 2)}, view);
}

void FakeRegistry::PutValue(KeyHandle root, std::u16string_view path, std::u16string_view name, RegistryValue value,
                            uint32_t view)
{
    Make(root, path, view)->values[std::u16string(name)] = std::move(value);
}

bool FakeRegistry::KeyExists(KeyHandle root, std::u16string_view path, uint32_t view) const
{
    return Find(root, path, view) != nullptr;
}

std::optional<RegistryValue> FakeRegistry::Value(KeyHandle root, std::u16string_view path, std::u16string_view name,
                                                 uint32_t view) const
{
    const std::shared_ptr<Key> key = Find(root, path, view);
    if (key == nullptr) {
        return std::nullopt;
    }
    const auto found = key->values.find(name);
    return found == key->values.end() ? std::nullopt : std::optional(found->second);
}

std::optional<uint32_t> FakeRegistry::Number(KeyHandle root, std::u16string_view path, std::u16string_view name,
                                             uint32_t view) const
{
    const std::optional<RegistryValue> value = Value(root, path, name, view);
    if (!value || value->type != kRegNumber || value->bytes.size() != sizeof(uint32_t)) {
        return std::nullopt;
    }
    uint32_t number = 0;
    std::memcpy(&number, value->bytes.data(), sizeof number);
    return number;
}

std::optional<std::u16string> FakeRegistry::Text(KeyHandle root, std::u16string_view path, std::u16string_view name,
                                                 uint32_t view) const
{
    const std::optional<RegistryValue> value = Value(root, path, name, view);
    if (!value || (value->type != kRegString && value->type != kRegExpandString)) {
        return std::nullopt;
    }
    std::u16string text(value->bytes.size() / 2, u'\0');
    std::memcpy(text.data(), value->bytes.data(), text.size() * 2);
    return text.substr(0, text.find(u'\0'));
}

void FakeRegistry::Deny(KeyHandle root, std::u16string_view path)
{
    Make(root, path, kKeyView64)->isDenied = true;
    Make(root, path, kKeyView32)->isDenied = true;
}

void FakeRegistry::Allow(KeyHandle root, std::u16string_view path)
{
    Make(root, path, kKeyView64)->isDenied = false;
    Make(root, path, kKeyView32)->isDenied = false;
}

void FakeRegistry::SetEnvironment(std::u16string_view name, std::u16string_view value)
{
    environment[std::u16string(name)] = value;
}

} // namespace tv::fakes
