// EventSource: the connection points of one simulated object.
#pragma once

#include "com/com_object.h"
#include "com/variant.h"
#include "fakes/application/call_script.h"
#include "interfaces/ids.h"

#include <memory>
#include <vector>

namespace tv::fakes {

/// Keeps the sinks by event interface and fires events through IDispatch, as the application does.
class EventSource
{
  public:
    EventSource(CallScript& callScript, std::vector<GUID> offeredInterfaces);

    /// The body of FindConnectionPoint; "Advise" and "Unadvise" stand in the script, too.
    Result Find(REFIID id, IConnectionPoint** point);

    /// Calls every sink of that interface, each kept alive for its call. The codes that the sinks gave, in order.
    std::vector<Result> Fire(const GUID& id, int32_t event, std::vector<Variant> arguments = {});
    size_t SinkCount(const GUID& id) const;
    size_t SinkCount() const;

  private:
    class Point;
    struct Sink
    {
        uint32_t cookie;
        GUID id;
        ComPtr<IDispatch> object;
    };
    struct State
    {
        CallScript& script;
        std::vector<Sink> sinks;
        uint32_t lastCookie = 0;
    };

    std::vector<GUID> offered;
    std::shared_ptr<State> state;
};

} // namespace tv::fakes
