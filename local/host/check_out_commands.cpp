#include "host/check_out_commands.h"

#include "host/document_references.h"
#include "host/refusals.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

std::string PathText(HostContext& context, const FileRecord& file)
{
    return VaultPathText(context.store->PathOfFile(file));
}

/// The vault keeps what a document refers to, which whoever worked on it may have changed.
void RecordReferences(HostContext& context, const FileRecord& file)
{
    // A refusal is one that the check-in meets too, and tells.
    (void)OutcomeOf([&] {
        const auto references = FindDocumentReferences(*context.store, file, context.Files().LocalPathOf(file));
        if (!references.empty()) {
            context.store->AddReferences(file.id, references);
        }
    });
}

bool WasWritten(HostContext& context, const FileRecord& file)
{
    return file.checkOut && file.checkOut->holder == context.store->CurrentUser() &&
           Disk::StampOf(context.Files().LocalPathOf(file)) != file.checkOut->handedOut;
}

FileDone DescribeCheckIn(HostContext& context, const FileRecord& before)
{
    const FileRecord after = context.store->RequireFile(before.id);
    const bool isNew = after.latestVersion > before.latestVersion || before.checkOut->fresh;
    return {PathText(context, after) + "  version " + std::to_string(after.latestVersion) +
                (isNew ? "" : " (not written since the check-out, so no new version)"),
            {{"version", after.latestVersion}, {"newVersion", isNew}}};
}

} // namespace

int CheckOutCommand(HostContext& context, const std::vector<std::string>& paths)
{
    return ForEachFile(context, RequireFiles(context, paths), [&](const FileRecord& file) -> FileDone {
        FileWork files = context.Files();
        files.CheckOut(file.id);
        const FileRecord now = context.store->RequireFile(file.id);
        const std::string copy = TextOf(files.LocalPathOf(now));
        return {PathText(context, now) + "  version " + std::to_string(now.latestVersion) + " checked out by " +
                    HolderText(now.checkOut) + ", to be written in " + copy,
                {{"version", now.latestVersion}, {"checkedOutBy", HolderText(now.checkOut)}, {"localCopy", copy}}};
    });
}

int UndoCommand(HostContext& context, const std::vector<std::string>& paths)
{
    return ForEachFile(context, RequireFiles(context, paths), [&](const FileRecord& file) -> FileDone {
        const std::string path = PathText(context, file);
        const UndoneFile undone = context.Files().UndoCheckOut(file.id);
        const std::string version = std::to_string(undone.file.latestVersion);
        return {path + (undone.leftVault ? "  left the vault, since it had never been checked in"
                                         : "  is version " + version + " again"),
                {{"version", undone.leftVault ? Json(nullptr) : Json(undone.file.latestVersion)},
                 {"leftVault", undone.leftVault}}};
    });
}

int CheckInCommand(HostContext& context, const std::vector<std::string>& paths, const std::string& comment)
{
    const std::vector<FileRecord> files = RequireFiles(context, paths);
    std::vector<int32_t> ids;
    for (const FileRecord& file : files) {
        ids.push_back(file.id);
        if (WasWritten(context, file)) {
            RecordReferences(context, file);
        }
    }
    const std::vector<Outcome> outcomes = context.Files().CheckIn(ids, comment);
    return ForEachFile(context, files, [&](const FileRecord& file) -> FileDone {
        const auto place = std::find(ids.begin(), ids.end(), file.id) - ids.begin();
        if (const Outcome& outcome = outcomes[static_cast<size_t>(place)]; outcome.code != 0) {
            Fail(outcome.code, outcome.words);
        }
        return DescribeCheckIn(context, file);
    });
}

} // namespace tv::local
