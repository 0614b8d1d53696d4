// The options of an output format: what may be asked, and what was asked.
#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

namespace tv::kernel {

struct OptionRow
{
    std::string_view name;
    std::string_view values; // those that are allowed, with "|" between them
    std::string_view standard;
    std::string_view meaning;
};

/// The values of one job, each one of those allowed.
class Options
{
  public:
    /// Throws JobFailure with BadRequest for an option or a value that the format doesn't have.
    Options(std::span<const OptionRow> rows, const std::map<std::string, std::string>& given,
            std::string_view formatTitle);

    const std::string& Text(std::string_view name) const;
    bool Is(std::string_view name, std::string_view value) const { return Text(name) == value; }
    bool IsOn(std::string_view name) const { return Is(name, "true"); }

  private:
    std::map<std::string, std::string, std::less<>> values;
};

} // namespace tv::kernel
