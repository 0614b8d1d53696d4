#include "cad/dispatch_object.h"

#include "com/bstring.h"

#include <algorithm>
#include <array>

namespace tv {

namespace {

constexpr GUID kNoId{};
constexpr size_t kMostArguments = 8;

/// The code that a member raised; frees what the description holds.
Result CodeOf(Result invoked, EXCEPINFO& exception)
{
    if (invoked == DISP_E_EXCEPTION && exception.pfnDeferredFillIn != nullptr) {
        exception.pfnDeferredFillIn(&exception);
    }
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return invoked == DISP_E_EXCEPTION && exception.scode < 0 ? exception.scode : invoked;
}

} // namespace

Result DispatchObject::FindMember(std::u16string_view member, DISPID& id)
{
    if (const auto known = ids.find(member); known != ids.end()) {
        id = known->second;
        return 0;
    }
    std::u16string name(member);
    auto* text = reinterpret_cast<LPOLESTR>(name.data());
    const Result found = object->GetIDsOfNames(kNoId, &text, 1, LOCALE_USER_DEFAULT, &id);
    if (found >= 0) {
        ids.emplace(std::move(name), id);
    }
    return found;
}

bool DispatchObject::Knows(std::u16string_view member)
{
    DISPID id = DISPID_UNKNOWN;
    return FindMember(member, id) >= 0;
}

Result DispatchObject::Call(std::u16string_view member, std::initializer_list<const VARIANT*> arguments,
                            Variant& result)
{
    DISPID id = DISPID_UNKNOWN;
    if (const Result found = FindMember(member, id); found < 0) {
        return found;
    }
    if (arguments.size() > kMostArguments) {
        return DISP_E_BADPARAMCOUNT;
    }
    std::array<VARIANT, kMostArguments> reversed;
    std::ranges::transform(arguments, std::make_reverse_iterator(reversed.begin() + arguments.size()),
                           [](const VARIANT* argument) { return *argument; });
    DISPPARAMS params{};
    params.rgvarg = arguments.size() == 0 ? nullptr : reversed.data();
    params.cArgs = static_cast<UINT>(arguments.size());
    EXCEPINFO exception{};
    UINT badArgument = 0;
    const Result invoked =
        object->Invoke(id, kNoId, LOCALE_USER_DEFAULT, static_cast<WORD>(DISPATCH_METHOD | DISPATCH_PROPERTYGET),
                       &params, result.put(), &exception, &badArgument);
    return CodeOf(invoked, exception);
}

Result DispatchObject::Call(std::u16string_view member, std::initializer_list<const VARIANT*> arguments)
{
    Variant ignored;
    return Call(member, arguments, ignored);
}

Result DispatchObject::ReadText(std::u16string_view member, BStr* text)
{
    Variant value;
    Result read = Call(member, {}, value);
    if (read >= 0) {
        read = value.ChangeType(VT_BSTR);
    }
    if (read >= 0) {
        *text = AllocateText(value.ToText());
    }
    return read;
}

Result DispatchObject::ReadInt(std::u16string_view member, int32_t* number)
{
    Variant value;
    Result read = Call(member, {}, value);
    if (read >= 0) {
        read = value.ChangeType(VT_I4);
    }
    if (read >= 0) {
        *number = value.get()->lVal;
    }
    return read;
}

Result DispatchObject::ReadBool(std::u16string_view member, std::initializer_list<const VARIANT*> arguments,
                                bool* truth)
{
    Variant value;
    Result read = Call(member, arguments, value);
    if (read >= 0) {
        read = value.ChangeType(VT_BOOL);
    }
    if (read >= 0) {
        *truth = value.get()->boolVal != kVariantFalse;
    }
    return read;
}

Result DispatchObject::ReadObject(std::u16string_view member, ComPtr<IDispatch>& found)
{
    found.reset();
    Variant value;
    const Result read = Call(member, {}, value);
    if (read < 0) {
        return read;
    }
    switch (value.Type()) {
    case VT_DISPATCH:
        found = ComPtr<IDispatch>::Share(value.get()->pdispVal);
        return read;
    case VT_UNKNOWN:
        return value.get()->punkVal == nullptr ? read : QueryFor(value.get()->punkVal, found);
    case VT_EMPTY:
    case VT_NULL:
        return read;
    default:
        return DISP_E_TYPEMISMATCH;
    }
}

} // namespace tv
