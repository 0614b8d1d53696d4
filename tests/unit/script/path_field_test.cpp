#include "script/path_field.h"

#include "com/result.h"
#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_vault.h"

#include <gtest/gtest.h>

namespace tv {
namespace {

class PathFieldTest : public testing::Test
{
  protected:
    std::u16string Example(std::u16string_view text, std::u16string_view extension = u".pdf")
    {
        return BuildExamplePath(text, *vault.Get(), machine.platform, extension);
    }
    /// The field's text after folding.
    std::u16string Folded(std::u16string_view text)
    {
        return FoldVaultPrefix(text, *vault.Get()).value_or(std::u16string(text));
    }
    bool Stays(std::u16string_view text) { return !FoldVaultPrefix(text, *vault.Get()); }
    void SetDateFormat(uint32_t number)
    {
        machine.registry.AddKey(kLocalMachineRoot, u"Software\\Torvane\\Applications\\Quellor");
        machine.registry.PutNumber(kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor\\Vaults\\TestVault",
                                   u"DateFmt", number);
    }

    fakes::FakePlatform machine;
    fakes::FakeVault vault;
};

class ExamplePath : public PathFieldTest
{};
class VaultPrefix : public PathFieldTest
{};

TEST_F(ExamplePath, ShowsAPathInSampleValues)
{
    EXPECT_EQ(Example(u"<Path>\\<Filename>_<Extension>_<Configuration>"),
              u"Example: C:\\Vault\\Part_tvnprt_Default.pdf");
}

TEST_F(ExamplePath, HasASampleForEachTokenOfThePathMenu)
{
    struct Row
    {
        const char16_t* token;
        const char16_t* line;
    };
    const Row rows[] = {
        {u"<Path>", u"Example: C:\\Vault.pdf"},      {u"<Filename>", u"Example: Part.pdf"},
        {u"<Extension>", u"Example: tvnprt.pdf"},    {u"<Configuration>", u"Example: Default.pdf"},
        {u"<VaultPath>", u"Example: C:\\Vault.pdf"}, {u"<Revision>", u"Example: A1.pdf"},
        {u"<Version>", u"Example: 1.pdf"},           {u"<WorkflowState>", u"Example: Approved.pdf"},
        {u"<Today>", u"Example: Nov 15 2026.pdf"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Example(row.token), row.line);
    }
}

TEST_F(ExamplePath, ReplacesEveryOccurrence)
{
    EXPECT_EQ(Example(u"<Version>-<Version>\\<Filename><Filename>"), u"Example: 1-1\\PartPart.pdf");
}

TEST_F(ExamplePath, OfAnEmptyFieldHasNoExtension)
{
    EXPECT_EQ(Example(u""), u"Example: ");
}

TEST_F(ExamplePath, OfAFieldWhoseValueIsEmptyHasNoExtensionEither)
{
    machine.log.FailNth("clock.GetLocalTime", 1);
    EXPECT_EQ(Example(u"<Today>"), u"Example: ");
}

TEST_F(ExamplePath, EndsInTheFormatsExtension)
{
    EXPECT_EQ(Example(u"<Filename>", u".zprt"), u"Example: Part.zprt");
    EXPECT_EQ(Example(u"<Filename>.pdf", u".pdf"), u"Example: Part.pdf.pdf");
    EXPECT_EQ(Example(u"<Filename>", u""), u"Example: Part");
}

TEST_F(ExamplePath, ShowsTheVaultsRootUntrimmed)
{
    vault.World().root = u"C:\\Vault\\";
    EXPECT_EQ(Example(u"<VaultPath>\\<Filename>"), u"Example: C:\\Vault\\\\Part.pdf");
    EXPECT_EQ(Example(u"<Path>\\<Filename>"), u"Example: C:\\Vault\\\\Part.pdf");
}

TEST_F(ExamplePath, TellsTodayInTheVaultsFormatWithUnderscores)
{
    SetDateFormat(1);
    EXPECT_EQ(Example(u"<Filename> <Today>"), u"Example: Part 11_15_26.pdf");
    SetDateFormat(104);
    EXPECT_EQ(Example(u"<Filename> <Today>"), u"Example: Part 15.11.2026.pdf");
}

TEST_F(ExamplePath, KeepsUnknownTokensAndIllegalCharacters)
{
    EXPECT_EQ(Example(u"<Foo>|a*b?<path>"), u"Example: <Foo>|a*b?<path>.pdf");
}

TEST_F(ExamplePath, KeepsTheTokensThatNoPathFieldOffers)
{
    EXPECT_EQ(Example(u"<TaskInstanceGuid><Filepath><SelCfgOrSheet>"),
              u"Example: <TaskInstanceGuid><Filepath><SelCfgOrSheet>.pdf");
}

TEST_F(ExamplePath, ReplacesInAFixedOrder)
{
    // What a value brings is replaced again only by the tokens that come after its own.
    vault.World().root = u"<Filename><Today>";
    EXPECT_EQ(Example(u"<Path>"), u"Example: PartNov 15 2026.pdf");
    EXPECT_EQ(Example(u"<VaultPath>"), u"Example: <Filename>Nov 15 2026.pdf");
    vault.World().root = u"<VaultPath>";
    EXPECT_EQ(Example(u"<Path>"), u"Example: <VaultPath>.pdf");
    vault.World().root = u"x";
    EXPECT_EQ(Example(u"<Conf<Path>"), u"Example: <Confx.pdf");
    EXPECT_EQ(Example(u"<Work<Version>flow"), u"Example: <Work1flow.pdf");
}

TEST_F(ExamplePath, ShowsQuotesAndWideLettersAsTheyAre)
{
    vault.World().root = u"C:\\\u0416";
    EXPECT_EQ(Example(u"<Path>\\\"<Filename>\""), u"Example: C:\\\u0416\\\"Part\".pdf");
}

TEST_F(ExamplePath, RaisesTheVaultsFailure)
{
    for (const char* operation : {"Vault.GetRootFolderPath", "Vault.GetName"}) {
        vault.Script().ClearFaults();
        vault.Script().Fail(operation, 1, E_ACCESSDENIED);
        try {
            Example(u"<Path>");
            ADD_FAILURE() << operation;
        } catch (const ResultError& error) {
            EXPECT_EQ(error.Code(), E_ACCESSDENIED);
        }
    }
}

TEST_F(VaultPrefix, BecomesAToken)
{
    EXPECT_EQ(Folded(u"C:\\Vault\\Out\\<Filename>"), u"<VaultPath>\\Out\\<Filename>");
    EXPECT_EQ(Folded(u"C:\\Vault"), u"<VaultPath>");
}

TEST_F(VaultPrefix, IsComparedIgnoringCase)
{
    EXPECT_EQ(Folded(u"c:\\vAULT\\Out"), u"<VaultPath>\\Out");
    vault.World().root = u"C:\\\u00C4\u0416";
    EXPECT_EQ(Folded(u"c:\\\u00E4\u0436\\Out"), u"<VaultPath>\\Out");
}

TEST_F(VaultPrefix, NeedNotEndAtAFoldersName)
{
    EXPECT_EQ(Folded(u"C:\\VaultOther"), u"<VaultPath>Other");
}

TEST_F(VaultPrefix, IsTheRootAsTheVaultTellsIt)
{
    vault.World().root = u"C:\\Vault\\";
    EXPECT_EQ(Folded(u"C:\\Vault\\Out"), u"<VaultPath>Out");
    EXPECT_TRUE(Stays(u"C:\\Vault"));
}

TEST_F(VaultPrefix, IsOneOnlyAtTheBeginning)
{
    EXPECT_TRUE(Stays(u"D:\\Out"));
    EXPECT_TRUE(Stays(u" C:\\Vault\\Out"));
    EXPECT_TRUE(Stays(u"C:\\Vaul"));
    EXPECT_TRUE(Stays(u""));
    EXPECT_EQ(Folded(u"C:\\Vault\\C:\\Vault"), u"<VaultPath>\\C:\\Vault");
}

TEST_F(VaultPrefix, ThatIsATokenAlreadyStays)
{
    EXPECT_TRUE(Stays(u"<VaultPath>\\Out"));
}

TEST_F(VaultPrefix, OfAVaultThatRefusesItsRootStays)
{
    vault.Script().Fail("Vault.GetRootFolderPath", 1, E_ACCESSDENIED);
    EXPECT_TRUE(Stays(u"C:\\Vault\\Out"));
}

TEST_F(VaultPrefix, OfAVaultWithoutRootStays)
{
    vault.World().root = u"";
    EXPECT_TRUE(Stays(u"C:\\Vault\\Out"));
}

/// Remembers what was done to it.
class RecordedField final : public PathField
{
  public:
    std::u16string Text() const override { return text; }
    void SetText(std::u16string_view newText) override
    {
        text = newText;
        happenings.push_back(u"text " + text);
    }
    void ShowExample(std::u16string_view line) override { happenings.push_back(std::u16string(line)); }

    std::u16string text;
    std::vector<std::u16string> happenings;
};

TEST_F(PathFieldTest, AChangeShowsTheExampleAndThenFoldsTheRoot)
{
    RecordedField field;
    field.text = u"c:\\vault\\<Filename>";
    PathFieldChanged(field, *vault.Get(), machine.platform, u".stl");
    EXPECT_EQ(field.happenings,
              (std::vector<std::u16string>{u"Example: c:\\vault\\Part.stl", u"text <VaultPath>\\<Filename>"}));
}

TEST_F(PathFieldTest, AChangeThatHoldsNoRootLeavesTheTextAlone)
{
    RecordedField field;
    field.text = u"<Path>\\<Filename>";
    PathFieldChanged(field, *vault.Get(), machine.platform, u".stl");
    EXPECT_EQ(field.happenings, (std::vector<std::u16string>{u"Example: C:\\Vault\\Part.stl"}));
}

} // namespace
} // namespace tv
