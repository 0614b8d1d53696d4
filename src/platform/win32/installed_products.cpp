#include "platform/win32/installed_products.h"

#include "platform/win32/handle.h"

#include <iterator>

#include <msi.h>

namespace tv::win32 {

namespace {

constexpr size_t kGuidLength = 38;
constexpr size_t kLongestText = 259;

} // namespace

uint32_t Win32InstalledProducts::EnumProduct(uint32_t index, std::u16string& product)
{
    wchar_t code[kGuidLength + 1] = {};
    const uint32_t error = ::MsiEnumProductsW(index, code);
    if (error == ERROR_SUCCESS) {
        product.assign(reinterpret_cast<const char16_t*>(code));
    }
    return error;
}

uint32_t Win32InstalledProducts::GetProductInfo(std::u16string_view product, std::u16string_view property,
                                                std::u16string& text)
{
    wchar_t buffer[kLongestText + 1] = {};
    DWORD size = std::size(buffer);
    const uint32_t error = ::MsiGetProductInfoW(ZeroTerminated(product), ZeroTerminated(property), buffer, &size);
    if (error == ERROR_SUCCESS) {
        text.assign(reinterpret_cast<const char16_t*>(buffer), size);
    }
    return error;
}

} // namespace tv::win32
