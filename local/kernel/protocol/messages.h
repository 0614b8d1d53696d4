// The texts that client and kernel exchange. Each is a JSON object in a frame: four bytes of length, highest first, and
// then that many bytes of UTF-8. The kernel speaks first and says hello with its token; from then on the client asks
// and the kernel answers, one request at a time.
#pragma once

#include "protocol/errors.h"
#include "protocol/jobs.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace tv::kernel {

inline constexpr int kProtocolVersion = 1;
inline constexpr size_t kFrameHeaderSize = 4;
inline constexpr size_t kLargestFrame = size_t{64} << 20;

/// Before the token is known nobody gets to send more than this.
inline constexpr size_t kLargestHello = 4096;

std::array<char, kFrameHeaderSize> FrameHeader(size_t length);
size_t LengthInFrameHeader(const std::array<char, kFrameHeaderSize>& header);

struct Hello
{
    std::string token;
    int protocol = kProtocolVersion;
};

std::string Encode(const Hello& hello);
std::optional<Hello> DecodeHello(std::string_view text);

using Request = std::variant<InspectJob, SaveJob>;

std::string Encode(const InspectJob& job);
std::string Encode(const SaveJob& job);
std::string Encode(const Request& request);
Outcome<Request> DecodeRequest(std::string_view text);
const Limits& LimitsOf(const Request& request);

std::string Encode(const Inspection& inspection);
std::string Encode(const Saved& saved);
std::string Encode(const Error& error);
Outcome<Inspection> DecodeInspection(std::string_view reply);
Outcome<Saved> DecodeSaved(std::string_view reply);

/// The word for a kind in replies: "part", "assembly", "drawing", "neutral".
std::string_view NameOf(SourceKind kind);

} // namespace tv::kernel
