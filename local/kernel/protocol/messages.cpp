#include "protocol/messages.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tv::kernel {

namespace {

using Json = nlohmann::json;

struct KindName
{
    SourceKind kind;
    std::string_view name;
};

constexpr KindName kKindNames[] = {
    {SourceKind::Part, "part"},
    {SourceKind::Assembly, "assembly"},
    {SourceKind::Drawing, "drawing"},
    {SourceKind::Neutral, "neutral"},
};

/// Text that isn't UTF-8, such as a path of a foreign disk, must not end the program: what can't be read is replaced.
std::string Dump(const Json& json)
{
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json ToJson(const Source& source)
{
    return {{"path", source.path}, {"component", source.component}, {"documentText", source.documentText}};
}

Source SourceFrom(const Json& json)
{
    return {json.at("path"), json.at("component"), json.at("documentText")};
}

Json ToJson(const Limits& limits)
{
    return {{"milliseconds", limits.time.count()}, {"bytes", limits.memoryBytes}};
}

Limits LimitsFrom(const Json& json)
{
    return {std::chrono::milliseconds(json.at("milliseconds").get<int64_t>()), json.at("bytes")};
}

InspectJob InspectJobFrom(const Json& json)
{
    return {SourceFrom(json.at("source")), json.at("configuration"), LimitsFrom(json.at("limits"))};
}

SaveJob SaveJobFrom(const Json& json)
{
    return {SourceFrom(json.at("source")), json.at("items"), json.at("target"), json.at("options"),
            LimitsFrom(json.at("limits"))};
}

SourceKind KindFrom(const std::string& name)
{
    const auto found = std::ranges::find(kKindNames, name, &KindName::name);
    return found == std::end(kKindNames) ? SourceKind::Neutral : found->kind;
}

Inspection InspectionFrom(const Json& json)
{
    Inspection inspection;
    inspection.kind = KindFrom(json.at("kind"));
    inspection.items = json.at("items").get<std::vector<std::string>>();
    inspection.activeItem = json.at("activeItem");
    inspection.volume = json.at("volume");
    inspection.area = json.at("area");
    inspection.box.low = json.at("box").at("low");
    inspection.box.high = json.at("box").at("high");
    inspection.solids = json.at("solids");
    inspection.faces = json.at("faces");
    inspection.triangles = json.at("triangles");
    return inspection;
}

Saved SavedFrom(const Json& json)
{
    return {json.at("target"), json.at("bytes"), json.at("pages")};
}

/// The part of a reply that carries the result, or the error that stands in its place.
template <class T> Outcome<T> DecodeReply(std::string_view reply, const char* member, T (*from)(const Json&))
{
    try {
        const Json json = Json::parse(reply);
        if (const auto error = json.find("error"); error != json.end()) {
            return Error{ErrorCodeOf(error->at("code").get<std::string>()), error->at("message")};
        }
        return from(json.at(member));
    } catch (const Json::exception& error) {
        return Error{ErrorCode::KernelLost, std::string("The geometry kernel's reply can't be read: ") + error.what()};
    }
}

} // namespace

std::array<char, kFrameHeaderSize> FrameHeader(size_t length)
{
    return {static_cast<char>(length >> 24 & 0xFF), static_cast<char>(length >> 16 & 0xFF),
            static_cast<char>(length >> 8 & 0xFF), static_cast<char>(length & 0xFF)};
}

size_t LengthInFrameHeader(const std::array<char, kFrameHeaderSize>& header)
{
    size_t length = 0;
    for (const char byte : header) {
        length = length << 8 | static_cast<unsigned char>(byte);
    }
    return length;
}

std::string Encode(const Hello& hello)
{
    return Dump({{"token", hello.token}, {"protocol", hello.protocol}});
}

std::optional<Hello> DecodeHello(std::string_view text)
{
    try {
        const Json json = Json::parse(text);
        return Hello{json.at("token"), json.at("protocol")};
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

std::string Encode(const InspectJob& job)
{
    return Dump({{"job", "inspect"},
                 {"source", ToJson(job.source)},
                 {"configuration", job.configuration},
                 {"limits", ToJson(job.limits)}});
}

std::string Encode(const SaveJob& job)
{
    return Dump({{"job", "save"},
                 {"source", ToJson(job.source)},
                 {"items", job.items},
                 {"target", job.target},
                 {"options", job.options},
                 {"limits", ToJson(job.limits)}});
}

std::string Encode(const Request& request)
{
    return std::visit([](const auto& job) { return Encode(job); }, request);
}

Outcome<Request> DecodeRequest(std::string_view text)
{
    try {
        const Json json = Json::parse(text);
        const std::string job = json.at("job");
        if (job == "inspect") {
            return Request(InspectJobFrom(json));
        }
        if (job == "save") {
            return Request(SaveJobFrom(json));
        }
        return Error{ErrorCode::BadRequest, "There is no job \"" + job + "\"."};
    } catch (const Json::exception& error) {
        return Error{ErrorCode::BadRequest, std::string("The request can't be read: ") + error.what()};
    }
}

const Limits& LimitsOf(const Request& request)
{
    return std::visit([](const auto& job) -> const Limits& { return job.limits; }, request);
}

std::string Encode(const Inspection& inspection)
{
    return Dump({{"inspection",
                  {{"kind", NameOf(inspection.kind)},
                   {"items", inspection.items},
                   {"activeItem", inspection.activeItem},
                   {"volume", inspection.volume},
                   {"area", inspection.area},
                   {"box", {{"low", inspection.box.low}, {"high", inspection.box.high}}},
                   {"solids", inspection.solids},
                   {"faces", inspection.faces},
                   {"triangles", inspection.triangles}}}});
}

std::string Encode(const Saved& saved)
{
    return Dump({{"saved", {{"target", saved.target}, {"bytes", saved.bytes}, {"pages", saved.pages}}}});
}

std::string Encode(const Error& error)
{
    return Dump({{"error", {{"code", NameOf(error.code)}, {"message", error.message}}}});
}

Outcome<Inspection> DecodeInspection(std::string_view reply)
{
    return DecodeReply<Inspection>(reply, "inspection", InspectionFrom);
}

Outcome<Saved> DecodeSaved(std::string_view reply)
{
    return DecodeReply<Saved>(reply, "saved", SavedFrom);
}

std::string_view NameOf(SourceKind kind)
{
    return std::ranges::find(kKindNames, kind, &KindName::kind)->name;
}

} // namespace tv::kernel
