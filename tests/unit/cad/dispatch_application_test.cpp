#include "cad/dispatch_application.h"

#include "cad_test.h"
#include "com/bstring.h"
#include "fakes/application/fake_dispatch.h"

namespace tv {

namespace {

using fakes::FakeDispatch;
using fakes::MemberAnswer;
using Arguments = std::vector<VARIANT*>;
using Names = std::vector<std::u16string>;

Variant ObjectValue(const ComPtr<FakeDispatch>& object)
{
    return Variant::FromDispatch(object.get());
}

class DispatchApplicationTest : public testing::Test
{
  protected:
    DispatchApplicationTest() { object->AddValue(u"RevisionNumber", Variant::FromText(u"21.0")); }

    /// A member that keeps what it was called with.
    void Keep(std::u16string name, Variant answer = {})
    {
        object->Add(std::move(name), [this, answer](Arguments& arguments) {
            kept.clear();
            for (const VARIANT* argument : arguments) {
                kept.push_back(Variant::Copy(*argument));
            }
            return MemberAnswer{0, answer, 0};
        });
    }
    ComPtr<ITorvane> Typed()
    {
        ComPtr<ITorvane> application;
        EXPECT_EQ(AskApplication(object.get(), application), 0);
        return application;
    }

    ComPtr<FakeDispatch> object = MakeObject<FakeDispatch>();
    std::vector<Variant> kept;
};

} // namespace

TEST_F(DispatchApplicationTest, AnObjectWithTheTypedInterfaceIsTakenAsItIs)
{
    const auto typed = MakeObject<fakes::FakeApplication>();
    ComPtr<IUnknown> identity;
    typed.As(identity);
    ComPtr<ITorvane> application;
    EXPECT_EQ(AskApplication(identity.get(), application), 0);
    EXPECT_EQ(application.get(), typed.get());
}

TEST_F(DispatchApplicationTest, AnObjectWithoutTheTellingMemberIsNoApplication)
{
    const auto other = MakeObject<FakeDispatch>();
    ComPtr<ITorvane> application;
    EXPECT_EQ(AskApplication(other.get(), application), E_NOINTERFACE);
    EXPECT_FALSE(application);
}

TEST_F(DispatchApplicationTest, ARefusalOtherThanNoInterfaceIsReturned)
{
    const auto typed = MakeObject<fakes::FakeApplication>();
    typed->queryResult = REGDB_E_CLASSNOTREG;
    ComPtr<IUnknown> identity;
    typed.As(identity);
    ComPtr<ITorvane> application;
    EXPECT_EQ(AskApplication(identity.get(), application), Code(0x80040154));
}

TEST_F(DispatchApplicationTest, NoObjectHasNoInterface)
{
    ComPtr<ITorvane> application;
    EXPECT_EQ(AskApplication(nullptr, application), E_POINTER);
}

TEST_F(DispatchApplicationTest, AReadIsACallThatMayBeAMethodOrAProperty)
{
    BString revision;
    EXPECT_EQ(Typed()->GetRevisionNumber(revision.put()), 0);
    EXPECT_EQ(revision.Text(), u"21.0");
    EXPECT_EQ(object->lastFlags, 3);
}

TEST_F(DispatchApplicationTest, ANameIsLookedUpOnce)
{
    const ComPtr<ITorvane> application = Typed();
    object->nameLookups = 0;
    for (int i = 0; i < 3; ++i) {
        BString revision;
        application->GetRevisionNumber(revision.put());
    }
    EXPECT_EQ(object->nameLookups, 1u);
}

TEST_F(DispatchApplicationTest, ArgumentsArriveInTheMembersOwnOrder)
{
    Keep(u"SetUserPreferenceToggle");
    EXPECT_EQ(Typed()->SetUserPreferenceToggle(290, true), 0);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].ToInt(), 290);
    EXPECT_EQ(kept[1].get()->boolVal, -1);
}

TEST_F(DispatchApplicationTest, EachSwitchIsAMemberOfItsName)
{
    for (const std::u16string name : {u"SetInteractive", u"SetBackgroundRun", u"SetMainWindowShown", u"SetAppSwitch",
                                      u"ExitApplication", u"CloseAllDocuments", u"SetUserPreferenceIntegerValue"}) {
        Keep(name);
    }
    const ComPtr<ITorvane> application = Typed();
    bool done = false;
    application->SetInteractive(false);
    application->SetBackgroundRun(true);
    application->SetMainWindowShown(false);
    application->SetAppSwitch(30, false);
    EXPECT_EQ(application->SetUserPreferenceIntegerValue(253, 0, &done), 0);
    EXPECT_EQ(application->CloseAllDocuments(true, &done), 0);
    application->ExitApplication();
    EXPECT_EQ(object->calls, (Names{u"SetInteractive", u"SetBackgroundRun", u"SetMainWindowShown", u"SetAppSwitch",
                                    u"SetUserPreferenceIntegerValue", u"CloseAllDocuments", u"ExitApplication"}));
}

TEST_F(DispatchApplicationTest, AToggleIsRead)
{
    Keep(u"GetUserPreferenceToggle", Variant::FromBool(true));
    bool on = false;
    EXPECT_EQ(Typed()->GetUserPreferenceToggle(347, &on), 0);
    EXPECT_TRUE(on);
    EXPECT_EQ(kept.at(0).ToInt(), 347);
}

TEST_F(DispatchApplicationTest, AMissingMemberFailsTheCall)
{
    EXPECT_EQ(Typed()->SetInteractive(false), DISP_E_UNKNOWNNAME);
}

TEST_F(DispatchApplicationTest, WhatAMemberRaisesIsTheResult)
{
    object->Add(u"SetInteractive", [](Arguments&) { return MemberAnswer{DISP_E_EXCEPTION, {}, E_ACCESSDENIED}; });
    object->Add(u"ExitApplication", [](Arguments&) { return MemberAnswer{DISP_E_EXCEPTION, {}, 0}; });
    EXPECT_EQ(Typed()->SetInteractive(false), Code(0x80070005));
    EXPECT_EQ(Typed()->ExitApplication(), DISP_E_EXCEPTION);
}

TEST_F(DispatchApplicationTest, TheMacroErrorComesBackByReference)
{
    object->Add(u"RunMacroEx", [this](Arguments& arguments) {
        for (size_t i = 0; i < 4; ++i) {
            kept.push_back(Variant::Copy(*arguments.at(i)));
        }
        EXPECT_EQ(arguments.at(4)->vt, VT_I4 | VT_BYREF);
        *arguments.at(4)->plVal = 27;
        return MemberAnswer{0, Variant::FromBool(false), 0};
    });
    int32_t error = 0;
    bool succeeded = true;
    EXPECT_EQ(Typed()->RunMacroEx(u"C:\\m.tvb", u"TVMacro1", u"main", 0, &error, &succeeded), 0);
    EXPECT_EQ(error, 27);
    EXPECT_FALSE(succeeded);
    EXPECT_EQ(kept[0].ToText(), u"C:\\m.tvb");
    EXPECT_EQ(kept[1].ToText(), u"TVMacro1");
    EXPECT_EQ(kept[2].ToText(), u"main");
    EXPECT_EQ(kept[3].ToInt(), 0);
}

TEST_F(DispatchApplicationTest, ThePlainMacroCallGivesItsFlag)
{
    Keep(u"RunMacro", Variant::FromBool(true));
    bool succeeded = false;
    EXPECT_EQ(Typed()->RunMacro(u"C:\\m.tvb", u"TVMacro1", u"main", &succeeded), 0);
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(kept.size(), 3u);
}

TEST_F(DispatchApplicationTest, AWindowHandleMayBe32Or64BitsWide)
{
    Variant wide;
    wide.get()->vt = VT_I8;
    wide.get()->llVal = 0x123456789;
    for (const auto& [value, expected] : {std::pair{Variant::FromInt(42), 42LL}, std::pair{wide, 0x123456789LL}}) {
        const auto frame = MakeObject<FakeDispatch>();
        frame->AddValue(u"GetWindowHandle", value);
        ComPtr<ITorvaneFrame> typed;
        ASSERT_EQ(AskApplication(frame.get(), typed), 0);
        WindowHandle window = 0;
        EXPECT_EQ(typed->GetWindowHandle(&window), 0);
        EXPECT_EQ(window, expected);
    }
}

TEST_F(DispatchApplicationTest, AFrameWithoutAWindowHandleIsNoFrame)
{
    const auto frame = MakeObject<FakeDispatch>();
    ComPtr<ITorvaneFrame> typed;
    EXPECT_EQ(AskApplication(frame.get(), typed), E_NOINTERFACE);
}

TEST_F(DispatchApplicationTest, DocumentsAreWalkedToTheirEnd)
{
    const auto first = MakeObject<FakeDispatch>();
    const auto second = MakeObject<FakeDispatch>();
    first->AddValue(u"GetNextDocument", ObjectValue(second));
    second->AddValue(u"GetNextDocument", Variant::FromDispatch(nullptr));
    object->AddValue(u"GetFirstDocument", ObjectValue(first));
    ComPtr<ITorvaneDocument> document;
    EXPECT_EQ(Typed()->GetFirstDocument(document.put()), 0);
    ComPtr<ITorvaneDocument> next;
    EXPECT_EQ(document->GetNextDocument(next.put()), 0);
    ASSERT_TRUE(next);
    ComPtr<ITorvaneDocument> end;
    EXPECT_EQ(next->GetNextDocument(end.put()), 0);
    EXPECT_FALSE(end);
}

TEST_F(DispatchApplicationTest, NoDocumentMayBeAnEmptyValue)
{
    object->AddValue(u"GetFirstDocument", {});
    ComPtr<ITorvaneDocument> document;
    EXPECT_EQ(Typed()->GetFirstDocument(document.put()), 0);
    EXPECT_FALSE(document);
}

TEST_F(DispatchApplicationTest, TwoAdaptersOverOneDocumentHaveOneIdentity)
{
    const auto first = MakeObject<FakeDispatch>();
    object->AddValue(u"GetFirstDocument", ObjectValue(first));
    const ComPtr<ITorvane> application = Typed();
    ComPtr<IUnknown> identities[2];
    for (ComPtr<IUnknown>& identity : identities) {
        ComPtr<ITorvaneDocument> document;
        application->GetFirstDocument(document.put());
        EXPECT_EQ(document.As(identity), 0);
    }
    EXPECT_EQ(identities[0].get(), identities[1].get());
}

TEST_F(DispatchApplicationTest, OnlyADocumentOfTypeThreeIsADrawing)
{
    for (const int32_t type : {1, 2, 3}) {
        const auto document = MakeObject<FakeDispatch>();
        document->AddValue(u"GetType", Variant::FromInt(type));
        document->AddValue(u"GetCurrentSheet", {});
        ComPtr<ITorvaneDrawing> drawing;
        EXPECT_EQ(AskApplication(document.get(), drawing), type == 3 ? 0 : E_NOINTERFACE);
    }
}

TEST_F(DispatchApplicationTest, TheSheetsNameIsRead)
{
    const auto sheet = MakeObject<FakeDispatch>();
    sheet->AddValue(u"GetName", Variant::FromText(u"Sheet2"));
    const auto document = MakeObject<FakeDispatch>();
    document->AddValue(u"GetType", Variant::FromInt(3));
    document->AddValue(u"GetCurrentSheet", ObjectValue(sheet));
    ComPtr<ITorvaneDrawing> drawing;
    ASSERT_EQ(AskApplication(document.get(), drawing), 0);
    ComPtr<IUnknown> current;
    ASSERT_EQ(drawing->GetCurrentSheet(current.put()), 0);
    ComPtr<ITorvaneSheet> typed;
    ASSERT_EQ(AskApplication(current.get(), typed), 0);
    BString name;
    EXPECT_EQ(typed->GetName(name.put()), 0);
    EXPECT_EQ(name.Text(), u"Sheet2");
}

TEST_F(DispatchApplicationTest, TheActiveConfigurationsNameIsRead)
{
    const auto configuration = MakeObject<FakeDispatch>();
    configuration->AddValue(u"Name", Variant::FromText(u"Long"));
    const auto manager = MakeObject<FakeDispatch>();
    manager->AddValue(u"ActiveConfiguration", ObjectValue(configuration));
    const auto document = MakeObject<FakeDispatch>();
    document->AddValue(u"GetType", Variant::FromInt(1));
    document->AddValue(u"ConfigurationManager", ObjectValue(manager));
    ComPtr<ITorvaneDocument> typed;
    ASSERT_EQ(AskApplication(document.get(), typed), 0);
    ComPtr<ITorvaneConfigurationManager> configurations;
    ASSERT_EQ(typed->GetConfigurationManager(configurations.put()), 0);
    ComPtr<ITorvaneConfiguration> active;
    ASSERT_EQ(configurations->GetActiveConfiguration(active.put()), 0);
    BString name;
    EXPECT_EQ(active->GetName(name.put()), 0);
    EXPECT_EQ(name.Text(), u"Long");
}

TEST_F(DispatchApplicationTest, ADocumentsTypeMayBeOfAnyNumberKind)
{
    const auto document = MakeObject<FakeDispatch>();
    document->AddValue(u"GetType", Variant::FromDouble(2));
    document->AddValue(u"GetPrintTarget", Variant::FromText(u"Printer"));
    ComPtr<ITorvaneDocument> typed;
    ASSERT_EQ(AskApplication(document.get(), typed), 0);
    int32_t type = 0;
    EXPECT_EQ(typed->GetDocumentType(&type), 0);
    EXPECT_EQ(type, 2);
    BString target;
    EXPECT_EQ(typed->GetPrintTarget(target.put()), 0);
    EXPECT_EQ(target.Text(), u"Printer");
}

} // namespace tv
