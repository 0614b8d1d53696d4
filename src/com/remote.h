// What objects that other processes hold need beyond counting.
#pragma once

#include "com/base.h"

namespace tv {

/// Cuts the references that other processes hold to an object of this one. A process that died gives back nothing, and
/// its references would keep the object, and with it this module, for minutes.
inline void DisconnectRemoteCallers([[maybe_unused]] IUnknown* object)
{
#ifdef _WIN32
    CoDisconnectObject(object, 0);
#endif
}

} // namespace tv
