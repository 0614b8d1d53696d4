#include "cad/event_sink.h"

#include "com/remote.h"
#include "com/result.h"
#include "com/variant.h"

#include <algorithm>
#include <array>

namespace tv {

HRESULT EventSink::GetTypeInfoCount(UINT* count)
{
    if (count == nullptr) {
        return E_POINTER;
    }
    *count = 0;
    return S_OK;
}

HRESULT EventSink::GetTypeInfo(UINT, LCID, ITypeInfo** info)
{
    if (info != nullptr) {
        *info = nullptr;
    }
    return E_NOTIMPL;
}

HRESULT EventSink::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*)
{
    return E_NOTIMPL;
}

void* EventSink::FindInterface(REFIID id)
{
    return id == description.id ? static_cast<IDispatch*>(this) : nullptr;
}

HRESULT EventSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT* result, EXCEPINFO*, UINT*)
{
    // The handler may end the connection, and with it the last reference that the application holds.
    const ComPtr<EventSink> keptAlive = ComPtr<EventSink>::Share(this);
    const auto event = std::ranges::find(description.events, member, &EventDescription::id);
    if (handler == nullptr || event == description.events.end()) {
        return S_OK;
    }
    if (event->argumentCount > kMostEventArguments) {
        return E_FAIL;
    }
    if ((params == nullptr ? 0 : params->cArgs) < event->argumentCount) {
        return DISP_E_BADPARAMCOUNT;
    }
    return AtBoundary([&] {
        std::array<VARIANT, kMostEventArguments> arguments;
        for (uint32_t i = 0; i < event->argumentCount; ++i) {
            arguments[i] = params->rgvarg[params->cArgs - 1 - i];
        }
        handler->OnEvent(member, std::span(arguments).first(event->argumentCount));
        if (result != nullptr) {
            Variant::FromInt(0).MoveTo(result);
        }
        return S_OK;
    });
}

Result SinkConnection::Connect(IUnknown* source, const EventInterface& events, EventHandler& handler,
                               uint16_t majorRevision)
{
    if (IsConnected()) {
        throw ResultError(E_FAIL);
    }
    majorVersion = majorRevision;
    ComPtr<IConnectionPointContainer> container;
    if (const Result found = QueryFor(source, container); found < 0) {
        return found;
    }
    if (const Result found = container->FindConnectionPoint(events.id, point.put()); found < 0) {
        return found;
    }
    sink = MakeObject<EventSink>(events, handler);
    ULONG given = kUnconnectedMark;
    const Result advised = point->Advise(sink.get(), &given);
    if (advised < 0) {
        Abandon();
        return advised;
    }
    cookie = static_cast<uint32_t>(given);
    return advised;
}

void SinkConnection::Disconnect()
{
    if (IsConnected()) {
        sink->Forget();
        point->Unadvise(cookie);
        DisconnectRemoteCallers(sink.get());
    }
    Abandon();
}

void SinkConnection::Abandon()
{
    if (sink) {
        sink->Forget();
    }
    cookie = kUnconnectedMark;
    point.reset();
    sink.reset();
}

} // namespace tv
