#include "script/script_resource.h"

#include "support/texts.h"

#include <iterator>
#include <string_view>

namespace tv {

namespace {

struct FailureText
{
    ResourceFailure failure;
    std::u16string_view text;
};

/// These words are for whoever built the module; they aren't translated.
constexpr FailureText kFailureTexts[] = {
    {ResourceFailure::NotFound, u"Could not find Script resource!"},
    {ResourceFailure::NoSize, u"Error getting size of Script resource."},
    {ResourceFailure::NotLoaded, u"Error loading Script resource."},
    {ResourceFailure::NotLocked, u"Error locking Script resource."},
};

std::u16string_view TextOf(ResourceFailure failure)
{
    for (const FailureText& row : kFailureTexts) {
        if (row.failure == failure) {
            return row.text;
        }
    }
    return {};
}

} // namespace

std::u16string TaskTypeLabel(const TaskTypeRow& row)
{
    return AddInText(row.textNumber, row.label);
}

std::u16string ReadScriptResource(ModuleService& module, int32_t id)
{
    ScriptResource resource = module.ReadScript(id);
    if (!resource.failure && resource.bytes.empty()) {
        resource.failure = ResourceFailure::NoSize;
    }
    if (resource.failure) {
        module.ShowMessage(TextOf(*resource.failure));
        return {};
    }
    std::u16string text = module.WideText(resource.bytes);
    text.resize(resource.bytes.size());
    text += u'\n';
    return text;
}

} // namespace tv
