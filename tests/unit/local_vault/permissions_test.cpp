#include "disk_world.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

TEST(RightsAsText, AreWordsPartedByCommas)
{
    EXPECT_EQ(RightsText({0}), "none");
    EXPECT_EQ(RightsText({1}), "read");
    EXPECT_EQ(RightsText({2}), "add");
    EXPECT_EQ(RightsText({4}), "checkout");
    EXPECT_EQ(RightsText({8}), "delete");
    EXPECT_EQ(RightsText({16}), "permit");
    EXPECT_EQ(RightsText({5}), "read,checkout");
    EXPECT_EQ(RightsText({31}), "all");
}

TEST(RightsAsText, AreReadWithCommasOrBlanksInAnyCase)
{
    EXPECT_EQ(ParseRights("none").bits, 0u);
    EXPECT_EQ(ParseRights("all").bits, 31u);
    EXPECT_EQ(ParseRights("read,add,checkout,delete,permit").bits, 31u);
    EXPECT_EQ(ParseRights("Read, ADD").bits, 3u);
    EXPECT_EQ(ParseRights(" delete  permit ").bits, 24u);
}

TEST(RightsAsText, AWordThatIsNoRightIsRefusedWithTheRightsThereAre)
{
    EXPECT_EQ(CodeOf([] { ParseRights("read,write"); }), E_INVALIDARG);
    EXPECT_EQ(CodeOf([] { ParseRights(""); }), E_INVALIDARG);
    EXPECT_EQ(CodeOf([] { ParseRights(" , "); }), E_INVALIDARG);
    EXPECT_EQ(WordsOf([] { ParseRights("read,write"); }),
              "There is no right 'write'; the rights are: read, add, checkout, delete, permit, or all, or none.");
}

class Permissions : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};
    FileRecord screw = Import(*store, "screw.step", "screw", {"Parts"});
    int32_t parts = screw.folder;
    std::shared_ptr<VaultStore> berts = OpenAs(kBert);
    FileWork bertsWork{berts};

    void Give(std::string_view user, Rights rights) { store->Permit(parts, user, rights); }
    /// Everything but that one right.
    static Rights AllBut(Right right) { return {kAllRights.bits & ~static_cast<uint32_t>(right)}; }
};

TEST_F(Permissions, EverythingIsPermittedWhereNothingIsSaid)
{
    EXPECT_EQ(berts->RightsIn(parts), kAllRights);
    EXPECT_TRUE(store->Permissions().empty());
}

TEST_F(Permissions, ARowCountsForItsFolderAndThoseBelow)
{
    const int32_t below = store->MakeFolder({"Parts", "Old", "Older"}).id;
    const int32_t beside = store->MakeFolder({"Other"}).id;
    Give("bert", {1});
    EXPECT_EQ(berts->RightsIn(parts).bits, 1u);
    EXPECT_EQ(berts->RightsIn(below).bits, 1u);
    EXPECT_EQ(berts->RightsIn(beside), kAllRights);
    EXPECT_EQ(berts->RightsIn(kRootFolder), kAllRights);
}

TEST_F(Permissions, TheNearestFolderCounts)
{
    const int32_t below = store->MakeFolder({"Parts", "Old"}).id;
    Give("bert", {1});
    store->Permit(below, "bert", {3});
    EXPECT_EQ(berts->RightsIn(parts).bits, 1u);
    EXPECT_EQ(berts->RightsIn(below).bits, 3u);
}

TEST_F(Permissions, AnEveryUserRowOfANearerFolderCountsBeforeAUsersOwnFartherAway)
{
    const int32_t below = store->MakeFolder({"Parts", "Old"}).id;
    Give("bert", kAllRights);
    store->Permit(below, "*", {17});
    EXPECT_EQ(berts->RightsIn(below).bits, 17u);
}

TEST_F(Permissions, AUsersOwnRowCountsBeforeThatOfEveryUser)
{
    Give("anna", kAllRights);
    Give("*", {0});
    Give("bert", {1});
    EXPECT_EQ(berts->RightsIn(parts).bits, 1u);
    EXPECT_EQ(store->RightsIn(parts), kAllRights);
    EXPECT_EQ(OpenAs({"carla", "bench-1"})->RightsIn(parts).bits, 0u);
}

TEST_F(Permissions, AUserIsTheSameInAnyCaseAndOnAnyMachine)
{
    Give("BERT", {1});
    EXPECT_EQ(OpenAs({"bert", "elsewhere"})->RightsIn(parts).bits, 1u);
    Give("bert", {3});
    ASSERT_EQ(store->Permissions(parts).size(), 1u);
    EXPECT_EQ(store->Permissions(parts)[0].user, "bert");
    EXPECT_EQ(store->Permissions(parts)[0].rights.bits, 3u);
}

TEST_F(Permissions, AreListedByFolderAndUser)
{
    const int32_t other = store->MakeFolder({"Other"}).id;
    store->Permit(other, "bert", {1});
    Give("carla", {1});
    Give("anna", kAllRights);
    std::vector<std::pair<int32_t, std::string>> rows;
    for (const PermissionRecord& row : store->Permissions()) {
        rows.emplace_back(row.folder, row.user);
    }
    EXPECT_EQ(rows, (std::vector<std::pair<int32_t, std::string>>{{parts, "anna"}, {parts, "carla"}, {other, "bert"}}));
    EXPECT_EQ(store->Permissions(parts).size(), 2u);
}

TEST_F(Permissions, AClearedRowCountsNoLonger)
{
    Give("bert", {1});
    EXPECT_TRUE(store->ClearPermission(parts, "Bert"));
    EXPECT_EQ(berts->RightsIn(parts), kAllRights);
    EXPECT_FALSE(store->ClearPermission(parts, "bert"));
}

TEST_F(Permissions, OutliveTheProgram)
{
    Give("bert", {1});
    EXPECT_EQ(OpenAs(kBert)->RightsIn(parts).bits, 1u);
}

TEST_F(Permissions, CannotBeSetForAUserWithoutAName)
{
    EXPECT_EQ(CodeOf([&] { Give("", {1}); }), kErrorInvalidUserName);
    EXPECT_EQ(CodeOf([&] { Give(" bert", {1}); }), kErrorInvalidUserName);
    EXPECT_EQ(CodeOf([&] { Give("bert ", {1}); }), kErrorInvalidUserName);
    EXPECT_EQ(CodeOf([&] { Give("be\nrt", {1}); }), kErrorInvalidUserName);
    EXPECT_EQ(CodeOf([&] { store->Permit(99, "bert", {1}); }), kErrorFolderNotFound);
}

TEST_F(Permissions, AreChangedOnlyByThoseWhoMay)
{
    Give("bert", AllBut(Right::Permit));
    EXPECT_EQ(CodeOf([&] { berts->Permit(parts, "bert", kAllRights); }), kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { berts->ClearPermission(parts, "bert"); }), kErrorPermissionDenied);
    EXPECT_EQ(berts->RightsIn(parts), AllBut(Right::Permit));
}

TEST_F(Permissions, NobodyShutsHimselfOut)
{
    EXPECT_EQ(CodeOf([&] { Give("anna", {1}); }), kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { Give("*", {1}); }), kErrorPermissionDenied);
    EXPECT_TRUE(store->Permissions().empty());
    Give("anna", kAllRights);
    Give("*", {1});
    EXPECT_EQ(CodeOf([&] { store->ClearPermission(parts, "anna"); }), kErrorPermissionDenied);
    EXPECT_EQ(store->Permissions().size(), 2u);
    EXPECT_EQ(WordsOf([&] { store->ClearPermission(parts, "anna"); }),
              "The user 'anna' would lose the right 'permit' in the folder '\\Parts' and could not take that back; "
              "another who has it can do this.");
}

TEST_F(Permissions, ARefusalNamesTheUserTheRightAndTheFolder)
{
    Give("bert", {1});
    EXPECT_EQ(WordsOf([&] { bertsWork.CheckOut(screw.id); }),
              "The user 'bert' doesn't have the right 'checkout' in the folder '\\Parts'.");
}

TEST_F(Permissions, ReadingTakesTheRightToRead)
{
    Give("bert", AllBut(Right::Read));
    const std::function<void()> readings[] = {
        [&] {
            berts->FindFile({"Parts", "screw.step"});
        },
        [&] {
            berts->FindFile({"Parts", "none.step"});
        },
        [&] { berts->FileById(screw.id); },
        [&] { berts->RequireFile(screw.id); },
        [&] { berts->FilesIn(parts); },
        [&] { berts->Version(screw.id, 1); },
        [&] { berts->Versions(screw.id); },
        [&] { berts->CardValues(screw.id, 1); },
        [&] { berts->WorkingCard(screw.id); },
        [&] { berts->References(screw.id, 1); },
        [&] { berts->Children(screw.id); },
        [&] { berts->Parents(screw.id); },
        [&] {
            berts->FindDeleted({"Parts", "screw.step"});
        },
        [&] { bertsWork.Fetch(screw, 0); },
        [&] { bertsWork.Export(screw, 1, Folder("out.step")); },
    };
    for (size_t i = 0; i < std::size(readings); ++i) {
        EXPECT_EQ(CodeOf(readings[i]), kErrorPermissionDenied) << i;
    }
}

TEST_F(Permissions, FoldersThatCannotBeReadAreNotShown)
{
    store->MakeFolder({"Open"});
    Give("bert", AllBut(Right::Read));
    ASSERT_EQ(berts->SubFolders(kRootFolder).size(), 1u);
    EXPECT_EQ(berts->SubFolders(kRootFolder)[0].name, "Open");
    EXPECT_TRUE(berts->FilesNamed("screw.step").empty());
    EXPECT_EQ(store->SubFolders(kRootFolder).size(), 2u);
}

TEST_F(Permissions, DeletedFilesOfAFolderThatCannotBeReadAreNotListed)
{
    work.Delete(screw.id);
    Give("bert", AllBut(Right::Read));
    EXPECT_TRUE(berts->DeletedFiles().empty());
    EXPECT_EQ(store->DeletedFiles().size(), 1u);
}

TEST_F(Permissions, AddingTakesTheRightToAdd)
{
    Give("bert", AllBut(Right::Add));
    EXPECT_EQ(CodeOf([&] { Import(*berts, "bolt.step", "bolt", {"Parts"}); }), kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { bertsWork.Add(Write("bolt.step", "bolt"), *berts->FolderById(parts)); }),
              kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { berts->MakeFolder({"Parts", "New"}); }), kErrorPermissionDenied);
    EXPECT_EQ(berts->MakeFolder({"Parts"}).id, parts);
    EXPECT_FALSE(store->FindFile({"Parts", "bolt.step"}));
    EXPECT_FALSE(Disk::IsFile(Root() / "Parts" / "bolt.step"));
}

TEST_F(Permissions, ComingBackTakesTheRightToAdd)
{
    work.Delete(screw.id);
    Give("bert", AllBut(Right::Add));
    EXPECT_EQ(CodeOf([&] { bertsWork.Restore(screw.id); }), kErrorPermissionDenied);
    EXPECT_FALSE(store->FileById(screw.id));
}

TEST_F(Permissions, ChangingAFileTakesTheRightToCheckOut)
{
    const int32_t number = store->MakeCardVariable("Number");
    const FileRecord bolt = Import(*store, "bolt.step", "bolt", {"Parts"});
    Give("bert", AllBut(Right::CheckOut));
    const CardWrite card{screw.id, number, {}, StoredValue::FromText("A-1")};
    EXPECT_EQ(CodeOf([&] { bertsWork.CheckOut(screw.id); }), kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { Import(*berts, "screw.step", "other", {"Parts"}); }), kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { berts->Revise(screw.id); }), kErrorPermissionDenied);
    EXPECT_EQ(CodeOf([&] { berts->SetState(screw.id, "Released"); }), kErrorPermissionDenied);
    EXPECT_EQ(berts->WriteCards({&card, 1}), std::vector<Result>{kErrorPermissionDenied});
    EXPECT_EQ(CodeOf([&] {
                  berts->AddReferences(screw.id, std::vector<ReferenceRecord>{{bolt.id, 1}});
              }),
              kErrorPermissionDenied);
    EXPECT_FALSE(store->FileById(screw.id)->checkOut);
    EXPECT_EQ(store->FileById(screw.id)->latestVersion, 1);
    EXPECT_TRUE(Disk::IsReadOnly(work.LocalPathOf(screw)));
}

TEST_F(Permissions, ACheckInTakesTheRightToCheckOutThoughAnUndoDoesNot)
{
    bertsWork.CheckOut(screw.id);
    Give("bert", AllBut(Right::CheckOut));
    EXPECT_EQ(CodesOf(bertsWork.CheckIn(std::vector{screw.id}, "")), std::vector<Result>{kErrorPermissionDenied});
    EXPECT_FALSE(bertsWork.UndoCheckOut(screw.id).leftVault);
}

TEST_F(Permissions, WhoeverMayAddMayFinishWhatHeAdded)
{
    const int32_t number = store->MakeCardVariable("Number");
    Give("bert", {3});
    const FileRecord added = bertsWork.Add(Write("bolt.step", "bolt"), *berts->FolderById(parts));
    const CardWrite card{added.id, number, {}, StoredValue::FromText("A-1")};
    EXPECT_EQ(berts->WriteCards({&card, 1}), std::vector<Result>{0});
    EXPECT_EQ(CodesOf(bertsWork.CheckIn(std::vector{added.id}, "")), std::vector<Result>{0});
    berts->AddReferences(added.id, std::vector<ReferenceRecord>{{screw.id, 1}});
    EXPECT_EQ(CodeOf([&] { bertsWork.CheckOut(added.id); }), kErrorPermissionDenied);
}

TEST_F(Permissions, DeletingTakesTheRightToDelete)
{
    Give("bert", AllBut(Right::Delete));
    EXPECT_EQ(CodeOf([&] { bertsWork.Delete(screw.id); }), kErrorPermissionDenied);
    EXPECT_TRUE(Disk::IsFile(work.LocalPathOf(screw)));
    work.Delete(screw.id);
    EXPECT_EQ(CodeOf([&] { berts->PurgeFile(screw.id); }), kErrorPermissionDenied);
    EXPECT_TRUE(store->DeletedFile(screw.id));
}

TEST_F(Permissions, EachRightSufficesForItsOwnOperation)
{
    Give("bert", {1});
    EXPECT_EQ(CodeOf([&] { bertsWork.Fetch(screw, 0); }), 0);
    Give("bert", {3});
    EXPECT_EQ(CodeOf([&] { Import(*berts, "bolt.step", "bolt", {"Parts"}); }), 0);
    Give("bert", {5});
    EXPECT_EQ(CodeOf([&] { bertsWork.CheckOut(screw.id); }), 0);
    EXPECT_EQ(CodesOf(bertsWork.CheckIn(std::vector{screw.id}, "")), std::vector<Result>{0});
    Give("bert", {9});
    EXPECT_EQ(CodeOf([&] { bertsWork.Delete(screw.id); }), 0);
}

} // namespace

} // namespace tv::local
