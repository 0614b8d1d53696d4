// The command that says whether this machine and the vault are fit for runs, and what to do where they aren't.
#pragma once

#include "host/host_context.h"

namespace tv::local {

/// Prints what each check found, as soon as it is known. Done when nothing is a problem; the vault may be missing.
int DoctorCommand(HostContext& context);

} // namespace tv::local
