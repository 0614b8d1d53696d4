// Prints what the control of the CAD application costs, on the real application: a start, a macro, an event, a close,
// and how much of each is waiting that the rules ask for, in steps of a second. A second table leaves those waits out,
// so that it shows the work alone, and how it grows with the documents that are open, each of which has a sink.
#include "application_folder.h"
#include "application_macros.h"
#include "cad/dispatch_application.h"
#include "cad/installed_versions.h"
#include "cad/tv_manager.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "platform/win32/win32_platform.h"
#include "shortened_clock.h"
#include "support/format.h"
#include "vault/vault_files.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tv {
namespace {

constexpr int32_t kConvertTask = 1;
constexpr int32_t kYear = 2013;
constexpr int kStarts = 5;
constexpr int kMacrosEach = 3;
constexpr int kCalls = 20;
constexpr int kSaves = 20;
constexpr int kRounds = 5;
constexpr int kOpenDocuments[] = {1, 10, 100};

double Milliseconds()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

/// A step that didn't do its work makes every figure worthless.
void Require(bool isDone, const char* step)
{
    if (!isDone) {
        std::fprintf(stderr, "bench_application_control: '%s' didn't do its work\n", step);
        std::exit(1);
    }
}

/// Adds up what the run thread slept.
class CountingClock final : public ClockService
{
  public:
    explicit CountingClock(ClockService& counted) : clock(counted) {}

    void Sleep(uint32_t milliseconds) override
    {
        const double start = Milliseconds();
        clock.Sleep(milliseconds);
        if (GetCurrentThreadId() == runThread) {
            slept += Milliseconds() - start;
        }
    }
    bool GetLocalTime(LocalTime& now) override { return clock.GetLocalTime(now); }

    double slept = 0;

  private:
    ClockService& clock;
    DWORD runThread = GetCurrentThreadId();
};

/// Adds up what the run thread waits for the watchdog, which looks up only once a second.
class CountingThreads final : public ThreadService
{
  public:
    std::unique_ptr<StopEvent> MakeStopEvent() override { return real.MakeStopEvent(); }
    std::unique_ptr<WorkerThread> StartThread(std::function<void()> body) override
    {
        return std::make_unique<Joined>(real.StartThread(std::move(body)), waited);
    }

    double waited = 0;

  private:
    class Joined final : public WorkerThread
    {
      public:
        Joined(std::unique_ptr<WorkerThread> started, double& total) : thread(std::move(started)), waited(total) {}
        void Join() override
        {
            const double start = Milliseconds();
            thread->Join();
            waited += Milliseconds() - start;
        }

      private:
        std::unique_ptr<WorkerThread> thread;
        double& waited;
    };

    win32::Win32Threads real;
};

/// What one call took, and what of it was waiting.
struct Cost
{
    double total = 0;
    double waited = 0;
};

bool IsRunning(ProcessService& processes, uint32_t id)
{
    const std::unique_ptr<Process> process = processes.Open(id, kProcessQuery);
    uint32_t exitCode = kStillActive;
    return process != nullptr && process->GetExitCode(exitCode) && exitCode == kStillActive;
}

ComPtr<IUnknown> FindApplication(RunningObjectsService& running, uint32_t id)
{
    ComPtr<IUnknown> object;
    if (const std::unique_ptr<RunningObjectTable> table = running.GetTable()) {
        table->GetObject(FormatText(u"Torvane_PID_%d", id), object);
    }
    return object;
}

/// The application with nobody listening to it.
class BareApplication
{
  public:
    explicit BareApplication(Platform& services) : platform(services)
    {
        GUID classId{};
        Require(platform.runningObjects.ClassFromProgId(u"Torvane.Application", classId) >= 0, "class");
        const StartCommand command = GetCommandLine(platform.registry, classId, {{}, false, kYear}, false);
        const double start = Milliseconds();
        Require(platform.processes.Start(command.commandLine, kShowMinimized, process) == 0, "process");
        ComPtr<IUnknown> object;
        while (!object && IsRunning(platform.processes, process)) {
            object = FindApplication(platform.runningObjects, process);
        }
        registered = Milliseconds() - start;
        Require(object && AskApplication(object.get(), application) >= 0, "attach");
    }
    BareApplication(const BareApplication&) = delete;
    BareApplication& operator=(const BareApplication&) = delete;
    ~BareApplication()
    {
        application->ExitApplication();
        application.reset();
        while (IsRunning(platform.processes, process)) {
            platform.clock.Sleep(1);
        }
    }

    /// How long the process took until it was found.
    double UntilRegistered() const { return registered; }

    double RunMacro(const std::u16string& path)
    {
        const double start = Milliseconds();
        int32_t error = 0;
        bool succeeded = false;
        const Result called = application->RunMacroEx(path.c_str(), u"TVMacro1", u"main", 0, &error, &succeeded);
        Require(called >= 0 && succeeded, "macro called directly");
        return Milliseconds() - start;
    }

    double CallOnce()
    {
        const double start = Milliseconds();
        Require(application->SetInteractive(false) >= 0, "remote call");
        return Milliseconds() - start;
    }

  private:
    Platform& platform;
    uint32_t process = 0;
    double registered = 0;
    ComPtr<ITorvane> application;
};

enum class Waits
{
    AsTheRulesSay,
    LeftOut
};

/// A manager on the real application.
class World
{
  public:
    World(const ApplicationFolder& folder, Waits rule)
        : counted(rule == Waits::AsTheRulesSay ? static_cast<ClockService&>(realClock) : shortened),
          vault(folder.PathOf(u""), &machine.Get().files)
    {}
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World() { manager.CloseApplication(Waiting::Yes, 0); }

    Cost Start()
    {
        Require(outputs.Reset(vault.Get(), kConvertTask, ExistingFiles::NewVersion) == 0, "reset");
        manager.Configure(outputs, kConvertTask, task.get(), kYear);
        return Measure("start", [this] { return manager.StartApplication() == 0; });
    }

    Cost RunMacro(const std::u16string& text)
    {
        return Measure("macro", [&] {
            manager.RunMacro(text);
            return true;
        });
    }

    Cost Close()
    {
        return Measure("close", [this] { return manager.CloseApplication(Waiting::Yes, 0) == 0; });
    }

    size_t OpenDocuments() const { return manager.DocumentCount(); }
    int32_t RunCount() const { return manager.RunCount(); }

  private:
    template <typename Step> Cost Measure(const char* name, const Step& step)
    {
        const double waitedBefore = counted.slept + threads.waited;
        const double start = Milliseconds();
        Require(step(), name);
        return {Milliseconds() - start, counted.slept + threads.waited - waitedBefore};
    }

    /// Another number once the application is found or has ended.
    uint64_t State()
    {
        const uint32_t process = manager.ProcessId();
        return (IsRunning(machine.Get().processes, process) ? 1 : 0) +
               (FindApplication(machine.Get().runningObjects, process) ? 2 : 0);
    }

    win32::Win32Platform machine{GetModuleHandleW(nullptr)};
    win32::Win32Clock realClock;
    ShortenedClock shortened{[this] { return State(); }};
    CountingClock counted;
    CountingThreads threads;
    Platform platform{machine.Get().registry,  machine.Get().files,
                      machine.Get().processes, machine.Get().runningObjects,
                      machine.Get().desktop,   counted,
                      machine.Get().pipes,     threads,
                      machine.Get().module,    machine.Get().products};
    fakes::FakeVault vault;
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    VaultFiles outputs{platform};
    TVManager manager{platform};
};

struct Spread
{
    double least;
    double median;
    double most;
};

Spread SpreadOf(std::vector<double> values)
{
    std::ranges::sort(values);
    return {values.front(), values[values.size() / 2], values.back()};
}

void PrintCost(const char* name, const std::vector<Cost>& costs)
{
    std::vector<double> totals;
    std::vector<double> waits;
    std::vector<double> works;
    for (const Cost& cost : costs) {
        totals.push_back(cost.total);
        waits.push_back(cost.waited);
        works.push_back(cost.total - cost.waited);
    }
    const Spread total = SpreadOf(totals);
    const Spread work = SpreadOf(works);
    std::printf("%-34s %4zu %9.1f %9.1f %9.1f %9.1f %9.1f %9.1f %9.1f\n", name, costs.size(), total.median, total.least,
                total.most, SpreadOf(waits).median, work.median, work.least, work.most);
}

void PrintWork(const char* name, const std::vector<double>& values)
{
    const Spread spread = SpreadOf(values);
    std::printf("%-34s %4zu %9.2f %9.2f %9.2f\n", name, values.size(), spread.median, spread.least, spread.most);
}

/// What a person waits for: all as in a run.
void PrintWithWaits(const ApplicationFolder& folder)
{
    std::vector<Cost> starts;
    std::vector<Cost> macros;
    std::vector<Cost> closes;
    for (int i = 0; i < kStarts; ++i) {
        World world(folder, Waits::AsTheRulesSay);
        starts.push_back(world.Start());
        for (int macro = 0; macro < kMacrosEach; ++macro) {
            macros.push_back(world.RunMacro(kEmptyMacro));
        }
        closes.push_back(world.Close());
    }
    std::printf("%-34s %4s %29s %9s %29s\n", "As in a run, ms", "runs", "total: median, least, most", "waiting",
                "work: median, least, most");
    PrintCost("start, until it is attached", starts);
    PrintCost("empty macro", macros);
    PrintCost("close", closes);
}

std::u16string Copy(const ApplicationFolder& folder, int number)
{
    return folder.PathOf(FormatText(u"copy%d.tvnprt", number));
}

/// A macro that opens a part, saves copies of it and closes it.
std::u16string SavingMacro(const ApplicationFolder& folder, int copies)
{
    MacroWriter macro;
    macro.Open(folder.PathOf(u"saved.tvnprt"));
    for (int i = 0; i < copies; ++i) {
        macro.SaveAs(Copy(folder, i));
    }
    return macro.Close().Text();
}

std::u16string WriteMacro(const ApplicationFolder& folder, std::u16string_view name, const std::u16string& text)
{
    folder.Write(name, std::string(text.begin(), text.end()));
    return folder.PathOf(name);
}

/// Milliseconds of one save, without the opening and closing around it.
template <typename Run> std::vector<double> SaveCosts(const Run& run)
{
    std::vector<double> costs;
    for (int i = 0; i < kRounds; ++i) {
        const double without = run(0);
        costs.push_back((run(kSaves) - without) / kSaves);
    }
    return costs;
}

void PrintBare(const ApplicationFolder& folder, Platform& platform)
{
    std::vector<double> registered;
    std::vector<double> calls;
    std::vector<double> macros;
    std::vector<double> saves;
    const std::u16string empty = WriteMacro(folder, u"empty.tvb", kEmptyMacro);
    for (int i = 0; i < kStarts; ++i) {
        BareApplication application(platform);
        registered.push_back(application.UntilRegistered());
        for (int call = 0; call < kCalls; ++call) {
            calls.push_back(application.CallOnce());
            macros.push_back(application.RunMacro(empty));
        }
    }
    {
        BareApplication application(platform);
        saves = SaveCosts([&](int copies) {
            return application.RunMacro(WriteMacro(folder, u"saving.tvb", SavingMacro(folder, copies)));
        });
    }
    std::printf("\n%-34s %4s %29s\n", "The application alone, ms", "runs", "median, least, most");
    PrintWork("process until it is found", registered);
    PrintWork("call by name", calls);
    PrintWork("empty macro", macros);
    PrintWork("save without a listener", saves);
}

double Work(const Cost& cost)
{
    return cost.total - cost.waited;
}

/// The work of a macro, of a save with its event, and of opening and closing another document, with documents open.
void PrintGrowth(const ApplicationFolder& folder)
{
    std::printf("\n%-34s %4s %29s\n", "Work with the waits left out, ms", "runs", "median, least, most");
    World world(folder, Waits::LeftOut);
    world.Start();
    int open = 0;
    for (const int wanted : kOpenDocuments) {
        MacroWriter opening;
        while (open < wanted) {
            const std::u16string name = FormatText(u"open%d.tvnprt", open++);
            folder.Write(name, kBoxPart);
            opening.Open(folder.PathOf(name));
        }
        const double opened = Work(world.RunMacro(opening.Text()));
        Require(world.OpenDocuments() == static_cast<size_t>(wanted), "opening documents");
        std::printf("%d open, opened in %.1f\n", wanted, opened);
        std::vector<double> macros;
        std::vector<double> visits;
        for (int i = 0; i < kCalls; ++i) {
            macros.push_back(Work(world.RunMacro(kEmptyMacro)));
            visits.push_back(Work(world.RunMacro(SavingMacro(folder, 0))) - macros.back());
        }
        const int32_t countBefore = world.RunCount();
        const std::vector<double> saves =
            SaveCosts([&](int copies) { return Work(world.RunMacro(SavingMacro(folder, copies))); });
        Require(world.RunCount() - countBefore == kRounds * kSaves, "hearing saves");
        PrintWork("  empty macro", macros);
        PrintWork("  save that is heard", saves);
        PrintWork("  another document opens and goes", visits);
    }
    std::vector<double> closes{Work(world.Close())};
    PrintWork("  close", closes);
}

void Run()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
        win32::Win32Platform machine(GetModuleHandleW(nullptr));
        ApplicationFolder folder;
        // A transcript isn't what a run pays for.
        SetEnvironmentVariableW(L"TORVANE_TRANSCRIPT", nullptr);
        folder.Write(u"saved.tvnprt", kBoxPart);
        PrintWithWaits(folder);
        PrintBare(folder, machine.Get());
        PrintGrowth(folder);
    }
    CoUninitialize();
}

} // namespace
} // namespace tv

int main()
{
    tv::Run();
    return 0;
}
