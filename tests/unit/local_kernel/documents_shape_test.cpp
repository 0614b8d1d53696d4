#include "kernel_test_support.h"

#include <gtest/gtest.h>

namespace {

using namespace tv::kernel;
using namespace tv::kernel::test;

std::string Cube(double side)
{
    return PartText(R"({"type": "box", "size": [)" + std::to_string(side) + "," + std::to_string(side) + "," +
                    std::to_string(side) + "]}");
}

std::string Assembly(const std::string& components, const std::string& more = "")
{
    return R"({"format": "torvane-assembly", "version": 1, "components": [)" + components + "]" + more + "}";
}

TEST(Configurations, EachHasAShapeOfItsOwn)
{
    EXPECT_NEAR(Inspect(Sample("bracket.tvnprt"))->box.high[0], 80, 1e-6);
    EXPECT_NEAR(Inspect(Sample("bracket.tvnprt"), "Default")->box.high[0], 80, 1e-6);
    EXPECT_NEAR(Inspect(Sample("bracket.tvnprt"), "Long")->box.high[0], 140, 1e-6);
    EXPECT_LT(Inspect(Sample("bracket.tvnprt"), "Light")->volume, Inspect(Sample("bracket.tvnprt"))->volume);
}

TEST(Configurations, OneThatIsNotThereIsNamed)
{
    const auto result = Inspect(Sample("bracket.tvnprt"), "Huge");
    EXPECT_EQ(result.error().code, ErrorCode::UnknownItem);
    EXPECT_EQ(result.error().message, "\"" + Sample("bracket.tvnprt") + "\" has no configuration \"Huge\".");
}

TEST(Configurations, AModelFormatHoldsOneOnly)
{
    const TemporaryFolder folder;
    SaveJob job;
    job.source.path = Sample("bracket.tvnprt");
    job.target = folder / "b.step";
    job.items = {"Long"};
    ASSERT_TRUE(Save(job));
    EXPECT_NEAR(Inspect(job.target)->box.high[0], 140, 1e-6);
    job.items = {"Default", "Long"};
    EXPECT_EQ(Save(job).error().message, "STEP holds one configuration, and 2 were given.");
}

TEST(Placements, TurnAndMoveAShape)
{
    const TemporaryFolder folder;
    const auto result = Inspect(folder.Write("a.tvnprt", PartText(R"({"type": "box", "size": [10, 20, 30],
        "placement": {"origin": [100, 0, 0], "axis": [1, 0, 0], "reference": [0, 1, 0]}})")));
    ASSERT_TRUE(result);
    EXPECT_NEAR(result->box.low[0], 100, 1e-6);
    EXPECT_NEAR(result->box.high[0], 130, 1e-6);
    EXPECT_NEAR(result->box.high[1], 10, 1e-6);
    EXPECT_NEAR(result->box.high[2], 20, 1e-6);
}

TEST(Assemblies, HoldTheirComponentsAtTheirPlaces)
{
    const TemporaryFolder folder;
    folder.Write("cube.tvnprt", Cube(10));
    const auto result = Inspect(folder.Write("a.tvnasm", Assembly(
                                                             R"({"name": "Cube-1", "path": "cube.tvnprt"},
           {"name": "Cube-2", "path": "cube.tvnprt", "placement": {"origin": [50, 0, 0]}},
           {"name": "Cube-3", "document": )" + Cube(1) + R"(, "placement": {"origin": [0, 0, 70]}})")));
    ASSERT_TRUE(result) << result.error().message;
    EXPECT_EQ(result->kind, SourceKind::Assembly);
    EXPECT_EQ(result->solids, 3);
    EXPECT_NEAR(result->volume, 2001, 1e-3);
    EXPECT_NEAR(result->box.high[0], 60, 1e-6);
    EXPECT_NEAR(result->box.high[2], 71, 1e-6);
}

TEST(Assemblies, PlacesAddUpThroughNestedAssemblies)
{
    const TemporaryFolder folder;
    const std::string inner =
        Assembly(R"({"name": "Pin-1", "document": )" + Cube(2) + R"(, "placement": {"origin": [10, 0, 0]}})");
    const std::string file =
        folder.Write("a.tvnasm", Assembly(R"({"name": "Sub-1", "document": )" + inner +
                                          R"(, "placement": {"origin": [0, 100, 0], "axis": [0, 0, 1],
            "reference": [0, 1, 0]}})"));
    for (const char* extension : {".step", ".stl", ".brep"}) {
        ASSERT_TRUE(Convert(file, folder / ("a" + std::string(extension))));
        const auto read = Inspect(folder / ("a" + std::string(extension)));
        ASSERT_TRUE(read);
        EXPECT_NEAR(read->box.low[0], -2, 1e-5) << extension;
        EXPECT_NEAR(read->box.low[1], 110, 1e-5) << extension;
        EXPECT_NEAR(read->volume, 8, 1e-4) << extension;
    }
}

TEST(Assemblies, AConfigurationLeavesOutWhatItSuppresses)
{
    EXPECT_EQ(Inspect(Sample("gearbox.tvnasm"))->solids, 5);
    EXPECT_EQ(Inspect(Sample("gearbox.tvnasm"), "Without feet")->solids, 3);
}

TEST(Assemblies, AVirtualComponentIsSavedByItself)
{
    const TemporaryFolder folder;
    SaveJob job;
    job.source = {Sample("gearbox.tvnasm"), {"Housing-1"}, {}};
    job.target = folder / "housing.step";
    ASSERT_TRUE(Save(job));
    EXPECT_EQ(Inspect(job.target)->solids, 1);
    job.source.component = {"Flange-1"};
    EXPECT_EQ(Save(job).error().code, ErrorCode::UnknownItem);
}

TEST(Assemblies, AMissingComponentIsNamedWithItsAssembly)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.tvnasm", Assembly(R"({"name": "A-1", "path": "sub/gone.tvnprt"})"));
    const auto result = Inspect(file);
    EXPECT_EQ(result.error().code, ErrorCode::FileNotFound);
    EXPECT_EQ(result.error().message,
              "The file \"" + folder / "sub/gone.tvnprt" + "\", to which \"" + file + "\" refers, is not there.");
}

TEST(Assemblies, OneThatContainsItselfIsRefused)
{
    const TemporaryFolder folder;
    const auto result = Inspect(folder.Write("a.tvnasm", Assembly(R"({"name": "A-1", "path": "a.tvnasm"})")));
    EXPECT_EQ(result.error().code, ErrorCode::Damaged);
    EXPECT_NE(result.error().message.find("contains itself"), std::string::npos);
}

TEST(References, AreFoundWhenOnlyUpperAndLowerCaseDiffer)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "Parts");
    folder.Write("Parts/Cube.TVNPRT", Cube(3));
    const auto result = Inspect(folder.Write("a.tvnasm", Assembly(R"({"name": "A-1", "path": "parts/cube.tvnprt"})")));
    ASSERT_TRUE(result) << result.error().message;
    EXPECT_NEAR(result->volume, 27, 1e-5);
}

TEST(Imports, AStepFileCanBeJoinedAndCut)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(folder.Write("c.tvnprt", Cube(10)), folder / "c.step"));
    const auto result = Inspect(folder.Write("a.tvnprt", PartText(
                                                             R"({"type": "import", "file": "c.step"},
           {"type": "box", "size": [10, 10, 5], "operation": "cut"})")));
    ASSERT_TRUE(result) << result.error().message;
    EXPECT_NEAR(result->volume, 500, 1e-4);
}

TEST(Imports, TheSampleIsTheFlange)
{
    const auto sample = Inspect(Sample("imported.tvnprt"));
    ASSERT_TRUE(sample) << sample.error().message;
    EXPECT_NEAR(sample->volume, Inspect(Sample("flange.step"))->volume, 1e-3);
    EXPECT_NEAR(sample->box.high[0], 38, 1e-5);
}

TEST(Documents, ATextThatWasNotSavedYetIsUsedInPlaceOfTheFile)
{
    const TemporaryFolder folder;
    folder.Write("cube.tvnprt", Cube(2));
    SaveJob job;
    job.source = {folder / "new.tvnasm", {}, Assembly(R"({"name": "A-1", "path": "cube.tvnprt"})")};
    job.target = folder / "new.step";
    const auto saved = Save(job);
    ASSERT_TRUE(saved) << saved.error().message;
    EXPECT_NEAR(Inspect(job.target)->volume, 8, 1e-5);
}

TEST(Documents, CutsThatLeaveNothingAreAnEmptyShape)
{
    const TemporaryFolder folder;
    const auto result = Inspect(folder.Write("a.tvnprt", PartText(
                                                             R"({"type": "box", "size": [1, 1, 1]},
           {"type": "box", "size": [4, 4, 4], "operation": "cut", "placement": {"origin": [-1, -1, -1]}})")));
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCode::EmptyShape);
}

TEST(Documents, ADrawingHasSheetsAndNoShape)
{
    const TemporaryFolder folder;
    const auto inspected = Inspect(Sample("bracket.tvndrw"));
    EXPECT_EQ(inspected->kind, SourceKind::Drawing);
    EXPECT_EQ(inspected->items, (std::vector<std::string>{"Overview", "Long version"}));
    EXPECT_EQ(Convert(Sample("bracket.tvndrw"), folder / "b.stl").error().code, ErrorCode::UnsuitableSource);
}

} // namespace
