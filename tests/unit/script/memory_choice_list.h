// MemoryChoiceList: a list to choose from, without a window.
#pragma once

#include "script/choice_list.h"
#include "support/text_compare.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tv {

class MemoryChoiceList final : public ChoiceList
{
  public:
    struct Row
    {
        std::u16string label;
        int32_t value;
        friend bool operator==(const Row&, const Row&) = default;
    };

    std::optional<int32_t> FindByPrefix(std::u16string_view start) const override
    {
        const auto found =
            std::ranges::find_if(rows, [&](const Row& row) { return StartsWithIgnoringCase(row.label, start); });
        return found == rows.end() ? std::nullopt : std::optional(static_cast<int32_t>(found - rows.begin()));
    }

    int32_t AddRow(std::u16string_view label, int32_t value) override
    {
        const auto place =
            std::ranges::find_if(rows, [&](const Row& row) { return CompareIgnoringCase(label, row.label) < 0; });
        const auto position = static_cast<int32_t>(place - rows.begin());
        rows.insert(place, {std::u16string(label), value});
        if (selected && *selected >= position) {
            ++*selected;
        }
        return position;
    }

    void SelectRow(int32_t position) override { selected = position; }
    std::optional<int32_t> SelectedRow() const override { return selected; }

    const std::vector<Row>& Rows() const { return rows; }
    /// Label of the selected row; "(none)" without one.
    std::u16string SelectedLabel() const
    {
        return selected ? rows.at(static_cast<size_t>(*selected)).label : u"(none)";
    }

  private:
    std::vector<Row> rows;
    std::optional<int32_t> selected;
};

} // namespace tv
