// The documents of the local CAD application: parts, assemblies and drawings. Lengths are millimetres, angles degrees.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tv::document {

using Point2 = std::array<double, 2>;
using Point3 = std::array<double, 3>;
using Properties = std::map<std::string, std::string>;

inline constexpr std::string_view kDefaultConfiguration = "Default";

/// Where a shape stands. Its own z axis points along `axis`, its own x axis along `reference` as far as that is
/// square to `axis`.
struct Placement
{
    Point3 origin{0, 0, 0};
    Point3 axis{0, 0, 1};
    Point3 reference{1, 0, 0};

    bool operator==(const Placement&) const = default;
};

/// A corner at the origin, the sides along the axes.
struct Block
{
    Point3 size{};
    bool operator==(const Block&) const = default;
};

/// The base's centre at the origin, along z.
struct Cylinder
{
    double radius = 0;
    double height = 0;
    bool operator==(const Cylinder&) const = default;
};

/// The base's centre at the origin, along z. One of the radii may be 0.
struct Cone
{
    double bottomRadius = 0;
    double topRadius = 0;
    double height = 0;
    bool operator==(const Cone&) const = default;
};

/// The centre at the origin.
struct Sphere
{
    double radius = 0;
    bool operator==(const Sphere&) const = default;
};

/// A closed polygon in the xy plane, drawn out along z. The last point joins the first by itself.
struct Extrusion
{
    std::vector<Point2> polygon;
    double height = 0;
    bool operator==(const Extrusion&) const = default;
};

/// A STEP, IGES, STL or BREP file. The path is relative to the document's folder, with "/" between names.
struct Import
{
    std::string file;
    bool operator==(const Import&) const = default;
};

using Solid = std::variant<Block, Cylinder, Cone, Sphere, Extrusion, Import>;

enum class Operation
{
    Join,
    Cut,
};

struct Feature
{
    std::string name; // may be empty
    Operation operation = Operation::Join;
    Placement placement;
    Solid solid;
    bool operator==(const Feature&) const = default;
};

struct PartConfiguration
{
    std::string name;
    Properties properties;
    std::vector<Feature> features; // applied in this order; the first one joins
    bool operator==(const PartConfiguration&) const = default;
};

struct Part
{
    Properties properties;
    std::string activeConfiguration;
    std::vector<PartConfiguration> configurations; // at least one
    bool operator==(const Part&) const = default;
};

struct Document;

/// A part or an assembly at its place: a file of its own, or, when virtual, a document that lives inside the assembly.
struct Component
{
    std::string name; // unique in its assembly
    std::string path; // relative to the document's folder, with "/" between names; empty when virtual
    std::shared_ptr<const Document> embedded;
    std::string configuration; // empty: the component's active one
    Placement placement;

    bool IsVirtual() const { return embedded != nullptr; }
    bool operator==(const Component& other) const;
};

struct AssemblyConfiguration
{
    std::string name;
    Properties properties;
    std::vector<std::string> suppressed; // names of components that it leaves out
    bool operator==(const AssemblyConfiguration&) const = default;
};

struct Assembly
{
    Properties properties;
    std::string activeConfiguration;
    std::vector<AssemblyConfiguration> configurations; // at least one
    std::vector<Component> components;
    bool operator==(const Assembly&) const = default;
};

enum class Projection
{
    Front,
    Back,
    Left,
    Right,
    Top,
    Bottom,
    Isometric,
};

enum class HiddenLines
{
    Removed,
    Dashed,
};

/// One look at a model. The centre of the model's outline stands at `position`, counted from the sheet's lower left.
struct View
{
    std::string name;
    std::string model;         // relative to the document's folder, with "/" between names
    std::string configuration; // empty: the model's active one
    Projection projection = Projection::Front;
    Point2 position{};
    double scale = 0; // 0: the sheet's
    HiddenLines hiddenLines = HiddenLines::Removed;
    bool operator==(const View&) const = default;
};

/// A line of text whose left end stands at `position`.
struct Note
{
    std::string text;
    Point2 position{};
    double height = 3.5;
    bool operator==(const Note&) const = default;
};

struct Sheet
{
    std::string name;
    std::string format; // a name of kSheetFormats, or empty for a size of its own
    Point2 size{};      // width and height as the sheet is read
    double scale = 1;   // 0.5 is 1:2
    std::vector<View> views;
    std::vector<Note> notes;
    bool operator==(const Sheet&) const = default;
};

struct Drawing
{
    Properties properties;
    std::string activeSheet;
    std::vector<Sheet> sheets; // at least one
    bool operator==(const Drawing&) const = default;
};

struct Document
{
    std::variant<Part, Assembly, Drawing> content;
    bool operator==(const Document&) const = default;
};

struct SheetFormat
{
    std::string_view name;
    double width;
    double height;
};

/// Sheets lie on their long side, but for A4.
inline constexpr SheetFormat kSheetFormats[] = {
    {"A4", 210, 297},         {"A4 landscape", 297, 210}, {"A3", 420, 297},          {"A2", 594, 420},
    {"A1", 841, 594},         {"A0", 1189, 841},          {"ANSI A", 279.4, 215.9},  {"ANSI B", 431.8, 279.4},
    {"ANSI C", 558.8, 431.8}, {"ANSI D", 863.6, 558.8},   {"ANSI E", 1117.6, 863.6},
};

enum class Kind
{
    Part,
    Assembly,
    Drawing,
};

struct KindInfo
{
    Kind kind;
    std::string_view extension; // with the dot
    std::string_view format;    // what the member "format" of the file says
    std::string_view noun;
};

inline constexpr KindInfo kKinds[] = {
    {Kind::Part, ".tvnprt", "torvane-part", "part"},
    {Kind::Assembly, ".tvnasm", "torvane-assembly", "assembly"},
    {Kind::Drawing, ".tvndrw", "torvane-drawing", "drawing"},
};

Kind KindOf(const Document& document);
const KindInfo& InfoOf(Kind kind);

/// The kind that a path's extension names, case ignored; nullptr for any other file.
const KindInfo* KindOfPath(std::string_view path);

/// Names of the configurations, or of the sheets of a drawing, in their order.
std::vector<std::string> ItemNames(const Document& document);

/// The active configuration or sheet.
const std::string& ActiveItem(const Document& document);

/// Makes another configuration or sheet the active one; false, and no change, when there is none of that name.
bool SetActiveItem(Document& document, std::string_view name);

const PartConfiguration* FindConfiguration(const Part& part, std::string_view name);
const AssemblyConfiguration* FindConfiguration(const Assembly& assembly, std::string_view name);
const Sheet* FindSheet(const Drawing& drawing, std::string_view name);
const Component* FindComponent(const Assembly& assembly, std::string_view name);

/// The document of a virtual component, by the names of components from the outermost in; nullptr when one of them is
/// missing or isn't virtual. An empty list is the document itself.
const Document* FindEmbedded(const Document& document, const std::vector<std::string>& component);

/// The files that the document refers to, each once, as they are written in it and in that order. What virtual
/// components refer to is among them.
std::vector<std::string> References(const Document& document);

} // namespace tv::document
