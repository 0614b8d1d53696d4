// Documents and model views of the simulated application.
#pragma once

#include "fakes/application/event_source.h"
#include "interfaces/application.h"

#include <string>
#include <vector>

namespace tv::fakes {

class FakeApplication;

class FakeModelView final : public ComObject<ITorvaneModelView, IConnectionPointContainer>
{
  public:
    explicit FakeModelView(CallScript& callScript)
        : events(callScript, {kInterfaceId<DModelViewEvents>}), script(callScript)
    {}

    Result TV_CALL GetNextModelView(ITorvaneModelView** next) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    ComPtr<FakeModelView> following;
    EventSource events;

  private:
    CallScript& script;
};

/// One text of a drawing view: what it says, and what it is linked to.
struct FakeViewItem
{
    std::u16string text;
    std::u16string linkedText;
};

/// An open document. Type 1 part, 2 assembly, 3 drawing; only a drawing offers ITorvaneDrawing. Any other type opens,
/// too, and offers no events.
class FakeDocument final : public ComObject<ITorvaneDocument, ITorvaneDrawing, IConnectionPointContainer>
{
  public:
    FakeDocument(CallScript& callScript, int32_t documentType, std::u16string documentTitle);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    Result TV_CALL GetDocumentType(int32_t* number) override;
    Result TV_CALL GetNextDocument(ITorvaneDocument** next) override;
    Result TV_CALL GetFirstModelView(ITorvaneModelView** view) override;
    Result TV_CALL GetConfigurationManager(ITorvaneConfigurationManager** manager) override;
    Result TV_CALL GetPrintTarget(BStr* text) override;
    Result TV_CALL GetCurrentSheet(IUnknown** current) override;
    Result TV_CALL GetViewArrays(VARIANT* arrays) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    /// Adds a model view behind the others.
    FakeModelView& AddView();
    /// The event interface of the document's type.
    const GUID& EventId() const;
    int32_t Type() const { return type; }

    std::u16string title;
    std::u16string configuration = u"Default";
    std::u16string sheet = u"Sheet1";
    std::u16string printTarget;
    std::vector<ComPtr<FakeModelView>> views;
    /// Views of the sheets, each with its texts.
    std::vector<std::vector<FakeViewItem>> viewItems;
    /// Set while the document stands in the application's list.
    FakeApplication* owner = nullptr;
    /// When set, the document answers for none of its typed interfaces any more.
    bool withoutTypedInterfaces = false;
    EventSource events;

  private:
    CallScript& script;
    int32_t type;
};

} // namespace tv::fakes
