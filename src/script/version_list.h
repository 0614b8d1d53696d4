// The list of the application's versions that a task may ask for.
#pragma once

#include "platform/installed_products_service.h"
#include "script/choice_list.h"

namespace tv {

/// Value of the row that leaves the version open.
inline constexpr int32_t kDefaultVersion = 0;

/// Fills the list with the installed versions of the application, the year as each row's value, and the row that leaves
/// the version open. The row of the selected year is selected, or else the first one.
///
/// A product whose name can't be read is asked for again without end.
void ListInstalledVersions(InstalledProductsService& products, ChoiceList& list, int32_t selectedYear);

} // namespace tv
