#include "disk_world.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

class Revisions : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};
    FileRecord file = Import(*store, "part.step", "one");

    std::string NextAfter(const std::string& revision)
    {
        store->Revise(file.id, revision);
        return store->Revise(file.id);
    }
};

TEST_F(Revisions, AFileHasNeitherRevisionNorStateAtFirst)
{
    EXPECT_FALSE(store->Version(file.id, 1)->revision);
    EXPECT_FALSE(store->Version(file.id, 1)->state);
}

TEST_F(Revisions, TheFirstIsAAndEachOtherFollowsTheOneBefore)
{
    EXPECT_EQ(store->Revise(file.id), "A");
    EXPECT_EQ(store->Revise(file.id), "B");
    EXPECT_EQ(store->Revise(file.id), "C");
    EXPECT_EQ(store->Version(file.id, 1)->revision, "C");
}

TEST_F(Revisions, AfterZComeTwoLettersAndThenThree)
{
    EXPECT_EQ(NextAfter("Y"), "Z");
    EXPECT_EQ(store->Revise(file.id), "AA");
    EXPECT_EQ(store->Revise(file.id), "AB");
    EXPECT_EQ(NextAfter("AZ"), "BA");
    EXPECT_EQ(NextAfter("ZY"), "ZZ");
    EXPECT_EQ(store->Revise(file.id), "AAA");
    EXPECT_EQ(NextAfter("AZZ"), "BAA");
}

TEST_F(Revisions, AGivenOneIsTakenAsItIs)
{
    EXPECT_EQ(store->Revise(file.id, "2.1 draft"), "2.1 draft");
    EXPECT_EQ(store->Version(file.id, 1)->revision, "2.1 draft");
}

TEST_F(Revisions, NothingFollowsOneThatIsNotMadeOfCapitals)
{
    for (const char* revision : {"2.1", "a", "A1", "É"}) {
        store->Revise(file.id, revision);
        EXPECT_EQ(CodeOf([&] { store->Revise(file.id); }), kErrorInvalidRevision) << revision;
    }
    EXPECT_EQ(WordsOf([&] { store->Revise(file.id); }),
              "No revision follows 'É' of '\\part.step' by itself; say which one it is to be.");
}

TEST_F(Revisions, OneThatAVersionHasAlreadyIsRefused)
{
    store->Revise(file.id, "A");
    EXPECT_EQ(CodeOf([&] { store->Revise(file.id, "A"); }), kErrorRevisionExists);
    Import(*store, "part.step", "two");
    store->Revise(file.id, "B");
    EXPECT_EQ(CodeOf([&] { store->Revise(file.id, "A"); }), kErrorRevisionExists);
    EXPECT_EQ(store->Version(file.id, 2)->revision, "B");
}

TEST_F(Revisions, TheNextLeavesOutThoseThatVersionsHave)
{
    store->Revise(file.id, "B");
    Import(*store, "part.step", "two");
    store->Revise(file.id, "A");
    EXPECT_EQ(store->Revise(file.id), "C");
}

TEST_F(Revisions, ThatAreNoTextAreRefused)
{
    for (const std::string& revision :
         {std::string(), std::string(" A"), std::string("A "), std::string("A\nB"), std::string(33, 'A')}) {
        EXPECT_EQ(CodeOf([&] { store->Revise(file.id, revision); }), kErrorInvalidRevision) << revision;
    }
    EXPECT_EQ(CodeOf([&] { store->Revise(file.id, std::string(32, 'A')); }), 0);
}

TEST_F(Revisions, AndStatesGoAlongToTheNextVersion)
{
    store->Revise(file.id);
    store->SetState(file.id, "Released");
    work.CheckOut(file.id);
    WriteBytes(work.LocalPathOf(file), "two, longer");
    work.CheckIn(std::vector{file.id}, "");
    EXPECT_EQ(store->Version(file.id, 2)->revision, "A");
    EXPECT_EQ(store->Version(file.id, 2)->state, "Released");
}

TEST_F(Revisions, AndStatesOfOlderVersionsStayAsTheyWere)
{
    store->Revise(file.id);
    store->SetState(file.id, "In work");
    Import(*store, "part.step", "two");
    store->Revise(file.id);
    store->SetState(file.id, "Released");
    EXPECT_EQ(store->Version(file.id, 1)->revision, "A");
    EXPECT_EQ(store->Version(file.id, 1)->state, "In work");
    EXPECT_EQ(store->Version(file.id, 2)->revision, "B");
    EXPECT_EQ(store->Version(file.id, 2)->state, "Released");
}

TEST_F(Revisions, AndStatesAreForFilesThatNobodyHasCheckedOut)
{
    work.CheckOut(file.id);
    EXPECT_EQ(CodeOf([&] { store->Revise(file.id); }), kErrorFileIsLocked);
    EXPECT_EQ(CodeOf([&] { store->SetState(file.id, "Released"); }), kErrorFileIsLocked);
    EXPECT_EQ(CodeOf([&] { OpenAs(kBert)->Revise(file.id); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(CodeOf([&] { OpenAs(kBert)->SetState(file.id, "Released"); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(CodeOf([&] { store->Revise(99); }), kErrorFileNotFound);
}

TEST_F(Revisions, AStateIsATextOfAPerson)
{
    for (const std::string& state : {std::string(), std::string(" a"), std::string("a\tb"), std::string(256, 'a')}) {
        EXPECT_EQ(CodeOf([&] { store->SetState(file.id, state); }), kErrorInvalidName) << state;
    }
    store->SetState(file.id, "Geprüft und freigegeben");
    EXPECT_EQ(store->Version(file.id, 1)->state, "Geprüft und freigegeben");
}

} // namespace

} // namespace tv::local
