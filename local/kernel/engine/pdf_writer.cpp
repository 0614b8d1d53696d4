#include "engine/writers.h"

#include <cairo-pdf.h>
#include <cairo.h>

#include <algorithm>
#include <memory>

namespace tv::kernel {

namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;

struct Stroke
{
    LineStyle style;
    double width; // mm
    double dash;  // mm; 0 for a solid line
    double gap;
    double red;
    double green;
    double blue;
};

constexpr Stroke kStrokes[] = {
    {LineStyle::Visible, 0.35, 0, 0, 0, 0, 0},        {LineStyle::Smooth, 0.13, 0, 0, 0.25, 0.25, 0.25},
    {LineStyle::Hidden, 0.18, 2, 1, 0.35, 0.4, 0.55}, {LineStyle::Frame, 0.5, 0, 0, 0.1, 0.15, 0.35},
    {LineStyle::Thin, 0.18, 0, 0, 0.1, 0.15, 0.35},
};

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

void UseStroke(cairo_t* context, const Stroke& stroke, bool inColour)
{
    if (inColour) {
        cairo_set_source_rgb(context, stroke.red, stroke.green, stroke.blue);
    } else {
        cairo_set_source_rgb(context, 0, 0, 0);
    }
    const double dashes[] = {stroke.dash, stroke.gap};
    cairo_set_dash(context, dashes, stroke.dash > 0 ? 2 : 0, 0);
    cairo_set_line_width(context, stroke.width);
}

void DrawLine(cairo_t* context, const PageLine& line)
{
    cairo_move_to(context, line.points.front()[0], line.points.front()[1]);
    std::for_each(line.points.begin() + 1, line.points.end(),
                  [context](const PagePoint& point) { cairo_line_to(context, point[0], point[1]); });
    cairo_stroke(context);
}

void DrawText(cairo_t* context, const PageText& text)
{
    // A capital letter is some 0.72 of the font's size high.
    cairo_set_font_size(context, text.height / 0.72);
    cairo_text_extents_t extents;
    cairo_text_extents(context, text.text.c_str(), &extents);
    cairo_save(context);
    cairo_translate(context, text.position[0] - (text.align == Align::Centre ? extents.x_advance / 2 : 0),
                    text.position[1]);
    cairo_scale(context, 1, -1);
    cairo_move_to(context, 0, 0);
    cairo_show_text(context, text.text.c_str());
    cairo_restore(context);
}

void DrawPage(cairo_t* context, const Page& page, bool inColour)
{
    cairo_save(context);
    cairo_scale(context, kPointsPerMillimetre, -kPointsPerMillimetre);
    cairo_translate(context, 0, -page.height);
    cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    for (const PageLine& line : page.lines) {
        UseStroke(context, *std::ranges::find(kStrokes, line.style, &Stroke::style), inColour);
        DrawLine(context, line);
    }
    cairo_set_source_rgb(context, 0, 0, 0);
    cairo_select_font_face(context, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    for (const PageText& text : page.texts) {
        DrawText(context, text);
    }
    cairo_restore(context);
    cairo_show_page(context);
}

} // namespace

void WritePdf(const std::vector<Page>& pages, const Options& options, const WriteTarget& target)
{
    const Surface surface(cairo_pdf_surface_create(target.file.c_str(), pages.front().width * kPointsPerMillimetre,
                                                   pages.front().height * kPointsPerMillimetre),
                          cairo_surface_destroy);
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, target.finalName.c_str());
    cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATOR, "Torvane");
    const Context context(cairo_create(surface.get()), cairo_destroy);
    for (const Page& page : pages) {
        cairo_pdf_surface_set_size(surface.get(), page.width * kPointsPerMillimetre,
                                   page.height * kPointsPerMillimetre);
        DrawPage(context.get(), page, options.IsOn("color"));
    }
    cairo_surface_finish(surface.get());
    for (const cairo_status_t status : {cairo_status(context.get()), cairo_surface_status(surface.get())}) {
        if (status != CAIRO_STATUS_SUCCESS) {
            FailToWrite(target, cairo_status_to_string(status));
        }
    }
}

} // namespace tv::kernel
