// What a macro is told to do as it does it.
#include "local_cad/world.h"

#include <gtest/gtest.h>

namespace tv::app {

TEST(MacroEvents, EachIsOneLineAndReadAsItWasWritten)
{
    const MacroEvent events[] = {
        {MacroEventKind::Began, "C:\\Temp\\macro.tvb"},
        {MacroEventKind::Printed, "two\r\nlines and a \"quote\""},
        {MacroEventKind::Saved, "C:\\Vault\\ä.stl"},
        {MacroEventKind::Asked, ""},
        {MacroEventKind::Failed, "Type mismatch", 13, 7},
    };
    for (const MacroEvent& event : events) {
        const std::string line = WriteMacroEvent(event);
        EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
        EXPECT_EQ(ReadMacroEvent(line), event);
    }
}

TEST(MacroEvents, TheLinesHaveAFixedForm)
{
    EXPECT_EQ(WriteMacroEvent({MacroEventKind::Began, "x"}), R"({"event":"began","text":"x"})");
    EXPECT_EQ(WriteMacroEvent({MacroEventKind::Printed, "x"}), R"({"event":"printed","text":"x"})");
    EXPECT_EQ(WriteMacroEvent({MacroEventKind::Failed, "x", 13, 7}),
              R"({"event":"failed","text":"x","number":13,"line":7})");
}

TEST(MacroEvents, ALineThatIsNoneIsPassedOver)
{
    for (const char* line : {"", "{", "1", "[]", R"({"event":"printed"})", R"({"event":"other","text":"x"})",
                             R"({"event":1,"text":"x"})", R"({"event":"printed","text":1})"}) {
        EXPECT_EQ(ReadMacroEvent(line), std::nullopt) << line;
    }
}

namespace {

std::vector<MacroEvent> EventsOf(const std::string& macro)
{
    World world;
    std::vector<MacroEvent> events;
    world.application.onMacroEvent = [&](const MacroEvent& event) { events.push_back(event); };
    world.RunText(macro);
    return events;
}

} // namespace

TEST(MacroEvents, WhatAMacroPrintsIsTold)
{
    EXPECT_EQ(EventsOf("Sub main()\r\nDebug.Print \"a\"; 1\r\nDebug.Print\r\nEnd Sub"),
              (std::vector<MacroEvent>{{MacroEventKind::Printed, "a 1 "}, {MacroEventKind::Printed, ""}}));
}

TEST(MacroEvents, AMacroReadsTheEnvironmentOfTheApplication)
{
    EXPECT_EQ(EventsOf("Sub main()\r\nDebug.Print Environ(\"UserName\"); Environ(1)\r\nEnd Sub"),
              (std::vector<MacroEvent>{{MacroEventKind::Printed, "adminUSERNAME=admin"}}));
}

TEST(MacroEvents, AMessageBoxIsTold)
{
    EXPECT_EQ(EventsOf("Sub main()\r\nMsgBox \"Go on?\"\r\nEnd Sub"),
              (std::vector<MacroEvent>{{MacroEventKind::Asked, "Go on?"}}));
}

TEST(MacroEvents, ASavedFileIsToldAndARefusedOneIsNot)
{
    World world;
    std::vector<MacroEvent> events;
    world.application.onMacroEvent = [&](const MacroEvent& event) { events.push_back(event); };
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    world.application.Save(*document, u"C:\\Vault\\out.x_t", {});
    world.application.Save(*document, u"C:\\Vault\\out.stl", {});
    EXPECT_EQ(events, (std::vector<MacroEvent>{{MacroEventKind::Saved, "C:\\Vault\\out.stl"}}));
}

TEST(MacroEvents, AFailedRunTellsNumberWordsAndLine)
{
    World world;
    const MacroOutcome outcome = world.RunText("Sub main()\r\n  x = 1\r\n  y = \"a\" + x\r\nEnd Sub");
    EXPECT_FALSE(outcome.succeeded);
    EXPECT_EQ(outcome.number, 13);
    EXPECT_EQ(outcome.description, "Type mismatch");
    EXPECT_EQ(outcome.line, 3);
}

} // namespace tv::app
