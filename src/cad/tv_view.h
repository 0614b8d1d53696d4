// CTVView: hears when one model view of a document is printed.
#pragma once

#include "cad/event_sink.h"
#include "interfaces/application.h"

namespace tv {

class CTVDocument;

class CTVView final : private EventHandler
{
  public:
    /// \param document borrowed; outlives the view
    CTVView(CTVDocument& document, ComPtr<IUnknown> modelView, uint16_t majorRevision);

    Result Connect();
    void Detach();
    bool IsDetached() const { return detached; }

  private:
    void OnEvent(int32_t event, std::span<const VARIANT> arguments) override;
    void OnPrinted();

    CTVDocument& owner;
    ComPtr<IUnknown> view;
    uint16_t majorRevision;
    bool detached = false;
    SinkConnection connection;
};

} // namespace tv
