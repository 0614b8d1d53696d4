// The vault: its folders, its tables, its contents, and what runs left in it that ended by force.
#include "host/doctor_checks.h"

#include "vault/error_table.h"
#include "vault/schema.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

bool HasEnded(const InstanceRecord& instance)
{
    return instance.status == static_cast<int32_t>(TaskStatus::Finished) ||
           instance.status == static_cast<int32_t>(TaskStatus::Cancelled) ||
           instance.status == static_cast<int32_t>(TaskStatus::Failed);
}

/// Claimed by a host that is gone, so that nobody will end it.
bool IsLeft(Examination& examination, const InstanceRecord& instance)
{
    return instance.hostProcess != 0 && !HasEnded(instance) &&
           !examination.Environment().machine.IsAlive(instance.hostProcess);
}

void AddCheckedOut(VaultStore& store, int32_t folder, std::vector<FileRecord>& files)
{
    for (FileRecord& file : store.FilesIn(folder)) {
        if (file.checkOut) {
            files.push_back(std::move(file));
        }
    }
    for (const FolderRecord& below : store.SubFolders(folder)) {
        AddCheckedOut(store, below.id, files);
    }
}

/// The run that was under way when a file was checked out, and that can't give it back any more.
const InstanceRecord* RunOf(Examination& examination, const std::vector<InstanceRecord>& instances,
                            const CheckOutRecord& checkOut)
{
    for (const InstanceRecord& instance : instances) {
        const bool over = HasEnded(instance) || IsLeft(examination, instance);
        const bool before = instance.started.empty() || checkOut.since < instance.started;
        const bool behind = !instance.ended.empty() && checkOut.since > instance.ended;
        if (over && !before && !behind) {
            return &instance;
        }
    }
    return nullptr;
}

/// The holder gives back what he holds; anybody else does it in his name.
std::string UndoCommand(Examination& examination, const std::string& path, const Session& holder)
{
    const std::string undo = examination.Tvtask("undo " + InQuotes(path));
    if (holder == examination.context.store->CurrentUser()) {
        return undo;
    }
    constexpr std::string_view kProgram = "tvtask ";
    return std::string(kProgram) + "user " + InQuotes(holder.user + "@" + holder.machine) + " " +
           undo.substr(kProgram.size());
}

} // namespace

Findings ExamineVaultFolders(Examination& examination)
{
    const auto root = PathOf(examination.context.vaultFolder);
    if (!VaultStore::Exists(root)) {
        return {};
    }
    Findings findings;
    for (const auto& folder : VaultStore::Folders(root)) {
        if (const auto finding = FolderFinding(examination, "folder", TextOf(folder))) {
            findings.push_back(*finding);
        }
    }
    if (findings.empty()) {
        return {{Level::Ok, "folders", TextOf(root) + " and its own folders can be written"}};
    }
    return findings;
}

Findings ExamineVault(Examination& examination)
{
    HostContext& context = examination.context;
    const std::string subject = "vault";
    const auto root = PathOf(context.vaultFolder);
    if (!VaultStore::Exists(root)) {
        const bool asked = context.vaultFolder != context.environment.defaultVault;
        return {{asked ? Level::Problem : Level::Warning,
                 subject,
                 "there is none in " + InQuotes(context.vaultFolder),
                 asked ? "Correct the path, or make a vault there:" : "Name yours by --vault, or make one:",
                 {examination.Tvtask("init")}}};
    }
    try {
        const int version = VaultStore::SchemaVersion(root, context.environment.storeOptions);
        const std::string form = "form " + std::to_string(version);
        if (version > 0 && version < kSchemaVersion) {
            return {{Level::Warning,
                     subject,
                     "it is of " + form + ", of an older program, and the next command brings it to form " +
                         std::to_string(kSchemaVersion) + ", which the older one refuses",
                     "Do that when all machines have this program, and then look again:",
                     {examination.Tvtask("ls")}}};
        }
        context.OpenVault();
        return {{Level::Ok, subject, InQuotes(context.store->Name()) + " in " + TextOf(root) + ", " + form}};
    } catch (const NoVaultError& error) {
        return {
            {Level::Problem, subject, error.what(), "Use the program that made it, or put back a saved copy of it"}};
    } catch (const ResultError& error) {
        return {{Level::Problem, subject, WordsOf(error), "Put back a saved copy of the vault's folder"}};
    }
}

Findings ExamineContents(Examination& examination)
{
    try {
        examination.context.store->Verify();
    } catch (const ResultError& error) {
        const auto folders = VaultStore::Folders(examination.context.store->Root());
        return {{Level::Problem, "contents", WordsOf(error),
                 "Put back what is missing from a saved copy of " + InQuotes(TextOf(folders[2]))}};
    }
    return {{Level::Ok, "contents", "the bytes of every version are there, whole"}};
}

Findings ExamineClaims(Examination& examination)
{
    Findings findings;
    for (const InstanceRecord& instance : examination.context.store->Instances()) {
        if (IsLeft(examination, instance)) {
            findings.push_back({Level::Problem,
                                "run " + std::to_string(instance.id),
                                "'" + instance.taskName + "' is " + std::string(StatusWord(instance.status)) +
                                    " since " + instance.started + ", and its host, process " +
                                    std::to_string(instance.hostProcess) + ", is gone",
                                "Run it again:",
                                {examination.Tvtask("run " + std::to_string(instance.id))}});
        }
    }
    if (findings.empty()) {
        return {{Level::Ok, "claimed runs", "none whose host is gone"}};
    }
    return findings;
}

Findings ExamineCheckOuts(Examination& examination)
{
    VaultStore& store = *examination.context.store;
    const auto instances = store.Instances();
    std::vector<FileRecord> files;
    AddCheckedOut(store, kRootFolder, files);
    Findings findings;
    for (const FileRecord& file : files) {
        const InstanceRecord* run = RunOf(examination, instances, *file.checkOut);
        if (run == nullptr) {
            continue;
        }
        const std::string path = VaultPathText(store.PathOfFile(file));
        const Session& holder = file.checkOut->holder;
        findings.push_back({Level::Warning,
                            path,
                            "was checked out by " + holder.user + " on " + holder.machine + " while run " +
                                std::to_string(run->id) + " was under way, which is over",
                            "Give it back, unless somebody works on it:",
                            {UndoCommand(examination, path, holder)}});
    }
    if (findings.empty()) {
        return {{Level::Ok, "check-outs", "none left by a run"}};
    }
    return findings;
}

} // namespace tv::local
