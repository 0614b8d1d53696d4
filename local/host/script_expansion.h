// The variables of a task put into its script, in the order of a run: first what stands in {}, then what stands in [].
// Every piece of the outcome knows the place in the script that it comes from, so that a person can be told where to
// look. Nothing is asked of the add-in, and a script that a run would never come to an end with ends here.
#pragma once

#include "vault/stored_value.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

/// Finds the value of the name between two brackets; empty when there is no such variable.
using PlaceholderLookup = std::function<std::optional<StoredValue>(char16_t open, const std::u16string& name)>;

/// One replaced placeholder.
struct Placeholder
{
    /// Where it stands in the script. One that a value brought in stands where that value stands, with no length.
    size_t offset = 0;
    size_t length = 0;
    /// With its brackets, and without.
    std::u16string text;
    std::u16string name;
    std::optional<StoredValue> value;
    /// The variable whose value brought it in; empty for the script's own.
    std::u16string broughtBy;
};

/// Why a run would never be done with the script.
struct EndlessPass
{
    enum class Reason
    {
        Unclosed, ///< an opening bracket with no closing one behind it
        Growing,  ///< values that bring each other in again
    };
    Reason reason = Reason::Unclosed;
    char16_t open = u'[';
    size_t offset = 0;
    /// The variable whose value is to blame; empty when it is the script itself.
    std::u16string variable;
};

struct ExpandedScript
{
    struct Origin
    {
        size_t offset = 0;
        /// Index of the placeholder that the unit is of the value of; -1 for the script's own.
        int32_t placeholder = -1;
    };

    std::u16string text;
    /// One for each unit of the text.
    std::vector<Origin> origins;
    std::vector<Placeholder> placeholders;
    std::vector<EndlessPass> endless;
};

ExpandedScript ExpandScript(std::u16string_view script, const PlaceholderLookup& find);

/// A value as it stands in a macro, but for the ends of its lines.
std::u16string ValueText(const StoredValue& value);

} // namespace tv::local
