#include "host_world.h"

namespace tv::local {

namespace {

class TaskCommands : public HostWorld
{
  protected:
    TaskCommands()
    {
        Done({"init"});
        Done({"task", "new", "Export STL", "--kind", "convert"});
    }

    std::string Variable(std::string_view name)
    {
        const auto store = Store();
        const auto value = store->TaskVariable(store->FindTask("Export STL")->id, name);
        return value ? value->Display() : "(absent)";
    }
};

TEST_F(TaskCommands, ANewTaskCarriesTheAddInsTemplateOfItsKind)
{
    EXPECT_EQ(Variable("__script"), "template 209\r\n\n");
    EXPECT_EQ(Variable("__type"), "1");
    EXPECT_EQ(Variable("ErrorLogPath"), "\\Logs\\Export STL");
    Done({"task", "new", "Own", "--kind", "script"});
    EXPECT_EQ(Store()->TaskVariable(Store()->FindTask("Own")->id, "__script")->Display(), "template 211\r\n\n");
}

TEST_F(TaskCommands, AWrongKindOrATakenNameIsWrongUsage)
{
    EXPECT_NE(Run({"task", "new", "x", "--kind", "export"}).err.find("write convert, print or script"),
              std::string::npos);
    EXPECT_EQ(Run({"task", "new", "export stl", "--kind", "convert"}).code, 2);
    EXPECT_EQ(Run({"task", "new", "x"}).code, 2);
}

TEST_F(TaskCommands, SettingSeveralVariablesIsAllOrNothing)
{
    Done({"task", "set", "Export STL", "FileFormat=pdf", "OutputPath=<VaultPath>\\Out\\<Filename>", "Mine:int=4"});
    EXPECT_EQ(Variable("FileFormat"), "Adobe PDF (*.pdf)");
    EXPECT_EQ(Variable("OutputPath"), "<VaultPath>\\Out\\<Filename>");
    EXPECT_EQ(Variable("Mine"), "4");
    EXPECT_EQ(Run({"task", "set", "Export STL", "OutputPath=other", "StlQuality=x"}).code, 2);
    EXPECT_EQ(Variable("OutputPath"), "<VaultPath>\\Out\\<Filename>");
}

TEST_F(TaskCommands, AnUnknownTaskIsNamedWithThoseThatThereAre)
{
    const Printed printed = Run({"task", "show", "Export STEP"});
    EXPECT_EQ(printed.code, 2);
    EXPECT_EQ(printed.err, "tvtask: There is no task 'Export STEP'; there are: 'Export STL'.\n");
}

TEST_F(TaskCommands, ShowAndListPrintWhatIsStored)
{
    EXPECT_NE(Done({"task", "list"}).find("Export STL"), std::string::npos);
    const Json json = Run({"task", "show", "Export STL", "--json"}).AsJson();
    EXPECT_EQ(json["variables"]["ReplaceOutput"]["kind"], "bool");
    EXPECT_EQ(json["variables"]["ReplaceOutput"]["value"], true);
    EXPECT_NE(Done({"task", "show", "Export STL"}).find("FileFormat"), std::string::npos);
}

TEST_F(TaskCommands, AMacroComesFromAFileWithItsLinesEndedAsMacrosWantThem)
{
    Done({"task", "script", "Export STL", Write("macro.bas", "\xEF\xBB\xBFSub main()\nEnd Sub\r\n")});
    EXPECT_EQ(Variable("__script"), "Sub main()\r\nEnd Sub\r\n");
    Done({"task", "script", "Export STL", "--template"});
    EXPECT_EQ(Variable("__script"), "template 209\r\n\n");
    EXPECT_EQ(Run({"task", "script", "Export STL"}).code, 2);
    EXPECT_EQ(Run({"task", "script", "Export STL", TextOf(Folder("none.bas"))}).code, 2);
}

} // namespace

} // namespace tv::local
