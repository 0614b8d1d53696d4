// Replays the seeds of every fuzz target, what was found once, and a fixed number of mutations with a fixed seed, so
// that each run is the same.

#include "targets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace tv::fuzz {

namespace {

using Input = std::vector<uint8_t>;

Input ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    const std::string text = bytes.str();
    return Input(text.begin(), text.end());
}

std::vector<std::filesystem::path> FilesBelow(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    if (std::filesystem::exists(folder)) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (entry.is_regular_file() && entry.path().extension() != ".txt") {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// Pseudo-random numbers that are the same everywhere.
class Dice
{
  public:
    size_t Below(size_t bound)
    {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return static_cast<size_t>(state % bound);
    }

  private:
    uint64_t state = 0x9E3779B97F4A7C15;
};

constexpr auto kWords = std::to_array<std::string_view>({
    " To ",
    "(",
    ")",
    ",",
    ":",
    "\n",
    "\"",
    " = ",
    " & ",
    " As String * 3",
    "ReDim Preserve ",
    "Next\n",
    "End If\n",
    "End Sub\n",
    "On Error Resume Next\n",
    "Resume\n",
    "Set ",
    "Nothing",
    "Null",
    "&HFFFF",
    "1E308",
    "-",
    " Mod ",
    "^",
    "[",
    "]",
    "<Path>",
    "{",
    "}",
    "#If ",
    "#End If\n",
    " _\n",
    "ParamArray ",
    "ByVal ",
    "Exit For\n",
    ".",
    "!",
});

Input Mutated(const std::vector<Input>& seeds, Dice& dice)
{
    Input input = seeds[dice.Below(seeds.size())];
    for (size_t changes = 1 + dice.Below(4); changes > 0; --changes) {
        const size_t at = dice.Below(input.size() + 1);
        const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = place + static_cast<std::ptrdiff_t>(std::min(dice.Below(40), input.size() - at));
        switch (dice.Below(5)) {
        case 0:
            input.insert(place, static_cast<uint8_t>(dice.Below(256)));
            break;
        case 1:
            input.erase(place, end);
            break;
        case 2: {
            const Input part(place, end);
            const auto behind = input.begin() + static_cast<std::ptrdiff_t>(dice.Below(input.size() + 1));
            input.insert(behind, part.begin(), part.end());
            break;
        }
        case 3: {
            const std::string_view word = kWords[dice.Below(kWords.size())];
            input.insert(place, word.begin(), word.end());
            break;
        }
        default: {
            const Input& other = seeds[dice.Below(seeds.size())];
            input.erase(place, input.end());
            input.insert(input.end(), other.begin() + static_cast<std::ptrdiff_t>(dice.Below(other.size() + 1)),
                         other.end());
            break;
        }
        }
    }
    return input;
}

std::vector<Input> SeedsOf(const Target& target)
{
    std::vector<Input> seeds;
    if (target.takesMacros) {
        for (const char* folder : {TV_FUZZ_SEEDS, TV_FUZZ_TEMPLATES}) {
            for (const auto& path : FilesBelow(folder)) {
                if (path.extension() == ".bas") {
                    seeds.push_back(ReadBytes(path));
                }
            }
        }
        return seeds;
    }
    Dice dice;
    for (int i = 0; i < 100; ++i) {
        Input bytes(dice.Below(300));
        std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<uint8_t>(dice.Below(256)); });
        seeds.push_back(std::move(bytes));
    }
    return seeds;
}

/// Why the input breaks the target, or nothing.
std::string Breaks(const Target& target, const Input& input)
{
    try {
        target.run(input);
        return {};
    } catch (const std::exception& broken) {
        return std::string(broken.what()) + "; the input:\n" + std::string(input.begin(), input.end());
    }
}

class Fuzz : public testing::TestWithParam<Target>
{};

} // namespace

TEST_P(Fuzz, SurvivesItsSeeds)
{
    for (const Input& seed : SeedsOf(GetParam())) {
        ASSERT_EQ(Breaks(GetParam(), seed), "");
    }
}

TEST_P(Fuzz, SurvivesMutationsOfItsSeeds)
{
    constexpr int kMutations = 200;
    const std::vector<Input> seeds = SeedsOf(GetParam());
    Dice dice;
    for (int i = 0; i < kMutations; ++i) {
        ASSERT_EQ(Breaks(GetParam(), Mutated(seeds, dice)), "") << "mutation " << i;
    }
}

TEST_P(Fuzz, SurvivesWhatWasFoundBefore)
{
    for (const auto& path : FilesBelow(std::filesystem::path(TV_FUZZ_REGRESSIONS) / GetParam().name)) {
        EXPECT_EQ(Breaks(GetParam(), ReadBytes(path)), "") << path.filename();
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Fuzz, testing::ValuesIn(kTargets),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace tv::fuzz
