// The command that runs a macro file in the application.
#include "host_world.h"

#include "vault/text.h"

#include <fstream>
#include <iterator>

namespace tv::local {

namespace {

namespace fs = std::filesystem;
using app::MacroEventKind;
using Log = std::vector<std::string>;

std::string BytesOf(const std::string& path)
{
    std::ifstream stream(PathOf(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

class MacroRunTest : public HostWorld
{
  protected:
    Printed RunMacro(std::string_view text, std::vector<std::string> options = {})
    {
        file = Write("macro.bas", text);
        options.insert(options.begin(), {"macro-run", file});
        return Run(std::move(options));
    }

    /// The last line, without how long it took.
    static std::string Ending(const Printed& printed)
    {
        const size_t end = printed.out.find_last_not_of('\n');
        const std::string line = printed.out.substr(printed.out.rfind('\n', end) + 1);
        return line.substr(0, line.find(" after "));
    }

    std::string file;
};

constexpr std::string_view kMain = "Sub main()\nEnd Sub\n";

TEST_F(MacroRunTest, NeedsNoVault)
{
    EXPECT_EQ(RunMacro(kMain).code, 0);
}

TEST_F(MacroRunTest, RunsMainInAnApplicationOfItsOwnAndEndsIt)
{
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(Ending(printed), "main ended well");
    EXPECT_EQ(applications.log, (Log{"start", "run main", "close", "gone"}));
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(MacroRunTest, AnotherProcedureMayBeNamedInAnyCapitals)
{
    EXPECT_EQ(RunMacro("Sub Other()\nEnd Sub\n", {"--procedure", "other"}).code, 0);
    EXPECT_EQ(applications.log[1], "run other");
}

TEST_F(MacroRunTest, AProcedureThatIsNotThereIsWrongUsageAndStartsNothing)
{
    const Printed printed = RunMacro("Sub First()\nEnd Sub\nFunction Second2()\nEnd Function\n");
    EXPECT_EQ(printed.code, 2);
    EXPECT_EQ(printed.err, "tvtask: '" + file + "' has no procedure 'main'; there are: First, Second2.\n");
    EXPECT_TRUE(applications.log.empty());
}

TEST_F(MacroRunTest, AFileThatCannotBeReadIsWrongUsage)
{
    EXPECT_EQ(Run({"macro-run", TextOf(Folder("none.bas"))}).code, 2);
    EXPECT_EQ(Run({"macro-run"}).code, 2);
    EXPECT_EQ(RunMacro(kMain, {"--timeout", "0"}).code, 2);
    EXPECT_TRUE(applications.log.empty());
}

TEST_F(MacroRunTest, AMacroThatDoesNotCompileIsToldAndStartsNothing)
{
    const Printed printed = RunMacro("Sub main()\n  x = = 1\nEnd Sub\n");
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, file + ":2:7: error: Expected: expression\n"
                                  "      x = = 1\n"
                                  "          ^\n"
                                  "Nothing was run: the macro doesn't compile\n");
    EXPECT_TRUE(applications.log.empty());
    const Json json = RunMacro("Sub main()\n  x = = 1\nEnd Sub\n", {"--json"}).AsJson();
    EXPECT_EQ(json["outcome"], "not started");
    EXPECT_EQ(json["findings"][0]["line"], 2);
}

TEST_F(MacroRunTest, TheApplicationGetsTheTextInItsCodePageWithItsOwnLineEnds)
{
    std::string path;
    std::string bytes;
    applications.macro = [&](ScriptedRun&, const std::string& handed, const std::string&) {
        path = handed;
        bytes = BytesOf(handed);
        return MacroCall{true, true, 0};
    };
    RunMacro("\xEF\xBB\xBF' \xC3\xA4\nSub main()\nEnd Sub");
    EXPECT_EQ(bytes, "' \xE4\r\nSub main()\r\nEnd Sub\r\n");
    EXPECT_TRUE(path.ends_with(".tvb")) << path;
    EXPECT_FALSE(fs::exists(PathOf(path)));
}

TEST_F(MacroRunTest, AFileThatIsNoUtf8IsTakenAsTheCodePage)
{
    std::string bytes;
    applications.macro = [&](ScriptedRun&, const std::string& handed, const std::string&) {
        bytes = BytesOf(handed);
        return MacroCall{true, true, 0};
    };
    RunMacro("' \xE4\r\nSub main()\r\nEnd Sub");
    EXPECT_EQ(bytes, "' \xE4\r\nSub main()\r\nEnd Sub\r\n");
}

TEST_F(MacroRunTest, ACharacterThatTheApplicationCannotGetIsToldAndTheMacroRuns)
{
    const Printed printed = RunMacro("' \xCE\xA9\nSub main()\nEnd Sub");
    EXPECT_EQ(printed.code, 0);
    EXPECT_TRUE(printed.out.starts_with(file + ":1:3: warning: '\xCE\xA9' isn't in code page 1252")) << printed.out;
}

TEST_F(MacroRunTest, WhatTheMacroPrintsAndSavesIsPrinted)
{
    applications.macro = [](ScriptedRun& run, const std::string&, const std::string&) {
        run.Tell({MacroEventKind::Printed, "one"});
        run.Tell({MacroEventKind::Saved, "C:\\Out\\screw.stl"});
        run.Tell({MacroEventKind::Asked, "Go on?"});
        return MacroCall{true, true, 0};
    };
    const Printed printed = RunMacro(kMain);
    EXPECT_TRUE(printed.out.starts_with("one\n"
                                        "Saved C:\\Out\\screw.stl\n"
                                        "The macro shows a message box and waits: Go on?\n"
                                        "main ended well after "))
        << printed.out;
}

TEST_F(MacroRunTest, AnErrorIsToldWithItsLineNumberAndWords)
{
    applications.macro = [](ScriptedRun& run, const std::string&, const std::string&) {
        run.Tell({MacroEventKind::Failed, "Type mismatch", 13, 2});
        return MacroCall{true, false, 14};
    };
    const Printed printed = RunMacro("Sub main()\n  x = \"a\" + 1\nEnd Sub\n");
    EXPECT_EQ(printed.code, 1);
    EXPECT_TRUE(printed.out.starts_with(file + ":2:3: error: Type mismatch (error 13)\n"
                                               "      x = \"a\" + 1\n"
                                               "      ^\n"))
        << printed.out;
    EXPECT_EQ(Ending(printed), "main failed");
    EXPECT_EQ(applications.log, (Log{"start", "run main", "close", "gone"}));
}

TEST_F(MacroRunTest, JsonTellsHowItWentAndWhatWasDone)
{
    applications.macro = [](ScriptedRun& run, const std::string&, const std::string&) {
        run.Tell({MacroEventKind::Printed, "one"});
        run.Tell({MacroEventKind::Saved, "C:\\screw.stl"});
        run.Tell({MacroEventKind::Failed, "Type mismatch", 13, 1});
        return MacroCall{true, false, 14};
    };
    const Printed printed = RunMacro(kMain, {"--json"});
    EXPECT_EQ(printed.code, 1);
    const Json json = printed.AsJson();
    EXPECT_EQ(json["outcome"], "failed");
    EXPECT_EQ(json["procedure"], "main");
    EXPECT_EQ(json["printed"], Json::array({"one"}));
    EXPECT_EQ(json["saved"], Json::array({"C:\\screw.stl"}));
    EXPECT_EQ(json["error"]["number"], 13);
    EXPECT_EQ(json["error"]["description"], "Type mismatch");
    EXPECT_EQ(json["error"]["line"], 1);
    applications.macro = [](ScriptedRun&, const std::string&, const std::string&) { return MacroCall{true, true, 0}; };
    EXPECT_EQ(RunMacro(kMain, {"--json"}).AsJson()["error"], nullptr);
}

TEST_F(MacroRunTest, AMacroThatTakesTooLongIsEndedByForce)
{
    applications.macro = [](ScriptedRun& run, const std::string&, const std::string&) {
        run.Tell({MacroEventKind::Printed, "still here"});
        run.WaitForEnd();
        return MacroCall{};
    };
    const Printed printed = RunMacro(kMain, {"--timeout", "0.05"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_TRUE(printed.out.starts_with("still here\n")) << printed.out;
    EXPECT_EQ(Ending(printed), "Ended by force");
    EXPECT_EQ(applications.log, (Log{"start", "run main", "kill", "close", "gone"}));
}

TEST_F(MacroRunTest, CtrlCEndsTheMacroByForce)
{
    applications.macro = [this](ScriptedRun& run, const std::string&, const std::string&) {
        machine.interrupt();
        run.WaitForEnd();
        return MacroCall{};
    };
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Ended by Ctrl-C\n");
    EXPECT_EQ(applications.log, (Log{"start", "run main", "kill", "close", "gone"}));
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(MacroRunTest, CtrlCDuringTheStartGivesItUp)
{
    applications.onStart = [this] { machine.interrupt(); };
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Ended by Ctrl-C\n");
    EXPECT_EQ(printed.err, "");
    EXPECT_EQ(applications.log, Log{"start"});
}

TEST_F(MacroRunTest, AnApplicationThatEndsDuringTheMacroIsTold)
{
    applications.macro = [this](ScriptedRun&, const std::string&, const std::string&) {
        applications.processes.back()->hasEnded = true;
        return MacroCall{};
    };
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "The CAD application ended while it ran main\n");
}

TEST_F(MacroRunTest, AnApplicationThatRefusesTheCallAndLivesIsToldOtherwise)
{
    applications.macro = [](ScriptedRun&, const std::string&, const std::string&) { return MacroCall{}; };
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "The CAD application didn't take the call to run main\n");
    EXPECT_EQ(RunMacro(kMain, {"--json"}).AsJson()["outcome"], "not answered");
}

TEST_F(MacroRunTest, WhatAnotherMacroDoesInTheSameApplicationIsNotTold)
{
    applications.macro = [](ScriptedRun& run, const std::string& path, const std::string&) {
        run.Tell({MacroEventKind::Printed, "one"});
        run.Tell({MacroEventKind::Began, "C:\\Temp\\another.tvb"});
        run.Tell({MacroEventKind::Printed, "not ours"});
        run.Tell({MacroEventKind::Began, path});
        run.Tell({MacroEventKind::Printed, "two"});
        return MacroCall{true, true, 0};
    };
    EXPECT_TRUE(RunMacro(kMain).out.starts_with("one\ntwo\nmain ended well after "));
}

TEST_F(MacroRunTest, AnApplicationThatCannotBeStartedHasAnExitCodeOfItsOwn)
{
    applications.failure = "The CAD application isn't registered.";
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 3);
    EXPECT_EQ(printed.err, "tvtask: The CAD application isn't registered.\n");
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(MacroRunTest, TheWindowIsShownWhenAskedFor)
{
    RunMacro(kMain, {"--visible"});
    EXPECT_EQ(applications.log.front(), "start visible");
}

#ifndef _WIN32
TEST(MacroRunHere, WithoutTheApplicationsSystemTheStartSaysSo)
{
    try {
        MakeApplicationStarter()->Start({});
        FAIL();
    } catch (const NoApplicationError& error) {
        EXPECT_STREQ(error.what(),
                     "The CAD application is a Windows program: it runs on Windows, or elsewhere under Wine. On "
                     "this system macros are only checked.");
    }
}
#endif

} // namespace

} // namespace tv::local
