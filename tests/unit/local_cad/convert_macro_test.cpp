#include "local_cad/world.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace tv::app {

namespace {

void ReplaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/// The convert template as a run would hand it over, with a value for every placeholder.
std::string ConvertMacro(std::map<std::string, std::string> values)
{
    std::ifstream file(TV_TEMPLATES "/convert.bas", std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    std::string text = bytes.str();
    EXPECT_FALSE(text.empty());
    const std::map<std::string, std::string> standard = {{"[ErrorLogPath]", "\\Logs"},
                                                         {"<VaultPath>", "C:\\Vault"},
                                                         {"<TaskInstanceGuid>", "{guid}"},
                                                         {"[OutputPath]", "C:\\Out\\<Filename>_<Configuration>"},
                                                         {"[OutputPath2]", ""},
                                                         {"[OutputSheets]", "2"},
                                                         {"[OutputConfs]", "2"},
                                                         {"[FileSheets]", "4"},
                                                         {"[FileConfs]", "4"},
                                                         {"[NamedSheet]", "*"},
                                                         {"[NamedConf]", "*"}};
    values.insert(standard.begin(), standard.end());
    for (const auto& [name, value] : values) {
        ReplaceAll(text, name, value);
    }
    // What is left in brackets are the format options, which stand bare.
    for (size_t open = text.find('['); open != std::string::npos; open = text.find('[', open)) {
        text.replace(open, text.find(']', open) - open + 1, "0");
    }
    return text;
}

std::vector<std::string> Targets(const World& world)
{
    std::vector<std::string> targets;
    for (const kernel::SaveJob& job : world.geometry.saved) {
        targets.push_back(job.target);
    }
    return targets;
}

} // namespace

TEST(ConvertMacro, EachConfigurationOfAPartGetsAFile)
{
    World world;
    const MacroOutcome outcome =
        world.RunText(ConvertMacro({{"<Filepath>", "C:\\Vault\\bracket.tvnprt"}, {"[FileFormat]", "STL (*.stl)"}}));
    ASSERT_TRUE(outcome.succeeded) << outcome.message;
    EXPECT_EQ(world.files.Bytes(u"C:\\Vault\\Logs\\{guid}.log"), "(missing)");
    EXPECT_EQ(Targets(world), (std::vector<std::string>{"C:\\Out\\bracket_Default.stl", "C:\\Out\\bracket_Long.stl",
                                                        "C:\\Out\\bracket_AB.stl"}));
    EXPECT_EQ(world.geometry.saved[1].items, (std::vector<std::string>{"Long"}));
    EXPECT_TRUE(world.files.HasFolder(u"C:\\Out"));
    EXPECT_FALSE(world.files.Has(u"C:\\Out\\~$holder"));
    EXPECT_TRUE(world.application.Documents().empty());
}

TEST(ConvertMacro, ADrawingsSheetsGoIntoOnePdf)
{
    World world;
    const MacroOutcome outcome = world.RunText(ConvertMacro(
        {{"<Filepath>", "C:\\Vault\\plan.tvndrw"}, {"[FileFormat]", "Adobe PDF (*.pdf)"}, {"[FileSheets]", "2"}}));
    ASSERT_TRUE(outcome.succeeded) << outcome.message;
    ASSERT_EQ(Targets(world), (std::vector<std::string>{"C:\\Out\\plan_All.pdf"}));
    EXPECT_EQ(world.geometry.saved[0].items, (std::vector<std::string>{"Sheet1", "Sheet2"}));
}

TEST(ConvertMacro, ASheetOfADrawingGetsAPdfOfItsOwn)
{
    World world;
    const MacroOutcome outcome =
        world.RunText(ConvertMacro({{"<Filepath>", "C:\\Vault\\plan.tvndrw"}, {"[FileFormat]", "Adobe PDF (*.pdf)"}}));
    ASSERT_TRUE(outcome.succeeded) << outcome.message;
    EXPECT_EQ(Targets(world), (std::vector<std::string>{"C:\\Out\\plan_Sheet1.pdf", "C:\\Out\\plan_Sheet2.pdf"}));
    EXPECT_EQ(world.geometry.saved[0].items, (std::vector<std::string>{"Sheet1"}));
}

TEST(ConvertMacro, VirtualComponentsAreConvertedDepthFirst)
{
    World world;
    const MacroOutcome outcome =
        world.RunText(ConvertMacro({{"<Filepath>", "C:\\Vault\\gearbox.tvnasm"}, {"[FileFormat]", "STEP (*.step)"}}));
    ASSERT_TRUE(outcome.succeeded) << outcome.message;
    EXPECT_EQ(Targets(world), (std::vector<std::string>{
                                  "C:\\Out\\gearbox_Default.step", "C:\\Out\\Cover-1^gearbox_Default.step",
                                  "C:\\Out\\Sub-1^gearbox_Default.step", "C:\\Out\\Pin-1^Sub-1^gearbox_Default.step"}));
}

TEST(ConvertMacro, ANeutralFileIsLoadedAndConverted)
{
    World world;
    const MacroOutcome outcome = world.RunText(ConvertMacro({{"<Filepath>", "C:\\Vault\\screw.step"},
                                                             {"[FileFormat]", "STL (*.stl)"},
                                                             {"[OutputPath2]", "C:\\Second\\<Filename>-<Extension>"}}));
    ASSERT_TRUE(outcome.succeeded) << outcome.message;
    EXPECT_EQ(Targets(world), (std::vector<std::string>{"C:\\Out\\screw_Default.stl", "C:\\Second\\screw-step.stl"}));
}

TEST(ConvertMacro, ADamagedFileIsLoggedWithItsNameAndTheMacroEndsInOrder)
{
    World world;
    world.geometry.failures["C:\\Vault\\screw.step"] = {kernel::ErrorCode::Damaged, "damaged"};
    const MacroOutcome outcome =
        world.RunText(ConvertMacro({{"<Filepath>", "C:\\Vault\\screw.step"}, {"[FileFormat]", "STL (*.stl)"}}));
    EXPECT_TRUE(outcome.succeeded) << outcome.message;
    EXPECT_EQ(world.files.Bytes(u"C:\\Vault\\Logs\\{guid}.log"),
              "Error while converting file 'C:\\Vault\\screw.step': \r\n"
              "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
              "Error number: 91\r\n"
              "Error description: 'Object variable or With block variable not set'\r\n\r\n");
}

TEST(ConvertMacro, AFailedSaveIsLoggedWithItsTargetAndErrorCode)
{
    World world;
    world.geometry.failures["C:\\Vault\\bracket.tvnprt"] = {kernel::ErrorCode::CannotWrite, "disk full"};
    const MacroOutcome outcome = world.RunText(ConvertMacro(
        {{"<Filepath>", "C:\\Vault\\bracket.tvnprt"}, {"[FileFormat]", "STL (*.stl)"}, {"[OutputConfs]", "4"}}));
    EXPECT_TRUE(outcome.succeeded) << outcome.message;
    EXPECT_EQ(world.files.Bytes(u"C:\\Vault\\Logs\\{guid}.log"),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\bracket_Default.stl' and configuration "
              "'Default' failed. Error code 1 returned.\r\n");
}

} // namespace tv::app
