// The CAD application as a program: started, found in the running object table, driven by name, heard, and ended.
#include "com/bstring.h"
#include "com/com_object.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "interfaces/application.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

TV_IID(IRunningObjectTable, "00000010-0000-0000-c000-000000000046");
TV_IID(IMoniker, "0000000f-0000-0000-c000-000000000046");

namespace tv {

namespace {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
constexpr DWORD kPatience = 60'000;

std::wstring ProgramFolder()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    for (int level = 0; level < 2; ++level) {
        path.resize(path.rfind(L'\\'));
    }
    return path;
}

/// Notes each event as its number and its arguments.
class Sink final : public ComObject<IDispatch>
{
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        std::u16string line = Variant::FromInt(static_cast<int32_t>(member)).ToText();
        for (UINT i = params->cArgs; i > 0; --i) {
            line += u" " + Variant::Copy(params->rgvarg[i - 1]).ToText();
        }
        heard.push_back(line);
        onEvent(static_cast<int32_t>(member));
        return S_OK;
    }

    std::vector<std::u16string> heard;
    std::function<void(int32_t)> onEvent = [](int32_t) {};
};

class TorvaneTest : public testing::Test
{
  protected:
    void SetUp() override
    {
        ASSERT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), 0);
        wchar_t temporary[MAX_PATH + 1] = {};
        GetTempPathW(MAX_PATH + 1, temporary);
        folder = temporary + (L"torvane_test_" + std::to_wstring(GetCurrentProcessId()));
        CreateDirectoryW(folder.c_str(), nullptr);
        Start();
    }

    void TearDown() override
    {
        application.reset();
        if (process.hProcess != nullptr) {
            if (WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT) {
                TerminateProcess(process.hProcess, 255);
            }
            CloseHandle(process.hProcess);
            CloseHandle(process.hThread);
        }
        for (const std::wstring& file : written) {
            DeleteFileW(file.c_str());
        }
        RemoveDirectoryW(folder.c_str());
        CoUninitialize();
    }

    void Start()
    {
        STARTUPINFOW start{};
        start.cb = sizeof start;
        std::wstring command = ProgramFolder() + L"\\TORVANE.EXE /B";
        ASSERT_TRUE(
            CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
        const std::wstring name = L"Torvane_PID_" + std::to_wstring(process.dwProcessId);
        const DWORD deadline = GetTickCount() + kPatience;
        while (!application && GetTickCount() < deadline) {
            ComPtr<IRunningObjectTable> table;
            ComPtr<IMoniker> moniker;
            ComPtr<IUnknown> object;
            ASSERT_GE(GetRunningObjectTable(0, table.put()), 0);
            ASSERT_GE(CreateItemMoniker(L"", name.c_str(), moniker.put()), 0);
            if (table->GetObjectW(moniker.get(), object.put()) == S_OK) {
                ASSERT_GE(object.As(application), 0);
            } else {
                Sleep(50);
            }
        }
        ASSERT_TRUE(application) << "the application didn't register";
    }

    /// Calls a member by name; the arguments are borrowed.
    static Variant Call(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments = {})
    {
        std::reverse(arguments.begin(), arguments.end());
        auto* text = const_cast<LPOLESTR>(name);
        DISPID member = 0;
        EXPECT_EQ(object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &member), S_OK);
        DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        Variant answer;
        EXPECT_EQ(object->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kRead, &params, answer.put(), nullptr, nullptr),
                  S_OK);
        return answer;
    }

    std::wstring Write(const wchar_t* name, const std::string& text)
    {
        const std::wstring path = folder + L"\\" + name;
        std::ofstream(std::string(path.begin(), path.end()), std::ios::binary) << text;
        written.push_back(path);
        return path;
    }

    /// Runs a macro file; the code that RunMacroEx tells goes to `error`.
    bool RunMacro(const std::wstring& path, LONG& error)
    {
        const Variant file = Variant::FromText(std::u16string(path.begin(), path.end()));
        const Variant module = Variant::FromText(u"TVMacro1");
        const Variant procedure = Variant::FromText(u"main");
        const Variant options = Variant::FromInt(0);
        VARIANT code{};
        code.vt = VT_BYREF | VT_I4;
        code.plVal = &error;
        return Call(application.get(), L"RunMacroEx",
                    {*file.get(), *module.get(), *procedure.get(), *options.get(), code})
            .ToBool();
    }

    std::wstring folder;
    std::vector<std::wstring> written;
    PROCESS_INFORMATION process{};
    ComPtr<IDispatch> application;
};

constexpr char kPart[] = R"({"format": "torvane-part", "version": 1, "units": "mm", "activeConfiguration": "Default",
  "configurations": [{"name": "Default", "features": [{"type": "box", "size": [10, 20, 30]}]}]})";

std::string AsText(const std::wstring& path)
{
    return std::string(path.begin(), path.end());
}

} // namespace

TEST_F(TorvaneTest, ItTellsItsRevisionAndHasAMainWindowOfItsOwn)
{
    EXPECT_EQ(Call(application.get(), L"RevisionNumber").ToText(), u"21.1.0");
    const Variant frame = Call(application.get(), L"Frame");
    ASSERT_EQ(frame.Type(), VT_DISPATCH);
    const Variant handle = Call(frame.get()->pdispVal, L"GetWindowHandle");
    ASSERT_EQ(handle.Type(), VT_I8);
    const HWND window = reinterpret_cast<HWND>(static_cast<intptr_t>(handle.get()->llVal));
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    EXPECT_EQ(owner, process.dwProcessId);
    wchar_t title[64] = {};
    GetWindowTextW(window, title, 64);
    EXPECT_STREQ(title, L"Torvane 2013");
}

TEST_F(TorvaneTest, AMacrosSaveIsHeardDuringTheCallAndBeforeTheFileIsThere)
{
    const std::wstring part = Write(L"part.tvnprt", kPart);
    const std::wstring copy = folder + L"\\copy.tvnprt";
    written.push_back(copy);
    const std::wstring macro = Write(L"save.tvb", "Sub main()\r\n"
                                                  "  Dim errors As Long, warnings As Long\r\n"
                                                  "  Set app = Application.Torvane\r\n"
                                                  "  Set spec = app.GetOpenDocSpec(\"" +
                                                      AsText(part) +
                                                      "\")\r\n"
                                                      "  Set model = app.OpenDoc7(spec)\r\n"
                                                      "  If Not model.Extension.SaveAs(\"" +
                                                      AsText(copy) +
                                                      "\", 0, 1, Nothing, errors, warnings) Then Err.Raise 5\r\n"
                                                      "End Sub\r\n");
    ComPtr<IConnectionPointContainer> container;
    ASSERT_EQ(application.As(container), S_OK);
    ComPtr<IConnectionPoint> point;
    ASSERT_EQ(container->FindConnectionPoint(kInterfaceId<DTorvaneEvents>, point.put()), S_OK);
    const ComPtr<Sink> events = MakeObject<Sink>();
    const ComPtr<Sink> saves = MakeObject<Sink>();
    DWORD cookie = 0;
    DWORD savesCookie = 0;
    ASSERT_EQ(point->Advise(events.get(), &cookie), S_OK);
    // As the add-in does: the listener hangs itself on a document as soon as it hears of it.
    events->onEvent = [&](int32_t event) {
        if (event != kEventDocumentOpened) {
            return;
        }
        const Variant document = Call(application.get(), L"GetFirstDocument");
        ComPtr<IConnectionPointContainer> documentEvents;
        ComPtr<IConnectionPoint> documentPoint;
        ASSERT_EQ(QueryFor(document.get()->pdispVal, documentEvents), S_OK);
        ASSERT_EQ(documentEvents->FindConnectionPoint(kInterfaceId<DPartDocEvents>, documentPoint.put()), S_OK);
        ASSERT_EQ(documentPoint->Advise(saves.get(), &savesCookie), S_OK);
    };
    bool thereAlready = true;
    saves->onEvent = [&](int32_t event) {
        if (event == kEventDocumentWritten) {
            thereAlready = GetFileAttributesW(copy.c_str()) != INVALID_FILE_ATTRIBUTES;
        }
    };
    LONG error = -1;
    EXPECT_TRUE(RunMacro(macro, error));
    EXPECT_EQ(error, 0);
    ASSERT_EQ(saves->heard.size(), 1u);
    EXPECT_EQ(saves->heard[0], u"7 " + std::u16string(copy.begin(), copy.end()));
    EXPECT_FALSE(thereAlready);
    EXPECT_NE(GetFileAttributesW(copy.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(TorvaneTest, AFailedMacroTellsItsCode)
{
    LONG error = -1;
    EXPECT_FALSE(RunMacro(folder + L"\\missing.tvb", error));
    EXPECT_EQ(error, 28);
    EXPECT_FALSE(RunMacro(Write(L"other.tvb", "Sub other()\r\nEnd Sub\r\n"), error));
    EXPECT_EQ(error, 6);
    EXPECT_FALSE(RunMacro(Write(L"mismatch.tvb", "Sub main()\r\n  x = \"a\" + 1\r\nEnd Sub\r\n"), error));
    EXPECT_EQ(error, 14);
    EXPECT_FALSE(RunMacro(Write(L"raise.tvb", "Sub main()\r\n  Err.Raise 1000\r\nEnd Sub\r\n"), error));
    EXPECT_EQ(error, 12);
    EXPECT_FALSE(RunMacro(Write(L"syntax.tvb", "Sub main(\r\n"), error));
    EXPECT_EQ(error, 20);
}

TEST_F(TorvaneTest, ItEndsWhenItIsAskedTo)
{
    Call(application.get(), L"ExitApplication");
    EXPECT_EQ(WaitForSingleObject(process.hProcess, kPatience), WAIT_OBJECT_0);
    DWORD code = 99;
    GetExitCodeProcess(process.hProcess, &code);
    EXPECT_EQ(code, 0u);
}

} // namespace tv
