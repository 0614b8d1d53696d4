#include "host_world.h"

#include <algorithm>

namespace tv::local {

namespace {

class VaultCommands : public HostWorld
{
  protected:
    VaultCommands()
    {
        Done({"init"});
        Import("screw");
    }

    void Import(std::string_view bytes) { Done({"import", Write("host/screw.step", bytes), "--to", "\\Parts"}); }
    std::filesystem::path Copy() const { return PathOf(VaultFolder()) / "Parts" / "screw.step"; }
};

TEST_F(VaultCommands, MkdirMakesTheFoldersAboveToo)
{
    EXPECT_EQ(Done({"mkdir", "\\Out\\Stl", "/Logs"}), "Made the folder \\Out\\Stl\nMade the folder \\Logs\n");
    EXPECT_TRUE(Store()->FindFolder({"Out", "Stl"}));
    EXPECT_EQ(Done({"mkdir", "\\Logs"}), "There is a folder already: \\Logs\n");
    EXPECT_EQ(Run({"mkdir", "\\Logs", "--json"}).AsJson()[0]["made"], false);
}

TEST_F(VaultCommands, MkdirRefusesNamesThatNoFolderCanHaveAndMakesNoneOfThem)
{
    EXPECT_EQ(Run({"mkdir", "\\Good", "\\Parts\\screw.step"}).code, 2);
    EXPECT_EQ(Run({"mkdir", "\\Good", "\\What?"}).code, 2);
    EXPECT_EQ(Run({"mkdir"}).code, 2);
    EXPECT_FALSE(Store()->FindFolder({"Good"}));
}

TEST_F(VaultCommands, ADeletedFileIsGoneAndToldWithTheWayBack)
{
    EXPECT_EQ(Done({"rm", "\\Parts\\screw.step"}),
              "Deleted \\Parts\\screw.step. To get it back: tvtask restore \"\\Parts\\screw.step\"\n");
    EXPECT_FALSE(Store()->FindFile({"Parts", "screw.step"}));
    EXPECT_FALSE(std::filesystem::exists(Copy()));
}

TEST_F(VaultCommands, ARestoredFileHasItsVersionsAndItsLocalCopy)
{
    Import("longer screw");
    Done({"rm", "\\Parts\\screw.step"});
    EXPECT_EQ(Done({"restore", "\\Parts\\screw.step"}), "\\Parts\\screw.step  is back, version 2\n");
    EXPECT_EQ(Run({"history", "\\Parts\\screw.step", "--json"}).AsJson()["versions"].size(), 2u);
    EXPECT_TRUE(std::filesystem::exists(Copy()));
}

TEST_F(VaultCommands, DeletedFilesAreListedFromTheirFolderDown)
{
    Done({"user", "anna@PC7", "rm", "\\Parts\\screw.step"});
    Done({"import", Write("host/nut.step", "nut"), "--to", "\\Other"});
    Done({"rm", "\\Other\\nut.step"});
    EXPECT_EQ(Run({"deleted", "--json"}).AsJson().size(), 2u);
    const Json json = Run({"deleted", "\\Parts", "--json"}).AsJson();
    ASSERT_EQ(json.size(), 1u);
    EXPECT_EQ(json[0]["path"], "\\Parts\\screw.step");
    EXPECT_EQ(json[0]["deletedBy"], "anna on PC7");
    EXPECT_NE(Done({"deleted", "\\Parts"}).find("anna on PC7"), std::string::npos);
    EXPECT_EQ(Run({"deleted", "\\None"}).code, 2);
    Done({"mkdir", "\\Empty"});
    EXPECT_EQ(Done({"deleted", "\\Empty"}), "No deleted files in \\Empty\n");
}

TEST_F(VaultCommands, AFileThatTookItsNameIsInTheWayOfTheDeletedOne)
{
    const int32_t first = Store()->FindFile({"Parts", "screw.step"})->id;
    Done({"rm", "\\Parts\\screw.step"});
    Import("another screw");
    const Printed printed = Run({"restore", "--id", std::to_string(first)});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.err, "tvtask: The vault has '\\Parts\\screw.step' already. To see what is there: tvtask ls "
                           "\"\\Parts\"\n");
    Done({"rm", "\\Parts\\screw.step"});
    EXPECT_EQ(Run({"restore", "--id", std::to_string(first), "--json"}).AsJson()["id"], first);
}

TEST_F(VaultCommands, RestoringWhatIsNotDeletedIsWrongUsage)
{
    EXPECT_EQ(Run({"restore", "\\Parts\\screw.step"}).err,
              "tvtask: No deleted file was '\\Parts\\screw.step'. To see what was deleted: tvtask deleted\n");
    EXPECT_EQ(Run({"restore", "--id", "77"}).err,
              "tvtask: There is no deleted file with the id 77. To see what was deleted: tvtask deleted\n");
    EXPECT_EQ(Run({"restore"}).code, 2);
    EXPECT_EQ(Run({"restore", "\\Parts\\screw.step", "--id", "1"}).code, 2);
}

TEST_F(VaultCommands, ACheckedOutFileIsNotDeleted)
{
    Done({"checkout", "\\Parts\\screw.step"});
    const Printed printed = Run({"rm", "\\Parts\\screw.step"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("To end that: tvtask checkin"), std::string::npos);
    EXPECT_TRUE(Store()->FindFile({"Parts", "screw.step"}));
}

TEST_F(VaultCommands, RevisionsFollowEachOtherUnlessOneIsGiven)
{
    EXPECT_EQ(Done({"revise", "\\Parts\\screw.step"}), "\\Parts\\screw.step  version 1 is revision A\n");
    EXPECT_EQ(Done({"revise", "\\Parts\\screw.step", "C"}), "\\Parts\\screw.step  version 1 is revision C\n");
    EXPECT_EQ(Run({"revise", "\\Parts\\screw.step", "--json"}).AsJson()["revision"], "D");
    EXPECT_EQ(Run({"history", "\\Parts\\screw.step", "--json"}).AsJson()["versions"][0]["revision"], "D");
}

TEST_F(VaultCommands, ARevisionThatTheFileHasOrCannotHaveIsRefused)
{
    Done({"revise", "\\Parts\\screw.step", "B"});
    const Printed taken = Run({"revise", "\\Parts\\screw.step", "B"});
    EXPECT_EQ(taken.code, 1);
    EXPECT_EQ(taken.err, "tvtask: '\\Parts\\screw.step' has the revision 'B' already.\n");
    EXPECT_EQ(Run({"revise", "\\Parts\\screw.step", " B"}).code, 2);
    Done({"revise", "\\Parts\\screw.step", "2.1"});
    const Printed next = Run({"revise", "\\Parts\\screw.step"});
    EXPECT_EQ(next.code, 2);
    EXPECT_NE(next.err.find("No revision follows '2.1'"), std::string::npos);
}

TEST_F(VaultCommands, AWorkflowStateIsSetAndSeenInTheHistory)
{
    EXPECT_EQ(Done({"state", "\\Parts\\screw.step", "In review"}),
              "\\Parts\\screw.step  version 1 is in the state 'In review'\n");
    EXPECT_NE(Done({"history", "\\Parts\\screw.step"}).find("In review"), std::string::npos);
    EXPECT_EQ(Run({"history", "\\Parts\\screw.step", "--json"}).AsJson()["versions"][0]["state"], "In review");
    EXPECT_EQ(Run({"state", "\\Parts\\screw.step", ""}).code, 2);
    EXPECT_EQ(Run({"state", "\\Parts\\screw.step"}).code, 2);
}

TEST_F(VaultCommands, ACheckedOutFileTakesNeitherStateNorRevision)
{
    Done({"checkout", "\\Parts\\screw.step"});
    EXPECT_EQ(Run({"state", "\\Parts\\screw.step", "Released"}).code, 1);
    EXPECT_NE(Run({"revise", "\\Parts\\screw.step"}).err.find("tvtask checkin \"\\Parts\\screw.step\""),
              std::string::npos);
}

TEST_F(VaultCommands, WithoutRowsEverybodyMayDoEverything)
{
    EXPECT_EQ(Done({"permit"}), "Everybody may do everything. To change that: tvtask permit FOLDER USER RIGHTS\n");
    EXPECT_EQ(Done({"permit", "\\Parts"}),
              "Everybody may do everything in \\Parts. To change that: tvtask permit FOLDER USER RIGHTS\n");
    EXPECT_EQ(Run({"permit", "--json"}).AsJson(), Json::array());
}

TEST_F(VaultCommands, RightsAreSetAndRefuseWhatTheyDoNotHold)
{
    EXPECT_EQ(Done({"permit", "\\Parts", "anna", "read", "add"}), "\\Parts  anna has the rights: read,add\n");
    const Printed printed = Run({"user", "anna", "checkout", "\\Parts\\screw.step"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.err, "tvtask: The user 'anna' doesn't have the right 'checkout' in the folder '\\Parts'. To see "
                           "who may do what: tvtask permit\n");
    Done({"permit", "\\Parts", "anna", "read,checkout"});
    Done({"user", "anna", "checkout", "\\Parts\\screw.step"});
}

TEST_F(VaultCommands, TheRowsOfAFolderAreListedWithThoseAboveThatCountForIt)
{
    Done({"mkdir", "\\Other"});
    Done({"permit", "\\", "anna", "read"});
    Done({"permit", "\\Parts", "anna", "none"});
    Done({"permit", "\\Other", "bert", "read"});
    EXPECT_EQ(Done({"permit", "\\Parts"}), "Folder  User  Rights\n"
                                           "------  ----  ------\n"
                                           "\\       anna  read\n"
                                           "\\Parts  anna  none\n");
    EXPECT_EQ(Run({"permit", "--json"}).AsJson().size(), 3u);
}

TEST_F(VaultCommands, AClearedRowCountsNoMore)
{
    Done({"permit", "\\Parts", "anna", "none"});
    EXPECT_EQ(Run({"permit", "\\Parts", "anna", "--clear", "--json"}).AsJson()["rights"], nullptr);
    Done({"user", "anna", "checkout", "\\Parts\\screw.step"});
    const Printed printed = Run({"permit", "\\Parts", "anna", "--clear"});
    EXPECT_EQ(printed.code, 2);
    EXPECT_EQ(printed.err,
              "tvtask: 'anna' has no rights of his own in '\\Parts'. To see who has: tvtask permit \"\\Parts\"\n");
}

TEST_F(VaultCommands, NobodyGivesHisOwnRightToPermitAway)
{
    const Printed printed = Run({"permit", "\\Parts", CurrentSession().user, "read"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("would lose the right 'permit'"), std::string::npos);
}

TEST_F(VaultCommands, WrongUseOfPermitIsToldInOneLine)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"permit", "\\Parts", "anna"},
                                                      {"permit", "\\Parts", "anna", "write"},
                                                      {"permit", "\\Parts", "anna", "read", "--clear"},
                                                      {"permit", "\\Parts", "--clear"},
                                                      {"permit", "\\None"},
                                                      {"permit", "\\Parts", " anna", "read"}}) {
        const Printed printed = Run(arguments);
        EXPECT_EQ(printed.code, 2) << printed.err;
        EXPECT_EQ(std::count(printed.err.begin(), printed.err.end(), '\n'), 1) << printed.err;
    }
    EXPECT_EQ(Run({"permit", "\\Parts", "anna", "write"}).err,
              "tvtask: There is no right 'write'; the rights are: read, add, checkout, delete, permit, or all, or "
              "none.\n");
}

TEST_F(VaultCommands, WhoMayNotAddMakesNoFolder)
{
    Done({"permit", "\\Parts", "anna", "read"});
    const Printed printed = Run({"user", "anna", "mkdir", "\\Parts\\New"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("'add'"), std::string::npos);
    EXPECT_NE(printed.err.find("tvtask permit"), std::string::npos);
}

} // namespace

} // namespace tv::local
