#include "host/run_report.h"

#include "host/table.h"
#include "vault/text.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace tv::local {

namespace {

struct ListedOutput
{
    std::string source;
    std::string output;
};

/// Reads the list that the add-in leaves behind at the end of a run.
std::vector<ListedOutput> ReadOutputList(HostContext& context, const InstanceRecord& instance)
{
    std::vector<ListedOutput> outputs;
    const auto value = context.store->InstanceVariable(instance.id, "__output_list");
    pugi::xml_document document;
    if (!value || !document.load_string(value->Display().c_str())) {
        return outputs;
    }
    for (const pugi::xml_node& entry : document.document_element().children("sel")) {
        const std::string output = entry.child_value("extra");
        if (!output.empty()) {
            outputs.push_back({entry.child_value("path"), output});
        }
    }
    return outputs;
}

std::string ShortPath(HostContext& context, const std::string& fullPath)
{
    const auto path = BelowRoot(context.store->Root(), fullPath);
    return path ? VaultPathText(*path) : fullPath;
}

/// Every file that the selection stands for, in the order of the run; the launched folder itself where nobody knows.
std::vector<std::string> SourcesOf(HostContext& context, const InstanceRecord& instance,
                                   const std::vector<ListedOutput>& outputs, const SecondsBySource& seconds)
{
    std::vector<std::string> sources;
    const auto add = [&](const std::string& path) {
        const auto same = [&](const std::string& other) { return SameName(other, path); };
        if (std::none_of(sources.begin(), sources.end(), same)) {
            sources.push_back(path);
        }
    };
    for (const auto& [path, time] : seconds) {
        add(path);
    }
    for (const ListedOutput& output : outputs) {
        add(output.source);
    }
    for (const SelectionItem& item : context.store->Selection(instance.id)) {
        if (item.kind == 1) {
            add(item.path);
        }
    }
    return sources;
}

ReportRow DescribeOutput(HostContext& context, const std::string& output)
{
    ReportRow row;
    row.output = ShortPath(context, output);
    const auto path = BelowRoot(context.store->Root(), output);
    const auto file = path ? context.store->FindFile(*path) : std::nullopt;
    if (file) {
        const auto version = context.store->Version(file->id, file->latestVersion);
        row.file = file->id;
        row.version = file->latestVersion;
        row.size = version ? version->size : 0;
        row.status = file->checkOut ? "checked out" : "checked in";
        return row;
    }
    const auto stamp = Disk::StampOf(PathOf(output));
    row.size = stamp ? stamp->size : 0;
    row.status = !stamp ? "missing" : path ? "not in the vault" : "outside the vault";
    return row;
}

std::string SecondsText(const std::optional<double>& seconds)
{
    if (!seconds) {
        return {};
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", *seconds);
    return text;
}

std::optional<FileRecord> LogFile(HostContext& context, const InstanceRecord& instance)
{
    const auto files = context.store->FilesNamed(instance.guid + ".log");
    return files.empty() ? std::nullopt : std::optional(files.back());
}

} // namespace

std::vector<ReportRow> MakeReport(HostContext& context, const InstanceRecord& instance, const SecondsBySource& seconds)
{
    const auto outputs = ReadOutputList(context, instance);
    std::vector<ReportRow> rows;
    for (const std::string& source : SourcesOf(context, instance, outputs, seconds)) {
        std::optional<double> time;
        for (const auto& [path, duration] : seconds) {
            if (SameName(path, source)) {
                time = time.value_or(0) + duration;
            }
        }
        const size_t before = rows.size();
        for (const ListedOutput& output : outputs) {
            if (SameName(output.source, source)) {
                rows.push_back(DescribeOutput(context, output.output));
            }
        }
        if (rows.size() == before) {
            rows.emplace_back();
            rows.back().status = "no output";
        }
        for (size_t i = before; i < rows.size(); ++i) {
            rows[i].source = ShortPath(context, source);
            rows[i].seconds = time;
        }
    }
    return rows;
}

void PrintReport(std::ostream& out, const std::vector<ReportRow>& rows)
{
    Table table({{"Source"},
                 {"Output"},
                 {"Version", Align::Right},
                 {"Size", Align::Right},
                 {"Seconds", Align::Right},
                 {"Status"}});
    std::string last;
    for (const ReportRow& row : rows) {
        // A source with several outputs is named once; its seconds are those of all of them together.
        const bool again = row.source == last;
        last = row.source;
        table.Add({again ? "" : row.source, row.output.empty() ? "-" : row.output,
                   row.version > 0 ? std::to_string(row.version) : "", row.output.empty() ? "" : SizeText(row.size),
                   again ? "" : SecondsText(row.seconds), row.status});
    }
    if (!table.IsEmpty()) {
        table.Print(out);
    }
}

Json ToJson(const std::vector<ReportRow>& rows)
{
    Json json = Json::array();
    for (const ReportRow& row : rows) {
        Json entry{{"source", row.source},
                   {"output", row.output},
                   {"id", row.file},
                   {"version", row.version},
                   {"size", row.size}};
        entry["seconds"] = row.seconds ? Json(*row.seconds) : Json(nullptr);
        entry["status"] = row.status;
        json.push_back(entry);
    }
    return json;
}

Json ToJson(const InstanceRecord& instance)
{
    return {{"id", instance.id},
            {"task", instance.taskName},
            {"guid", instance.guid},
            {"status", instance.status},
            {"statusText", StatusWord(instance.status)},
            {"result", instance.result},
            {"message", instance.message},
            {"progress",
             {{"lower", instance.progress.lower},
              {"upper", instance.progress.upper},
              {"position", instance.progress.position},
              {"text", instance.progress.text}}},
            {"launchedBy", instance.launchedBy.user},
            {"launched", instance.launched},
            {"started", instance.started},
            {"ended", instance.ended}};
}

std::optional<std::string> LogPath(HostContext& context, const InstanceRecord& instance)
{
    const auto file = LogFile(context, instance);
    return file ? std::optional(VaultPathText(context.store->PathOfFile(*file))) : std::nullopt;
}

std::optional<std::string> ReadLog(HostContext& context, const InstanceRecord& instance)
{
    const auto file = LogFile(context, instance);
    if (!file) {
        return std::nullopt;
    }
    const auto version = context.store->Version(file->id, file->latestVersion);
    std::ifstream stream(context.store->ContentPath(*version), std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace tv::local
