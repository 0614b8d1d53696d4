// Every operation that can take long ends when a stop is asked for. Each of these would run for minutes otherwise.

#include "local_macro/script_world.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>
#include <thread>

namespace tv::macro {

namespace {

struct LongOperation
{
    const char* name;
    const char* before;
    const char* operation;
    const char* routines = "";
};

constexpr LongOperation kOperations[] = {
    {"DoLoop", "", "Do: Loop"},
    {"WhileLoop", "", "While True: Wend"},
    {"ForLoop", "", "For i = 1 To 1E+15: Next"},
    {"ForLoopWithoutEnd", "", "For i = 1 To 2 Step 0: Next"},
    {"GoToLoop", "", "again: GoTo again"},
    {"GoSubLoop", "", "again: GoSub behind: GoTo again\nbehind: Return"},
    {"ConditionalLoop", "x = 1", "Do: Loop While x = 1"},
    {"Recursion", "", "Do: Climb 1: Loop", "Sub Climb(ByVal n)\nIf n < 1000 Then Climb n + 1\nEnd Sub\n"},
    {"ErrorsThatAreResumed", "On Error Resume Next", "Do: Err.Raise 5: Loop"},
    {"HandlerThatFailsAgain", "On Error GoTo again", "again: On Error GoTo -1: On Error GoTo again: Err.Raise 5"},
    {"ResumeWithoutEnd", "On Error GoTo failed", "Err.Raise 5: Exit Sub\nfailed: Resume"},
    {"InStr", "s = String(3000000, \"a\"): w = String(1000000, \"a\") & \"b\"", "x = InStr(s, w)"},
    {"InStrIgnoringCase", "s = String(3000000, \"a\"): w = String(1000000, \"A\") & \"b\"", "x = InStr(1, s, w, 1)"},
    {"InStrRev", "s = String(3000000, \"a\"): w = \"b\" & String(1000000, \"a\")", "x = InStrRev(s, w)"},
    {"Replace", "s = String(3000000, \"a\"): w = String(1000000, \"a\") & \"b\"", "x = Replace(s, w, \"c\")"},
    {"Split", "s = String(3000000, \"a\"): w = String(1000000, \"a\") & \"b\"", "x = Split(s, w)"},
    {"Filter", "s = Array(String(3000000, \"a\")): w = String(1000000, \"a\") & \"b\"", "x = Filter(s, w)"},
    {"Like", "s = String(3000000, \"a\"): w = \"*\" & String(1000000, \"a\") & \"b\"", "x = s Like w"},
    {"LikeWithManyStars", "s = String(3000000, \"a\"): w = Replace(String(300000, \"x\"), \"x\", \"*a\") & \"b\"",
     "Do: x = s Like w: Loop"},
    {"String", "", "Do: s = String(10000000, \"a\"): Loop"},
    {"UpperCase", "s = String(10000000, \"a\")", "Do: x = UCase(s): Loop"},
    {"Join", "a = Split(String(300000, \",\"), \",\")", "Do: x = Join(a, \"--\"): Loop"},
    {"StrReverse", "s = String(10000000, \"a\")", "Do: x = StrReverse(s): Loop"},
    {"ReDim", "", "Do: ReDim a(2000000): Loop"},
    {"ReDimPreserve", "ReDim a(1000000)", "Do: ReDim Preserve a(1000000): Loop"},
    {"ForEachOverACollection", "Set c = New Collection: For i = 1 To 100000: c.Add i: Next",
     "Do: For Each v In c: Next: Loop"},
    {"LinesOfAFile", "Open \"C:\\big.txt\" For Input As #1", "Do: Seek #1, 1: Line Input #1, s: Loop"},
    {"FilesOfAFolder", "", "Do: n = Dir(\"C:\\many\\*.txt\"): Do While n <> \"\": n = Dir: Loop: Loop"},
    {"CopyOfAFile", "", "Do: FileCopy \"C:\\big.txt\", \"C:\\copy.txt\": Loop"},
};

/// Tells when the macro shows its message box, behind which the long operation begins.
class SignallingHost final : public ScriptHost
{
  public:
    int32_t MessageBox(const std::u16string&, int32_t, const std::u16string&) override
    {
        std::lock_guard lock(mutex);
        begun = true;
        change.notify_all();
        return 1;
    }

    void WaitForBegin()
    {
        std::unique_lock lock(mutex);
        change.wait(lock, [this] { return begun; });
    }

  private:
    std::mutex mutex;
    std::condition_variable change;
    bool begun = false;
};

class Stop : public testing::TestWithParam<LongOperation>
{};

} // namespace

TEST_P(Stop, EndsIt)
{
    const LongOperation& tested = GetParam();
    CompileResult compiled = Compile(Wide(std::string(tested.routines) + "Sub main()\n" + tested.before +
                                          "\nMsgBox 1\n" + tested.operation + "\nEnd Sub\n"));
    ASSERT_TRUE(compiled.module) << Narrow(compiled.problems.front().message);
    SignallingHost host;
    host.files.Put(u"C:\\big.txt", std::string(1U << 20, 'x'));
    for (int i = 0; i < 100; ++i) {
        host.files.Put(u"C:\\many\\file" + Wide(std::to_string(i)) + u".txt", "");
    }
    Machine machine(host, {});
    std::thread other([&] {
        host.WaitForBegin();
        // Until the operation is under way.
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        machine.RequestStop();
    });
    const RunResult result = machine.Run(*compiled.module, u"main");
    other.join();
    EXPECT_EQ(result.outcome, Outcome::Stopped) << result.number << " " << Narrow(result.description);
}

INSTANTIATE_TEST_SUITE_P(Operations, Stop, testing::ValuesIn(kOperations),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(TimeLimit, IsHeardWithinOneLongOperation)
{
    ScriptHost host;
    Limits limits;
    limits.runTime = std::chrono::milliseconds(100);
    ScriptResult result =
        RunModule("Sub main()\nx = String(3000000, \"a\") Like \"*\" & String(1000000, \"a\") & \"b\"\n"
                  "End Sub\n",
                  host, nullptr, limits);
    EXPECT_EQ(result.run.outcome, Outcome::TimeLimit);
}

TEST(TimeLimit, ARunWithinARunHasTheLimitOfTheOuterOneAgain)
{
    ScriptHost inner;
    ScriptHost host;
    host.functions[{u"host", u"nested"}] = [&](Arguments&) {
        return Value(RunModule("Sub main()\nx = 1\nEnd Sub\n", inner).run.number);
    };
    Limits limits;
    limits.runTime = std::chrono::milliseconds(100);
    ScriptResult result = RunModule("Declare Function Nested Lib \"host\" () As Long\nSub main()\nx = Nested()\n"
                                    "x = String(3000000, \"a\") Like \"*\" & String(1000000, \"a\") & \"b\"\nEnd Sub\n",
                                    host, nullptr, limits);
    EXPECT_EQ(result.run.outcome, Outcome::TimeLimit);
}

} // namespace tv::macro
