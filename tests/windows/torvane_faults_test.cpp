// The CAD application's faults, each on the real process: started, watched, and gone at the end.
#include "application_fixture.h"
#include "application_macros.h"

#include "com/com_object.h"

#include <psapi.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>

namespace tv {

namespace {

/// Long enough for an application that works to have shown it.
constexpr DWORD kAWhile = 3'000;
constexpr DWORD kCrashed = 0xC0000005;

struct Wanted
{
    DWORD process;
    const wchar_t* title;
    HWND found;
};

BOOL CALLBACK CompareWindow(HWND window, LPARAM parameter)
{
    auto* const wanted = reinterpret_cast<Wanted*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    wchar_t title[260] = {};
    GetWindowTextW(window, title, 260);
    if (owner != wanted->process || std::wstring(title) != wanted->title) {
        return TRUE;
    }
    wanted->found = window;
    return FALSE;
}

/// Works beside a call that is waiting.
class Helper
{
  public:
    explicit Helper(std::function<void()> work) : body(std::move(work))
    {
        thread = CreateThread(nullptr, 0, Run, this, 0, nullptr);
    }
    Helper(const Helper&) = delete;
    Helper& operator=(const Helper&) = delete;
    ~Helper()
    {
        WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }

  private:
    static DWORD WINAPI Run(LPVOID self)
    {
        static_cast<Helper*>(self)->body();
        return 0;
    }

    std::function<void()> body;
    HANDLE thread = nullptr;
};

/// Calls the application back at each event.
class CallingSink final : public ComObject<IDispatch>
{
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        onEvent();
        return S_OK;
    }

    std::function<void()> onEvent = [] {};
};

class TorvaneFaults : public ApplicationFixture
{
  protected:
    void SetUp() override
    {
        ApplicationFixture::SetUp();
        transcript = folder + L"\\transcript.txt";
        SetEnvironmentVariableW(L"TORVANE_TRANSCRIPT", transcript.c_str());
        written.push_back(transcript);
    }

    void TearDown() override
    {
        for (const wchar_t* name : {L"TORVANE_TRANSCRIPT", L"TORVANE_FAULTS", L"TORVANE_FAULT_COUNTER"}) {
            SetEnvironmentVariableW(name, nullptr);
        }
        ApplicationFixture::TearDown();
    }

    /// Starts the application without waiting for anything.
    void LaunchWith(const std::wstring& faults, const std::wstring& arguments = L"/B")
    {
        SetEnvironmentVariableW(L"TORVANE_FAULTS", faults.c_str());
        Launch(arguments);
    }

    /// Starts the application and attaches to it.
    void Start(const std::wstring& faults, const std::wstring& arguments = L"/B")
    {
        LaunchWith(faults, arguments);
        Attach();
        ASSERT_TRUE(application) << "the application didn't register";
    }

    /// Exit code of the process once it has ended; 259 while it goes on.
    DWORD ExitCode(DWORD patience = kPatience)
    {
        DWORD code = STILL_ACTIVE;
        if (WaitForSingleObject(process.hProcess, patience) == WAIT_OBJECT_0) {
            GetExitCodeProcess(process.hProcess, &code);
        }
        return code;
    }

    using ApplicationFixture::Try;
    HRESULT Try(const wchar_t* name)
    {
        Variant answer;
        return Try(application.get(), name, {}, answer);
    }

    MacroAnswer RunMacro(const std::string& text) { return RunMacroFile(Write(L"macro.tvb", text)); }

    HWND FindTitle(const wchar_t* title, DWORD patience = kPatience)
    {
        const ULONGLONG deadline = GetTickCount64() + patience;
        do {
            Wanted wanted{process.dwProcessId, title, nullptr};
            EnumWindows(CompareWindow, reinterpret_cast<LPARAM>(&wanted));
            if (wanted.found != nullptr) {
                return wanted.found;
            }
            Sleep(50);
        } while (GetTickCount64() < deadline);
        return nullptr;
    }

    static void Press(HWND window, WPARAM key)
    {
        PostMessageW(window, WM_KEYDOWN, key, 0);
        PostMessageW(window, WM_KEYUP, key, 0);
    }

    /// The transcript without process ids.
    std::vector<std::string> Lines()
    {
        std::vector<std::string> lines;
        std::ifstream file(Narrow(transcript), std::ios::binary);
        for (std::string line; std::getline(file, line);) {
            line.erase(0, line.find(' ') + 1);
            lines.push_back(line.substr(0, line.find('\r')));
        }
        return lines;
    }

    bool HasLine(const std::string& wanted)
    {
        const std::vector<std::string> lines = Lines();
        return std::find(lines.begin(), lines.end(), wanted) != lines.end();
    }

    bool AwaitLine(const std::string& wanted)
    {
        const ULONGLONG deadline = GetTickCount64() + kPatience;
        while (!HasLine(wanted) && GetTickCount64() < deadline) {
            Sleep(50);
        }
        return HasLine(wanted);
    }

    std::wstring transcript;
};

constexpr char kDoesNothing[] = "Sub main()\r\nEnd Sub\r\n";

} // namespace

TEST_F(TorvaneFaults, AnUnknownFaultEndsTheStartWithCode2)
{
    LaunchWith(L"explode");
    EXPECT_EQ(ExitCode(), 2u);
    EXPECT_EQ(Lines(), std::vector<std::string>{"error There is no fault \"explode\"."});
}

TEST_F(TorvaneFaults, TheCommandLineAsksForFaultsToo)
{
    LaunchWith(L"", L"\"/faults:crash@1\" /B");
    EXPECT_EQ(ExitCode(), kCrashed);
}

TEST_F(TorvaneFaults, AnApplicationThatNeverRegistersGoesOnWithoutBeingFound)
{
    LaunchWith(L"never-register");
    EXPECT_NE(FindTitle(L"Torvane 2013"), nullptr);
    Attach(kAWhile);
    EXPECT_FALSE(application);
    EXPECT_EQ(ExitCode(0), 259u);
}

TEST_F(TorvaneFaults, ALateApplicationRegistersAfterItsSeconds)
{
    const ULONGLONG begin = GetTickCount64();
    Start(L"register-late:seconds=3");
    EXPECT_GE(GetTickCount64() - begin, 3000u);
}

TEST_F(TorvaneFaults, OnlyTheSecondStartCrashesWhenAFileCounts)
{
    const std::wstring counts = folder + L"\\counts.txt";
    written.push_back(counts);
    SetEnvironmentVariableW(L"TORVANE_FAULT_COUNTER", counts.c_str());
    Start(L"crash@2");
    LaunchWith(L"crash@2");
    EXPECT_EQ(ExitCode(), kCrashed);
    Start(L"crash@2");
}

TEST_F(TorvaneFaults, ACrashInAMacroFailsTheCallAndEndsTheProcess)
{
    Start(L"crash:at=macro@2");
    EXPECT_EQ(RunMacro(kDoesNothing).result, S_OK);
    EXPECT_LT(RunMacro(kDoesNothing).result, 0);
    EXPECT_EQ(ExitCode(), kCrashed);
    EXPECT_FALSE(HasLine("ended"));
}

TEST_F(TorvaneFaults, ACrashAtASaveLeavesTheAnnouncementAndNoFile)
{
    Start(L"crash:at=save");
    const std::wstring part = Write(L"part.tvnprt", kBoxPart);
    const std::wstring copy = folder + L"\\copy.tvnprt";
    EXPECT_LT(RunMacro("Sub main()\r\n  Dim errors As Long, warnings As Long\r\n"
                       "  Set app = Application.Torvane\r\n  Set spec = app.GetOpenDocSpec(\"" +
                       Narrow(part) + "\")\r\n  Set model = app.OpenDoc7(spec)\r\n  saved = model.Extension.SaveAs(\"" +
                       Narrow(copy) + "\", 0, 1, Nothing, errors, warnings)\r\nEnd Sub\r\n")
                  .result,
              0);
    EXPECT_EQ(ExitCode(), kCrashed);
    EXPECT_TRUE(HasLine("event DPartDocEvents 7 \"" + Narrow(copy) + "\""));
    EXPECT_EQ(GetFileAttributesW(copy.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(TorvaneFaults, AHangInAMacroEndsOnlyWithTheProcess)
{
    Start(L"hang");
    DWORD seen = 0;
    const Helper helper([&] {
        seen = WaitForSingleObject(process.hProcess, kAWhile);
        TerminateProcess(process.hProcess, 255);
    });
    EXPECT_LT(RunMacro(kDoesNothing).result, 0);
    EXPECT_EQ(ExitCode(), 255u);
    EXPECT_EQ(seen, static_cast<DWORD>(WAIT_TIMEOUT));
}

TEST_F(TorvaneFaults, AHangOnCloseAnswersTheRequestAndStays)
{
    Start(L"hang:at=close");
    EXPECT_EQ(Try(L"ExitApplication"), S_OK);
    EXPECT_TRUE(AwaitLine("fault hang at close"));
    EXPECT_EQ(ExitCode(kAWhile), 259u);
    EXPECT_FALSE(HasLine("ended"));
    application.release(); // nobody would answer the release
}

TEST_F(TorvaneFaults, AnIgnoredExitLeavesTheApplicationAtWork)
{
    Start(L"ignore-exit@1");
    EXPECT_EQ(Try(L"ExitApplication"), S_OK);
    EXPECT_EQ(ExitCode(kAWhile), 259u);
    EXPECT_EQ(Try(L"RevisionNumber"), S_OK);
    EXPECT_EQ(Try(L"ExitApplication"), S_OK);
    EXPECT_EQ(ExitCode(), 0u);
}

TEST_F(TorvaneFaults, ALeakShowsInTheWorkingSet)
{
    Start(L"leak:mib=64");
    PROCESS_MEMORY_COUNTERS before{};
    PROCESS_MEMORY_COUNTERS after{};
    ASSERT_TRUE(GetProcessMemoryInfo(process.hProcess, &before, sizeof before));
    EXPECT_TRUE(RunMacro(kDoesNothing).succeeded);
    EXPECT_TRUE(RunMacro(kDoesNothing).succeeded);
    ASSERT_TRUE(GetProcessMemoryInfo(process.hProcess, &after, sizeof after));
    EXPECT_GE(after.WorkingSetSize, before.WorkingSetSize + 100u * 1024 * 1024);
}

TEST_F(TorvaneFaults, AMacroFailsWithTheAskedCodeAndWithoutOne)
{
    Start(L"fail-macro:code=23@1;fail-macro@2");
    const MacroAnswer first = RunMacro(kDoesNothing);
    EXPECT_EQ(first.result, S_OK);
    EXPECT_FALSE(first.succeeded);
    EXPECT_EQ(first.error, 23);
    const MacroAnswer second = RunMacro(kDoesNothing);
    EXPECT_FALSE(second.succeeded);
    EXPECT_EQ(second.error, 0);
    EXPECT_TRUE(RunMacro(kDoesNothing).succeeded);
}

TEST_F(TorvaneFaults, AMemberGivesTheAskedResultCode)
{
    Start(L"throw:member=Frame,code=0x80010105@2");
    EXPECT_EQ(Try(L"Frame"), S_OK);
    EXPECT_EQ(Try(L"Frame"), static_cast<HRESULT>(0x80010105));
    EXPECT_EQ(Try(L"Frame"), S_OK);
}

TEST_F(TorvaneFaults, ItGoesAwayWhileAListenerHandlesAnEvent)
{
    Start(L"go-away:event=22");
    ComPtr<IConnectionPointContainer> container;
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(application.As(container), S_OK);
    ASSERT_EQ(container->FindConnectionPoint(kInterfaceId<DTorvaneEvents>, point.put()), S_OK);
    const ComPtr<CallingSink> sink = MakeObject<CallingSink>();
    HRESULT heard = S_OK;
    sink->onEvent = [&] { heard = Try(L"GetFirstDocument"); };
    DWORD cookie = 0;
    ASSERT_EQ(point->Advise(sink.get(), &cookie), S_OK);
    const std::wstring part = Write(L"part.tvnprt", kBoxPart);
    EXPECT_LT(RunMacro("Sub main()\r\n  Set app = Application.Torvane\r\n  Set spec = app.GetOpenDocSpec(\"" +
                       Narrow(part) + "\")\r\n  Set model = app.OpenDoc7(spec)\r\nEnd Sub\r\n")
                  .result,
              0);
    EXPECT_LT(heard, 0);
    EXPECT_EQ(ExitCode(), kCrashed);
}

TEST_F(TorvaneFaults, EachDialogStandsUntilItIsAnsweredByItsKey)
{
    struct Row
    {
        const wchar_t* fault;
        const wchar_t* title;
        UINT wrong;
        UINT right; ///< virtual key, 0 for a close request
        const char* line;
    };
    constexpr Row kRows[] = {
        {L"scheduler-dialog", L"Local Torvane Task Scheduler", VK_ESCAPE, VK_RETURN,
         "dialog answered \"Local Torvane Task Scheduler\" return"},
        {L"error-box", L"Microsoft Visual Basic", VK_ESCAPE, VK_RETURN,
         "dialog answered \"Microsoft Visual Basic\" return"},
        {L"break-window", L"Microsoft Visual Basic [break] - TVMacro1", VK_RETURN, 0,
         "dialog answered \"Microsoft Visual Basic [break] - TVMacro1\" close"},
        {L"child-dialog", L"Formlyn", VK_RETURN, VK_ESCAPE, "dialog answered \"Formlyn\" escape"},
        {L"dialog:title='Save; really?',key=escape", L"Save; really?", VK_RETURN, VK_ESCAPE,
         "dialog answered \"Save; really?\" escape"},
    };
    for (const Row& row : kRows) {
        Start(row.fault);
        bool stoodOn = false;
        {
            const Helper helper([&] {
                Press(FindTitle(row.title), row.wrong);
                Sleep(500); // for a dialog that would take the wrong key
                const HWND dialog = FindTitle(row.title, 0);
                stoodOn = dialog != nullptr;
                if (row.right == 0) {
                    PostMessageW(dialog, WM_CLOSE, 0, 0);
                } else {
                    Press(dialog, row.right);
                }
            });
            EXPECT_TRUE(RunMacro(kDoesNothing).succeeded) << Narrow(row.title);
        }
        EXPECT_TRUE(stoodOn) << Narrow(row.title);
        EXPECT_TRUE(HasLine(row.line)) << row.line;
        EXPECT_EQ(FindTitle(row.title, 0), nullptr);
    }
}

TEST_F(TorvaneFaults, ADialogBeforeRegisteringKeepsTheApplicationFromBeingFound)
{
    LaunchWith(L"child-dialog:at=start,parent=Torvane 2013 start");
    const HWND dialog = FindTitle(L"Formlyn");
    ASSERT_NE(dialog, nullptr);
    wchar_t parent[260] = {};
    GetWindowTextW(GetParent(dialog), parent, 260);
    EXPECT_STREQ(parent, L"Torvane 2013 start");
    Attach(1000);
    EXPECT_FALSE(application);
    Press(dialog, VK_ESCAPE);
    Attach(kPatience);
    EXPECT_TRUE(application);
}

TEST_F(TorvaneFaults, TheRevisionIsTheAskedOneAndBelow17ThereIsNoRunMacroEx)
{
    Start(L"revision=16.2.0");
    Variant revision;
    EXPECT_EQ(Try(application.get(), L"RevisionNumber", {}, revision), S_OK);
    EXPECT_EQ(revision.ToText(), u"16.2.0");
    EXPECT_EQ(RunMacro(kDoesNothing).result, static_cast<HRESULT>(0x80020003));
}

TEST_F(TorvaneFaults, TheTranscriptTellsTheWholeStay)
{
    Start(L"", L"/R");
    const Variant preference = Variant::FromInt(290);
    const Variant on = Variant::FromBool(true);
    Variant answer;
    EXPECT_EQ(Try(application.get(), L"SetUserPreferenceToggle", {*preference.get(), *on.get()}, answer), S_OK);
    EXPECT_EQ(Try(application.get(), L"GetUserPreferenceToggle", {*preference.get()}, answer), S_OK);
    EXPECT_TRUE(answer.ToBool());
    EXPECT_EQ(Try(L"ExitApplication"), S_OK);
    EXPECT_EQ(ExitCode(), 0u);
    EXPECT_EQ(Lines(), (std::vector<std::string>{
                           "started /R", "registered", "call Torvane.setuserpreferencetoggle 290 True",
                           "call Torvane.getuserpreferencetoggle 290", "call Torvane.exitapplication", "ended"}));
}

} // namespace tv
