#include "targets.h"

#include "com/result.h"
#include "fakes/platform/fake_module.h"
#include "fuzz_host.h"
#include "macro/macro.h"
#include "macro/memory_file_system.h"
#include "script/literal.h"
#include "script/tokens.h"
#include "script/variable_expansion.h"

#include <array>

namespace tv::fuzz {

namespace {

/// Pieces of which scripts and values are put together: small bytes choose one, the others stand for themselves.
constexpr auto kPieces = std::to_array<std::u16string_view>({
    u"<Filepath>",
    u"<Path>",
    u"<VaultPath>",
    u"<TaskInstanceGuid>",
    u"<SelCfgOrSheet>",
    u"<Revision>",
    u"<Version>",
    u"<WorkflowState>",
    u"<Today>",
    u"<Ver",
    u"sion>",
    u"<",
    u">",
    u"<Pa",
    u"th>",
    u"\r\n",
    u"\"",
    u" & ",
    u"\u03A9",
    u"Path>",
});

std::u16string Assemble(Bytes bytes)
{
    std::u16string text;
    for (uint8_t byte : bytes) {
        if (byte < kPieces.size()) {
            text += kPieces[byte];
        } else {
            text += static_cast<char16_t>(byte);
        }
    }
    return text;
}

/// Takes a part whose length its first byte tells.
Bytes TakePart(Bytes& bytes)
{
    if (bytes.empty()) {
        return {};
    }
    const size_t length = std::min<size_t>(bytes[0], bytes.size() - 1);
    const Bytes part = bytes.subspan(1, length);
    bytes = bytes.subspan(1 + length);
    return part;
}

constexpr Result kTooManyQuestions = static_cast<Result>(0x80004005);

} // namespace

void ExpandVariablesOfScript(Bytes bytes)
{
    const std::u16string text = NarrowText(bytes);
    // A bracket that nothing closes is asked for without end.
    if (text.rfind(u'[') != std::u16string::npos && text.find(u']', text.rfind(u'[')) == std::u16string::npos) {
        return;
    }
    std::u16string outside;
    size_t at = 0;
    while (at < text.size()) {
        const size_t open = std::min(text.find(u'[', at), text.size());
        outside += text.substr(at, open - at);
        const size_t close = text.find(u']', open);
        at = open == text.size() ? open : close + 1;
    }
    fakes::CallLog log;
    fakes::FakeModule module(log);
    int questions = 0;
    const auto noValues = [&](const std::u16string&, Variant&) -> Result {
        return ++questions > 10000 ? kTooManyQuestions : 1;
    };
    try {
        const std::u16string expanded = ExpandVariables(text, u'[', u']', noValues, module);
        Require(expanded.find(u'[') == std::u16string::npos, "no bracket is left when no variable has a value");
        Require(outside != text || expanded == text, "a text without placeholders stays");
    } catch (const ResultError&) {
        // What vanishes may leave a bracket that nothing closes any more: "[][[]".
        Require(questions > 10000, "only the look-up fails");
    }
}

void ExpandTokensOfScript(Bytes bytes)
{
    TokenValues values;
    for (std::u16string TokenValues::*value :
         {&TokenValues::filePath, &TokenValues::folderPath, &TokenValues::vaultPath, &TokenValues::taskInstanceGuid,
          &TokenValues::configurationOrSheet, &TokenValues::revision, &TokenValues::version,
          &TokenValues::workflowState, &TokenValues::today}) {
        values.*value = Assemble(TakePart(bytes));
    }
    const std::u16string text = Assemble(bytes);
    Require(ScriptText(text).Expand(values) == ExpandTokens(text, values),
            "a text whose places are known expands like any other");
}

void EvaluateLiteral(Bytes bytes)
{
    // Two bytes a unit. A quote or a line end would leave the literal, and an ampersand between blanks is broken
    // behind: such values don't come back, and aren't meant to.
    std::u16string value;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const char16_t unit = static_cast<char16_t>(bytes[i] | (bytes[i + 1] & 7) << 8);
        value += unit == u'"' || unit == u'\r' || unit == u'\n' || unit == u'&' ? u'x' : unit;
    }
    const std::u16string text = u"Function main()\r\nmain = \"" + EncodeLiteral(value) + u"\"\r\nEnd Function\r\n";
    const macro::CompileResult compiled = macro::Compile(text);
    Require(compiled.module != nullptr, "an encoded value is a literal of the macro language");
    FuzzHost host;
    macro::Limits limits;
    limits.callDepth = 10;
    macro::Machine machine(host, limits);
    const macro::RunResult result = machine.Run(*compiled.module, u"main");
    Require(result.outcome == macro::Outcome::Ok && result.value.ToText() == value, "an encoded value comes back");
}

} // namespace tv::fuzz
