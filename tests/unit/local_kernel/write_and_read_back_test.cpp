#include "kernel_test_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using namespace tv::kernel;
using namespace tv::kernel::test;
using std::numbers::pi;

struct Solid
{
    const char* name;
    const char* features;
    double volume;
    Box box;
    int faces;
};

const Solid kSolids[] = {
    {"box",
     R"({"type": "box", "size": [10, 20, 30], "placement": {"origin": [1, 2, 3]}})",
     6000,
     {{1, 2, 3}, {11, 22, 33}},
     6},
    {"cylinder", R"({"type": "cylinder", "radius": 5, "height": 12})", pi * 25 * 12, {{-5, -5, 0}, {5, 5, 12}}, 3},
    {"cone",
     R"({"type": "cone", "bottomRadius": 6, "topRadius": 3, "height": 10})",
     pi * 10 / 3 * (36 + 18 + 9),
     {{-6, -6, 0}, {6, 6, 10}},
     3},
    {"sphere", R"({"type": "sphere", "radius": 7})", 4.0 / 3 * pi * 343, {{-7, -7, -7}, {7, 7, 7}}, 1},
    {"prism",
     R"({"type": "extrusion", "polygon": [[0, 0], [8, 0], [0, 6]], "height": 5})",
     120,
     {{0, 0, 0}, {8, 6, 5}},
     5},
    {"bored block",
     R"({"type": "box", "size": [40, 30, 20]},
        {"type": "cylinder", "radius": 6, "height": 22, "operation": "cut", "placement": {"origin": [20, 15, -1]}})",
     24000 - pi * 36 * 20,
     {{0, 0, 0}, {40, 30, 20}},
     7},
    {"joined blocks",
     R"({"type": "box", "size": [10, 10, 10]},
        {"type": "box", "size": [10, 10, 10], "placement": {"origin": [5, 0, 0]}})",
     1500,
     {{0, 0, 0}, {15, 10, 10}},
     6},
};

void ExpectBox(const Box& box, const Box& expected, double tolerance)
{
    for (size_t axis = 0; axis < 3; axis++) {
        EXPECT_NEAR(box.low[axis], expected.low[axis], tolerance);
        EXPECT_NEAR(box.high[axis], expected.high[axis], tolerance);
    }
}

struct Format
{
    const char* extension;
    std::map<std::string, std::string> options;
    double tolerance; // of the volume, and of a coordinate as a part of the size
};

class WrittenAndReadBack : public testing::TestWithParam<Format>
{};

TEST_P(WrittenAndReadBack, VolumeAndBoxAgreeWithTheSource)
{
    const TemporaryFolder folder;
    for (const Solid& solid : kSolids) {
        SCOPED_TRACE(solid.name);
        const std::string source = folder.Write("source.tvnprt", PartText(solid.features));
        const std::string target = folder / (std::string("target") + GetParam().extension);
        const auto saved = Convert(source, target, GetParam().options);
        ASSERT_TRUE(saved) << saved.error().message;
        EXPECT_EQ(saved->target, target);
        EXPECT_EQ(saved->bytes, std::filesystem::file_size(target));
        const auto read = Inspect(target);
        ASSERT_TRUE(read) << read.error().message;
        EXPECT_NEAR(read->volume, solid.volume, solid.volume * GetParam().tolerance);
        ExpectBox(read->box, solid.box, 40 * GetParam().tolerance);
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, WrittenAndReadBack,
                         testing::Values(Format{".step", {{"schema", "AP203"}}, 1e-6},
                                         Format{".stp", {{"schema", "AP214"}}, 1e-6}, Format{".brep", {}, 1e-6},
                                         Format{".igs", {{"representation", "surfaces"}}, 1e-5},
                                         Format{".iges", {{"representation", "solids"}}, 1e-5},
                                         Format{".stl", {{"binary", "true"}, {"quality", "fine"}}, 0.02},
                                         Format{".stl", {{"binary", "false"}, {"quality", "fine"}}, 0.02}));

TEST(PartShapes, VolumeBoxAndFacesAreThoseOfTheSolid)
{
    const TemporaryFolder folder;
    for (const Solid& solid : kSolids) {
        SCOPED_TRACE(solid.name);
        const auto measured = Inspect(folder.Write("source.tvnprt", PartText(solid.features)));
        ASSERT_TRUE(measured) << measured.error().message;
        EXPECT_EQ(measured->kind, SourceKind::Part);
        EXPECT_NEAR(measured->volume, solid.volume, solid.volume * 1e-6);
        ExpectBox(measured->box, solid.box, 1e-5);
        EXPECT_EQ(measured->solids, 1);
        EXPECT_EQ(measured->faces, solid.faces);
    }
}

TEST(StepFiles, NameTheChosenSchemaMillimetresAndTheirOwnName)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "a.step", {{"schema", "AP203"}}));
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "b.step", {{"schema", "AP214"}}));
    EXPECT_NE(ReadFile(folder / "a.step").find("CONFIG_CONTROL_DESIGN"), std::string::npos);
    EXPECT_NE(ReadFile(folder / "b.step").find("AUTOMOTIVE_DESIGN"), std::string::npos);
    EXPECT_NE(ReadFile(folder / "b.step").find("SI_UNIT(.MILLI.,.METRE.)"), std::string::npos);
    EXPECT_NE(ReadFile(folder / "b.step").find("FILE_NAME('b.step'"), std::string::npos);
}

TEST(StepFiles, KeepTheNamesOfAnAssemblysComponents)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("gearbox.tvnasm"), folder / "g.step"));
    const std::string text = ReadFile(folder / "g.step");
    for (const char* name : {"'gearbox'", "'Housing-1'", "'Flange-2'", "'Bracket-2'"}) {
        EXPECT_NE(text.find(name), std::string::npos) << name;
    }
    EXPECT_EQ(Inspect(folder / "g.step")->solids, 5);
}

TEST(StlFiles, TheUnitScalesTheCoordinates)
{
    const struct
    {
        const char* unit;
        double size;
    } cases[] = {{"mm", 254}, {"cm", 25.4}, {"m", 0.254}, {"in", 10}, {"ft", 254 / 304.8}};
    const TemporaryFolder folder;
    const std::string source = folder.Write("c.tvnprt", PartText(R"({"type": "box", "size": [254, 254, 254]})"));
    for (const auto& [unit, size] : cases) {
        ASSERT_TRUE(Convert(source, folder / "c.stl", {{"unit", unit}}));
        EXPECT_NEAR(Inspect(folder / "c.stl")->box.high[0], size, size * 1e-6) << unit;
    }
}

TEST(StlFiles, StayWhereTheModelIsUnlessTheyAreMovedToPositiveSpace)
{
    const TemporaryFolder folder;
    const std::string source = folder.Write("s.tvnprt", PartText(R"({"type": "box", "size": [4, 4, 4],
                                                                     "placement": {"origin": [-9, 5, -2]}})"));
    ASSERT_TRUE(Convert(source, folder / "stay.stl"));
    ASSERT_TRUE(Convert(source, folder / "move.stl", {{"positive", "true"}}));
    ExpectBox(Inspect(folder / "stay.stl")->box, {{-9, 5, -2}, {-5, 9, 2}}, 1e-5);
    ExpectBox(Inspect(folder / "move.stl")->box, {{0, 0, 0}, {4, 4, 4}}, 1e-5);
}

TEST(StlFiles, ABinaryOneHasFiftyBytesATriangleAndATextOneBeginsWithSolid)
{
    const TemporaryFolder folder;
    const std::string source = folder.Write("b.tvnprt", PartText(R"({"type": "box", "size": [1, 1, 1]})"));
    ASSERT_TRUE(Convert(source, folder / "b.stl", {{"binary", "true"}}));
    ASSERT_TRUE(Convert(source, folder / "t.stl", {{"binary", "false"}}));
    EXPECT_EQ(std::filesystem::file_size(folder / "b.stl"), 84u + 50u * 12u);
    EXPECT_NE(ReadFile(folder / "b.stl").substr(0, 5), "solid");
    EXPECT_EQ(ReadFile(folder / "t.stl").substr(0, 8), "solid b\n");
    EXPECT_EQ(Inspect(folder / "t.stl")->triangles, 12);
}

TEST(StlFiles, FineOnesHaveMoreTrianglesAndAreCloser)
{
    const TemporaryFolder folder;
    const std::string source = folder.Write("s.tvnprt", PartText(R"({"type": "sphere", "radius": 10})"));
    ASSERT_TRUE(Convert(source, folder / "coarse.stl", {{"quality", "coarse"}}));
    ASSERT_TRUE(Convert(source, folder / "fine.stl", {{"quality", "fine"}}));
    EXPECT_GT(Inspect(folder / "fine.stl")->triangles, 2 * Inspect(folder / "coarse.stl")->triangles);
    EXPECT_GT(Inspect(folder / "fine.stl")->volume, Inspect(folder / "coarse.stl")->volume);
}

TEST(StlFiles, AMeshBecomesASolidInStep)
{
    const TemporaryFolder folder;
    const std::string source = folder.Write("b.tvnprt", PartText(R"({"type": "box", "size": [3, 4, 5]})"));
    ASSERT_TRUE(Convert(source, folder / "b.stl"));
    const auto saved = Convert(folder / "b.stl", folder / "b.step");
    ASSERT_TRUE(saved) << saved.error().message;
    const auto read = Inspect(folder / "b.step");
    EXPECT_EQ(read->solids, 1);
    EXPECT_EQ(read->faces, 6);
    EXPECT_NEAR(read->volume, 60, 1e-4);
}

TEST(VrmlFiles, HoldEachPartsTrianglesInTheChosenUnit)
{
    const TemporaryFolder folder;
    const std::string source = folder.Write("b.tvnprt", PartText(R"({"type": "box", "size": [50, 60, 70]})"));
    ASSERT_TRUE(Convert(source, folder / "b.wrl", {{"unit", "cm"}}));
    const std::string text = ReadFile(folder / "b.wrl");
    EXPECT_EQ(text.substr(0, 16), "#VRML V2.0 utf8\n");
    EXPECT_NE(text.find("        5 6 7,\n"), std::string::npos);
    ASSERT_TRUE(Convert(Sample("gearbox.tvnasm"), folder / "g.wrl"));
    EXPECT_NE(ReadFile(folder / "g.wrl").find("DEF Part_Bracket_2_5 Shape"), std::string::npos);
}

TEST(Targets, AFormatThatCantBeWrittenHasAnErrorOfItsOwn)
{
    const TemporaryFolder folder;
    for (const char* extension : {".x_t", ".x_b", ".sat", ".u3d", ".hcg", ".zprt", ".xaml", ".vda", ""}) {
        const auto saved = Convert(Sample("bracket.tvnprt"), folder / ("b" + std::string(extension)));
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().code, ErrorCode::UnsupportedFormat) << extension;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(Targets, AnOptionThatTheFormatDoesntHaveIsRefused)
{
    const TemporaryFolder folder;
    const auto unknown = Convert(Sample("bracket.tvnprt"), folder / "b.igs", {{"unit", "mm"}});
    EXPECT_EQ(unknown.error().code, ErrorCode::BadRequest);
    EXPECT_EQ(unknown.error().message, "IGES has no option \"unit\"; it has representation.");
    const auto wrong = Convert(Sample("bracket.tvnprt"), folder / "b.stl", {{"unit", "yard"}});
    EXPECT_EQ(wrong.error().message, "The option \"unit\" of STL can't be \"yard\"; it is one of mm|cm|m|in|ft.");
}

TEST(Targets, AMissingFolderOrAReadOnlyFileIsAnErrorAndNothingChanges)
{
    const TemporaryFolder folder;
    EXPECT_EQ(Convert(Sample("bracket.tvnprt"), folder / "none/b.stl").error().code, ErrorCode::CannotWrite);
    const std::string kept = folder.Write("kept.stl", "precious");
    std::filesystem::permissions(kept, std::filesystem::perms::owner_read);
    EXPECT_EQ(Convert(Sample("bracket.tvnprt"), kept).error().code, ErrorCode::CannotWrite);
    EXPECT_EQ(ReadFile(kept), "precious");
}

TEST(Targets, AFailedJobLeavesTheOldFileAndNoTemporaryOne)
{
    const TemporaryFolder folder;
    const std::string old = folder.Write("b.stl", "old");
    EXPECT_FALSE(Convert(folder / "missing.tvnprt", old));
    EXPECT_EQ(ReadFile(old), "old");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(Targets, AFileThatStandsThereIsReplaced)
{
    const TemporaryFolder folder;
    const std::string old = folder.Write("b.stl", "old");
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), old));
    EXPECT_GT(Inspect(old)->triangles, 0);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

} // namespace
