// The real program, started and spoken to as the application does.
#include "client/kernel_client.h"
#include "kernel_test_support.h"

#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using namespace tv::kernel;
using namespace tv::kernel::test;
using std::chrono::milliseconds;

/// False when it isn't so after a minute.
bool BecomesTrue(const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        std::this_thread::sleep_for(milliseconds(5));
    }
    return true;
}

class KernelProcess
{
  public:
    ~KernelProcess()
    {
        for (const pid_t pid : processes) {
            kill(pid, SIGKILL);
            waitpid(pid, nullptr, 0);
        }
    }

    KernelClientSettings Settings()
    {
        KernelClientSettings settings;
        settings.start = [this](const std::vector<std::string>& arguments) { return Start(arguments); };
        settings.connectWithin = std::chrono::minutes(1);
        settings.grace = std::chrono::minutes(1);
        return settings;
    }

    /// The one started last, 0 before the first. May be asked while another thread starts one.
    pid_t pid() const { return latest; }
    size_t starts() const { return processes.size(); }

    /// Its exit code, once it has ended by itself; -1 if it hasn't after a minute.
    int WaitForExit()
    {
        int status = 0;
        if (!BecomesTrue([&] { return waitpid(pid(), &status, WNOHANG) == pid(); })) {
            return -1;
        }
        processes.pop_back();
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    bool Start(const std::vector<std::string>& arguments)
    {
        std::vector<char*> argv{const_cast<char*>(TV_KERNEL_PROGRAM)};
        for (const std::string& argument : arguments) {
            argv.push_back(const_cast<char*>(argument.c_str()));
        }
        argv.push_back(nullptr);
        pid_t pid = 0;
        const bool started = posix_spawn(&pid, TV_KERNEL_PROGRAM, nullptr, nullptr, argv.data(), environ) == 0;
        if (started) {
            processes.push_back(pid);
            latest = pid;
        }
        return started;
    }

    std::vector<pid_t> processes;
    std::atomic<pid_t> latest = 0;
};

std::vector<pid_t> ChildrenOf(pid_t parent)
{
    std::ifstream list("/proc/" + std::to_string(parent) + "/task/" + std::to_string(parent) + "/children");
    std::vector<pid_t> children;
    for (pid_t child = 0; list >> child;) {
        children.push_back(child);
    }
    return children;
}

/// A part that takes the kernel a good while: a plate with some hundreds of bores.
std::string LongJobText()
{
    std::string features = R"({"type": "box", "size": [900, 900, 10]})";
    for (int x = 0; x < 20; x++) {
        for (int y = 0; y < 20; y++) {
            features +=
                R"(, {"type": "cylinder", "radius": 9, "height": 20, "operation": "cut", "placement": {"origin": [)" +
                std::to_string(40 + 42 * x) + "," + std::to_string(40 + 42 * y) + ", -5]}}";
        }
    }
    return PartText(features);
}

/// 0 when there is none after a minute.
pid_t WaitForChildOf(pid_t parent)
{
    std::vector<pid_t> children;
    BecomesTrue([&] { return !(children = ChildrenOf(parent)).empty(); });
    return children.empty() ? 0 : children.front();
}

SaveJob SaveTo(const std::string& source, const std::string& target)
{
    SaveJob job;
    job.source.path = source;
    job.target = target;
    return job;
}

bool IsAlive(pid_t pid)
{
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string number, name, state;
    stat >> number >> name >> state;
    return !state.empty() && state != "Z";
}

bool Dies(pid_t pid)
{
    return BecomesTrue([pid] { return !IsAlive(pid); });
}

TEST(Tvkernel, ServesJobsOverTheConnection)
{
    const TemporaryFolder folder;
    KernelProcess process;
    KernelClient client(process.Settings());
    const auto saved = client.Save(SaveTo(Sample("bracket.tvnprt"), folder / "b.step"));
    ASSERT_TRUE(saved) << saved.error().message;
    InspectJob job;
    job.source.path = folder / "b.step";
    const auto read = client.Inspect(job);
    ASSERT_TRUE(read) << read.error().message;
    EXPECT_NEAR(read->volume, 69349.1, 0.1);
    EXPECT_EQ(process.starts(), 1u);
    EXPECT_TRUE(ChildrenOf(process.pid()).empty());
}

TEST(Tvkernel, EndsWhenItsConnectionCloses)
{
    KernelProcess process;
    KernelClient client(process.Settings());
    ASSERT_TRUE(client.Start());
    client.Close();
    EXPECT_EQ(process.WaitForExit(), 0);
}

TEST(Tvkernel, EndsWithItsJobWhenTheApplicationGoesAway)
{
    const TemporaryFolder folder;
    KernelProcess process;
    KernelClientSettings settings = process.Settings();
    settings.grace = milliseconds(0);
    KernelClient client(settings);
    SaveJob job = SaveTo(folder.Write("long.tvnprt", LongJobText()), folder / "long.step");
    std::thread application([&client, &job] { client.Save(job); });
    const bool started = BecomesTrue([&process] { return process.pid() != 0; });
    const pid_t worker = started ? WaitForChildOf(process.pid()) : 0;
    if (started) {
        kill(process.pid(), SIGKILL);
    }
    application.join();
    ASSERT_NE(worker, 0);
    EXPECT_TRUE(Dies(worker));
}

TEST(Tvkernel, AJobOverItsTimeLimitIsEndedAndTheKernelLivesOn)
{
    const TemporaryFolder folder;
    KernelProcess process;
    KernelClient client(process.Settings());
    SaveJob job = SaveTo(folder.Write("long.tvnprt", LongJobText()), folder / "long.step");
    job.limits.time = milliseconds(300);
    const auto result = client.Save(job);
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCode::TimedOut);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    EXPECT_TRUE(client.Save(SaveTo(Sample("bracket.tvnprt"), folder / "b.step")));
    EXPECT_EQ(process.starts(), 1u);
}

TEST(Tvkernel, AJobThatCrashesIsAnErrorAndTheKernelLivesOn)
{
    const TemporaryFolder folder;
    KernelProcess process;
    KernelClient client(process.Settings());
    ASSERT_TRUE(client.Start());
    const pid_t kernel = process.pid();
    std::thread killer([kernel] {
        if (const pid_t worker = WaitForChildOf(kernel); worker != 0) {
            kill(worker, SIGKILL);
        }
    });
    const auto result = client.Save(SaveTo(folder.Write("long.tvnprt", LongJobText()), folder / "long.step"));
    killer.join();
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().code, ErrorCode::Crashed);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    EXPECT_TRUE(client.Save(SaveTo(Sample("bracket.tvnprt"), folder / "b.step")));
    EXPECT_EQ(process.starts(), 1u);
}

TEST(Tvkernel, ThatWasKilledIsReplacedForTheNextJob)
{
    const TemporaryFolder folder;
    KernelProcess process;
    KernelClient client(process.Settings());
    ASSERT_TRUE(client.Start());
    kill(process.pid(), SIGKILL);
    ASSERT_TRUE(Dies(process.pid()));
    EXPECT_TRUE(client.Save(SaveTo(Sample("bracket.tvnprt"), folder / "b.step")));
    EXPECT_EQ(process.starts(), 2u);
}

TEST(TvkernelCommandLine, ConvertsAndTellsWhatItWrote)
{
    const TemporaryFolder folder;
    const std::string program = std::string("'") + TV_KERNEL_PROGRAM + "'";
    const std::string target = folder / "b.stl";
    const std::string output = OutputOf(program + " convert '" + Sample("bracket.tvnprt") + "' '" + target +
                                        "' --configuration Long --option binary=true --option unit=cm 2>&1");
    EXPECT_EQ(output, target + ": " + std::to_string(std::filesystem::file_size(target)) + " bytes\n");
    const std::string info = OutputOf(program + " info '" + target + "' --json");
    EXPECT_NE(info.find("\"kind\": \"neutral\""), std::string::npos);
    EXPECT_NE(info.find("14.0"), std::string::npos);
}

TEST(TvkernelCommandLine, ExitCodesTellFailureFromWrongUsage)
{
    const std::string program = std::string("'") + TV_KERNEL_PROGRAM + "'";
    EXPECT_EQ(OutputOf(program + " info /nowhere/a.step 2>&1; echo $?"),
              "tvkernel: The file \"/nowhere/a.step\" is not there. (file-not-found)\n1\n");
    EXPECT_EQ(OutputOf(program + " dance >/dev/null 2>&1; echo $?"), "2\n");
    EXPECT_EQ(OutputOf(program + " --connect example.org:80 --token 0 2>/dev/null; echo $?"), "2\n");
    EXPECT_EQ(OutputOf(program + " --connect 127.0.0.1:1 --token 0; echo $?"), "1\n");
}

} // namespace
