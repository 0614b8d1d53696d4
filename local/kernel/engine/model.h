// What a job works on once its source is loaded.
#pragma once

#include <Poly_Triangulation.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_Shape.hxx>

#include <string>
#include <vector>

namespace tv::kernel {

/// A part, or an assembly with its children. Shapes carry their place.
struct ModelNode
{
    std::string name;
    TopoDS_Shape shape;
    std::vector<ModelNode> children;
};

struct Model
{
    ModelNode root;
    std::string configuration;

    /// Names, colours and structure as the file had them; null for anything but STEP.
    Handle(TDocStd_Document) exchangeDocument;

    /// The triangles of an STL file, which has no faces or edges; null otherwise.
    Handle(Poly_Triangulation) mesh;
};

} // namespace tv::kernel
