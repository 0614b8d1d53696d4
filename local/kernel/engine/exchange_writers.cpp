#include "engine/neutral_reader.h"
#include "engine/writers.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepTools.hxx>
#include <IGESControl_Writer.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Writer.hxx>
#include <StepData_StepModel.hxx>
#include <TCollection_HAsciiString.hxx>
#include <TDataStd_Name.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XSControl_WorkSession.hxx>

#include <map>

namespace tv::kernel {

namespace {

void SetName(const TDF_Label& label, const std::string& name)
{
    TDataStd_Name::Set(label, TCollection_ExtendedString(name.c_str(), true));
}

/// Builds the exchange document of a model of ours: an assembly keeps its tree, and equal parts are stored once.
class ExchangeDocument
{
  public:
    ExchangeDocument()
    {
        XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", document);
        shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
    }

    Handle(TDocStd_Document) Build(const ModelNode& root)
    {
        Add(WithoutLocation(root));
        shapes->UpdateAssemblies();
        return document;
    }

  private:
    /// A place is a property of a component. A part that is nobody's component keeps its place in its geometry.
    static ModelNode WithoutLocation(const ModelNode& root)
    {
        const TopLoc_Location place = root.shape.Location();
        if (place.IsIdentity() || !root.children.empty()) {
            return root;
        }
        BRepBuilderAPI_Transform moved(root.shape.Located(TopLoc_Location()), place.Transformation(), true);
        return {root.name, moved.Shape(), {}};
    }

    TDF_Label Add(const ModelNode& node)
    {
        const auto known = labels.find(node.shape.TShape().get());
        if (known != labels.end()) {
            return known->second;
        }
        const TDF_Label label =
            node.children.empty() ? shapes->AddShape(node.shape.Located(TopLoc_Location()), false) : shapes->NewShape();
        SetName(label, node.name);
        for (const ModelNode& child : node.children) {
            SetName(shapes->AddComponent(label, Add(child), child.shape.Location()), child.name);
        }
        labels[node.shape.TShape().get()] = label;
        return label;
    }

    Handle(TDocStd_Document) document;
    Handle(XCAFDoc_ShapeTool) shapes;
    std::map<const TopoDS_TShape*, TDF_Label> labels;
};

int SchemaNumber(const Options& options)
{
    return options.Is("schema", "AP203") ? 3 : 4;
}

Handle(TCollection_HAsciiString) Ascii(const std::string& text)
{
    return new TCollection_HAsciiString(text.c_str());
}

/// The writer would put the temporary file's name into the header.
void SetStepFileName(STEPCAFControl_Writer& writer, const std::string& name)
{
    APIHeaderSection_MakeHeader header(writer.ChangeWriter().Model());
    header.SetName(Ascii(name));
    header.SetOriginatingSystem(Ascii("Torvane"));
}

ModelNode ExchangeNode(const Model& model)
{
    ModelNode node = model.root;
    node.shape = BoundaryShape(model);
    return node;
}

} // namespace

void WriteStep(const Model& model, const Options& options, const WriteTarget& target)
{
    PrepareExchange();
    Interface_Static::SetCVal("write.step.unit", "MM");
    // The schema is read when a writer is made, and has no effect on one that exists.
    Interface_Static::SetIVal("write.step.schema", SchemaNumber(options));
    STEPCAFControl_Writer writer;
    writer.SetNameMode(true);
    const Handle(TDocStd_Document) document =
        model.exchangeDocument.IsNull() ? ExchangeDocument().Build(ExchangeNode(model)) : model.exchangeDocument;
    if (!writer.Transfer(document, STEPControl_AsIs)) {
        FailToWrite(target, "the shape has no form in STEP");
    }
    SetStepFileName(writer, target.finalName);
    if (writer.Write(target.file.c_str()) != IFSelect_RetDone) {
        FailToWrite(target, "the disk took no more");
    }
}

void WriteIges(const Model& model, const Options& options, const WriteTarget& target)
{
    PrepareExchange();
    IGESControl_Writer writer("MM", options.Is("representation", "solids") ? 1 : 0);
    if (!writer.AddShape(BoundaryShape(model))) {
        FailToWrite(target, "the shape has no form in IGES");
    }
    writer.ComputeModel();
    IGESData_GlobalSection header = writer.Model()->GlobalSection();
    header.SetFileName(Ascii(target.finalName));
    writer.Model()->SetGlobalSection(header);
    if (!writer.Write(target.file.c_str())) {
        FailToWrite(target, "the disk took no more");
    }
}

void WriteBrep(const Model& model, const Options&, const WriteTarget& target)
{
    if (!BRepTools::Write(BoundaryShape(model), target.file.c_str())) {
        FailToWrite(target, "the disk took no more");
    }
}

} // namespace tv::kernel
