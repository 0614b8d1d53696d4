// The application's typed interfaces over calls by name. The application of a real run offers IDispatch alone; these
// adapters turn each typed call into a call by name, so that nothing of the application need be registered.
#pragma once

#include "com/com_ptr.h"
#include "interfaces/application.h"

namespace tv {

/// Finds a typed interface of an object of the application: its own, or else an adapter over its IDispatch. An object
/// whose members don't fit the interface has none (E_NOINTERFACE); the type of a document decides, too.
/// @{
Result AskApplication(IUnknown* object, ComPtr<ITorvane>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneFrame>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneDocument>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneDrawing>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneSheet>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneConfigurationManager>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneConfiguration>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneModelView>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneView>& found);
Result AskApplication(IUnknown* object, ComPtr<ITorvaneViewItem>& found);
/// @}

} // namespace tv
