#include "engine/options.h"

#include "engine/failure.h"

#include <algorithm>

namespace tv::kernel {

namespace {

bool Allows(std::string_view values, std::string_view value)
{
    while (true) {
        const size_t bar = values.find('|');
        if (values.substr(0, bar) == value) {
            return true;
        }
        if (bar == std::string_view::npos) {
            return false;
        }
        values.remove_prefix(bar + 1);
    }
}

std::string NamesOf(std::span<const OptionRow> rows)
{
    std::string names;
    for (const OptionRow& row : rows) {
        names += (names.empty() ? "" : ", ") + std::string(row.name);
    }
    return names.empty() ? "it has none" : "it has " + names;
}

} // namespace

Options::Options(std::span<const OptionRow> rows, const std::map<std::string, std::string>& given,
                 std::string_view formatTitle)
{
    for (const OptionRow& row : rows) {
        values[std::string(row.name)] = row.standard;
    }
    for (const auto& [name, value] : given) {
        const auto row = std::ranges::find(rows, name, &OptionRow::name);
        if (row == rows.end()) {
            throw JobFailure(ErrorCode::BadRequest,
                             std::string(formatTitle) + " has no option " + Quoted(name) + "; " + NamesOf(rows) + ".");
        }
        if (!Allows(row->values, value)) {
            throw JobFailure(ErrorCode::BadRequest, "The option " + Quoted(name) + " of " + std::string(formatTitle) +
                                                        " can't be " + Quoted(value) + "; it is one of " +
                                                        std::string(row->values) + ".");
        }
        values[name] = value;
    }
}

const std::string& Options::Text(std::string_view name) const
{
    return values.find(name)->second;
}

} // namespace tv::kernel
