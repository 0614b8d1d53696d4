// The command that shows a task's macro and says what is wrong with it.
#include "host_world.h"

#include "vault/text.h"

namespace tv::local {

namespace {

class MacroCommands : public HostWorld
{
  protected:
    MacroCommands()
    {
        Done({"init"});
        Done({"task", "new", "Export", "--kind", "script"});
        Done({"import", Write("host/screw.step", "screw"), "--to", "\\Parts"});
        component.macro = u"Sub main()\r\nEnd Sub\r\n";
    }

    void SetScript(std::string_view text) { Done({"task", "script", "Export", Write("host/macro.bas", text)}); }

    Printed Macro(std::vector<std::string> options)
    {
        options.insert(options.begin(), {"macro", "Export", "\\Parts\\screw.step"});
        return Run(std::move(options));
    }
};

TEST_F(MacroCommands, TheMacroOfAFileIsThatOfItsLatestVersionAndNoInstanceIsMade)
{
    component.macro.clear();
    Done({"import", Write("host/screw.step", "second"), "--to", "\\Parts"});
    EXPECT_EQ(Macro({}).out, "macro for " + TextOf(Folder("vault") / "Parts" / "screw.step") + " version 2\r\n");
    EXPECT_TRUE(Store()->Instances().empty());
    component.offersPreview = false;
    EXPECT_EQ(Macro({}).code, 1);
    EXPECT_EQ(Run({"macro", "Export", "\\Parts"}).code, 2);
}

TEST_F(MacroCommands, AMacroThatCompilesHasNoProblems)
{
    const Printed printed = Macro({"--check"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.out, "no problems\n");
}

TEST_F(MacroCommands, EachProblemIsPrintedWithLineAndColumnAndSource)
{
    component.macro = u"Sub main()\r\n  First 1\r\n  Another 2\r\nEnd Sub\r\n";
    const Printed printed = Macro({"--check"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Export (macro):2:3: error: Sub or Function not defined: First\n"
                           "      First 1\n"
                           "      ^\n"
                           "Export (macro):3:3: error: Sub or Function not defined: Another\n"
                           "      Another 2\n"
                           "      ^\n"
                           "2 errors, 0 warnings\n");
}

TEST_F(MacroCommands, TheCheckKnowsTheApplicationsNames)
{
    component.macro =
        u"Option Explicit\r\nDim m As Torvane.ModelDoc2\r\nSub main()\r\nDebug.Print tvDocPART\r\nEnd Sub";
    EXPECT_EQ(Macro({"--check"}).out, "no problems\n");
}

TEST_F(MacroCommands, TheCheckLooksAtTheExpandedMacroAndNotAtTheScript)
{
    SetScript("Sub main(\n");
    EXPECT_EQ(Macro({"--check"}).out, "no problems\n");
}

TEST_F(MacroCommands, LintNamesPlacesInTheScriptAndInTheMacro)
{
    SetScript("Sub main()\n  x = \"[Folder]\"\nEnd Sub\n");
    component.macro = u"Sub main()\r\n  Debug.Print total\r\nEnd Sub\r\n";
    const Printed printed = Macro({"--lint"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(
        printed.out,
        "Export (script):2:8: warning: [Folder] names no variable of the task, so nothing stands here at a run; to "
        "make it: tvtask task set TASK Folder:text=VALUE [unknown-variable]\n"
        "      x = \"[Folder]\"\n"
        "           ^\n"
        "Export (macro):2:15: warning: total isn't declared and never gets a value in this procedure, so it is "
        "empty; declare it, or correct the name. [undeclared-name]\n"
        "      Debug.Print total\n"
        "                  ^\n"
        "0 errors, 2 warnings\n");
}

TEST_F(MacroCommands, LintFindsVariablesByNameAndByNumber)
{
    Done({"task", "set", "Export", "Folder:text=x"});
    const int32_t number = *Store()->VariableIdentifier("Folder");
    SetScript("x = \"[Folder]\" & \"{Folder}\" & \"{#" + std::to_string(number) + "}\"\n");
    EXPECT_EQ(Macro({"--lint"}).out, "no problems\n");
    SetScript("x = \"{#" + std::to_string(number + 1000) + "}\"\n");
    EXPECT_EQ(Macro({"--lint"}).code, 1);
}

TEST_F(MacroCommands, CheckAndLintMayBeGivenTogetherAndTellAPlaceOnce)
{
    component.macro = u"Option Explicit\r\nSub main()\r\nDebug.Print total\r\nEnd Sub\r\n";
    EXPECT_EQ(Macro({"--lint"}).out.find("error"), Macro({"--lint"}).out.rfind("error"));
    const Printed printed = Macro({"--check", "--lint"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out, "Export (macro):3:13: error: Variable not defined: total\n"
                           "    Debug.Print total\n"
                           "                ^\n"
                           "1 error, 0 warnings\n");
}

TEST_F(MacroCommands, AScriptThatARunNeverEndsWithIsNeverExpanded)
{
    SetScript("Sub main()\n  x = \"[Folder]\" & y[0\nEnd Sub\n");
    for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--check"}}) {
        const Printed printed = Macro(options);
        EXPECT_EQ(printed.code, 1);
        EXPECT_EQ(printed.out, "Export (script):2:21: warning: This [ has no ] behind it, and a run never ends there; "
                               "close it, or write ChrW(91) outside of the double quotes for the character itself. "
                               "[unclosed-placeholder]\n"
                               "      x = \"[Folder]\" & y[0\n"
                               "                        ^\n"
                               "0 errors, 1 warning\n");
    }
    const Printed linted = Macro({"--lint"});
    EXPECT_EQ(linted.code, 1);
    EXPECT_NE(linted.out.find("[unknown-variable]"), std::string::npos);
    EXPECT_NE(linted.out.find("[unclosed-placeholder]"), std::string::npos);
    EXPECT_EQ(component.previews, 0);
}

TEST_F(MacroCommands, JsonHoldsAllFindings)
{
    component.macro = u"Sub main()\r\n  First 1\r\nEnd Sub\r\n";
    const Printed printed = Macro({"--check", "--json"});
    EXPECT_EQ(printed.code, 1);
    const Json json = printed.AsJson();
    EXPECT_EQ(json["task"], "Export");
    EXPECT_EQ(json["path"], "\\Parts\\screw.step");
    ASSERT_EQ(json["findings"].size(), 1U);
    EXPECT_EQ(json["findings"][0]["text"], "macro");
    EXPECT_EQ(json["findings"][0]["line"], 2);
    EXPECT_EQ(json["findings"][0]["column"], 3);
    EXPECT_EQ(json["findings"][0]["severity"], "error");
    component.macro = u"Sub main()\r\nEnd Sub\r\n";
    EXPECT_EQ(Macro({"--check", "--lint", "--json"}).AsJson()["findings"], Json::array());
}

TEST_F(MacroCommands, JsonWithoutAChecksHoldsTheMacro)
{
    EXPECT_EQ(Macro({"--json"}).AsJson()["macro"], "Sub main()\r\nEnd Sub\r\n");
}

} // namespace

} // namespace tv::local
