#pragma once

#include <Poly_Triangulation.hxx>
#include <TopoDS_Shape.hxx>

namespace tv::kernel {

/// Beyond this a boundary of flat faces is of no use to anyone who receives it, and takes minutes to write.
inline constexpr int kMostFlatFaces = 20'000;

/// Makes one flat face of each triangle; triangles that share a side share an edge.
TopoDS_Shape ShellOfMesh(const Handle(Poly_Triangulation) & mesh);

} // namespace tv::kernel
