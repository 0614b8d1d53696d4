#include "host_world.h"

#include <algorithm>
#include <fstream>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class FileCommands : public HostWorld
{
  protected:
    FileCommands() { Done({"init"}); }

    void ImportScrew(std::string_view bytes = "screw")
    {
        Done({"import", Write("host/screw.step", bytes), "--to", "\\Parts"});
    }
};

TEST_F(FileCommands, InitMakesAVaultOnceAndSaysSoTheSecondTime)
{
    EXPECT_EQ(Run({"init", "--json"}).AsJson()["made"], false);
    EXPECT_NE(Done({"init"}).find("There is a vault already"), std::string::npos);
    EXPECT_EQ(Run({"init", "--vault", TextOf(Folder("other")), "--json"}).AsJson()["made"], true);
}

TEST_F(FileCommands, TheVaultAndTheFormMayBeGivenBeforeTheCommand)
{
    EXPECT_EQ(Run({"--vault", TextOf(Folder("before")), "--json", "init"}).AsJson()["made"], true);
    EXPECT_EQ(Run({"--vault", TextOf(Folder("before")), "ls"}).code, 0);
    EXPECT_EQ(Run({"--vault", TextOf(Folder("none")), "ls"}).code, 3);
    // The one behind the command is the later word.
    EXPECT_EQ(Run({"--vault", TextOf(Folder("none")), "ls", "--vault", TextOf(Folder("before"))}).code, 0);
}

TEST_F(FileCommands, WithoutAVaultTheExitCodeIsThreeAndTheLineTellsHowToMakeOne)
{
    const Printed printed = Run({"ls", "--vault", TextOf(Folder("none"))});
    EXPECT_EQ(printed.code, 3);
    EXPECT_EQ(printed.out, "");
    EXPECT_NE(printed.err.find("tvtask init"), std::string::npos);
    EXPECT_NE(printed.err.find(TextOf(Folder("none"))), std::string::npos);
}

TEST_F(FileCommands, ImportTakesFilesAndFoldersWithAllThatIsInThem)
{
    Write("tree/a.step", "a");
    Write("tree/deep/b.step", "b");
    Done({"import", TextOf(Folder("tree")), Write("c.step", "c"), "--to", "/Parts"});
    const auto store = Store();
    EXPECT_TRUE(store->FindFile({"Parts", "tree", "a.step"}));
    EXPECT_TRUE(store->FindFile({"Parts", "tree", "deep", "b.step"}));
    EXPECT_TRUE(store->FindFile({"Parts", "c.step"}));
}

TEST_F(FileCommands, ImportingAgainMakesANewVersion)
{
    ImportScrew("one");
    const Printed printed = Run({"import", Write("host/screw.step", "two"), "--to", "\\Parts", "--json"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.AsJson()[0]["version"], 2);
    EXPECT_EQ(printed.AsJson()[0]["new"], false);
}

TEST_F(FileCommands, ImportingWhatIsNotThereIsWrongUsageAndNothingIsTaken)
{
    const Printed printed = Run({"import", Write("good.step", "x"), TextOf(Folder("missing.step"))});
    EXPECT_EQ(printed.code, 2);
    EXPECT_NE(printed.err.find("missing.step"), std::string::npos);
    EXPECT_FALSE(Store()->FindFile({"good.step"}));
}

TEST_F(FileCommands, ADocumentKeepsReferencesToTheFilesThatItNames)
{
    Write("docs/parts/bracket.tvnprt", "{}");
    Write("docs/bracket.tvndrw",
          R"({"sheets":[{"views":[{"model":"parts/bracket.tvnprt"}]}],"note":"see bracket.tvnprt."})");
    Done({"import", TextOf(Folder("docs"))});
    const auto store = Store();
    const auto drawing = store->FindFile({"docs", "bracket.tvndrw"});
    const auto references = store->References(drawing->id, 1);
    ASSERT_EQ(references.size(), 1u);
    EXPECT_EQ(references[0].sourceFile, store->FindFile({"docs", "parts", "bracket.tvnprt"})->id);
}

TEST_F(FileCommands, ListShowsFoldersAndFilesAndGoesDeeperWhenAsked)
{
    ImportScrew();
    EXPECT_NE(Done({"ls"}).find("Parts\\"), std::string::npos);
    EXPECT_EQ(Done({"ls"}).find("screw.step"), std::string::npos);
    EXPECT_NE(Done({"ls", "-r"}).find("\\Parts\\screw.step"), std::string::npos);
    const Json json = Run({"ls", "/Parts", "--json"}).AsJson();
    ASSERT_EQ(json.size(), 1u);
    EXPECT_EQ(json[0]["path"], "\\Parts\\screw.step");
    EXPECT_EQ(json[0]["version"], 1);
    EXPECT_EQ(json[0]["size"], 5);
    EXPECT_TRUE(json[0]["checkedOutBy"].is_null());
}

TEST_F(FileCommands, HistoryListsEveryVersion)
{
    ImportScrew("one");
    ImportScrew("three");
    const Json json = Run({"history", "\\Parts\\SCREW.step", "--json"}).AsJson();
    ASSERT_EQ(json["versions"].size(), 2u);
    EXPECT_EQ(json["versions"][0]["size"], 3);
    EXPECT_EQ(json["versions"][1]["version"], 2);
    EXPECT_NE(Done({"history", "\\Parts\\screw.step"}).find("Imported"), std::string::npos);
}

TEST_F(FileCommands, HistoryHasColumnsForRevisionAndStateOnceAVersionHasOne)
{
    ImportScrew();
    EXPECT_EQ(Done({"history", "\\Parts\\screw.step"}).find("Revision"), std::string::npos);
    Done({"revise", "\\Parts\\screw.step"});
    EXPECT_NE(Done({"history", "\\Parts\\screw.step"}).find("User"), std::string::npos);
    EXPECT_NE(Done({"history", "\\Parts\\screw.step"}).find("Revision  State  Comment"), std::string::npos);
}

TEST_F(FileCommands, AFullPathBelowTheRootIsAPathOfTheVault)
{
    ImportScrew();
    EXPECT_EQ(Run({"history", TextOf(Folder("vault") / "Parts" / "screw.step")}).code, 0);
}

TEST_F(FileCommands, AWrongPathIsNamedWithTheFolderThatIsThere)
{
    ImportScrew();
    const Printed printed = Run({"history", "\\Parts\\scew.step"});
    EXPECT_EQ(printed.code, 2);
    EXPECT_NE(printed.err.find("'\\Parts\\scew.step' isn't in the vault."), std::string::npos);
    EXPECT_NE(printed.err.find("tvtask ls \"\\Parts\""), std::string::npos);
    EXPECT_NE(Run({"history", "\\Parts"}).err.find("is a folder"), std::string::npos);
    EXPECT_EQ(Run({"ls", "\\None"}).code, 2);
}

TEST_F(FileCommands, ExportWritesAVersionToAFileOrIntoAFolder)
{
    ImportScrew("one");
    ImportScrew("two");
    fs::create_directories(Folder("out"));
    Done({"export", "\\Parts\\screw.step", TextOf(Folder("out")), "--version", "1"});
    std::ifstream stream(Folder("out/screw.step"));
    std::string text;
    stream >> text;
    EXPECT_EQ(text, "one");
    const Printed printed = Run({"export", "\\Parts\\screw.step", TextOf(Folder("out")), "--version", "9"});
    EXPECT_EQ(printed.code, 2);
    EXPECT_NE(printed.err.find("from 1 to 2"), std::string::npos);
}

TEST_F(FileCommands, UnknownCommandsAndMissingArgumentsAreWrongUsageInOneLine)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"frobnicate"}, {"history"}, {}, {"task"}, {"ls", "--nonsense"}}) {
        const Printed printed = Run(arguments);
        EXPECT_EQ(printed.code, 2);
        EXPECT_EQ(std::count(printed.err.begin(), printed.err.end(), '\n'), 1) << printed.err;
    }
    EXPECT_EQ(Run({"--help"}).code, 0);
}

} // namespace

} // namespace tv::local
