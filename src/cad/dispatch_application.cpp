#include "cad/dispatch_application.h"

#include "cad/dispatch_object.h"
#include "com/com_object.h"
#include "com/result.h"

namespace tv {

namespace {

/// A proxy answers so when it has no marshalling for an interface, which is the same as not having the interface.
constexpr Result kInterfaceNotRegistered = static_cast<Result>(0x80040155u);
constexpr int32_t kDrawing = 3;

Variant Truth(bool value)
{
    return Variant::FromBool(value);
}

/// One typed interface over a named object. For every other interface, identity included, it is the object itself: two
/// adapters over one document are one document to whoever compares.
template <typename Interface>
class Adapter : public ComObject<Interface>
{
  public:
    explicit Adapter(ComPtr<IDispatch> target) : object(std::move(target)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override
    {
        if (id == kInterfaceId<Interface>) {
            return ComObject<Interface>::QueryInterface(id, found);
        }
        return object.get()->QueryInterface(id, found);
    }

  protected:
    template <typename Class, typename Found>
    Result ReadWrapped(std::u16string_view member, Found** found)
    {
        ComPtr<IDispatch> target;
        const Result read = object.ReadObject(member, target);
        if (read >= 0) {
            *found = target ? MakeObject<Class>(std::move(target)).release() : nullptr;
        }
        return read;
    }

    Result ReadPlain(std::u16string_view member, IUnknown** found)
    {
        ComPtr<IDispatch> target;
        const Result read = object.ReadObject(member, target);
        if (read >= 0) {
            *found = target.release();
        }
        return read;
    }

    Result ReadVariant(std::u16string_view member, VARIANT* value)
    {
        Variant read;
        const Result called = object.Call(member, {}, read);
        if (called >= 0) {
            read.MoveTo(value);
        }
        return called;
    }

    DispatchObject object;
};

class FrameAdapter final : public Adapter<ITorvaneFrame>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetWindowHandle";

    Result TV_CALL GetWindowHandle(WindowHandle* window) override
    {
        return AtBoundary([&] {
            Variant value;
            Result read = object.Call(kTellingMember, {}, value);
            if (read >= 0) {
                read = value.ChangeType(VT_I8);
            }
            if (read >= 0) {
                *window = static_cast<WindowHandle>(value.get()->llVal);
            }
            return read;
        });
    }
};

class ConfigurationAdapter final : public Adapter<ITorvaneConfiguration>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"Name";

    Result TV_CALL GetName(BStr* name) override
    {
        return AtBoundary([&] { return object.ReadText(kTellingMember, name); });
    }
};

class ConfigurationManagerAdapter final : public Adapter<ITorvaneConfigurationManager>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"ActiveConfiguration";

    Result TV_CALL GetActiveConfiguration(ITorvaneConfiguration** configuration) override
    {
        return AtBoundary([&] { return ReadWrapped<ConfigurationAdapter>(kTellingMember, configuration); });
    }
};

class SheetAdapter final : public Adapter<ITorvaneSheet>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetName";

    Result TV_CALL GetName(BStr* name) override
    {
        return AtBoundary([&] { return object.ReadText(kTellingMember, name); });
    }
};

class ModelViewAdapter final : public Adapter<ITorvaneModelView>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetNextModelView";

    Result TV_CALL GetNextModelView(ITorvaneModelView** next) override
    {
        return AtBoundary([&] { return ReadWrapped<ModelViewAdapter>(kTellingMember, next); });
    }
};

class DocumentAdapter final : public Adapter<ITorvaneDocument>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetType";

    Result TV_CALL GetDocumentType(int32_t* type) override
    {
        return AtBoundary([&] { return object.ReadInt(kTellingMember, type); });
    }
    Result TV_CALL GetNextDocument(ITorvaneDocument** next) override
    {
        return AtBoundary([&] { return ReadWrapped<DocumentAdapter>(u"GetNextDocument", next); });
    }
    Result TV_CALL GetFirstModelView(ITorvaneModelView** view) override
    {
        return AtBoundary([&] { return ReadWrapped<ModelViewAdapter>(u"GetFirstModelView", view); });
    }
    Result TV_CALL GetConfigurationManager(ITorvaneConfigurationManager** manager) override
    {
        return AtBoundary([&] { return ReadWrapped<ConfigurationManagerAdapter>(u"ConfigurationManager", manager); });
    }
    Result TV_CALL GetPrintTarget(BStr* text) override
    {
        return AtBoundary([&] { return object.ReadText(u"GetPrintTarget", text); });
    }
};

class DrawingAdapter final : public Adapter<ITorvaneDrawing>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetCurrentSheet";

    Result TV_CALL GetCurrentSheet(IUnknown** sheet) override
    {
        return AtBoundary([&] { return ReadPlain(kTellingMember, sheet); });
    }
    Result TV_CALL GetViewArrays(VARIANT* arrays) override
    {
        return AtBoundary([&] { return ReadVariant(u"GetViewArrays", arrays); });
    }
};

class ViewAdapter final : public Adapter<ITorvaneView>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetItems";

    Result TV_CALL GetItems(VARIANT* items) override
    {
        return AtBoundary([&] { return ReadVariant(kTellingMember, items); });
    }
};

class ViewItemAdapter final : public Adapter<ITorvaneViewItem>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"GetLinkedText";

    Result TV_CALL GetText(BStr* text) override
    {
        return AtBoundary([&] { return object.ReadText(u"GetText", text); });
    }
    Result TV_CALL GetLinkedText(BStr* text) override
    {
        return AtBoundary([&] { return object.ReadText(kTellingMember, text); });
    }
    Result TV_CALL SetLinkedText(const char16_t* text) override
    {
        return AtBoundary([&] { return object.Call(u"SetLinkedText", {Variant::FromText(text).get()}); });
    }
};

/// The application object.
class DispatchApplication final : public Adapter<ITorvane>
{
  public:
    using Adapter::Adapter;
    static constexpr std::u16string_view kTellingMember = u"RevisionNumber";

    Result TV_CALL GetRevisionNumber(BStr* revision) override
    {
        return AtBoundary([&] { return object.ReadText(kTellingMember, revision); });
    }
    Result TV_CALL SetUserPreferenceToggle(int32_t preference, bool on) override
    {
        return AtBoundary([&] {
            return object.Call(u"SetUserPreferenceToggle", {Variant::FromInt(preference).get(), Truth(on).get()});
        });
    }
    Result TV_CALL GetUserPreferenceToggle(int32_t preference, bool* on) override
    {
        return AtBoundary(
            [&] { return object.ReadBool(u"GetUserPreferenceToggle", {Variant::FromInt(preference).get()}, on); });
    }
    Result TV_CALL SetUserPreferenceIntegerValue(int32_t preference, int32_t value, bool* done) override
    {
        return AtBoundary([&] {
            return CallForOutcome(u"SetUserPreferenceIntegerValue",
                                  {Variant::FromInt(preference).get(), Variant::FromInt(value).get()}, done);
        });
    }
    Result TV_CALL SetInteractive(bool interactive) override { return Switch(u"SetInteractive", interactive); }
    Result TV_CALL SetBackgroundRun(bool background) override { return Switch(u"SetBackgroundRun", background); }
    Result TV_CALL SetMainWindowShown(bool shown) override { return Switch(u"SetMainWindowShown", shown); }
    Result TV_CALL SetAppSwitch(int32_t number, bool on) override
    {
        return AtBoundary(
            [&] { return object.Call(u"SetAppSwitch", {Variant::FromInt(number).get(), Truth(on).get()}); });
    }
    Result TV_CALL GetFrame(IUnknown** frame) override
    {
        return AtBoundary([&] { return ReadPlain(u"Frame", frame); });
    }
    Result TV_CALL CloseAllDocuments(bool force, bool* done) override
    {
        return AtBoundary([&] { return CallForOutcome(u"CloseAllDocuments", {Truth(force).get()}, done); });
    }
    Result TV_CALL ExitApplication() override
    {
        return AtBoundary([&] { return object.Call(u"ExitApplication", {}); });
    }
    Result TV_CALL RunMacro(const char16_t* path, const char16_t* module, const char16_t* procedure,
                            bool* succeeded) override
    {
        return AtBoundary([&] {
            return object.ReadBool(u"RunMacro",
                                   {Variant::FromText(path).get(), Variant::FromText(module).get(),
                                    Variant::FromText(procedure).get()},
                                   succeeded);
        });
    }
    Result TV_CALL RunMacroEx(const char16_t* path, const char16_t* module, const char16_t* procedure, int32_t options,
                              int32_t* error, bool* succeeded) override
    {
        return AtBoundary([&] {
            LONG code = 0;
            VARIANT codePlace{};
            codePlace.vt = VT_I4 | VT_BYREF;
            codePlace.plVal = &code;
            const Result called = object.ReadBool(u"RunMacroEx",
                                                  {Variant::FromText(path).get(), Variant::FromText(module).get(),
                                                   Variant::FromText(procedure).get(),
                                                   Variant::FromInt(options).get(), &codePlace},
                                                  succeeded);
            if (called >= 0) {
                *error = static_cast<int32_t>(code);
            }
            return called;
        });
    }
    Result TV_CALL GetFirstDocument(ITorvaneDocument** document) override
    {
        return AtBoundary([&] { return ReadWrapped<DocumentAdapter>(u"GetFirstDocument", document); });
    }

  private:
    Result Switch(std::u16string_view member, bool on)
    {
        return AtBoundary([&] { return object.Call(member, {Truth(on).get()}); });
    }

    /// For members whose outcome nobody looks at: one that gives no value has done its work.
    Result CallForOutcome(std::u16string_view member, std::initializer_list<const VARIANT*> arguments, bool* done)
    {
        Variant value;
        const Result called = object.Call(member, arguments, value);
        if (called >= 0) {
            *done = value.ChangeType(VT_BOOL) < 0 || value.get()->boolVal != kVariantFalse;
        }
        return called;
    }
};

bool FitsDocumentType(IDispatch* target)
{
    ComPtr<IDispatch> document = ComPtr<IDispatch>::Share(target);
    int32_t type = 0;
    return DispatchObject(std::move(document)).ReadInt(DocumentAdapter::kTellingMember, &type) >= 0 &&
           type == kDrawing;
}

template <typename Class, typename Interface>
Result AskOrAdapt(IUnknown* object, ComPtr<Interface>& found)
{
    const Result own = QueryFor(object, found);
    if (own != E_NOINTERFACE && own != kInterfaceNotRegistered) {
        return own;
    }
    ComPtr<IDispatch> target;
    if (QueryFor(object, target) < 0 || !DispatchObject(target).Knows(Class::kTellingMember)) {
        return own;
    }
    if constexpr (std::is_same_v<Interface, ITorvaneDrawing>) {
        if (!FitsDocumentType(target.get())) {
            return E_NOINTERFACE;
        }
    }
    found = ComPtr<Interface>::Adopt(MakeObject<Class>(std::move(target)).release());
    return 0;
}

} // namespace

Result AskApplication(IUnknown* object, ComPtr<ITorvane>& found)
{
    return AskOrAdapt<DispatchApplication>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneFrame>& found)
{
    return AskOrAdapt<FrameAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneDocument>& found)
{
    return AskOrAdapt<DocumentAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneDrawing>& found)
{
    return AskOrAdapt<DrawingAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneSheet>& found)
{
    return AskOrAdapt<SheetAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneConfigurationManager>& found)
{
    return AskOrAdapt<ConfigurationManagerAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneConfiguration>& found)
{
    return AskOrAdapt<ConfigurationAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneModelView>& found)
{
    return AskOrAdapt<ModelViewAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneView>& found)
{
    return AskOrAdapt<ViewAdapter>(object, found);
}

Result AskApplication(IUnknown* object, ComPtr<ITorvaneViewItem>& found)
{
    return AskOrAdapt<ViewItemAdapter>(object, found);
}

} // namespace tv
