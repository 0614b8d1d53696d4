#include "script/token_table.h"

#include "script/token_menu.h"

#include <gtest/gtest.h>

#include <span>

namespace tv {
namespace {

TEST(TokenTable, HoldsTheseTokens)
{
    struct Row
    {
        std::u16string_view token;
        std::u16string_view label;
        uint32_t textNumber;
        int32_t pathMenu;
        int32_t scriptMenu;
        char expandedBy; // M the macro, A the add-in
    };
    const Row rows[] = {
        {u"<Filename>", u"Source File Name", 23, 1, 1, 'M'},
        {u"<Extension>", u"Source File Extension", 24, 2, 2, 'M'},
        {u"<Configuration>", u"Configuration Name", 25, 3, 3, 'M'},
        {u"<Path>", u"Source Folder Path", 26, 4, 4, 'A'},
        {u"<VaultPath>", u"Vault Root Folder Path", 27, 5, 5, 'A'},
        {u"<Revision>", u"Source File Revision", 130, 6, 0, 'A'},
        {u"<Version>", u"Source File Version", 131, 7, 0, 'A'},
        {u"<WorkflowState>", u"Source File Workflow State", 132, 8, 0, 'A'},
        {u"<Today>", u"Todays Date", 133, 9, 0, 'A'},
        {u"<TaskInstanceGuid>", u"Task Instance GUID", 88, 0, 6, 'A'},
        {u"<Filepath>", u"Source File Path", 160, 0, 7, 'A'},
        {u"<SelCfgOrSheet>", u"", 0, 0, 0, 'A'},
    };
    ASSERT_EQ(std::size(kTokenTable), std::size(rows));
    for (size_t i = 0; i < std::size(rows); ++i) {
        const TokenRow& row = kTokenTable[i];
        EXPECT_EQ(row.text, rows[i].token) << i;
        EXPECT_EQ(row.label == nullptr ? u"" : std::u16string_view(row.label), rows[i].label) << i;
        EXPECT_EQ(row.textNumber, rows[i].textNumber) << i;
        EXPECT_EQ(row.pathMenu, rows[i].pathMenu) << i;
        EXPECT_EQ(row.scriptMenu, rows[i].scriptMenu) << i;
        EXPECT_EQ(row.expandedBy, rows[i].expandedBy == 'M' ? ExpandedBy::Macro : ExpandedBy::AddIn) << i;
    }
}

struct ExpectedItem
{
    int32_t id;
    std::u16string_view label;
    std::u16string_view token;
};

void ExpectItems(const std::vector<TokenMenuItem>& items, std::span<const ExpectedItem> expected)
{
    ASSERT_EQ(items.size(), expected.size());
    for (size_t i = 0; i < items.size(); ++i) {
        EXPECT_EQ(items[i].id, expected[i].id) << i;
        EXPECT_EQ(items[i].label, expected[i].label) << i;
        EXPECT_EQ(items[i].token, expected[i].token) << i;
    }
}

TEST(PathMenu, OffersNineTokensInOrder)
{
    const ExpectedItem expected[] = {
        {1, u"Source File Name", u"<Filename>"},
        {2, u"Source File Extension", u"<Extension>"},
        {3, u"Configuration Name", u"<Configuration>"},
        {4, u"Source Folder Path", u"<Path>"},
        {5, u"Vault Root Folder Path", u"<VaultPath>"},
        {6, u"Source File Revision", u"<Revision>"},
        {7, u"Source File Version", u"<Version>"},
        {8, u"Source File Workflow State", u"<WorkflowState>"},
        {9, u"Todays Date", u"<Today>"},
    };
    ExpectItems(PathMenu(), expected);
}

TEST(ScriptMenu, OffersSevenTokensInOrder)
{
    const ExpectedItem expected[] = {
        {1, u"Source File Name", u"<Filename>"},        {2, u"Source File Extension", u"<Extension>"},
        {3, u"Configuration Name", u"<Configuration>"}, {4, u"Source Folder Path", u"<Path>"},
        {5, u"Vault Root Folder Path", u"<VaultPath>"}, {6, u"Task Instance GUID", u"<TaskInstanceGuid>"},
        {7, u"Source File Path", u"<Filepath>"},
    };
    ExpectItems(ScriptMenu(), expected);
}

TEST(TokenMenus, DontOfferTheSelectedConfiguration)
{
    for (const std::vector<TokenMenuItem>& menu : {PathMenu(), ScriptMenu()}) {
        for (const TokenMenuItem& item : menu) {
            EXPECT_NE(item.token, u"<SelCfgOrSheet>");
        }
    }
}

TEST(TokenTable, DoesNotHoldThePromptOfTheFormatList)
{
    for (const TokenRow& row : kTokenTable) {
        EXPECT_NE(row.text, u"<Prompt the user>");
    }
    EXPECT_EQ(ExpandTokens(u"<Prompt the user>", TokenValues()), u"<Prompt the user>");
}

} // namespace
} // namespace tv
