#include "host/macro_findings.h"

#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr size_t kLongestShown = 110;
constexpr size_t kShownBefore = 70;
constexpr std::string_view kIndent = "    ";
constexpr std::string_view kLeftOut = "…";

/// A line and the mark under one of its columns, for a screen: a long line is cut on both sides of the column.
struct MarkedLine
{
    std::string line;
    std::string mark;
};

MarkedLine MarkColumn(std::u16string_view line, int column)
{
    const size_t at = std::min(static_cast<size_t>(std::max(column, 1)) - 1, line.size());
    const size_t first = line.size() > kLongestShown && at > kShownBefore ? at - kShownBefore : 0;
    const std::u16string_view shown = line.substr(first, kLongestShown);
    const bool cutBehind = first + shown.size() < line.size();
    MarkedLine marked;
    marked.line = (first > 0 ? std::string(kLeftOut) : "") + Utf8(shown) + (cutBehind ? std::string(kLeftOut) : "");
    marked.mark = first > 0 ? " " : "";
    for (char16_t unit : line.substr(first, at - first)) {
        // A low surrogate is the second half of one character.
        if (unit < 0xDC00 || unit > 0xDFFF) {
            marked.mark += unit == u'\t' ? '\t' : ' ';
        }
    }
    marked.mark += '^';
    return marked;
}

} // namespace

TextLines::TextLines(std::u16string_view text) : whole(text), starts{0}
{
    for (size_t i = 0; i < text.size(); ++i) {
        const bool isPair = text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n';
        if (text[i] == u'\n' || (text[i] == u'\r' && !isPair)) {
            starts.push_back(i + 1);
        }
    }
}

TextPlace TextLines::PlaceOf(size_t offset) const
{
    const auto next = std::upper_bound(starts.begin(), starts.end(), offset);
    return {static_cast<int>(next - starts.begin()), static_cast<int>(offset - *(next - 1)) + 1};
}

std::u16string_view TextLines::Line(int number) const
{
    if (number < 1 || number > Count()) {
        return {};
    }
    const std::u16string_view rest = whole.substr(starts[static_cast<size_t>(number) - 1]);
    return rest.substr(0, rest.find_first_of(u"\r\n"));
}

void FindingPrinter::SetText(FindingText which, std::string name, std::u16string_view text)
{
    (which == FindingText::Script ? script : macro) = {std::move(name), std::u16string(text)};
}

const FindingPrinter::NamedText& FindingPrinter::TextOf(const MacroFinding& finding) const
{
    return finding.text == FindingText::Script ? script : macro;
}

std::u16string_view FindingPrinter::LineOf(const MacroFinding& finding) const
{
    return TextLines(TextOf(finding).text).Line(finding.line);
}

void FindingPrinter::Print(std::ostream& out, const MacroFinding& finding) const
{
    out << TextOf(finding).name << ":" << finding.line << ":" << finding.column << ": "
        << (finding.rule.empty() ? "error: " : "warning: ") << finding.message;
    if (!finding.rule.empty()) {
        out << " [" << finding.rule << "]";
    }
    out << "\n";
    const std::u16string_view line = LineOf(finding);
    if (!line.empty()) {
        const MarkedLine marked = MarkColumn(line, finding.column);
        out << kIndent << marked.line << "\n" << kIndent << marked.mark << "\n";
    }
}

int FindingPrinter::FirstColumn(FindingText which, int line) const
{
    const std::u16string_view code = LineOf({which, line, 1, {}, {}});
    const size_t first = code.find_first_not_of(u" \t");
    return first == std::u16string_view::npos ? 1 : static_cast<int>(first) + 1;
}

Json FindingPrinter::ToJson(const MacroFinding& finding) const
{
    return {{"text", finding.text == FindingText::Script ? "script" : "macro"},
            {"line", finding.line},
            {"column", finding.column},
            {"severity", finding.rule.empty() ? "error" : "warning"},
            {"rule", finding.rule.empty() ? Json(nullptr) : Json(finding.rule)},
            {"message", finding.message},
            {"source", Utf8(LineOf(finding))}};
}

} // namespace tv::local
