#include "host/table.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace tv::local {

namespace {

constexpr std::string_view kGap = "  ";

std::string Padded(const std::string& cell, size_t width, Align align)
{
    const std::string blanks(width - std::min(width, CharacterCount(cell)), ' ');
    return align == Align::Right ? blanks + cell : cell + blanks;
}

} // namespace

size_t CharacterCount(std::string_view text)
{
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void Table::Print(std::ostream& out) const
{
    std::vector<size_t> widths;
    for (const Column& column : columns) {
        widths.push_back(CharacterCount(column.title));
    }
    for (const auto& row : rows) {
        for (size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], CharacterCount(row[i]));
        }
    }
    const auto printLine = [&](const auto& cellAt) {
        std::string line;
        for (size_t i = 0; i < columns.size(); ++i) {
            line += (i > 0 ? kGap : "");
            line += Padded(cellAt(i), widths[i], columns[i].align);
        }
        out << line.substr(0, line.find_last_not_of(' ') + 1) << "\n";
    };
    printLine([&](size_t i) { return columns[i].title; });
    printLine([&](size_t i) { return std::string(widths[i], '-'); });
    for (const auto& row : rows) {
        printLine([&](size_t i) { return row[i]; });
    }
}

std::string SizeText(int64_t bytes)
{
    constexpr const char* kUnits[] = {"B", "KB", "MB", "GB", "TB"};
    auto value = static_cast<double>(bytes);
    size_t unit = 0;
    while (value >= 1000 && unit + 1 < std::size(kUnits)) {
        value /= 1024;
        ++unit;
    }
    char text[32];
    std::snprintf(text, sizeof text, unit == 0 || value >= 99.95 ? "%.0f %s" : "%.1f %s", value, kUnits[unit]);
    return text;
}

std::string TimeText(std::string_view utc)
{
    std::string text(utc);
    std::replace(text.begin(), text.end(), 'T', ' ');
    if (!text.empty() && text.back() == 'Z') {
        text.pop_back();
    }
    return text;
}

} // namespace tv::local
