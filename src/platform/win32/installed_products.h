// Win32InstalledProducts: the products of the Windows installer.
#pragma once

#include "platform/installed_products_service.h"

namespace tv::win32 {

class Win32InstalledProducts final : public InstalledProductsService
{
  public:
    uint32_t EnumProduct(uint32_t index, std::u16string& product) override;
    uint32_t GetProductInfo(std::u16string_view product, std::u16string_view property, std::u16string& text) override;
};

} // namespace tv::win32
