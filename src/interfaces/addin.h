// The add-in's own dual interface. It carries no operation of its own: the vault uses it as the host of a page.
#pragma once

#include "interfaces/ids.h"

struct ITVTaskAddIn : IDispatch
{
};
