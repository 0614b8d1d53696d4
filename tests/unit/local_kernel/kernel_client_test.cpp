#include "client/kernel_client.h"
#include "client/random_token.h"
#include "protocol/messages.h"
#include "protocol/socket.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using namespace tv::kernel;
using std::chrono::milliseconds;

Deadline In(milliseconds time)
{
    return std::chrono::steady_clock::now() + time;
}

constexpr milliseconds kPatience{60'000};

/// A kernel in a thread: connects as the real one does and then follows its script.
class FakeKernel
{
  public:
    /// Called with the connection once the hello was sent; the connection closes when it returns.
    std::function<void(Socket&)> script = AnswerEverything;
    std::function<std::string(const std::string& token)> token = [](const std::string& right) { return right; };
    int protocol = kProtocolVersion;
    bool connects = true;
    std::atomic<int> starts = 0;

    ~FakeKernel() { Join(); }

    void Join()
    {
        for (std::thread& thread : threads) {
            thread.join();
        }
        threads.clear();
    }

    KernelClientSettings Settings()
    {
        KernelClientSettings settings;
        settings.start = [this](const std::vector<std::string>& arguments) { return Start(arguments); };
        settings.connectWithin = kPatience;
        settings.grace = milliseconds(0);
        return settings;
    }

    static void AnswerEverything(Socket& socket)
    {
        std::string text;
        while (socket.ReceiveFrame(text, kLargestFrame, In(kPatience)) == Received::Frame) {
            Saved saved;
            saved.target = "done";
            socket.SendFrame(Encode(saved), In(kPatience));
        }
    }

    std::vector<std::string> lastArguments;

  private:
    bool Start(const std::vector<std::string>& arguments)
    {
        lastArguments = arguments;
        starts++;
        if (connects) {
            threads.emplace_back([this, arguments] { Run(arguments); });
        }
        return true;
    }

    void Run(const std::vector<std::string>& arguments)
    {
        const std::string port = arguments.at(1).substr(arguments.at(1).find(':') + 1);
        Socket socket = Socket::Connect(static_cast<uint16_t>(std::stoi(port)));
        if (!socket) {
            return; // a client that gives up early is gone by now
        }
        socket.SendFrame(Encode(Hello{token(arguments.at(3)), protocol}), In(kPatience));
        script(socket);
    }

    std::vector<std::thread> threads;
};

SaveJob AnyJob()
{
    SaveJob job;
    job.source.path = "part.tvnprt";
    job.target = "part.step";
    job.limits.time = kPatience;
    return job;
}

TEST(KernelClient, TheKernelIsStartedWithAddressAndTokenAndNothingElse)
{
    FakeKernel fake;
    KernelClient client(fake.Settings());
    ASSERT_TRUE(client.Start());
    ASSERT_EQ(fake.lastArguments.size(), 4u);
    EXPECT_EQ(fake.lastArguments[0], "--connect");
    EXPECT_EQ(fake.lastArguments[1].substr(0, 10), "127.0.0.1:");
    EXPECT_EQ(fake.lastArguments[2], "--token");
    EXPECT_EQ(fake.lastArguments[3].size(), 32u);
    client.Close();
}

TEST(KernelClient, OneKernelServesManyJobs)
{
    FakeKernel fake;
    KernelClient client(fake.Settings());
    EXPECT_FALSE(client.IsConnected());
    for (int i = 0; i < 3; i++) {
        const Outcome<Saved> saved = client.Save(AnyJob());
        ASSERT_TRUE(saved);
        EXPECT_EQ(saved->target, "done");
    }
    EXPECT_TRUE(client.IsConnected());
    EXPECT_EQ(fake.starts, 1);
    client.Close();
    EXPECT_FALSE(client.IsConnected());
}

TEST(KernelClient, AnErrorOfTheKernelReachesTheCaller)
{
    FakeKernel fake;
    fake.script = [](Socket& socket) {
        std::string text;
        socket.ReceiveFrame(text, kLargestFrame, In(kPatience));
        socket.SendFrame(Encode(Error{ErrorCode::Damaged, "part.tvnprt is broken"}), In(kPatience));
        socket.ReceiveFrame(text, kLargestFrame, In(kPatience));
    };
    KernelClient client(fake.Settings());
    const Outcome<Saved> saved = client.Save(AnyJob());
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().code, ErrorCode::Damaged);
    EXPECT_EQ(saved.error().message, "part.tvnprt is broken");
    EXPECT_TRUE(client.IsConnected());
    client.Close();
}

TEST(KernelClient, AKernelThatDiesDuringAJobIsReportedAndReplacedForTheNext)
{
    FakeKernel fake;
    fake.script = [&fake](Socket& socket) {
        if (fake.starts > 1) {
            return FakeKernel::AnswerEverything(socket);
        }
        std::string text;
        socket.ReceiveFrame(text, kLargestFrame, In(kPatience));
    };
    KernelClient client(fake.Settings());
    const Outcome<Saved> first = client.Save(AnyJob());
    ASSERT_FALSE(first);
    EXPECT_EQ(first.error().code, ErrorCode::KernelLost);
    EXPECT_NE(first.error().message.find("part.tvnprt"), std::string::npos);
    EXPECT_TRUE(client.Save(AnyJob()));
    EXPECT_EQ(fake.starts, 2);
    client.Close();
}

TEST(KernelClient, AKernelThatDiedBetweenJobsIsReplacedWithoutAFailedJob)
{
    FakeKernel fake;
    fake.script = [&fake](Socket& socket) {
        if (fake.starts > 1) {
            return FakeKernel::AnswerEverything(socket);
        }
        std::string text;
        socket.ReceiveFrame(text, kLargestFrame, In(kPatience));
        socket.SendFrame(Encode(Saved{"first", 1, 0}), In(kPatience));
    };
    KernelClient client(fake.Settings());
    EXPECT_EQ(client.Save(AnyJob())->target, "first");
    fake.Join();
    EXPECT_FALSE(client.IsConnected());
    EXPECT_EQ(client.Save(AnyJob())->target, "done");
    EXPECT_EQ(fake.starts, 2);
    client.Close();
}

TEST(KernelClient, AKernelThatHangsIsLeftAtTheDeadline)
{
    FakeKernel fake;
    fake.script = [](Socket& socket) {
        std::string text;
        while (socket.ReceiveFrame(text, kLargestFrame, In(kPatience)) == Received::Frame) {
        }
    };
    KernelClient client(fake.Settings());
    SaveJob job = AnyJob();
    job.limits.time = milliseconds(100);
    const Outcome<Saved> saved = client.Save(job);
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().code, ErrorCode::TimedOut);
    EXPECT_FALSE(client.IsConnected());
}

TEST(KernelClient, AStrangerWithoutTheTokenIsNotServed)
{
    FakeKernel fake;
    fake.token = [](const std::string& right) { return std::string(right.size(), '0'); };
    KernelClientSettings settings = fake.Settings();
    settings.connectWithin = milliseconds(200);
    KernelClient client(settings);
    const Outcome<Saved> saved = client.Save(AnyJob());
    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().code, ErrorCode::NoKernel);
}

TEST(KernelClient, TheRealKernelIsFoundBehindAStranger)
{
    FakeKernel fake;
    FakeKernel stranger;
    stranger.token = [](const std::string&) { return std::string("guess"); };
    KernelClientSettings settings = fake.Settings();
    settings.start = [&](const std::vector<std::string>& arguments) {
        stranger.Settings().start(arguments);
        stranger.Join();
        return fake.Settings().start(arguments);
    };
    stranger.script = [](Socket&) {};
    KernelClient client(settings);
    EXPECT_TRUE(client.Save(AnyJob()));
    client.Close();
}

TEST(KernelClient, AKernelOfAnotherProtocolIsNotUsed)
{
    FakeKernel fake;
    fake.protocol = 99;
    KernelClientSettings settings = fake.Settings();
    settings.connectWithin = milliseconds(200);
    EXPECT_EQ(KernelClient(settings).Save(AnyJob()).error().code, ErrorCode::NoKernel);
}

TEST(KernelClient, AKernelThatDoesntConnectIsGivenUp)
{
    FakeKernel fake;
    fake.connects = false;
    KernelClientSettings settings = fake.Settings();
    settings.connectWithin = milliseconds(100);
    KernelClient client(settings);
    EXPECT_EQ(client.Save(AnyJob()).error().message,
              "The geometry kernel was started and didn't connect within 100 ms.");
}

TEST(KernelClient, AKernelThatCantBeStartedIsAnErrorAndNoWait)
{
    KernelClientSettings settings;
    settings.start = [](const std::vector<std::string>&) { return false; };
    KernelClient client(settings);
    EXPECT_EQ(client.Inspect({}).error().code, ErrorCode::NoKernel);
    EXPECT_FALSE(client.Start());
}

TEST(RandomToken, TwoDiffer)
{
    EXPECT_NE(RandomToken(), RandomToken());
    EXPECT_EQ(RandomToken().find_first_not_of("0123456789abcdef"), std::string::npos);
}

TEST(RandomToken, OnlyTheWholeTokenIsTheSame)
{
    EXPECT_TRUE(SameToken("abc", "abc"));
    EXPECT_FALSE(SameToken("abc", "abd"));
    EXPECT_FALSE(SameToken("abc", "ab"));
    EXPECT_FALSE(SameToken("", "a"));
}

} // namespace
