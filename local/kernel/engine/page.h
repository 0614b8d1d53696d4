// A drawn page: lines and texts in millimetres from its lower left corner. What makes pages knows nothing of the format
// that they are written in.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace tv::kernel {

using PagePoint = std::array<double, 2>;
using Polyline = std::vector<PagePoint>;

enum class LineStyle
{
    Visible, // an edge that is seen
    Smooth,  // an edge between faces that run into each other
    Hidden,  // an edge that another face covers
    Frame,
    Thin,
};

enum class Align
{
    Left,
    Centre,
};

struct PageLine
{
    LineStyle style;
    Polyline points;
};

struct PageText
{
    std::string text; // UTF-8
    PagePoint position{};
    double height = 3.5; // of a capital letter
    Align align = Align::Left;
};

struct Page
{
    std::string name;
    double width = 0;
    double height = 0;
    std::vector<PageLine> lines;
    std::vector<PageText> texts;
};

} // namespace tv::kernel
