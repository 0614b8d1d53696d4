#include "engine/triangles.h"

#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace tv::kernel {

namespace {

struct MeshTolerance
{
    double partOfDiagonal;
    double angle; // radians between neighbouring triangles
};

constexpr MeshTolerance kCoarse{0.001, 0.5};
constexpr MeshTolerance kFine{0.0002, 0.15};

std::array<double, 3> Coordinates(const gp_Pnt& point)
{
    return {point.X(), point.Y(), point.Z()};
}

void AddMesh(const Handle(Poly_Triangulation) & mesh, const gp_Trsf& place, bool reversed,
             std::vector<Triangle>& triangles)
{
    for (int i = 1; i <= mesh->NbTriangles(); i++) {
        int a = 0;
        int b = 0;
        int c = 0;
        mesh->Triangle(i).Get(a, b, c);
        if (reversed) {
            std::swap(b, c);
        }
        triangles.push_back(
            {{Coordinates(mesh->Node(a).Transformed(place)), Coordinates(mesh->Node(b).Transformed(place)),
              Coordinates(mesh->Node(c).Transformed(place))}});
    }
}

std::vector<Triangle> TrianglesOfMeshedShape(const TopoDS_Shape& shape)
{
    std::vector<Triangle> triangles;
    for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
        TopLoc_Location location;
        const TopoDS_Face& face = TopoDS::Face(faces.Current());
        const Handle(Poly_Triangulation) mesh = BRep_Tool::Triangulation(face, location);
        if (!mesh.IsNull()) {
            const gp_Trsf place = location.Transformation();
            AddMesh(mesh, place, (face.Orientation() == TopAbs_REVERSED) != place.IsNegative(), triangles);
        }
    }
    return triangles;
}

/// A child's shape stands in its parent's coordinates, and the parent's own place comes on top.
void AddNode(const ModelNode& node, const TopLoc_Location& parent, std::vector<TriangleSet>& sets)
{
    if (node.children.empty()) {
        sets.push_back({node.name, TrianglesOfMeshedShape(node.shape.Moved(parent))});
        return;
    }
    for (const ModelNode& child : node.children) {
        AddNode(child, parent * node.shape.Location(), sets);
    }
}

using Corner = std::array<double, 3>;

bool IsClosed(const std::vector<Triangle>& triangles)
{
    // Each side must be met by its opposite: as many times from a to b as from b to a.
    std::map<std::pair<Corner, Corner>, int> sides;
    for (const Triangle& triangle : triangles) {
        for (size_t i = 0; i < 3; i++) {
            const Corner& a = triangle.corners[i];
            const Corner& b = triangle.corners[(i + 1) % 3];
            sides[std::minmax(a, b)] += a < b ? 1 : -1;
        }
    }
    return std::ranges::all_of(sides, [](const auto& side) { return side.second == 0; });
}

} // namespace

std::vector<TriangleSet> TrianglesOf(const Model& model, MeshQuality quality)
{
    if (!model.mesh.IsNull()) {
        TriangleSet set{model.root.name, {}};
        AddMesh(model.mesh, gp_Trsf(), false, set.triangles);
        return {set};
    }
    Bnd_Box box;
    BRepBndLib::Add(model.root.shape, box, false);
    const MeshTolerance& tolerance = quality == MeshQuality::Fine ? kFine : kCoarse;
    const double deflection = std::max(1e-4, std::sqrt(box.SquareExtent()) * tolerance.partOfDiagonal);
    BRepMesh_IncrementalMesh(model.root.shape, deflection, false, tolerance.angle, false);
    std::vector<TriangleSet> sets;
    AddNode(model.root, TopLoc_Location(), sets);
    return sets;
}

double EnclosedVolume(const std::vector<Triangle>& triangles)
{
    if (!IsClosed(triangles)) {
        return 0;
    }
    double sixfold = 0;
    for (const auto& [corners] : triangles) {
        const auto& [a, b, c] = corners;
        sixfold += a[0] * (b[1] * c[2] - b[2] * c[1]) + a[1] * (b[2] * c[0] - b[0] * c[2]) +
                   a[2] * (b[0] * c[1] - b[1] * c[0]);
    }
    return std::abs(sixfold) / 6;
}

} // namespace tv::kernel
