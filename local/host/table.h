// A table for people: columns as wide as their widest cell, numbers to the right.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

enum class Align
{
    Left,
    Right,
};

class Table
{
  public:
    struct Column
    {
        std::string title;
        Align align = Align::Left;
    };

    explicit Table(std::vector<Column> titles) : columns(std::move(titles)) {}

    /// A row has one cell for each column.
    void Add(std::vector<std::string> cells) { rows.push_back(std::move(cells)); }
    bool IsEmpty() const { return rows.empty(); }
    void Print(std::ostream& out) const;

  private:
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;
};

/// Number of characters of a UTF-8 text.
size_t CharacterCount(std::string_view text);

/// "1,234 B", "12.3 KB": three digits that matter.
std::string SizeText(int64_t bytes);

/// "2026-11-21 01:40:05" out of "2026-11-21T01:40:05Z".
std::string TimeText(std::string_view utc);

} // namespace tv::local
