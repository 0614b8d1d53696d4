#include "fakes/application/fake_application.h"

#include "com/bstring.h"

#include <algorithm>

namespace tv::fakes {

namespace {

std::u16string Words(bool truth)
{
    return truth ? u"true" : u"false";
}

std::u16string Words(int32_t number)
{
    const std::string digits = std::to_string(number);
    return std::u16string(digits.begin(), digits.end());
}

class FakeFrame final : public ComObject<ITorvaneFrame>
{
  public:
    FakeFrame(CallScript& callScript, WindowHandle handle) : script(callScript), window(handle) {}
    Result TV_CALL GetWindowHandle(WindowHandle* handle) override
    {
        *handle = window;
        return script.Enter(u"GetWindowHandle");
    }

  private:
    CallScript& script;
    WindowHandle window;
};

/// A frame of an application that has no window of its own to tell.
class BareFrame final : public ComObject<IUnknown>
{};

} // namespace

FakeApplication::FakeApplication(std::u16string revisionText)
    : events(script, {kInterfaceId<DTorvaneEvents>}), revision(std::move(revisionText))
{}

FakeApplication::~FakeApplication()
{
    for (const ComPtr<FakeDocument>& document : documents) {
        document->owner = nullptr;
    }
}

HRESULT FakeApplication::QueryInterface(REFIID id, void** object)
{
    if (id == kInterfaceId<ITorvane> && queryResult < 0) {
        *object = nullptr;
        return queryResult;
    }
    return ComObject::QueryInterface(id, object);
}

Result FakeApplication::GetRevisionNumber(BStr* text)
{
    const Result planned = script.Enter(u"GetRevisionNumber");
    *text = planned < 0 ? nullptr : AllocateText(revision);
    return planned;
}

Result FakeApplication::SetUserPreferenceToggle(int32_t preference, bool on)
{
    toggles[preference] = on;
    return script.Enter(u"SetUserPreferenceToggle", Words(preference) + u", " + Words(on));
}

Result FakeApplication::GetUserPreferenceToggle(int32_t preference, bool* on)
{
    *on = toggles[preference];
    return script.Enter(u"GetUserPreferenceToggle", Words(preference));
}

Result FakeApplication::SetUserPreferenceIntegerValue(int32_t preference, int32_t value, bool* done)
{
    integers[preference] = value;
    *done = false;
    return script.Enter(u"SetUserPreferenceIntegerValue", Words(preference) + u", " + Words(value));
}

Result FakeApplication::SetInteractive(bool interactive)
{
    return script.Enter(u"SetInteractive", Words(interactive));
}

Result FakeApplication::SetBackgroundRun(bool background)
{
    return script.Enter(u"SetBackgroundRun", Words(background));
}

Result FakeApplication::SetMainWindowShown(bool shown)
{
    return script.Enter(u"SetMainWindowShown", Words(shown));
}

Result FakeApplication::SetAppSwitch(int32_t number, bool on)
{
    return script.Enter(u"SetAppSwitch", Words(number) + u", " + Words(on));
}

Result FakeApplication::GetFrame(IUnknown** frame)
{
    *frame = nullptr;
    if (const Result planned = script.Enter(u"GetFrame"); planned < 0) {
        return planned;
    }
    if (frameHasInterface) {
        *frame = MakeObject<FakeFrame>(script, window).release();
    } else {
        *frame = MakeObject<BareFrame>().release();
    }
    return 0;
}

Result FakeApplication::CloseAllDocuments(bool force, bool* done)
{
    *done = false;
    if (const Result planned = script.Enter(u"CloseAllDocuments", Words(force)); planned < 0) {
        return planned;
    }
    while (!documents.empty()) {
        Close(*documents.front().get());
    }
    return 0;
}

Result FakeApplication::ExitApplication()
{
    const Result planned = script.Enter(u"ExitApplication");
    if (planned >= 0 && onExit) {
        onExit();
    }
    return planned;
}

MacroResult FakeApplication::Run(std::u16string_view call, const char16_t* path, std::u16string_view arguments)
{
    if (const Result planned = script.Enter(call, arguments); planned < 0) {
        return {planned, false, 0};
    }
    return onMacro ? onMacro(*this, path) : MacroResult{};
}

Result FakeApplication::RunMacro(const char16_t* path, const char16_t* module, const char16_t* procedure,
                                 bool* succeeded)
{
    const MacroResult outcome = Run(u"RunMacro", path, std::u16string(module) + u", " + procedure);
    *succeeded = outcome.succeeded;
    return outcome.result;
}

Result FakeApplication::RunMacroEx(const char16_t* path, const char16_t* module, const char16_t* procedure,
                                   int32_t options, int32_t* error, bool* succeeded)
{
    const MacroResult outcome =
        Run(u"RunMacroEx", path, std::u16string(module) + u", " + procedure + u", " + Words(options));
    *error = outcome.error;
    *succeeded = outcome.succeeded;
    return outcome.result;
}

Result FakeApplication::GetFirstDocument(ITorvaneDocument** document)
{
    *document = nullptr;
    if (const Result planned = script.Enter(u"GetFirstDocument"); planned < 0) {
        return planned;
    }
    *document = documents.empty() ? nullptr : ComPtr<FakeDocument>(documents.front()).release();
    return 0;
}

HRESULT FakeApplication::EnumConnectionPoints(IEnumConnectionPoints** points)
{
    *points = nullptr;
    return E_NOTIMPL;
}

HRESULT FakeApplication::FindConnectionPoint(REFIID id, IConnectionPoint** point)
{
    return events.Find(id, point);
}

FakeDocument& FakeApplication::Open(int32_t type, std::u16string title)
{
    FakeDocument& document = OpenSilently(type, std::move(title));
    Fire(kEventDocumentOpened);
    return document;
}

FakeDocument& FakeApplication::OpenSilently(int32_t type, std::u16string title)
{
    documents.push_back(MakeObject<FakeDocument>(script, type, std::move(title)));
    documents.back()->owner = this;
    return *documents.back().get();
}

std::vector<Result> FakeApplication::Write(FakeDocument& document, const std::u16string& path)
{
    std::vector<Result> answers =
        document.events.Fire(document.EventId(), kEventDocumentWritten, {Variant::FromText(path)});
    if (onWrite) {
        onWrite(path);
    }
    return answers;
}

std::vector<Result> FakeApplication::Print(FakeDocument& document, size_t view)
{
    return document.views.at(view)->events.Fire(kInterfaceId<DModelViewEvents>, kEventPrinted);
}

void FakeApplication::Close(FakeDocument& document)
{
    const ComPtr<FakeDocument> closing = ComPtr<FakeDocument>::Share(&document);
    closing->events.Fire(closing->EventId(), kEventDocumentGone);
    closing->owner = nullptr;
    std::erase_if(documents, [&](const ComPtr<FakeDocument>& open) { return open.get() == closing.get(); });
}

std::vector<Result> FakeApplication::Fire(int32_t event)
{
    return events.Fire(kInterfaceId<DTorvaneEvents>, event);
}

ComPtr<ITorvaneDocument> FakeApplication::DocumentBehind(const FakeDocument& document) const
{
    auto place =
        std::ranges::find_if(documents, [&](const ComPtr<FakeDocument>& open) { return open.get() == &document; });
    if (place == documents.end() || ++place == documents.end()) {
        return nullptr;
    }
    return ComPtr<ITorvaneDocument>::Share(place->get());
}

} // namespace tv::fakes
