#include "fakes/application/fake_document.h"

#include "com/bstring.h"
#include "com/safe_array.h"
#include "fakes/application/fake_application.h"

namespace tv::fakes {

namespace {

constexpr int32_t kPart = 1;
constexpr int32_t kAssembly = 2;
constexpr int32_t kDrawing = 3;

class FakeConfiguration final : public ComObject<ITorvaneConfiguration>
{
  public:
    FakeConfiguration(CallScript& callScript, std::u16string text) : script(callScript), name(std::move(text)) {}
    Result TV_CALL GetName(BStr* text) override
    {
        const Result planned = script.Enter(u"Configuration.GetName");
        *text = planned < 0 ? nullptr : AllocateText(name);
        return planned;
    }

  private:
    CallScript& script;
    std::u16string name;
};

class FakeConfigurationManager final : public ComObject<ITorvaneConfigurationManager>
{
  public:
    FakeConfigurationManager(CallScript& callScript, std::u16string text) : script(callScript), name(std::move(text)) {}
    Result TV_CALL GetActiveConfiguration(ITorvaneConfiguration** configuration) override
    {
        const Result planned = script.Enter(u"GetActiveConfiguration");
        *configuration = planned < 0 ? nullptr : MakeObject<FakeConfiguration>(script, name).release();
        return planned;
    }

  private:
    CallScript& script;
    std::u16string name;
};

class FakeSheet final : public ComObject<ITorvaneSheet>
{
  public:
    FakeSheet(CallScript& callScript, std::u16string text) : script(callScript), name(std::move(text)) {}
    Result TV_CALL GetName(BStr* text) override
    {
        const Result planned = script.Enter(u"Sheet.GetName");
        *text = planned < 0 ? nullptr : AllocateText(name);
        return planned;
    }

  private:
    CallScript& script;
    std::u16string name;
};

class FakeItem final : public ComObject<ITorvaneViewItem>
{
  public:
    FakeItem(FakeDocument& document, size_t viewIndex, size_t itemIndex)
        : owner(ComPtr<FakeDocument>::Share(&document)), view(viewIndex), item(itemIndex)
    {}
    Result TV_CALL GetText(BStr* text) override
    {
        *text = AllocateText(Item().text);
        return 0;
    }
    Result TV_CALL GetLinkedText(BStr* text) override
    {
        *text = AllocateText(Item().linkedText);
        return 0;
    }
    Result TV_CALL SetLinkedText(const char16_t* text) override
    {
        Item().linkedText = text;
        return 0;
    }

  private:
    FakeViewItem& Item() { return owner->viewItems[view][item]; }

    ComPtr<FakeDocument> owner;
    size_t view;
    size_t item;
};

/// An array of objects, each in a variant.
template <typename MakeElement> Variant MakeObjectArray(size_t count, MakeElement makeElement)
{
    SafeArray array = SafeArray::Vector(VT_VARIANT, static_cast<uint32_t>(count));
    {
        const SafeArrayView<VARIANT> elements(array.get());
        for (size_t i = 0; i < count; ++i) {
            Variant element = makeElement(i);
            element.MoveTo(&elements[i]);
        }
    }
    return Variant::FromArray(array.release(), VT_VARIANT);
}

class FakeDrawingView final : public ComObject<ITorvaneView>
{
  public:
    FakeDrawingView(FakeDocument& document, size_t viewIndex)
        : owner(ComPtr<FakeDocument>::Share(&document)), view(viewIndex)
    {}
    Result TV_CALL GetItems(VARIANT* items) override
    {
        MakeObjectArray(owner->viewItems[view].size(), [&](size_t i) {
            return Variant::FromUnknown(MakeObject<FakeItem>(*owner.get(), view, i).get());
        }).MoveTo(items);
        return 0;
    }

  private:
    ComPtr<FakeDocument> owner;
    size_t view;
};

bool IsTypedInterface(REFIID id)
{
    return id == kInterfaceId<ITorvaneDocument> || id == kInterfaceId<ITorvaneDrawing>;
}

std::vector<GUID> EventsOf(int32_t type)
{
    switch (type) {
    case kPart:
        return {kInterfaceId<DPartDocEvents>};
    case kAssembly:
        return {kInterfaceId<DAssemblyDocEvents>};
    case kDrawing:
        return {kInterfaceId<DDrawingDocEvents>};
    default:
        return {};
    }
}

} // namespace

Result FakeModelView::GetNextModelView(ITorvaneModelView** next)
{
    const Result planned = script.Enter(u"GetNextModelView");
    *next = planned < 0 ? nullptr : ComPtr<FakeModelView>(following).release();
    return planned;
}

HRESULT FakeModelView::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    *points = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeModelView::FindConnectionPoint(REFIID id, IConnectionPoint** point)
{
    return events.Find(id, point);
}

FakeDocument::FakeDocument(CallScript& callScript, int32_t documentType, std::u16string documentTitle)
    : title(std::move(documentTitle)), events(callScript, EventsOf(documentType)), script(callScript),
      type(documentType)
{}

HRESULT FakeDocument::QueryInterface(REFIID id, void** object)
{
    const bool isDrawingOnly = id == kInterfaceId<ITorvaneDrawing> && type != kDrawing;
    if (isDrawingOnly || (withoutTypedInterfaces && IsTypedInterface(id))) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    return ComObject::QueryInterface(id, object);
}

Result FakeDocument::GetDocumentType(int32_t* number)
{
    const Result planned = script.Enter(u"GetDocumentType");
    *number = type;
    return planned;
}

Result FakeDocument::GetNextDocument(ITorvaneDocument** next)
{
    *next = nullptr;
    if (const Result planned = script.Enter(u"GetNextDocument"); planned < 0) {
        return planned;
    }
    *next = owner == nullptr ? nullptr : owner->DocumentBehind(*this).release();
    return 0;
}

Result FakeDocument::GetFirstModelView(ITorvaneModelView** view)
{
    *view = nullptr;
    if (const Result planned = script.Enter(u"GetFirstModelView"); planned < 0) {
        return planned;
    }
    *view = views.empty() ? nullptr : ComPtr<FakeModelView>(views.front()).release();
    return 0;
}

Result FakeDocument::GetConfigurationManager(ITorvaneConfigurationManager** manager)
{
    const Result planned = script.Enter(u"GetConfigurationManager");
    *manager = planned < 0 ? nullptr : MakeObject<FakeConfigurationManager>(script, configuration).release();
    return planned;
}

Result FakeDocument::GetPrintTarget(BStr* text)
{
    const Result planned = script.Enter(u"GetPrintTarget");
    *text = planned < 0 ? nullptr : AllocateText(printTarget);
    return planned;
}

Result FakeDocument::GetCurrentSheet(IUnknown** current)
{
    const Result planned = script.Enter(u"GetCurrentSheet");
    *current = planned < 0 ? nullptr : MakeObject<FakeSheet>(script, sheet).release();
    return planned;
}

Result FakeDocument::GetViewArrays(VARIANT* arrays)
{
    if (const Result planned = script.Enter(u"GetViewArrays"); planned < 0) {
        return planned;
    }
    // One array a sheet; here all views stand on one.
    MakeObjectArray(1, [&](size_t) {
        return MakeObjectArray(viewItems.size(), [&](size_t i) {
            return Variant::FromUnknown(MakeObject<FakeDrawingView>(*this, i).get());
        });
    }).MoveTo(arrays);
    return 0;
}

HRESULT FakeDocument::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    *points = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeDocument::FindConnectionPoint(REFIID id, IConnectionPoint** point)
{
    return events.Find(id, point);
}

FakeModelView& FakeDocument::AddView()
{
    ComPtr<FakeModelView> view = MakeObject<FakeModelView>(script);
    if (!views.empty()) {
        views.back()->following = view;
    }
    views.push_back(view);
    return *view.get();
}

const GUID& FakeDocument::EventId() const
{
    return type == kPart       ? kInterfaceId<DPartDocEvents>
           : type == kAssembly ? kInterfaceId<DAssemblyDocEvents>
                               : kInterfaceId<DDrawingDocEvents>;
}

} // namespace tv::fakes
