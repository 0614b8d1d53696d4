// The interfaces of the add-in's own.
#pragma once

#include "interfaces/ids.h"
#include "interfaces/vault.h"

namespace tv {

/// Where the program comes from that a start of the application uses.
enum class StartSource : int32_t
{
    None = 0,             ///< no program is known, and a start fails
    Setup64 = 1,          ///< the product's Setup key in the registry's 64-bit view
    Setup32 = 2,          ///< the same key in the 32-bit view
    RegisteredServer = 3, ///< the class's LocalServer32 key
};

} // namespace tv

/// Carries no operation of its own: the vault uses it as the host of a page.
struct ITVTaskAddIn : IDispatch
{
};

/// Shows an administrator what a run would do, without a run: no application is started and nothing is written.
struct ITVTaskPreview : IUnknown
{
    /// Gives the macro text that a run of the instance would hand to the application for one file.
    /// \param file as command 43 carries it, with the version to use in it; the record stays the caller's
    /// \param text belongs to the caller
    virtual tv::Result TV_CALL GetMacroText(IVyxVault* vault, IVyxTaskInstance* instance, const tv::VyxCmdData* file,
                                            tv::BStr* text) = 0;
};

/// Shows an administrator how a run would start the application for a product year. Nothing is started.
struct ITVStartPreview : IUnknown
{
    /// Fails with the system's result when the year's class isn't registered and no other is either.
    /// \param year        product year; 0 for whichever version is registered
    /// \param startedYear the year that would be started, which is another one when the year's class isn't registered
    /// \param commandLine as the system gets it, cut where a run would cut it; empty when there is no program;
    ///                    belongs to the caller
    virtual tv::Result TV_CALL GetStartCommand(int32_t year, int32_t* startedYear, GUID* classId,
                                               tv::StartSource* source, tv::BStr* commandLine) = 0;
};
