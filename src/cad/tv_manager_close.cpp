// How the application is ended.
#include "cad/tv_manager.h"

#include "cad/manager_texts.h"
#include "cad/tv_document.h"

namespace tv {

namespace {

constexpr int kGraceTries = 11;
constexpr int kTriesAfterTerminate = 46;
constexpr uint32_t kTryInterval = 1000;
constexpr uint32_t kKilledExitCode = 255;

} // namespace

Result TVManager::CloseApplication(Waiting waiting, Result code)
{
    DetachAll();
    const std::unique_ptr<Process> process =
        platform.processes.Open(processId, kProcessTerminate | kProcessReadMemory | kProcessQuery);
    if (!application) {
        code = E_POINTER;
    } else if (code >= 0) {
        code = QuitPolitely();
    }
    if (process == nullptr) {
        lastError.clear();
    } else if (code < 0 || !WaitForEnd(*process, waiting == Waiting::Yes ? kGraceTries : 1)) {
        code = TerminateApplication(*process, waiting, code);
    }
    application.reset();
    // A polite close that failed is a success once the process is gone; only words that are left over make the code count.
    return lastError.empty() ? 0 : code;
}

Result TVManager::QuitPolitely()
{
    Result result = application->SetInteractive(false);
    if (result >= 0) {
        result = application->SetAppSwitch(30, true);
    }
    if (result >= 0) {
        result = application->SetMainWindowShown(false);
    }
    if (result >= 0) {
        bool done = false;
        result = application->CloseAllDocuments(true, &done);
    }
    if (result >= 0) {
        result = application->ExitApplication();
    }
    return result;
}

bool TVManager::WaitForEnd(Process& process, int tries)
{
    for (int i = 0; i < tries; ++i) {
        platform.clock.Sleep(kTryInterval);
        uint32_t exitCode = kStillActive;
        if (process.GetExitCode(exitCode) && exitCode != kStillActive) {
            return true;
        }
    }
    return false;
}

Result TVManager::TerminateApplication(Process& process, Waiting waiting, Result code)
{
    const bool terminated = process.Terminate(kKilledExitCode);
    const bool failed = waiting == Waiting::Yes ? !WaitForEnd(process, kTriesAfterTerminate) : terminated;
    if (!failed) {
        return code;
    }
    lastError = CloseFailedText();
    return code < 0 ? code : E_FAIL;
}

} // namespace tv
