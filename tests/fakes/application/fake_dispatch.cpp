#include "fakes/application/fake_dispatch.h"

#include "com/bstring.h"

#include <algorithm>

namespace tv::fakes {

void FakeDispatch::Add(std::u16string name, Member member)
{
    members.push_back({std::move(name), std::move(member)});
}

void FakeDispatch::AddValue(std::u16string name, Variant value)
{
    Add(std::move(name), [value](std::vector<VARIANT*>&) { return MemberAnswer{0, value, 0}; });
}

HRESULT FakeDispatch::GetTypeInfoCount(UINT* count)
{
    *count = 0;
    return S_OK;
}

HRESULT FakeDispatch::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    *info = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids)
{
    ++nameLookups;
    const std::u16string_view name(reinterpret_cast<const char16_t*>(names[0]));
    const auto found = std::ranges::find(members, name, &Entry::name);
    if (found == members.end()) {
        ids[0] = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }
    ids[0] = static_cast<DISPID>(found - members.begin()) + 1;
    return S_OK;
}

HRESULT FakeDispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                             EXCEPINFO* exception, UINT*)
{
    if (id < 1 || id > static_cast<DISPID>(members.size())) {
        return DISP_E_MEMBERNOTFOUND;
    }
    const Entry& entry = members[static_cast<size_t>(id - 1)];
    calls.push_back(entry.name);
    lastFlags = flags;
    std::vector<VARIANT*> arguments;
    for (UINT i = params->cArgs; i > 0; --i) {
        arguments.push_back(&params->rgvarg[i - 1]);
    }
    MemberAnswer answer = entry.member(arguments);
    if (answer.result == DISP_E_EXCEPTION) {
        exception->scode = answer.raised;
        exception->bstrDescription = reinterpret_cast<BSTR>(AllocateText(u"the member failed"));
    } else if (result != nullptr) {
        answer.value.MoveTo(result);
    }
    return answer.result;
}

} // namespace tv::fakes
