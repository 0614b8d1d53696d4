#include "kernel_test_support.h"

#include <gtest/gtest.h>

namespace {

using namespace tv::kernel;
using namespace tv::kernel::test;

void ExpectDamaged(const std::string& file)
{
    const auto result = Inspect(file);
    ASSERT_FALSE(result) << file;
    EXPECT_EQ(result.error().code, ErrorCode::Damaged) << result.error().message;
    EXPECT_NE(result.error().message.find(file), std::string::npos) << result.error().message;
}

/// Files of each neutral format that are cut off at a part of their length.
class CutOff : public testing::TestWithParam<const char*>
{};

TEST_P(CutOff, IsRefusedByName)
{
    const TemporaryFolder folder;
    const std::string whole = folder / ("whole" + std::string(GetParam()));
    std::map<std::string, std::string> options;
    if (std::string(GetParam()) == ".stl") {
        options["binary"] = "true";
    }
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), whole, options));
    const std::string text = ReadFile(whole);
    for (const size_t percent : {0u, 1u, 30u, 50u, 90u, 99u}) {
        SCOPED_TRACE(percent);
        ExpectDamaged(folder.Write("cut" + std::string(GetParam()), text.substr(0, text.size() * percent / 100)));
    }
}

INSTANTIATE_TEST_SUITE_P(Formats, CutOff, testing::Values(".step", ".igs", ".stl", ".brep"));

TEST(DamagedFiles, ATextStlWithoutItsEndIsRefused)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "a.stl", {{"binary", "false"}}));
    const std::string text = ReadFile(folder / "a.stl");
    ExpectDamaged(folder.Write("cut.stl", text.substr(0, text.size() / 2)));
}

TEST(DamagedFiles, AStepFileWithGarbageInTheMiddleIsRefused)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "a.step"));
    std::string text = ReadFile(folder / "a.step");
    text.replace(text.size() / 2, 300, std::string(300, 'Z'));
    ExpectDamaged(folder.Write("garbage.step", text));
}

TEST(DamagedFiles, AStepFileWithMissingLinesIsRefused)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(Convert(Sample("bracket.tvnprt"), folder / "a.step"));
    std::string text = ReadFile(folder / "a.step");
    const size_t from = text.find("\n#", text.size() / 2);
    text.erase(from, text.find("\n#", from + 2000) - from);
    ExpectDamaged(folder.Write("hole.step", text));
}

TEST(DamagedFiles, SomethingElseUnderANeutralExtensionIsRefused)
{
    const TemporaryFolder folder;
    for (const char* name : {"a.step", "a.stp", "a.igs", "a.iges", "a.stl", "a.brep", "a.brp", "a.tvnprt"}) {
        ExpectDamaged(folder.Write(name, "This is a letter to a friend.\n"));
    }
}

TEST(DamagedFiles, AFileThatIsNotThereIsNamed)
{
    for (const char* file :
         {"/nowhere/a.step", "/nowhere/a.igs", "/nowhere/a.stl", "/nowhere/a.brep", "/nowhere/a.tvnprt"}) {
        const auto result = Inspect(file);
        EXPECT_EQ(result.error().code, ErrorCode::FileNotFound) << file;
        EXPECT_EQ(result.error().message, "The file \"" + std::string(file) + "\" is not there.");
    }
}

TEST(DamagedFiles, AFormatThatCantBeReadHasAnErrorOfItsOwn)
{
    const auto result = Inspect("/tmp/a.x_t");
    EXPECT_EQ(result.error().code, ErrorCode::UnsupportedFormat);
    EXPECT_EQ(result.error().message, "The file \"/tmp/a.x_t\" can't be opened: there is no reader for \".x_t\".");
}

TEST(DamagedFiles, ADocumentOfALaterVersionIsToldFromADamagedOne)
{
    const TemporaryFolder folder;
    const auto result = Inspect(folder.Write("a.tvnprt", R"({"format": "torvane-part", "version": 7})"));
    EXPECT_EQ(result.error().code, ErrorCode::FutureVersion);
}

} // namespace
