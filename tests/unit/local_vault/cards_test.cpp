#include "disk_world.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

class Cards : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};
    FileRecord file = Import(*store, "part.step", "one");
    int32_t number = store->MakeCardVariable("Number");

    void Write(std::string_view value, std::string_view configuration = {})
    {
        const CardWrite write{file.id, number, std::string(configuration), StoredValue::FromText(value)};
        ASSERT_EQ(store->WriteCards({&write, 1}), std::vector<Result>{0});
    }

    std::vector<std::string> ValuesOf(int32_t version)
    {
        std::vector<std::string> values;
        for (const CardValue& card : store->CardValues(file.id, version)) {
            values.push_back(card.configuration + "=" + card.value.Display());
        }
        return values;
    }
};

TEST_F(Cards, AVariableIsMadeOnceAndKeepsItsId)
{
    EXPECT_EQ(store->MakeCardVariable("Number"), number);
    EXPECT_NE(store->MakeCardVariable("number"), number);
    EXPECT_EQ(store->CardVariables().size(), 2u);
}

TEST_F(Cards, AValueOfACheckedInFileBelongsToItsLatestVersion)
{
    Write("A-1");
    EXPECT_EQ(ValuesOf(1), std::vector<std::string>{"=A-1"});
}

TEST_F(Cards, AValueOfACheckedOutFileBelongsToTheVersionThatTheCheckInMakes)
{
    Write("A-1");
    work.CheckOut(file.id);
    Write("A-2");
    WriteBytes(work.LocalPathOf(file), "two, longer");
    work.CheckIn(std::vector{file.id}, "");
    EXPECT_EQ(ValuesOf(1), std::vector<std::string>{"=A-1"});
    EXPECT_EQ(ValuesOf(2), std::vector<std::string>{"=A-2"});
}

TEST_F(Cards, ANewVersionTakesOverTheValuesThatWereNotWrittenAnew)
{
    Write("A-1");
    Write("A-1-long", "Long");
    work.CheckOut(file.id);
    Write("A-2");
    WriteBytes(work.LocalPathOf(file), "two, longer");
    work.CheckIn(std::vector{file.id}, "");
    EXPECT_EQ(ValuesOf(2), (std::vector<std::string>{"=A-2", "Long=A-1-long"}));
}

TEST_F(Cards, WhereNoVersionFollowsTheValueGoesToTheLatestOne)
{
    Write("A-1");
    work.CheckOut(file.id);
    Write("A-2");
    work.CheckIn(std::vector{file.id}, "");
    EXPECT_EQ(ValuesOf(1), std::vector<std::string>{"=A-2"});
    EXPECT_TRUE(ValuesOf(2).empty());
}

TEST_F(Cards, AnUnknownVariableOrFileIsToldAndTheOthersAreWritten)
{
    const CardWrite writes[] = {{file.id, 0, {}, StoredValue::FromText("lost")},
                                {file.id, number, {}, StoredValue::FromText("kept")},
                                {99, number, {}, StoredValue::FromText("lost")}};
    EXPECT_EQ(store->WriteCards(writes), (std::vector<Result>{kErrorVariableNotFound, 0, kErrorFileNotFound}));
    EXPECT_EQ(ValuesOf(1), std::vector<std::string>{"=kept"});
}

TEST_F(Cards, AValueOfAFileOfAnotherIsRefused)
{
    FileWork(OpenAs(kBert)).CheckOut(file.id);
    const CardWrite write{file.id, number, {}, StoredValue::FromText("A-1")};
    EXPECT_EQ(store->WriteCards({&write, 1}), std::vector<Result>{kErrorLockedByAnotherUser});
    EXPECT_EQ(OpenAs({"bert", "laptop"})->WriteCards({&write, 1}), std::vector<Result>{kErrorLockedOnOtherComputer});
    EXPECT_TRUE(ValuesOf(1).empty());
}

TEST_F(Cards, AValueOfADeletedFileIsRefused)
{
    work.Delete(file.id);
    const CardWrite write{file.id, number, {}, StoredValue::FromText("A-1")};
    EXPECT_EQ(store->WriteCards({&write, 1}), std::vector<Result>{kErrorFileDeleted});
}

TEST_F(Cards, AValueOfAFileNeverCheckedInBelongsToVersionOne)
{
    WriteBytes(Root() / "new.step", "new");
    const FileRecord added = work.Add(Root() / "new.step", *store->FolderById(kRootFolder));
    const CardWrite write{added.id, number, {}, StoredValue::FromText("A-1")};
    store->WriteCards({&write, 1});
    EXPECT_EQ(store->CardValues(added.id, 1)[0].value.Display(), "A-1");
    work.CheckIn(std::vector{added.id}, "");
    EXPECT_EQ(store->CardValues(added.id, 1)[0].value.Display(), "A-1");
}

TEST_F(Cards, TheHolderSeesTheCardThatTheCheckInWillStoreAndOthersTheLatest)
{
    const auto cardOf = [&](VaultStore& vault) {
        std::vector<std::string> values;
        for (const CardValue& card : vault.WorkingCard(file.id)) {
            values.push_back(card.configuration + "=" + card.value.Display());
        }
        return values;
    };
    Write("A-1");
    Write("A-1-long", "Long");
    EXPECT_EQ(cardOf(*store), (std::vector<std::string>{"=A-1", "Long=A-1-long"}));
    work.CheckOut(file.id);
    EXPECT_EQ(cardOf(*store), (std::vector<std::string>{"=A-1", "Long=A-1-long"}));
    Write("A-2");
    Write("A-2-short", "Short");
    EXPECT_EQ(cardOf(*store), (std::vector<std::string>{"=A-2", "Long=A-1-long", "Short=A-2-short"}));
    EXPECT_EQ(cardOf(*OpenAs(kBert)), (std::vector<std::string>{"=A-1", "Long=A-1-long"}));
}

TEST_F(Cards, AVariableIsFoundByNameAndById)
{
    EXPECT_EQ(store->FindCardVariable("Number")->id, number);
    EXPECT_FALSE(store->FindCardVariable("number"));
    EXPECT_EQ(store->CardVariableById(number)->name, "Number");
    EXPECT_FALSE(store->CardVariableById(99));
}

TEST_F(Cards, ReferencesKeepTheVersionOfTheirSource)
{
    const FileRecord source = Import(*store, "source.step", "one");
    Import(*store, "source.step", "two");
    store->AddReferences(file.id, std::vector<ReferenceRecord>{{source.id, 0}});
    ASSERT_EQ(store->References(file.id, 1).size(), 1u);
    EXPECT_EQ(store->References(file.id, 1)[0].sourceVersion, 2);
}

TEST_F(Cards, ANewVersionTakesOverReferencesUnlessItGotItsOwn)
{
    const FileRecord first = Import(*store, "first.step", "one");
    const FileRecord second = Import(*store, "second.step", "one");
    store->AddReferences(file.id, std::vector<ReferenceRecord>{{first.id, 1}});
    work.CheckOut(file.id);
    WriteBytes(work.LocalPathOf(file), "two, longer");
    work.CheckIn(std::vector{file.id}, "");
    EXPECT_EQ(store->References(file.id, 2)[0].sourceFile, first.id);
    work.CheckOut(file.id);
    store->AddReferences(file.id, std::vector<ReferenceRecord>{{second.id, 1}});
    WriteBytes(work.LocalPathOf(file), "three, still longer");
    work.CheckIn(std::vector{file.id}, "");
    ASSERT_EQ(store->References(file.id, 3).size(), 1u);
    EXPECT_EQ(store->References(file.id, 3)[0].sourceFile, second.id);
}

TEST_F(Cards, AReferenceToAFileThatIsNotThereIsRefused)
{
    EXPECT_EQ(CodeOf([&] {
                  store->AddReferences(file.id, std::vector<ReferenceRecord>{{99, 1}});
              }),
              kErrorFileNotFound);
    EXPECT_EQ(CodeOf([&] {
                  store->AddReferences(99, std::vector<ReferenceRecord>{{file.id, 1}});
              }),
              kErrorFileNotFound);
}

} // namespace

} // namespace tv::local
