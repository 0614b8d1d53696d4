// FakeDispatch: an object that is known by the names of its members only, as those of another process are.
#pragma once

#include "com/com_object.h"
#include "com/variant.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tv::fakes {

/// What a member gives: a code, a value, and what it raises when the code is DISP_E_EXCEPTION.
struct MemberAnswer
{
    Result result = 0;
    Variant value;
    Result raised = 0;
};

/// Arguments come in the member's own order.
using Member = std::function<MemberAnswer(std::vector<VARIANT*>& arguments)>;

class FakeDispatch final : public ComObject<IDispatch>
{
  public:
    void Add(std::u16string name, Member member);
    /// A member that gives a value and takes no argument.
    void AddValue(std::u16string name, Variant value);

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* params,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

    /// Names of the called members, in order.
    std::vector<std::u16string> calls;
    /// Flags of the last call.
    WORD lastFlags = 0;
    size_t nameLookups = 0;

  private:
    struct Entry
    {
        std::u16string name;
        Member member;
    };
    std::vector<Entry> members;
};

} // namespace tv::fakes
