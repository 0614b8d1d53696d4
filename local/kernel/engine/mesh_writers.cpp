#include "engine/triangles.h"
#include "engine/writers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <limits>
#include <map>

namespace tv::kernel {

namespace {

struct Unit
{
    std::string_view name;
    double millimetres;
};

constexpr Unit kUnits[] = {{"mm", 1}, {"cm", 10}, {"m", 1000}, {"in", 25.4}, {"ft", 304.8}};

double MillimetresOf(const std::string& unit)
{
    return std::ranges::find(kUnits, unit, &Unit::name)->millimetres;
}

MeshQuality QualityOf(const Options& options)
{
    return options.Is("quality", "fine") ? MeshQuality::Fine : MeshQuality::Coarse;
}

using Corner = std::array<double, 3>;

template <class Change> void ChangeCorners(std::vector<TriangleSet>& sets, const Change& change)
{
    for (TriangleSet& set : sets) {
        for (Triangle& triangle : set.triangles) {
            for (Corner& corner : triangle.corners) {
                change(corner);
            }
        }
    }
}

void Scale(std::vector<TriangleSet>& sets, double factor)
{
    ChangeCorners(sets, [factor](Corner& corner) {
        for (double& coordinate : corner) {
            coordinate *= factor;
        }
    });
}

void MoveToPositive(std::vector<TriangleSet>& sets)
{
    Corner low;
    low.fill(std::numeric_limits<double>::max());
    ChangeCorners(sets, [&low](const Corner& corner) {
        std::ranges::transform(low, corner, low.begin(), [](double a, double b) { return std::min(a, b); });
    });
    ChangeCorners(sets, [&low](Corner& corner) {
        std::ranges::transform(corner, low, corner.begin(), [](double a, double b) { return a - b; });
    });
}

Corner NormalOf(const Triangle& triangle)
{
    const auto& [a, b, c] = triangle.corners;
    const Corner u{b[0] - a[0], b[1] - a[1], b[2] - a[2]};
    const Corner v{c[0] - a[0], c[1] - a[1], c[2] - a[2]};
    const Corner normal{u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    return length > 0 ? Corner{normal[0] / length, normal[1] / length, normal[2] / length} : Corner{0, 0, 0};
}

void Append(std::string& text, const char* before, const Corner& corner, const char* after)
{
    char line[160];
    std::snprintf(line, sizeof line, "%s%.9g %.9g %.9g%s", before, corner[0], corner[1], corner[2], after);
    text += line;
}

std::string StlText(const std::vector<TriangleSet>& sets, const std::string& name)
{
    std::string text = "solid " + name + "\n";
    for (const TriangleSet& set : sets) {
        for (const Triangle& triangle : set.triangles) {
            Append(text, "  facet normal ", NormalOf(triangle), "\n    outer loop\n");
            for (const Corner& corner : triangle.corners) {
                Append(text, "      vertex ", corner, "\n");
            }
            text += "    endloop\n  endfacet\n";
        }
    }
    return text + "endsolid " + name + "\n";
}

void AppendFloats(std::string& bytes, const Corner& corner)
{
    for (const double coordinate : corner) {
        const auto single = static_cast<float>(coordinate);
        char raw[sizeof single];
        std::memcpy(raw, &single, sizeof single);
        bytes.append(raw, sizeof single);
    }
}

std::string StlBytes(const std::vector<TriangleSet>& sets, const std::string& name)
{
    // Readers take a file that begins with "solid" for a text.
    std::string bytes = ("binary STL, " + name).substr(0, 80);
    bytes.resize(84, '\0');
    uint32_t count = 0;
    for (const TriangleSet& set : sets) {
        for (const Triangle& triangle : set.triangles) {
            AppendFloats(bytes, NormalOf(triangle));
            for (const Corner& corner : triangle.corners) {
                AppendFloats(bytes, corner);
            }
            bytes.append(2, '\0');
            count++;
        }
    }
    std::memcpy(bytes.data() + 80, &count, sizeof count);
    return bytes;
}

void WriteBytes(const std::string& bytes, const WriteTarget& target)
{
    std::ofstream stream(target.file, std::ios::binary);
    stream << bytes;
    stream.close();
    if (!stream) {
        FailToWrite(target, "the disk took no more");
    }
}

/// A VRML name: letters, digits and underscores, not beginning with a digit.
std::string VrmlName(const std::string& name)
{
    std::string safe = "Part_";
    for (const char letter : name) {
        const bool plain =
            (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
        safe += plain ? letter : '_';
    }
    return safe;
}

std::string VrmlShape(const TriangleSet& set, size_t number)
{
    std::map<Corner, size_t> indices;
    std::string points;
    std::string faces;
    for (const Triangle& triangle : set.triangles) {
        for (const Corner& corner : triangle.corners) {
            const auto [place, isNew] = indices.try_emplace(corner, indices.size());
            if (isNew) {
                Append(points, "        ", corner, ",\n");
            }
            faces += (faces.empty() || faces.back() == '\n' ? "        " : ", ") + std::to_string(place->second);
        }
        faces += ", -1,\n";
    }
    return "DEF " + VrmlName(set.name) + "_" + std::to_string(number) +
           " Shape {\n  appearance Appearance {\n    material Material { diffuseColor 0.65 0.68 0.74 }\n  }\n"
           "  geometry IndexedFaceSet {\n    creaseAngle 0.5\n    coord Coordinate {\n      point [\n" +
           points + "      ]\n    }\n    coordIndex [\n" + faces + "    ]\n  }\n}\n";
}

} // namespace

void WriteStl(const Model& model, const Options& options, const WriteTarget& target)
{
    std::vector<TriangleSet> sets = TrianglesOf(model, QualityOf(options));
    if (options.IsOn("positive")) {
        MoveToPositive(sets);
    }
    Scale(sets, 1 / MillimetresOf(options.Text("unit")));
    WriteBytes(options.IsOn("binary") ? StlBytes(sets, model.root.name) : StlText(sets, model.root.name), target);
}

void WriteVrml(const Model& model, const Options& options, const WriteTarget& target)
{
    std::vector<TriangleSet> sets = TrianglesOf(model, QualityOf(options));
    Scale(sets, 1 / MillimetresOf(options.Text("unit")));
    std::string text = "#VRML V2.0 utf8\n";
    for (size_t i = 0; i < sets.size(); i++) {
        text += VrmlShape(sets[i], i + 1);
    }
    WriteBytes(text, target);
}

} // namespace tv::kernel
