// The main window: the open documents, as text.
#pragma once

#include "cad/application.h"

namespace tv::app {

/// Makes the window of the application and ties it to it: showing, hiding, ending, repainting. Returns its handle, 0 on
/// failure. Closing it ends the program's message loop.
intptr_t MakeMainWindow(Application& application, int showMode);

} // namespace tv::app
