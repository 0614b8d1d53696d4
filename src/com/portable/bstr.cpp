// Texts and memory that cross an interface.
#include "com/base.h"

#include <cstdlib>
#include <limits>

namespace {

// The byte length stands in the four bytes right before the characters, as in Windows' own texts; the block starts
// four bytes earlier still, to keep the characters aligned to eight.
constexpr size_t kPrefix = 8;

uint32_t ByteLength(BSTR text)
{
    uint32_t bytes = 0;
    std::memcpy(&bytes, reinterpret_cast<const char*>(text) - sizeof(bytes), sizeof(bytes));
    return bytes;
}

} // namespace

BSTR SysAllocStringLen(const OLECHAR* text, UINT length)
{
    const size_t bytes = size_t{length} * sizeof(OLECHAR);
    if (bytes > std::numeric_limits<uint32_t>::max() - kPrefix - sizeof(OLECHAR)) {
        return nullptr;
    }
    char* block = static_cast<char*>(std::calloc(1, kPrefix + bytes + sizeof(OLECHAR)));
    if (block == nullptr) {
        return nullptr;
    }
    const uint32_t prefix = static_cast<uint32_t>(bytes);
    std::memcpy(block + kPrefix - sizeof(prefix), &prefix, sizeof(prefix));
    if (text != nullptr && bytes != 0) {
        std::memcpy(block + kPrefix, text, bytes);
    }
    return reinterpret_cast<BSTR>(block + kPrefix);
}

BSTR SysAllocString(const OLECHAR* text)
{
    if (text == nullptr) {
        return nullptr;
    }
    UINT length = 0;
    while (text[length] != 0) {
        ++length;
    }
    return SysAllocStringLen(text, length);
}

void SysFreeString(BSTR text)
{
    if (text != nullptr) {
        std::free(reinterpret_cast<char*>(text) - kPrefix);
    }
}

UINT SysStringLen(BSTR text)
{
    return text == nullptr ? 0 : ByteLength(text) / static_cast<uint32_t>(sizeof(OLECHAR));
}

void* CoTaskMemAlloc(size_t size)
{
    return std::malloc(size);
}

void CoTaskMemFree(void* memory)
{
    std::free(memory);
}
