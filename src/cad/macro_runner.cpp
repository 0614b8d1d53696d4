// How the application is had to run a macro.
#include "cad/tv_manager.h"

#include "cad/macro_file.h"
#include "cad/manager_texts.h"
#include "cad/tv_document.h"
#include "com/result.h"
#include "support/settings.h"

#include <algorithm>

namespace tv {

namespace {

constexpr char16_t kModule[] = u"TVMacro1";
constexpr char16_t kProcedure[] = u"main";
constexpr uint16_t kFirstRevisionWithErrorCode = 17;

std::u16string ReadScriptCopyPath(RegistryService& registry)
{
    SettingsLight settings(registry);
    Registry key(registry);
    std::u16string path;
    Registry* user = settings.GetUserKey();
    if (user != nullptr && key.Create(user->Key(), u"TVTaskAddIn", kKeyReadWrite) == kErrorSuccess) {
        key.ReadString(u"ScriptCopyPath", path);
    }
    return path;
}

} // namespace

void TVManager::RunMacro(std::u16string_view text)
{
    MacroFile file(platform.files, text);
    MacroOutcome outcome;
    outcome.result = file.Rename();
    if (outcome.result >= 0) {
        outcome = RunWithRetries(file.Path());
    }
    if (const std::u16string copyPath = ReadScriptCopyPath(platform.registry); !copyPath.empty()) {
        file.CopyTo(copyPath);
    }
    file.Delete();
    if (outcome.result < 0 || !outcome.succeeded) {
        lastError = MacroFailedText(outcome.error);
        throw ResultError(outcome.result < 0 ? outcome.result : E_FAIL);
    }
}

TVManager::MacroOutcome TVManager::RunWithRetries(const std::u16string& path)
{
    // A manager that has had restarts lately tries less often; a count of 0 still means one run.
    int32_t attemptsLeft = std::max(0, 3 - failureCount / 3);
    MacroOutcome outcome;
    do {
        outcome = CallMacro(path);
        const bool schedulerSeen = SchedulerDialogSeen();
        if (schedulerSeen) {
            attemptsLeft = 2;
            outcome.result = E_FAIL;
        }
        if (schedulerSeen || (outcome.result < 0 && attemptsLeft > 1)) {
            if (const Result restarted = RestartApplication(outcome.result); restarted < 0) {
                outcome.result = restarted;
                break;
            }
        } else {
            // Also after the last failure: a file that fails three times doesn't weigh on the next one.
            failureCount = 0;
        }
    } while (outcome.result < 0 && --attemptsLeft > 0);
    return outcome;
}

TVManager::MacroOutcome TVManager::CallMacro(const std::u16string& path)
{
    const WatchedSection watched(watchdog);
    MacroOutcome outcome;
    if (!application) {
        outcome.result = E_POINTER;
    } else if (majorRevision >= kFirstRevisionWithErrorCode) {
        outcome.result = application->RunMacroEx(path.c_str(), kModule, kProcedure, 0, &outcome.error,
                                                 &outcome.succeeded);
    } else {
        outcome.result = application->RunMacro(path.c_str(), kModule, kProcedure, &outcome.succeeded);
    }
    return outcome;
}

} // namespace tv
