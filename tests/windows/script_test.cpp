// Script work that depends on what only Windows has: the module's resources, the user's locale, the thread's code page,
// the installer's products and a combo box.
#include "com/variant.h"
#include "installer_entries.h"
#include "platform/win32/installed_products.h"
#include "platform/win32/module.h"
#include "script/script_resource.h"
#include "script/variable_expansion.h"
#include "script/version_list.h"
#include "templates/script_templates.h"

#include <gtest/gtest.h>

#include <vector>

namespace tv {
namespace {

const wchar_t* Wide(const std::u16string& text)
{
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

/// A real module, but for its message box, which would wait for somebody.
class SilentModule final : public ModuleService
{
  public:
    explicit SilentModule(HINSTANCE handle) : module(handle) {}

    ScriptResource ReadScript(int32_t id) override { return module.ReadScript(id); }
    std::optional<std::u16string> ReadString(int32_t id) override { return module.ReadString(id); }
    std::u16string WideText(std::string_view bytes) override { return module.WideText(bytes); }
    void ShowMessage(std::u16string_view text) override { messages.emplace_back(text); }

    std::vector<std::u16string> messages;

  private:
    win32::Win32Module module;
};

std::wstring ComponentPath()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    for (int level = 0; level < 2; ++level) {
        path.resize(path.rfind(L'\\'));
    }
    return path + L"\\TVTaskAddIn.dll";
}

class ModuleOfTheAddIn : public testing::Test
{
  protected:
    void SetUp() override { ASSERT_NE(component, nullptr); }
    ~ModuleOfTheAddIn() override { FreeLibrary(component); }

    HMODULE component = LoadLibraryExW(ComponentPath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    SilentModule module{component};
};

TEST_F(ModuleOfTheAddIn, CarriesEveryTemplateWithALineFeedBehindIt)
{
    for (const int32_t id : {209, 210, 211}) {
        const std::string_view bytes = ScriptTemplate(id);
        ASSERT_FALSE(bytes.empty()) << id;
        const std::u16string text = ReadScriptResource(module, id);
        ASSERT_EQ(text.size(), bytes.size() + 1) << id;
        EXPECT_EQ(text, std::u16string(bytes.begin(), bytes.end()) + u'\n') << id;
    }
    EXPECT_TRUE(module.messages.empty());
}

TEST_F(ModuleOfTheAddIn, CarriesASkeletonOf105BytesForAdministrators)
{
    EXPECT_EQ(module.ReadScript(211).bytes.size(), 105u);
    EXPECT_EQ(ReadScriptResource(module, 211), u"Option Explicit\r\n"
                                               u"\r\n"
                                               u"Dim tvApp As Object\r\n"
                                               u"\r\n"
                                               u"Public Sub main()\r\n"
                                               u"  Set tvApp = Application.Torvane\r\n"
                                               u"End Sub\r\n"
                                               u"\n");
}

TEST_F(ModuleOfTheAddIn, SaysSoWhenATemplateIsMissing)
{
    EXPECT_EQ(ReadScriptResource(module, 208), u"");
    EXPECT_EQ(module.messages, (std::vector<std::u16string>{u"Could not find Script resource!"}));
}

TEST_F(ModuleOfTheAddIn, HasNoWordsOfItsOwnForADateWithoutText)
{
    EXPECT_EQ(VariantToText(*Variant::FromDate(1e9).get(), module), u"Invalid DateTime");
}

class OwnModule : public testing::Test
{
  protected:
    SilentModule module{GetModuleHandleW(nullptr)};
};

TEST_F(OwnModule, SaysSoWhenAScriptIsEmpty)
{
    EXPECT_EQ(ReadScriptResource(module, 300), u"");
    EXPECT_EQ(module.messages, (std::vector<std::u16string>{u"Error getting size of Script resource."}));
}

TEST_F(OwnModule, ReadsAScriptInTheThreadsCodePage)
{
    // The bytes are two characters of the Japanese code page, and four of the Western European one.
    const LCID before = GetThreadLocale();
    ASSERT_NE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_JAPANESE, SUBLANG_DEFAULT), SORT_DEFAULT)), FALSE);
    const std::u16string japanese = ReadScriptResource(module, 301);
    ASSERT_NE(SetThreadLocale(MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT)), FALSE);
    const std::u16string western = ReadScriptResource(module, 301);
    SetThreadLocale(before);
    EXPECT_EQ(japanese, std::u16string(u"\u6F22\u5B57\0\0\n", 5));
    EXPECT_EQ(western, u"\u0160\u00BF\u017D\u0161\n");
}

TEST_F(OwnModule, HasWordsForADateWithoutText)
{
    EXPECT_EQ(VariantToText(*Variant::FromDate(1e9).get(), module), u"no such day");
}

/// Sets one item of the user's locale, and sets it back.
class LocaleItem
{
  public:
    LocaleItem(LCTYPE lcType, const wchar_t* value) : type(lcType)
    {
        EXPECT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, type, before, kLongest), 0);
        EXPECT_NE(SetLocaleInfoW(LOCALE_USER_DEFAULT, type, value), FALSE);
    }
    LocaleItem(const LocaleItem&) = delete;
    LocaleItem& operator=(const LocaleItem&) = delete;
    ~LocaleItem() { SetLocaleInfoW(LOCALE_USER_DEFAULT, type, before); }

  private:
    static constexpr int kLongest = 100;
    LCTYPE type;
    wchar_t before[kLongest] = {};
};

TEST_F(OwnModule, TellsADateAsTheUsersLocaleDoes)
{
    // 15 March 2023, 18:05:09
    const Variant date = Variant::FromDate(45000.753576388889);
    const LocaleItem shortDate(LOCALE_SSHORTDATE, L"dd.MM.yyyy");
    const LocaleItem time(LOCALE_STIMEFORMAT, L"HH:mm:ss");
    EXPECT_EQ(VariantToText(*date.get(), module), u"15.03.2023 18:05:09");
}

/// A sorted combo box of the system.
class ComboBox final : public ChoiceList
{
  public:
    ~ComboBox() override { DestroyWindow(window); }

    bool Exists() const { return window != nullptr; }
    std::optional<int32_t> FindByPrefix(std::u16string_view start) const override
    {
        return Position(Send(CB_FINDSTRING, static_cast<WPARAM>(-1), std::u16string(start)));
    }
    int32_t AddRow(std::u16string_view label, int32_t value) override
    {
        const auto position = static_cast<int32_t>(Send(CB_ADDSTRING, 0, std::u16string(label)));
        SendMessageW(window, CB_SETITEMDATA, static_cast<WPARAM>(position), value);
        return position;
    }
    void SelectRow(int32_t position) override { SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(position), 0); }
    std::optional<int32_t> SelectedRow() const override { return Position(SendMessageW(window, CB_GETCURSEL, 0, 0)); }

    std::u16string LabelAt(int32_t position) const
    {
        char16_t label[100] = {};
        SendMessageW(window, CB_GETLBTEXT, static_cast<WPARAM>(position), reinterpret_cast<LPARAM>(label));
        return label;
    }
    int32_t ValueAt(int32_t position) const
    {
        return static_cast<int32_t>(SendMessageW(window, CB_GETITEMDATA, static_cast<WPARAM>(position), 0));
    }

  private:
    LRESULT Send(UINT message, WPARAM first, const std::u16string& text) const
    {
        return SendMessageW(window, message, first, reinterpret_cast<LPARAM>(Wide(text)));
    }
    static std::optional<int32_t> Position(LRESULT answer)
    {
        return answer < 0 ? std::nullopt : std::optional(static_cast<int32_t>(answer));
    }

    HWND window = CreateWindowExW(0, L"COMBOBOX", L"", WS_POPUP | CBS_DROPDOWNLIST | CBS_SORT | CBS_HASSTRINGS, 0, 0,
                                  200, 200, nullptr, nullptr, nullptr, nullptr);
};

TEST(VersionsOfTheMachine, AreOfferedInAComboBoxWithTheTasksYearSelected)
{
    InstallerEntries entries;
    ComboBox list;
    if (entries.Add(u"Torvane 2013 x64 Edition SP1").empty() || !list.Exists()) {
        GTEST_SKIP() << "this user may not install, or the session has no desktop";
    }
    entries.Add(u"Torvane 2011 Explorer SP1");
    entries.Add(u"Torvane 2012 x64 Edition SP0.1");
    entries.Add(u"Torvane 2013 SP0");
    entries.Add(u"Torvane 2007 SP5");
    win32::Win32InstalledProducts products;
    ListInstalledVersions(products, list, 2012);
    EXPECT_EQ(list.LabelAt(0), u"<Use default>");
    EXPECT_EQ(list.ValueAt(0), 0);
    ASSERT_TRUE(list.SelectedRow());
    EXPECT_EQ(list.LabelAt(*list.SelectedRow()), u"Torvane 2012");
    EXPECT_EQ(list.ValueAt(*list.SelectedRow()), 2012);
    const std::optional<int32_t> other = list.FindByPrefix(u"torvane 2013");
    ASSERT_TRUE(other);
    EXPECT_EQ(list.ValueAt(*other), 2013);
    EXPECT_FALSE(list.FindByPrefix(u"Torvane 2007"));
}

TEST(VersionsOfTheMachine, SelectTheDefaultForAYearThatIsntInstalled)
{
    ComboBox list;
    if (!list.Exists()) {
        GTEST_SKIP() << "this session has no desktop";
    }
    win32::Win32InstalledProducts products;
    ListInstalledVersions(products, list, 2999);
    EXPECT_EQ(list.SelectedRow(), 0);
    EXPECT_EQ(list.LabelAt(0), u"<Use default>");
}

} // namespace
} // namespace tv
