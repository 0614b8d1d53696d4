// Projects a shape and tells the edges that are seen from those that are covered.
#pragma once

#include "document/model.h"
#include "engine/page.h"

#include <TopoDS_Shape.hxx>

namespace tv::kernel {

/// The edges of one look at a shape, in millimetres of the model, x to the right and y up.
struct Projected
{
    std::vector<Polyline> visible;
    std::vector<Polyline> smooth;
    std::vector<Polyline> hidden;
    PagePoint low{};
    PagePoint high{};

    double width() const { return high[0] - low[0]; }
    double height() const { return high[1] - low[1]; }
};

enum class Exactness
{
    Automatic, // exact where that takes seconds at most
    Exact,     // along the true curves
    Fast,      // along the triangles of a mesh
};

Projected Project(const TopoDS_Shape& shape, document::Projection projection, Exactness exactness);

} // namespace tv::kernel
