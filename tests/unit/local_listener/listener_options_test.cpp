#include "listener/listener_options.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace tv::local {

namespace {

struct Read
{
    std::optional<ListenerOptions> options;
    int exitCode = -1;
    std::string out;
    std::string err;
};

Read ReadFrom(const std::vector<std::string>& arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    Read read;
    read.options = ReadListenerOptions(arguments, out, err, read.exitCode);
    read.out = out.str();
    read.err = err.str();
    return read;
}

TEST(ListenerOptionsTest, WithoutArgumentsItAnswersAndNeverEnds)
{
    const Read read = ReadFrom({});
    ASSERT_TRUE(read.options);
    EXPECT_EQ(read.options->count, 0);
    EXPECT_FALSE(read.options->silent);
}

TEST(ListenerOptionsTest, CountAndSilenceAreTaken)
{
    const Read read = ReadFrom({"--count", "3", "--no-answer"});
    ASSERT_TRUE(read.options);
    EXPECT_EQ(read.options->count, 3);
    EXPECT_TRUE(read.options->silent);
}

TEST(ListenerOptionsTest, WrongUsageIsToldInOneLineWithCodeTwo)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--count", "0"}, {"--count", "many"}, {"--count"}, {"something"}, {"--loud"}}) {
        const Read read = ReadFrom(arguments);
        EXPECT_FALSE(read.options);
        EXPECT_EQ(read.exitCode, 2);
        EXPECT_EQ(read.out, "");
        EXPECT_EQ(std::count(read.err.begin(), read.err.end(), '\n'), 1) << read.err;
        EXPECT_TRUE(read.err.starts_with("tvlisten: ")) << read.err;
    }
}

TEST(ListenerOptionsTest, HelpIsPrintedAndDone)
{
    const Read read = ReadFrom({"--help"});
    EXPECT_FALSE(read.options);
    EXPECT_EQ(read.exitCode, 0);
    EXPECT_NE(read.out.find("tvlisten --count 3"), std::string::npos);
}

} // namespace

} // namespace tv::local
