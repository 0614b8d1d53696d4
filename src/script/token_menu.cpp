#include "script/token_menu.h"

#include "script/token_table.h"
#include "support/texts.h"

namespace tv {

namespace {

std::vector<TokenMenuItem> MenuOf(int32_t TokenRow::*position)
{
    std::vector<TokenMenuItem> items;
    for (const TokenRow& row : kTokenTable) {
        if (row.*position != kNotInMenu) {
            items.push_back({row.*position, AddInText(row.textNumber, row.label), row.text});
        }
    }
    std::ranges::sort(items, {}, &TokenMenuItem::id);
    return items;
}

} // namespace

std::vector<TokenMenuItem> PathMenu()
{
    return MenuOf(&TokenRow::pathMenu);
}

std::vector<TokenMenuItem> ScriptMenu()
{
    return MenuOf(&TokenRow::scriptMenu);
}

} // namespace tv
