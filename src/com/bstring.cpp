#include "com/bstring.h"

#include <limits>
#include <new>

namespace tv {

namespace {

BSTR AsSystemText(BStr text)
{
    return reinterpret_cast<BSTR>(text);
}

} // namespace

BString::BString(std::u16string_view from) : text(AllocateText(from)) {}

void BString::reset()
{
    SysFreeString(AsSystemText(std::exchange(text, nullptr)));
}

std::u16string_view BString::View() const
{
    return TextOf(text);
}

std::u16string_view TextOf(BStr text)
{
    // The length comes from the prefix, so that a zero inside the text doesn't end it.
    return text == nullptr ? std::u16string_view() : std::u16string_view(text, SysStringLen(AsSystemText(text)));
}

BStr AllocateText(std::u16string_view text)
{
    if (text.size() > std::numeric_limits<uint32_t>::max() / sizeof(char16_t)) {
        throw std::bad_alloc();
    }
    BSTR allocated = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(text.data()), static_cast<UINT>(text.size()));
    if (allocated == nullptr) {
        throw std::bad_alloc();
    }
    return reinterpret_cast<BStr>(allocated);
}

} // namespace tv
