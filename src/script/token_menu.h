// The menus from which a token is put into a path field or into a macro.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

struct TokenMenuItem
{
    int32_t id;
    std::u16string label;
    std::u16string_view token; ///< what the item inserts
};

/// The menu of a path field, in order. A path field shows these tokens by these labels, too.
std::vector<TokenMenuItem> PathMenu();

/// The menu of the script page, in order.
std::vector<TokenMenuItem> ScriptMenu();

} // namespace tv
