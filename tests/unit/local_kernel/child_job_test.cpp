#include "server/child_job.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace tv::kernel;
using std::chrono::milliseconds;

const Limits kPlenty{milliseconds(600'000), uint64_t{2} << 30};

/// Reads memory that the compiler can't know to be unused.
std::string Hog()
{
    size_t sum = 0;
    std::vector<std::vector<char>> blocks;
    while (true) {
        blocks.emplace_back(size_t{8} << 20, 'x');
        sum += static_cast<size_t>(blocks.back()[sum % 1000]);
    }
    return std::to_string(sum);
}

std::string Loop()
{
    volatile bool forever = true;
    while (forever) {
    }
    return {};
}

bool HasChildren()
{
    return waitpid(-1, nullptr, WNOHANG) >= 0 || errno != ECHILD;
}

TEST(ChildJob, GivesBackWhatTheWorkReturned)
{
    const std::string large(300'000, 'y');
    EXPECT_EQ(**RunInChild([&large] { return large; }, kPlenty, "a.step", kNobodyWatches), large);
    EXPECT_FALSE(HasChildren());
}

TEST(ChildJob, WhatTheWorkPrintsGoesNowhere)
{
    testing::internal::CaptureStdout();
    EXPECT_EQ(**RunInChild(
                  [] {
                      const char noise[] = "noise";
                      return std::to_string(write(STDOUT_FILENO, noise, 5));
                  },
                  kPlenty, "a.step", kNobodyWatches),
              "5");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(ChildJob, ALoopIsEndedAtTheTimeLimit)
{
    const auto result = RunInChild(Loop, {milliseconds(200), kPlenty.memoryBytes}, "a.step", kNobodyWatches);
    EXPECT_EQ(result->error().code, ErrorCode::TimedOut);
    EXPECT_EQ(result->error().message, "\"a.step\": the job was ended at its time limit of 200 ms.");
    EXPECT_FALSE(HasChildren());
}

TEST(ChildJob, AHogIsEndedAtTheMemoryLimit)
{
    const auto result = RunInChild(Hog, {kPlenty.time, uint64_t{512} << 20}, "a.step", kNobodyWatches);
    EXPECT_EQ(result->error().code, ErrorCode::OutOfMemory);
    EXPECT_EQ(result->error().message, "\"a.step\": the job was ended at its memory limit of 512 MB.");
    EXPECT_FALSE(HasChildren());
}

TEST(ChildJob, ACrashIsAFailedJob)
{
    const auto result = RunInChild(
        [] {
            std::signal(SIGABRT, SIG_DFL);
            std::raise(SIGABRT);
            return std::string();
        },
        kPlenty, "a.step", kNobodyWatches);
    EXPECT_EQ(result->error().code, ErrorCode::Crashed);
    EXPECT_NE(result->error().message.find("a.step"), std::string::npos);
    EXPECT_FALSE(HasChildren());
}

TEST(ChildJob, EndsWhenNobodyWaitsForItAnyMore)
{
    int ends[2];
    int begun[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    ASSERT_EQ(pipe(begun), 0);
    std::thread leaver([&] {
        char byte = 0;
        EXPECT_EQ(read(begun[0], &byte, 1), 1);
        close(ends[1]);
    });
    const auto work = [&] {
        close(ends[1]); // the fork copied it, and an application's end is in another process
        return write(begun[1], "b", 1) == 1 ? Loop() : std::string();
    };
    EXPECT_FALSE(RunInChild(work, kPlenty, "a.step", ends[0]).has_value());
    close(begun[1]);
    leaver.join();
    close(begun[0]);
    close(ends[0]);
    EXPECT_FALSE(HasChildren());
}

} // namespace
