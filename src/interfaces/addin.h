// The interfaces of the add-in's own.
#pragma once

#include "interfaces/ids.h"
#include "interfaces/vault.h"

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
