// Values of the macro language as automation values and back.
#pragma once

#include "com/variant.h"
#include "macro/object.h"
#include "macro/value.h"

namespace tv::app {

/// Objects become the dispatch object that stands for them, arrays become arrays of variants. A kind that automation
/// doesn't have raises error 458.
Variant ToVariant(const macro::Value& value);

/// References are followed. Objects of this application become themselves again; those of other processes become
/// objects that call by name. A kind that the language doesn't have raises error 458.
macro::Value FromVariant(const VARIANT& value);

/// Writes a value back through a reference (VT_BYREF), converted to the kind of the variable.
void WriteBack(VARIANT& reference, const macro::Value& value);

} // namespace tv::app
