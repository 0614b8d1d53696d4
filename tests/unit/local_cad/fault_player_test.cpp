#include "cad/fault_player.h"

#include "cad/dispatch_object.h"
#include "interfaces/application.h"
#include "interfaces/ids.h"
#include "local_cad/world.h"

#include <gtest/gtest.h>

namespace tv::app {

namespace {

using Lines = std::vector<std::string>;

/// Writes down what it is to do.
class NotingHands final : public FaultHands
{
  public:
    void Crash() override { did.push_back("crash"); }
    void Hang() override { did.push_back("hang"); }
    void Wait(int32_t seconds) override { did.push_back("wait " + std::to_string(seconds)); }
    void Leak(int32_t mib) override { did.push_back("leak " + std::to_string(mib)); }
    void ShowDialog(const Fault& dialog) override { did.push_back("dialog " + dialog.title); }

    Lines did;
};

struct Stage
{
    explicit Stage(std::string_view text, int revision = 21)
        : plan(ParseFaults(text).faults, counter),
          player(plan, hands, revision, [this](const std::string& line) { notes.push_back(line); })
    {}

    MemoryFaultCounter counter;
    FaultPlan plan;
    NotingHands hands;
    Lines notes;
    FaultPlayer player;
};

} // namespace

TEST(FaultPlan, OnlyTheAskedOccurrenceIsMet)
{
    MemoryFaultCounter counter;
    FaultPlan plan(ParseFaults("crash:at=macro@2").faults, counter);
    EXPECT_TRUE(plan.At(FaultMoment::Macro).empty());
    EXPECT_EQ(plan.At(FaultMoment::Macro).size(), 1u);
    EXPECT_TRUE(plan.At(FaultMoment::Macro).empty());
}

TEST(FaultPlan, MomentsAreCountedForThemselves)
{
    MemoryFaultCounter counter;
    FaultPlan plan(ParseFaults("crash:at=macro@2;crash:at=save@2").faults, counter);
    EXPECT_TRUE(plan.At(FaultMoment::Macro).empty());
    EXPECT_TRUE(plan.At(FaultMoment::Save).empty());
    EXPECT_EQ(plan.At(FaultMoment::Save).size(), 1u);
}

TEST(FaultPlan, TwoFaultsOfAMomentCountItOnce)
{
    MemoryFaultCounter counter;
    FaultPlan plan(ParseFaults("hang@1;crash:at=macro@2").faults, counter);
    EXPECT_EQ(plan.At(FaultMoment::Macro).at(0).kind, FaultKind::Hang);
    EXPECT_EQ(plan.At(FaultMoment::Macro).at(0).kind, FaultKind::Crash);
}

TEST(FaultPlan, MembersAreCountedForThemselves)
{
    MemoryFaultCounter counter;
    FaultPlan plan(ParseFaults("throw:member=Frame,code=0x80004005@2").faults, counter);
    EXPECT_TRUE(plan.At(FaultMoment::Call, "frame").empty());
    EXPECT_TRUE(plan.At(FaultMoment::Call, "runmacroex").empty());
    EXPECT_EQ(plan.At(FaultMoment::Call, "frame").size(), 1u);
}

TEST(FaultPlan, AnyEventAndOneEventAreCountedApart)
{
    MemoryFaultCounter counter;
    FaultPlan plan(ParseFaults("go-away@3;go-away:event=22@2").faults, counter);
    EXPECT_TRUE(plan.At(FaultMoment::Event, "22").empty());
    EXPECT_TRUE(plan.At(FaultMoment::Event, "7").empty());
    EXPECT_EQ(plan.At(FaultMoment::Event, "22").size(), 2u);
}

TEST(FaultPlan, AMomentOfWhichNoFaultSpeaksIsNotCounted)
{
    class RefusingCounter final : public FaultCounter
    {
      public:
        int32_t Next(const std::string& name) override
        {
            ADD_FAILURE() << name;
            return 1;
        }
    } counter;
    FaultPlan plan(ParseFaults("hang@1").faults, counter);
    EXPECT_TRUE(plan.At(FaultMoment::Start).empty());
}

TEST(FaultCounts, StandInAFileALineEach)
{
    EXPECT_EQ(WriteCounts({{"start", 2}, {"call frame", 11}}), "11 call frame\n2 start\n");
    EXPECT_EQ(ReadCounts("11 call frame\n2 start\n"), (FaultCounts{{"start", 2}, {"call frame", 11}}));
}

TEST(FaultCounts, LinesThatAreNoneAreLeftOut)
{
    EXPECT_EQ(ReadCounts("start\n-1 macro\nx 2\n3\n4 \n5 save"), (FaultCounts{{"save", 5}}));
    EXPECT_EQ(ReadCounts(""), FaultCounts{});
}

TEST(FaultPlayer, WithoutFaultsEverythingGoesItsWay)
{
    Stage stage("");
    EXPECT_TRUE(stage.player.AtStart());
    EXPECT_FALSE(stage.player.AtMacro().has_value());
    stage.player.AtSave();
    EXPECT_TRUE(stage.player.AtExitRequest());
    stage.player.AtEnd();
    EXPECT_EQ(stage.hands.did, Lines{});
    EXPECT_EQ(stage.notes, Lines{});
}

TEST(FaultPlayer, AnApplicationThatNeverRegistersIsToldSo)
{
    Stage stage("never-register@2");
    EXPECT_TRUE(stage.player.AtStart());
    EXPECT_FALSE(stage.player.AtStart());
    EXPECT_EQ(stage.notes, Lines{"fault never-register at start"});
}

TEST(FaultPlayer, ALateRegistrationWaits)
{
    Stage stage("register-late:seconds=7");
    EXPECT_TRUE(stage.player.AtStart());
    EXPECT_EQ(stage.hands.did, Lines{"wait 7"});
}

TEST(FaultPlayer, FaultsOfAMomentHappenInTheirOrder)
{
    Stage stage("child-dialog:at=start;register-late:seconds=7;crash");
    EXPECT_TRUE(stage.player.AtStart());
    EXPECT_EQ(stage.hands.did, (Lines{"dialog Formlyn", "wait 7", "crash"}));
}

TEST(FaultPlayer, AMacroFailsWithTheAskedCode)
{
    Stage stage("error-box;leak:mib=3;fail-macro:code=28");
    const std::optional<MacroOutcome> outcome = stage.player.AtMacro();
    ASSERT_TRUE(outcome.has_value());
    EXPECT_FALSE(outcome->succeeded);
    EXPECT_EQ(outcome->error, 28);
    EXPECT_EQ(stage.hands.did, (Lines{"dialog Microsoft Visual Basic", "leak 3"}));
}

TEST(FaultPlayer, ASaveIsHitAfterItsAnnouncementAndBeforeItsBytes)
{
    Stage stage("crash:at=save");
    World world;
    world.files.Put(u"C:\\part.tvnprt", PartText());
    const std::shared_ptr<ModelDocument> part =
        world.application.Open(u"C:\\part.tvnprt", DocumentType::None, false, {}).document;
    ASSERT_NE(part, nullptr);
    const ObserverScope observed(stage.player);
    bool wasThere = true;
    world.application.onSaving = [&] {
        stage.player.AtSave();
        wasThere = world.files.Has(u"C:\\copy.tvnprt");
    };
    EXPECT_TRUE(world.application.Save(*part, u"C:\\copy.tvnprt", {}).Succeeded());
    EXPECT_FALSE(wasThere);
    EXPECT_EQ(stage.notes, (Lines{"event DPartDocEvents 7 \"C:\\copy.tvnprt\"", "fault crash at save"}));
    EXPECT_EQ(stage.hands.did, Lines{"crash"});
}

TEST(FaultPlayer, AnExitIsIgnoredAsOftenAsAsked)
{
    Stage stage("ignore-exit@1");
    EXPECT_FALSE(stage.player.AtExitRequest());
    EXPECT_TRUE(stage.player.AtExitRequest());
}

TEST(FaultPlayer, AHangOnCloseComesAfterTheRequestWasAnswered)
{
    Stage stage("hang:at=close");
    EXPECT_TRUE(stage.player.AtExitRequest());
    EXPECT_EQ(stage.hands.did, Lines{});
    stage.player.AtEnd();
    EXPECT_EQ(stage.hands.did, Lines{"hang"});
}

TEST(FaultPlayer, AMemberThrowsTheAskedCode)
{
    Stage stage("throw:member=Frame,code=0x80010105@2");
    EXPECT_EQ(stage.player.OnCall(u"Torvane", u"frame", {}), 0);
    EXPECT_EQ(stage.player.OnCall(u"Torvane", u"frame", {}), static_cast<Result>(0x80010105));
    EXPECT_EQ(stage.player.OnCall(u"Torvane", u"frame", {}), 0);
}

TEST(FaultPlayer, OnlyRevisionsFrom17HaveRunMacroEx)
{
    Stage older("", 16);
    Stage newer("", 17);
    EXPECT_EQ(older.player.OnCall(u"Torvane", u"runmacroex", {}), static_cast<Result>(0x80020003));
    EXPECT_EQ(older.player.OnCall(u"Torvane", u"runmacro", {}), 0);
    EXPECT_EQ(newer.player.OnCall(u"Torvane", u"runmacroex", {}), 0);
}

TEST(FaultPlayer, ItGoesAwayWhenAListenerCallsBack)
{
    Stage stage("go-away:event=22");
    stage.player.OnEvent(kInterfaceId<DTorvaneEvents>, 22, {});
    EXPECT_EQ(stage.hands.did, Lines{});
    stage.player.OnCall(u"Torvane", u"getfirstdocument", {});
    EXPECT_EQ(stage.hands.did, Lines{"crash"});
}

TEST(FaultPlayer, ItGoesAwayAtTheEndOfAnEventInWhichNobodyCallsBack)
{
    Stage stage("go-away:event=22");
    stage.player.OnEvent(kInterfaceId<DTorvaneEvents>, 22, {});
    stage.player.OnEventDone();
    EXPECT_EQ(stage.hands.did, Lines{"crash"});
}

TEST(FaultPlayer, AnotherEventDoesNotMakeItGoAway)
{
    Stage stage("go-away:event=22");
    stage.player.OnEvent(kInterfaceId<DTorvaneEvents>, 7, {});
    stage.player.OnEventDone();
    EXPECT_EQ(stage.hands.did, Lines{});
}

TEST(FaultPlayer, CallsFromOutsideAreWrittenDownAndRefused)
{
    Stage stage("throw:member=RevisionNumber,code=0x80004005");
    World world;
    const ComPtr<IDispatch> automation = DispatchFor(MakeApplicationObject(world.context));
    const char16_t name[] = u"RevisionNumber";
    auto* text = reinterpret_cast<LPOLESTR>(const_cast<char16_t*>(name));
    DISPID member = 0;
    const GUID none{};
    ASSERT_EQ(automation->GetIDsOfNames(none, &text, 1, LOCALE_USER_DEFAULT, &member), S_OK);
    DISPPARAMS params{};
    const auto call = [&] {
        Variant answer;
        return automation->Invoke(member, none, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, answer.put(), nullptr,
                                  nullptr);
    };
    EXPECT_EQ(call(), S_OK);
    EXPECT_EQ(stage.notes, Lines{});
    const ObserverScope observed(stage.player);
    EXPECT_EQ(call(), E_FAIL);
    EXPECT_EQ(stage.notes, (Lines{"call Torvane.revisionnumber", "fault throw at call"}));
}

TEST(MajorRevision, IsTheLeadingNumber)
{
    EXPECT_EQ(MajorRevision(u"21.1.0"), 21);
    EXPECT_EQ(MajorRevision(u"16"), 16);
    EXPECT_EQ(MajorRevision(u""), 0);
}

} // namespace tv::app
