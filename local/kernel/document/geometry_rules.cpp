#include "document/geometry_rules.h"

#include <algorithm>
#include <cmath>

namespace tv::document {

namespace {

constexpr double kSmallest = 1e-6;

double Length(const Point3& vector)
{
    return std::hypot(vector[0], vector[1], vector[2]);
}

Point3 Cross(const Point3& a, const Point3& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// Positive when a, b, c turn to the left.
double Turn(const Point2& a, const Point2& b, const Point2& c)
{
    return (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
}

bool Between(const Point2& a, const Point2& b, const Point2& p)
{
    return std::min(a[0], b[0]) <= p[0] && p[0] <= std::max(a[0], b[0]) && std::min(a[1], b[1]) <= p[1] &&
           p[1] <= std::max(a[1], b[1]);
}

bool Meet(const Point2& a, const Point2& b, const Point2& c, const Point2& d)
{
    const double acrossA = Turn(c, d, a);
    const double acrossB = Turn(c, d, b);
    const double acrossC = Turn(a, b, c);
    const double acrossD = Turn(a, b, d);
    const auto opposite = [](double x, double y) { return (x > 0 && y < 0) || (x < 0 && y > 0); };
    if (opposite(acrossA, acrossB) && opposite(acrossC, acrossD)) {
        return true;
    }
    return (acrossA == 0 && Between(c, d, a)) || (acrossB == 0 && Between(c, d, b)) ||
           (acrossC == 0 && Between(a, b, c)) || (acrossD == 0 && Between(a, b, d));
}

double Area(const std::vector<Point2>& polygon)
{
    double doubled = 0;
    for (size_t i = 0; i < polygon.size(); i++) {
        const Point2& a = polygon[i];
        const Point2& b = polygon[(i + 1) % polygon.size()];
        doubled += a[0] * b[1] - a[1] * b[0];
    }
    return std::abs(doubled) / 2;
}

bool SidesCross(const std::vector<Point2>& polygon)
{
    const size_t count = polygon.size();
    for (size_t i = 0; i < count; i++) {
        for (size_t j = i + 2; j < count; j++) {
            const bool neighbours = i == 0 && j == count - 1;
            if (!neighbours && Meet(polygon[i], polygon[i + 1], polygon[j], polygon[(j + 1) % count])) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

bool IsUsable(const Placement& placement)
{
    const double axis = Length(placement.axis);
    const double reference = Length(placement.reference);
    return axis > kSmallest && reference > kSmallest &&
           Length(Cross(placement.axis, placement.reference)) > kSmallest * axis * reference;
}

std::string PolygonFault(const std::vector<Point2>& polygon)
{
    if (polygon.size() < 3) {
        return "must have at least three points";
    }
    for (size_t i = 0; i < polygon.size(); i++) {
        const Point2& a = polygon[i];
        const Point2& b = polygon[(i + 1) % polygon.size()];
        if (std::hypot(b[0] - a[0], b[1] - a[1]) <= kSmallest) {
            return "has the same point twice in a row; the last point joins the first by itself";
        }
    }
    if (Area(polygon) <= kSmallest) {
        return "bounds no area";
    }
    return SidesCross(polygon) ? "crosses or touches itself" : "";
}

} // namespace tv::document
