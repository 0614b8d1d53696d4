// The registry entries by which the system finds the component.
#pragma once

#include "com/base.h"

namespace tv {

/// Registers the class, its names and the type library for all users. \param module handle of the module to register
HRESULT RegisterServer(HMODULE module);
/// Takes all of it back. What isn't there is no failure.
HRESULT UnregisterServer();

} // namespace tv
