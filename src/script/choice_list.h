// A list to choose one row from, such as a combo box.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tv {

/// The list keeps its rows sorted by their labels without regard to case. A row that is selected stays so when others
/// come before it.
class ChoiceList
{
  public:
    virtual ~ChoiceList() = default;
    /// Position of the first row whose label begins with the text, without regard to case.
    virtual std::optional<int32_t> FindByPrefix(std::u16string_view start) const = 0;
    /// Adds a row in its place; returns its position.
    virtual int32_t AddRow(std::u16string_view label, int32_t value) = 0;
    virtual void SelectRow(int32_t position) = 0;
    virtual std::optional<int32_t> SelectedRow() const = 0;
};

} // namespace tv
