// The one base of all event sinks: an object that the application calls through IDispatch, and the connection that it
// hangs on.
#pragma once

#include "com/com_object.h"
#include "interfaces/ids.h"

#include <span>

namespace tv {

/// One event that a sink takes.
struct EventDescription
{
    int32_t id;
    uint32_t argumentCount;
};

/// An event interface of the application, as far as it is taken.
struct EventInterface
{
    GUID id;
    int32_t controlId;
    std::span<const EventDescription> events;
};

/// Receives the events of a sink. Arguments come in the order in which the event declares them.
class EventHandler
{
  public:
    virtual ~EventHandler() = default;
    virtual void OnEvent(int32_t event, std::span<const VARIANT> arguments) = 0;
};

/// Arguments that the dispatch layer passes at most.
inline constexpr uint32_t kMostEventArguments = 8;

/// Hears one event interface. The application holds it; it forgets its handler when the connection ends.
class EventSink final : public ComObject<IDispatch>
{
  public:
    EventSink(const EventInterface& events, EventHandler& receiver) : description(events), handler(&receiver) {}

    void Forget() { handler = nullptr; }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* params,
                                     VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

  private:
    void* FindInterface(REFIID id) override;

    const EventInterface& description;
    EventHandler* handler;
};

/// Cookie of a sink that isn't connected.
inline constexpr uint32_t kUnconnectedMark = 0xFEFEFEFE;

/// One sink's connection to one source. The end of the object makes the sink deaf but says nothing to the source, which
/// may be gone by then.
class SinkConnection
{
  public:
    SinkConnection() = default;
    SinkConnection(const SinkConnection&) = delete;
    SinkConnection& operator=(const SinkConnection&) = delete;
    ~SinkConnection() { Abandon(); }

    /// Connects a new sink. The version of the event interface's description is that of the running application, not the
    /// 17.0 that this program was declared with. Connecting twice is a programming error, raised as 0x80004005.
    Result Connect(IUnknown* source, const EventInterface& events, EventHandler& handler, uint16_t majorRevision);
    void Disconnect();

    bool IsConnected() const { return cookie != kUnconnectedMark; }
    uint32_t Cookie() const { return cookie; }
    uint16_t MajorVersion() const { return majorVersion; }

  private:
    void Abandon();

    ComPtr<IConnectionPoint> point;
    ComPtr<EventSink> sink;
    uint32_t cookie = kUnconnectedMark;
    uint16_t majorVersion = 17;
};

} // namespace tv
