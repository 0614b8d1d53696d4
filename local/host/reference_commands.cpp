#include "host/reference_commands.h"

#include "host/refusals.h"
#include "host/table.h"
#include "vault/text.h"

namespace tv::local {

namespace {

std::string PathText(HostContext& context, const FileRecord& file)
{
    return VaultPathText(context.store->PathOfFile(file));
}

std::string NoteOf(const ReferenceView& view)
{
    if (view.deleted) {
        return "deleted";
    }
    return view.asBuilt < view.file.latestVersion ? "newer than built with" : "";
}

void PrintChildren(HostContext& context, const std::vector<ReferenceView>& views)
{
    Table table({{"Refers to"}, {"As built", Align::Right}, {"Latest", Align::Right}, {"Note"}});
    for (const ReferenceView& view : views) {
        table.Add({PathText(context, view.file), std::to_string(view.asBuilt), std::to_string(view.file.latestVersion),
                   NoteOf(view)});
    }
    table.Print(context.environment.out);
}

void PrintParents(HostContext& context, const FileRecord& child, const std::vector<ReferenceView>& views)
{
    Table table({{"Referred to by"}, {"Version", Align::Right}, {"As built", Align::Right}, {"Latest", Align::Right}});
    for (const ReferenceView& view : views) {
        table.Add({PathText(context, view.file), std::to_string(view.parentVersion), std::to_string(view.asBuilt),
                   std::to_string(child.latestVersion)});
    }
    table.Print(context.environment.out);
}

} // namespace

int ReferencesCommand(HostContext& context, const std::string& path, ReferenceEnd end, int32_t version)
{
    const FileRecord file = context.RequireFile(path);
    const bool parents = end == ReferenceEnd::Parents;
    if (version > 0 && !context.store->Version(file.id, version)) {
        throw UsageError("'" + PathText(context, file) + "' has no version " + std::to_string(version) +
                         "; its versions go from 1 to " + std::to_string(file.latestVersion) + ".");
    }
    const std::vector<ReferenceView> views =
        parents ? context.store->Parents(file.id) : context.store->Children(file.id, version);
    if (context.json) {
        Json list = Json::array();
        for (const ReferenceView& view : views) {
            list.push_back({{"path", PathText(context, view.file)},
                            {"id", view.file.id},
                            {"asBuilt", view.asBuilt},
                            {"latest", parents ? file.latestVersion : view.file.latestVersion},
                            {"parentVersion", view.parentVersion},
                            {"deleted", view.deleted}});
        }
        context.PrintJson({{"path", PathText(context, file)}, {parents ? "parents" : "children", list}});
    } else if (views.empty()) {
        context.environment.out << (parents ? "Nothing refers to " : "No references from ") << PathText(context, file)
                                << "\n";
    } else if (parents) {
        PrintParents(context, file, views);
    } else {
        PrintChildren(context, views);
    }
    return kExitDone;
}

int AddReferencesCommand(HostContext& context, const std::string& parent, const std::vector<std::string>& children)
{
    const FileRecord file = context.RequireFile(parent);
    std::vector<ReferenceRecord> references;
    const std::vector<FileRecord> sources = RequireFiles(context, children);
    for (const FileRecord& source : sources) {
        if (source.id == file.id) {
            throw UsageError("'" + PathText(context, file) + "' can't refer to itself.");
        }
        references.push_back({source.id, source.latestVersion});
    }
    OnFile(context, file, [&] { context.store->AddReferences(file.id, references); });
    if (context.json) {
        Json list = Json::array();
        for (const FileRecord& source : sources) {
            list.push_back({{"path", PathText(context, source)}, {"asBuilt", source.latestVersion}});
        }
        context.PrintJson({{"path", PathText(context, file)}, {"added", list}});
        return kExitDone;
    }
    for (const FileRecord& source : sources) {
        context.environment.out << PathText(context, file) << " refers to " << PathText(context, source) << ", version "
                                << source.latestVersion << "\n";
    }
    return kExitDone;
}

} // namespace tv::local
