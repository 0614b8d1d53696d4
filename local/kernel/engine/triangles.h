// A shape as triangles, for the formats that hold nothing else.
#pragma once

#include "engine/model.h"

#include <array>
#include <string>
#include <vector>

namespace tv::kernel {

struct Triangle
{
    std::array<std::array<double, 3>, 3> corners; // counter-clockwise, seen from outside
};

/// One part of a model with its triangles.
struct TriangleSet
{
    std::string name;
    std::vector<Triangle> triangles;
};

enum class MeshQuality
{
    Coarse, // a thousandth of the model's diagonal off its surface at most
    Fine,   // a fifth of that
};

/// One set for each part, in the order of the model's tree.
std::vector<TriangleSet> TrianglesOf(const Model& model, MeshQuality quality);

/// The volume that the triangles enclose; 0 when they leave a gap.
double EnclosedVolume(const std::vector<Triangle>& triangles);

} // namespace tv::kernel
