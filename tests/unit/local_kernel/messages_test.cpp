#include "protocol/messages.h"

#include <gtest/gtest.h>

namespace {

using namespace tv::kernel;

TEST(ErrorCodes, EachHasItsNameInReplies)
{
    const struct
    {
        ErrorCode code;
        const char* name;
    } expected[] = {
        {ErrorCode::BadRequest, "bad-request"},
        {ErrorCode::FileNotFound, "file-not-found"},
        {ErrorCode::Damaged, "damaged"},
        {ErrorCode::FutureVersion, "future-version"},
        {ErrorCode::UnsupportedFormat, "unsupported-format"},
        {ErrorCode::UnsuitableSource, "unsuitable-source"},
        {ErrorCode::UnknownItem, "unknown-item"},
        {ErrorCode::EmptyShape, "empty-shape"},
        {ErrorCode::CannotWrite, "cannot-write"},
        {ErrorCode::TimedOut, "timed-out"},
        {ErrorCode::OutOfMemory, "out-of-memory"},
        {ErrorCode::Crashed, "crashed"},
        {ErrorCode::Failed, "failed"},
        {ErrorCode::NoKernel, "no-kernel"},
        {ErrorCode::KernelLost, "kernel-lost"},
    };
    ASSERT_EQ(std::size(kErrorNames), std::size(expected));
    for (const auto& [code, name] : expected) {
        EXPECT_EQ(NameOf(code), name);
        EXPECT_EQ(ErrorCodeOf(name), code);
    }
    EXPECT_EQ(ErrorCodeOf("no such name"), ErrorCode::Failed);
}

TEST(Messages, AFrameBeginsWithItsLengthHighestByteFirst)
{
    EXPECT_EQ(FrameHeader(0x01020304), (std::array<char, 4>{1, 2, 3, 4}));
    EXPECT_EQ(LengthInFrameHeader({0, 0, 1, static_cast<char>(0xFF)}), 511u);
}

TEST(Messages, ASaveJobArrivesAsItWasSent)
{
    SaveJob job;
    job.source = {"/tmp/Ä.tvnasm", {"Sub-1", "Pin-1"}, "{}"};
    job.items = {"A", "B"};
    job.target = "/tmp/out.pdf";
    job.options = {{"color", "false"}};
    job.limits = {std::chrono::milliseconds(1234), 5678};
    const Outcome<Request> request = DecodeRequest(Encode(job));
    ASSERT_TRUE(request);
    const SaveJob& read = std::get<SaveJob>(*request);
    EXPECT_EQ(read.source.path, "/tmp/Ä.tvnasm");
    EXPECT_EQ(read.source.component, (std::vector<std::string>{"Sub-1", "Pin-1"}));
    EXPECT_EQ(read.source.documentText, "{}");
    EXPECT_EQ(read.items, (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(read.target, "/tmp/out.pdf");
    EXPECT_EQ(read.options, (std::map<std::string, std::string>{{"color", "false"}}));
    EXPECT_EQ(read.limits.time.count(), 1234);
    EXPECT_EQ(read.limits.memoryBytes, 5678u);
}

TEST(Messages, AnInspectionArrivesAsItWasSent)
{
    Inspection sent;
    sent.kind = SourceKind::Assembly;
    sent.items = {"Default"};
    sent.activeItem = "Default";
    sent.volume = 0.1;
    sent.area = 12.5;
    sent.box = {{-1, -2, -3}, {1, 2, 3}};
    sent.solids = 4;
    sent.faces = 5;
    sent.triangles = 6;
    const Outcome<Inspection> read = DecodeInspection(Encode(sent));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->kind, SourceKind::Assembly);
    EXPECT_EQ(read->items, std::vector<std::string>{"Default"});
    EXPECT_EQ(read->volume, 0.1);
    EXPECT_EQ(read->area, 12.5);
    EXPECT_EQ(read->box.low, (std::array<double, 3>{-1, -2, -3}));
    EXPECT_EQ(read->box.high, (std::array<double, 3>{1, 2, 3}));
    EXPECT_EQ(read->solids, 4);
    EXPECT_EQ(read->faces, 5);
    EXPECT_EQ(read->triangles, 6);
}

TEST(Messages, AnErrorTakesTheResultsPlace)
{
    const Outcome<Saved> reply = DecodeSaved(Encode(Error{ErrorCode::Damaged, "broken"}));
    ASSERT_FALSE(reply);
    EXPECT_EQ(reply.error().code, ErrorCode::Damaged);
    EXPECT_EQ(reply.error().message, "broken");
}

TEST(Messages, ARequestThatMakesNoSenseIsABadRequest)
{
    for (const char* text : {"", "nonsense", "[]", "{}", R"({"job": "dance"})", R"({"job": "save"})",
                             R"({"job": "inspect", "source": 5})"}) {
        const Outcome<Request> request = DecodeRequest(text);
        ASSERT_FALSE(request) << text;
        EXPECT_EQ(request.error().code, ErrorCode::BadRequest) << text;
    }
}

TEST(Messages, AReplyThatCantBeReadIsALostKernel)
{
    EXPECT_EQ(DecodeSaved("{").error().code, ErrorCode::KernelLost);
    EXPECT_EQ(DecodeSaved("{}").error().code, ErrorCode::KernelLost);
}

TEST(Messages, PathsThatAreNotUtf8AreSentAllTheSame)
{
    InspectJob job;
    job.source.path = "/tmp/\xFF.step";
    EXPECT_TRUE(DecodeRequest(Encode(job)));
}

} // namespace
