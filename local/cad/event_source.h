// Event sources: one connection point of an object, and the listeners that are connected to it.
#pragma once

#include "com/com_object.h"
#include "com/result.h"
#include "com/variant.h"

#include <map>
#include <memory>
#include <span>
#include <vector>

namespace tv::app {

#ifdef _WIN32
using ConnectionCookie = DWORD;
#else
using ConnectionCookie = uint32_t;
#endif

/// The listeners of one event interface. Events are fired on the thread of the application, one listener after the
/// other in the order in which they connected; a listener whose process has gone is dropped.
class EventSource : public std::enable_shared_from_this<EventSource>
{
  public:
    explicit EventSource(const GUID& eventInterface) : id(eventInterface) {}

    const GUID& Interface() const { return id; }
    Result Connect(IUnknown* sink, ConnectionCookie* cookie);
    Result Disconnect(ConnectionCookie cookie);
    size_t ListenerCount() const { return listeners.size(); }

    /// \param arguments in the order of the event's parameters
    void Fire(DISPID event, std::span<const Variant> arguments = {});

    /// The connection point that stands for this source.
    ComPtr<IConnectionPoint> Point(IConnectionPointContainer* container);

  private:
    GUID id;
    ConnectionCookie lastCookie = 0;
    std::map<ConnectionCookie, ComPtr<IDispatch>> listeners;
};

} // namespace tv::app
