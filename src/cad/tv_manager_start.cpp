// How the application is started, attached to and hidden.
#include "cad/tv_manager.h"

#include "cad/application_class.h"
#include "cad/dispatch_application.h"
#include "cad/event_interfaces.h"
#include "cad/installed_versions.h"
#include "cad/manager_texts.h"
#include "com/bstring.h"
#include "support/format.h"
#include "support/numbers.h"

namespace tv {

namespace {

constexpr int kMostAttachPasses = 120;
constexpr uint32_t kAttachInterval = 1000;
constexpr uint32_t kKilledExitCode = 255;

} // namespace

Result TVManager::StartApplication()
{
    lastError.clear();
    application.reset();
    GUID classId{};
    if (const Result resolved = ResolveApplicationClass(platform.runningObjects, requestedVersion, classId);
        resolved < 0) {
        lastError = NotInstalledText(requestedVersion);
        return resolved;
    }
    Result attached = 0;
    if (!LaunchAndAttach(classId, attached)) {
        lastError = StartFailedText(requestedVersion);
        return E_FAIL;
    }
    if (attached == REGDB_E_CLASSNOTREG) {
        lastError = NotInstalledText(requestedVersion);
    }
    return attached < 0 ? attached : PrepareApplication();
}

bool TVManager::LaunchAndAttach(const GUID& classId, Result& attached)
{
    // The application's own start-up may already show a dialog.
    const WatchedSection watched(watchdog);
    const StartCommand command =
        GetCommandLine(platform.registry, classId, {{}, regressionMode, requestedVersion}, forceRegression);
    regressionMode = command.regressionMode;
    requestedVersion = command.requestedVersion;
    uint32_t startedId = 0;
    const std::u16string_view commandLine = std::u16string_view(command.commandLine).substr(0, kLongestCommandLine);
    const uint32_t started = platform.processes.Start(commandLine, kShowMinimized, startedId);
    processId = startedId;
    return started == 0 && AttachToProcess(attached);
}

bool TVManager::AttachToProcess(Result& attached)
{
    const std::u16string name = FormatText(u"Torvane_PID_%d", processId.load());
    ComPtr<IUnknown> object;
    for (int pass = 0; pass < kMostAttachPasses && !object;) {
        const std::unique_ptr<RunningObjectTable> table = platform.runningObjects.GetTable();
        if (table == nullptr) {
            continue;
        }
        ++pass;
        platform.clock.Sleep(kAttachInterval);
        table->GetObject(name, object);
    }
    if (object) {
        application.reset();
        attached = AskApplication(object.get(), application);
        return true;
    }
    if (const std::unique_ptr<Process> process =
            platform.processes.Open(processId, kProcessTerminate | kProcessReadMemory | kProcessQuery)) {
        process->Terminate(kKilledExitCode);
    }
    return false;
}

Result TVManager::PrepareApplication()
{
    if (const Result read = ReadRevision(); read < 0) {
        lastError = RevisionFailedText();
        return read;
    }
    if (const Result set = SetPreferences(); set < 0) {
        return set;
    }
    if (const Result connected = connection.Connect(application.get(), kApplicationEvents, *this, majorRevision);
        connected < 0) {
        lastError = AttachFailedText();
        return connected;
    }
    application->SetInteractive(false);
    const Result hidden = HideApplication();
    if (hidden < 0) {
        lastError = HideFailedText();
    }
    freshStart = true;
    runCount = 0;
    return hidden;
}

Result TVManager::ReadRevision()
{
    BString revision;
    const Result read = application->GetRevisionNumber(revision.put());
    if (read >= 0) {
        majorRevision = static_cast<uint16_t>(ParseDecimal(revision.View()));
    }
    return read;
}

Result TVManager::SetPreferences()
{
    Result set = application->SetUserPreferenceToggle(290, true);
    if (set >= 0) {
        set = application->SetUserPreferenceToggle(291, true);
    }
    if (set >= 0) {
        bool done = false;
        set = application->SetUserPreferenceIntegerValue(253, 0, &done);
    }
    return set;
}

Result TVManager::HideApplication()
{
    if (const Result set = application->SetBackgroundRun(true); set < 0) {
        return set;
    }
    if (const Result hidden = HideMainWindow(); hidden < 0) {
        return hidden;
    }
    application->SetAppSwitch(30, false);
    return application->SetMainWindowShown(false);
}

Result TVManager::HideMainWindow()
{
    ComPtr<IUnknown> object;
    if (const Result read = application->GetFrame(object.put()); read < 0) {
        return read;
    }
    ComPtr<ITorvaneFrame> frame;
    if (!object || AskApplication(object.get(), frame) < 0) {
        return 0;
    }
    WindowHandle window = 0;
    if (const Result read = frame->GetWindowHandle(&window); read < 0) {
        return read;
    }
    // Maximized first, so that the hidden window has the size that views are laid out by.
    platform.desktop.ShowWindow(window, kShowMaximized);
    platform.desktop.ShowWindow(window, kShowHidden);
    return 0;
}

} // namespace tv
