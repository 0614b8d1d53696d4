// The built module as the system sees it: registered, created by its class and by its names, told what it is, sent
// commands, and unloaded.
#include "com/bstring.h"
#include "com/com_object.h"
#include "com/com_ptr.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "interfaces/addin.h"
#include "interfaces/vault.h"

#include <gtest/gtest.h>

#include <string>

TV_IID(ITypeLib, "00020402-0000-0000-c000-000000000046");
TV_IID(ITypeInfo, "00020401-0000-0000-c000-000000000046");

namespace tv {

namespace {

class HookCounter final : public ComObject<IVyxCmdMgr>
{
  public:
    Result TV_CALL AddHook(int32_t commandType, int32_t) override
    {
        hooks.push_back(commandType);
        return 0;
    }
    std::vector<int32_t> hooks;
};

std::wstring ModulePath()
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    for (int level = 0; level < 2; ++level) {
        path.resize(path.rfind(L'\\'));
    }
    return path + L"\\TVTaskAddIn.dll";
}

class ComponentTest : public testing::Test
{
  protected:
    static void SetUpTestSuite() { ASSERT_EQ(CallEntryPoint("DllRegisterServer"), S_OK); }

    void SetUp() override { ASSERT_GE(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), 0); }
    void TearDown() override { CoUninitialize(); }

    static HRESULT CallEntryPoint(const char* name)
    {
        const HMODULE module = LoadLibraryW(ModulePath().c_str());
        if (module == nullptr) {
            return HRESULT_FROM_WIN32(GetLastError());
        }
        const auto entry =
            reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(GetProcAddress(module, name)));
        const HRESULT result = entry == nullptr ? E_NOTIMPL : entry();
        FreeLibrary(module);
        return result;
    }
    static ComPtr<IVyxAddIn5> Create()
    {
        ComPtr<IVyxAddIn5> addIn;
        EXPECT_EQ(
            CoCreateInstance(kTaskAddInClass, nullptr, CLSCTX_INPROC_SERVER, kInterfaceId<IVyxAddIn5>, addIn.putVoid()),
            S_OK);
        return addIn;
    }
    static bool IsLoaded() { return GetModuleHandleW(L"TVTaskAddIn.dll") != nullptr; }
};

} // namespace

TEST_F(ComponentTest, TheComponentIsFoundByItsNames)
{
    for (const char16_t* name : {kTaskAddInProgId, kTaskAddInVersionIndependentProgId}) {
        GUID id{};
        EXPECT_EQ(CLSIDFromProgID(reinterpret_cast<const wchar_t*>(name), &id), S_OK);
        EXPECT_EQ(id, kTaskAddInClass);
    }
}

TEST_F(ComponentTest, TheComponentTellsWhatItIs)
{
    const ComPtr<IVyxAddIn5> addIn = Create();
    const ComPtr<HookCounter> manager = MakeObject<HookCounter>();
    VyxAddInInfo info{};
    ASSERT_TRUE(addIn);
    EXPECT_EQ(addIn->GetAddInInfo(&info, manager.get()), 0);
    EXPECT_EQ(BString::Adopt(info.name).Text(), u"Torvane Task Add-in");
    BString::Adopt(info.company);
    EXPECT_EQ(BString::Adopt(info.description).Text(),
              u"Add-in used to run custom Torvane macros\r\nVersion 2013, SP0, Build 511");
    EXPECT_EQ(manager->hooks, (std::vector<int32_t>{40, 41, 42, 44, 45, 43}));
}

TEST_F(ComponentTest, TheComponentIsMadeInEitherThreadingModel)
{
    CoUninitialize();
    ASSERT_GE(CoInitializeEx(nullptr, COINIT_MULTITHREADED), 0);
    EXPECT_TRUE(Create());
}

TEST_F(ComponentTest, TheComponentCannotBeAggregated)
{
    const ComPtr<HookCounter> outer = MakeObject<HookCounter>();
    ComPtr<IUnknown> object;
    EXPECT_EQ(
        CoCreateInstance(kTaskAddInClass, outer.get(), CLSCTX_INPROC_SERVER, kInterfaceId<IUnknown>, object.putVoid()),
        CLASS_E_NOAGGREGATION);
}

TEST_F(ComponentTest, TheModuleUnloadsWhenItsObjectsAreGoneAndNotBefore)
{
    ComPtr<IVyxAddIn5> addIn = Create();
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_TRUE(IsLoaded());
    addIn.reset();
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(IsLoaded());
}

TEST_F(ComponentTest, ARunOnNothingEndsWithItsStatus)
{
    const ComPtr<IVyxAddIn5> addIn = Create();
    ASSERT_TRUE(addIn);
    const fakes::FakeVault vault(u"C:\\Vault");
    const auto task = MakeObject<fakes::FakeTaskInstance>();
    task->variables.SetText(u"__script", u"Sub main");
    VyxCmd cmd{};
    cmd.commandType = VyxCmd_TaskRun;
    cmd.vault = vault.Get();
    cmd.extra = task.get();
    SAFEARRAY* data = nullptr;
    EXPECT_EQ(addIn->OnCmd(&cmd, &data), 1);
    EXPECT_EQ(cmd.cancel, -1);
    ASSERT_EQ(task->writtenStatuses.size(), 1u);
    EXPECT_EQ(task->writtenStatuses[0].status, 9);
    EXPECT_EQ(task->writtenStatuses[0].message, u"No file selected.");
}

TEST_F(ComponentTest, TheModuleUnloadsAfterARun)
{
    {
        const ComPtr<IVyxAddIn5> addIn = Create();
        const fakes::FakeVault vault(u"C:\\Vault");
        const auto task = MakeObject<fakes::FakeTaskInstance>();
        VyxCmd cmd{};
        cmd.commandType = VyxCmd_TaskRun;
        cmd.vault = vault.Get();
        cmd.extra = task.get();
        SAFEARRAY* data = nullptr;
        EXPECT_EQ(addIn->OnCmd(&cmd, &data), static_cast<Result>(0x8000FFFFu));
    }
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    EXPECT_FALSE(IsLoaded());
}

TEST_F(ComponentTest, TheTypeLibraryIsRegisteredAndKnowsTheComponent)
{
    ComPtr<ITypeLib> library;
    ASSERT_EQ(LoadRegTypeLib(kTaskAddInTypeLibrary, 1, 0, LOCALE_NEUTRAL, library.put()), S_OK);
    ComPtr<ITypeInfo> component;
    EXPECT_EQ(library->GetTypeInfoOfGuid(kTaskAddInClass, component.put()), S_OK);
    ComPtr<ITypeInfo> interfaceInfo;
    EXPECT_EQ(library->GetTypeInfoOfGuid(kInterfaceId<ITVTaskAddIn>, interfaceInfo.put()), S_OK);
}

TEST_F(ComponentTest, TheModuleCarriesTheExecuteTemplate)
{
    const HMODULE module = LoadLibraryExW(ModulePath().c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(211), L"Script");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(SizeofResource(module, found), 105u);
    FreeLibrary(module);
}

TEST_F(ComponentTest, UnregisteringTakesEverythingBackAndRegisteringBringsItAgain)
{
    EXPECT_EQ(CallEntryPoint("DllUnregisterServer"), S_OK);
    GUID id{};
    EXPECT_LT(CLSIDFromProgID(reinterpret_cast<const wchar_t*>(kTaskAddInProgId), &id), 0);
    HKEY key = nullptr;
    EXPECT_NE(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01}", 0,
                            KEY_READ, &key),
              ERROR_SUCCESS);
    EXPECT_EQ(CallEntryPoint("DllUnregisterServer"), S_OK);
    EXPECT_EQ(CallEntryPoint("DllRegisterServer"), S_OK);
    EXPECT_EQ(CLSIDFromProgID(reinterpret_cast<const wchar_t*>(kTaskAddInProgId), &id), S_OK);
}

} // namespace tv
