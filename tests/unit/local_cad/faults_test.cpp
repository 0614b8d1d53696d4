#include "cad/fault_table.h"
#include "cad/faults.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace tv::app {

namespace {

std::string ErrorOf(std::string_view text)
{
    try {
        ParseFaults(text);
    } catch (const FaultTextError& error) {
        return error.what();
    }
    return "understood";
}

Fault Only(std::string_view text)
{
    const FaultSettings settings = ParseFaults(text);
    EXPECT_EQ(settings.faults.size(), 1u);
    return settings.faults.at(0);
}

} // namespace

TEST(FaultTable, HoldsTheseFaultsWithTheseMomentsAndDialogs)
{
    struct Row
    {
        std::string_view name;
        FaultKind kind;
        FaultMoment moment;
        std::string_view title;
        std::string_view parent;
        AnswerKey key;
    };
    constexpr Row kExpected[] = {
        {"never-register", FaultKind::NeverRegister, FaultMoment::Start, "", "", AnswerKey::Return},
        {"register-late", FaultKind::RegisterLate, FaultMoment::Start, "", "", AnswerKey::Return},
        {"crash", FaultKind::Crash, FaultMoment::Start, "", "", AnswerKey::Return},
        {"hang", FaultKind::Hang, FaultMoment::Macro, "", "", AnswerKey::Return},
        {"ignore-exit", FaultKind::IgnoreExit, FaultMoment::Close, "", "", AnswerKey::Return},
        {"leak", FaultKind::Leak, FaultMoment::Macro, "", "", AnswerKey::Return},
        {"fail-macro", FaultKind::FailMacro, FaultMoment::Macro, "", "", AnswerKey::Return},
        {"throw", FaultKind::Throw, FaultMoment::Call, "", "", AnswerKey::Return},
        {"go-away", FaultKind::GoAway, FaultMoment::Event, "", "", AnswerKey::Return},
        {"dialog", FaultKind::Dialog, FaultMoment::Macro, "", "", AnswerKey::Return},
        {"scheduler-dialog", FaultKind::Dialog, FaultMoment::Macro, "Local Torvane Task Scheduler", "",
         AnswerKey::Return},
        {"error-box", FaultKind::Dialog, FaultMoment::Macro, "Microsoft Visual Basic", "", AnswerKey::Return},
        {"break-window", FaultKind::Dialog, FaultMoment::Macro, "Microsoft Visual Basic [break] - TVMacro1", "",
         AnswerKey::Close},
        {"child-dialog", FaultKind::Dialog, FaultMoment::Macro, "Formlyn", "Torvane", AnswerKey::Escape},
    };
    ASSERT_EQ(std::size(kFaultRows), std::size(kExpected));
    for (size_t i = 0; i < std::size(kExpected); ++i) {
        EXPECT_EQ(kFaultRows[i].name, kExpected[i].name);
        EXPECT_EQ(kFaultRows[i].kind, kExpected[i].kind) << kExpected[i].name;
        EXPECT_EQ(kFaultRows[i].moment, kExpected[i].moment) << kExpected[i].name;
        EXPECT_EQ(kFaultRows[i].title, kExpected[i].title) << kExpected[i].name;
        EXPECT_EQ(kFaultRows[i].parent, kExpected[i].parent) << kExpected[i].name;
        EXPECT_EQ(kFaultRows[i].key, kExpected[i].key) << kExpected[i].name;
    }
}

TEST(FaultText, AnEmptyOneAsksForNothing)
{
    EXPECT_EQ(ParseFaults(""), FaultSettings{});
    EXPECT_EQ(ParseFaults("  "), FaultSettings{});
}

TEST(FaultText, EachFaultIsUnderstood)
{
    for (const std::string_view text :
         {"never-register", "register-late:seconds=5", "crash", "hang", "ignore-exit", "leak:mib=100", "fail-macro",
          "throw:member=RunMacroEx,code=0x80010105", "go-away", "dialog:title=A,key=return", "scheduler-dialog",
          "error-box", "break-window", "child-dialog"}) {
        EXPECT_EQ(ErrorOf(text), "understood") << text;
    }
}

TEST(FaultText, WithoutAPlaceAFaultHappensEveryTime)
{
    EXPECT_EQ(Only("crash"), (Fault{.kind = FaultKind::Crash, .moment = FaultMoment::Start}));
}

TEST(FaultText, APlaceIsOneTimeATimeAndAllAfterItOrAStretch)
{
    EXPECT_EQ(Only("hang@3").first, 3);
    EXPECT_EQ(Only("hang@3").last, 3);
    EXPECT_EQ(Only("hang@3-").first, 3);
    EXPECT_EQ(Only("hang@3-").last, 2147483647);
    EXPECT_EQ(Only("hang@3-5").first, 3);
    EXPECT_EQ(Only("hang@3-5").last, 5);
}

TEST(FaultText, AFaultCanHappenAtAnotherMoment)
{
    EXPECT_EQ(Only("crash:at=start").moment, FaultMoment::Start);
    EXPECT_EQ(Only("crash:at=macro").moment, FaultMoment::Macro);
    EXPECT_EQ(Only("crash:at=save").moment, FaultMoment::Save);
    EXPECT_EQ(Only("hang:at=close").moment, FaultMoment::Close);
}

TEST(FaultText, NumbersAreTold)
{
    EXPECT_EQ(Only("register-late:seconds=5").number, 5);
    EXPECT_EQ(Only("leak:mib=300").number, 300);
    EXPECT_EQ(Only("fail-macro:code=28").number, 28);
    EXPECT_EQ(Only("fail-macro").number, 0);
}

TEST(FaultText, AMemberIsComparedInSmallLettersAndItsCodeIsAFailure)
{
    const Fault fault = Only("throw:member=RunMacroEx,code=0x80010105@2");
    EXPECT_EQ(fault.moment, FaultMoment::Call);
    EXPECT_EQ(fault.subject, "runmacroex");
    EXPECT_EQ(fault.number, static_cast<int32_t>(0x80010105));
    EXPECT_EQ(fault.first, 2);
}

TEST(FaultText, AMemberOfAnyObjectCanThrowInWhateverLetters)
{
    for (const std::string_view member : {"RevisionNumber",
                                          "SETINTERACTIVE",
                                          "frame",
                                          "GetWindowHandle",
                                          "RunMacro",
                                          "RunMacroEx",
                                          "GetFirstDocument",
                                          "GetNextDocument",
                                          "GetType",
                                          "GetFirstModelView",
                                          "GetNextModelView",
                                          "GetCurrentSheet",
                                          "GetViewArrays",
                                          "GetItems",
                                          "GetPrintTarget",
                                          "ConfigurationManager",
                                          "ActiveConfiguration",
                                          "Name",
                                          "SaveAs",
                                          "ExitApplication"}) {
        EXPECT_EQ(ErrorOf("throw:member=" + std::string(member) + ",code=0x80004005"), "understood") << member;
    }
}

TEST(FaultText, AnEventIsOneNumberOrAny)
{
    EXPECT_EQ(Only("go-away:event=22").subject, "22");
    EXPECT_EQ(Only("go-away").subject, "");
}

TEST(FaultText, ADialogHasATitleAKeyAndPerhapsAParent)
{
    const Fault fault = Only("dialog: title = A title , key = escape , parent = Its owner , at = start @ 2");
    EXPECT_EQ(fault.title, "A title");
    EXPECT_EQ(fault.key, AnswerKey::Escape);
    EXPECT_EQ(fault.parent, "Its owner");
    EXPECT_EQ(fault.moment, FaultMoment::Start);
    EXPECT_EQ(fault.first, 2);
}

TEST(FaultText, MarksInQuotesBelongToTheValue)
{
    EXPECT_EQ(Only("dialog:title='A; b, c @ ''d'' : e',key=close@1").title, "A; b, c @ 'd' : e");
}

TEST(FaultText, SeveralFaultsKeepTheirOrder)
{
    const FaultSettings settings = ParseFaults("error-box@1; fail-macro:code=12@1 ;crash:at=close");
    ASSERT_EQ(settings.faults.size(), 3u);
    EXPECT_EQ(settings.faults[0].title, "Microsoft Visual Basic");
    EXPECT_EQ(settings.faults[1].number, 12);
    EXPECT_EQ(settings.faults[2].moment, FaultMoment::Close);
}

TEST(FaultText, TellsTheCounterFileAndTheRevision)
{
    const FaultSettings settings = ParseFaults("counter=C:\\Temp\\count 1.txt;revision=16.2.0");
    EXPECT_EQ(settings.counterFile, "C:\\Temp\\count 1.txt");
    EXPECT_EQ(settings.revision, "16.2.0");
    EXPECT_TRUE(settings.faults.empty());
}

TEST(FaultText, WhatIsNotUnderstoodIsRefusedWithItsReason)
{
    struct Row
    {
        std::string_view text;
        std::string_view error;
    };
    constexpr Row kRows[] = {
        {"explode", "There is no fault \"explode\"."},
        {"Crash", "There is no fault \"Crash\"."},
        {"crash;", "There is no fault \"\"."},
        {"crash:", "Nothing stands behind the colon of \"crash:\"."},
        {"crash:at", "The fault \"crash\" takes no \"at\"."},
        {"crash:mib=3", "The fault \"crash\" takes no \"mib=3\"."},
        {"crash:at=start,at=macro", "The fault \"crash\" is given \"at\" twice."},
        {"crash:at=call", "\"at\" takes start, macro, save or close, and not \"call\"."},
        {"leak", "The fault \"leak\" needs \"mib\"."},
        {"throw:member=Frame", "The fault \"throw\" needs \"code\"."},
        {"throw:code=0x80004005", "The fault \"throw\" needs \"member\"."},
        {"throw:member=a.b,code=0x80004005", "\"a.b\" can't be the name of a member."},
        {"throw:member=,code=0x80004005", "\"member\" has no value."},
        {"throw:member=SetInteractiv,code=0x80004005", "No object of the application has a member \"SetInteractiv\"."},
        {"throw:member=RunMacroEx2,code=0x80004005", "No object of the application has a member \"RunMacroEx2\"."},
        {"throw:member=Frame,code=1", "\"code\" takes a number from 2147483648 to 4294967295, and not \"1\"."},
        {"fail-macro:code=256", "\"code\" takes a number from 0 to 255, and not \"256\"."},
        {"fail-macro:code=-1", "\"code\" takes a number from 0 to 255, and not \"-1\"."},
        {"fail-macro:code=5x", "\"code\" takes a number from 0 to 255, and not \"5x\"."},
        {"register-late:seconds=0", "\"seconds\" takes a number from 1 to 3600, and not \"0\"."},
        {"leak:mib=5000", "\"mib\" takes a number from 1 to 4096, and not \"5000\"."},
        {"go-away:event=0", "\"event\" takes a number from 1 to 1000, and not \"0\"."},
        {"dialog:key=return", "The fault \"dialog\" needs \"title\"."},
        {"dialog:title=A", "The fault \"dialog\" needs \"key\"."},
        {"dialog:title=,key=return", "\"title\" has no value."},
        {"dialog:title=A,key=space", "\"key\" takes return, escape or close, and not \"space\"."},
        {"dialog:title='A,key=return", "A quote isn't closed in \"dialog:title='A,key=return\"."},
        {"dialog:title=a'b',key=return", "A quote stands within \"a'b'\": put the whole value into quotes."},
        {"dialog:title='a'b,key=return", "Something stands behind the closing quote of \"'a'b\"."},
        {"crash@", "\"@\" takes a number from 1 to 2147483647, and not \"\"."},
        {"crash@0", "\"@\" takes a number from 1 to 2147483647, and not \"0\"."},
        {"crash@3-2", "\"@\" takes a number from 3 to 2147483647, and not \"2\"."},
        {"crash@1@2", "There is more than one \"@\" in \"crash@1@2\"."},
        {"counter=", "\"counter\" has no value."},
        {"revision=", "\"revision\" takes a number as 16.2.0, and not \"\"."},
        {"revision=new", "\"revision\" takes a number as 16.2.0, and not \"new\"."},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(ErrorOf(row.text), row.error) << row.text;
    }
}

} // namespace tv::app
