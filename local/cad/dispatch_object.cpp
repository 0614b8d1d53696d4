#include "cad/dispatch_object.h"

#include "cad/app_object.h"
#include "cad/automation_observer.h"
#include "cad/text.h"
#include "cad/value_conversion.h"
#include "com/com_object.h"
#include "com/result.h"

#include <unordered_map>

namespace tv::app {

namespace {

/// Marks our own automation objects among those that come in from outside.
constexpr GUID kOwnObject = ParseGuid("5a1c7f30-8f0e-4b52-9a44-2f6d1c0a7e30");

class DispatchObject;

/// The automation objects that are alive, by what they stand for.
std::unordered_map<const void*, DispatchObject*>& LiveObjects()
{
    static std::unordered_map<const void*, DispatchObject*> objects;
    return objects;
}

const void* IdentityOf(const macro::Object& object)
{
    const auto* own = dynamic_cast<const AppObject*>(&object);
    return own != nullptr ? own->Identity() : &object;
}

/// Raises the exception record of a failed automation call.
Result ReportError(const macro::MacroError& error, EXCEPINFO* exception)
{
    if (error.number == macro::kNoSuchMember) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (error.number == macro::kArgumentNotOptional || error.number == macro::kWrongArgumentCount) {
        return DISP_E_BADPARAMCOUNT;
    }
    if (error.number == macro::kTypeMismatch) {
        return DISP_E_TYPEMISMATCH;
    }
    if (exception == nullptr) {
        return DISP_E_EXCEPTION;
    }
    *exception = EXCEPINFO{};
    // Numbers of the language travel as codes of the facility that automation keeps for them.
    exception->scode = error.number < 0
                           ? error.number
                           : static_cast<SCODE>(0x800A0000u | static_cast<uint32_t>(error.number & 0xFFFF));
    exception->bstrDescription = reinterpret_cast<BSTR>(AllocateText(error.description));
    exception->bstrSource = reinterpret_cast<BSTR>(AllocateText(error.source.empty() ? u"Torvane" : error.source));
    return DISP_E_EXCEPTION;
}

macro::InvokeKind KindOfCall(WORD flags)
{
    if ((flags & DISPATCH_PROPERTYPUTREF) != 0) {
        return macro::InvokeKind::Set;
    }
    return (flags & DISPATCH_PROPERTYPUT) != 0 ? macro::InvokeKind::Let : macro::InvokeKind::Get;
}

class DispatchObject final : public ComObject<IDispatch, IConnectionPointContainer>
{
  public:
    explicit DispatchObject(const macro::Ref<macro::Object>& object)
        : target(object), own(dynamic_cast<AppObject*>(object.get()))
    {
        LiveObjects().emplace(IdentityOf(*object), this);
    }

    const macro::Ref<macro::Object>& Target() const { return target; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override
    {
        if (count == nullptr) {
            return E_POINTER;
        }
        *count = 0;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** info) override
    {
        if (info != nullptr) {
            *info = nullptr;
        }
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override
    {
        if (names == nullptr || ids == nullptr || count == 0) {
            return E_POINTER;
        }
        return AtBoundary([&]() -> Result {
            std::fill_n(ids, count, DISPID_UNKNOWN);
            const std::u16string wanted = macro::FoldCase(reinterpret_cast<const char16_t*>(names[0]));
            const std::span<const std::u16string_view> members = Members();
            for (size_t i = 0; i < members.size(); ++i) {
                if (members[i] == wanted) {
                    ids[0] = static_cast<DISPID>(i + 1);
                    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
                }
            }
            return DISP_E_UNKNOWNNAME;
        });
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                     EXCEPINFO* exception, UINT*) override
    {
        if (params == nullptr) {
            return E_POINTER;
        }
        return AtBoundary([&]() -> Result {
            const std::span<const std::u16string_view> members = Members();
            if (member < 1 || static_cast<size_t>(member) > members.size()) {
                return DISP_E_MEMBERNOTFOUND;
            }
            const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
            if (params->cNamedArgs > (puts ? 1u : 0u)) {
                return DISP_E_PARAMNOTFOUND;
            }
            const macro::InvokeKind kind = KindOfCall(flags);
            try {
                return Call(members[static_cast<size_t>(member - 1)], kind, *params, result);
            } catch (const macro::MacroError& error) {
                return ReportError(error, exception);
            }
        });
    }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override
    {
        if (points != nullptr) {
            *points = nullptr;
        }
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override
    {
        if (point == nullptr) {
            return E_POINTER;
        }
        *point = nullptr;
        return AtBoundary([&]() -> Result {
            const std::shared_ptr<EventSource> events = own != nullptr ? own->Events() : nullptr;
            if (events == nullptr || !(events->Interface() == id)) {
                return CONNECT_E_NOCONNECTION;
            }
            *point = events->Point(this).release();
            return S_OK;
        });
    }

  protected:
    void* FindInterface(REFIID id) override { return id == kOwnObject ? static_cast<IDispatch*>(this) : nullptr; }

  private:
    ~DispatchObject() override { LiveObjects().erase(IdentityOf(*target)); }

    std::span<const std::u16string_view> Members() const
    {
        return own != nullptr ? own->MemberNames() : std::span<const std::u16string_view>();
    }

    Result Call(std::u16string_view name, macro::InvokeKind kind, DISPPARAMS& params, VARIANT* result)
    {
        // Keeps the object alive while a call closes what it stands for.
        const ComPtr<IDispatch> alive = ComPtr<IDispatch>::Share(this);
        std::vector<macro::Value> values;
        for (UINT i = params.cArgs; i > 0; --i) {
            values.push_back(FromVariant(params.rgvarg[i - 1]));
        }
        if (AutomationObserver* const observer = CurrentObserver()) {
            const Result refusal = observer->OnCall(target->ClassName(), name, values);
            if (refusal < 0) {
                return refusal;
            }
        }
        std::vector<macro::Value> handed;
        for (size_t i = 0; i < values.size(); ++i) {
            const bool byReference = (params.rgvarg[values.size() - 1 - i].vt & VT_BYREF) != 0;
            handed.push_back(byReference ? macro::Value::ReferenceTo(&values[i], macro::Type::Variant) : values[i]);
        }
        macro::Arguments arguments{std::span<macro::Value>(handed)};
        const macro::Value answer = target->Invoke(macro::MemberName(name), kind, arguments);
        for (size_t i = 0; i < values.size(); ++i) {
            WriteBack(params.rgvarg[values.size() - 1 - i], values[i]);
        }
        if (result != nullptr) {
            VariantInit(result);
            ToVariant(answer).MoveTo(result);
        }
        return S_OK;
    }

    macro::Ref<macro::Object> target;
    AppObject* own;
};

} // namespace

ComPtr<IDispatch> DispatchFor(const macro::Ref<macro::Object>& object)
{
    const auto found = LiveObjects().find(IdentityOf(*object));
    if (found != LiveObjects().end()) {
        return ComPtr<IDispatch>::Share(found->second);
    }
    ComPtr<DispatchObject> made = MakeObject<DispatchObject>(object);
    return ComPtr<IDispatch>::Share(made.get());
}

macro::Ref<macro::Object> ObjectBehind(IUnknown* dispatch)
{
    ComPtr<IDispatch> own;
    if (dispatch == nullptr || dispatch->QueryInterface(kOwnObject, own.putVoid()) < 0) {
        return nullptr;
    }
    return static_cast<DispatchObject*>(own.get())->Target();
}

size_t DispatchObjectCount()
{
    return LiveObjects().size();
}

} // namespace tv::app
