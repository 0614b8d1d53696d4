#include "vault/file_card_rows.h"

#include "altered_vault.h"
#include "vault_fixture.h"

namespace tv {
namespace {

class FileCards : public VaultFilesTest
{
  protected:
    void SetUp() override
    {
        number = vault.AddVariable(u"Number");
        material = vault.AddVariable(u"Material");
        Begin();
        source = &WorkOn(u"C:\\Vault\\Sub\\Part.tvnprt", 3);
    }

    /// Saves one output, registers it and returns its card.
    std::map<int32_t, Variant> CardFor(std::u16string_view rows)
    {
        task->variables.SetText(u"FileCardData", rows);
        Save(u"C:\\Vault\\Out.stl", u"Big");
        result = Register();
        const fakes::FakeFile* output = vault.File(u"C:\\Vault\\Out.stl");
        return output != nullptr ? output->cardUpdates : std::map<int32_t, Variant>();
    }

    std::u16string ValueFor(std::u16string_view rows)
    {
        const auto card = CardFor(rows);
        const auto found = card.find(number);
        return found != card.end() ? found->second.ToText() : u"(nothing)";
    }

    fakes::FakeVersion& SourceVersion(int32_t version)
    {
        return vault.File(u"C:\\Vault\\Sub\\Part.tvnprt")->versions[version];
    }

    int32_t number = 0;
    int32_t material = 0;
    TaskFile* source = nullptr;
    Result result = 0;
};

TEST_F(FileCards, AreLeftAloneWithoutRows)
{
    EXPECT_TRUE(CardFor(u"").empty());
    EXPECT_EQ(result, 0);
    task->variables.Remove(u"FileCardData");
    vault.Script().ClearCalls();
    EXPECT_EQ(Register(), vault.File(u"C:\\Vault\\Out.stl")->lockedBy.empty() ? fakes::kVaultNotLockedByYou : 0);
    EXPECT_EQ(vault.Script().CountOf("BatchUpdate.CommitUpdate"), 0u);
    EXPECT_EQ(vault.Script().CountOf("VariableMgr.GetFirstVariablePosition"), 0u);
}

TEST_F(FileCards, TakeTheWholePathAsTheFileName)
{
    EXPECT_EQ(ValueFor(u"Number;1;\n"), u"C:\\Vault\\Sub\\Part.tvnprt");
}

TEST_F(FileCards, TakeTheFolderAsThePath)
{
    EXPECT_EQ(ValueFor(u"Number;2;\n"), u"C:\\Vault\\Sub");
}

TEST_F(FileCards, TakeTheOutputsConfiguration)
{
    EXPECT_EQ(ValueFor(u"Number;3;\n"), u"Big");
}

TEST_F(FileCards, TakeRevisionAndStateOfTheVersionThatTheRunWorkedOn)
{
    SourceVersion(2).revision = u"B";
    SourceVersion(2).state = u"Released";
    SourceVersion(3).revision = u"C";
    source->version = 2;
    const auto card = CardFor(u"Number;4;\nMaterial;6;\n");
    EXPECT_EQ(card.at(number).ToText(), u"B");
    EXPECT_EQ(card.at(material).ToText(), u"Released");
    EXPECT_EQ(source->revision, u"B");
    EXPECT_EQ(source->state, u"Released");
    EXPECT_EQ(source->latestVersion, 3);
}

TEST_F(FileCards, TakeTheRequestedVersionAsANumber)
{
    source->version = 2;
    const auto card = CardFor(u"Number;5;\n");
    EXPECT_EQ(card.at(number).Type(), VT_I4);
    EXPECT_EQ(card.at(number).ToInt(), 2);
}

TEST_F(FileCards, TakeTheLatestVersionWhenNoneWasRequested)
{
    source->version = 0;
    EXPECT_EQ(ValueFor(u"Number;5;\n"), u"3");
}

TEST_F(FileCards, ChooseTheVersionAsTheRunDoes)
{
    struct Row
    {
        int32_t requested;
        int32_t written;
    };
    const Row rows[] = {{0, 3}, {-1, 3}, {2, 2}, {3, 3}, {-5, -5}};
    task->variables.SetText(u"FileCardData", u"Number;5;\n");
    for (const Row& row : rows) {
        Begin();
        source->version = row.requested;
        Save(u"C:\\Vault\\Out" + std::u16string(1, static_cast<char16_t>(u'a' + row.requested + 5)) + u".stl");
        ASSERT_EQ(Register(), 0) << row.requested;
        const fakes::FakeFile* output = vault.File(files.Outputs()[0].path);
        EXPECT_EQ(output->cardUpdates.at(number).ToInt(), row.written) << row.requested;
    }
}

TEST_F(FileCards, TakeTheTimeToTheSecond)
{
    machine.clock.SetStart({2023, 3, 15, 0, 0, 1});
    const auto card = CardFor(u"Number;7;\n");
    EXPECT_EQ(card.at(number).get()->date, 45000 + 1.0 / 86400);
}

TEST_F(FileCards, HoldARowForEachKindOfSource)
{
    SourceVersion(3).revision = u"C";
    SourceVersion(3).state = u"Released";
    SourceVersion(3).card[u"Big"][material] = Variant::FromText(u"Steel");
    machine.clock.SetStart({2023, 3, 15, 12, 0, 0});
    struct Row
    {
        const char16_t* row;
        VARTYPE type;
        const char16_t* text;
    };
    const Row rows[] = {
        {u"Number;1;ignored\n", VT_BSTR, u"C:\\Vault\\Sub\\Part.tvnprt"},
        {u"Number;2;ignored\n", VT_BSTR, u"C:\\Vault\\Sub"},
        {u"Number;3;ignored\n", VT_BSTR, u"Big"},
        {u"Number;4;ignored\n", VT_BSTR, u"C"},
        {u"Number;5;ignored\n", VT_I4, u"3"},
        {u"Number;6;ignored\n", VT_BSTR, u"Released"},
        {u"Number;7;ignored\n", VT_DATE, nullptr},
        {u"Number;8;free;text\n", VT_BSTR, u"free;text"},
        {u"Number;100;Material\n", VT_BSTR, u"Steel"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.row)));
        vault.World().files.erase(vault.File(u"C:\\Vault\\Out.stl") != nullptr ? vault.File(u"C:\\Vault\\Out.stl")->id
                                                                               : 0);
        Begin();
        const auto card = CardFor(row.row);
        ASSERT_EQ(result, 0);
        ASSERT_EQ(card.size(), 1u);
        EXPECT_EQ(card.at(number).Type(), row.type);
        if (row.text != nullptr) {
            EXPECT_EQ(card.at(number).ToText(), row.text);
        }
    }
}

TEST_F(FileCards, AreNotWrittenForTheLogOrForWhatIsNotInTheVault)
{
    task->variables.SetText(u"FileCardData", u"Number;8;x\n");
    files.AddOutput(u"C:\\Vault\\run.log", u"", true);
    machine.files.AddFile(u"C:\\Vault\\run.log", "x");
    Save(u"D:\\elsewhere.stl");
    Save(u"C:\\Vault\\Out.stl");
    ASSERT_EQ(Register(), 0);
    EXPECT_EQ(
        vault.Script().CallsOf("BatchUpdate.SetCardValue"),
        (std::vector<std::string>{"BatchUpdate.SetCardValue " + std::to_string(vault.File(u"C:\\Vault\\Out.stl")->id) +
                                  " " + std::to_string(number) + " 0 1"}));
}

TEST_F(FileCards, AreNotCommittedWhenALaterSourceIsGone)
{
    task->variables.SetText(u"FileCardData", u"Number;8;x\n");
    Save(u"C:\\Vault\\a.stl");
    TaskFile& gone = WorkOn(u"C:\\Vault\\Gone.tvnprt");
    Save(u"C:\\Vault\\b.stl");
    vault.World().files.erase(gone.fileId);
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(vault.Script().CountOf("BatchUpdate.SetCardValue"), 1u);
    EXPECT_EQ(vault.Script().CountOf("BatchUpdate.CommitUpdate"), 0u);
    EXPECT_TRUE(vault.File(u"C:\\Vault\\a.stl")->cardUpdates.empty());
}

/// Cards whose elements a test gives.
class GivenCard : public FileCards
{
  protected:
    void SetUp() override
    {
        FileCards::SetUp();
        altered->getFileFromPath = [&](IVyxFolder** folder, IVyxFile** found) -> Result {
            if (folder != nullptr) {
                return 1;
            }
            *found = ComPtr<IVyxFile>::Share(file.get()).release();
            return 0;
        };
        ASSERT_EQ(files.Reset(altered.get(), 1, ExistingFiles::NewVersion), 0);
    }

    ComPtr<GivenVariable> Add(int32_t id, std::u16string_view value)
    {
        auto variable = MakeObject<GivenVariable>();
        variable->id = id;
        variable->value = value;
        file->elements.push_back(Variant::FromUnknown(static_cast<IVyxVariableValue*>(variable.get())));
        return variable;
    }

    ComPtr<AlteredVault> altered = MakeObject<AlteredVault>(vault.Get());
    ComPtr<FileWithCard> file = MakeObject<FileWithCard>();
};

TEST_F(GivenCard, TheFirstVariableWithTheIdCounts)
{
    Add(number, u"other");
    Add(material, u"first");
    Add(material, u"second");
    EXPECT_EQ(ValueFor(u"Number;100;Material\n"), u"first");
}

TEST_F(GivenCard, AnElementThatIsNoVariableIsPassedOver)
{
    file->elements = {Variant(), Variant::FromInt(5), Variant::FromText(u"text"), Variant::FromUnknown(vault.Get())};
    Add(material, u"Steel");
    EXPECT_EQ(ValueFor(u"Number;100;Material\n"), u"Steel");
    EXPECT_EQ(result, 0);
}

TEST_F(GivenCard, EachVariableIsAskedForItsIdOnceHoweverManyRowsSearchIt)
{
    const auto first = Add(number, u"one");
    const auto second = Add(material, u"two");
    const auto third = Add(4711, u"never reached");
    const auto card = CardFor(u"Number;100;Material\nMaterial;100;Number\nNumber;100;Material\n");
    EXPECT_EQ(card.at(number).ToText(), u"two");
    EXPECT_EQ(card.at(material).ToText(), u"one");
    EXPECT_EQ(first->idCalls, 1);
    EXPECT_EQ(second->idCalls, 1);
    EXPECT_EQ(third->idCalls, 0);
}

TEST_F(GivenCard, AFileWithoutReaderIsANullPointerFailure)
{
    file->hasReader = false;
    CardFor(u"Number;8;x\n");
    EXPECT_EQ(result, static_cast<Result>(0x80004003u));
    EXPECT_EQ(vault.Script().CountOf("BatchUpdate.CommitUpdate"), 0u);
}

TEST_F(FileCards, TakeTheTimeNowAsADate)
{
    machine.clock.SetStart({2023, 3, 15, 18, 0, 0});
    const auto card = CardFor(u"Number;7;\n");
    EXPECT_EQ(card.at(number).Type(), VT_DATE);
    EXPECT_EQ(card.at(number).get()->date, 45000.75);
}

TEST_F(FileCards, TakeAFreeTextThatMayHoldSemicolons)
{
    EXPECT_EQ(ValueFor(u"Number;8;one;two; three\n"), u"one;two; three");
}

TEST_F(FileCards, TakeAVariableOfTheSourceForTheOutputsConfiguration)
{
    SourceVersion(3).card[u"Big"][material] = Variant::FromText(u"Steel");
    SourceVersion(3).card[u"Small"][material] = Variant::FromText(u"Brass");
    EXPECT_EQ(ValueFor(u"Number;100;Material\n"), u"Steel");
}

TEST_F(FileCards, AskWithoutConfigurationWhenTheSourceIsNoCadDocument)
{
    SourceVersion(3).card[u""][material] = Variant::FromText(u"Paper");
    source->isCadDocument = false;
    EXPECT_EQ(ValueFor(u"Number;100;Material\n"), u"Paper");
}

TEST_F(FileCards, SkipAVariableThatTheSourceDoesntHold)
{
    SourceVersion(3).card[u"Big"][number] = Variant::FromText(u"N-1");
    const auto card = CardFor(u"Number;100;Material\nMaterial;8;kept\n");
    EXPECT_EQ(card.size(), 1u);
    EXPECT_EQ(card.at(material).ToText(), u"kept");
    EXPECT_EQ(result, 0);
}

TEST_F(FileCards, SkipARowOfAnUnknownKind)
{
    EXPECT_EQ(CardFor(u"Number;9;\nNumber;x;\nNumber\n;;\n").size(), 0u);
    EXPECT_EQ(result, 0);
}

TEST_F(FileCards, QueueAVariableThatTheVaultDoesntKnowWithoutId)
{
    const auto card = CardFor(u"Gone;8;x\nNumber;8;kept\n");
    const std::string id = std::to_string(vault.File(u"C:\\Vault\\Out.stl")->id);
    EXPECT_EQ(vault.Script().CallsOf("BatchUpdate.SetCardValue"),
              (std::vector<std::string>{"BatchUpdate.SetCardValue " + id + " 0 0 1",
                                        "BatchUpdate.SetCardValue " + id + " " + std::to_string(number) + " 0 1"}));
    // What becomes of the id 0 is the vault's affair.
    EXPECT_EQ(card.size(), 1u);
    EXPECT_EQ(card.at(number).ToText(), u"kept");
    EXPECT_EQ(result, 0);
}

TEST_F(FileCards, ReadTheVaultsVariablesOnce)
{
    CardFor(u"Number;8;1\nMaterial;8;2\nGone;8;3\n");
    EXPECT_EQ(vault.Script().CountOf("VariableMgr.GetFirstVariablePosition"), 1u);
    EXPECT_EQ(vault.Script().CountOf("VariableMgr.GetNextVariable"), 2u);
}

TEST_F(FileCards, ReadTheCardOfTheVersionInItsFolder)
{
    CardFor(u"Number;8;1\n");
    EXPECT_EQ(
        vault.Script().CallsOf("EnumeratorVariable.GetVersionVariables"),
        (std::vector<std::string>{"EnumeratorVariable.GetVersionVariables 3 " + std::to_string(source->folderId)}));
}

TEST_F(FileCards, AreNotWrittenWhenTheSourceHasLeftTheVault)
{
    task->variables.SetText(u"FileCardData", u"Number;8;1\n");
    Save(u"C:\\Vault\\Out.stl");
    vault.World().files.erase(source->fileId);
    EXPECT_EQ(Register(), 0);
    EXPECT_EQ(vault.Script().CountOf("BatchUpdate.CommitUpdate"), 0u);
    EXPECT_TRUE(vault.File(u"C:\\Vault\\Out.stl")->lockedBy.empty());
}

TEST_F(FileCards, EndWithTheFirstFailure)
{
    task->variables.SetText(u"FileCardData", u"Number;100;Material\n");
    SourceVersion(3).card[u"Big"][material] = Variant::FromText(u"Steel");
    const char* const operations[] = {"VariableMgr.GetFirstVariablePosition",
                                      "VariableMgr.GetNextVariable",
                                      "Variable.GetName",
                                      "Variable.GetID",
                                      "File.GetEnumeratorVariable",
                                      "EnumeratorVariable.GetVersionVariables",
                                      "VariableValue.GetID",
                                      "VariableValue.GetValue",
                                      "BatchUpdate.SetCardValue",
                                      "BatchUpdate.CommitUpdate"};
    Save(u"C:\\Vault\\Out.stl", u"Big");
    for (const char* operation : operations) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        EXPECT_EQ(Register(), E_ACCESSDENIED) << operation;
        EXPECT_EQ(vault.Script().CountOf("BatchUnlock.UnlockFiles"), 0u) << operation;
    }
}

TEST(FileCardRows, AreCutAtTheFirstTwoSemicolonsOnly)
{
    fakes::FakeVault vault;
    const int32_t number = vault.AddVariable(u"Number");
    const auto task = MakeObject<fakes::FakeTaskInstance>();
    task->variables.SetText(u"FileCardData", u"\nNumber;8;a;b\n\nnumber;100;Number\nNumber;3;ignored");
    std::vector<FileCardRow> rows;
    EXPECT_EQ(ReadFileCardRows(task.get(), vault.Get(), rows), 0);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].destinationId, number);
    EXPECT_EQ(rows[0].source, CardSource::FreeText);
    EXPECT_EQ(rows[0].text, u"a;b");
    EXPECT_EQ(rows[0].sourceId, 0);
    EXPECT_EQ(rows[1].destinationId, 0) << "names are compared with their case";
    EXPECT_EQ(rows[1].source, CardSource::CardVariable);
    EXPECT_EQ(rows[1].sourceId, number);
    EXPECT_EQ(rows[2].source, CardSource::Configuration);
    EXPECT_EQ(rows[2].text, u"");
}

TEST(FileCardRows, KeepWhateverElseALineHolds)
{
    fakes::FakeVault vault;
    const int32_t number = vault.AddVariable(u"Number");
    const auto task = MakeObject<fakes::FakeTaskInstance>();
    task->variables.SetText(u"FileCardData",
                            u"Number;8;\nNumber;8\nNumber; 8 ;x\n Number;8;x\nNumber;08;\u0416 \r\n;8;nobody\nNumber");
    std::vector<FileCardRow> rows;
    EXPECT_EQ(ReadFileCardRows(task.get(), vault.Get(), rows), 0);
    ASSERT_EQ(rows.size(), 7u);
    EXPECT_EQ(rows[0].text, u"");
    EXPECT_EQ(rows[1].source, CardSource::FreeText);
    EXPECT_EQ(rows[2].source, CardSource::FreeText);
    EXPECT_EQ(rows[3].destinationId, 0) << "blanks belong to the name";
    EXPECT_EQ(rows[4].text, u"\u0416 \r");
    EXPECT_EQ(rows[5].destinationId, 0);
    EXPECT_EQ(rows[6].destinationId, number);
    EXPECT_EQ(static_cast<int32_t>(rows[6].source), 0);
}

TEST(FileCardRows, AreNoneWhenTheVariableIsAbsentOrEmpty)
{
    fakes::FakeVault vault;
    const auto task = MakeObject<fakes::FakeTaskInstance>();
    std::vector<FileCardRow> rows;
    EXPECT_EQ(ReadFileCardRows(task.get(), vault.Get(), rows), 1);
    task->variables.SetText(u"FileCardData", u"");
    EXPECT_EQ(ReadFileCardRows(task.get(), vault.Get(), rows), 0);
    EXPECT_TRUE(rows.empty());
    EXPECT_TRUE(vault.Script().Calls().empty());
}

} // namespace
} // namespace tv
