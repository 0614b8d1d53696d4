#include "host_world.h"

#include "vault/text.h"

#include <fstream>
#include <set>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tv::local {

namespace {

namespace fs = std::filesystem;

Result Accept(const HandedCommand&)
{
    return 0;
}

class RunCommands : public HostWorld
{
  protected:
    RunCommands()
    {
        component.handlers = {{44, Accept}, {45, Accept}, {43, Accept}};
        Done({"init"});
        Done({"task", "new", "Export STL", "--kind", "convert"});
        Done({"import", Write("host/screw.step", "screw"), Write("host/bolt.step", "bolt"), "--to", "\\Parts"});
    }

    int32_t Launch(std::vector<std::string> paths = {"\\Parts\\screw.step"})
    {
        paths.insert(paths.begin(), {"launch", "Export STL"});
        return std::stoi(Done(paths));
    }

    std::string Local(std::string_view name) const { return TextOf(Folder("vault") / "Parts" / PathOf(name)); }

    /// A run as the add-in makes it: progress, an output that is added and checked in, the list of outputs, the status.
    Result ConvertScrew(const HandedCommand& command) const
    {
        const std::u16string source = Utf16(Local("screw.step"));
        const std::u16string output = Utf16(Local("screw.stl"));
        command.instance->SetProgressRange(2, 0, source.c_str());
        std::ofstream(Folder("vault/Parts/screw.stl"), std::ios::binary) << "solid";
        ComPtr<IUnknown> utility;
        ComPtr<IVyxBatchAdd> add;
        ComPtr<IVyxBatchUnlock> unlock;
        command.vault->CreateUtility(16, utility.put());
        utility.As(add);
        add->AddFileFromPathToPath(output.c_str(), Utf16(TextOf(Folder("vault") / "Parts")).c_str(), 0, 0, 0);
        SafeArray results;
        add->CommitAdd(0, results.put(), 0, 0, nullptr);
        const VyxAddResult added = SafeArrayView<VyxAddResult>(results.get())[0];
        const VyxSelectionPair pair{added.fileId, added.folderId};
        command.vault->CreateUtility(6, utility.put());
        utility.As(unlock);
        unlock->AddSelection(command.vault.get(), MakeRecordArray<VyxSelectionPair>({&pair, 1}).get());
        unlock->UnlockFiles(0, 0);
        const std::u16string list =
            u"<sels><sel><path>" + source + u"</path><extra>" + output + u"</extra></sel></sels>";
        command.instance->SetVariable(u"__output_list", Variant::FromText(list).get());
        command.instance->SetProgressPos(2, u"");
        return command.instance->SetStatus(7, 0, nullptr, nullptr, 0);
    }
};

TEST_F(RunCommands, LaunchSendsCommand44WithTheSelectionAndPrintsTheId)
{
    std::vector<VyxCmdData> seen;
    std::u16string path;
    component.handlers[44] = [&](const HandedCommand& command) {
        for (const VyxCmdData& data : SafeArrayView<VyxCmdData>(*command.data)) {
            seen.push_back(data);
            path = std::u16string(tv::TextOf(data.path));
        }
        return 0;
    };
    const int32_t id = Launch({"\\Parts", "\\Parts\\screw.step"});
    EXPECT_EQ(component.log, std::vector<int32_t>{44});
    ASSERT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen[0].kind, 2);
    EXPECT_EQ(seen[1].kind, 1);
    EXPECT_EQ(seen[1].fileId, Store()->FindFile({"Parts", "screw.step"})->id);
    EXPECT_EQ(seen[1].version, 0);
    EXPECT_EQ(Utf8(path), Local("screw.step"));
    EXPECT_EQ(Store()->Instance(id)->status, 1);
    EXPECT_EQ(Store()->Selection(id).size(), 2u);
}

TEST_F(RunCommands, WhatIsSetAtTheLaunchCountsForThatLaunchOnly)
{
    const int32_t id = std::stoi(
        Done({"launch", "Export STL", "--set", "FileFormat=step", "--set", "OutputPath2=x", "\\Parts\\screw.step"}));
    EXPECT_EQ(Store()->InstanceVariable(id, "FileFormat"), StoredValue::FromText("STEP (*.step)"));
    EXPECT_EQ(Store()->InstanceVariable(id, "OutputPath2"), StoredValue::FromText("x"));
    EXPECT_EQ(Store()->InstanceVariable(Launch(), "FileFormat"), StoredValue::FromText("STL (*.stl)"));
    EXPECT_EQ(Run({"launch", "Export STL", "\\Parts", "--set", "FileFormat=none"}).code, 2);
}

TEST_F(RunCommands, ALaunchThatTheAddInCancelsOrRefusesLeavesNothingBehind)
{
    component.handlers[44] = [](const HandedCommand& command) {
        command.record->cancel = kVariantTrue;
        return 0;
    };
    EXPECT_EQ(Run({"launch", "Export STL", "\\Parts"}).code, 1);
    component.handlers[44] = [](const HandedCommand&) { return Result{E_FAIL}; };
    EXPECT_EQ(Run({"launch", "Export STL", "\\Parts"}).code, 1);
    EXPECT_TRUE(Store()->Instances().empty());
}

TEST_F(RunCommands, APageThatTheAddInLeavesOpenIsClosedWithOk)
{
    std::u16string button;
    component.handlers[44] = [](const HandedCommand& command) {
        command.record->comment = AllocateText(u"Conversion Settings");
        return 0;
    };
    component.handlers[45] = [&](const HandedCommand& command) {
        button = std::u16string(tv::TextOf(command.record->comment));
        return 0;
    };
    Launch();
    EXPECT_EQ(button, u"OK");
    EXPECT_EQ(component.log, (std::vector<int32_t>{44, 45}));
}

TEST_F(RunCommands, ARunShowsProgressAndATableOfWhatItMade)
{
    component.handlers[43] = [&](const HandedCommand& command) { return ConvertScrew(command); };
    const int32_t id = Launch();
    const std::string out = Done({"run", std::to_string(id)});
    EXPECT_NE(out.find("[0/2] \\Parts\\screw.step\n"), std::string::npos) << out;
    EXPECT_NE(out.find("\\Parts\\screw.stl"), std::string::npos) << out;
    EXPECT_NE(out.find("checked in"), std::string::npos) << out;
    EXPECT_NE(out.find("Run " + std::to_string(id) + " finished"), std::string::npos) << out;
    EXPECT_EQ(machine.cleanUps, 1);
}

TEST_F(RunCommands, TheApplicationsOfARunEndWithTheHostHoweverThatEnds)
{
    bool duringTheRun = false;
    component.handlers[43] = [&](const HandedCommand& command) {
        duringTheRun = machine.applicationsEndWithIt;
        return ConvertScrew(command);
    };
    const int32_t id = Launch();
    EXPECT_FALSE(machine.applicationsEndWithIt);
    Done({"run", std::to_string(id)});
    EXPECT_TRUE(duringTheRun);
}

TEST_F(RunCommands, ARunInJsonTellsEachOutputWithItsVersionSizeAndSeconds)
{
    component.handlers[43] = [&](const HandedCommand& command) { return ConvertScrew(command); };
    Launch();
    const Json json = Run({"run", "--all", "--json"}).AsJson();
    ASSERT_EQ(json.size(), 1u);
    EXPECT_EQ(json[0]["statusText"], "finished");
    ASSERT_EQ(json[0]["files"].size(), 1u);
    const Json& file = json[0]["files"][0];
    EXPECT_EQ(file["source"], "\\Parts\\screw.step");
    EXPECT_EQ(file["output"], "\\Parts\\screw.stl");
    EXPECT_EQ(file["version"], 1);
    EXPECT_EQ(file["size"], 5);
    EXPECT_TRUE(file["seconds"].is_number());
    EXPECT_EQ(file["status"], "checked in");
}

TEST_F(RunCommands, OnATerminalProgressIsABarThatIsWipedAtTheEnd)
{
    terminal = true;
    component.handlers[43] = [&](const HandedCommand& command) { return ConvertScrew(command); };
    Launch();
    const std::string out = Done({"run", "--all"});
    EXPECT_NE(out.find("\r[........................] 0/2 \\Parts\\screw.step"), std::string::npos) << out;
    EXPECT_EQ(out.find("[0/2]"), std::string::npos);
}

TEST_F(RunCommands, AFailedRunEndsWithOneAndItsMessage)
{
    component.handlers[43] = [](const HandedCommand& command) {
        return command.instance->SetStatus(9, 0, u"No file converted.", nullptr, 0);
    };
    const int32_t id = Launch();
    const Printed printed = Run({"run", std::to_string(id)});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.out.find("failed: No file converted."), std::string::npos);
    EXPECT_NE(printed.out.find("no output"), std::string::npos);
}

TEST_F(RunCommands, AnAddInThatEndsWithoutAStatusGetsOne)
{
    component.handlers[43] = [](const HandedCommand&) { return Result{E_POINTER}; };
    const int32_t id = Launch();
    EXPECT_EQ(Run({"run", std::to_string(id)}).code, 1);
    EXPECT_EQ(Store()->Instance(id)->status, 9);
    EXPECT_EQ(Store()->Instance(id)->result, E_POINTER);
    EXPECT_FALSE(Store()->Instance(id)->message.empty());
}

TEST_F(RunCommands, CtrlCAsksTheInstanceToStopAndItEndsAsCancelled)
{
    component.handlers[43] = [&](const HandedCommand& command) {
        machine.interrupt();
        int32_t status = 0;
        command.instance->GetStatus(&status);
        EXPECT_EQ(status, 6);
        return 1;
    };
    const int32_t first = Launch();
    const int32_t second = Launch();
    EXPECT_EQ(Run({"run", "--all"}).code, 1);
    EXPECT_EQ(Store()->Instance(first)->status, 8);
    EXPECT_EQ(Store()->Instance(second)->status, 1);
    EXPECT_EQ(machine.interrupt, nullptr);
}

TEST_F(RunCommands, AllRunsWhatWaitsAndNothingElse)
{
    component.handlers[43] = [](const HandedCommand& command) {
        return command.instance->SetStatus(7, 0, nullptr, nullptr, 0);
    };
    Launch();
    Launch();
    Done({"run", "--all"});
    EXPECT_EQ(component.log, (std::vector<int32_t>{44, 44, 43, 43}));
    EXPECT_NE(Done({"run", "--all"}).find("No task instance waits"), std::string::npos);
}

TEST_F(RunCommands, AnInstanceThatHasEndedOrIsBeingRunIsRefused)
{
    const int32_t id = Launch();
    Store()->BeginRun(*Store()->Instance(id), 4711);
    machine.alive = 4711;
    EXPECT_NE(Run({"run", std::to_string(id)}).err.find("is being run by the process 4711"), std::string::npos);
    machine.alive = 0;
    component.handlers[43] = [](const HandedCommand& command) {
        return command.instance->SetStatus(7, 0, nullptr, nullptr, 0);
    };
    Done({"run", std::to_string(id)});
    const Printed again = Run({"run", std::to_string(id)});
    EXPECT_EQ(again.code, 2);
    EXPECT_NE(again.err.find("has ended (finished); launch the task again"), std::string::npos);
    EXPECT_EQ(Run({"run"}).code, 2);
    EXPECT_EQ(Run({"run", "99"}).code, 2);
}

TEST_F(RunCommands, AnInstanceThatAnotherHostTakesMeanwhileIsLeftToIt)
{
    const int32_t first = Launch();
    const int32_t second = Launch();
    component.handlers[43] = [&](const HandedCommand& command) {
        Store()->BeginRun(*Store()->Instance(second), 4711);
        return command.instance->SetStatus(7, 0, nullptr, nullptr, 0);
    };
    Done({"run", "--all"});
    EXPECT_EQ(component.log, (std::vector<int32_t>{44, 44, 43}));
    EXPECT_EQ(Store()->Instance(first)->status, 7);
    EXPECT_EQ(Store()->Instance(second)->hostProcess, 4711);
}

TEST_F(RunCommands, WhoAskedForAnInstanceThatAnotherHostTakesMeanwhileIsTold)
{
    const int32_t first = Launch();
    const int32_t second = Launch();
    const int32_t third = Launch();
    component.handlers[43] = [&](const HandedCommand& command) {
        if (Store()->Instance(second)->status == 1) {
            Store()->BeginRun(*Store()->Instance(second), 4711);
            machine.alive = 4711;
        }
        return command.instance->SetStatus(7, 0, nullptr, nullptr, 0);
    };
    const Printed printed = Run({"run", std::to_string(first), std::to_string(second), std::to_string(third)});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.err,
              "tvtask: The task instance " + std::to_string(second) + " is being run by the process 4711.\n");
    EXPECT_EQ(Store()->Instance(third)->status, 7);
}

#ifndef _WIN32

TEST_F(RunCommands, SeveralHostsAtOnceRunEachWaitingInstanceExactlyOnce)
{
    constexpr int kHosts = 3;
    constexpr int kInstances = 30;
    std::multiset<std::string> launched;
    for (int i = 0; i < kInstances; ++i) {
        launched.insert(Store()->Instance(Launch())->guid);
    }
    const auto runs = [&](int host) { return Folder("runs of host " + std::to_string(host)); };
    std::vector<pid_t> hosts;
    for (int host = 0; host < kHosts; ++host) {
        hosts.push_back(::fork());
        if (hosts.back() == 0) {
            component.handlers[43] = [&](const HandedCommand& command) {
                BString guid;
                command.instance->GetInstanceGuid(guid.put());
                std::ofstream(runs(host), std::ios::app) << Utf8(guid.View()) << "\n";
                return command.instance->SetStatus(7, 0, nullptr, nullptr, 0);
            };
            ::_exit(Run({"run", "--all"}).code);
        }
    }
    std::multiset<std::string> run;
    for (int host = 0; host < kHosts; ++host) {
        int status = 0;
        ::waitpid(hosts[static_cast<size_t>(host)], &status, 0);
        EXPECT_EQ(status, 0);
        std::ifstream stream(runs(host));
        for (std::string guid; std::getline(stream, guid);) {
            run.insert(guid);
        }
    }
    EXPECT_EQ(run, launched);
    for (const InstanceRecord& instance : Store()->Instances()) {
        EXPECT_EQ(instance.status, 7);
    }
}

#endif

TEST_F(RunCommands, AnAddInThatIsNotRegisteredIsAFailureThatSaysSo)
{
    component.registered = false;
    const Printed printed = Run({"launch", "Export STL", "\\Parts"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("can't be created"), std::string::npos);
}

TEST_F(RunCommands, StatusListsInstancesAndTellsAllOfOne)
{
    EXPECT_NE(Done({"status"}).find("No task was launched yet"), std::string::npos);
    const int32_t id = Launch();
    EXPECT_NE(Done({"status"}).find("waiting"), std::string::npos);
    const std::string one = Done({"status", std::to_string(id)});
    EXPECT_NE(one.find("waiting (1)"), std::string::npos);
    EXPECT_NE(one.find("\\Parts\\screw.step"), std::string::npos);
    EXPECT_EQ(Run({"status", "--json"}).AsJson()[0]["task"], "Export STL");
    EXPECT_EQ(Run({"status", "5"}).code, 2);
}

TEST_F(RunCommands, TheLogIsFoundByTheInstancesGuidWhereverItStands)
{
    const int32_t id = Launch();
    EXPECT_NE(Done({"log", std::to_string(id)}).find("has no log"), std::string::npos);
    const std::string guid = Store()->Instance(id)->guid;
    Done({"import", Write("host/" + guid + ".log", "The file failed.\r\n"), "--to", "\\Logs\\Export STL"});
    EXPECT_EQ(Done({"log", std::to_string(id)}), "The file failed.\r\n");
    EXPECT_EQ(Run({"log", std::to_string(id), "--json"}).AsJson()["path"], "\\Logs\\Export STL\\" + guid + ".log");
}

} // namespace

} // namespace tv::local
