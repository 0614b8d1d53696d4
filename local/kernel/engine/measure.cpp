#include "engine/measure.h"

#include "engine/failure.h"
#include "engine/triangles.h"

#include <BRepBndLib.hxx>
#include <BRepGProp.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <TopExp_Explorer.hxx>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tv::kernel {

namespace {

/// Counts each occurrence: a part that stands twice in an assembly counts twice, as its volume does.
int Count(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind)
{
    int count = 0;
    for (TopExp_Explorer found(shape, kind); found.More(); found.Next()) {
        count++;
    }
    return count;
}

double VolumeOfSolids(const TopoDS_Shape& shape)
{
    double volume = 0;
    for (TopExp_Explorer solids(shape, TopAbs_SOLID); solids.More(); solids.Next()) {
        GProp_GProps properties;
        BRepGProp::VolumeProperties(solids.Current(), properties);
        volume += properties.Mass();
    }
    return volume;
}

void MeasureShape(const TopoDS_Shape& shape, Inspection& inspection)
{
    GProp_GProps surface;
    BRepGProp::SurfaceProperties(shape, surface);
    inspection.area = surface.Mass();
    inspection.volume = VolumeOfSolids(shape);
    Bnd_Box box;
    BRepBndLib::AddOptimal(shape, box, false, false);
    if (box.IsVoid()) {
        throw JobFailure(ErrorCode::EmptyShape, "The model has no extent.");
    }
    auto& [low, high] = inspection.box;
    box.Get(low[0], low[1], low[2], high[0], high[1], high[2]);
    inspection.solids = Count(shape, TopAbs_SOLID);
    inspection.faces = Count(shape, TopAbs_FACE);
}

double AreaOf(const Triangle& triangle)
{
    const auto& [a, b, c] = triangle.corners;
    const double u[] = {b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const double v[] = {c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    return std::hypot(u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]) / 2;
}

void MeasureMesh(const Model& model, Inspection& inspection)
{
    const std::vector<Triangle> triangles = TrianglesOf(model, MeshQuality::Coarse).front().triangles;
    inspection.triangles = static_cast<int>(triangles.size());
    inspection.volume = EnclosedVolume(triangles);
    inspection.box.low.fill(std::numeric_limits<double>::max());
    inspection.box.high.fill(std::numeric_limits<double>::lowest());
    for (const Triangle& triangle : triangles) {
        inspection.area += AreaOf(triangle);
        for (const auto& corner : triangle.corners) {
            for (size_t axis = 0; axis < 3; axis++) {
                inspection.box.low[axis] = std::min(inspection.box.low[axis], corner[axis]);
                inspection.box.high[axis] = std::max(inspection.box.high[axis], corner[axis]);
            }
        }
    }
}

} // namespace

void Measure(const Model& model, Inspection& inspection)
{
    if (model.mesh.IsNull()) {
        MeasureShape(model.root.shape, inspection);
    } else {
        MeasureMesh(model, inspection);
    }
}

} // namespace tv::kernel
