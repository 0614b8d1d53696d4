#include "local_macro/script_world.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace tv::macro {

TEST(Limits, EndlessRecursionIsOutOfStackSpace)
{
    ScriptResult result = RunModule("Sub a()\na\nEnd Sub\nSub main()\na\nEnd Sub");
    EXPECT_EQ(result.run.number, 28);
    EXPECT_EQ(result.run.description, u"Out of stack space");
}

TEST(Limits, ARecursionThatFailsCanBeCaught)
{
    EXPECT_EQ(
        RunModule("Sub a()\na\nEnd Sub\nSub main()\nOn Error Resume Next\na\nDebug.Print Err.Number\nEnd Sub").Output(),
        " 28 ");
}

TEST(Limits, TooMuchMemoryIsErrorSeven)
{
    ScriptHost host;
    Limits limits;
    limits.memory = 8 << 20;
    EXPECT_EQ(RunModule("Sub main()\ns = \"x\"\nDo\ns = s & s\nLoop\nEnd Sub", host, nullptr, limits).run.number, 7);
    EXPECT_EQ(RunModule("Sub main()\nDim a(100000000) As Long\nEnd Sub", host, nullptr, limits).run.number, 7);
    EXPECT_EQ(RunModule("Sub main()\ns = String(2000000000, \"x\")\nEnd Sub", host, nullptr, limits).run.number, 7);
    EXPECT_EQ(
        RunModule("Sub main()\nSet c = New Collection\nDo\nc.Add 1\nLoop\nEnd Sub", host, nullptr, limits).run.number,
        7);
}

TEST(Limits, TheRunTimeLimitEndsTheRunPastEveryHandler)
{
    ScriptHost host;
    Limits limits;
    limits.runTime = std::chrono::milliseconds(20);
    ScriptResult result = RunModule("Sub main()\nOn Error Resume Next\nDo\nLoop\nEnd Sub", host, nullptr, limits);
    EXPECT_EQ(result.run.outcome, Outcome::TimeLimit);
}

// How soon is measured by the bench; here the run would never end by itself.
TEST(Limits, AStopEndsALoopThatNoErrorEnds)
{
    CompileResult compiled = Compile(u"Declare Function Begin Lib \"host\" () As Long\n"
                                     u"Sub main()\nOn Error Resume Next\nx = Begin()\n"
                                     u"Do\nFor i = 1 To 10\nNext\nLoop\nEnd Sub");
    ASSERT_TRUE(compiled.module);
    ScriptHost host;
    std::promise<void> begun;
    host.functions[{u"host", u"begin"}] = [&](Arguments&) {
        begun.set_value();
        return Value(0);
    };
    Machine machine(host, {});
    std::thread other([&] {
        begun.get_future().wait();
        machine.RequestStop();
    });
    RunResult result = machine.Run(*compiled.module, u"main");
    other.join();
    EXPECT_EQ(result.outcome, Outcome::Stopped);
}

TEST(Limits, ValuesHeldInEachOtherAreGivenBackWithoutACrash)
{
    EXPECT_EQ(RunLines("For i = 1 To 200000\nv = Array(v)\nNext\nv = Empty\nDebug.Print \"done\""), "done");
    EXPECT_EQ(RunLines("Set c = New Collection\nc.Add c\nDebug.Print c.Count"), " 1 ");
}

TEST(Limits, OneModuleRunsOnTwoThreads)
{
    CompileResult compiled = Compile(u"Sub main()\nFor i = 1 To 2000\ns = s & \"constant\"\nNext\nEnd Sub");
    ASSERT_TRUE(compiled.module);
    auto run = [&] {
        ScriptHost host;
        Machine machine(host, {});
        EXPECT_EQ(machine.Run(*compiled.module, u"main").outcome, Outcome::Ok);
    };
    std::thread first(run);
    std::thread second(run);
    first.join();
    second.join();
}

} // namespace tv::macro
