#include "cad/tv_view.h"

#include "cad/event_interfaces.h"
#include "cad/tv_document.h"

namespace tv {

CTVView::CTVView(CTVDocument& document, ComPtr<IUnknown> modelView, uint16_t revision)
    : owner(document), view(std::move(modelView)), majorRevision(revision)
{
}

Result CTVView::Connect()
{
    return connection.Connect(view.get(), kModelViewEvents, *this, majorRevision);
}

void CTVView::Detach()
{
    connection.Disconnect();
    view.reset();
    detached = true;
}

void CTVView::OnEvent(int32_t, std::span<const VARIANT>)
{
    OnPrinted();
}

void CTVView::OnPrinted()
{
    owner.RecordPrinted();
}

} // namespace tv
