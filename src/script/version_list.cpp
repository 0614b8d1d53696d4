#include "script/version_list.h"

#include "support/numbers.h"
#include "support/text_compare.h"
#include "support/texts.h"

#include <algorithm>
#include <string>

namespace tv {

namespace {

constexpr std::u16string_view kApplication = u"Torvane";
constexpr int32_t kOldestYear = 2008;
/// What a name goes on with behind the year, if the product is the application itself and not an add-on of it.
constexpr std::u16string_view kReleases[] = {u"SP", u"Alpha", u"Beta", u"Pre"};

void DropBlanks(std::u16string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(u' '), text.size()));
}

/// Takes the next word off the text, which then begins with the word behind it.
std::u16string_view TakeWord(std::u16string_view& text)
{
    DropBlanks(text);
    const std::u16string_view word = text.substr(0, text.find(u' '));
    text.remove_prefix(word.size());
    DropBlanks(text);
    return word;
}

/// The year in the name of a product, as it stands there; nothing when the product isn't a release of the application.
std::u16string_view YearTextOf(std::u16string_view name)
{
    if (!EqualIgnoringCase(TakeWord(name), kApplication)) {
        return {};
    }
    const std::u16string_view year = TakeWord(name);
    if (StartsWithIgnoringCase(name, u"x64")) {
        // "x64 Edition"
        TakeWord(name);
        TakeWord(name);
    }
    const bool isRelease =
        std::ranges::any_of(kReleases, [&](std::u16string_view release) { return name.starts_with(release); });
    return isRelease ? year : std::u16string_view();
}

void ListProduct(std::u16string_view name, ChoiceList& list, int32_t selectedYear)
{
    const std::u16string_view yearText = YearTextOf(name);
    const int32_t year = ParseDecimal(yearText);
    const std::u16string label = std::u16string(kApplication) + u" " + std::u16string(yearText);
    if (year < kOldestYear || list.FindByPrefix(label)) {
        return;
    }
    const int32_t row = list.AddRow(label, year);
    if (year == selectedYear) {
        list.SelectRow(row);
    }
}

} // namespace

void ListInstalledVersions(InstalledProductsService& products, ChoiceList& list, int32_t selectedYear)
{
    std::u16string product;
    std::u16string name;
    uint32_t index = 0;
    while (products.EnumProduct(index, product) == 0) {
        // The index waits for the name, however long that takes.
        if (products.GetProductInfo(product, kProductName, name) == 0) {
            ListProduct(name, list, selectedYear);
            ++index;
        }
    }
    list.AddRow(AddInText(125, u"<Use default>"), kDefaultVersion);
    if (!list.SelectedRow()) {
        list.SelectRow(0);
    }
}

} // namespace tv
