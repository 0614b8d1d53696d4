// What a document's numbers must obey to make a shape.
#pragma once

#include "document/model.h"

namespace tv::document {

/// Whether the axis has a direction, and the reference one that isn't the axis' own.
bool IsUsable(const Placement& placement);

/// The complaint about a polygon; empty when it bounds one area without touching itself.
std::string PolygonFault(const std::vector<Point2>& polygon);

} // namespace tv::document
