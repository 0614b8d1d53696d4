// Interface ids: written as text once, turned into the binary form at compile time.
#pragma once

#include "com/base.h"

#include <string>
#include <string_view>

namespace tv {

namespace detail {

consteval uint32_t HexValue(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return static_cast<uint32_t>(digit - '0');
    }
    if (digit >= 'a' && digit <= 'f') {
        return static_cast<uint32_t>(digit - 'a' + 10);
    }
    if (digit >= 'A' && digit <= 'F') {
        return static_cast<uint32_t>(digit - 'A' + 10);
    }
    throw "not a hexadecimal digit";
}

consteval uint32_t HexNumber(std::string_view digits)
{
    uint32_t value = 0;
    for (char digit : digits) {
        value = value * 16 + HexValue(digit);
    }
    return value;
}

} // namespace detail

/// Reads an id of the form "01234567-89ab-cdef-0123-456789abcdef" at compile time; anything else doesn't compile.
consteval GUID ParseGuid(std::string_view text)
{
    if (text.size() != 36 || text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-') {
        throw "not an interface id";
    }
    GUID id{};
    id.Data1 = detail::HexNumber(text.substr(0, 8));
    id.Data2 = static_cast<uint16_t>(detail::HexNumber(text.substr(9, 4)));
    id.Data3 = static_cast<uint16_t>(detail::HexNumber(text.substr(14, 4)));
    constexpr size_t places[] = {19, 21, 24, 26, 28, 30, 32, 34};
    for (size_t i = 0; i < 8; ++i) {
        id.Data4[i] = static_cast<uint8_t>(detail::HexNumber(text.substr(places[i], 2)));
    }
    return id;
}

/// The id of an interface; each interface specialises it by TV_IID.
template <typename Interface>
inline constexpr GUID kInterfaceId = Interface::TheInterfaceHasNoId;

/// The text of an id in braces and capitals, as the registry writes it.
std::u16string GuidText(const GUID& id);

/// Names the id of an interface; used at namespace scope outside of any namespace.
#define TV_IID(Interface, text)                                                                                        \
    template <>                                                                                                        \
    inline constexpr GUID tv::kInterfaceId<Interface> = tv::ParseGuid(text)

} // namespace tv

TV_IID(IUnknown, "00000000-0000-0000-c000-000000000046");
TV_IID(IDispatch, "00020400-0000-0000-c000-000000000046");
TV_IID(IRecordInfo, "0000002f-0000-0000-c000-000000000046");
TV_IID(IConnectionPoint, "b196b286-bab4-101a-b69c-00aa00341d07");
TV_IID(IConnectionPointContainer, "b196b284-bab4-101a-b69c-00aa00341d07");
