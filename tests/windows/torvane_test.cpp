// The CAD application as a program: started, found in the running object table, driven by name, heard, and ended.
#include "application_fixture.h"
#include "application_macros.h"

#include "com/com_object.h"

#include <functional>

namespace tv {

namespace {

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

class TorvaneTest : public ApplicationFixture
{
  protected:
    void SetUp() override
    {
        ApplicationFixture::SetUp();
        Launch();
        Attach();
        ASSERT_TRUE(application) << "the application didn't register";
    }

    static Variant Call(IDispatch* object, const wchar_t* name)
    {
        Variant answer;
        EXPECT_EQ(Try(object, name, {}, answer), S_OK);
        return answer;
    }

    /// Runs a macro that fails; returns the code that the application tells of it.
    LONG ErrorOf(const std::wstring& path)
    {
        const MacroAnswer answer = RunMacroFile(path);
        EXPECT_EQ(answer.result, S_OK);
        EXPECT_FALSE(answer.succeeded);
        return answer.error;
    }
};

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
    const std::wstring part = Write(L"part.tvnprt", kBoxPart);
    const std::wstring copy = folder + L"\\copy.tvnprt";
    written.push_back(copy);
    const std::wstring macro = Write(L"save.tvb", "Sub main()\r\n"
                                                  "  Dim errors As Long, warnings As Long\r\n"
                                                  "  Set app = Application.Torvane\r\n"
                                                  "  Set spec = app.GetOpenDocSpec(\"" +
                                                      Narrow(part) +
                                                      "\")\r\n"
                                                      "  Set model = app.OpenDoc7(spec)\r\n"
                                                      "  If Not model.Extension.SaveAs(\"" +
                                                      Narrow(copy) +
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
    const MacroAnswer answer = RunMacroFile(macro);
    EXPECT_TRUE(answer.succeeded);
    EXPECT_EQ(answer.error, 0);
    ASSERT_EQ(saves->heard.size(), 1u);
    EXPECT_EQ(saves->heard[0], u"7 " + std::u16string(copy.begin(), copy.end()));
    EXPECT_FALSE(thereAlready);
    EXPECT_NE(GetFileAttributesW(copy.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(TorvaneTest, AFailedMacroTellsItsCode)
{
    EXPECT_EQ(ErrorOf(folder + L"\\missing.tvb"), 28);
    EXPECT_EQ(ErrorOf(Write(L"other.tvb", "Sub other()\r\nEnd Sub\r\n")), 6);
    EXPECT_EQ(ErrorOf(Write(L"mismatch.tvb", "Sub main()\r\n  x = \"a\" + 1\r\nEnd Sub\r\n")), 14);
    EXPECT_EQ(ErrorOf(Write(L"raise.tvb", "Sub main()\r\n  Err.Raise 1000\r\nEnd Sub\r\n")), 12);
    EXPECT_EQ(ErrorOf(Write(L"syntax.tvb", "Sub main(\r\n")), 20);
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
