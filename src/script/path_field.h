// The work behind a field in which a path with tokens is edited: its example line, and the vault's root in its text.
#pragma once

#include "interfaces/vault.h"
#include "platform/platform.h"

#include <optional>
#include <string>
#include <string_view>

namespace tv {

/// A path field of a page with the line below it.
class PathField
{
  public:
    virtual ~PathField() = default;
    /// The text with its tokens as tokens, not as labels.
    virtual std::u16string Text() const = 0;
    virtual void SetText(std::u16string_view text) = 0;
    virtual void ShowExample(std::u16string_view line) = 0;
};

/// The whole example line of a field's text, in sample values. It is the raw text: nothing is removed from it, and the
/// vault's root stands in it as the vault tells it, so a root that ends in a backslash shows two of them. A failure of
/// the vault is raised.
///
/// \param formatExtension extension of the output format with its dot; goes behind any text but an empty one
std::u16string BuildExamplePath(std::u16string_view text, IVyxVault& vault, Platform& platform,
                                std::u16string_view formatExtension);

/// The text with the vault's root at its beginning replaced by a token, so that it holds on machines whose local view
/// stands elsewhere; nothing when the text is to stay. The root is a plain prefix that needn't end at a folder's name.
std::optional<std::u16string> FoldVaultPrefix(std::u16string_view text, IVyxVault& vault);

/// To be called after each change of the field's text: shows the example of what was entered, then folds the root.
void PathFieldChanged(PathField& field, IVyxVault& vault, Platform& platform, std::u16string_view formatExtension);

} // namespace tv
