#include "addin/task_preview.h"

#include "com/bstring.h"
#include "com/result.h"
#include "script/task_script.h"
#include "support/task_variables.h"

namespace tv {

std::u16string PreviewMacro(Platform& platform, IVyxVault& vault, IVyxTaskInstance& instance, const VyxCmdData& file)
{
    const std::optional<std::u16string> text = ReadText(&instance, u"__script");
    if (!text) {
        throw ResultError(E_UNEXPECTED);
    }
    TaskScript script(platform);
    script.InitScript(&vault, &instance, *text);
    script.SetSourceFile(TextOf(file.path), TextOf(file.configuration), file.fileId, file.folderId, file.version);
    return script.GetMacroText();
}

} // namespace tv
