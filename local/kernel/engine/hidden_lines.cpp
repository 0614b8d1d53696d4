#include "engine/hidden_lines.h"

#include "engine/failure.h"

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepBndLib.hxx>
#include <BRepLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Builder.hxx>
#include <Bnd_Box.hxx>
#include <GCPnts_TangentialDeflection.hxx>
#include <HLRAlgo_Projector.hxx>
#include <HLRBRep_Algo.hxx>
#include <HLRBRep_HLRToShape.hxx>
#include <HLRBRep_PolyAlgo.hxx>
#include <HLRBRep_PolyHLRToShape.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Face.hxx>
#include <gp_Ax2.hxx>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tv::kernel {

namespace {

using document::Projection;

/// The exact algorithm's time grows with the square of the faces, and with free-form faces ten times as fast.
constexpr int kMostWorkForExact = 200;
constexpr int kWorkOfFreeFormFace = 10;

struct Direction
{
    Projection projection;
    double towardsViewer[3];
    double right[3];
};

/// Third-angle conventions: the front is seen from -y, with z up.
constexpr Direction kDirections[] = {
    {Projection::Front, {0, -1, 0}, {1, 0, 0}},     {Projection::Back, {0, 1, 0}, {-1, 0, 0}},
    {Projection::Left, {-1, 0, 0}, {0, -1, 0}},     {Projection::Right, {1, 0, 0}, {0, 1, 0}},
    {Projection::Top, {0, 0, 1}, {1, 0, 0}},        {Projection::Bottom, {0, 0, -1}, {1, 0, 0}},
    {Projection::Isometric, {1, -1, 1}, {1, 1, 0}},
};

gp_Ax2 AxesOf(Projection projection)
{
    const auto& [name, towards, right] = *std::ranges::find(kDirections, projection, &Direction::projection);
    return gp_Ax2(gp_Pnt(0, 0, 0), gp_Dir(towards[0], towards[1], towards[2]), gp_Dir(right[0], right[1], right[2]));
}

double DiagonalOf(const TopoDS_Shape& shape)
{
    Bnd_Box box;
    BRepBndLib::Add(shape, box, false);
    return box.IsVoid() ? 0 : std::sqrt(box.SquareExtent());
}

int WorkOf(const TopoDS_Shape& shape)
{
    int work = 0;
    for (TopExp_Explorer faces(shape, TopAbs_FACE); faces.More(); faces.Next()) {
        const GeomAbs_SurfaceType type = BRepAdaptor_Surface(TopoDS::Face(faces.Current()), false).GetType();
        work += type <= GeomAbs_Torus ? 1 : kWorkOfFreeFormFace;
    }
    return work;
}

/// Annotation and construction curves of a file, which cover nothing, upset the polygonal algorithm.
TopoDS_Shape SurfacesOnly(const TopoDS_Shape& shape)
{
    TopoDS_Compound surfaces;
    BRep_Builder builder;
    builder.MakeCompound(surfaces);
    for (TopExp_Explorer solids(shape, TopAbs_SOLID); solids.More(); solids.Next()) {
        builder.Add(surfaces, solids.Current());
    }
    for (TopExp_Explorer shells(shape, TopAbs_SHELL, TopAbs_SOLID); shells.More(); shells.Next()) {
        builder.Add(surfaces, shells.Current());
    }
    for (TopExp_Explorer faces(shape, TopAbs_FACE, TopAbs_SHELL); faces.More(); faces.Next()) {
        builder.Add(surfaces, faces.Current());
    }
    return surfaces;
}

Polyline PointsOf(const TopoDS_Edge& edge, double deflection)
{
    const BRepAdaptor_Curve curve(edge);
    const double first = curve.FirstParameter();
    const double last = curve.LastParameter();
    Polyline points;
    if (curve.GetType() == GeomAbs_Line) {
        for (const double parameter : {first, last}) {
            const gp_Pnt point = curve.Value(parameter);
            points.push_back({point.X(), point.Y()});
        }
        return points;
    }
    const GCPnts_TangentialDeflection along(curve, first, last, 0.1, deflection);
    for (int i = 1; i <= along.NbPoints(); i++) {
        const gp_Pnt point = along.Value(i);
        points.push_back({point.X(), point.Y()});
    }
    return points;
}

void AddEdges(const TopoDS_Shape& edges, double deflection, std::vector<Polyline>& lines)
{
    if (edges.IsNull()) {
        return;
    }
    BRepLib::BuildCurves3d(edges);
    for (TopExp_Explorer edge(edges, TopAbs_EDGE); edge.More(); edge.Next()) {
        Polyline points = PointsOf(TopoDS::Edge(edge.Current()), deflection);
        if (points.size() > 1) {
            lines.push_back(std::move(points));
        }
    }
}

template <class Result> Projected Collect(Result& result, double deflection)
{
    Projected projected;
    AddEdges(result.VCompound(), deflection, projected.visible);
    AddEdges(result.OutLineVCompound(), deflection, projected.visible);
    AddEdges(result.Rg1LineVCompound(), deflection, projected.smooth);
    AddEdges(result.HCompound(), deflection, projected.hidden);
    AddEdges(result.OutLineHCompound(), deflection, projected.hidden);
    return projected;
}

Projected ProjectExactly(const TopoDS_Shape& shape, const HLRAlgo_Projector& projector, double deflection)
{
    const Handle(HLRBRep_Algo) algorithm = new HLRBRep_Algo;
    algorithm->Add(shape);
    algorithm->Projector(projector);
    algorithm->Update();
    algorithm->Hide();
    HLRBRep_HLRToShape result(algorithm);
    return Collect(result, deflection);
}

Projected ProjectTriangles(const TopoDS_Shape& shape, const HLRAlgo_Projector& projector, double deflection)
{
    BRepMesh_IncrementalMesh(shape, deflection * 2, false, 0.35, false);
    const Handle(HLRBRep_PolyAlgo) algorithm = new HLRBRep_PolyAlgo;
    algorithm->Load(shape);
    algorithm->Projector(projector);
    algorithm->Update();
    HLRBRep_PolyHLRToShape result;
    result.Update(algorithm);
    return Collect(result, deflection);
}

void FindLimits(Projected& projected)
{
    projected.low.fill(std::numeric_limits<double>::max());
    projected.high.fill(std::numeric_limits<double>::lowest());
    for (const auto* lines : {&projected.visible, &projected.smooth, &projected.hidden}) {
        for (const Polyline& line : *lines) {
            for (const PagePoint& point : line) {
                for (size_t axis = 0; axis < 2; axis++) {
                    projected.low[axis] = std::min(projected.low[axis], point[axis]);
                    projected.high[axis] = std::max(projected.high[axis], point[axis]);
                }
            }
        }
    }
    if (projected.low[0] > projected.high[0]) {
        projected.low = {0, 0};
        projected.high = {0, 0};
    }
}

} // namespace

Projected Project(const TopoDS_Shape& shape, Projection projection, Exactness exactness)
{
    const TopoDS_Shape surfaces = SurfacesOnly(shape);
    const double deflection = std::max(1e-4, DiagonalOf(surfaces) * 0.0005);
    const bool exact =
        exactness == Exactness::Exact || (exactness == Exactness::Automatic && WorkOf(surfaces) <= kMostWorkForExact);
    const HLRAlgo_Projector projector(AxesOf(projection));
    Projected projected =
        exact ? ProjectExactly(surfaces, projector, deflection) : ProjectTriangles(surfaces, projector, deflection);
    FindLimits(projected);
    return projected;
}

} // namespace tv::kernel
