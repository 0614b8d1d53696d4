#include "addin_test.h"

namespace tv {

namespace {

class FakeCmdMgr final : public ComObject<IVyxCmdMgr>
{
  public:
    Result TV_CALL AddHook(int32_t commandType, int32_t reserved) override
    {
        hooks.push_back(commandType);
        EXPECT_EQ(reserved, 0);
        return result;
    }
    std::vector<int32_t> hooks;
    Result result = 0;
};

class EntryTest : public AddInTest
{
  protected:
    Result Ask()
    {
        const Result result = addIn->GetAddInInfo(&info, manager.get());
        name = BString::Adopt(info.name).Text();
        company = BString::Adopt(info.company).Text();
        description = BString::Adopt(info.description).Text();
        return result;
    }
    WindowHandle AddParentWindow() { return machine.desktop.AddWindow(1, u"Administration"); }

    VyxAddInInfo info{};
    std::u16string name;
    std::u16string company;
    std::u16string description;
    ComPtr<FakeCmdMgr> manager = MakeObject<FakeCmdMgr>();
    ComPtr<fakes::FakeTaskProperties> properties = MakeObject<fakes::FakeTaskProperties>();
};

} // namespace

TEST_F(EntryTest, TheAddInTellsItsNameItsMakerAndItsVersion)
{
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(name, u"Torvane Task Add-in");
    EXPECT_EQ(company, u"Torvane Corporation");
    EXPECT_EQ(description, u"Add-in used to run custom Torvane macros\r\nVersion 2013, SP0, Build 511");
    EXPECT_EQ(info.version, 2013000511);
    EXPECT_EQ(info.requiredMajorVersion, 13);
}

TEST_F(EntryTest, TheRequiredMinorVersionIsLeftAsTheCallerSetIt)
{
    info.requiredMinorVersion = 77;
    Ask();
    EXPECT_EQ(info.requiredMinorVersion, 77);
}

TEST_F(EntryTest, TheHooksAreAskedForInThisOrder)
{
    Ask();
    EXPECT_EQ(manager->hooks, (std::vector<int32_t>{40, 41, 42, 44, 45, 43}));
}

TEST_F(EntryTest, ARefusedHookDoesNotChangeTheResult)
{
    manager->result = E_FAIL;
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(manager->hooks.size(), 6u);
}

TEST_F(EntryTest, BothArgumentsOfTheInformationMustBePresent)
{
    EXPECT_EQ(addIn->GetAddInInfo(nullptr, manager.get()), Code(0x80004003));
    EXPECT_EQ(addIn->GetAddInInfo(&info, nullptr), Code(0x80004003));
    EXPECT_TRUE(manager->hooks.empty());
}

TEST_F(EntryTest, TheObjectAnswersForItsInterfaces)
{
    ComPtr<IVyxAddIn5> vaultSide;
    ComPtr<ITVTaskAddIn> own;
    ComPtr<IDispatch> dispatch;
    ComPtr<ITVTaskPreview> preview;
    ComPtr<ITVStartPreview> startPreview;
    ComPtr<IVyxVault> none;
    ComPtr<IUnknown> identity;
    EXPECT_EQ(addIn.As(identity), 0);
    EXPECT_EQ(identity.As(vaultSide), 0);
    EXPECT_EQ(identity.As(own), 0);
    EXPECT_EQ(identity.As(dispatch), 0);
    EXPECT_EQ(identity.As(preview), 0);
    EXPECT_EQ(identity.As(startPreview), 0);
    EXPECT_EQ(identity.As(none), E_NOINTERFACE);
}

TEST_F(EntryTest, TheOwnInterfaceCarriesNoOperation)
{
    ComPtr<IDispatch> dispatch;
    addIn->QueryInterface(kInterfaceId<IDispatch>, dispatch.putVoid());
    UINT count = 7;
    EXPECT_EQ(dispatch->GetTypeInfoCount(&count), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(dispatch->Invoke(1, GUID{}, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST_F(EntryTest, ACommandWithoutItsRecordOrItsDataDoesNothing)
{
    SAFEARRAY* data = nullptr;
    CommandRecord record(VyxCmd_TaskRun, vault.Get(), task.get());
    EXPECT_EQ(addIn->OnCmd(nullptr, &data), Code(0x80004003));
    EXPECT_EQ(addIn->OnCmd(&record.cmd, nullptr), Code(0x80004003));
    EXPECT_TRUE(task->writtenStatuses.empty());
    EXPECT_TRUE(vault.Script().Calls().empty());
}

TEST_F(EntryTest, AVaultThatIsNoneIsReturnedAsItStands)
{
    CommandRecord record(VyxCmd_TaskRun, task.get(), task.get());
    EXPECT_EQ(Send(record), Code(0x80004002));
    CommandRecord empty(VyxCmd_TaskRun, nullptr, task.get());
    EXPECT_EQ(Send(empty), Code(0x80004003));
    EXPECT_TRUE(task->writtenStatuses.empty());
}

TEST_F(EntryTest, ACommandOfAnotherTypeIsIgnored)
{
    for (const int32_t type : {0, 39, 46, -1}) {
        CommandRecord record(type, vault.Get(), nullptr);
        EXPECT_EQ(Send(record), 0) << type;
        EXPECT_EQ(record.cmd.cancel, 0);
    }
}

TEST_F(EntryTest, EveryCommandNeedsTheInterfaceThatItWorksOn)
{
    for (const int32_t type : {40, 41, 42, 43, 44, 45}) {
        const bool isSetup = type == 40 || type == 41;
        IUnknown* wrong = isSetup ? static_cast<IUnknown*>(task.get()) : properties.get();
        for (IUnknown* extra : {static_cast<IUnknown*>(nullptr), wrong}) {
            CommandRecord record(type, vault.Get(), extra);
            record.Press(u"OK");
            EXPECT_EQ(Send(record), Code(0x80004003)) << type;
        }
    }
    EXPECT_TRUE(task->writtenStatuses.empty());
}

TEST_F(EntryTest, SetupNeedsAValidParentWindow)
{
    CommandRecord record(VyxCmd_TaskSetup, vault.Get(), properties.get());
    record.cmd.parentWindow = 12345;
    EXPECT_EQ(Send(record), Code(0x80070057));
    EXPECT_EQ(properties->flags, 0);
}

TEST_F(EntryTest, SetupTellsTheCapabilities)
{
    CommandRecord record(VyxCmd_TaskSetup, vault.Get(), properties.get());
    record.cmd.parentWindow = static_cast<int32_t>(AddParentWindow());
    Send(record);
    EXPECT_EQ(properties->flags, 23);
}

TEST_F(EntryTest, SetupReturnsAFailureOfTheFlags)
{
    CommandRecord record(VyxCmd_TaskSetup, vault.Get(), properties.get());
    record.cmd.parentWindow = static_cast<int32_t>(AddParentWindow());
    properties->script.FailAlways("Properties.SetFlags", E_ACCESSDENIED);
    EXPECT_EQ(Send(record), Code(0x80070005));
}

TEST_F(EntryTest, AnyButtonOtherThanOkDoesNothingExactlyAsItIsWritten)
{
    for (const int32_t type : {41, 45}) {
        for (const std::u16string_view button : {u"ok", u"Ok", u"Cancel", u""}) {
            CommandRecord record(type, vault.Get(), nullptr);
            record.Press(button);
            EXPECT_EQ(Send(record), 0);
        }
    }
}

TEST_F(EntryTest, TheLaunchButtonNeedsTheInstanceAndSucceeds)
{
    CommandRecord record(VyxCmd_TaskLaunchButton, vault.Get(), task.get());
    record.Press(u"OK");
    EXPECT_EQ(Send(record), 0);
}

TEST_F(EntryTest, TheVaultIsHeldForTheCommandOnly)
{
    IVyxVault* object = vault.Get();
    const ULONG before = (object->AddRef(), object->Release());
    RunTask();
    addIn.reset();
    EXPECT_EQ((object->AddRef(), object->Release()), before);
}

TEST_F(EntryTest, ATaskThatCannotBeReadIsReturned)
{
    task->variables.SetText(u"__type", u"abc");
    EXPECT_EQ(RunTask(), Code(0x80020005));
    EXPECT_EQ(machine.processes.Count(), 0u);
    EXPECT_TRUE(task->writtenStatuses.empty());
}

} // namespace tv
