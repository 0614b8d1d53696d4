#include "engine/shape_builder.h"

#include "engine/failure.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepAlgoAPI_Fuse.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakePrism.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRep_Builder.hxx>
#include <ShapeUpgrade_UnifySameDomain.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <gp_Ax3.hxx>

namespace tv::kernel {

namespace {

using namespace document;

/// Makes the shape of one feature at the origin.
struct SolidMaker
{
    const ImportShape& import;

    TopoDS_Shape operator()(const Block& block) const
    {
        return BRepPrimAPI_MakeBox(block.size[0], block.size[1], block.size[2]).Shape();
    }
    TopoDS_Shape operator()(const Cylinder& cylinder) const
    {
        return BRepPrimAPI_MakeCylinder(cylinder.radius, cylinder.height).Shape();
    }
    TopoDS_Shape operator()(const Cone& cone) const
    {
        return BRepPrimAPI_MakeCone(cone.bottomRadius, cone.topRadius, cone.height).Shape();
    }
    TopoDS_Shape operator()(const Sphere& sphere) const { return BRepPrimAPI_MakeSphere(sphere.radius).Shape(); }
    TopoDS_Shape operator()(const Extrusion& extrusion) const
    {
        BRepBuilderAPI_MakePolygon outline;
        for (const Point2& point : extrusion.polygon) {
            outline.Add(gp_Pnt(point[0], point[1], 0));
        }
        outline.Close();
        const TopoDS_Face face = BRepBuilderAPI_MakeFace(outline.Wire(), true);
        return BRepPrimAPI_MakePrism(face, gp_Vec(0, 0, extrusion.height)).Shape();
    }
    TopoDS_Shape operator()(const Import& file) const { return import(file.file); }
};

bool HasSolid(const TopoDS_Shape& shape)
{
    return TopExp_Explorer(shape, TopAbs_SOLID).More();
}

TopoDS_Shape Together(const TopoDS_Shape& first, const TopoDS_Shape& second)
{
    TopoDS_Compound both;
    BRep_Builder builder;
    builder.MakeCompound(both);
    builder.Add(both, first);
    builder.Add(both, second);
    return both;
}

template <class Algorithm>
TopoDS_Shape Combine(const TopoDS_Shape& shape, const TopoDS_Shape& tool, const std::string& what)
{
    Algorithm algorithm(shape, tool);
    if (!algorithm.IsDone() || algorithm.HasErrors()) {
        throw JobFailure(ErrorCode::Failed, what + " can't be combined with what stands before it.");
    }
    return algorithm.Shape();
}

TopoDS_Shape Apply(const TopoDS_Shape& shape, const TopoDS_Shape& tool, Operation operation, const std::string& what)
{
    const bool solids = HasSolid(shape) && HasSolid(tool);
    if (operation == Operation::Join) {
        // Loose faces of an imported file have no inside that could be joined: they stand beside the rest.
        return solids ? Combine<BRepAlgoAPI_Fuse>(shape, tool, what) : Together(shape, tool);
    }
    if (!solids) {
        throw JobFailure(ErrorCode::Failed, what + " can't be cut: only solids can, and there are loose faces.");
    }
    return Combine<BRepAlgoAPI_Cut>(shape, tool, what);
}

/// Joining leaves seams across faces that are one; and a compound round a single solid.
TopoDS_Shape Tidy(const TopoDS_Shape& shape)
{
    ShapeUpgrade_UnifySameDomain unify(shape, true, true, false);
    unify.Build();
    const TopoDS_Shape tidy = unify.Shape();
    if (tidy.ShapeType() == TopAbs_COMPOUND) {
        TopoDS_Iterator child(tidy);
        if (child.More()) {
            const TopoDS_Shape only = child.Value();
            child.Next();
            return child.More() ? tidy : only;
        }
    }
    return tidy;
}

std::string Describe(const Feature& feature, size_t index, const std::string& owner)
{
    const std::string name = feature.name.empty() ? "number " + std::to_string(index + 1) : Quoted(feature.name);
    return owner + ": the feature " + name;
}

} // namespace

gp_Trsf MoveTo(const Placement& placement)
{
    const auto& [origin, axis, reference] = placement;
    const gp_Ax3 there(gp_Pnt(origin[0], origin[1], origin[2]), gp_Dir(axis[0], axis[1], axis[2]),
                       gp_Dir(reference[0], reference[1], reference[2]));
    gp_Trsf move;
    move.SetTransformation(there, gp_Ax3());
    return move;
}

TopoDS_Shape BuildShape(const PartConfiguration& configuration, const ImportShape& import, const std::string& owner)
{
    TopoDS_Shape shape;
    for (size_t i = 0; i < configuration.features.size(); i++) {
        const Feature& feature = configuration.features[i];
        const TopoDS_Shape made = std::visit(SolidMaker{import}, feature.solid);
        const TopoDS_Shape placed = made.Moved(TopLoc_Location(MoveTo(feature.placement)));
        shape = shape.IsNull() ? placed : Apply(shape, placed, feature.operation, Describe(feature, i, owner));
    }
    if (configuration.features.size() > 1) {
        shape = Tidy(shape);
    }
    if (!TopExp_Explorer(shape, TopAbs_FACE).More()) {
        throw JobFailure(ErrorCode::EmptyShape, owner + ": nothing is left of the part; the cuts remove all of it.");
    }
    return shape;
}

} // namespace tv::kernel
