#include "fakes/application/event_source.h"

#include <algorithm>

namespace tv::fakes {

class EventSource::Point final : public ComObject<IConnectionPoint>
{
  public:
    Point(std::shared_ptr<State> owner, const GUID& id) : state(std::move(owner)), interfaceId(id) {}

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) override
    {
        *id = interfaceId;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) override
    {
        *container = nullptr;
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, ULONG* cookie) override
    {
        if (const Result planned = state->script.Enter(u"Advise"); planned < 0) {
            return planned;
        }
        ComPtr<IUnknown> typed;
        if (sink->QueryInterface(interfaceId, typed.putVoid()) < 0) {
            return CONNECT_E_CANNOTCONNECT;
        }
        ComPtr<IDispatch> object;
        if (QueryFor(sink, object) < 0) {
            return CONNECT_E_CANNOTCONNECT;
        }
        *cookie = ++state->lastCookie;
        state->sinks.push_back({state->lastCookie, interfaceId, std::move(object)});
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(ULONG cookie) override
    {
        if (const Result planned = state->script.Enter(u"Unadvise"); planned < 0) {
            return planned;
        }
        const size_t gone = std::erase_if(state->sinks, [&](const Sink& sink) { return sink.cookie == cookie; });
        return gone == 0 ? CONNECT_E_NOCONNECTION : S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) override
    {
        *connections = nullptr;
        return E_NOTIMPL;
    }

  private:
    std::shared_ptr<State> state;
    GUID interfaceId;
};

EventSource::EventSource(CallScript& callScript, std::vector<GUID> offeredInterfaces)
    : offered(std::move(offeredInterfaces)), state(std::make_shared<State>(State{callScript, {}, 0}))
{}

Result EventSource::Find(REFIID id, IConnectionPoint** point)
{
    *point = nullptr;
    if (const Result planned = state->script.Enter(u"FindConnectionPoint"); planned < 0) {
        return planned;
    }
    if (std::ranges::find(offered, id) == offered.end()) {
        return CONNECT_E_NOCONNECTION;
    }
    *point = MakeObject<Point>(state, id).release();
    return S_OK;
}

std::vector<Result> EventSource::Fire(const GUID& id, int32_t event, std::vector<Variant> arguments)
{
    std::vector<VARIANT> reversed;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        reversed.push_back(*argument->get());
    }
    std::vector<Result> answers;
    // A sink may come or go while another one is called.
    for (const Sink& sink : std::vector<Sink>(state->sinks)) {
        if (sink.id != id) {
            continue;
        }
        DISPPARAMS params{};
        params.rgvarg = reversed.data();
        params.cArgs = static_cast<UINT>(reversed.size());
        Variant result;
        answers.push_back(sink.object->Invoke(event, GUID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params,
                                              result.put(), nullptr, nullptr));
    }
    return answers;
}

size_t EventSource::SinkCount(const GUID& id) const
{
    return static_cast<size_t>(std::ranges::count_if(state->sinks, [&](const Sink& sink) { return sink.id == id; }));
}

size_t EventSource::SinkCount() const
{
    return state->sinks.size();
}

} // namespace tv::fakes
