#include "host/connected_application_win32.h"

#include "com/bstring.h"
#include "vault/text.h"

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <thread>

TV_IID(IRunningObjectTable, "00000010-0000-0000-c000-000000000046");
TV_IID(IMoniker, "0000000f-0000-0000-c000-000000000046");

namespace tv::local {

namespace {

using std::chrono::milliseconds;

constexpr UINT kKilledCode = 255;
constexpr DWORD kKillPatienceMs = 5000;
constexpr WORD kCall = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr int64_t kTicksPerMillisecond = 10'000;
constexpr int64_t kMillisecondsFrom1601To1970 = 11'644'473'600'000;

/// Calls a member by name; the arguments are borrowed. False when the object doesn't answer or refuses.
bool CallMember(IDispatch& object, const wchar_t* member, std::vector<VARIANT> arguments, Variant& answer)
{
    auto* name = const_cast<LPOLESTR>(member);
    DISPID id = 0;
    const GUID none{};
    if (object.GetIDsOfNames(none, &name, 1, LOCALE_USER_DEFAULT, &id) < 0) {
        return false;
    }
    std::ranges::reverse(arguments);
    DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object.Invoke(id, none, LOCALE_USER_DEFAULT, kCall, &params, answer.put(), nullptr, nullptr) >= 0;
}

ComPtr<IDispatch> FindObject(DWORD processId)
{
    ComPtr<IRunningObjectTable> table;
    ComPtr<IMoniker> moniker;
    ComPtr<IUnknown> object;
    ComPtr<IDispatch> application;
    const std::wstring name = L"Torvane_PID_" + std::to_wstring(processId);
    if (GetRunningObjectTable(0, table.put()) >= 0 && CreateItemMoniker(L"", name.c_str(), moniker.put()) >= 0 &&
        table->GetObjectW(moniker.get(), object.put()) == S_OK) {
        object.As(application);
    }
    return application;
}

/// The object that a member gives; null for none.
ComPtr<IDispatch> ObjectOf(IDispatch& owner, const wchar_t* member)
{
    Variant answer;
    ComPtr<IDispatch> object;
    if (CallMember(owner, member, {}, answer) && answer.get()->vt == VT_DISPATCH && answer.get()->pdispVal != nullptr) {
        object = ComPtr<IDispatch>::Share(answer.get()->pdispVal);
    }
    return object;
}

std::string TextOfMember(IDispatch& owner, const wchar_t* member)
{
    Variant answer;
    return CallMember(owner, member, {}, answer) ? Utf8(answer.ToText()) : std::string();
}

/// Asks on the calling thread, however long it takes.
ApplicationDetails AskDetails(DWORD processId)
{
    ApplicationDetails details;
    const ComPtr<IDispatch> application = FindObject(processId);
    if (!application) {
        return details;
    }
    details.revision = TextOfMember(*application.get(), L"RevisionNumber");
    details.answered = !details.revision.empty();
    for (ComPtr<IDispatch> document = ObjectOf(*application.get(), L"GetFirstDocument"); document;
         document = ObjectOf(*document.get(), L"GetNextDocument")) {
        const std::string path = TextOfMember(*document.get(), L"GetPathName");
        details.documents.push_back(path.empty() ? TextOfMember(*document.get(), L"GetTitle") : path);
    }
    return details;
}

/// What a thread that may never come back hands over.
struct Answer
{
    std::mutex lock;
    std::condition_variable changed;
    std::optional<ApplicationDetails> details;
};

/// Applications before this major revision run macros by an older member, which tells no code.
bool HasNoRunMacroEx(const std::string& revision)
{
    constexpr int kFirstWithRunMacroEx = 17;
    const int major = std::atoi(revision.c_str());
    return major > 0 && major < kFirstWithRunMacroEx;
}

DWORD Milliseconds(milliseconds time)
{
    return static_cast<DWORD>(std::clamp<int64_t>(time.count(), 0, INFINITE - 1));
}

/// Ends a process when its time is up, unless it has ended by then.
class Deadline
{
  public:
    Deadline(HANDLE process, milliseconds patience)
        : cancelled(CreateEventW(nullptr, TRUE, FALSE, nullptr)), thread([this, process, patience] {
              const HANDLE either[] = {process, cancelled.get()};
              if (WaitForMultipleObjects(2, either, FALSE, Milliseconds(patience)) == WAIT_TIMEOUT) {
                  passed = true;
                  TerminateProcess(process, kKilledCode);
              }
          })
    {}
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    ~Deadline() { Join(); }

    void Cancel()
    {
        SetEvent(cancelled.get());
        Join();
    }
    /// Waits for the end of the process or of its time; true when its time was up.
    bool Wait()
    {
        Join();
        return passed;
    }

  private:
    void Join()
    {
        if (thread.joinable()) {
            thread.join();
        }
    }

    Handle cancelled;
    bool passed = false;
    std::thread thread;
};

} // namespace

std::wstring Wide(std::string_view text)
{
    const std::u16string units = Utf16(text);
    return std::wstring(units.begin(), units.end());
}

std::string Narrow(std::wstring_view text)
{
    return Utf8(std::u16string(text.begin(), text.end()));
}

int64_t CreationTime(HANDLE process)
{
    FILETIME created{};
    FILETIME ended{};
    FILETIME kernel{};
    FILETIME user{};
    if (!GetProcessTimes(process, &created, &ended, &kernel, &user)) {
        return 0;
    }
    const int64_t ticks = static_cast<int64_t>(created.dwHighDateTime) << 32 | created.dwLowDateTime;
    return ticks / kTicksPerMillisecond - kMillisecondsFrom1601To1970;
}

ProcessIdentity ConnectedApplication::Identity() const
{
    return {static_cast<int32_t>(processId), CreationTime(process.get())};
}

std::string ConnectedApplication::Revision()
{
    return Connect() ? TextOfMember(*application.get(), L"RevisionNumber") : std::string();
}

MacroCall ConnectedApplication::RunMacro(const std::string& path, const std::string& procedure)
{
    const Variant file = Variant::FromText(Utf16(path));
    const Variant module = Variant::FromText(u"TVMacro1");
    const Variant name = Variant::FromText(Utf16(procedure));
    const Variant options = Variant::FromInt(0);
    LONG code = 0;
    VARIANT codeBack{};
    codeBack.vt = VT_BYREF | VT_I4;
    codeBack.plVal = &code;
    Variant answer;
    MacroCall call;
    if (!Connect()) {
        return call;
    }
    call.answered = HasNoRunMacroEx(Revision())
                        ? CallMember(*application.get(), L"RunMacro", {*file.get(), *module.get(), *name.get()}, answer)
                        : CallMember(*application.get(), L"RunMacroEx",
                                     {*file.get(), *module.get(), *name.get(), *options.get(), codeBack}, answer);
    call.succeeded = call.answered && answer.ToBool();
    call.code = static_cast<int32_t>(code);
    return call;
}

ApplicationDetails ConnectedApplication::Details(milliseconds patience)
{
    // A call to an application that is busy or hangs can't be taken back; the thread that waits for it is left behind.
    const auto answer = std::make_shared<Answer>();
    std::thread([answer, id = processId] {
        const HRESULT initialized = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        ApplicationDetails details = AskDetails(id);
        {
            const std::lock_guard guard(answer->lock);
            answer->details = std::move(details);
        }
        answer->changed.notify_all();
        if (SUCCEEDED(initialized)) {
            CoUninitialize();
        }
    }).detach();
    std::unique_lock guard(answer->lock);
    answer->changed.wait_for(guard, patience, [&] { return answer->details.has_value(); });
    return answer->details.value_or(ApplicationDetails());
}

bool ConnectedApplication::ExitPolitely()
{
    Variant answer;
    const Variant force = Variant::FromBool(true);
    return Connect() && CallMember(*application.get(), L"CloseAllDocuments", {*force.get()}, answer) &&
           CallMember(*application.get(), L"ExitApplication", {}, answer);
}

ApplicationEnd ConnectedApplication::End(milliseconds patience)
{
    if (HasEnded({})) {
        return ApplicationEnd::Politely;
    }
    // An application that hangs doesn't answer; its end lets the call come back.
    Deadline deadline(process.get(), patience);
    if (!ExitPolitely()) {
        deadline.Cancel();
    }
    const bool isInTime = !deadline.Wait() && HasEnded({});
    Kill();
    if (!HasEnded({})) {
        return ApplicationEnd::NotEnded;
    }
    return isInTime ? ApplicationEnd::Politely : ApplicationEnd::ByForce;
}

void ConnectedApplication::Kill() noexcept
{
    if (!HasEnded({})) {
        TerminateProcess(process.get(), kKilledCode);
        WaitForSingleObject(process.get(), kKillPatienceMs);
    }
}

bool ConnectedApplication::HasEnded(milliseconds patience) const
{
    return WaitForSingleObject(process.get(), Milliseconds(patience)) == WAIT_OBJECT_0;
}

bool ConnectedApplication::Connect()
{
    if (!application) {
        application = FindObject(processId);
    }
    return static_cast<bool>(application);
}

} // namespace tv::local
