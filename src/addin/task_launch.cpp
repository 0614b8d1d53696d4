#include "addin/task_launch.h"

#include "com/bstring.h"
#include "com/result.h"
#include "support/task_variables.h"

namespace tv {

namespace {

bool IsEmpty(SAFEARRAY* data)
{
    return SafeArrayView<VyxCmdData>(data).size() == 0;
}

} // namespace

Result LaunchTask(VaultFiles& files, IVyxVault& vault, IVyxTaskInstance& instance, VyxCmd& cmd, SAFEARRAY* data,
                  int32_t& kind)
{
    BString name;
    if (const Result read = instance.GetTaskName(name.put()); read < 0) {
        return read;
    }
    if (IsEmpty(data)) {
        cmd.cancel = kVariantTrue;
    }
    if (const Result read = ReadTaskKind(&instance, true, kind); read < 0) {
        return read;
    }
    if (cmd.cancel != kVariantFalse) {
        return 0;
    }
    SelectedFiles selection;
    files.ResolveSelection(&instance, &vault, data, selection, VaultWork::None);
    const Result saved = files.SaveFileList(&instance, 0, selection);
    return saved < 0 ? saved : 0;
}

} // namespace tv
