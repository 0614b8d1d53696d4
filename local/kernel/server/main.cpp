// tvkernel, the geometry kernel: served over a loopback connection for the application, or run by hand for one file.

#include "engine/writers.h"
#include "server/job_runner.h"
#include "server/serve.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <charconv>
#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace {

using namespace tv::kernel;

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

struct CommandLine
{
    std::string connect;
    std::string token;
    SaveJob save;
    InspectJob inspect;
    std::vector<std::string> optionTexts;
    bool json = false;
    int64_t seconds = 300;
    uint64_t megabytes = 4096;

    Limits limits() const { return {std::chrono::seconds(seconds), megabytes << 20}; }
};

int Report(const Error& error)
{
    std::cerr << "tvkernel: " << error.message << " (" << NameOf(error.code) << ")\n";
    return kExitFailure;
}

int ServeConnection(const CommandLine& line)
{
    constexpr std::string_view kAddress = "127.0.0.1:";
    uint16_t port = 0;
    const char* end = line.connect.data() + line.connect.size();
    if (line.connect.starts_with(kAddress)) {
        const auto [stop, error] = std::from_chars(line.connect.data() + kAddress.size(), end, port);
        port = stop == end && error == std::errc() ? port : 0;
    }
    if (port == 0) {
        std::cerr << "tvkernel: --connect takes 127.0.0.1:PORT, and not \"" << line.connect << "\"\n";
        return kExitUsage;
    }
    // The geometry library's statics are not worth the time that it takes to clean them up.
    _exit(Serve(port, line.token));
}

int Convert(CommandLine& line)
{
    for (const std::string& text : line.optionTexts) {
        const size_t equals = text.find('=');
        if (equals == std::string::npos) {
            std::cerr << "tvkernel: --option takes NAME=VALUE, and not \"" << text << "\"\n";
            return kExitUsage;
        }
        line.save.options[text.substr(0, equals)] = text.substr(equals + 1);
    }
    line.save.limits = line.limits();
    const Outcome<Saved> saved = DecodeSaved(RunRequest(line.save, kNobodyWatches).value());
    if (!saved) {
        return Report(saved.error());
    }
    std::cout << saved->target << ": " << saved->bytes << " bytes";
    if (saved->pages > 0) {
        std::cout << ", " << saved->pages << (saved->pages == 1 ? " page" : " pages");
    }
    std::cout << "\n";
    return 0;
}

void Print(const Inspection& inspection)
{
    const auto& [low, high] = inspection.box;
    std::printf("kind       %s\n", std::string(NameOf(inspection.kind)).c_str());
    for (const std::string& item : inspection.items) {
        std::printf("%-10s %s%s\n", inspection.kind == SourceKind::Drawing ? "sheet" : "config", item.c_str(),
                    item == inspection.activeItem ? " (active)" : "");
    }
    if (inspection.kind == SourceKind::Drawing) {
        return;
    }
    std::printf("volume     %.6g mm3\n", inspection.volume);
    std::printf("area       %.6g mm2\n", inspection.area);
    std::printf("size       %.6g x %.6g x %.6g mm\n", high[0] - low[0], high[1] - low[1], high[2] - low[2]);
    std::printf("from       %.6g, %.6g, %.6g\n", low[0], low[1], low[2]);
    std::printf("to         %.6g, %.6g, %.6g\n", high[0], high[1], high[2]);
    std::printf("solids     %d\n", inspection.solids);
    std::printf("faces      %d\n", inspection.faces);
    std::printf("triangles  %d\n", inspection.triangles);
}

int Info(CommandLine& line)
{
    line.inspect.limits = line.limits();
    const std::string reply = RunRequest(line.inspect, kNobodyWatches).value();
    const Outcome<Inspection> inspection = DecodeInspection(reply);
    if (line.json) {
        const nlohmann::json json = nlohmann::json::parse(reply);
        std::cout << (inspection ? json.at("inspection") : json).dump(2) << "\n";
        return inspection ? 0 : kExitFailure;
    }
    if (!inspection) {
        return Report(inspection.error());
    }
    Print(*inspection);
    return 0;
}

int ListFormats()
{
    for (const Writer& writer : Writers()) {
        std::cout << writer.extension << "  " << writer.title << "\n";
        for (const OptionRow& option : writer.options) {
            std::cout << "    " << option.name << "=" << option.values << "  (" << option.standard << ")  "
                      << option.meaning << "\n";
        }
    }
    return 0;
}

void AddLimits(CLI::App& command, CommandLine& line)
{
    command.add_option("--time-limit", line.seconds, "Seconds that the job may take")->check(CLI::Range(1, 86400));
    command.add_option("--memory-limit", line.megabytes, "Megabytes that the job may use")
        ->check(CLI::Range(16, 1 << 20));
}

void AddConvert(CLI::App& app, CommandLine& line)
{
    CLI::App* convert = app.add_subcommand("convert", "Write a file in the format that OUT's extension names");
    convert->add_option("IN", line.save.source.path, "A STEP, IGES, STL or BREP file, or a document")->required();
    convert->add_option("OUT", line.save.target, "The file to write")->required();
    convert->add_option("--configuration,--sheet", line.save.items,
                        "A configuration of a model or a sheet of a drawing; may be given several times for PDF");
    convert->add_option("--component", line.save.source.component,
                        "A virtual component of an assembly; several go further in");
    convert->add_option("--option", line.optionTexts, "NAME=VALUE; see \"tvkernel formats\"");
    AddLimits(*convert, line);
}

void AddInfo(CLI::App& app, CommandLine& line)
{
    CLI::App* info = app.add_subcommand("info", "Print volume, size and counts of a file");
    info->add_option("FILE", line.inspect.source.path)->required();
    info->add_option("--configuration", line.inspect.configuration);
    info->add_option("--component", line.inspect.source.component, "A virtual component of an assembly");
    info->add_flag("--json", line.json, "Print JSON");
    AddLimits(*info, line);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("The geometry kernel of the local edition", "tvkernel");
    CommandLine line;
    app.add_option("--connect", line.connect, "Serve the application that listens on 127.0.0.1:PORT");
    app.add_option("--token", line.token, "The token that the application expects");
    AddConvert(app, line);
    AddInfo(app, line);
    app.add_subcommand("formats", "List the formats that can be written, with their options");
    app.require_subcommand(0, 1);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : kExitUsage;
    }
    if (!line.connect.empty()) {
        return ServeConnection(line);
    }
    if (app.got_subcommand("convert")) {
        return Convert(line);
    }
    if (app.got_subcommand("info")) {
        return Info(line);
    }
    if (app.got_subcommand("formats")) {
        return ListFormats();
    }
    std::cerr << app.help();
    return kExitUsage;
}
