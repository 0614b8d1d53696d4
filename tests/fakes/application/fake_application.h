// A scripted simulator of the CAD application: documents, views, preferences and macros as a little world in memory, with
// a log of the calls and a script of failures.
#pragma once

#include "com/bstring.h"
#include "com/com_object.h"
#include "com/variant.h"
#include "interfaces/application.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tv::fakes {

/// A call after the server has died.
inline constexpr Result kServerDied = static_cast<Result>(0x800706BAu);

/// What a macro leaves: the call's result code, its success flag and its error code.
struct MacroResult
{
    Result result = 0;
    bool succeeded = true;
    int32_t error = 0;
};

/// Counts the calls by name, keeps them in order and fails those that the script says.
class CallScript
{
  public:
    class Rule
    {
      public:
        /// The call gives this code instead of its work.
        void Fail(Result code) { result = code; }
        Result result = 0;
    };

    /// The nth call of that name, counted from 1.
    Rule& OnCall(int nth, std::u16string_view name) { return rules[{std::u16string(name), nth}]; }
    /// Every call of that name.
    Rule& OnEveryCall(std::u16string_view name) { return rules[{std::u16string(name), 0}]; }

    /// Notes a call; the code that it must give, 0 to go on.
    Result Enter(std::u16string_view name, std::u16string_view arguments = {});

    /// Every call with its arguments, such as "SetInteractive(false)".
    std::vector<std::u16string> calls;
    int CountOf(std::u16string_view name) const;

  private:
    std::map<std::pair<std::u16string, int>, Rule> rules;
    std::map<std::u16string, int> counts;
};

/// The connection points of one object: the sinks by event interface. Fires an event through IDispatch.
class EventSource
{
  public:
    ~EventSource();
    Result Find(IConnectionPointContainer& owner, CallScript& script, REFIID id, IConnectionPoint** point);
    uint32_t Advise(const GUID& id, IUnknown* sink);
    Result Unadvise(uint32_t cookie);
    /// Calls every sink of that interface, each kept alive for its call. The codes that the sinks gave, in order.
    std::vector<Result> Fire(const GUID& id, int32_t event, std::vector<Variant> arguments = {});
    size_t SinkCount(const GUID& id) const;
    size_t SinkCount() const { return sinks.size(); }

    /// Event interfaces that this object has a connection point for.
    std::vector<GUID> offered;

  private:
    struct Sink
    {
        uint32_t cookie;
        GUID id;
        ComPtr<IDispatch> object;
    };
    std::vector<Sink> sinks;
    uint32_t nextCookie = 1;
};

class FakeApplication;

class FakeModelView final : public ComObject<ITorvaneModelView, IConnectionPointContainer>
{
  public:
    explicit FakeModelView(CallScript& callScript);

    Result TV_CALL GetNextModelView(ITorvaneModelView** next) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    ComPtr<FakeModelView> next;
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

/// An open document. Type 1 part, 2 assembly, 3 drawing; only a drawing offers ITorvaneDrawing.
class FakeDocument final : public ComObject<ITorvaneDocument, ITorvaneDrawing, IConnectionPointContainer>
{
  public:
    FakeDocument(CallScript& callScript, int32_t documentType, std::u16string documentTitle);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    Result TV_CALL GetDocumentType(int32_t* type) override;
    Result TV_CALL GetNextDocument(ITorvaneDocument** next) override;
    Result TV_CALL GetFirstModelView(ITorvaneModelView** view) override;
    Result TV_CALL GetConfigurationManager(ITorvaneConfigurationManager** manager) override;
    Result TV_CALL GetPrintTarget(BStr* text) override;
    Result TV_CALL GetCurrentSheet(IUnknown** sheet) override;
    Result TV_CALL GetViewArrays(VARIANT* arrays) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    /// Adds a model view behind the others.
    FakeModelView& AddView();

    std::u16string title;
    std::u16string configuration = u"Default";
    std::u16string sheet = u"Sheet1";
    std::u16string printTarget;
    std::vector<ComPtr<FakeModelView>> views;
    /// Views of the sheets, each with its texts.
    std::vector<std::vector<FakeViewItem>> viewItems;
    /// Set while the document stands in the application's list.
    FakeApplication* owner = nullptr;
    EventSource events;
    /// When set, the document doesn't answer for its typed interfaces any more.
    bool withoutTypedInterfaces = false;

    int32_t Type() const { return type; }
    /// The event interface of the document's type.
    const GUID& EventInterfaceId() const;

  private:
    CallScript& script;
    int32_t type;
};

/// The application object. A test opens, writes, prints and closes documents through it, mostly from within `onMacro`.
class FakeApplication final : public ComObject<ITorvane, IConnectionPointContainer>
{
  public:
    explicit FakeApplication(std::u16string revisionText = u"21.1.0");
    ~FakeApplication() override;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    Result TV_CALL GetRevisionNumber(BStr* revision) override;
    Result TV_CALL SetUserPreferenceToggle(int32_t preference, bool on) override;
    Result TV_CALL GetUserPreferenceToggle(int32_t preference, bool* on) override;
    Result TV_CALL SetUserPreferenceIntegerValue(int32_t preference, int32_t value, bool* done) override;
    Result TV_CALL SetInteractive(bool interactive) override;
    Result TV_CALL SetBackgroundRun(bool background) override;
    Result TV_CALL SetMainWindowShown(bool shown) override;
    Result TV_CALL SetAppSwitch(int32_t number, bool on) override;
    Result TV_CALL GetFrame(IUnknown** frame) override;
    Result TV_CALL CloseAllDocuments(bool force, bool* done) override;
    Result TV_CALL ExitApplication() override;
    Result TV_CALL RunMacro(const char16_t* path, const char16_t* module, const char16_t* procedure,
                            bool* succeeded) override;
    Result TV_CALL RunMacroEx(const char16_t* path, const char16_t* module, const char16_t* procedure, int32_t options,
                              int32_t* error, bool* succeeded) override;
    Result TV_CALL GetFirstDocument(ITorvaneDocument** document) override;
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    /// Opens a document and announces it by the event 22.
    FakeDocument& Open(int32_t type, std::u16string title);
    /// Opens a document that no event announces.
    FakeDocument& OpenSilently(int32_t type, std::u16string title);
    /// Announces a save of the document, then has `onWrite` put the bytes.
    void Write(FakeDocument& document, const std::u16string& path);
    /// Announces a print on every model view, or on the nth only.
    void Print(FakeDocument& document, int onlyView = -1);
    /// Announces the end of the document and takes it from the list.
    void Close(FakeDocument& document);
    /// Fires an event of DTorvaneEvents.
    std::vector<Result> Fire(int32_t event);

    CallScript script;
    EventSource events;
    std::vector<ComPtr<FakeDocument>> documents;
    std::map<int32_t, bool> toggles;
    std::map<int32_t, int32_t> integers;
    std::u16string revision;
    WindowHandle window = 4711;
    bool frameHasInterface = true;
    /// When set, the object answers this code to a query for ITorvane.
    Result queryResult = 0;
    /// Runs a macro; nothing set succeeds. Gets the macro file's path.
    std::function<MacroResult(FakeApplication&, const std::u16string& path)> onMacro;
    /// Puts the bytes of a written document at a path.
    std::function<void(const std::u16string& path)> onWrite;
    /// What leaving the application does to its process.
    std::function<void()> onExit;

  private:
    MacroResult Run(std::u16string_view call, const char16_t* path, const char16_t* module, const char16_t* procedure);
};

} // namespace tv::fakes
