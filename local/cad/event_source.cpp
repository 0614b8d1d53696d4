#include "cad/event_source.h"

#include "cad/automation_observer.h"

namespace tv::app {

namespace {

/// What a call to an object of a process that has ended gives.
constexpr Result kServerUnavailable = static_cast<Result>(0x800706BAu);
constexpr Result kServerDied = static_cast<Result>(0x80010007u);
constexpr Result kServerDiedDirectly = static_cast<Result>(0x80010012u);
constexpr Result kDisconnected = static_cast<Result>(0x80010108u);
constexpr Result kCallFailed = static_cast<Result>(0x800706BEu);

bool HasGone(Result result)
{
    return result == kServerUnavailable || result == kServerDied || result == kServerDiedDirectly ||
           result == kDisconnected || result == kCallFailed;
}

class Point final : public ComObject<IConnectionPoint>
{
  public:
    Point(std::shared_ptr<EventSource> events, IConnectionPointContainer* owner)
        : source(std::move(events)), container(ComPtr<IConnectionPointContainer>::Share(owner))
    {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* interfaceId) override
    {
        if (interfaceId == nullptr) {
            return E_POINTER;
        }
        *interfaceId = source->Interface();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** result) override
    {
        if (result == nullptr) {
            return E_POINTER;
        }
        *result = ComPtr<IConnectionPointContainer>(container).release();
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, ConnectionCookie* cookie) override
    {
        return AtBoundary([&] { return source->Connect(sink, cookie); });
    }

    HRESULT STDMETHODCALLTYPE Unadvise(ConnectionCookie cookie) override { return source->Disconnect(cookie); }

    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override
    {
        if (connections != nullptr) {
            *connections = nullptr;
        }
        return E_NOTIMPL;
    }

  private:
    std::shared_ptr<EventSource> source;
    ComPtr<IConnectionPointContainer> container;
};

} // namespace

Result EventSource::Connect(IUnknown* sink, ConnectionCookie* cookie)
{
    if (sink == nullptr || cookie == nullptr) {
        return E_POINTER;
    }
    *cookie = 0;
    ComPtr<IDispatch> listener;
    // Without a registered type library the system can't carry the event interface itself to another process.
    if (sink->QueryInterface(id, listener.putVoid()) < 0 && QueryFor(sink, listener) < 0) {
        return CONNECT_E_CANNOTCONNECT;
    }
    *cookie = ++lastCookie;
    listeners.emplace(*cookie, std::move(listener));
    return S_OK;
}

Result EventSource::Disconnect(ConnectionCookie cookie)
{
    return listeners.erase(cookie) > 0 ? S_OK : CONNECT_E_NOCONNECTION;
}

void EventSource::Fire(DISPID event, std::span<const Variant> arguments)
{
    std::vector<VARIANT> reversed;
    for (size_t i = arguments.size(); i > 0; --i) {
        reversed.push_back(*arguments[i - 1].get()); // lent for the length of the calls
    }
    AutomationObserver* const observer = CurrentObserver();
    if (observer != nullptr) {
        observer->OnEvent(id, static_cast<int32_t>(event), arguments);
    }
    // A listener may connect, disconnect or call the application while it handles the event.
    const std::map<ConnectionCookie, ComPtr<IDispatch>> connected = listeners;
    for (const auto& [cookie, listener] : connected) {
        DISPPARAMS params{reversed.empty() ? nullptr : reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
        Variant answer;
        const GUID none{};
        const Result result = listener->Invoke(event, none, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, answer.put(),
                                               nullptr, nullptr);
        if (HasGone(result)) {
            listeners.erase(cookie);
        }
    }
    if (observer != nullptr) {
        observer->OnEventDone();
    }
}

ComPtr<IConnectionPoint> EventSource::Point(IConnectionPointContainer* container)
{
    ComPtr<app::Point> point = MakeObject<app::Point>(shared_from_this(), container);
    return ComPtr<IConnectionPoint>::Share(point.get());
}

} // namespace tv::app
