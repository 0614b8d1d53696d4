// DispatchObject: calls by name on an object that is known only through IDispatch.
#pragma once

#include "com/com_ptr.h"
#include "com/variant.h"

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>

namespace tv {

/// Holds an object and the ids of the members that were called. A member that raised gives the code that it raised.
class DispatchObject
{
  public:
    explicit DispatchObject(ComPtr<IDispatch> target) : object(std::move(target)) {}

    /// True when the object has a member of that name.
    bool Knows(std::u16string_view member);

    /// Calls a method or reads a property. Arguments in the member's own order; one that is VT_BYREF is written through.
    Result Call(std::u16string_view member, std::initializer_list<const VARIANT*> arguments, Variant& result);
    Result Call(std::u16string_view member, std::initializer_list<const VARIANT*> arguments);

    Result ReadText(std::u16string_view member, BStr* text);
    Result ReadInt(std::u16string_view member, int32_t* number);
    Result ReadBool(std::u16string_view member, std::initializer_list<const VARIANT*> arguments, bool* truth);
    /// Empty when the member gives no object.
    Result ReadObject(std::u16string_view member, ComPtr<IDispatch>& found);

    IDispatch* get() const { return object.get(); }

  private:
    Result FindMember(std::u16string_view member, DISPID& id);

    ComPtr<IDispatch> object;
    std::map<std::u16string, DISPID, std::less<>> ids;
};

} // namespace tv
