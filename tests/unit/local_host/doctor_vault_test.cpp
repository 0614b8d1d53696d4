#include "doctor_world.h"

#include "vault/database.h"

#include <fstream>

namespace tv::local {

namespace {

class DoctorVault : public DoctorWorld
{
  protected:
    DoctorVault()
    {
        Done({"init", "--name", "Local"});
        health.printers = {{"Laser", true}};
    }

    void Make(const std::string& name, const std::string& kind) { Done({"task", "new", name, "--kind", kind}); }

    /// An instance that a host has taken up, at that time.
    int32_t Claimed(const std::string& task, int32_t process)
    {
        const auto store =
            VaultStore::Open(Folder("vault"), {CurrentSession(), {}, [] { return "2026-11-21T10:00:00Z"; }});
        const InstanceRecord instance = store->MakeInstance(store->FindTask(task)->id);
        store->FinishLaunch(instance.id, {});
        EXPECT_TRUE(store->BeginRun(*store->Instance(instance.id), process));
        return instance.id;
    }

    void CheckOut(const std::string& file, const Session& session, const std::string& time)
    {
        const auto store = VaultStore::Open(Folder("vault"), {session, {}, [time] { return time; }});
        FileWork work(store);
        work.CheckOut(store->FindFile(ParseVaultPath(file))->id);
    }

    void Rewrite(const std::string& statement) const
    {
        const Disk disk({});
        Database(Folder("vault/.quellor/vault.db"), false, disk, kLongestWait).Script(statement.c_str());
    }
};

TEST_F(DoctorVault, AVaultInOrderIsToldWithItsForm)
{
    EXPECT_EQ(Check("vault folders"), "ok | folders | BASE/vault and its own folders can be written\n");
    EXPECT_EQ(Check("vault"), "ok | vault | \"Local\" in BASE/vault, form 2\n");
    EXPECT_EQ(Check("contents"), "ok | contents | the bytes of every version are there, whole\n");
    EXPECT_EQ(Check("claimed runs"), "ok | claimed runs | none whose host is gone\n");
    EXPECT_EQ(Check("check-outs"), "ok | check-outs | none left by a run\n");
    EXPECT_EQ(Check("task macros"), "ok | macros | there are no tasks\n");
    EXPECT_EQ(Check("task versions"), "ok | versions | no task asks for a version that isn't here\n");
    EXPECT_EQ(Check("task printers"), "ok | printers | no task asks for a printer that isn't here\n");
    EXPECT_EQ(Check("task outputs"), "ok | outputs | every place that a task names can be written\n");
    EXPECT_EQ(Run({"doctor"}).code, 0);
}

TEST_F(DoctorVault, AVaultThatIsAskedForAndNotThereIsAProblem)
{
    const Printed printed = Run({"doctor", "--json", "--vault", "Elsewhere"});
    EXPECT_EQ(printed.code, 1);
    const Json finding = printed.AsJson()["findings"].back();
    EXPECT_EQ(finding["level"], "problem");
    EXPECT_EQ(finding["found"], "there is none in \"Elsewhere\"");
    EXPECT_EQ(finding["advice"], "Correct the path, or make a vault there:");
    EXPECT_EQ(finding["commands"], Json::parse(R"(["tvtask init --vault \"Elsewhere\""])"));
}

TEST_F(DoctorVault, AFolderOfTheVaultThatCannotBeWrittenIsAProblem)
{
    const std::string contents = TextOf(Store()->Root() / ".quellor" / "files");
    health.folders[contents] = FolderState::Refused;
    EXPECT_EQ(Check("vault folders"), "problem | folder | \"BASE/vault/.quellor/files\" can't be written\n"
                                      "  Give yourself the right to, or ask whoever administers the disk:\n"
                                      "    icacls \"BASE/vault/.quellor/files\" /grant \"%USERNAME%:(OI)(CI)M\"\n");
}

TEST_F(DoctorVault, AnOlderVaultIsLeftAsItIs)
{
    Rewrite("PRAGMA user_version = 1");
    EXPECT_EQ(
        Check("vault"),
        "warning | vault | it is of form 1, of an older program, and the next command brings it to form 2, which the "
        "older one refuses\n"
        "  Do that when all machines have this program, and then look again:\n"
        "    tvtask ls\n");
    EXPECT_EQ(Check("contents"), "");
    EXPECT_EQ(VaultStore::SchemaVersion(Folder("vault")), 1);
}

TEST_F(DoctorVault, ALaterVaultAndOneThatWasNeverFinishedAreProblems)
{
    const std::string advice = "  Use the program that made it, or put back a saved copy of it\n";
    Rewrite("PRAGMA user_version = 3");
    EXPECT_EQ(Check("vault"),
              "problem | vault | The vault in 'BASE/vault' was made by a later version of this program.\n" + advice);
    Rewrite("PRAGMA user_version = 0");
    EXPECT_EQ(Check("vault"), "problem | vault | The vault in 'BASE/vault' was never finished.\n" + advice);
    EXPECT_EQ(Check("task macros"), "");
}

TEST_F(DoctorVault, AVaultWhoseTablesAreDamagedIsAProblem)
{
    std::ofstream(Folder("vault/.quellor/vault.db"), std::ios::binary | std::ios::trunc) << std::string(5000, 'x');
    EXPECT_EQ(Check("vault").substr(0, 18), "problem | vault | ");
    EXPECT_NE(Check("vault").find("\n  Put back a saved copy of the vault's folder\n"), std::string::npos);
}

TEST_F(DoctorVault, DamagedBytesOfAVersionAreAProblem)
{
    Done({"import", Write("screw.step", "solid"), "--to", "\\Parts"});
    const auto version = Store()->Version(Store()->FindFile({"Parts", "screw.step"})->id, 1);
    const auto place = Store()->ContentPath(*version);
    Disk({}).SetReadOnly(place, false);
    std::ofstream(place, std::ios::binary | std::ios::trunc) << "solix";
    EXPECT_EQ(Check("contents"), "problem | contents | The bytes of version 1 of '\\Parts\\screw.step' are damaged.\n"
                                 "  Put back what is missing from a saved copy of \"BASE/vault/.quellor/files\"\n");
}

TEST_F(DoctorVault, ARunWhoseHostIsGoneIsRunAgain)
{
    Make("Export", "convert");
    const int32_t id = Claimed("Export", 4711);
    ASSERT_EQ(id, 1);
    machine.alive = 4711;
    EXPECT_EQ(Check("claimed runs"), "ok | claimed runs | none whose host is gone\n");
    machine.alive = 0;
    EXPECT_EQ(Check("claimed runs"),
              "problem | run 1 | 'Export' is running since 2026-11-21T10:00:00Z, and its host, process 4711, is gone\n"
              "  Run it again:\n"
              "    tvtask run 1\n");
    Store()->SetStatus(id, static_cast<int32_t>(TaskStatus::Failed));
    EXPECT_EQ(Check("claimed runs"), "ok | claimed runs | none whose host is gone\n");
}

TEST_F(DoctorVault, AFileThatADeadRunCheckedOutIsGivenBack)
{
    Make("Export", "convert");
    Done({"import", Write("a.step", "a"), Write("b.step", "b"), Write("c.step", "c"), "--to", "\\Parts"});
    Claimed("Export", 4711);
    CheckOut("\\Parts\\a.step", CurrentSession(), "2026-11-21T10:00:05Z");
    CheckOut("\\Parts\\b.step", CurrentSession(), "2026-11-21T09:59:59Z");
    CheckOut("\\Parts\\c.step", {"anna", "PC7"}, "2026-11-21T10:00:00Z");
    const Session me = CurrentSession();
    EXPECT_EQ(Check("check-outs"),
              "warning | \\Parts\\a.step | was checked out by " + me.user + " on " + me.machine +
                  " while run 1 was under way, which is over\n"
                  "  Give it back, unless somebody works on it:\n"
                  "    tvtask undo \"\\Parts\\a.step\"\n"
                  "warning | \\Parts\\c.step | was checked out by anna on PC7 while run 1 was under "
                  "way, which is over\n"
                  "  Give it back, unless somebody works on it:\n"
                  "    tvtask user \"anna@PC7\" undo \"\\Parts\\c.step\"\n");
    machine.alive = 4711;
    EXPECT_EQ(Check("check-outs"), "ok | check-outs | none left by a run\n");
}

TEST_F(DoctorVault, AFileThatARunLeftCheckedOutAtItsEndIsGivenBack)
{
    Make("Export", "convert");
    Done({"import", Write("a.step", "a"), Write("b.step", "b"), "--to", "\\Parts"});
    const int32_t id = Claimed("Export", 4711);
    const auto store = VaultStore::Open(Folder("vault"), {CurrentSession(), {}, [] { return "2026-11-21T10:05:00Z"; }});
    store->SetStatus(id, static_cast<int32_t>(TaskStatus::Finished));
    CheckOut("\\Parts\\a.step", {"anna", "PC7"}, "2026-11-21T10:05:00Z");
    CheckOut("\\Parts\\b.step", {"anna", "PC7"}, "2026-11-21T10:05:01Z");
    EXPECT_EQ(Check("check-outs"),
              "warning | \\Parts\\a.step | was checked out by anna on PC7 while run 1 was under way, "
              "which is over\n"
              "  Give it back, unless somebody works on it:\n"
              "    tvtask user \"anna@PC7\" undo \"\\Parts\\a.step\"\n");
}

TEST_F(DoctorVault, CommandsNameAVaultThatIsNotTheUsualOne)
{
    const std::string other = TextOf(Folder("other"));
    Done({"init", "--vault", other});
    Done({"task", "new", "Export", "--kind", "convert", "--vault", other});
    const auto store = VaultStore::Open(Folder("other"));
    store->SetTaskVariables(store->FindTask("Export")->id,
                            std::vector<NamedValue>{{"__tv_version", StoredValue::FromInt(2011)}});
    const Json json = Run({"doctor", "--json", "--vault", other}).AsJson();
    std::string command;
    for (const Json& finding : json["findings"]) {
        command = finding["check"] == "task versions" ? finding["commands"][0].get<std::string>() : command;
    }
    EXPECT_EQ(WithoutBase(command), "tvtask task set \"Export\" __tv_version=0 --vault \"BASE/other\"");
}

// The settings of the vault.

RegistryKey MachineSide()
{
    return {RegistryRoot::Machine, "Software\\Torvane\\Applications\\Quellor\\Databases\\Local"};
}

RegistryKey UserSide()
{
    return {RegistryRoot::User, "Software\\Torvane\\Applications\\Quellor\\Vaults\\Local"};
}

TEST_F(DoctorVault, WhichSideOfItsSettingsIsOpenedIsToldForEachMode)
{
    const std::string subject = "ok | settings of \"Local\" | opened by mode ";
    EXPECT_EQ(Check("vault settings"), subject + "1: none, 2: none, 4: none, 8: none\n");
    health.MakeKey(MachineSide());
    EXPECT_EQ(Check("vault settings"), subject + "1: the machine's, 2: none, 4: the machine's, 8: the machine's\n");
    health.MakeKey(UserSide());
    EXPECT_EQ(Check("vault settings"), subject + "1: the machine's, 2: the user's, 4: the machine's, 8: the user's\n");
    health.RemoveKey(MachineSide());
    EXPECT_EQ(Check("vault settings"), subject + "1: none, 2: the user's, 4: the user's, 8: the user's\n");
}

TEST_F(DoctorVault, TheFormOfDatesIsToldAsTheAddInReadsIt)
{
    health.SetValue(UserSide(), "DateFmt", {RegistryType::Number, "", 3});
    const std::string before =
        "ok | settings of \"Local\" | opened by mode 1: none, 2: the user's, 4: the user's, 8: the user's\n";
    EXPECT_EQ(Check("vault settings"), before + "ok | DateFmt | 3: how dates in file names are written\n");
    health.SetValue(UserSide(), "DateFmt", {RegistryType::Text, "3"});
    EXPECT_EQ(Check("vault settings"),
              before + "warning | DateFmt | is REG_SZ and no number, and is read as 0\n"
                       "  Store a number:\n"
                       "    reg add \"HKCU\\Software\\Torvane\\Applications\\Quellor\\Vaults\\Local\" /v DateFmt /t "
                       "REG_DWORD /d 0 /f\n");
}

// Tasks.

TEST_F(DoctorVault, ATaskWhoseMacroDoesNotCompileIsAProblem)
{
    Make("Export", "convert");
    Done({"task", "script", "Export", Write("good.bas", "Sub main()\nEnd Sub\n")});
    EXPECT_EQ(Check("task macros"), "ok | macros | the macro of every task compiles\n");
    Done({"task", "script", "Export", Write("bad.bas", "Sub main()\nDim a As\nEnd Sub\n")});
    EXPECT_EQ(Check("task macros"), "problem | task 'Export' | its macro doesn't compile, line 2: Expected: type name\n"
                                    "  Give it a macro that compiles:\n"
                                    "    tvtask task script \"Export\" --template\n");
    Done({"task", "script", "Export", Write("two.bas", "Option Explicit\nSub main()\nx = 1\ny = 2\nEnd Sub\n")});
    const std::string two = Check("task macros");
    EXPECT_EQ(two.substr(0, two.find('\n')),
              "problem | task 'Export' | its macro doesn't compile, line 3: Variable not "
              "defined: x (and 1 more)");
}

TEST_F(DoctorVault, WithAFileTheMacroIsThatOfTheAddIn)
{
    Make("Export", "convert");
    Done({"import", Write("screw.step", "solid"), "--to", "\\Parts"});
    component.macro = u"Sub main()\r\nx = (\r\nEnd Sub\r\n";
    const std::string text = Check("task macros");
    EXPECT_EQ(text.substr(0, text.find(',')), "problem | task 'Export' | its macro doesn't compile");
    EXPECT_EQ(text.substr(text.find('\n')), "\n  See all that is wrong, or give it the add-in's own macro:\n"
                                            "    tvtask macro \"Export\" \"\\Parts\\screw.step\" --check --lint\n"
                                            "    tvtask task script \"Export\" --template\n");
    EXPECT_EQ(component.previews, 1);
}

TEST_F(DoctorVault, ATaskWithoutAMacroAndOneWithAnEndlessScriptAreProblems)
{
    Make("Endless", "convert");
    Done({"task", "script", "Endless", Write("endless.bas", "Sub main()\nx = \"[Open\"\nEnd Sub\n")});
    Store()->MakeTask("Empty", {});
    const std::string text = Check("task macros");
    const std::string empty = "problem | task 'Empty' | has no macro\n"
                              "  Give it a macro that compiles:\n"
                              "    tvtask task script \"Empty\" --template\n";
    EXPECT_EQ(text.substr(0, empty.size()), empty);
    const std::string endless = text.substr(empty.size());
    EXPECT_EQ(endless.substr(0, endless.find(':')),
              "problem | task 'Endless' | a run would never be done with its script, line 2");
}

TEST_F(DoctorVault, ATaskForAVersionThatIsNotInstalledIsAProblem)
{
    Make("Export", "convert");
    Done({"task", "set", "Export", "__tv_version=2013"});
    EXPECT_EQ(Check("task versions"), "ok | versions | no task asks for a version that isn't here\n");
    component.starts[2012] = {2013, StartSource::RegisteredServer, u"TORVANE.EXE /R"};
    Done({"task", "set", "Export", "__tv_version=2012"});
    const std::string advice = "  Install that version, or let the task take whichever is there:\n"
                               "    tvtask task set \"Export\" __tv_version=0\n";
    EXPECT_EQ(Check("task versions"),
              "problem | task 'Export' | asks for Torvane 2012, which isn't installed, and gets Torvane 2013\n" +
                  advice);
    Done({"task", "set", "Export", "__tv_version=2011"});
    EXPECT_EQ(Check("task versions"),
              "problem | task 'Export' | asks for Torvane 2011, which can't be started: The class "
              "'Torvane.Application.19' isn't registered. Repair the installation of that version.\n" +
                  advice);
}

TEST_F(DoctorVault, APrintTaskNeedsPrintersThatAreThere)
{
    Make("Print", "print");
    EXPECT_EQ(Check("task printers"), "warning | task 'Print' | names no printer\n"
                                      "  Name one:\n"
                                      "    tvtask task set \"Print\" \"__printer_prname=Laser\"\n");
    Done({"task", "set", "Print", "__printer_prname=laser"});
    EXPECT_EQ(Check("task printers"), "ok | printers | no task asks for a printer that isn't here\n");
    Done({"task", "set", "Print", "__printer_prname=Plotter"});
    EXPECT_EQ(Check("task printers"), "problem | task 'Print' | prints on 'Plotter', which this machine doesn't have\n"
                                      "  Install that printer, or name one that is there:\n"
                                      "    tvtask task set \"Print\" \"__printer_prname=Laser\"\n");
    health.printers.clear();
    EXPECT_EQ(Check("task printers"), "problem | task 'Print' | prints on 'Plotter', which this machine doesn't have\n"
                                      "  Install that printer, or name one that is there:\n"
                                      "    tvtask task set \"Print\" \"__printer_prname=PRINTER\"\n");
}

TEST_F(DoctorVault, WhichPrintersCountIsAMatterOfTheTasksChoice)
{
    Make("Print", "print");
    Done({"task", "set", "Print", "__printer_prname=Laser", "__printer_prnamelist=Laser\r\nOne\r\n\r\nTwo",
          "__printer_papsize_A3=Three", "__printer_papsize_DEF=Laser"});
    const auto found = [&](const std::string& selection) {
        Done({"task", "set", "Print", "__printer_prseltype=" + selection});
        const std::string text = Check("task printers");
        return text.substr(0, text.find('\n'));
    };
    EXPECT_EQ(found("0"), "ok | printers | no task asks for a printer that isn't here");
    EXPECT_EQ(found("1"), "problem | task 'Print' | prints on 'One', 'Two', which this machine doesn't have");
    EXPECT_EQ(found("2"), "problem | task 'Print' | prints on 'Three', which this machine doesn't have");
}

TEST_F(DoctorVault, APlaceOfTheVaultThatTheUserMayNotWriteToIsAProblem)
{
    const std::string user = CurrentSession().user;
    Make("Export", "convert");
    Done({"mkdir", "\\Released\\STL"});
    Done({"permit", "\\Released", user, "read,permit"});
    const auto with = [&](const std::string& assignment) {
        Done({"task", "set", "Export", "OutputPath=<Path>\\<Filename>", "OutputPath2=", assignment});
        return Check("task outputs");
    };
    const std::string fine = "ok | outputs | every place that a task names can be written\n";
    const auto refused = [&](const std::string& variable, const std::string& folder) {
        return "problem | task 'Export' | " + variable + " leads to " + folder + ", where " + user +
               " may only: read,permit\n"
               "  Let somebody who may permit give the right:\n"
               "    tvtask permit \"" +
               folder + "\" " + user + " read,add,checkout,delete\n";
    };
    EXPECT_EQ(with("OutputPath2=<Path>\\<Filename>"), fine);
    EXPECT_EQ(with("OutputPath2=<VaultPath>\\<Filename>"), fine);
    EXPECT_EQ(with("OutputPath2=<VaultPath>\\Other\\<Filename>"), fine);
    EXPECT_EQ(with("OutputPath2=<VaultPath>\\Released\\New\\<Filename>"), refused("OutputPath2", "\\Released"));
    EXPECT_EQ(with("OutputPath=<VaultPath>\\Released\\STL\\<Filename>"), refused("OutputPath", "\\Released\\STL"));
    EXPECT_EQ(with("ErrorLogPath=Released"), refused("ErrorLogPath", "\\Released"));
    EXPECT_EQ(with("ErrorLogPath="), fine);
}

TEST_F(DoctorVault, APlaceOutsideOfTheVaultMustBeWritable)
{
    Make("Export", "convert");
    Done({"task", "set", "Export", "OutputPath=X:\\Exchange\\<Filename>"});
    EXPECT_EQ(Check("task outputs"), "ok | outputs | every place that a task names can be written\n");
    health.folders["X:\\Exchange"] = FolderState::Missing;
    EXPECT_EQ(Check("task outputs"),
              "problem | task 'Export' | OutputPath leads outside of the vault, and \"X:\\Exchange\" isn't there\n"
              "  Make it:\n"
              "    mkdir \"X:\\Exchange\"\n");
    health.hasComponents = false;
    EXPECT_EQ(Check("task outputs"), "ok | outputs | every place that a task names can be written\n");
}

} // namespace

} // namespace tv::local
