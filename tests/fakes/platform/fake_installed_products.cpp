#include "fakes/platform/fake_installed_products.h"

#include "platform/registry_service.h"
#include "support/format.h"

#include <algorithm>

namespace tv::fakes {

namespace {

constexpr uint32_t kErrorUnknownProduct = 1605;
constexpr uint32_t kErrorUnknownProperty = 1608;
constexpr size_t kLongestText = 259;

} // namespace

uint32_t FakeInstalledProducts::EnumProduct(uint32_t index, std::u16string& product)
{
    const uint32_t error = log.Enter("products.EnumProduct", FormatText(u"%u", index));
    if (error != 0) {
        return error;
    }
    if (index >= products.size()) {
        return kErrorNoMoreItems;
    }
    product = products[index].code;
    return kErrorSuccess;
}

uint32_t FakeInstalledProducts::GetProductInfo(std::u16string_view product, std::u16string_view property,
                                               std::u16string& text)
{
    const uint32_t error = log.Enter("products.GetProductInfo", product);
    if (error != 0) {
        return error;
    }
    const auto found = std::ranges::find(products, product, &Product::code);
    if (found == products.end()) {
        return kErrorUnknownProduct;
    }
    if (property != kProductName) {
        return kErrorUnknownProperty;
    }
    if (found->name.size() > kLongestText) {
        return kErrorMoreData;
    }
    text = found->name;
    return kErrorSuccess;
}

std::u16string FakeInstalledProducts::Add(std::u16string name)
{
    const auto number = static_cast<uint32_t>(products.size() + 1);
    products.push_back({FormatText(u"{0C5A7E11-0000-0000-0000-%012u}", number), std::move(name)});
    return products.back().code;
}

} // namespace tv::fakes
