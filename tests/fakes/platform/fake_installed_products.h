// FakeInstalledProducts: products of the machine's installer as a list that a test writes.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/installed_products_service.h"

#include <vector>

namespace tv::fakes {

class FakeInstalledProducts final : public InstalledProductsService
{
  public:
    explicit FakeInstalledProducts(CallLog& callLog) : log(callLog) {}

    uint32_t EnumProduct(uint32_t index, std::u16string& product) override;
    uint32_t GetProductInfo(std::u16string_view product, std::u16string_view property, std::u16string& text) override;

    /// Installs a product behind those that are there; returns its code.
    std::u16string Add(std::u16string name);

  private:
    struct Product
    {
        std::u16string code;
        std::u16string name;
    };

    CallLog& log;
    std::vector<Product> products;
};

} // namespace tv::fakes
