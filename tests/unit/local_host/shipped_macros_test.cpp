// The macros that the add-in carries, with the variables of a new task: nothing is wrong with them.
#include "host/macro_check.h"
#include "host/macro_lint.h"
#include "host/task_variables.h"

#include "cad/macro_library.h"
#include "vault/text.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace tv::local {

namespace {

struct Shipped
{
    const char* file;
    int32_t kind;
};

void PrintTo(const Shipped& shipped, std::ostream* out)
{
    *out << shipped.file;
}

std::u16string ReadTemplate(const std::string& file)
{
    std::ifstream stream(TV_TEMPLATES "/" + file, std::ios::binary);
    return Utf16(std::string{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()} + "\n");
}

ScriptVariables VariablesOfNewTask(int32_t kind)
{
    const std::vector<NamedValue> values = NewTaskVariables(kind, "Task", "");
    ScriptVariables variables;
    for (const NamedValue& value : values) {
        variables.names.push_back(Utf16(value.name));
    }
    variables.find = [values](char16_t, const std::u16string& name) -> std::optional<StoredValue> {
        for (const NamedValue& value : values) {
            if (Utf16(value.name) == name) {
                return value.value;
            }
        }
        return std::nullopt;
    };
    return variables;
}

std::vector<std::string> Words(const std::vector<MacroFinding>& findings)
{
    std::vector<std::string> words;
    for (const MacroFinding& finding : findings) {
        words.push_back(std::to_string(finding.line) + ":" + std::to_string(finding.column) + " " + finding.rule +
                        ": " + finding.message);
    }
    return words;
}

class ShippedMacro : public ::testing::TestWithParam<Shipped>
{
  protected:
    std::u16string Script() const { return ReadTemplate(GetParam().file); }
    std::u16string Macro() const { return ExpandScript(Script(), VariablesOfNewTask(GetParam().kind).find).text; }
};

const std::vector<std::string> kNone;

} // namespace

TEST_P(ShippedMacro, TheScriptHasNoWarning)
{
    ASSERT_GT(Script().size(), 90U);
    EXPECT_EQ(Words(LintScript(Script(), VariablesOfNewTask(GetParam().kind)).findings), kNone);
}

TEST_P(ShippedMacro, TheMacroCompiles)
{
    EXPECT_EQ(Words(CheckMacro(Macro())), kNone);
}

TEST_P(ShippedMacro, TheMacroHasNoWarning)
{
    EXPECT_EQ(Words(LintMacro(Macro(), app::MacroLibrary())), kNone);
}

INSTANTIATE_TEST_SUITE_P(Templates, ShippedMacro,
                         testing::Values(Shipped{"convert.bas", 1}, Shipped{"print.bas", 2},
                                         Shipped{"execute.bas", 3}));

TEST(ShippedMacros, AMisspelledNameInOneIsFound)
{
    std::u16string macro = ExpandScript(ReadTemplate("convert.bas"), VariablesOfNewTask(1).find).text;
    const std::u16string correct = u"convFilePath = Left(";
    const size_t at = macro.find(correct);
    ASSERT_NE(at, std::u16string::npos);
    macro.replace(at, correct.size(), u"convFilPath = Left(");
    const auto findings = LintMacro(macro, app::MacroLibrary());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].message, "convFilPath isn't declared; is convFilePath meant?");
}

} // namespace tv::local
