// The application's event interfaces, as far as this program takes them, and the control ids of their sinks.
#pragma once

#include "cad/event_sink.h"
#include "interfaces/application.h"

namespace tv {

inline constexpr EventDescription kApplicationEventList[] = {
    {kEventDocumentOpened, 0},
    {kEventDocumentActivated, 0},
    {kEventDocumentLoaded, 0},
};
inline constexpr EventDescription kDocumentEventList[] = {
    {kEventDocumentWritten, 1},
    {kEventDocumentGone, 0},
};
inline constexpr EventDescription kModelViewEventList[] = {
    {kEventPrinted, 0},
};

inline constexpr EventInterface kApplicationEvents{kInterfaceId<DTorvaneEvents>, 0, kApplicationEventList};
inline constexpr EventInterface kModelViewEvents{kInterfaceId<DModelViewEvents>, 4, kModelViewEventList};

/// The event interface of each kind of document.
struct DocumentKind
{
    int32_t type;
    EventInterface events;
};

inline constexpr DocumentKind kDocumentKinds[] = {
    {1, {kInterfaceId<DPartDocEvents>, 1, kDocumentEventList}},
    {2, {kInterfaceId<DAssemblyDocEvents>, 2, kDocumentEventList}},
    {3, {kInterfaceId<DDrawingDocEvents>, 3, kDocumentEventList}},
};

} // namespace tv
