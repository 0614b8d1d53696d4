#include "engine/sheet_layout.h"

#include "engine/failure.h"
#include "engine/neutral_reader.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace tv::kernel {

namespace {

using namespace document;

constexpr double kMargin = 10;
constexpr double kTitleWidth = 180;
constexpr double kTitleHeight = 36;
constexpr double kGap = 15; // between views

/// The scales of ISO 5455, and their continuation for very small and very large models.
constexpr double kStandardScales[] = {1000, 500,  200,  100,  50,    20,    10,    5,      2,      1,      0.5,    0.2,
                                      0.1,  0.05, 0.02, 0.01, 0.005, 0.002, 0.001, 0.0005, 0.0002, 0.0001, 0.00001};

void AddRectangle(Page& page, LineStyle style, double x, double y, double width, double height)
{
    page.lines.push_back({style, {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}, {x, y}}});
}

void AddLine(Page& page, LineStyle style, PagePoint from, PagePoint to)
{
    page.lines.push_back({style, {from, to}});
}

void AddText(Page& page, const std::string& text, double x, double y, double height)
{
    if (!text.empty()) {
        page.texts.push_back({text, {x, y}, height, Align::Left});
    }
}

/// Room for the title block: narrow sheets get a narrower one.
double TitleWidth(const Page& page)
{
    return std::min(kTitleWidth, page.width - 2 * kMargin);
}

void DrawTitleBlock(Page& page, const TitleBlock& title)
{
    const double width = TitleWidth(page);
    const double left = page.width - kMargin - width;
    const double bottom = kMargin;
    const double divide = left + width * 0.62;
    AddRectangle(page, LineStyle::Frame, left, bottom, width, kTitleHeight);
    AddLine(page, LineStyle::Thin, {left, bottom + 12}, {left + width, bottom + 12});
    AddLine(page, LineStyle::Thin, {divide, bottom}, {divide, bottom + kTitleHeight});
    AddLine(page, LineStyle::Thin, {divide, bottom + 24}, {left + width, bottom + 24});
    AddText(page, title.title, left + 3, bottom + 25, 5);
    AddText(page, title.description, left + 3, bottom + 16, 2.5);
    AddText(page, title.item, left + 3, bottom + 4, 3.5);
    AddText(page, "Scale " + title.scale, divide + 3, bottom + 28, 3.5);
    AddText(page, title.material.empty() ? "Dimensions in mm" : title.material, divide + 3, bottom + 16, 2.5);
    AddText(page, title.format + "   Sheet " + std::to_string(title.page) + " of " + std::to_string(title.pages),
            divide + 3, bottom + 4, 2.5);
}

Page NewPage(const std::string& name, double width, double height)
{
    Page page{name, width, height, {}, {}};
    AddRectangle(page, LineStyle::Frame, kMargin, kMargin, width - 2 * kMargin, height - 2 * kMargin);
    return page;
}

void DrawHeaderAndFooter(Page& page, const TitleBlock& title)
{
    page.texts.push_back({title.title, {page.width / 2, page.height - 7}, 2.5, Align::Centre});
    page.texts.push_back(
        {std::to_string(title.page) + "/" + std::to_string(title.pages), {page.width / 2, 4}, 2.5, Align::Centre});
}

void DrawLines(Page& page, LineStyle style, const std::vector<Polyline>& lines, const Projected& view, PagePoint centre,
               double scale)
{
    const PagePoint middle{(view.low[0] + view.high[0]) / 2, (view.low[1] + view.high[1]) / 2};
    for (const Polyline& line : lines) {
        PageLine drawn{style, {}};
        for (const PagePoint& point : line) {
            drawn.points.push_back(
                {centre[0] + scale * (point[0] - middle[0]), centre[1] + scale * (point[1] - middle[1])});
        }
        page.lines.push_back(std::move(drawn));
    }
}

void DrawView(Page& page, const Projected& view, PagePoint centre, double scale, HiddenLines hiddenLines)
{
    // Visible edges come last and so cover what lies under them.
    if (hiddenLines == HiddenLines::Dashed) {
        DrawLines(page, LineStyle::Hidden, view.hidden, view, centre, scale);
    }
    DrawLines(page, LineStyle::Smooth, view.smooth, view, centre, scale);
    DrawLines(page, LineStyle::Visible, view.visible, view, centre, scale);
}

/// The four views of a model in third-angle order: top above front, right beside it, the isometric in the corner.
struct FourViews
{
    Projected front;
    Projected top;
    Projected right;
    Projected isometric;

    double leftWidth() const { return std::max(front.width(), top.width()); }
    double rightWidth() const { return std::max(right.width(), isometric.width()); }
    double lowerHeight() const { return std::max(front.height(), right.height()); }
    double upperHeight() const { return std::max(top.height(), isometric.height()); }
};

double ScaleThatFits(const FourViews& views, double width, double height)
{
    for (const double scale : kStandardScales) {
        if (scale * (views.leftWidth() + views.rightWidth()) + 3 * kGap <= width &&
            scale * (views.lowerHeight() + views.upperHeight()) + 3 * kGap <= height) {
            return scale;
        }
    }
    return kStandardScales[std::size(kStandardScales) - 1];
}

void DrawFourViews(Page& page, const FourViews& views, double scale, double bottom, HiddenLines hiddenLines)
{
    const double spareWidth = page.width - 2 * kMargin - scale * (views.leftWidth() + views.rightWidth());
    const double spareHeight = page.height - kMargin - bottom - scale * (views.lowerHeight() + views.upperHeight());
    const double left = kMargin + spareWidth / 3 + scale * views.leftWidth() / 2;
    const double right = page.width - kMargin - spareWidth / 3 - scale * views.rightWidth() / 2;
    const double lower = bottom + spareHeight / 3 + scale * views.lowerHeight() / 2;
    const double upper = page.height - kMargin - spareHeight / 3 - scale * views.upperHeight() / 2;
    DrawView(page, views.front, {left, lower}, scale, hiddenLines);
    DrawView(page, views.top, {left, upper}, scale, hiddenLines);
    DrawView(page, views.right, {right, lower}, scale, hiddenLines);
    DrawView(page, views.isometric, {right, upper}, scale, HiddenLines::Removed);
}

const SheetFormat& FormatNamed(const std::string& name)
{
    const auto found = std::ranges::find(kSheetFormats, name, &SheetFormat::name);
    if (found == std::end(kSheetFormats)) {
        throw JobFailure(ErrorCode::BadRequest, Quoted(name) + " is not a known sheet format.");
    }
    return *found;
}

std::string SizeText(const Sheet& sheet)
{
    if (!sheet.format.empty()) {
        return sheet.format;
    }
    char text[64];
    std::snprintf(text, sizeof text, "%g x %g mm", sheet.size[0], sheet.size[1]);
    return text;
}

void Finish(Page& page, const TitleBlock& title, const PageSettings& settings)
{
    DrawTitleBlock(page, title);
    if (settings.headerAndFooter) {
        DrawHeaderAndFooter(page, title);
    }
}

} // namespace

std::string ScaleText(double scale)
{
    char text[64];
    if (scale >= 1) {
        std::snprintf(text, sizeof text, "%.6g:1", scale);
    } else {
        std::snprintf(text, sizeof text, "1:%.6g", 1 / scale);
    }
    return text;
}

Page LayOutModel(const Model& model, TitleBlock title, const PageSettings& settings)
{
    const SheetFormat& format = FormatNamed(settings.sheetFormat);
    const TopoDS_Shape shape = BoundaryShape(model);
    const FourViews views{Project(shape, Projection::Front, settings.exactness),
                          Project(shape, Projection::Top, settings.exactness),
                          Project(shape, Projection::Right, settings.exactness),
                          Project(shape, Projection::Isometric, settings.exactness)};
    Page page = NewPage(title.item, format.width, format.height);
    const double bottom = kMargin + kTitleHeight;
    const double scale = ScaleThatFits(views, page.width - 2 * kMargin, page.height - kMargin - bottom);
    DrawFourViews(page, views, scale, bottom, settings.hiddenLines);
    title.scale = ScaleText(scale);
    title.format = settings.sheetFormat;
    Finish(page, title, settings);
    return page;
}

Page LayOutSheet(const Sheet& sheet, const OpenedSource& drawing, Loader& loader, TitleBlock title,
                 const PageSettings& settings)
{
    Page page = NewPage(sheet.name, sheet.size[0], sheet.size[1]);
    for (const View& view : sheet.views) {
        const Model model = loader.LoadReference(drawing.file, view.model, view.configuration);
        const Projected projected = Project(BoundaryShape(model), view.projection, settings.exactness);
        DrawView(page, projected, view.position, view.scale > 0 ? view.scale : sheet.scale, view.hiddenLines);
    }
    for (const Note& note : sheet.notes) {
        page.texts.push_back({note.text, note.position, note.height, Align::Left});
    }
    title.scale = ScaleText(sheet.scale);
    title.format = SizeText(sheet);
    Finish(page, title, settings);
    return page;
}

} // namespace tv::kernel
