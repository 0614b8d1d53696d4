#include "kernel_test_support.h"

#include "document/document_io.h"
#include "engine/hidden_lines.h"
#include "engine/loader.h"
#include "engine/sheet_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace {

using namespace tv::kernel;
using namespace tv::kernel::test;
using tv::document::HiddenLines;
using tv::document::Projection;

int PagesOf(const std::string& pdf)
{
    const std::string info = OutputOf("pdfinfo '" + pdf + "'");
    const size_t pages = info.find("Pages:");
    return pages == std::string::npos ? 0 : std::atoi(info.c_str() + pages + 6);
}

std::string TextOf(const std::string& pdf)
{
    return OutputOf("pdftotext -layout '" + pdf + "' -");
}

/// The drawing as lines, with the header and the images that a picture would need.
std::string SvgOf(const TemporaryFolder& folder, const std::string& pdf)
{
    OutputOf("pdftocairo -svg '" + pdf + "' '" + folder / "page.svg" + "'");
    return ReadFile(folder / "page.svg");
}

double LengthOf(const Polyline& line)
{
    double length = 0;
    for (size_t i = 1; i < line.size(); i++) {
        length += std::hypot(line[i][0] - line[i - 1][0], line[i][1] - line[i - 1][1]);
    }
    return length;
}

double LengthOf(const std::vector<Polyline>& lines)
{
    double length = 0;
    for (const Polyline& line : lines) {
        length += LengthOf(line);
    }
    return length;
}

TopoDS_Shape ShapeOf(const std::string& file)
{
    return Loader().Load(Open({file, {}, {}}), {}).root.shape;
}

bool HasLineAtHeight(const std::vector<Polyline>& lines, double y, double from, double to)
{
    for (const Polyline& line : lines) {
        const double low = std::min(line.front()[0], line.back()[0]);
        const double high = std::max(line.front()[0], line.back()[0]);
        if (std::abs(line.front()[1] - y) < 1e-6 && std::abs(line.back()[1] - y) < 1e-6 && low < from && high > to) {
            return true;
        }
    }
    return false;
}

TEST(PdfFiles, ADrawingHasAPageForEachSheetAtTheSheetsSize)
{
    const TemporaryFolder folder;
    const auto saved = Convert(Sample("bracket.tvndrw"), folder / "b.pdf");
    ASSERT_TRUE(saved) << saved.error().message;
    EXPECT_EQ(saved->pages, 2);
    EXPECT_EQ(PagesOf(folder / "b.pdf"), 2);
    EXPECT_NE(OutputOf("pdfinfo '" + folder / "b.pdf" + "'").find("1190.55 x 841.89 pts (A3)"), std::string::npos);
}

TEST(PdfFiles, OnlyTheSheetsThatAreAskedForAreWritten)
{
    const TemporaryFolder folder;
    SaveJob job;
    job.source.path = Sample("bracket.tvndrw");
    job.items = {"Long version"};
    job.target = folder / "b.pdf";
    ASSERT_TRUE(Save(job));
    EXPECT_EQ(PagesOf(job.target), 1);
    EXPECT_NE(TextOf(job.target).find("Sheet: Long version"), std::string::npos);
    job.items = {"Back side"};
    EXPECT_EQ(Save(job).error().code, ErrorCode::UnknownItem);
}

TEST(PdfFiles, SheetsHaveTheirNotesAndATitleBlock)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvndrw"), folder / "b.pdf"));
    const std::string text = TextOf(folder / "b.pdf");
    for (const char* expected : {"All edges broken 0.5 x 45°", "Light version, scale 1:1", "Sheet: Overview",
                                 "Scale 1:1", "Scale 1:2", "Sheet 2 of 2", "Angle bracket with bearing bore"}) {
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    }
}

TEST(PdfFiles, AModelHasAPageForEachConfigurationWithNameConfigurationAndScale)
{
    const TemporaryFolder folder;
    SaveJob job;
    job.source.path = Sample("bracket.tvnprt");
    job.items = {"Default", "Long", "Light"};
    job.target = folder / "b.pdf";
    ASSERT_TRUE(Save(job));
    EXPECT_EQ(PagesOf(job.target), 3);
    const std::string text = TextOf(job.target);
    for (const char* expected :
         {"bracket", "Configuration: Long", "Configuration: Light", "Scale 1:1", "Sheet 3 of 3", "S235JR"}) {
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    }
}

TEST(PdfFiles, AreMadeOfLinesAndHoldNoPicture)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("gearbox.tvnasm"), folder / "g.pdf"));
    const std::string images = OutputOf("pdfimages -list '" + folder / "g.pdf" + "'");
    EXPECT_EQ(std::count(images.begin(), images.end(), '\n'), 2) << images; // the heading only
    const std::string svg = SvgOf(folder, folder / "g.pdf");
    EXPECT_EQ(svg.find("<image"), std::string::npos);
    EXPECT_NE(svg.find("<path"), std::string::npos);
}

TEST(PdfFiles, HiddenEdgesAreDashedOrLeftOut)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "dashed.pdf", {{"hidden-lines", "dashed"}}));
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "removed.pdf", {{"hidden-lines", "removed"}}));
    EXPECT_NE(SvgOf(folder, folder / "dashed.pdf").find("stroke-dasharray"), std::string::npos);
    EXPECT_EQ(SvgOf(folder, folder / "removed.pdf").find("stroke-dasharray"), std::string::npos);
}

TEST(PdfFiles, HeaderAndFooterStandOutsideTheFrameWhenAskedFor)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "b.pdf", {{"header-footer", "true"}}));
    EXPECT_NE(TextOf(folder / "b.pdf").find("1/1"), std::string::npos);
}

TEST(HiddenEdges, AnEdgeBehindAFaceIsNotAmongTheVisibleOnes)
{
    // A bar stands behind a larger plate, seen from the front: nothing of it may be drawn solid.
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.tvnprt", PartText(
                                                          R"({"type": "box", "size": [100, 10, 100]},
           {"type": "box", "size": [40, 10, 40], "placement": {"origin": [30, 10, 30]}})"));
    for (const Exactness exactness : {Exactness::Exact, Exactness::Fast}) {
        const Projected front = Project(ShapeOf(file), Projection::Front, exactness);
        EXPECT_FALSE(HasLineAtHeight(front.visible, 30, 31, 69));
        EXPECT_FALSE(HasLineAtHeight(front.visible, 70, 31, 69));
        EXPECT_TRUE(HasLineAtHeight(front.hidden, 30, 31, 69));
        EXPECT_TRUE(HasLineAtHeight(front.visible, 100, 1, 99));
        const Projected back = Project(ShapeOf(file), Projection::Back, exactness);
        EXPECT_TRUE(HasLineAtHeight(back.visible, 30, -69, -31));
    }
}

TEST(HiddenEdges, ACubeSeenFromItsCornerShowsNineEdgesAndHidesThree)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.tvnprt", PartText(R"({"type": "box", "size": [10, 10, 10]})"));
    const Projected view = Project(ShapeOf(file), Projection::Isometric, Exactness::Exact);
    const double edge = 10 * std::sqrt(2.0 / 3.0);
    EXPECT_NEAR(LengthOf(view.visible), 9 * edge, 1e-6);
    EXPECT_NEAR(LengthOf(view.hidden), 3 * edge, 1e-6);
}

TEST(Projections, ShowTheSideThatTheyAreNamedAfter)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.tvnprt", PartText(R"({"type": "box", "size": [10, 20, 30]})"));
    const struct
    {
        Projection projection;
        double width;
        double height;
        double low[2];
    } cases[] = {
        {Projection::Front, 10, 30, {0, 0}},  {Projection::Back, 10, 30, {-10, 0}},
        {Projection::Left, 20, 30, {-20, 0}}, {Projection::Right, 20, 30, {0, 0}},
        {Projection::Top, 10, 20, {0, 0}},    {Projection::Bottom, 10, 20, {0, -20}},
    };
    for (const auto& [projection, width, height, low] : cases) {
        const Projected view = Project(ShapeOf(file), projection, Exactness::Exact);
        SCOPED_TRACE(static_cast<int>(projection));
        EXPECT_NEAR(view.width(), width, 1e-6);
        EXPECT_NEAR(view.height(), height, 1e-6);
        EXPECT_NEAR(view.low[0], low[0], 1e-6);
        EXPECT_NEAR(view.low[1], low[1], 1e-6);
    }
}

TEST(SheetLayout, AViewsCentreStandsAtItsPositionAtTrueSize)
{
    const TemporaryFolder folder;
    folder.Write("a.tvnprt", PartText(R"({"type": "box", "size": [60, 10, 20]})"));
    const std::string file = folder.Write("d.tvndrw", R"({"format": "torvane-drawing", "version": 1, "sheets": [
        {"name": "S", "format": "A3", "scale": 0.5, "views": [
            {"model": "a.tvnprt", "projection": "front", "position": [100, 150]}]}]})");
    const OpenedSource source = Open({file, {}, {}});
    Loader loader;
    const Page page = LayOutSheet(source.drawing()->sheets.front(), source, loader, {}, {});
    PagePoint low{1e9, 1e9};
    PagePoint high{-1e9, -1e9};
    for (const PageLine& line : page.lines) {
        for (const PagePoint& point : line.points) {
            if (line.style == LineStyle::Visible) {
                low = {std::min(low[0], point[0]), std::min(low[1], point[1])};
                high = {std::max(high[0], point[0]), std::max(high[1], point[1])};
            }
        }
    }
    EXPECT_NEAR(low[0], 85, 1e-6);
    EXPECT_NEAR(high[0], 115, 1e-6);
    EXPECT_NEAR(low[1], 145, 1e-6);
    EXPECT_NEAR(high[1], 155, 1e-6);
}

TEST(SheetLayout, ScalesReadAsOnADrawing)
{
    EXPECT_EQ(ScaleText(1), "1:1");
    EXPECT_EQ(ScaleText(0.5), "1:2");
    EXPECT_EQ(ScaleText(0.002), "1:500");
    EXPECT_EQ(ScaleText(5), "5:1");
}

} // namespace
