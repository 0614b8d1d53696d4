// Runs every file of the folder conformance. Comments at its head tell what is expected:
//   '> text    a line that the macro prints
//   '! number  the run-time error that ends it

#include "local_macro/script_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tv::macro {

namespace {

std::vector<std::string> ConformanceFiles()
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(TV_CONFORMANCE)) {
        if (entry.path().extension() == ".bas") {
            files.push_back(entry.path().stem().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

class Conformance : public testing::TestWithParam<std::string>
{};

} // namespace

TEST_P(Conformance, Behaves)
{
    std::ifstream file(std::string(TV_CONFORMANCE) + "/" + GetParam() + ".bas", std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    std::string source = bytes.str();
    std::vector<std::string> expected;
    int32_t error = 0;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("'> ")) {
            expected.push_back(line.substr(3));
        } else if (line.starts_with("'! ")) {
            error = std::stoi(line.substr(3));
        }
    }
    ASSERT_TRUE(!expected.empty() || error != 0) << "the file expects nothing";
    ScriptResult result = RunModule(source);
    EXPECT_EQ(result.FirstProblem(), "");
    EXPECT_EQ(result.printed, expected);
    EXPECT_EQ(result.run.number, error);
}

INSTANTIATE_TEST_SUITE_P(Files, Conformance, testing::ValuesIn(ConformanceFiles()),
                         [](const auto& file) { return file.param; });

} // namespace tv::macro
