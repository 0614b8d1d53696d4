#include "document/document_io.h"

#include <gtest/gtest.h>

namespace {

using namespace tv::document;

std::string PartWith(const std::string& features)
{
    return R"({"format": "torvane-part", "version": 1, "units": "mm",
               "configurations": [{"name": "Default", "features": [)" +
           features + "]}]}";
}

std::string AssemblyWith(const std::string& components, const std::string& more = "")
{
    return R"({"format": "torvane-assembly", "version": 1, "components": [)" + components + "]" + more + "}";
}

std::string DrawingWith(const std::string& sheet)
{
    return R"({"format": "torvane-drawing", "version": 1, "sheets": [)" + sheet + "]}";
}

/// What is said about a text that must not be read.
std::string Complaint(const std::string& text, const std::string& fileName = "a.json")
{
    try {
        ReadDocument(text, fileName);
    } catch (const DocumentError& error) {
        return error.what();
    }
    return "nothing";
}

Fault FaultOf(const std::string& text)
{
    try {
        ReadDocument(text, "a.json");
    } catch (const DocumentError& error) {
        return error.fault();
    }
    throw std::logic_error("the text was read");
}

TEST(DocumentReader, ReadsEachKindOfFeature)
{
    const Document document = ReadDocument(PartWith(R"(
        {"name": "Plate", "type": "box", "size": [10, 20, 30]},
        {"type": "cylinder", "radius": 2, "height": 3, "operation": "cut",
         "placement": {"origin": [1, 2, 3], "axis": [0, 1, 0]}},
        {"type": "cone", "bottomRadius": 4, "topRadius": 0, "height": 5},
        {"type": "sphere", "radius": 6},
        {"type": "extrusion", "polygon": [[0, 0], [4, 0], [0, 4]], "height": 7},
        {"type": "import", "file": "supplier/part.step"})"),
                                           "a.tvnprt");
    const std::vector<Feature> expected = {
        {"Plate", Operation::Join, {}, Block{{10, 20, 30}}},
        {"", Operation::Cut, {{1, 2, 3}, {0, 1, 0}, {1, 0, 0}}, Cylinder{2, 3}},
        {"", Operation::Join, {}, Cone{4, 0, 5}},
        {"", Operation::Join, {}, Sphere{6}},
        {"", Operation::Join, {}, Extrusion{{{0, 0}, {4, 0}, {0, 4}}, 7}},
        {"", Operation::Join, {}, Import{"supplier/part.step"}},
    };
    EXPECT_EQ(std::get<Part>(document.content).configurations.at(0).features, expected);
}

TEST(DocumentReader, TheFirstConfigurationIsActiveUnlessTheDocumentSaysOtherwise)
{
    const std::string box = R"([{"type": "box", "size": [1, 1, 1]}])";
    const std::string both =
        R"("configurations": [{"name": "A", "features": )" + box + R"(}, {"name": "B", "features": )" + box + "}]}";
    EXPECT_EQ(ActiveItem(ReadDocument(R"({"format": "torvane-part", "version": 1, )" + both, "x")), "A");
    EXPECT_EQ(ActiveItem(
                  ReadDocument(R"({"format": "torvane-part", "version": 1, "activeConfiguration": "B", )" + both, "x")),
              "B");
    EXPECT_EQ(Complaint(R"({"format": "torvane-part", "version": 1, "activeConfiguration": "C", )" + both),
              "a.json: /activeConfiguration: there is no \"C\"");
}

TEST(DocumentReader, AnAssemblyWithoutConfigurationsHasOneNamedDefault)
{
    const Document document = ReadDocument(AssemblyWith(R"({"name": "A-1", "path": "a.tvnprt"})"), "x.tvnasm");
    EXPECT_EQ(ItemNames(document), std::vector<std::string>{"Default"});
}

TEST(DocumentReader, VirtualAssembliesMayHoldVirtualParts)
{
    const std::string pin = R"({"name": "Pin-1", "document": )" + PartWith(R"({"type": "sphere", "radius": 1})") + "}";
    const Document document =
        ReadDocument(AssemblyWith(R"({"name": "Sub-1", "document": )" + AssemblyWith(pin) + "}"), "x.tvnasm");
    EXPECT_NE(FindEmbedded(document, {"Sub-1", "Pin-1"}), nullptr);
}

TEST(DocumentReader, EndlessNestingIsRefused)
{
    std::string text = PartWith(R"({"type": "sphere", "radius": 1})");
    for (int i = 0; i < 40; i++) {
        text = AssemblyWith(R"({"name": "A-1", "document": )" + text + "}");
    }
    EXPECT_NE(Complaint(text).find("nested more than 32 deep"), std::string::npos);
}

TEST(DocumentReader, ATextThatIsCutOffIsNamedWithItsPlace)
{
    EXPECT_EQ(Complaint("{\n  \"format\": \"torv", "bracket.tvnprt"),
              "bracket.tvnprt: line 2, column 18: the text ends too early");
    EXPECT_EQ(Complaint(""), "a.json: line 1, column 1: the text ends too early");
    EXPECT_EQ(Complaint("{\"format\": torvane}"), "a.json: line 1, column 13: the text is not valid JSON");
    EXPECT_EQ(FaultOf("{"), Fault::NotJson);
}

TEST(DocumentReader, ADocumentOfALaterVersionIsToldFromABrokenOne)
{
    const std::string text = R"({"format": "torvane-part", "version": 2, "whatever": 1})";
    EXPECT_EQ(FaultOf(text), Fault::FutureVersion);
    EXPECT_EQ(Complaint(text), "a.json: /version: written by a later version (2; this one reads up to 1)");
    EXPECT_EQ(FaultOf(R"({"format": "torvane-part", "version": 0})"), Fault::Invalid);
}

TEST(DocumentReader, TheExtensionMustAgreeWithTheDocument)
{
    EXPECT_EQ(Complaint(PartWith(R"({"type": "sphere", "radius": 1})"), "a.tvnasm"),
              "a.tvnasm: /format: the file's extension says assembly, and the document is a part");
}

TEST(DocumentReader, EachMistakeIsNamedWithItsPlaceInTheDocument)
{
    const std::string sheet = R"({"name": "S", "format": "A3", "views": [)";
    const struct
    {
        std::string text;
        std::string complaint;
    } cases[] = {
        {"[]", "the document: must be an object in braces"},
        {"{}", "the document: the member \"format\" is missing"},
        {R"({"format": "part", "version": 1})",
         "/format: \"part\" is not one of torvane-part, torvane-assembly, torvane-drawing"},
        {R"({"format": "torvane-part"})", "the document: the member \"version\" is missing"},
        {R"({"format": "torvane-part", "version": 1.5})", "/version: must be a whole number"},
        {R"({"format": "torvane-part", "version": 1, "units": "in"})", "/units: must be \"mm\""},
        {R"({"format": "torvane-part", "version": 1, "configurations": []})",
         "/configurations: must have at least one entry"},
        {R"({"format": "torvane-part", "version": 1, "configurations": 7})",
         "/configurations: must be a list in brackets"},
        {R"({"format": "torvane-part", "version": 1, "colour": "red", "configurations": []})",
         "/colour: no member of this name is known here"},
        {R"({"format": "torvane-part", "version": 1, "configurations": [{"name": "", "features": []}]})",
         "/configurations/0/name: must not be empty"},
        {PartWith(""), "/configurations/0/features: must have at least one entry"},
        {PartWith(R"({"type": "torus"})"),
         "/configurations/0/features/0/type: \"torus\" is not one of box, cylinder, cone, sphere, extrusion, import"},
        {PartWith(R"({"type": "sphere", "radius": "1"})"), "/configurations/0/features/0/radius: must be a number"},
        {PartWith(R"({"type": "sphere", "radius": 0})"), "/configurations/0/features/0/radius: must be greater than 0"},
        {PartWith(R"({"type": "sphere", "radius": 2000000})"),
         "/configurations/0/features/0/radius: must lie between -1000000 and 1000000"},
        {PartWith(R"({"type": "sphere", "raduis": 1})"),
         "/configurations/0/features/0/raduis: no member of this name is known here"},
        {PartWith(R"({"type": "box", "size": [1, 2]})"),
         "/configurations/0/features/0/size: must be a list of 3 numbers, and has 2"},
        {PartWith(R"({"type": "box", "size": [1, -2, 3]})"),
         "/configurations/0/features/0/size/1: must be greater than 0"},
        {PartWith(R"({"type": "cone", "bottomRadius": 2, "topRadius": 2, "height": 1})"),
         "/configurations/0/features/0: the two radii of a cone must differ and must not be negative"},
        {PartWith(R"({"type": "extrusion", "polygon": [[0, 0], [1, 0]], "height": 1})"),
         "/configurations/0/features/0/polygon: must have at least three points"},
        {PartWith(R"({"type": "extrusion", "polygon": [[0, 0], [1, 0], [1, 0], [0, 1]], "height": 1})"),
         "/configurations/0/features/0/polygon: has the same point twice in a row; "
         "the last point joins the first by itself"},
        {PartWith(R"({"type": "extrusion", "polygon": [[0, 0], [1, 0], [2, 0]], "height": 1})"),
         "/configurations/0/features/0/polygon: bounds no area"},
        {PartWith(R"({"type": "extrusion", "polygon": [[0, 0], [4, 4], [4, 0], [0, 3]], "height": 1})"),
         "/configurations/0/features/0/polygon: crosses or touches itself"},
        {PartWith(R"({"type": "sphere", "radius": 1, "operation": "cut"})"),
         "/configurations/0/features/0/operation: the first feature has nothing to cut from"},
        {PartWith(R"({"type": "sphere", "radius": 1, "operation": "weld"})"),
         "/configurations/0/features/0/operation: \"weld\" is not one of join, cut"},
        {PartWith(R"({"type": "sphere", "radius": 1, "placement": {"axis": [0, 0, 1], "reference": [0, 0, 2]}})"),
         "/configurations/0/features/0/placement: \"axis\" and \"reference\" must be directions that don't lie on one "
         "line"},
        {PartWith(R"({"type": "import", "file": "/tmp/a.step"})"),
         "/configurations/0/features/0/file: must be a path relative to the document, with \"/\" between names"},
        {PartWith(R"({"type": "import", "file": "sub\\a.step"})"),
         "/configurations/0/features/0/file: must be a path relative to the document, with \"/\" between names"},
        {AssemblyWith(R"({"name": "A-1"})"),
         "/components/0: must have either \"path\" or, for a virtual component, \"document\""},
        {AssemblyWith(R"({"name": "A-1", "path": "a.tvnprt"}, {"name": "A-1", "path": "b.tvnprt"})"),
         "/components/1/name: \"A-1\" is used twice"},
        {AssemblyWith(R"({"name": "A-1", "document": )" + DrawingWith(sheet + "]}") + "}"),
         "/components/0/document: a component can't be a drawing"},
        {AssemblyWith(R"({"name": "A-1", "configuration": "X", "document": )" +
                      PartWith(R"({"type": "sphere", "radius": 1})") + "}"),
         "/components/0/configuration: there is no \"X\""},
        {AssemblyWith(R"({"name": "A-1", "path": "a.tvnprt"})",
                      R"(, "configurations": [{"name": "C", "suppressed": ["B-1"]}])"),
         "/configurations/0/suppressed/0: there is no component \"B-1\""},
        {DrawingWith(R"({"name": "S"})"), "/sheets/0: must have either \"format\" or \"size\""},
        {DrawingWith(R"({"name": "S", "format": "B5"})"), "/sheets/0/format: \"B5\" is not a known sheet format"},
        {DrawingWith(R"({"name": "S", "size": [100, 6000]})"),
         "/sheets/0/size/1: a sheet can't be larger than 5000 mm"},
        {DrawingWith(sheet + R"({"model": "a.tvnprt", "projection": "above", "position": [0, 0]}]})"),
         "/sheets/0/views/0/projection: \"above\" is not one of front, back, left, right, top, bottom, isometric"},
        {DrawingWith(sheet + R"({"model": "a.tvndrw", "projection": "top", "position": [0, 0]}]})"),
         "/sheets/0/views/0/model: a view can't show a drawing"},
        {DrawingWith(sheet + R"(], "notes": [{"text": 5, "position": [0, 0]}]})"),
         "/sheets/0/notes/0/text: must be a text"},
    };
    for (const auto& [text, complaint] : cases) {
        EXPECT_EQ(Complaint(text), "a.json: " + complaint) << text;
    }
}

} // namespace
