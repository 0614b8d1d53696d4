#include "script/path_field.h"

#include "com/bstring.h"
#include "com/result.h"
#include "script/date_format.h"
#include "support/format.h"
#include "support/text_compare.h"
#include "support/text_replace.h"
#include "support/texts.h"

namespace tv {

namespace {

struct Sample
{
    std::u16string_view token;
    std::u16string_view value;
};

std::u16string WithSamples(std::u16string_view text, std::u16string_view vaultRoot, std::u16string_view today)
{
    // In the order in which they are replaced.
    // clang-format off
    const Sample samples[] = {
        {u"<Path>",          vaultRoot},
        {u"<Filename>",      u"Part"},
        {u"<Extension>",     u"tvnprt"},
        {u"<Configuration>", u"Default"},
        {u"<VaultPath>",     vaultRoot},
        {u"<Revision>",      u"A1"},
        {u"<Version>",       u"1"},
        {u"<WorkflowState>", u"Approved"},
        {u"<Today>",         today},
    };
    // clang-format on
    std::u16string sampled(text);
    for (const Sample& sample : samples) {
        sampled = ReplaceAll(sampled, sample.token, sample.value);
    }
    return sampled;
}

} // namespace

std::u16string BuildExamplePath(std::u16string_view text, IVyxVault& vault, Platform& platform,
                                std::u16string_view formatExtension)
{
    BString root;
    BString vaultName;
    ThrowIfFailed(vault.GetRootFolderPath(root.put()));
    ThrowIfFailed(vault.GetName(vaultName.put()));
    std::u16string path = WithSamples(text, root.View(), DateForFileNames(platform, vaultName.View()));
    if (!path.empty()) {
        path += formatExtension;
    }
    return FormatText(u"%s: %s", AddInText(123, u"Example"), path);
}

std::optional<std::u16string> FoldVaultPrefix(std::u16string_view text, IVyxVault& vault)
{
    BString root;
    if (vault.GetRootFolderPath(root.put()) < 0 || root.View().empty() || !StartsWithIgnoringCase(text, root.View())) {
        return std::nullopt;
    }
    return u"<VaultPath>" + std::u16string(text.substr(root.View().size()));
}

void PathFieldChanged(PathField& field, IVyxVault& vault, Platform& platform, std::u16string_view formatExtension)
{
    field.ShowExample(BuildExamplePath(field.Text(), vault, platform, formatExtension));
    if (const std::optional<std::u16string> folded = FoldVaultPrefix(field.Text(), vault)) {
        field.SetText(*folded);
    }
}

} // namespace tv
