#include "engine/neutral_reader.h"

#include "engine/failure.h"
#include "engine/file_checks.h"

#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakePolygon.hxx>
#include <BRepBuilderAPI_MakeSolid.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepCheck_Analyzer.hxx>
#include <BRepLib.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESControl_Reader.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <RWStl.hxx>
#include <STEPCAFControl_Controller.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <ShapeUpgrade_UnifySameDomain.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <cctype>

namespace tv::kernel {

namespace {

namespace fs = std::filesystem;

/// Faces of an IGES file that lie closer than this belong together. Writers of such files round to a micrometre or so.
constexpr double kSewingTolerance = 0.01;

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
    if (reader.ReadFile(path.c_str()) != IFSelect_RetDone || !reader.Transfer(model.exchangeDocument)) {
        Unreadable(file, "STEP");
    }
    model.root.shape = FreeShapes(XCAFDoc_DocumentTool::ShapeTool(model.exchangeDocument->Main()));
    return model;
}

bool HasSolid(const TopoDS_Shape& shape)
{
    return TopExp_Explorer(shape, TopAbs_SOLID).More();
}

/// Turns faces that close up into solids; faces that don't are given back as they came.
TopoDS_Shape SolidsFromFaces(const TopoDS_Shape& faces)
{
    BRepBuilderAPI_Sewing sewing(kSewingTolerance);
    sewing.Add(faces);
    sewing.Perform();
    const TopoDS_Shape sewed = sewing.SewedShape();
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
        model.root.shape = SolidsFromFaces(model.root.shape);
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
    {".step", ReadStep}, {".stp", ReadStep}, {".igs", ReadIges},   {".iges", ReadIges},
    {".stl", ReadStl},   {".brep", ReadBrep}, {".brp", ReadBrep},
};

const NeutralReader* FindReader(const fs::path& file)
{
    const auto found = std::ranges::find(kNeutralReaders, LowerExtension(file), &NeutralReader::extension);
    return found == std::end(kNeutralReaders) ? nullptr : &*found;
}

TopoDS_Shape FacesOf(const Handle(Poly_Triangulation) & mesh)
{
    BRepBuilderAPI_Sewing sewing(1e-6);
    for (int i = 1; i <= mesh->NbTriangles(); i++) {
        const Poly_Triangle triangle = mesh->Triangle(i);
        BRepBuilderAPI_MakePolygon outline(mesh->Node(triangle(1)), mesh->Node(triangle(2)), mesh->Node(triangle(3)),
                                           true);
        if (!outline.IsDone()) {
            continue;
        }
        BRepBuilderAPI_MakeFace face(outline.Wire(), true);
        if (face.IsDone()) {
            sewing.Add(face.Face());
        }
    }
    sewing.Perform();
    return sewing.SewedShape();
}

} // namespace

std::string LowerExtension(const fs::path& file)
{
    std::string extension = file.extension().string();
    std::ranges::transform(extension, extension.begin(),
                           [](char letter) { return static_cast<char>(std::tolower(static_cast<unsigned char>(letter))); });
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
    const TopoDS_Shape sewed = FacesOf(model.mesh);
    ShapeUpgrade_UnifySameDomain unify(sewed, true, true, false);
    unify.Build();
    return SolidsFromFaces(unify.Shape());
}

void PrepareExchange()
{
    // The library reports its progress on the standard output, which is not ours to fill.
    Message::DefaultMessenger()->ChangePrinters().Clear();
    STEPCAFControl_Controller::Init();
    IGESControl_Controller::Init();
}

} // namespace tv::kernel
