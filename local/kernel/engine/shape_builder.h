// Makes the shape of a part from its features.
#pragma once

#include "document/model.h"

#include <TopoDS_Shape.hxx>
#include <gp_Trsf.hxx>

#include <functional>
#include <string>

namespace tv::kernel {

/// Gives the shape of an imported file, in its own coordinates.
using ImportShape = std::function<TopoDS_Shape(const std::string& file)>;

/// Applies the features in their order.
///
/// \param owner  names the part and the configuration in errors
TopoDS_Shape BuildShape(const document::PartConfiguration& configuration, const ImportShape& import,
                        const std::string& owner);

/// The move from the origin to the place.
gp_Trsf MoveTo(const document::Placement& placement);

} // namespace tv::kernel
