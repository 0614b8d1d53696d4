// A dialog that stands until it is answered by the one key that it takes.
#pragma once

#include "cad/faults.h"
#include "com/base.h"

#include <functional>
#include <string>

namespace tv::app {

/// Shows the dialog that a fault asks for and works off messages until it is answered.
void ShowFaultDialog(const Fault& fault, const std::function<void(const std::string&)>& note);

} // namespace tv::app
