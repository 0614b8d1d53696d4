#include "addin/add_in_info.h"

#include "com/bstring.h"
#include "support/format.h"

namespace tv {

namespace {

constexpr int32_t kYear = 2013;
constexpr int32_t kServicePack = 0;
constexpr int32_t kBuild = 511;
constexpr int32_t kAddInVersion = 2013000511;
constexpr int32_t kRequiredVaultVersion = 13;

/// The vault lists the hooks in the order in which they were asked for.
constexpr int32_t kHooks[] = {
    VyxCmd_TaskSetup,  VyxCmd_TaskSetupButton,  VyxCmd_TaskDetails,
    VyxCmd_TaskLaunch, VyxCmd_TaskLaunchButton, VyxCmd_TaskRun,
};

std::u16string Description()
{
    return u"Add-in used to run custom Torvane macros\r\n" +
           FormatText(u"Version %d, SP%d, Build %d", kYear, kServicePack, kBuild);
}

} // namespace

void TellAddInInfo(VyxAddInInfo& info, IVyxCmdMgr& manager)
{
    BString name(u"Torvane Task Add-in");
    BString company(u"Torvane Corporation");
    BString description(Description());
    info.name = name.release();
    info.company = company.release();
    info.description = description.release();
    info.version = kAddInVersion;
    info.requiredMajorVersion = kRequiredVaultVersion;
    for (const int32_t command : kHooks) {
        manager.AddHook(command, 0);
    }
}

} // namespace tv
