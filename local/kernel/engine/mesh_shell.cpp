#include "engine/mesh_shell.h"

#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeWire.hxx>
#include <BRep_Builder.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Vertex.hxx>
#include <TopoDS_Wire.hxx>
#include <gp_Pln.hxx>

#include <array>
#include <map>
#include <utility>

namespace tv::kernel {

namespace {

using Corner = std::array<double, 3>;

constexpr double kTolerance = 1e-7;

/// Knows each corner and each side that was made. An STL file repeats its corners in every triangle; sharing them here
/// costs a moment, where searching for sides that lie together costs minutes.
class ShellMaker
{
  public:
    explicit ShellMaker(const Handle(Poly_Triangulation) & given) : mesh(given) { builder.MakeShell(shell); }

    TopoDS_Shape Make()
    {
        for (int i = 1; i <= mesh->NbTriangles(); i++) {
            AddTriangle(mesh->Triangle(i));
        }
        shell.Closed(BRep_Tool::IsClosed(shell));
        return shell;
    }

  private:
    void AddTriangle(const Poly_Triangle& triangle)
    {
        const gp_Pnt a = mesh->Node(triangle(1));
        const gp_Pnt b = mesh->Node(triangle(2));
        const gp_Pnt c = mesh->Node(triangle(3));
        const gp_Vec normal = gp_Vec(a, b).Crossed(gp_Vec(a, c));
        if (normal.Magnitude() < kTolerance * kTolerance || a.IsEqual(b, kTolerance) || b.IsEqual(c, kTolerance) ||
            c.IsEqual(a, kTolerance)) {
            return;
        }
        BRepBuilderAPI_MakeWire outline(Side(a, b), Side(b, c), Side(c, a));
        if (!outline.IsDone()) {
            return;
        }
        BRepBuilderAPI_MakeFace face(gp_Pln(a, gp_Dir(normal)), outline.Wire(), true);
        if (face.IsDone()) {
            builder.Add(shell, face.Face());
        }
    }

    TopoDS_Edge Side(const gp_Pnt& from, const gp_Pnt& to)
    {
        const Corner first = KeyOf(from);
        const Corner last = KeyOf(to);
        if (const auto opposite = sides.find({last, first}); opposite != sides.end()) {
            return TopoDS::Edge(opposite->second.Reversed());
        }
        TopoDS_Edge& side = sides[{first, last}];
        if (side.IsNull()) {
            side = BRepBuilderAPI_MakeEdge(VertexAt(from), VertexAt(to));
        }
        return side;
    }

    const TopoDS_Vertex& VertexAt(const gp_Pnt& point)
    {
        TopoDS_Vertex& vertex = vertices[KeyOf(point)];
        if (vertex.IsNull()) {
            builder.MakeVertex(vertex, point, kTolerance);
        }
        return vertex;
    }

    static Corner KeyOf(const gp_Pnt& point) { return {point.X(), point.Y(), point.Z()}; }

    Handle(Poly_Triangulation) mesh;
    BRep_Builder builder;
    TopoDS_Shell shell;
    std::map<Corner, TopoDS_Vertex> vertices;
    std::map<std::pair<Corner, Corner>, TopoDS_Edge> sides;
};

} // namespace

TopoDS_Shape ShellOfMesh(const Handle(Poly_Triangulation) & mesh)
{
    return ShellMaker(mesh).Make();
}

} // namespace tv::kernel
