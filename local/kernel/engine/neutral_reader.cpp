#include "engine/neutral_reader.h"

#include "engine/failure.h"
#include "engine/file_checks.h"
#include "engine/mesh_shell.h"

#include <BRepBndLib.hxx>
#include <BRepBuilderAPI_MakeSolid.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepLib.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESControl_Reader.hxx>
#include <Interface_Check.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <RWStl.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <ShapeUpgrade_UnifySameDomain.hxx>
#include <StepData_StepModel.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <TopoDS_Shell.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <cctype>
#include <cmath>

namespace tv::kernel {

namespace {

namespace fs = std::filesystem;

/// Faces of an IGES file that lie closer than this belong together, but not in a model that is hardly larger than that.
constexpr double kSewingTolerance = 0.01;
constexpr double kSewingPartOfDiagonal = 1e-5;

[[noreturn]] void Unreadable(const fs::path& file, const char* kind)
{
    throw JobFailure(ErrorCode::Damaged,
                     "The file " + Quoted(file.string()) + " is damaged: it can't be read as " + kind + ".");
}

TopoDS_Shape FreeShapes(const Handle(XCAFDoc_ShapeTool) & shapes)
{
    TDF_LabelSequence labels;
    shapes->GetFreeShapes(labels);
    if (labels.Length() == 1) {
        return XCAFDoc_ShapeTool::GetShape(labels.First());
    }
    TopoDS_Compound all;
    BRep_Builder builder;
    builder.MakeCompound(all);
    for (const TDF_Label& label : labels) {
        builder.Add(all, XCAFDoc_ShapeTool::GetShape(label));
    }
    return all;
}

/// The reader skips what it doesn't understand and goes on with the rest, which is then a part with holes in it.
bool HasSyntaxErrors(STEPCAFControl_Reader& reader)
{
    return reader.ChangeReader().StepModel()->GlobalCheck(true)->HasFailed();
}

Model ReadStep(const fs::path& file)
{
    CheckStepFile(file);
    Model model;
    XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", model.exchangeDocument);
    STEPCAFControl_Reader reader;
    reader.SetNameMode(true);
    reader.SetColorMode(true);
    reader.SetLayerMode(true);
    // Parts in files of their own are found beside an absolute path only.
    const std::string path = fs::absolute(file).string();
    if (reader.ReadFile(path.c_str()) != IFSelect_RetDone || HasSyntaxErrors(reader) ||
        !reader.Transfer(model.exchangeDocument)) {
        Unreadable(file, "STEP");
    }
    model.root.shape = FreeShapes(XCAFDoc_DocumentTool::ShapeTool(model.exchangeDocument->Main()));
    return model;
}

bool HasSolid(const TopoDS_Shape& shape)
{
    return TopExp_Explorer(shape, TopAbs_SOLID).More();
}

/// A face that closes up by itself, such as a sphere, needs no sewing and so comes back without a shell.
TopoDS_Shape ShellOfOneFace(const TopoDS_Shape& sewed)
{
    if (sewed.IsNull() || sewed.ShapeType() != TopAbs_FACE) {
        return sewed;
    }
    TopoDS_Shell shell;
    BRep_Builder builder;
    builder.MakeShell(shell);
    builder.Add(shell, sewed);
    return BRep_Tool::IsClosed(shell) ? TopoDS_Shape(shell) : sewed;
}

double SewingTolerance(const TopoDS_Shape& faces)
{
    Bnd_Box box;
    BRepBndLib::Add(faces, box, false);
    return std::min(kSewingTolerance, kSewingPartOfDiagonal * std::sqrt(box.SquareExtent()));
}

/// Turns faces that close up into solids; faces that don't are given back as they came.
TopoDS_Shape SolidsFromFaces(const TopoDS_Shape& faces)
{
    BRepBuilderAPI_Sewing sewing(SewingTolerance(faces));
    sewing.Add(faces);
    sewing.Perform();
    const TopoDS_Shape sewed = ShellOfOneFace(sewing.SewedShape());
    if (sewed.IsNull() || sewing.NbFreeEdges() > 0 || !TopExp_Explorer(sewed, TopAbs_SHELL).More()) {
        return faces;
    }
    TopoDS_Compound solids;
    BRep_Builder builder;
    builder.MakeCompound(solids);
    for (TopExp_Explorer shell(sewed, TopAbs_SHELL); shell.More(); shell.Next()) {
        TopoDS_Solid solid = BRepBuilderAPI_MakeSolid(TopoDS::Shell(shell.Current()));
        BRepLib::OrientClosedSolid(solid);
        builder.Add(solids, solid);
    }
    return solids;
}

bool HoldsGroups(const TopoDS_Shape& shape)
{
    TopoDS_Iterator child(shape);
    while (child.More() && child.Value().ShapeType() != TopAbs_COMPOUND) {
        child.Next();
    }
    return shape.ShapeType() == TopAbs_COMPOUND && child.More();
}

/// Closes each group of faces by itself: parts of an assembly that touch each other must not grow together.
TopoDS_Shape SolidsFromGroups(const TopoDS_Shape& shape)
{
    if (!HoldsGroups(shape)) {
        return SolidsFromFaces(shape);
    }
    TopoDS_Compound solids;
    BRep_Builder builder;
    builder.MakeCompound(solids);
    for (TopoDS_Iterator child(shape); child.More(); child.Next()) {
        builder.Add(solids, SolidsFromGroups(child.Value()));
    }
    return HasSolid(solids) ? TopoDS_Shape(solids) : SolidsFromFaces(shape);
}

Model ReadIges(const fs::path& file)
{
    CheckIgesFile(file);
    IGESControl_Reader reader;
    if (reader.ReadFile(file.c_str()) != IFSelect_RetDone) {
        Unreadable(file, "IGES");
    }
    reader.TransferRoots();
    Model model;
    model.root.shape = reader.OneShape();
    if (!model.root.shape.IsNull() && !HasSolid(model.root.shape)) {
        model.root.shape = SolidsFromGroups(model.root.shape);
    }
    return model;
}

Model ReadStl(const fs::path& file)
{
    CheckStlFile(file);
    Model model;
    model.mesh = RWStl::ReadFile(file.c_str());
    if (model.mesh.IsNull()) {
        Unreadable(file, "STL");
    }
    if (model.mesh->NbTriangles() == 0) {
        throw JobFailure(ErrorCode::EmptyShape, "The file " + Quoted(file.string()) + " holds no triangles.");
    }
    TopoDS_Face face;
    BRep_Builder().MakeFace(face, model.mesh);
    model.root.shape = face;
    return model;
}

/// The text form has no end mark and no checksum: what was cut off shows as a shape that lacks its geometry.
bool IsWhole(const TopoDS_Shape& shape)
{
    return !shape.IsNull() && (shape.ShapeType() == TopAbs_COMPOUND || BRepCheck_Analyzer(shape, false).IsValid());
}

Model ReadBrep(const fs::path& file)
{
    CheckBrepFile(file);
    Model model;
    if (!BRepTools::Read(model.root.shape, file.c_str(), BRep_Builder()) || !IsWhole(model.root.shape)) {
        Unreadable(file, "BREP");
    }
    return model;
}

struct NeutralReader
{
    std::string_view extension;
    Model (*read)(const fs::path&);
};

constexpr NeutralReader kNeutralReaders[] = {
    {".step", ReadStep}, {".stp", ReadStep},  {".igs", ReadIges}, {".iges", ReadIges},
    {".stl", ReadStl},   {".brep", ReadBrep}, {".brp", ReadBrep},
};

const NeutralReader* FindReader(const fs::path& file)
{
    const auto found = std::ranges::find(kNeutralReaders, LowerExtension(file), &NeutralReader::extension);
    return found == std::end(kNeutralReaders) ? nullptr : &*found;
}

/// A shell that closes up, as a solid with its inside inside.
TopoDS_Shape SolidOfShell(const TopoDS_Shape& shape)
{
    if (shape.ShapeType() != TopAbs_SHELL || !BRep_Tool::IsClosed(shape)) {
        return shape;
    }
    TopoDS_Solid solid = BRepBuilderAPI_MakeSolid(TopoDS::Shell(shape));
    BRepLib::OrientClosedSolid(solid);
    return solid;
}

} // namespace

std::string LowerExtension(const fs::path& file)
{
    std::string extension = file.extension().string();
    std::ranges::transform(extension, extension.begin(), [](char letter) {
        return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    });
    return extension;
}

bool IsNeutralFile(const fs::path& file)
{
    return FindReader(file) != nullptr;
}

Model ReadNeutralFile(const fs::path& file)
{
    const NeutralReader* reader = FindReader(file);
    if (!reader) {
        throw JobFailure(ErrorCode::UnsupportedFormat, "The file " + Quoted(file.string()) +
                                                           " can't be opened: there is no reader for " +
                                                           Quoted(LowerExtension(file)) + ".");
    }
    PrepareExchange();
    Model model = reader->read(file);
    if (model.root.shape.IsNull() || (!TopExp_Explorer(model.root.shape, TopAbs_FACE).More() &&
                                      !TopExp_Explorer(model.root.shape, TopAbs_EDGE).More())) {
        throw JobFailure(ErrorCode::EmptyShape, "The file " + Quoted(file.string()) + " holds no shape.");
    }
    model.root.name = file.stem().string();
    model.configuration = "Default";
    return model;
}

TopoDS_Shape BoundaryShape(const Model& model)
{
    if (model.mesh.IsNull()) {
        return model.root.shape;
    }
    if (model.mesh->NbTriangles() > kMostFlatFaces) {
        throw JobFailure(ErrorCode::UnsuitableSource,
                         Quoted(model.root.name) + " is a mesh of " + std::to_string(model.mesh->NbTriangles()) +
                             " triangles; up to " + std::to_string(kMostFlatFaces) + " can be turned into faces.");
    }
    ShapeUpgrade_UnifySameDomain unify(SolidOfShell(ShellOfMesh(model.mesh)), true, true, false);
    unify.Build();
    return unify.Shape();
}

void PrepareExchange()
{
    // The library reports its progress on the standard output, which is not ours to fill.
    Message::DefaultMessenger()->ChangePrinters().Clear();
    STEPCAFControl_Controller::Init();
    IGESControl_Controller::Init();
}

} // namespace tv::kernel
