#include "host_world.h"

namespace tv::local {

namespace {

class ReferenceCommands : public HostWorld
{
  protected:
    ReferenceCommands()
    {
        Done({"init"});
        Done({"import", Write("host/plate.tvnprt", "{}"), Write("host/sheet.tvndrw", "{}"), Write("host/a.txt", "a")});
    }

    void ChangePlate() { Done({"import", Write("host/plate.tvnprt", R"({"name":"plate"})")}); }
};

TEST_F(ReferenceCommands, WhatAFileRefersToIsListedAsBuiltAndLatest)
{
    EXPECT_EQ(Done({"refs", "add", "\\sheet.tvndrw", "\\plate.tvnprt"}),
              "\\sheet.tvndrw refers to \\plate.tvnprt, version 1\n");
    ChangePlate();
    EXPECT_EQ(Done({"refs", "\\sheet.tvndrw"}), "Refers to      As built  Latest  Note\n"
                                                "-------------  --------  ------  ---------------------\n"
                                                "\\plate.tvnprt         1       2  newer than built with\n");
}

TEST_F(ReferenceCommands, TheFilesThatReferToOneAreListedAsItsParents)
{
    Done({"refs", "add", "\\sheet.tvndrw", "\\plate.tvnprt"});
    ChangePlate();
    EXPECT_EQ(Done({"refs", "\\plate.tvnprt", "--parents"}), "Referred to by  Version  As built  Latest\n"
                                                             "--------------  -------  --------  ------\n"
                                                             "\\sheet.tvndrw         1         1       2\n");
    const Json json = Run({"refs", "\\plate.tvnprt", "--parents", "--json"}).AsJson();
    EXPECT_EQ(json["parents"][0]["path"], "\\sheet.tvndrw");
    EXPECT_EQ(json["parents"][0]["parentVersion"], 1);
    EXPECT_EQ(json["parents"][0]["latest"], 2);
}

TEST_F(ReferenceCommands, AFileWithoutReferencesSaysSo)
{
    EXPECT_EQ(Done({"refs", "\\a.txt"}), "No references from \\a.txt\n");
    EXPECT_EQ(Done({"refs", "\\a.txt", "--parents"}), "Nothing refers to \\a.txt\n");
}

TEST_F(ReferenceCommands, AReferenceToADeletedFileIsMarked)
{
    Done({"refs", "add", "\\sheet.tvndrw", "\\plate.tvnprt"});
    Done({"rm", "\\plate.tvnprt"});
    EXPECT_NE(Done({"refs", "\\sheet.tvndrw"}).find("deleted"), std::string::npos);
    EXPECT_EQ(Run({"refs", "\\sheet.tvndrw", "--json"}).AsJson()["children"][0]["deleted"], true);
}

TEST_F(ReferenceCommands, SeveralFilesAreReferredToAtOnce)
{
    const Json json = Run({"refs", "add", "\\sheet.tvndrw", "\\plate.tvnprt", "\\a.txt", "--json"}).AsJson();
    EXPECT_EQ(json["added"].size(), 2u);
    EXPECT_EQ(Run({"refs", "\\sheet.tvndrw", "--json"}).AsJson()["children"].size(), 2u);
}

TEST_F(ReferenceCommands, WrongUsageIsToldAndNothingIsAdded)
{
    EXPECT_EQ(Run({"refs", "add", "\\sheet.tvndrw", "\\a.txt", "\\none"}).code, 2);
    const Printed self = Run({"refs", "add", "\\sheet.tvndrw", "\\sheet.tvndrw"});
    EXPECT_EQ(self.code, 2);
    EXPECT_EQ(self.err, "tvtask: '\\sheet.tvndrw' can't refer to itself.\n");
    EXPECT_EQ(Run({"refs", "add", "\\sheet.tvndrw"}).code, 2);
    EXPECT_EQ(Run({"refs"}).code, 2);
    EXPECT_EQ(Run({"refs", "\\sheet.tvndrw", "--version", "7"}).code, 2);
    EXPECT_EQ(Run({"refs", "\\sheet.tvndrw", "--parents", "--version", "1"}).code, 2);
    EXPECT_EQ(Done({"refs", "\\sheet.tvndrw"}), "No references from \\sheet.tvndrw\n");
}

TEST_F(ReferenceCommands, AFileThatAnotherHasCheckedOutTakesNoReferences)
{
    Done({"user", "anna@PC7", "checkout", "\\sheet.tvndrw"});
    const Printed printed = Run({"refs", "add", "\\sheet.tvndrw", "\\a.txt"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_NE(printed.err.find("is checked out by anna on PC7 since"), std::string::npos);
}

} // namespace

} // namespace tv::local
