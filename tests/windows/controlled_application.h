// ControlledApplication: the add-in's owner of the application, set up for a run on the real application with faults,
// and what a test sees of both.
#pragma once

#include "application_folder.h"
#include "cad/tv_manager.h"
#include "counted_clock.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "platform/win32/win32_platform.h"
#include "registry_place.h"
#include "shortened_clock.h"
#include "vault/vault_files.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tv {

class Apartment
{
  public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { CoUninitialize(); }
};

/// What a step of a run came to.
struct Outcome
{
    Result code;            ///< returned or raised
    std::string message;    ///< the manager's last error afterwards
    uint32_t secondsWaited; ///< by the run thread, as asked for
};

/// A part "part.tvnprt" and a drawing of it, "drawing.tvndrw", stand in the folder; macros save into "out".
class ControlledApplication
{
  public:
    ControlledApplication();

    /// Sets up a run of that kind. \param faults counted over all processes of the run
    void Configure(std::u16string_view faults, Pace pace = Pace::Patient, int32_t kind = 1, int32_t version = 2013);

    Outcome Start();
    Outcome Restart(Result code);
    Outcome Close(Result code);
    Outcome RunMacro(std::u16string_view text);
    Outcome Maintain();

    /// A macro that opens the part and saves a copy of it under that name.
    std::u16string SavingMacro(std::u16string_view name = u"copy.tvnprt") const;
    /// A macro that opens the drawing and saves a copy of it.
    std::u16string DrawingMacro() const;

    /// Waits until nothing is left of the application's process, a minute at most. One that was ended can still be
    /// opened for a moment.
    bool AwaitEnd();
    /// Waits until a line of the transcript begins so, a minute at most.
    bool AwaitLine(const std::string& beginning) const;
    /// Ends the process from outside, as an operator does.
    void Kill();
    /// Waits for a dialog, lets the watchdog look at it ten times, and presses Return in it. Works beside a call.
    /// \returns whether the dialog was still there then
    bool AnswerByHand(std::u16string_view title);

    /// Lines that begin so, all of them without the process's id.
    std::vector<std::string> Lines(const std::string& beginning = {}) const;
    /// "/B" or "/R", for each process that was started.
    std::vector<std::string> Starts() const;
    /// Recorded outputs as "name [configuration or sheet]".
    std::vector<std::string> Outputs() const;

    TVManager& Manager() { return manager; }
    const ApplicationFolder& Folder() const { return folder; }

    /// What is left behind: a line for each process that still runs, each changed value of the registry and each file
    /// that is neither a saved output nor the test's own.
    std::vector<std::string> LeftBehind();

  private:
    Outcome Do(uint32_t attachDivisor, const std::function<Result()>& step);
    bool IsRunning(uint32_t process);
    bool HasSettled(uint32_t process) const;
    AwaitedWorld World();
    std::vector<std::string> FileNames() const;
    WindowHandle FindWindowTitled(std::u16string_view title);

    Apartment apartment;
    ApplicationFolder folder;
    win32::Win32Platform machine{GetModuleHandleW(nullptr)};
    CountedClock clock{World()};
    Platform platform = WithClock(machine.Get(), clock);
    fakes::FakeVault vault{folder.PathOf(u""), &machine.Get().files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    VaultFiles outputs{platform};
    TVManager manager{platform};
    std::vector<std::string> filesBefore;
    std::vector<std::string> valuesBefore;
};

/// What the add-in reads and writes of the registry, and what the application registers there.
std::vector<RegistryPlace> ApplicationPlaces();

/// The values that stand below these places, a line each; keys without a value don't count.
std::vector<std::string> ValueLines(const std::vector<RegistryPlace>& places);

} // namespace tv
