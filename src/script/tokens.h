// The angle-bracket tokens that are replaced for each file, and the script text cut at them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

/// What the tokens stand for, as plain text.
struct TokenValues
{
    std::u16string filePath;
    std::u16string folderPath;
    std::u16string vaultPath;
    std::u16string taskInstanceGuid;
    std::u16string configurationOrSheet;
    std::u16string revision;
    std::u16string version;
    std::u16string workflowState;
    std::u16string today;
};

/// How a value enters the macro.
enum class TokenEncoding
{
    Plain,  ///< as it stands; such values are ASCII
    Literal ///< as the inside of a string literal, see EncodeLiteral
};

/// One token.
struct Token
{
    std::u16string_view text;
    std::u16string TokenValues::*value;
    TokenEncoding encoding;
};

/// The tokens in the order in which they are replaced: a value that holds a later token is expanded again.
inline constexpr Token kTokens[] = {
    {u"<Filepath>", &TokenValues::filePath, TokenEncoding::Literal},
    {u"<Path>", &TokenValues::folderPath, TokenEncoding::Literal},
    {u"<VaultPath>", &TokenValues::vaultPath, TokenEncoding::Literal},
    {u"<TaskInstanceGuid>", &TokenValues::taskInstanceGuid, TokenEncoding::Plain},
    {u"<SelCfgOrSheet>", &TokenValues::configurationOrSheet, TokenEncoding::Literal},
    {u"<Revision>", &TokenValues::revision, TokenEncoding::Literal},
    {u"<Version>", &TokenValues::version, TokenEncoding::Plain},
    {u"<WorkflowState>", &TokenValues::workflowState, TokenEncoding::Literal},
    {u"<Today>", &TokenValues::today, TokenEncoding::Plain},
};
inline constexpr size_t kTokenCount = std::size(kTokens);

/// Returns the text with every token replaced, one token after the other over the whole text.
std::u16string ExpandTokens(std::u16string_view text, const TokenValues& values);

/// A script that is expanded for many files. It knows where its tokens stand, so that a file costs little more than one
/// copy of the text; the outcome is that of ExpandTokens.
class ScriptText
{
  public:
    ScriptText() = default;
    explicit ScriptText(std::u16string scriptText);

    const std::u16string& Text() const { return text; }
    std::u16string Expand(const TokenValues& values) const;

  private:
    struct Place
    {
        size_t position;
        size_t token; ///< index into kTokens
    };

    std::u16string text;
    std::vector<Place> places;
    /// Some token stands behind the beginning of another, as in "<Ver<Path>ion>", so a value may complete a new token.
    bool nested = false;
};

} // namespace tv
