#include "vault_run_model.h"

#include <algorithm>
#include <iterator>

namespace tv {

namespace {

/// Ends the steps up to the one that answers for them.
struct ModelFailure
{
    Result code;
};

constexpr Result kNameAlreadyExists = static_cast<Result>(0x8004020Fu);
constexpr Result kNotLockedByYou = static_cast<Result>(0x80040210u);
constexpr Result kLockedByAnother = static_cast<Result>(0x80040212u);

constexpr char kCardsAndReferences[] = "Error creating references from source to destination file.";

} // namespace

VaultRunModel::VaultRunModel(PlannedFault plannedFault, bool replacesOutputs)
    : fault(plannedFault), replaces(replacesOutputs)
{
    outcome.files["C:\\Vault\\Out\\old.step"] = {.version = 2, .lockedBy = ""};
    outcome.files["C:\\Vault\\Out\\theirs.step"] = {.version = 1, .lockedBy = "somebody"};
}

bool VaultRunModel::Fails(const char* call)
{
    outcome.calls.emplace_back(call);
    ++callCount;
    return fault.n > 0 && (callCount == fault.n || (fault.isLasting && callCount > fault.n));
}

void VaultRunModel::Need(const char* call)
{
    if (Fails(call)) {
        throw ModelFailure{kSweepFailure};
    }
}

void VaultRunModel::NeedEach(std::initializer_list<const char*> calls)
{
    for (const char* call : calls) {
        Need(call);
    }
}

ModelFile* VaultRunModel::Find(const std::string& path)
{
    const auto found = outcome.files.find(path);
    return found != outcome.files.end() ? &found->second : nullptr;
}

void VaultRunModel::Log(const char* context)
{
    if (!Fails("Vault.GetErrorString")) {
        outcome.logged.emplace_back(context);
    }
}

template <typename Step> void VaultRunModel::Logging(const char* context, Step&& step)
{
    try {
        step();
    } catch (const ModelFailure&) {
        Log(context);
        throw;
    }
}

RunOutcome VaultRunModel::Run()
{
    outcome.result = Report(RunTask());
    return outcome;
}

Result VaultRunModel::RunTask()
{
    if (Fails("Vault.GetRootFolderPath")) {
        return kSweepFailure;
    }
    Result result = 0;
    try {
        PrepareAndWork();
    } catch (const ModelFailure& failure) {
        result = failure.code;
    }
    try {
        RegisterOutputs();
    } catch (const ModelFailure&) {
        // A file that can't be added costs a line in the log.
    }
    const Result log = RegisterLog();
    return result < 0 ? result : std::min(log, Result{0});
}

void VaultRunModel::PrepareAndWork()
{
    NeedEach({"Vault.GetRootFolderPath", "Vault.GetName"});
    hasSelection = true;
    Need("Vault.CreateUtility");
    for (size_t i = 0; i < std::size(kSweepOutputs); ++i) {
        Need("BatchGet.AddSelection");
    }
    NeedEach({"BatchGet.CreateTree", "BatchGet.GetFiles", "Vault.CreateUtility"});
    for (size_t i = 0; i < std::size(kSweepOutputs); ++i) {
        Need("BatchList.AddFile");
    }
    NeedEach({"BatchList.CreateList", "BatchList.GetFileList"});
    knowsLogPath = true;
    // The log isn't in the vault yet; whether that can be found out doesn't matter.
    Fails("Vault.GetFileFromPath");
    for (const SweepOutput& output : kSweepOutputs) {
        AddOutput(output);
    }
}

void VaultRunModel::AddOutput(const SweepOutput& output)
{
    Record record;
    record.path = output.output;
    record.isUnderRoot = output.isUnderRoot;
    // A failure here counts as not found.
    if (!Fails("Vault.GetFileFromPath") && Find(output.output) != nullptr) {
        try {
            record.inVault = PrepareVaultFile(output);
        } catch (const ModelFailure&) {
            return;
        }
    }
    records.push_back(std::move(record));
}

/// True when the file stays in the vault.
bool VaultRunModel::PrepareVaultFile(const SweepOutput& output)
{
    ModelFile& file = *Find(output.output);
    Need("File.GetID");
    if (replaces) {
        Need("Folder.DeleteFile");
        if (!file.lockedBy.empty()) {
            throw ModelFailure{kLockedByAnother};
        }
        outcome.files.erase(output.output);
        return false;
    }
    NeedEach({"Folder.GetID", "File.GetCurrentVersion", "File.IsLocked"});
    if (file.lockedBy.empty()) {
        Need("File.LockFile");
        file.lockedBy = "operator";
    }
    return true;
}

void VaultRunModel::RegisterOutputs()
{
    if (!records.empty()) {
        AddNewOutputs();
    }
    if (std::ranges::none_of(records, &Record::inVault)) {
        return;
    }
    Logging(kCardsAndReferences, [&] { WriteCards(); });
    Logging(kCardsAndReferences, [&] { WriteReferences(); });
    CheckIn();
}

void VaultRunModel::AddNewOutputs()
{
    Logging("Creating VyxUtil_BatchAdd interface.", [&] { Need("Vault.CreateUtility"); });
    std::vector<Record*> queued;
    for (Record& record : records) {
        if (!record.inVault && record.isUnderRoot) {
            const std::string folder = record.path.substr(0, record.path.rfind('\\'));
            Logging(("Adding file '" + folder + "' from path.").c_str(),
                    [&] { Need("BatchAdd.AddFileFromPathToPath"); });
            queued.push_back(&record);
        }
    }
    if (queued.empty()) {
        return;
    }
    Logging("Adding files to the vault. No permission to add files to the destination folder?",
            [&] { Need("BatchAdd.CommitAdd"); });
    // The whole batch is in the vault before the first result is looked at.
    std::vector<Record*> existing;
    for (Record* record : queued) {
        if (Find(record->path) != nullptr) {
            existing.push_back(record);
        } else {
            outcome.files[record->path] = {.version = 1, .lockedBy = "operator", .isNew = true};
        }
    }
    for (Record* record : queued) {
        if (std::ranges::find(existing, record) != existing.end()) {
            TakeExisting();
        }
        record->inVault = true;
    }
}

/// The file came into the vault by another way: its ids are asked for.
void VaultRunModel::TakeExisting()
{
    NeedEach({"Vault.GetFileFromPath", "File.GetID", "Folder.GetID"});
}

void VaultRunModel::WriteCards()
{
    Need("VariableMgr.GetFirstVariablePosition");
    for (size_t i = 0; i < kSweepVariables; ++i) {
        NeedEach({"VariableMgr.GetNextVariable", "Variable.GetName", "Variable.GetID"});
    }
    Need("Vault.CreateUtility");
    for (const Record& record : records) {
        if (record.inVault) {
            NeedEach({"Vault.GetFileFromPath", "File.GetEnumeratorVariable", "EnumeratorVariable.GetVersionVariables",
                      "VariableValue.GetID", "VariableValue.GetValue", "BatchUpdate.SetCardValue",
                      "BatchUpdate.SetCardValue"});
        }
    }
    Need("BatchUpdate.CommitUpdate");
    for (const Record& record : records) {
        if (record.inVault) {
            Find(record.path)->hasCard = true;
        }
    }
}

void VaultRunModel::WriteReferences()
{
    Need("Vault.CreateUtility");
    for (const Record& record : records) {
        if (record.inVault) {
            Need("BatchRefs.AddReferences");
        }
    }
    Need("BatchRefs.CommitReferences");
    for (const Record& record : records) {
        if (record.inVault) {
            ++Find(record.path)->references;
        }
    }
}

void VaultRunModel::CheckIn()
{
    Logging("Checking in all checked out docs.", [&] { Need("Vault.CreateUtility"); });
    Logging("Unlocking files.", [&] {
        NeedEach({"BatchUnlock.SetComment", "BatchUnlock.AddSelection", "BatchUnlock.CreateTree",
                  "BatchUnlock.UnlockFiles"});
        bool isRefused = false;
        for (const Record& record : records) {
            if (!record.inVault) {
                continue;
            }
            ModelFile& file = *Find(record.path);
            if (file.lockedBy != "operator") {
                isRefused = true;
                continue;
            }
            file.version += file.isNew ? 0 : 1;
            file.isNew = false;
            file.lockedBy.clear();
        }
        if (isRefused) {
            throw ModelFailure{kNotLockedByYou};
        }
    });
}

Result VaultRunModel::RegisterLog()
{
    if (!knowsLogPath || outcome.logged.empty()) {
        return 1;
    }
    try {
        NeedEach(
            {"Vault.GetFileFromPath", "Vault.CreateUtility", "BatchAdd.AddFileFromPathToPath", "BatchAdd.CommitAdd"});
        outcome.files[kSweepLog] = {.version = 1, .lockedBy = "operator", .isNew = true};
        Need("Vault.CreateUtility");
        Record log;
        log.path = kSweepLog;
        log.isUnderRoot = true;
        log.isLog = true;
        records.push_back(std::move(log));
        NeedEach({"BatchUnlock.SetComment", "BatchUnlock.AddSelection", "BatchUnlock.CreateTree",
                  "BatchUnlock.UnlockFiles"});
        outcome.files[kSweepLog].lockedBy.clear();
        outcome.files[kSweepLog].isNew = false;
    } catch (const ModelFailure& failure) {
        return failure.code;
    }
    return 0;
}

Result VaultRunModel::Report(Result result)
{
    const bool hasLog = std::ranges::any_of(records, &Record::isLog);
    const bool isFailed = result != 0 || hasLog;
    size_t documents = 0;
    try {
        documents = CollectDocuments(isFailed);
    } catch (const ModelFailure& failure) {
        return result < 0 ? result : failure.code;
    }
    outcome.hasStatus = true;
    outcome.status = isFailed ? 9 : 7;
    outcome.documents = documents + (hasSelection ? std::size(kSweepOutputs) : 0);
    if (result == 0 && hasLog) {
        outcome.message = u"Task finished with errors. Please see the log-file for more details.";
    } else if (result != 0 && !hasSelection) {
        outcome.message = u"No file selected.";
    } else if (result == 0 && records.empty()) {
        outcome.status = 9;
        outcome.message = u"No file converted.";
    }
    return result;
}

size_t VaultRunModel::CollectDocuments(bool includeLog)
{
    size_t documents = 0;
    for (const Record& record : records) {
        if (!record.isUnderRoot || (record.isLog && !includeLog)) {
            continue;
        }
        Need("Vault.GetFileFromPath");
        if (Find(record.path) != nullptr) {
            NeedEach({"File.GetID", "Folder.GetID", "File.GetCurrentVersion"});
            ++documents;
        }
    }
    return documents;
}

} // namespace tv
