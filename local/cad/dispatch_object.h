// The one adapter between the application's objects and automation: any object of the macro language as an IDispatch,
// with its events as connection points.
#pragma once

#include "com/com_ptr.h"
#include "macro/object.h"

namespace tv::app {

/// The automation object that stands for an object of the macro language. As long as somebody holds it, the same object
/// is given again, so that identities can be compared.
ComPtr<IDispatch> DispatchFor(const macro::Ref<macro::Object>& object);

/// The object behind an automation object of this process; null when it is none of ours.
macro::Ref<macro::Object> ObjectBehind(IUnknown* dispatch);

/// Number of automation objects that are alive.
size_t DispatchObjectCount();

} // namespace tv::app
