// FakeRegistry: two registry trees in memory, with the machine's "Software" in two views.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/registry_service.h"
#include "support/text_compare.h"

#include <map>
#include <memory>
#include <optional>

namespace tv::fakes {

/// A stored value as bytes.
struct RegistryValue
{
    uint32_t type;
    std::vector<uint8_t> bytes;
    friend bool operator==(const RegistryValue&, const RegistryValue&) = default;
};

/// Names compare without regard to case. The machine's "Software" exists once for each view; no view chosen means the
/// 64-bit one. A key opened for reading can't be written.
class FakeRegistry final : public RegistryService
{
  public:
    explicit FakeRegistry(CallLog& callLog);

    uint32_t OpenKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key) override;
    uint32_t CreateKey(KeyHandle parent, std::u16string_view subkey, uint32_t access, KeyHandle& key) override;
    uint32_t OpenKeyTransacted(KeyHandle parent, std::u16string_view subkey, uint32_t access,
                               TransactionHandle transaction, KeyHandle& key) override;
    uint32_t CloseKey(KeyHandle key) override;
    uint32_t QueryValue(KeyHandle key, std::u16string_view name, uint32_t& type, uint8_t* buffer,
                        uint32_t& size) override;
    uint32_t SetValue(KeyHandle key, std::u16string_view name, uint32_t type, std::span<const uint8_t> data) override;
    uint32_t EnumKey(KeyHandle key, uint32_t index, std::u16string& name) override;
    bool ExpandEnvironment(std::u16string_view text, std::u16string& expanded) override;

    // What a test puts in and looks up. `view` is kKeyView64 or kKeyView32 and counts for the machine's tree alone;
    // keys are made as needed.
    void AddKey(KeyHandle root, std::u16string_view path, uint32_t view = kKeyView64);
    void DeleteKey(KeyHandle root, std::u16string_view path, uint32_t view = kKeyView64);
    void PutNumber(KeyHandle root, std::u16string_view path, std::u16string_view name, uint32_t number,
                   uint32_t view = kKeyView64);
    void PutText(KeyHandle root, std::u16string_view path, std::u16string_view name, std::u16string_view text,
                 uint32_t view = kKeyView64);
    void PutValue(KeyHandle root, std::u16string_view path, std::u16string_view name, RegistryValue value,
                  uint32_t view = kKeyView64);
    bool KeyExists(KeyHandle root, std::u16string_view path, uint32_t view = kKeyView64) const;
    std::optional<RegistryValue> Value(KeyHandle root, std::u16string_view path, std::u16string_view name,
                                       uint32_t view = kKeyView64) const;
    std::optional<uint32_t> Number(KeyHandle root, std::u16string_view path, std::u16string_view name,
                                   uint32_t view = kKeyView64) const;
    std::optional<std::u16string> Text(KeyHandle root, std::u16string_view path, std::u16string_view name,
                                       uint32_t view = kKeyView64) const;
    /// Refuses to open or create a key (in either view) with error 5.
    void Deny(KeyHandle root, std::u16string_view path);
    void Allow(KeyHandle root, std::u16string_view path);
    void SetEnvironment(std::u16string_view name, std::u16string_view value);
    /// Whether the system knows transactions; it does at first.
    void SetHasTransactions(bool has) { hasTransactions = has; }

    /// Every key and every value of all trees with type and bytes, a line each, in a fixed order: two exports are equal
    /// when nothing has changed in between.
    std::vector<std::u16string> Export() const;

    size_t OpenCount() const { return handles.size(); }
    /// Access mask of each opening or creation, in order.
    const std::vector<uint32_t>& AccessMasks() const { return accessMasks; }

  private:
    struct Key
    {
        std::map<std::u16string, std::shared_ptr<Key>, LessIgnoringCase> subkeys;
        std::map<std::u16string, RegistryValue, LessIgnoringCase> values;
        bool isDenied = false;
    };

    struct Handle
    {
        std::shared_ptr<Key> key;
        uint32_t access;
    };

    static void ExportKey(const Key& key, const std::u16string& path, std::vector<std::u16string>& lines);
    std::shared_ptr<Key> Start(KeyHandle parent, std::u16string_view path, uint32_t access) const;
    std::shared_ptr<Key> Find(KeyHandle root, std::u16string_view path, uint32_t view) const;
    std::shared_ptr<Key> Make(KeyHandle root, std::u16string_view path, uint32_t view);
    uint32_t Hand(const std::shared_ptr<Key>& found, uint32_t access, KeyHandle& key);
    const Handle* Get(KeyHandle key) const;

    CallLog& log;
    std::shared_ptr<Key> user = std::make_shared<Key>();
    std::shared_ptr<Key> machine64 = std::make_shared<Key>();
    std::shared_ptr<Key> machine32 = std::make_shared<Key>();
    std::map<KeyHandle, Handle> handles;
    std::map<std::u16string, std::u16string, LessIgnoringCase> environment;
    std::vector<uint32_t> accessMasks;
    KeyHandle lastHandle = 0x100;
    bool hasTransactions = true;
};

} // namespace tv::fakes
