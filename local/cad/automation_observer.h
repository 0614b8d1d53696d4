// Somebody who is told of everything that passes between the application and other processes, and may refuse calls.
#pragma once

#include "com/result.h"
#include "com/variant.h"
#include "macro/value.h"

#include <span>
#include <string_view>

namespace tv::app {

class AutomationObserver
{
  public:
    virtual ~AutomationObserver() = default;

    /// A call by another process, before it is carried out. A failure is given to the caller instead.
    virtual Result OnCall(std::u16string_view className, std::u16string_view member,
                          std::span<const macro::Value> arguments) = 0;
    /// An event, before its listeners hear of it.
    virtual void OnEvent(const GUID& eventInterface, int32_t event, std::span<const Variant> arguments) = 0;
    /// All listeners have answered.
    virtual void OnEventDone() = 0;
};

/// The observer of this thread's application; null for none.
AutomationObserver* CurrentObserver();

/// Makes an observer the current one for as long as this lives.
class ObserverScope
{
  public:
    explicit ObserverScope(AutomationObserver& observer);
    ObserverScope(const ObserverScope&) = delete;
    ObserverScope& operator=(const ObserverScope&) = delete;
    ~ObserverScope();

  private:
    AutomationObserver* previous;
};

} // namespace tv::app
