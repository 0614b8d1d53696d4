#include "cad/start_options.h"

#include "cad/transcript_text.h"
#include "interfaces/application.h"
#include "interfaces/ids.h"

#include <gtest/gtest.h>

#include <vector>

namespace tv::app {

namespace {

StartOptions Read(const std::vector<std::u16string>& arguments)
{
    return ReadStartOptions(arguments);
}

} // namespace

TEST(StartOptions, WithoutArgumentsTheApplicationRuns)
{
    EXPECT_EQ(Read({}), StartOptions{});
    EXPECT_EQ(Read({u"-Embedding"}), StartOptions{});
}

TEST(StartOptions, TheTwoWaysToStartAreKept)
{
    EXPECT_EQ(Read({u"/B"}).way, u"/B");
    EXPECT_EQ(Read({u"/r"}).way, u"/R");
}

TEST(StartOptions, RegistrationIsAModeOfItsOwn)
{
    EXPECT_EQ(Read({u"/regserver"}).mode, StartMode::Register);
    EXPECT_EQ(Read({u"/UnregServer"}).mode, StartMode::Unregister);
}

TEST(StartOptions, FaultsAreJoined)
{
    const StartOptions options = Read({u"/faults:crash@1", u"/B", u"/FAULTS:hang@2"});
    EXPECT_EQ(options.faults, u"crash@1;hang@2");
    EXPECT_EQ(options.way, u"/B");
    EXPECT_EQ(options.unknown, u"");
}

TEST(StartOptions, TheFirstUnknownArgumentIsTold)
{
    EXPECT_EQ(Read({u"/B", u"/X", u"/Y"}).unknown, u"/X");
}

TEST(JoinedFaults, NeedNoSemicolonBesideNothing)
{
    EXPECT_EQ(JoinFaults(u"", u"crash"), u"crash");
    EXPECT_EQ(JoinFaults(u"crash", u""), u"crash");
    EXPECT_EQ(JoinFaults(u"crash", u"hang"), u"crash;hang");
}

TEST(TranscriptText, ACallHasItsArguments)
{
    const std::vector<macro::Value> arguments{macro::Value(int32_t{290}), macro::Value(true),
                                              macro::Value(u"C:\\a \"b\"\r\nc"), macro::Value::Nothing(),
                                              macro::Value()};
    EXPECT_EQ(CallLine(u"Torvane", u"member", arguments),
              "call Torvane.member 290 True \"C:\\a \"\"b\"\"  c\" Nothing Empty");
}

TEST(TranscriptText, EachEventInterfaceHasItsName)
{
    EXPECT_EQ(EventLine(kInterfaceId<DTorvaneEvents>, 22, {}), "event DTorvaneEvents 22");
    EXPECT_EQ(EventLine(kInterfaceId<DPartDocEvents>, 7, {}), "event DPartDocEvents 7");
    EXPECT_EQ(EventLine(kInterfaceId<DAssemblyDocEvents>, 2, {}), "event DAssemblyDocEvents 2");
    EXPECT_EQ(EventLine(kInterfaceId<DDrawingDocEvents>, 7, {}), "event DDrawingDocEvents 7");
    EXPECT_EQ(EventLine(kInterfaceId<DModelViewEvents>, 10, {}), "event DModelViewEvents 10");
}

TEST(TranscriptText, AnEventHasItsArguments)
{
    const Variant path = Variant::FromText(u"C:\\out.stp");
    EXPECT_EQ(EventLine(kInterfaceId<DPartDocEvents>, 7, std::span<const Variant>(&path, 1)),
              "event DPartDocEvents 7 \"C:\\out.stp\"");
}

} // namespace tv::app
