#include "cad/automation_observer.h"

namespace tv::app {

namespace {

AutomationObserver* current = nullptr;

} // namespace

AutomationObserver* CurrentObserver()
{
    return current;
}

ObserverScope::ObserverScope(AutomationObserver& observer) : previous(current)
{
    current = &observer;
}

ObserverScope::~ObserverScope()
{
    current = previous;
}

} // namespace tv::app
