// All tokens that a path or a macro may hold, as a person meets them: their labels, and the menus that offer them.
#pragma once

#include "script/tokens.h"

#include <algorithm>

namespace tv {

/// The add-in knows a token's value before the application has opened the file, or else the macro does afterwards.
enum class ExpandedBy
{
    Macro,
    AddIn
};

inline constexpr int32_t kNotInMenu = 0;

struct TokenRow
{
    std::u16string_view text;
    const char16_t* label; ///< the English text; null for a token that no menu offers
    uint32_t textNumber;
    int32_t pathMenu;   ///< position in the menu of a path field, and the item's identifier
    int32_t scriptMenu; ///< the same in the menu of the script page
    ExpandedBy expandedBy;
};

// clang-format off
inline constexpr TokenRow kTokenTable[] = {
    {u"<Filename>",         u"Source File Name",            23, 1,          1,          ExpandedBy::Macro},
    {u"<Extension>",        u"Source File Extension",       24, 2,          2,          ExpandedBy::Macro},
    {u"<Configuration>",    u"Configuration Name",          25, 3,          3,          ExpandedBy::Macro},
    {u"<Path>",             u"Source Folder Path",          26, 4,          4,          ExpandedBy::AddIn},
    {u"<VaultPath>",        u"Vault Root Folder Path",      27, 5,          5,          ExpandedBy::AddIn},
    {u"<Revision>",         u"Source File Revision",       130, 6,          kNotInMenu, ExpandedBy::AddIn},
    {u"<Version>",          u"Source File Version",        131, 7,          kNotInMenu, ExpandedBy::AddIn},
    {u"<WorkflowState>",    u"Source File Workflow State", 132, 8,          kNotInMenu, ExpandedBy::AddIn},
    {u"<Today>",            u"Todays Date",                133, 9,          kNotInMenu, ExpandedBy::AddIn},
    {u"<TaskInstanceGuid>", u"Task Instance GUID",          88, kNotInMenu, 6,          ExpandedBy::AddIn},
    {u"<Filepath>",         u"Source File Path",           160, kNotInMenu, 7,          ExpandedBy::AddIn},
    {u"<SelCfgOrSheet>",    nullptr,                         0, kNotInMenu, kNotInMenu, ExpandedBy::AddIn},
};
// clang-format on

/// The token pass replaces just those tokens that the table gives to the add-in.
constexpr bool TokenTableAgreesWithTokenPass()
{
    return std::ranges::all_of(kTokenTable, [](const TokenRow& row) {
        const bool isReplaced = std::ranges::find(kTokens, row.text, &Token::text) != std::end(kTokens);
        return isReplaced == (row.expandedBy == ExpandedBy::AddIn);
    });
}
static_assert(TokenTableAgreesWithTokenPass());
static_assert(std::ranges::count(kTokenTable, ExpandedBy::AddIn, &TokenRow::expandedBy) ==
              static_cast<std::ptrdiff_t>(kTokenCount));

} // namespace tv
