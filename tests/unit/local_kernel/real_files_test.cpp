// Files that others made, where the machine has them: Debian's packages occt-misc and gmsh-doc.
#include "kernel_test_support.h"

#include <gtest/gtest.h>

namespace {

using namespace tv::kernel;
using namespace tv::kernel::test;

struct RealFile
{
    const char* path;
    double volume; // 0 for loose faces
    double size[3];
    int solids;
};

const RealFile kRealFiles[] = {
    {"/usr/share/opencascade/data/step/screw.step", 3788.27, {19.8431, 20, 42.2951}, 1},
    {"/usr/share/opencascade/data/step/linkrods.step", 3.847, {5.02028, 1.5, 2}, 1},
    {"/usr/share/opencascade/data/iges/hammer.iges", 0, {13178.8, 4289.72, 38431.4}, 0},
    {"/usr/share/opencascade/data/stl/shape.stl", 328753, {297, 168.609, 90}, 0},
};

TEST(RealFiles, AreMeasured)
{
    for (const auto& [path, volume, size, solids] : kRealFiles) {
        if (!std::filesystem::exists(path)) {
            GTEST_SKIP() << path << " is not on this machine; it is in Debian's package occt-misc";
        }
        SCOPED_TRACE(path);
        const auto measured = Inspect(path);
        ASSERT_TRUE(measured) << measured.error().message;
        EXPECT_EQ(measured->kind, SourceKind::Neutral);
        EXPECT_NEAR(measured->volume, volume, volume * 1e-5 + 1e-9);
        EXPECT_EQ(measured->solids, solids);
        for (size_t axis = 0; axis < 3; axis++) {
            EXPECT_NEAR(measured->box.high[axis] - measured->box.low[axis], size[axis], size[axis] * 1e-5);
        }
    }
}

TEST(RealFiles, BecomeStepStlAndPdf)
{
    const TemporaryFolder folder;
    for (const auto& [path, volume, size, solids] : kRealFiles) {
        if (!std::filesystem::exists(path)) {
            GTEST_SKIP() << path << " is not on this machine; it is in Debian's package occt-misc";
        }
        SCOPED_TRACE(path);
        for (const char* extension : {".step", ".stl", ".pdf"}) {
            const auto saved = Convert(path, folder / ("out" + std::string(extension)));
            ASSERT_TRUE(saved) << extension << ": " << saved.error().message;
            EXPECT_GT(saved->bytes, 1000u);
        }
        const auto read = Inspect(folder / "out.step");
        ASSERT_TRUE(read) << read.error().message;
        EXPECT_NEAR(read->volume, volume, volume * 1e-4 + 1e-9);
        EXPECT_NEAR(read->box.high[2] - read->box.low[2], size[2], size[2] * 1e-3);
    }
}

TEST(RealFiles, AnAssemblyKeepsItsSolidsAndNamesThroughStep)
{
    const TemporaryFolder folder;
    const std::string packed = "/usr/share/doc/gmsh-doc/doc/gmsh/demos/api/as1-tu-203.stp.gz";
    if (!std::filesystem::exists(packed)) {
        GTEST_SKIP() << packed << " is not on this machine; it is in Debian's package gmsh-doc";
    }
    OutputOf("gunzip -c " + packed + " > '" + folder / "as1.stp" + "'");
    ASSERT_TRUE(Convert(folder / "as1.stp", folder / "out.step"));
    const auto source = Inspect(folder / "as1.stp");
    const auto target = Inspect(folder / "out.step");
    EXPECT_EQ(source->solids, 18);
    EXPECT_EQ(target->solids, 18);
    EXPECT_NEAR(target->volume, source->volume, source->volume * 1e-6);
    EXPECT_NE(ReadFile(folder / "out.step").find("l-bracket-assembly"), std::string::npos);
}

TEST(RealFiles, AMeshOfAHundredThousandTrianglesIsNotTurnedIntoFaces)
{
    const std::string head = "/usr/share/opencascade/data/stl/head.stl";
    if (!std::filesystem::exists(head)) {
        GTEST_SKIP() << head << " is not on this machine; it is in Debian's package occt-misc";
    }
    const TemporaryFolder folder;
    EXPECT_EQ(Convert(head, folder / "head.step").error().code, ErrorCode::UnsuitableSource);
    EXPECT_TRUE(Convert(head, folder / "head.stl"));
}

} // namespace
