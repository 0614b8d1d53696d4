// Card variables, reading the card of a version, and writing cards in a batch.
#include "vault_worlds.h"

#include <map>

namespace tv {
namespace {

template <typename World> class VaultCards : public VaultContract<World>
{
  protected:
    void SetUp() override
    {
        number = this->world.AddVariable(u"Number");
        material = this->world.AddVariable(u"Material");
        this->world.AddFile(u"a.tvnprt", 2);
    }

    Result Read(std::u16string_view place, int32_t version)
    {
        ComPtr<IVyxEnumeratorVariable> reader;
        EXPECT_EQ(this->FileAt(place)->GetEnumeratorVariable(0, reader.put()), 0);
        VyxVersionInfo told{};
        SafeArray values;
        variables.reset();
        const Result result = reader->GetVersionVariables(Variant::FromInt(version).get(), this->PairOf(place).folderId,
                                                          variables.put(), values.put(), &told);
        revision = BString::Adopt(told.revision).Text();
        state = BString::Adopt(told.state).Text();
        currentVersion = told.currentVersion;
        return result;
    }

    /// The value that was read for a variable in a configuration; nothing when there is none.
    std::optional<std::u16string> Value(int32_t variable, const char16_t* configuration)
    {
        const SafeArrayView<VARIANT> view(variables.get());
        for (const VARIANT& element : view) {
            ComPtr<IVyxVariableValue> object;
            int32_t id = 0;
            EXPECT_EQ(QueryFor(element.punkVal, object), 0);
            EXPECT_EQ(object->GetID(&id), 0);
            Variant value;
            if (id == variable && object->GetValue(configuration, value.put()) == 0) {
                return value.ToText();
            }
        }
        return std::nullopt;
    }

    int32_t number = 0;
    int32_t material = 0;
    SafeArray variables;
    std::u16string revision;
    std::u16string state;
    int32_t currentVersion = 0;
};

TYPED_TEST_SUITE(VaultCards, Vaults);

TYPED_TEST(VaultCards, TheVaultNamesItsVariables)
{
    ComPtr<IVyxVariableMgr> manager;
    ASSERT_EQ(QueryFor(this->world.Get(), manager), 0);
    ComPtr<IVyxPos> position;
    ASSERT_EQ(manager->GetFirstVariablePosition(position.put()), 0);
    std::map<std::u16string, int32_t> found;
    for (VariantBool atEnd = kVariantFalse; position->IsNull(&atEnd) == 0 && atEnd == kVariantFalse;) {
        ComPtr<IVyxVariable> variable;
        BString name;
        int32_t id = 0;
        ASSERT_EQ(manager->GetNextVariable(position.get(), variable.put()), 0);
        EXPECT_EQ(variable->GetName(name.put()), 0);
        EXPECT_EQ(variable->GetID(&id), 0);
        found[name.Text()] = id;
    }
    EXPECT_EQ(found, (std::map<std::u16string, int32_t>{{u"Number", this->number}, {u"Material", this->material}}));
    ComPtr<IVyxVariable> beyond;
    EXPECT_EQ(manager->GetNextVariable(position.get(), beyond.put()), this->kEndOfList);
}

TYPED_TEST(VaultCards, AValueIsReadByVariableAndConfiguration)
{
    this->world.SetCard(u"a.tvnprt", this->number, u"", u"N-1");
    this->world.SetCard(u"a.tvnprt", this->material, u"Big", u"Steel");
    this->world.SetCard(u"a.tvnprt", this->material, u"Small", u"Brass");
    ASSERT_EQ(this->Read(u"a.tvnprt", 2), 0);
    EXPECT_EQ(SafeArrayView<VARIANT>(this->variables.get()).size(), 2u);
    EXPECT_EQ(this->Value(this->number, u""), u"N-1");
    EXPECT_EQ(this->Value(this->material, u"Big"), u"Steel");
    EXPECT_EQ(this->Value(this->material, u"Small"), u"Brass");
    EXPECT_EQ(this->Value(this->material, u""), std::nullopt);
    EXPECT_EQ(this->Value(this->number, u"Big"), std::nullopt);
}

TYPED_TEST(VaultCards, ACardWithoutValuesIsAnEmptyArray)
{
    ASSERT_EQ(this->Read(u"a.tvnprt", 1), 0);
    EXPECT_EQ(SafeArrayView<VARIANT>(this->variables.get()).size(), 0u);
}

TYPED_TEST(VaultCards, TheCurrentVersionIsToldWhateverVersionIsRead)
{
    ASSERT_EQ(this->Read(u"a.tvnprt", 1), 0);
    EXPECT_EQ(this->currentVersion, 2);
    ASSERT_EQ(this->Read(u"a.tvnprt", 2), 0);
    EXPECT_EQ(this->currentVersion, 2);
    EXPECT_EQ(this->revision, u"");
    EXPECT_EQ(this->state, u"");
}

TYPED_TEST(VaultCards, NoVersionAndANegativeOneAreTheLatest)
{
    this->world.SetCard(u"a.tvnprt", this->number, u"", u"N-2");
    for (const int32_t version : {0, -1, -5}) {
        ASSERT_EQ(this->Read(u"a.tvnprt", version), 0) << version;
        EXPECT_EQ(this->Value(this->number, u""), u"N-2") << version;
    }
}

TYPED_TEST(VaultCards, AVersionThatIsNotThereCantBeRead)
{
    EXPECT_EQ(this->Read(u"a.tvnprt", 9), this->kFileNotFound);
}

TYPED_TEST(VaultCards, ACardIsReadInTheFilesOwnFolderOnly)
{
    ComPtr<IVyxEnumeratorVariable> reader;
    ASSERT_EQ(this->FileAt(u"a.tvnprt")->GetEnumeratorVariable(0, reader.put()), 0);
    SafeArray objects;
    SafeArray values;
    VyxVersionInfo info{};
    EXPECT_EQ(reader->GetVersionVariables(Variant::FromInt(1).get(), 4711, objects.put(), values.put(), &info),
              this->kFolderNotFound);
}

TYPED_TEST(VaultCards, WrittenValuesStandAfterTheCommit)
{
    const auto update = this->template Make<IVyxBatchUpdate>(2);
    const int32_t id = this->PairOf(u"a.tvnprt").fileId;
    EXPECT_EQ(update->SetCardValue(id, this->number, Variant::FromText(u"N-9").get(), 0, 1), 0);
    EXPECT_EQ(update->SetCardValue(id, this->material, Variant::FromInt(7).get(), 0, 1), 0);
    ASSERT_EQ(this->Read(u"a.tvnprt", 0), 0);
    EXPECT_EQ(this->Value(this->number, u""), std::nullopt);
    SafeArray errors;
    ASSERT_EQ(update->CommitUpdate(errors.put(), 0), 0);
    ASSERT_EQ(this->Read(u"a.tvnprt", 0), 0);
    EXPECT_EQ(this->Value(this->number, u""), u"N-9");
    EXPECT_EQ(this->Value(this->material, u""), u"7");
}

TYPED_TEST(VaultCards, OfTwoValuesForAVariableTheLastCounts)
{
    const auto update = this->template Make<IVyxBatchUpdate>(2);
    const int32_t id = this->PairOf(u"a.tvnprt").fileId;
    EXPECT_EQ(update->SetCardValue(id, this->number, Variant::FromText(u"first").get(), 0, 1), 0);
    EXPECT_EQ(update->SetCardValue(id, this->number, Variant::FromText(u"last").get(), 0, 1), 0);
    SafeArray errors;
    ASSERT_EQ(update->CommitUpdate(errors.put(), 0), 0);
    ASSERT_EQ(this->Read(u"a.tvnprt", 0), 0);
    EXPECT_EQ(this->Value(this->number, u""), u"last");
}

TYPED_TEST(VaultCards, AVariableThatTheVaultDoesntKnowIsLeftOutOfTheUpdate)
{
    const auto update = this->template Make<IVyxBatchUpdate>(2);
    const int32_t id = this->PairOf(u"a.tvnprt").fileId;
    EXPECT_EQ(update->SetCardValue(id, 0, Variant::FromText(u"lost").get(), 0, 1), 0);
    EXPECT_EQ(update->SetCardValue(id, this->number, Variant::FromText(u"kept").get(), 0, 1), 0);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), 0);
    EXPECT_EQ(SafeArrayView<int32_t>(errors.get()).size(), 1u);
    ASSERT_EQ(this->Read(u"a.tvnprt", 0), 0);
    EXPECT_EQ(this->Value(this->number, u""), u"kept");
    EXPECT_EQ(this->Value(0, u""), std::nullopt);
}

TYPED_TEST(VaultCards, AFileThatTheVaultDoesntHoldFailsTheCommit)
{
    const auto update = this->template Make<IVyxBatchUpdate>(2);
    EXPECT_EQ(update->SetCardValue(4711, this->number, Variant::FromText(u"x").get(), 0, 1), 0);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), this->kFileNotFound);
}

TYPED_TEST(VaultCards, NothingQueuedIsNothingWritten)
{
    const auto update = this->template Make<IVyxBatchUpdate>(2);
    SafeArray errors;
    EXPECT_EQ(update->CommitUpdate(errors.put(), 0), 0);
}

TYPED_TEST(VaultCards, WhatIsWrittenToACheckedOutFileBelongsToItsNextVersion)
{
    ASSERT_EQ(this->Lock(u"a.tvnprt"), 0);
    const auto update = this->template Make<IVyxBatchUpdate>(2);
    const VyxSelectionPair pair = this->PairOf(u"a.tvnprt");
    EXPECT_EQ(update->SetCardValue(pair.fileId, this->number, Variant::FromText(u"N-3").get(), 0, 1), 0);
    SafeArray errors;
    ASSERT_EQ(update->CommitUpdate(errors.put(), 0), 0);
    this->world.WriteOnDisk(u"a.tvnprt");
    ASSERT_EQ(this->CheckIn({pair}), 0);
    ASSERT_EQ(this->Read(u"a.tvnprt", 2), 0);
    EXPECT_EQ(this->Value(this->number, u""), std::nullopt);
    ASSERT_EQ(this->Read(u"a.tvnprt", 3), 0);
    EXPECT_EQ(this->Value(this->number, u""), u"N-3");
}

TYPED_TEST(VaultCards, ANewVersionKeepsTheCardOfTheOneBefore)
{
    this->world.SetCard(u"a.tvnprt", this->number, u"Big", u"N-2");
    ASSERT_EQ(this->Lock(u"a.tvnprt"), 0);
    this->world.WriteOnDisk(u"a.tvnprt");
    ASSERT_EQ(this->CheckIn({this->PairOf(u"a.tvnprt")}), 0);
    ASSERT_EQ(this->Read(u"a.tvnprt", 3), 0);
    EXPECT_EQ(this->Value(this->number, u"Big"), u"N-2");
}

} // namespace
} // namespace tv
