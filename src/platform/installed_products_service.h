// Products that the machine's installer knows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tv {

/// Name of the property that holds a product's name.
inline constexpr std::u16string_view kProductName = u"ProductName";

/// Error numbers are the system's, 0 for success; a text is written only then.
class InstalledProductsService
{
  public:
    virtual ~InstalledProductsService() = default;
    /// Code of the product at an index, a GUID in braces; kErrorNoMoreItems behind the last.
    virtual uint32_t EnumProduct(uint32_t index, std::u16string& product) = 0;
    /// Reads a property of a product; one of over 259 characters gives kErrorMoreData.
    virtual uint32_t GetProductInfo(std::u16string_view product, std::u16string_view property, std::u16string& text) = 0;
};

} // namespace tv
