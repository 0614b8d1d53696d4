#include "host_world.h"

namespace tv::local {

namespace {

class CardCommands : public HostWorld
{
  protected:
    CardCommands()
    {
        Done({"init"});
        Done({"import", Write("host/screw.step", "screw"), "--to", "\\Parts"});
    }

    Json Card(std::vector<std::string> more = {})
    {
        std::vector<std::string> arguments{"card", "\\Parts\\screw.step", "--json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(arguments).AsJson();
    }
};

TEST_F(CardCommands, AnEmptyCardTellsHowToWriteIntoIt)
{
    EXPECT_EQ(Done({"card", "\\Parts\\screw.step"}),
              "\\Parts\\screw.step  version 1\n"
              "The card is empty. To write into it: tvtask card set \"\\Parts\\screw.step\" VARIABLE=VALUE\n");
    EXPECT_TRUE(Card()["variables"].empty());
}

TEST_F(CardCommands, TheTableHasARowForEachVariableAndAColumnForEachConfiguration)
{
    Done({"card", "set", "\\Parts\\screw.step", "Number=A-100", "Mass:float=12.5"});
    Done({"card", "set", "\\Parts\\screw.step", "Mass=20", "--configuration", "Long"});
    EXPECT_EQ(Done({"card", "\\Parts\\screw.step"}), "\\Parts\\screw.step  version 1\n"
                                                     "Variable  Kind   (file)  Long\n"
                                                     "--------  -----  ------  ----\n"
                                                     "Number    text   A-100\n"
                                                     "Mass      float  12.5    20\n");
}

TEST_F(CardCommands, AVariableThatIsNewToTheVaultIsTold)
{
    EXPECT_EQ(Done({"card", "set", "\\Parts\\screw.step", "Number=A-100", "Pieces:int=4"}),
              "Made the card variable 'Number'\n"
              "Made the card variable 'Pieces'\n"
              "Wrote 2 values into the card of \\Parts\\screw.step, version 1\n");
    EXPECT_EQ(Done({"card", "set", "\\Parts\\screw.step", "Number=A-101"}),
              "Wrote 1 value into the card of \\Parts\\screw.step, version 1\n");
}

TEST_F(CardCommands, AVariableInOtherCapitalsIsASlip)
{
    Done({"card", "set", "\\Parts\\screw.step", "Number=A-100"});
    const Printed printed = Run({"card", "set", "\\Parts\\screw.step", "number=A-101"});
    EXPECT_EQ(printed.code, 2);
    EXPECT_EQ(printed.err, "tvtask: There is no card variable 'number', but 'Number'; write it so.\n");
}

TEST_F(CardCommands, OneWrongAssignmentAmongGoodOnesWritesNothing)
{
    EXPECT_EQ(Run({"card", "set", "\\Parts\\screw.step", "Number=A-100", "Mass:float=heavy"}).code, 2);
    EXPECT_TRUE(Card()["variables"].empty());
    EXPECT_FALSE(Store()->FindCardVariable("Number"));
}

TEST_F(CardCommands, JsonHasKindsAndValuesByConfiguration)
{
    Done({"card", "set", "\\Parts\\screw.step", "Mass:float=12.1", "Ok:bool=true", "On:date=2023-03-15"});
    Done({"card", "set", "\\Parts\\screw.step", "Pieces:int=4", "--configuration", "Long"});
    const Json variables = Card()["variables"];
    EXPECT_EQ(variables["Mass"][""]["value"], 12.1);
    EXPECT_EQ(variables["Ok"][""]["value"], true);
    EXPECT_EQ(variables["On"][""]["kind"], "date");
    EXPECT_EQ(variables["On"][""]["value"], "2023-03-15");
    EXPECT_EQ(variables["Pieces"]["Long"]["value"], 4);
}

TEST_F(CardCommands, OneConfigurationIsShownAlone)
{
    Done({"card", "set", "\\Parts\\screw.step", "Number=A"});
    Done({"card", "set", "\\Parts\\screw.step", "Number=B", "--configuration", "Long"});
    const Json variables = Card({"--configuration", "Long"})["variables"];
    EXPECT_EQ(variables["Number"].size(), 1u);
    EXPECT_EQ(variables["Number"]["Long"]["value"], "B");
    EXPECT_NE(Done({"card", "\\Parts\\screw.step", "--configuration", "Short"}).find("The card is empty for Short."),
              std::string::npos);
}

TEST_F(CardCommands, AnEarlierVersionKeepsItsCard)
{
    Done({"card", "set", "\\Parts\\screw.step", "Number=A"});
    Done({"import", Write("host/screw.step", "longer screw"), "--to", "\\Parts"});
    Done({"card", "set", "\\Parts\\screw.step", "Number=B"});
    EXPECT_EQ(Card({"--version", "1"})["variables"]["Number"][""]["value"], "A");
    EXPECT_EQ(Card()["variables"]["Number"][""]["value"], "B");
    const Printed printed = Run({"card", "\\Parts\\screw.step", "--version", "3"});
    EXPECT_EQ(printed.code, 2);
    EXPECT_NE(printed.err.find("has no version 3; its versions go from 1 to 2."), std::string::npos);
}

TEST_F(CardCommands, WhatACheckOutWritesIsItsOwnUntilTheCheckIn)
{
    Done({"card", "set", "\\Parts\\screw.step", "Number=A"});
    Done({"checkout", "\\Parts\\screw.step"});
    EXPECT_EQ(Done({"card", "set", "\\Parts\\screw.step", "Number=B"}),
              "Wrote 1 value into the card of \\Parts\\screw.step, checked out, as the next check-in will store it\n");
    EXPECT_EQ(Card()["variables"]["Number"][""]["value"], "B");
    EXPECT_EQ(Card()["checkedOut"], true);
    EXPECT_EQ(
        Run({"user", "anna", "card", "\\Parts\\screw.step", "--json"}).AsJson()["variables"]["Number"][""]["value"],
        "A");
    Done({"undo", "\\Parts\\screw.step"});
    EXPECT_EQ(Card()["variables"]["Number"][""]["value"], "A");
}

TEST_F(CardCommands, AFileThatAnotherHasCheckedOutIsRefusedWithWhoCanEndThat)
{
    Done({"user", "anna@PC7", "checkout", "\\Parts\\screw.step"});
    const Printed printed = Run({"card", "set", "\\Parts\\screw.step", "Number=B"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_TRUE(printed.err.starts_with("tvtask: '\\Parts\\screw.step' is checked out by anna on PC7 since "));
    EXPECT_TRUE(printed.err.ends_with(". That user has to check it in or to undo the check-out.\n"));
    EXPECT_FALSE(Store()->FindCardVariable("Number"));
}

TEST_F(CardCommands, WrongUsageIsToldInOneLine)
{
    EXPECT_EQ(Run({"card"}).err, "tvtask: FILE is required. To see what would be right: tvtask --help\n");
    EXPECT_EQ(Run({"card"}).code, 2);
    EXPECT_EQ(Run({"card", "set", "\\Parts\\screw.step"}).code, 2);
    EXPECT_EQ(Run({"card", "\\Parts\\none.step"}).code, 2);
    EXPECT_EQ(Run({"card", "set", "\\Parts", "Number=1"}).code, 2);
    EXPECT_NE(Run({"card", "--help"}).out.find("Approved:date=2026-11-21"), std::string::npos);
}

} // namespace

} // namespace tv::local
