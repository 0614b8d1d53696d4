// What is found wrong with a macro or with the script that it is made of: where, why, and what to do.
#pragma once

#include "host/host_context.h"

#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

/// The text that a finding's line and column are counted in.
enum class FindingText
{
    Script, ///< the task's macro as it is stored, with its placeholders
    Macro,  ///< the macro that a run would give the application
};

/// Lines and columns count from 1.
struct MacroFinding
{
    FindingText text = FindingText::Macro;
    int line = 0;
    int column = 0;
    /// Name of the rule; empty for a problem that keeps the macro from running at all.
    std::string rule;
    std::string message;

    bool operator==(const MacroFinding&) const = default;
};

/// A place in a text.
struct TextPlace
{
    int line = 0;
    int column = 0;
};

/// The lines of a text, whichever way they end.
class TextLines
{
  public:
    explicit TextLines(std::u16string_view text);

    TextPlace PlaceOf(size_t offset) const;
    /// A line without its end; empty for a line that the text doesn't have.
    std::u16string_view Line(int number) const;
    int Count() const { return static_cast<int>(starts.size()); }

  private:
    std::u16string_view whole;
    std::vector<size_t> starts;
};

/// Prints each finding as "NAME:line:column: message", which editors understand, with its line below it and a mark
/// under the column.
class FindingPrinter
{
  public:
    /// Names the text that the findings that follow are about.
    void SetText(FindingText which, std::string name, std::u16string_view text);
    void Print(std::ostream& out, const MacroFinding& finding) const;
    Json ToJson(const MacroFinding& finding) const;
    /// The column in which the code of a line begins.
    int FirstColumn(FindingText which, int line) const;

  private:
    struct NamedText
    {
        std::string name;
        std::u16string text;
    };
    const NamedText& TextOf(const MacroFinding& finding) const;
    std::u16string_view LineOf(const MacroFinding& finding) const;

    NamedText script;
    NamedText macro;
};

} // namespace tv::local
