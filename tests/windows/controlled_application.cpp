#include "controlled_application.h"

#include "application_macros.h"
#include "cad/watchdog.h"
#include "com/guid.h"
#include "com/result.h"
#include "interfaces/ids.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tv {

namespace {

constexpr ULONGLONG kPatience = 60'000;
constexpr uint32_t kLooksOfTheWatchdog = 10;

constexpr char kDrawing[] = R"({"format": "torvane-drawing", "version": 1, "units": "mm", "activeSheet": "Second",
  "sheets": [{"name": "First", "format": "A4"}, {"name": "Second", "format": "A3", "views": [
    {"name": "Front", "model": "part.tvnprt", "projection": "front", "position": [100, 100]}]}]})";

/// Until it is so, at most a minute.
bool Await(const std::function<bool()>& isSo)
{
    const ULONGLONG deadline = GetTickCount64() + kPatience;
    while (!isSo()) {
        if (GetTickCount64() > deadline) {
            return false;
        }
        ::Sleep(10);
    }
    return true;
}

std::string Narrow(std::u16string_view text)
{
    return {text.begin(), text.end()};
}

} // namespace

std::vector<RegistryPlace> ApplicationPlaces()
{
    const std::u16string id = GuidText(kLocalApplicationClass);
    const std::wstring classes = L"SOFTWARE\\Classes\\";
    return {{HKEY_CURRENT_USER, L"Software\\Torvane"},
            {HKEY_LOCAL_MACHINE, L"SOFTWARE\\Torvane"},
            {HKEY_LOCAL_MACHINE, classes + L"Torvane.Application"},
            {HKEY_LOCAL_MACHINE, classes + L"Torvane.Application.21"},
            {HKEY_LOCAL_MACHINE, classes + L"CLSID\\" + std::wstring(id.begin(), id.end())}};
}

std::vector<std::string> ValueLines(const std::vector<RegistryPlace>& places)
{
    std::vector<std::string> values;
    for (const RegistryPlace& place : places) {
        for (const std::string& line : place.Lines()) {
            if (line.find(" type ") != std::string::npos) {
                values.push_back(line);
            }
        }
    }
    return values;
}

ControlledApplication::ControlledApplication()
{
    SchedulerDialogSeen() = false;
    folder.Write(u"part.tvnprt", kBoxPart);
    folder.Write(u"drawing.tvndrw", kDrawing);
    std::filesystem::create_directory(folder.PathOf(u"out"));
    filesBefore = FileNames();
    valuesBefore = ValueLines(ApplicationPlaces());
}

void ControlledApplication::Configure(std::u16string_view faults, Pace pace, int32_t kind, int32_t version)
{
    folder.AskFaults(faults, CountedOver::AllProcesses);
    clock.SetPace(pace);
    EXPECT_EQ(outputs.Reset(vault.Get(), kind, ExistingFiles::NewVersion), 0);
    manager.Configure(outputs, kind, task.get(), version);
}

Outcome ControlledApplication::Do(uint32_t divisor, const std::function<Result()>& step)
{
    clock.SetDivisor(divisor);
    const uint32_t before = clock.Waited();
    const Result code = step();
    return {code, Narrow(manager.LastError()), clock.Waited() - before};
}

Outcome ControlledApplication::Start()
{
    return Do(CountedClock::kAttachDivisor, [&] { return manager.StartApplication(); });
}

Outcome ControlledApplication::Restart(Result code)
{
    return Do(CountedClock::kAttachDivisor, [&] { return manager.RestartApplication(code); });
}

Outcome ControlledApplication::Close(Result code)
{
    return Do(CountedClock::kEndDivisor, [&] { return manager.CloseApplication(Waiting::Yes, code); });
}

Outcome ControlledApplication::RunMacro(std::u16string_view text)
{
    return Do(CountedClock::kEndDivisor, [&]() -> Result {
        try {
            manager.RunMacro(text);
            return 0;
        } catch (const ResultError& error) {
            return error.Code();
        }
    });
}

Outcome ControlledApplication::Maintain()
{
    return Do(CountedClock::kEndDivisor, [&]() -> Result {
        try {
            manager.MaintainApplication();
            return 0;
        } catch (const ResultError& error) {
            return error.Code();
        }
    });
}

std::u16string ControlledApplication::SavingMacro(std::u16string_view name) const
{
    return MacroWriter()
        .Open(folder.PathOf(u"part.tvnprt"))
        .SaveAs(folder.PathOf(u"out\\" + std::u16string(name)))
        .Close()
        .Text();
}

std::u16string ControlledApplication::DrawingMacro() const
{
    return MacroWriter()
        .Open(folder.PathOf(u"drawing.tvndrw"))
        .SaveAs(folder.PathOf(u"out\\copy.tvndrw"))
        .Close()
        .Text();
}

bool ControlledApplication::IsRunning(uint32_t id)
{
    const std::unique_ptr<Process> process = machine.Get().processes.Open(id, kProcessQuery);
    uint32_t exitCode = kStillActive;
    return process != nullptr && process->GetExitCode(exitCode) && exitCode == kStillActive;
}

bool ControlledApplication::HasSettled(uint32_t id) const
{
    const std::vector<TranscriptLine> lines = folder.Transcript();
    return std::ranges::any_of(lines, [id](const TranscriptLine& line) {
        return line.process == id && (line.text == "registered" || line.text.starts_with("fault "));
    });
}

AwaitedWorld ControlledApplication::World()
{
    return {[this] { return folder.TranscriptSize(); }, [this] { return IsRunning(manager.ProcessId()); },
            [this] { return HasSettled(manager.ProcessId()); }};
}

bool ControlledApplication::AwaitEnd()
{
    return Await([this] { return machine.Get().processes.Open(manager.ProcessId(), kProcessQuery) == nullptr; });
}

bool ControlledApplication::AwaitLine(const std::string& beginning) const
{
    return Await([&] { return !Lines(beginning).empty(); });
}

void ControlledApplication::Kill()
{
    const std::unique_ptr<Process> process = machine.Get().processes.Open(manager.ProcessId(), kProcessTerminate);
    EXPECT_TRUE(process != nullptr && process->Terminate(1));
}

WindowHandle ControlledApplication::FindWindowTitled(std::u16string_view title)
{
    DesktopService& desktop = machine.Get().desktop;
    WindowHandle window = desktop.TopWindow();
    while (window != 0 && (desktop.ProcessOf(window) != manager.ProcessId() || desktop.TitleOf(window) != title)) {
        window = desktop.NextWindow(window);
    }
    return window;
}

bool ControlledApplication::AnswerByHand(std::u16string_view title)
{
    DesktopService& desktop = machine.Get().desktop;
    const bool isShown = AwaitLine("dialog shown \"" + Narrow(title) + "\"");
    const uint32_t looksBefore = clock.Looks();
    const bool isSeen = Await([&] { return clock.Looks() >= looksBefore + kLooksOfTheWatchdog; });
    const WindowHandle dialog = FindWindowTitled(title);
    desktop.Post(dialog, kMessageKeyDown, kKeyReturn, 0);
    desktop.Post(dialog, kMessageKeyUp, kKeyReturn, 0);
    return isShown && isSeen && dialog != 0;
}

std::vector<std::string> ControlledApplication::Lines(const std::string& beginning) const
{
    std::vector<std::string> found;
    for (const TranscriptLine& line : folder.Transcript()) {
        if (line.text.starts_with(beginning)) {
            found.push_back(line.text);
        }
    }
    return found;
}

std::vector<std::string> ControlledApplication::Starts() const
{
    std::vector<std::string> starts = Lines("started");
    for (std::string& line : starts) {
        line.erase(0, std::string("started ").size());
    }
    return starts;
}

std::vector<std::string> ControlledApplication::Outputs() const
{
    std::vector<std::string> found;
    for (const TaskFile& file : outputs.Outputs()) {
        found.push_back(Narrow(std::u16string_view(file.path).substr(file.path.rfind(u'\\') + 1)) + " [" +
                        Narrow(file.outputConf) + "]");
    }
    return found;
}

std::vector<std::string> ControlledApplication::FileNames() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.PathOf(u""))) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> ControlledApplication::LeftBehind()
{
    std::vector<std::string> left;
    for (const TranscriptLine& line : folder.Transcript()) {
        if (line.text.starts_with("started") && !Await([&] { return !IsRunning(line.process); })) {
            left.push_back("process " + std::to_string(line.process));
        }
    }
    for (const std::string& name : FileNames()) {
        if (name != "transcript.txt" && name != "counts.txt" && !std::ranges::binary_search(filesBefore, name)) {
            left.push_back("file " + name);
        }
    }
    const std::vector<std::string> values = ValueLines(ApplicationPlaces());
    for (const std::string& value : values) {
        if (std::ranges::find(valuesBefore, value) == valuesBefore.end()) {
            left.push_back("value " + value);
        }
    }
    for (const std::string& value : valuesBefore) {
        if (std::ranges::find(values, value) == values.end()) {
            left.push_back("no value " + value);
        }
    }
    return left;
}

} // namespace tv
