// Win32Registry: the machine's registry.
#pragma once

#include "platform/registry_service.h"

namespace tv::win32 {

class Win32Registry final : public RegistryService
{
  public:
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
};

} // namespace tv::win32
