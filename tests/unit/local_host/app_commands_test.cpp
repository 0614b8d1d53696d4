// The commands on the application alone.
#include "host_world.h"

#include "host/application_records.h"
#include "vault/text.h"

#include <fstream>

namespace tv::local {

namespace {

namespace fs = std::filesystem;
using app::MacroEventKind;
using Log = std::vector<std::string>;

constexpr std::string_view kMain = "Sub main()\nEnd Sub\n";

class AppCommandsTest : public HostWorld
{
  protected:
    AppCommandsTest() : program(Write("CAD/TORVANE.EXE", "program"))
    {
        PutVersion(0, 2013, program + " /B", StartSource::RegisteredServer);
        PutVersion(2013, 2013, program + " /B", StartSource::Setup64);
    }

    void PutVersion(int32_t asked, int32_t started, const std::string& commandLine, StartSource source)
    {
        component.starts[asked] = {started, source, Utf16(commandLine)};
    }

    Printed App(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), "app");
        return Run(std::move(arguments));
    }

    /// "app run" of a macro file with that text.
    Printed RunMacro(std::string_view text, std::vector<std::string> options = {})
    {
        file = Write("macro.bas", text);
        options.insert(options.begin(), {"run", file});
        return App(std::move(options));
    }

    ScriptedApplications::Running& Process(size_t index) { return *applications.processes.at(index); }
    std::vector<ApplicationRecord> Records() const { return ApplicationRecords(Folder("applications")).All(); }

    std::string program;
    std::string file;
};

} // namespace

TEST_F(AppCommandsTest, NoneOfThemNeedsAVault)
{
    EXPECT_EQ(App({"versions"}).code, 0);
    EXPECT_EQ(App({"list"}).code, 0);
    EXPECT_EQ(App({"start"}).code, 0);
    EXPECT_EQ(RunMacro(kMain).code, 0);
    EXPECT_EQ(App({"stop"}).code, 0);
}

TEST_F(AppCommandsTest, WhereThereAreNoApplicationsEachSaysSo)
{
    applications.noSystem = "The CAD application is a Windows program.";
    for (const std::vector<std::string>& command : std::vector<std::vector<std::string>>{
             {"versions"}, {"list"}, {"start"}, {"start", "--version", "2013"}, {"stop"}, {"stop", "--all"}}) {
        const Printed printed = App(command);
        EXPECT_EQ(printed.code, 3) << command.front();
        EXPECT_EQ(printed.err, "tvtask: The CAD application is a Windows program.\n") << command.front();
        EXPECT_EQ(printed.out, "");
    }
    EXPECT_EQ(RunMacro(kMain).code, 3);
}

TEST_F(AppCommandsTest, AWordThatIsNoCommandIsWrongUsage)
{
    EXPECT_EQ(App({}).code, 2);
    EXPECT_EQ(App({}).err, "tvtask: A subcommand is required. To see what would be right: tvtask app --help\n");
    EXPECT_EQ(App({"begin"}).code, 2);
    EXPECT_EQ(App({"run"}).code, 2);
    EXPECT_EQ(App({"run"}).err, "tvtask: FILE is required. To see what would be right: tvtask app run --help\n");
}

TEST_F(AppCommandsTest, VersionsAreListedWithWhatStartsEach)
{
    applications.years = {2012, 2013};
    PutVersion(2012, 2012, "C:\\Old CAD\\TORVANE.EXE /R", StartSource::Setup32);
    EXPECT_EQ(App({"versions"}).out,
              "Torvane 2012\n"
              "  class         Torvane.Application.20 {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\n"
              "  found in      Setup key, 32-bit view\n"
              "  command line  C:\\Old CAD\\TORVANE.EXE /R\n"
              "  problem       The program 'C:\\Old CAD\\TORVANE.EXE' is missing (Setup key, 32-bit view). Repair the "
              "installation.\n"
              "Torvane 2013 (default)\n"
              "  class         Torvane.Application.21 {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\n"
              "  found in      Setup key, 64-bit view\n"
              "  command line  " +
                  program +
                  " /B\n"
                  "Without a version asked for, Torvane 2013 is started (registered server):\n"
                  "  command line  " +
                  program + " /B\n");
    EXPECT_TRUE(applications.log.empty());
}

TEST_F(AppCommandsTest, AMachineWithoutVersionsSaysSo)
{
    applications.years = {};
    component.starts.clear();
    const Printed printed = App({"versions"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.out, "Without a version asked for, nothing is started. The class 'Torvane.Application' isn't "
                           "registered. Register a version; the local edition's with: TORVANE.EXE /regserver\n");
}

TEST_F(AppCommandsTest, VersionsAsJsonHaveTheirProblems)
{
    applications.years = {2012, 2013};
    const Json json = App({"versions", "--json"}).AsJson();
    EXPECT_EQ(json["versions"][0]["year"], 2012);
    EXPECT_EQ(json["versions"][0]["default"], false);
    EXPECT_EQ(json["versions"][0]["canStart"], false);
    EXPECT_EQ(json["versions"][0]["problem"],
              "The class 'Torvane.Application.20' isn't registered. Repair the installation of that version.");
    EXPECT_EQ(json["versions"][1]["default"], true);
    EXPECT_EQ(json["versions"][1]["className"], "Torvane.Application.21");
    EXPECT_EQ(json["versions"][1]["classId"], "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}");
    EXPECT_EQ(json["versions"][1]["source"], "Setup key, 64-bit view");
    EXPECT_EQ(json["versions"][1]["commandLine"], program + " /B");
    EXPECT_EQ(json["versions"][1]["program"], program);
    EXPECT_EQ(json["versions"][1]["problem"], "");
    EXPECT_EQ(json["default"]["year"], 2013);
    EXPECT_EQ(json["default"]["source"], "registered server");
}

TEST_F(AppCommandsTest, WithoutTheAddInTheVersionsAreNotKnown)
{
    component.registered = false;
    const Printed printed = App({"versions"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.err, "tvtask: The add-in can't be created (0x80040154).\n");
}

TEST_F(AppCommandsTest, AStartTellsTheProcessAndLeavesItRunning)
{
    const Printed printed = App({"start"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.out, "Started Torvane 2013 as process 4711: " + program +
                               " /B\n"
                               "It runs until it is ended with: tvtask app stop\n");
    EXPECT_EQ(applications.log, (Log{"start", "keep"}));
    EXPECT_EQ(applications.starts[0].commandLine, program + " /B");
    EXPECT_EQ(applications.starts[0].patience, std::chrono::seconds(120));
    EXPECT_FALSE(Process(0).hasEnded);
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(AppCommandsTest, AStartAsJsonHasTheProcessId)
{
    const Json json = App({"start", "--json"}).AsJson();
    EXPECT_EQ(json["processId"], 4711);
    EXPECT_EQ(json["year"], 2013);
    EXPECT_EQ(json["commandLine"], program + " /B");
}

TEST_F(AppCommandsTest, AStartMayNameItsVersionItsPatienceAndTheWindow)
{
    PutVersion(2014, 2014, program + " /R", StartSource::Setup64);
    EXPECT_TRUE(App({"start", "--version", "2014", "--visible", "--timeout", "2.5"})
                    .out.starts_with("Started Torvane 2014 as process 4711: "));
    EXPECT_EQ(applications.log.front(), "start visible");
    EXPECT_EQ(applications.starts[0].commandLine, program + " /R");
    EXPECT_EQ(applications.starts[0].patience, std::chrono::milliseconds(2500));
}

TEST_F(AppCommandsTest, AVersionThatIsNotInstalledStartsWhatATaskWouldStartAndSaysSo)
{
    PutVersion(2010, 2013, program + " /B", StartSource::RegisteredServer);
    const Printed printed = App({"start", "--version", "2010"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_TRUE(printed.out.starts_with("Torvane 2010 isn't installed; as a task would, this takes Torvane 2013 in its "
                                        "place\nStarted Torvane 2013 as process 4711"))
        << printed.out;
}

TEST_F(AppCommandsTest, AVersionThatCannotBeStartedIsToldWithThoseThatCan)
{
    applications.years = {2012, 2013};
    const Printed printed = App({"start", "--version", "2012"});
    EXPECT_EQ(printed.code, 3);
    EXPECT_EQ(printed.err,
              "tvtask: Torvane 2012 can't be started. The class 'Torvane.Application.20' isn't registered. "
              "Repair the installation of that version. Versions that can be started: 2013.\n");
    EXPECT_TRUE(applications.log.empty());
}

TEST_F(AppCommandsTest, AMissingProgramIsToldBeforeTheStart)
{
    applications.years = {};
    PutVersion(0, 2013, "C:\\None\\TORVANE.EXE /B", StartSource::RegisteredServer);
    const Printed printed = App({"start"});
    EXPECT_EQ(printed.code, 3);
    EXPECT_EQ(printed.err,
              "tvtask: The CAD application can't be started. The program 'C:\\None\\TORVANE.EXE' is missing "
              "(registered server). Repair the installation.\n");
    EXPECT_TRUE(applications.log.empty());
}

TEST_F(AppCommandsTest, AVersionThatIsNoProductYearIsWrongUsage)
{
    EXPECT_EQ(App({"start", "--version", "21"}).code, 2);
    EXPECT_EQ(App({"start", "--version", "latest"}).code, 2);
    EXPECT_EQ(App({"start", "--timeout", "0"}).code, 2);
    EXPECT_TRUE(applications.log.empty());
}

TEST_F(AppCommandsTest, AStartThatFailsLeavesNothingBehind)
{
    applications.failure = "The CAD application didn't register itself within 120 seconds, and was ended.";
    const Printed printed = App({"start"});
    EXPECT_EQ(printed.code, 3);
    EXPECT_EQ(printed.err, "tvtask: The CAD application didn't register itself within 120 seconds, and was ended.\n");
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(AppCommandsTest, CtrlCDuringTheStartEndsIt)
{
    applications.onStart = [this] { machine.interrupt(); };
    const Printed printed = App({"start"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Ended by Ctrl-C\n");
    EXPECT_EQ(printed.err, "");
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(AppCommandsTest, AStartThatCannotBeRecordedEndsTheApplicationAgain)
{
    Write("applications", "a file where the folder would be");
    const Printed printed = App({"start"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("by which later commands find the application, can't be written"), std::string::npos);
    EXPECT_TRUE(Process(0).hasEnded);
}

TEST_F(AppCommandsTest, AMacroRunsInTheApplicationThatRunsAndLeavesItRunning)
{
    App({"start"});
    applications.macro = [](ScriptedRun& run, const std::string&, const std::string&) {
        run.Tell({MacroEventKind::Printed, "one"});
        run.Tell({MacroEventKind::Saved, "C:\\Out\\screw.stl"});
        return MacroCall{true, true, 0};
    };
    for (int times = 0; times < 2; ++times) {
        const Printed printed = RunMacro(kMain);
        EXPECT_EQ(printed.code, 0);
        EXPECT_TRUE(printed.out.starts_with("one\nSaved C:\\Out\\screw.stl\nmain ended well after ")) << printed.out;
    }
    EXPECT_EQ(applications.log, (Log{"start", "keep", "run main", "run main"}));
    EXPECT_FALSE(Process(0).hasEnded);
}

TEST_F(AppCommandsTest, AMacroThatFailsIsToldWithItsPlace)
{
    App({"start"});
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
    EXPECT_FALSE(Process(0).hasEnded);
}

TEST_F(AppCommandsTest, AMacroThatDoesNotCompileIsNotRun)
{
    App({"start"});
    const Printed printed = RunMacro("Sub main()\n  x = = 1\nEnd Sub\n");
    EXPECT_EQ(printed.code, 1);
    EXPECT_TRUE(printed.out.ends_with("Nothing was run: the macro doesn't compile\n")) << printed.out;
    EXPECT_EQ(applications.log, (Log{"start", "keep"}));
    EXPECT_EQ(RunMacro(kMain, {"--procedure", "other"}).code, 2);
    EXPECT_EQ(App({"run", TextOf(Folder("none.bas"))}).code, 2);
}

TEST_F(AppCommandsTest, AnotherProcedureMayBeNamed)
{
    App({"start"});
    EXPECT_EQ(RunMacro("Sub Other()\nEnd Sub\n", {"--procedure", "Other"}).code, 0);
    EXPECT_EQ(applications.log.back(), "run Other");
}

TEST_F(AppCommandsTest, ARunWithoutAnApplicationSaysHowToStartOne)
{
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 3);
    EXPECT_EQ(printed.err, "tvtask: No application that 'tvtask app start' started is running. Start one with: tvtask "
                           "app start\n");
}

TEST_F(AppCommandsTest, AmongSeveralTheOneIsNamed)
{
    App({"start"});
    App({"start"});
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 2);
    EXPECT_EQ(printed.err,
              "tvtask: Several applications are running; say which one with --pid: 4711 (Torvane 2013, since "
              "2026-11-21 13:20:09), 4712 (Torvane 2013, since 2026-11-21 13:20:09).\n");
    EXPECT_EQ(RunMacro(kMain, {"--pid", "4712"}).code, 0);
    EXPECT_EQ(App({"stop"}).code, 2);
    const Printed wrong = RunMacro(kMain, {"--pid", "99"});
    EXPECT_EQ(wrong.code, 2);
    EXPECT_EQ(wrong.err,
              "tvtask: No application that 'tvtask app start' started has the process id 99; there are: 4711 "
              "(Torvane 2013, since 2026-11-21 13:20:09), 4712 (Torvane 2013, since 2026-11-21 "
              "13:20:09).\n");
}

TEST_F(AppCommandsTest, AMacroThatTakesTooLongTakesItsApplicationWithIt)
{
    App({"start"});
    applications.macro = [](ScriptedRun& run, const std::string&, const std::string&) {
        run.WaitForEnd();
        return MacroCall{};
    };
    const Printed printed = RunMacro(kMain, {"--timeout", "0.05"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_TRUE(printed.out.starts_with("Ended by force after ")) << printed.out;
    EXPECT_TRUE(printed.out.ends_with(": main took longer than --timeout allows; the CAD application (process 4711) "
                                      "ended with it\n"))
        << printed.out;
    EXPECT_TRUE(Records().empty());
}

TEST_F(AppCommandsTest, CtrlCEndsTheMacroAndItsApplication)
{
    App({"start"});
    applications.macro = [this](ScriptedRun& run, const std::string&, const std::string&) {
        machine.interrupt();
        run.WaitForEnd();
        return MacroCall{};
    };
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Ended by Ctrl-C; the CAD application (process 4711) ended with it\n");
}

TEST_F(AppCommandsTest, AnApplicationThatCrashesUnderAMacroIsToldAndForgotten)
{
    App({"start"});
    applications.macro = [this](ScriptedRun&, const std::string&, const std::string&) {
        Process(0).hasEnded = true;
        return MacroCall{};
    };
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "The CAD application ended while it ran main\n");
    EXPECT_TRUE(Records().empty());
    EXPECT_EQ(RunMacro(kMain).code, 3);
}

TEST_F(AppCommandsTest, AnApplicationThatIsAtAnotherMacroIsRefused)
{
    App({"start"});
    Process(0).isBusy = true;
    const Printed printed = RunMacro(kMain);
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.err, "tvtask: Another macro runs.\n");
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(AppCommandsTest, WhatWasToldBeforeTheRunIsNotTold)
{
    App({"start"});
    std::ofstream(PathOf(Process(0).eventsFile), std::ios::binary) << R"({"event":"printed","text":"from before"})"
                                                                   << "\r\n";
    EXPECT_TRUE(RunMacro(kMain).out.starts_with("main ended well"));
}

TEST_F(AppCommandsTest, TheListTellsVersionRevisionTimeAndDocuments)
{
    EXPECT_EQ(App({"list"}).out, "No application that 'tvtask app start' started is running.\n");
    App({"start"});
    App({"start"});
    Process(0).details = {true, "21.1.0", {"C:\\a.tvnprt", "Part2"}};
    Process(1).details = {};
    EXPECT_EQ(App({"list"}).out,
              "Process  Version  Revision  Since (UTC)          Documents\n"
              "-------  -------  --------  -------------------  -----------------------------------\n"
              "   4711     2013  21.1.0    2026-11-21 13:20:09  C:\\a.tvnprt, Part2\n"
              "   4712     2013  ?         2026-11-21 13:20:09  doesn't answer: it is busy or hangs\n");
    const Json json = App({"list", "--json"}).AsJson();
    EXPECT_EQ(json[0]["processId"], 4711);
    EXPECT_EQ(json[0]["revision"], "21.1.0");
    EXPECT_EQ(json[0]["since"], "2026-11-21T13:20:09Z");
    EXPECT_EQ(json[0]["documents"], (Json::array({"C:\\a.tvnprt", "Part2"})));
    EXPECT_EQ(json[0]["answers"], true);
    EXPECT_EQ(json[1]["answers"], false);
}

TEST_F(AppCommandsTest, AnApplicationThatHasEndedByItselfIsForgotten)
{
    App({"start"});
    Process(0).hasEnded = true;
    EXPECT_EQ(App({"list", "--json"}).AsJson(), Json::array());
    EXPECT_TRUE(Records().empty());
}

TEST_F(AppCommandsTest, AStopEndsTheOnlyOneAndForgetsIt)
{
    App({"start"});
    std::ofstream(PathOf(Process(0).eventsFile)) << "{}\n";
    const Printed printed = App({"stop"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.out, "Torvane 2013 (process 4711) has ended\n");
    EXPECT_EQ(applications.log, (Log{"start", "keep", "close"}));
    EXPECT_EQ(applications.patience, std::chrono::seconds(30));
    EXPECT_TRUE(Records().empty());
    EXPECT_FALSE(fs::exists(PathOf(Process(0).eventsFile)));
}

TEST_F(AppCommandsTest, AStopThatNeedsForceSaysSoAndFails)
{
    App({"start"});
    Process(0).end = ApplicationEnd::ByForce;
    const Printed printed = App({"stop", "--timeout", "2"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out,
              "Torvane 2013 (process 4711) didn't end when it was asked to, within 2 seconds, and was ended "
              "by force\n");
    EXPECT_EQ(applications.patience, std::chrono::seconds(2));
    EXPECT_TRUE(Records().empty());
}

TEST_F(AppCommandsTest, AStopThatDoesNotEvenSucceedByForceSaysSoAndKeepsTheRecord)
{
    App({"start"});
    Process(0).end = ApplicationEnd::NotEnded;
    const Printed printed = App({"stop"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Torvane 2013 (process 4711) can't be ended, not even by force; the system may want an "
                           "administrator for it\n");
    EXPECT_EQ(Records().size(), 1u);
}

TEST_F(AppCommandsTest, AStopOfAllTakesEachAndFailsWhenOneNeedsForce)
{
    App({"start"});
    App({"start"});
    Process(0).end = ApplicationEnd::ByForce;
    const Printed printed = App({"stop", "--all", "--json"});
    EXPECT_EQ(printed.code, 1);
    const Json json = printed.AsJson();
    EXPECT_EQ(json[0]["processId"], 4711);
    EXPECT_EQ(json[0]["ended"], "by force");
    EXPECT_EQ(json[1]["ended"], "politely");
    EXPECT_TRUE(Records().empty());
}

TEST_F(AppCommandsTest, AStopOfNoneSaysSo)
{
    const Printed one = App({"stop"});
    EXPECT_EQ(one.code, 3);
    EXPECT_EQ(one.err, "tvtask: No application that 'tvtask app start' started is running. Start one with: tvtask app "
                       "start\n");
    const Printed all = App({"stop", "--all"});
    EXPECT_EQ(all.code, 0);
    EXPECT_EQ(all.out, "No application that 'tvtask app start' started is running.\n");
    EXPECT_EQ(App({"stop", "--all", "--json"}).AsJson(), Json::array());
    EXPECT_EQ(App({"stop", "--all", "--pid", "4711"}).code, 2);
}

TEST_F(AppCommandsTest, ALaterProcessOfTheSameIdIsNotTakenForTheApplication)
{
    App({"start"});
    Process(0).identity.created += 1;
    EXPECT_EQ(App({"stop"}).code, 3);
    EXPECT_TRUE(Records().empty());
}

TEST_F(AppCommandsTest, ARecordIsReadAsItWasWritten)
{
    const ApplicationRecords records(Folder("applications"));
    const ApplicationRecord first{{12, 1'795'267'205'123},
                                  2013,
                                  "C:\\C\xC3\xA4"
                                  "D\\T.EXE /B",
                                  "C:\\Temp\\a.events"};
    const ApplicationRecord second{{7, 1}, 0, "", ""};
    records.Add(first);
    records.Add(second);
    EXPECT_EQ(records.All(), (std::vector{second, first}));
    records.Remove(second);
    EXPECT_EQ(records.All(), std::vector{first});
}

TEST_F(AppCommandsTest, AFileThatIsNoRecordIsPassedOver)
{
    for (const std::string bytes : {"", "{", "[]", "{\"processId\":1}", "{\"processId\":\"1\"}"}) {
        Write("applications/1.json", bytes);
        EXPECT_TRUE(Records().empty()) << bytes;
    }
}

TEST_F(AppCommandsTest, RemovingAnOldRecordLeavesANewerOneOfTheSameProcessId)
{
    const ApplicationRecords records(Folder("applications"));
    const ApplicationRecord old{{12, 1}, 2013, "", ""};
    const ApplicationRecord later{{12, 2}, 2013, "", ""};
    records.Add(old);
    records.Add(later);
    records.Remove(old);
    EXPECT_EQ(records.All(), std::vector{later});
}

#ifndef _WIN32
TEST(AppCommandsHere, WithoutTheApplicationsSystemEachIsRefused)
{
    const auto applications = MakeApplicationStarter();
    EXPECT_THROW(applications->RequireSystem(), NoApplicationError);
    EXPECT_THROW(applications->RegisteredYears(), NoApplicationError);
    EXPECT_THROW(applications->Attach({1, 1}), NoApplicationError);
}
#endif

} // namespace tv::local
