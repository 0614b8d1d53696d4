// The additional pass over a drawing that an application started with " /R" needs before it writes one.
#pragma once

#include "interfaces/application.h"

namespace tv {

/// Gives each text of a drawing's views the linked text that it should have, where their lengths differ. Texts of one
/// length are left alone even when their characters differ. Does nothing without an application or a drawing, or when the
/// application's preference 347 is on. A failure of the drawing's objects is raised.
void RefreshLinkedText(ITorvane* application, ITorvaneDrawing* drawing);

} // namespace tv
