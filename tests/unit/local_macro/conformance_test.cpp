// Runs every file below the folder conformance. Comments in it tell what is expected:
//   '> text                  a line that the macro prints
//   '! number description    the run-time error that ends it; without a description any will do
//   '? line:column message   why it is no macro; nothing may run then

#include "local_macro/script_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace tv::macro {

namespace {

/// Paths below the folder without their extension, with "/" between folder and file.
std::vector<std::string> ConformanceFiles()
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(TV_CONFORMANCE)) {
        if (entry.path().extension() == ".bas") {
            files.push_back(entry.path().lexically_relative(TV_CONFORMANCE).replace_extension().generic_string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

struct Expectation
{
    std::vector<std::string> printed;
    std::string problem;
    int32_t error = 0;
    std::string description;

    bool Empty() const { return printed.empty() && problem.empty() && error == 0; }
};

Expectation ReadExpectation(const std::string& source)
{
    Expectation expected;
    std::istringstream lines(source);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("'> ")) {
            expected.printed.push_back(line.substr(3));
        } else if (line == "'>") {
            expected.printed.emplace_back();
        } else if (line.starts_with("'? ")) {
            expected.problem = line.substr(3);
        } else if (line.starts_with("'! ")) {
            size_t end = 0;
            expected.error = std::stoi(line.substr(3), &end);
            expected.description = line.substr(std::min(line.size(), 3 + end + 1));
        }
    }
    return expected;
}

class Conformance : public testing::TestWithParam<std::string>
{};

} // namespace

TEST_P(Conformance, Behaves)
{
    std::ifstream file(std::string(TV_CONFORMANCE) + "/" + GetParam() + ".bas", std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    const std::string source = bytes.str();
    const Expectation expected = ReadExpectation(source);
    ASSERT_FALSE(expected.Empty()) << "the file expects nothing";
    ScriptResult result = RunModule(source);
    EXPECT_EQ(result.FirstProblem(), expected.problem);
    EXPECT_EQ(result.printed, expected.printed);
    EXPECT_EQ(result.run.number, expected.error) << Narrow(result.run.description) << " at line " << result.run.line;
    if (!expected.description.empty()) {
        EXPECT_EQ(Narrow(result.run.description), expected.description);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, Conformance, testing::ValuesIn(ConformanceFiles()), [](const auto& file) {
    std::string name = file.param;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
});

} // namespace tv::macro
