// A scripted simulator of the CAD application: documents, views, preferences and macros as a little world in memory,
// with a log of the calls and a script of failures.
#pragma once

#include "fakes/application/fake_document.h"

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

/// The application object. A test opens, writes, prints and closes documents through it, mostly from within `onMacro`.
class FakeApplication final : public ComObject<ITorvane, IConnectionPointContainer>
{
  public:
    explicit FakeApplication(std::u16string revisionText = u"21.1.0");
    ~FakeApplication() override;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;

    Result TV_CALL GetRevisionNumber(BStr* text) override;
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
    /// Announces a save of the document, then has `onWrite` put the bytes. The codes that the sinks gave.
    std::vector<Result> Write(FakeDocument& document, const std::u16string& path);
    /// Announces a print on one of the model views. The codes that the sinks gave.
    std::vector<Result> Print(FakeDocument& document, size_t view = 0);
    /// Announces the end of the document and takes it from the list.
    void Close(FakeDocument& document);
    /// Fires an event of DTorvaneEvents.
    std::vector<Result> Fire(int32_t event);
    ComPtr<ITorvaneDocument> DocumentBehind(const FakeDocument& document) const;

    CallScript script;
    EventSource events;
    std::vector<ComPtr<FakeDocument>> documents;
    std::map<int32_t, bool> toggles;
    std::map<int32_t, int32_t> integers;
    std::u16string revision;
    WindowHandle window = 4711;
    bool frameHasInterface = true;
    /// When negative, the answer to a query for ITorvane.
    Result queryResult = 0;
    /// Runs a macro; none set succeeds. Gets the macro file's path.
    std::function<MacroResult(FakeApplication&, const std::u16string& path)> onMacro;
    /// Puts the bytes of a written document at a path.
    std::function<void(const std::u16string& path)> onWrite;
    /// What leaving the application does to its process.
    std::function<void()> onExit;

  private:
    MacroResult Run(std::u16string_view call, const char16_t* path, std::u16string_view arguments);
};

} // namespace tv::fakes
