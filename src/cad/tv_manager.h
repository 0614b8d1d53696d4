// TVManager: owner of the one CAD application process of a task run. It starts a private, hidden process, attaches to
// it by its process id, has it run macros, hears its events, restarts it when it has grown old, and ends it.
#pragma once

#include "cad/add_in_suppression.h"
#include "cad/event_sink.h"
#include "cad/output_names.h"
#include "cad/watchdog.h"
#include "interfaces/application.h"
#include "interfaces/vault.h"
#include "platform/platform.h"

#include <atomic>
#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace tv {

class CTVDocument;
class VaultFiles;

/// What a look at the application's memory found.
enum class MemoryCheck
{
    BaselineTaken = 0,
    Fine = 1,
    RestartDue = 2,
    Unknown = 3
};

/// Whether an operation waits for the process to end.
enum class Waiting
{
    No,
    Yes
};

/// One per add-in object, reused from run to run. All of it runs on the run thread; the watchdog thread reads
/// `processId` alone.
///
/// \code
/// manager.SuppressStartupAddIns(StartupAddIns::Suppress);
/// manager.Configure(outputs, kind, instance, 2013);
/// if (manager.StartApplication() >= 0) { manager.RunMacro(text); manager.MaintainApplication(); }
/// manager.CloseApplication(Waiting::Yes, 0);
/// manager.SuppressStartupAddIns(StartupAddIns::Restore);
/// \endcode
class TVManager final : private EventHandler
{
  public:
    explicit TVManager(Platform& services);
    ~TVManager() override;
    TVManager(const TVManager&) = delete;
    TVManager& operator=(const TVManager&) = delete;

    /// Stores the run's settings. Empties the map of documents without detaching them, so no application may be
    /// attached. A task of kind 1 has its choice of sheets and configurations read; an absent variable keeps the field
    /// as it was.
    void Configure(VaultFiles& outputs, int32_t kind, IUnknown* variables, int32_t version);

    /// Starts a process, attaches to it and hides it. On failure `LastError` tells why, where there are words for it.
    Result StartApplication();
    /// Closes what `code` says about the application, then starts anew.
    Result RestartApplication(Result code);
    /// Ends the process: politely unless `code` is a failure, which says that the application isn't trusted to answer.
    Result CloseApplication(Waiting waiting, Result code);

    /// Has the application run the macro's `main`, on fresh applications if need be. Raises a failure.
    void RunMacro(std::u16string_view text);
    /// Restarts an application that has done a hundred things or has grown too large. Runs after every macro; raises.
    void MaintainApplication();
    MemoryCheck CheckMemory();

    void SuppressStartupAddIns(StartupAddIns what);

    /// A new reference; empty while no application is attached.
    ComPtr<ITorvane> GetApplication() const { return application; }

    const std::u16string& LastError() const { return lastError; }
    int32_t RunCount() const { return runCount; }
    int32_t FailureCount() const { return failureCount; }
    int32_t RequestedVersion() const { return requestedVersion; }
    uint16_t MajorRevision() const { return majorRevision; }
    bool RegressionMode() const { return regressionMode; }
    bool ForceRegression() const { return forceRegression; }
    uint32_t ProcessId() const { return processId; }
    int32_t TaskKind() const { return taskKind; }
    const OutputChoice& SheetChoice() const { return sheets; }
    const OutputChoice& ConfigurationChoice() const { return configurations; }
    size_t DocumentCount() const { return documents.size(); }

    /// What the sinks of documents and views call.
    /// @{
    Platform& Services() const { return platform; }
    VaultFiles* OutputRegister() const { return outputRegister; }
    void CountOutput() { ++runCount; }
    void RemoveDocument(const CTVDocument& document);
    /// Hangs a sink on every open document that has none yet. The first failure ends it.
    Result RefreshDocuments();
    /// @}

  private:
    void OnEvent(int32_t event, std::span<const VARIANT> arguments) override;

    bool LaunchAndAttach(const GUID& classId, Result& attached);
    bool AttachToProcess(Result& attached);
    Result PrepareApplication();
    Result ReadRevision();
    Result SetPreferences();
    Result HideApplication();
    Result HideMainWindow();
    Result AddDocument(const ComPtr<ITorvaneDocument>& document, const ComPtr<IUnknown>& identity);
    void DetachAll();
    Result QuitPolitely();
    bool WaitForEnd(Process& process, int tries);
    Result TerminateApplication(Process& process, Waiting waiting, Result code);
    void CountRestart();

    struct MacroOutcome
    {
        Result result = 0;
        bool succeeded = false;
        int32_t error = 0;
    };
    MacroOutcome RunWithRetries(const std::u16string& path);
    MacroOutcome CallMacro(const std::u16string& path);

    Platform& platform;
    bool regressionMode = false;
    bool freshStart = false;
    ComPtr<ITorvane> application;
    std::map<IUnknown*, std::shared_ptr<CTVDocument>> documents;
    uint16_t majorRevision = 0;
    std::u16string lastError;
    VaultFiles* outputRegister = nullptr;
    std::atomic<uint32_t> processId{0};
    int32_t requestedVersion = 0;
    int32_t runCount = 0;
    uint64_t baseWorkingSet = 0;
    Watchdog watchdog;
    int32_t taskKind = 0;
    int32_t failureCount = 0;
    AddInSuppression suppression;
    OutputChoice sheets;
    OutputChoice configurations;
    bool forceRegression = false;
    SinkConnection connection;
};

} // namespace tv
