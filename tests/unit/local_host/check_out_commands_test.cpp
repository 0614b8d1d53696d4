#include "host_world.h"

#include <algorithm>
#include <fstream>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

class CheckOutCommands : public HostWorld
{
  protected:
    CheckOutCommands()
    {
        Done({"init"});
        Done({"import", Write("host/screw.step", "screw"), Write("host/nut.step", "nut"), "--to", "\\Parts"});
    }

    fs::path Copy(std::string_view name) const { return PathOf(VaultFolder()) / "Parts" / PathOf(name); }

    void WriteCopy(std::string_view name, std::string_view bytes) const
    {
        std::ofstream(Copy(name), std::ios::binary) << bytes;
    }

    std::string ReadCopy(std::string_view name) const
    {
        std::ifstream stream(Copy(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    bool IsWritable(std::string_view name) const
    {
        return (fs::status(Copy(name)).permissions() & fs::perms::owner_write) != fs::perms::none;
    }
};

TEST_F(CheckOutCommands, ACheckOutMakesTheLocalCopyWritableAndSaysWhereItIs)
{
    EXPECT_FALSE(IsWritable("screw.step"));
    const std::string out = Done({"user", "anna@PC7", "checkout", "\\Parts\\screw.step"});
    EXPECT_EQ(out, "\\Parts\\screw.step  version 1 checked out by anna on PC7, to be written in " +
                       TextOf(Copy("screw.step")) + "\n");
    EXPECT_TRUE(IsWritable("screw.step"));
}

TEST_F(CheckOutCommands, AWrittenFileBecomesANewVersionWithItsComment)
{
    Done({"checkout", "\\Parts\\screw.step"});
    WriteCopy("screw.step", "longer screw");
    EXPECT_EQ(Done({"checkin", "\\Parts\\screw.step", "-m", "Longer"}), "\\Parts\\screw.step  version 2\n");
    EXPECT_FALSE(IsWritable("screw.step"));
    const Json history = Run({"history", "\\Parts\\screw.step", "--json"}).AsJson();
    EXPECT_EQ(history["versions"][1]["comment"], "Longer");
    EXPECT_EQ(history["versions"][1]["size"], 12);
}

TEST_F(CheckOutCommands, AnUnwrittenFileKeepsItsVersion)
{
    Done({"checkout", "\\Parts\\screw.step"});
    EXPECT_EQ(Done({"checkin", "\\Parts\\screw.step"}),
              "\\Parts\\screw.step  version 1 (not written since the check-out, so no new version)\n");
    EXPECT_FALSE(Store()->FindFile({"Parts", "screw.step"})->checkOut);
}

TEST_F(CheckOutCommands, UndoPutsTheVersionBack)
{
    Done({"checkout", "\\Parts\\screw.step"});
    WriteCopy("screw.step", "spoilt");
    EXPECT_EQ(Done({"undo", "\\Parts\\screw.step"}), "\\Parts\\screw.step  is version 1 again\n");
    EXPECT_EQ(ReadCopy("screw.step"), "screw");
    EXPECT_FALSE(IsWritable("screw.step"));
}

TEST_F(CheckOutCommands, AFileThatWasNeverCheckedInLeavesTheVaultWithItsUndo)
{
    const auto store = Store();
    FileWork(store).Add(PathOf(Write("host/new.step", "new")), *store->FindFolder({"Parts"}));
    EXPECT_EQ(Done({"undo", "\\Parts\\new.step"}),
              "\\Parts\\new.step  left the vault, since it had never been checked in\n");
    EXPECT_FALSE(Store()->FindFile({"Parts", "new.step"}));
}

TEST_F(CheckOutCommands, TheFirstCheckInOfAnAddedFileIsANewVersion)
{
    const auto store = Store();
    FileWork(store).Add(PathOf(Write("host/new.step", "new")), *store->FindFolder({"Parts"}));
    EXPECT_EQ(Done({"checkin", "\\Parts\\new.step"}), "\\Parts\\new.step  version 1\n");
}

TEST_F(CheckOutCommands, ARefusedFileIsToldAndTheOthersAreDone)
{
    Done({"user", "anna@PC7", "checkout", "\\Parts\\nut.step"});
    const Printed printed = Run({"checkout", "\\Parts\\nut.step", "\\Parts\\screw.step", "--json"});
    EXPECT_EQ(printed.code, 1);
    const Json json = printed.AsJson();
    ASSERT_EQ(json.size(), 2u);
    EXPECT_EQ(json[0]["done"], false);
    EXPECT_TRUE(json[0]["error"].get<std::string>().starts_with("'\\Parts\\nut.step' is checked out by anna on PC7"));
    EXPECT_EQ(json[1]["done"], true);
    EXPECT_EQ(std::count(printed.err.begin(), printed.err.end(), '\n'), 1);
    EXPECT_TRUE(Store()->FindFile({"Parts", "screw.step"})->checkOut);
}

TEST_F(CheckOutCommands, AWrongPathAmongGoodOnesIsWrongUsageAndNothingIsDone)
{
    EXPECT_EQ(Run({"checkout", "\\Parts\\screw.step", "\\Parts\\none.step"}).code, 2);
    EXPECT_FALSE(Store()->FindFile({"Parts", "screw.step"})->checkOut);
    EXPECT_EQ(Run({"checkout"}).code, 2);
    EXPECT_EQ(Run({"checkin", "\\Parts"}).code, 2);
}

TEST_F(CheckOutCommands, AFileNamedTwiceIsCheckedOutOnce)
{
    EXPECT_EQ(Run({"checkout", "\\Parts\\screw.step", "/parts/SCREW.step", "--json"}).AsJson().size(), 1u);
}

TEST_F(CheckOutCommands, EachRefusalSaysWhatToDoNext)
{
    EXPECT_EQ(Run({"checkin", "\\Parts\\screw.step"}).err,
              "tvtask: 'screw.step' isn't checked out. To check it out: tvtask checkout \"\\Parts\\screw.step\"\n");
    Done({"user", "anna@PC7", "checkout", "\\Parts\\screw.step"});
    EXPECT_NE(
        Run({"user", "anna@PC7", "checkout", "\\Parts\\screw.step"})
            .err.find("To end that: tvtask checkin \"\\Parts\\screw.step\" or tvtask undo \"\\Parts\\screw.step\""),
        std::string::npos);
    EXPECT_NE(Run({"user", "anna@PC8", "checkin", "\\Parts\\screw.step"})
                  .err.find(". Check it in or undo the check-out there."),
              std::string::npos);
    EXPECT_NE(Run({"user", "bert@PC7", "undo", "\\Parts\\screw.step"}).err.find("That user has to check it in"),
              std::string::npos);
    EXPECT_EQ(Run({"user", "bert@PC7", "undo", "\\Parts\\screw.step"}).code, 1);
}

TEST_F(CheckOutCommands, ALostLocalCopyIsToldWithTheWayOut)
{
    Done({"checkout", "\\Parts\\screw.step"});
    fs::remove(Copy("screw.step"));
    const Printed printed = Run({"checkin", "\\Parts\\screw.step"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("is missing. To give the check-out back: tvtask undo \"\\Parts\\screw.step\""),
              std::string::npos);
    Done({"undo", "\\Parts\\screw.step"});
    EXPECT_EQ(ReadCopy("screw.step"), "screw");
}

TEST_F(CheckOutCommands, ADocumentThatWasWrittenRefersToWhatItNamesNow)
{
    Done({"import", Write("host/a.tvnprt", "{}"), Write("host/b.tvnprt", "{}"), "--to", "\\Parts"});
    Done({"import", Write("host/sheet.tvndrw", R"({"model":"a.tvnprt"})"), "--to", "\\Parts"});
    Done({"checkout", "\\Parts\\sheet.tvndrw"});
    WriteCopy("sheet.tvndrw", R"({"model":"b.tvnprt"})");
    Done({"checkin", "\\Parts\\sheet.tvndrw"});
    const Json refs = Run({"refs", "\\Parts\\sheet.tvndrw", "--json"}).AsJson();
    ASSERT_EQ(refs["children"].size(), 1u);
    EXPECT_EQ(refs["children"][0]["path"], "\\Parts\\b.tvnprt");
    EXPECT_EQ(Run({"refs", "\\Parts\\sheet.tvndrw", "--version", "1", "--json"}).AsJson()["children"][0]["path"],
              "\\Parts\\a.tvnprt");
}

TEST_F(CheckOutCommands, AnotherUserIsNamedWithOrWithoutAMachine)
{
    Done({"user", "anna", "checkout", "\\Parts\\screw.step"});
    EXPECT_EQ(Store()->FindFile({"Parts", "screw.step"})->checkOut->holder.user, "anna");
    EXPECT_EQ(Store()->FindFile({"Parts", "screw.step"})->checkOut->holder.machine, CurrentSession().machine);
    Done({"user", "@PC9", "checkout", "\\Parts\\nut.step"});
    EXPECT_EQ(Store()->FindFile({"Parts", "nut.step"})->checkOut->holder.user, CurrentSession().user);
    EXPECT_EQ(Store()->FindFile({"Parts", "nut.step"})->checkOut->holder.machine, "PC9");
}

TEST_F(CheckOutCommands, TheUserCommandNeedsAUserAndACommand)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"user"},
                                                      {"user", "anna"},
                                                      {"user", "anna@", "ls"},
                                                      {"user", "@", "ls"},
                                                      {"user", "", "ls"},
                                                      {"user", "anna", "frobnicate"},
                                                      {"user", "anna", "--json", "ls"}}) {
        const Printed printed = Run(arguments);
        EXPECT_EQ(printed.code, 2) << arguments.size();
        EXPECT_EQ(std::count(printed.err.begin(), printed.err.end(), '\n'), 1) << printed.err;
    }
    EXPECT_EQ(Run({"user", "anna", "history", "\\none"}).code, 2);
    EXPECT_NE(Run({"user", "--help"}).out.find("tvtask user anna checkout"), std::string::npos);
}

} // namespace

} // namespace tv::local
