#include "fakes/vault/vault_objects.h"

#include "com/bstring.h"
#include "com/safe_array.h"
#include "support/format.h"
#include "support/paths.h"
#include "support/text_compare.h"

#include <algorithm>
#include <unordered_set>

namespace tv::fakes {

namespace {

std::u16string Pair(int32_t first, int32_t second)
{
    return FormatText(u"%d %d", first, second);
}

std::vector<VyxSelectionPair> PairsOf(SAFEARRAY* selection)
{
    const SafeArrayView<VyxSelectionPair> view(selection);
    return {view.begin(), view.end()};
}

void MakeFolders(FileService& disk, const std::u16string& path)
{
    if (const std::u16string parent = FolderOf(path); !parent.empty() && parent.size() < path.size()) {
        MakeFolders(disk, parent);
    }
    disk.CreateDirectory(path);
}

Result RequireFileIn(VaultWorld& world, int32_t fileId, int32_t folderId)
{
    const FakeFile* file = world.FindFile(fileId);
    if (file == nullptr) {
        return kVaultFileNotFound;
    }
    return file->folderId == folderId ? 0 : kVaultFolderNotFound;
}

/// Fetches files and what they refer to; with a disk, their local copies are written.
class BatchGet final : public ComObject<IVyxBatchGet>
{
  public:
    explicit BatchGet(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL AddSelection(IVyxVault*, int32_t fileId, int32_t folderId, const VARIANT* version) override
    {
        const std::u16string details = FormatText(u"%d %d %d", fileId, folderId, version->lVal);
        if (const Result fault = world->script.Enter("BatchGet.AddSelection", details)) {
            return fault;
        }
        if (version->vt != VT_I4) {
            return E_INVALIDARG;
        }
        const Result known = RequireFileIn(*world, fileId, folderId);
        if (known == 0) {
            selected.push_back(fileId);
        }
        return known;
    }

    Result TV_CALL CreateTree(WindowHandle, int32_t flags) override
    {
        return world->script.Enter("BatchGet.CreateTree", FormatText(u"%d", flags));
    }

    Result TV_CALL GetFiles(WindowHandle, int32_t) override
    {
        if (const Result fault = world->script.Enter("BatchGet.GetFiles")) {
            return fault;
        }
        std::unordered_set<int32_t> seen;
        for (std::vector<int32_t> waiting = std::move(selected); !waiting.empty();) {
            const FakeFile* file = world->FindFile(waiting.back());
            waiting.pop_back();
            if (file == nullptr) {
                return kVaultFileNotFound;
            }
            WriteLocalCopy(*file);
            for (const VyxSelectionPair& source : file->references) {
                if (world->FindFile(source.fileId) != nullptr && seen.insert(source.fileId).second) {
                    waiting.push_back(source.fileId);
                }
            }
        }
        selected.clear();
        return 0;
    }

  private:
    void WriteLocalCopy(const FakeFile& file)
    {
        if (world->disk != nullptr && !world->disk->FileExists(file.path)) {
            MakeFolders(*world->disk, FolderOf(file.path));
            if (const auto copy = world->disk->OpenForAppend(file.path)) {
                copy->Write(std::string_view("content"));
            }
        }
    }

    WorldPtr world;
    std::vector<int32_t> selected;
};

class BatchList final : public ComObject<IVyxBatchList>
{
  public:
    explicit BatchList(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL AddFile(const VARIANT* path, int32_t, int32_t, int32_t) override
    {
        if (path->vt != VT_BSTR) {
            return E_INVALIDARG;
        }
        const std::u16string_view text = TextOf(reinterpret_cast<BStr>(path->bstrVal));
        if (const Result fault = world->script.Enter("BatchList.AddFile", text)) {
            return fault;
        }
        paths.emplace_back(text);
        return 0;
    }

    Result TV_CALL CreateList(const char16_t* columns, SAFEARRAY** files) override
    {
        if (const Result fault = world->script.Enter("BatchList.CreateList", columns)) {
            return fault;
        }
        FindFiles();
        *files = MakeRecordArray(std::span<const VyxListFile>(records)).release();
        return 0;
    }

    Result TV_CALL GetFileList(SAFEARRAY** files) override
    {
        if (const Result fault = world->script.Enter("BatchList.GetFileList")) {
            return fault;
        }
        *files = MakeRecordArray(std::span<const VyxListFile>(records)).release();
        return 0;
    }

  private:
    void FindFiles()
    {
        records.clear();
        records.reserve(paths.size());
        for (const std::u16string& path : paths) {
            if (const FakeFile* file = world->FindFile(path)) {
                VyxListFile record{};
                record.fileId = file->id;
                record.latestVersion = file->CurrentVersion();
                records.push_back(record);
            }
        }
    }

    WorldPtr world;
    std::vector<std::u16string> paths;
    std::vector<VyxListFile> records;
};

/// Adds files. What was added is checked out by its adder until it is checked in.
class BatchAdd final : public ComObject<IVyxBatchAdd>
{
  public:
    explicit BatchAdd(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL AddFileFromPathToPath(const char16_t* localPath, const char16_t* folderPath, WindowHandle, int32_t,
                                         int32_t) override
    {
        const std::u16string details = std::u16string(localPath) + u" -> " + folderPath;
        if (const Result fault = world->script.Enter("BatchAdd.AddFileFromPathToPath", details)) {
            return fault;
        }
        if (world->disk != nullptr && !world->disk->FileExists(localPath)) {
            return kVaultFileNotFound;
        }
        if (!IsInVault(folderPath)) {
            return kVaultFolderNotFound;
        }
        queue.push_back({localPath, folderPath});
        return 0;
    }

    Result TV_CALL CommitAdd(WindowHandle, SAFEARRAY** results, int32_t, int32_t, int32_t* count) override
    {
        if (const Result fault = world->script.Enter("BatchAdd.CommitAdd")) {
            return fault;
        }
        std::vector<VyxAddResult> added;
        for (const Queued& file : queue) {
            added.push_back(Add(file));
        }
        queue.clear();
        *count = static_cast<int32_t>(added.size());
        *results = MakeRecordArray(std::span<const VyxAddResult>(added)).release();
        return 0;
    }

  private:
    struct Queued
    {
        std::u16string path;
        std::u16string folder;
    };

    bool IsInVault(std::u16string_view folder) const
    {
        const size_t length = world->root.size();
        return StartsWithIgnoringCase(folder, world->root) && (folder.size() == length || folder[length] == u'\\');
    }

    int32_t FolderId(const std::u16string& path)
    {
        if (const FakeFolder* folder = world->FindFolder(path)) {
            return folder->id;
        }
        const std::u16string parent = FolderOf(path);
        const int32_t parentId = FolderId(parent);
        return world->InsertFolder(path, parentId).id;
    }

    VyxAddResult Add(const Queued& queued)
    {
        VyxAddResult result{};
        result.path = AllocateText(queued.path);
        if (world->FindFile(queued.path) != nullptr) {
            result.result = E_VYX_NAME_ALREADY_EXISTS;
        } else if (const int32_t folder = FolderId(queued.folder); world->FindFolder(folder)->readOnly) {
            result.result = kVaultPermissionDenied;
        } else {
            FakeFile& file = world->Insert(queued.path, folder);
            file.versions[1];
            file.lockedBy = world->user;
            file.isNew = true;
            result.fileId = file.id;
            result.folderId = folder;
        }
        return result;
    }

    WorldPtr world;
    std::vector<Queued> queue;
};

class BatchUnlock final : public ComObject<IVyxBatchUnlock>
{
  public:
    explicit BatchUnlock(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL SetComment(const char16_t* text) override
    {
        comment = text;
        return world->script.Enter("BatchUnlock.SetComment", text);
    }

    Result TV_CALL AddSelection(IVyxVault*, SAFEARRAY* selection) override
    {
        const std::vector<VyxSelectionPair> pairs = PairsOf(selection);
        std::u16string details;
        for (const VyxSelectionPair& pair : pairs) {
            details += (details.empty() ? u"" : u", ") + Pair(pair.fileId, pair.folderId);
        }
        selected.insert(selected.end(), pairs.begin(), pairs.end());
        return world->script.Enter("BatchUnlock.AddSelection", details);
    }

    Result TV_CALL CreateTree(WindowHandle, int32_t flags, int32_t, VariantBool* done) override
    {
        *done = kVariantTrue;
        return world->script.Enter("BatchUnlock.CreateTree", FormatText(u"%d", flags));
    }

    Result TV_CALL UnlockFiles(WindowHandle, int32_t) override
    {
        if (const Result fault = world->script.Enter("BatchUnlock.UnlockFiles")) {
            return fault;
        }
        Result result = 0;
        for (const VyxSelectionPair& pair : selected) {
            const Result known = RequireFileIn(*world, pair.fileId, pair.folderId);
            const Result checkedIn = known == 0 ? CheckIn(*world->FindFile(pair.fileId)) : known;
            result = result == 0 ? checkedIn : result;
        }
        selected.clear();
        return result;
    }

  private:
    Result CheckIn(FakeFile& file)
    {
        if (file.lockedBy != world->user) {
            return kVaultNotLockedByYou;
        }
        if (!file.isNew) {
            const FakeVersion last = file.versions.empty() ? FakeVersion{} : file.versions.rbegin()->second;
            file.versions[file.CurrentVersion() + 1] = last;
        }
        FakeVersion& version = file.versions.rbegin()->second;
        for (const auto& [variable, value] : file.nextCard) {
            version.card[u""][variable] = value;
        }
        version.comment = comment;
        file.nextCard.clear();
        file.isNew = false;
        file.lockedBy.clear();
        return 0;
    }

    WorldPtr world;
    std::u16string comment;
    std::vector<VyxSelectionPair> selected;
};

class BatchUpdate final : public ComObject<IVyxBatchUpdate>
{
  public:
    explicit BatchUpdate(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL SetCardValue(int32_t fileId, int32_t variableId, const VARIANT* value, int32_t configuration,
                                int32_t flags) override
    {
        const std::u16string details = FormatText(u"%d %d %d %d", fileId, variableId, configuration, flags);
        if (const Result fault = world->script.Enter("BatchUpdate.SetCardValue", details)) {
            return fault;
        }
        queue.push_back({fileId, variableId, Variant::Copy(*value)});
        return 0;
    }

    Result TV_CALL CommitUpdate(SAFEARRAY** errors, int32_t) override
    {
        if (const Result fault = world->script.Enter("BatchUpdate.CommitUpdate")) {
            return fault;
        }
        Result result = 0;
        std::vector<Result> refused;
        for (const Queued& update : queue) {
            const Result written = Write(update);
            result = written == kVaultFileNotFound ? written : result;
            if (written != 0) {
                refused.push_back(written);
            }
        }
        queue.clear();
        *errors = refused.empty() ? nullptr : ErrorArray(refused).release();
        return result;
    }

  private:
    struct Queued
    {
        int32_t fileId;
        int32_t variableId;
        Variant value;
    };

    /// What is written to a checked-out file belongs to the version of its check-in.
    Result Write(const Queued& update)
    {
        FakeFile* file = world->FindFile(update.fileId);
        if (file == nullptr) {
            return kVaultFileNotFound;
        }
        if (!world->variables.contains(update.variableId)) {
            return kVaultVariableNotFound;
        }
        file->cardUpdates[update.variableId] = update.value;
        if (file->isNew || file->lockedBy.empty()) {
            file->versions.rbegin()->second.card[u""][update.variableId] = update.value;
        } else {
            file->nextCard[update.variableId] = update.value;
        }
        return 0;
    }

    static SafeArray ErrorArray(const std::vector<Result>& codes)
    {
        SafeArray array = SafeArray::Vector(VT_I4, static_cast<uint32_t>(codes.size()));
        const SafeArrayView<int32_t> view(array.get());
        std::ranges::copy(codes, view.begin());
        return array;
    }

    WorldPtr world;
    std::vector<Queued> queue;
};

/// Writes references; World().pendingCommits makes a first commit ask for a second.
class BatchRefs final : public ComObject<IVyxBatchRefs>
{
  public:
    explicit BatchRefs(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL AddReferences(int32_t parentFileId, SAFEARRAY* sources) override
    {
        const std::vector<VyxSelectionPair> pairs = PairsOf(sources);
        std::u16string details = FormatText(u"%d", parentFileId);
        for (const VyxSelectionPair& pair : pairs) {
            details += u" <- " + Pair(pair.fileId, pair.folderId);
        }
        if (const Result fault = world->script.Enter("BatchRefs.AddReferences", details)) {
            return fault;
        }
        if (world->FindFile(parentFileId) == nullptr) {
            return kVaultFileNotFound;
        }
        for (const VyxSelectionPair& pair : pairs) {
            if (const Result known = RequireFileIn(*world, pair.fileId, pair.folderId); known != 0) {
                return known;
            }
            queue.push_back({parentFileId, pair});
        }
        return 0;
    }

    Result TV_CALL CommitReferences(int32_t pending, int32_t* stillPending) override
    {
        if (const Result fault = world->script.Enter("BatchRefs.CommitReferences", FormatText(u"%d", pending))) {
            return fault;
        }
        *stillPending = 0;
        if (pending == 0 && !world->pendingCommits.empty()) {
            *stillPending = world->pendingCommits.front();
            world->pendingCommits.erase(world->pendingCommits.begin());
            return 0;
        }
        for (const Queued& reference : queue) {
            FakeFile* file = world->FindFile(reference.parentId);
            if (file == nullptr) {
                return kVaultFileNotFound;
            }
            file->references.push_back(reference.source);
        }
        queue.clear();
        return 0;
    }

  private:
    struct Queued
    {
        int32_t parentId;
        VyxSelectionPair source;
    };

    WorldPtr world;
    std::vector<Queued> queue;
};

template <typename Utility> ComPtr<IUnknown> Make(WorldPtr world)
{
    const auto utility = MakeObject<Utility>(std::move(world));
    return ComPtr<IUnknown>::Share(utility.get());
}

} // namespace

ComPtr<IUnknown> MakeUtility(WorldPtr world, int32_t number)
{
    switch (number) {
    case kUtilityBatchUpdate:
        return Make<BatchUpdate>(std::move(world));
    case kUtilityBatchUnlock:
        return Make<BatchUnlock>(std::move(world));
    case kUtilityBatchRefs:
        return Make<BatchRefs>(std::move(world));
    case kUtilityBatchGet:
        return Make<BatchGet>(std::move(world));
    case kUtilityBatchList:
        return Make<BatchList>(std::move(world));
    case kUtilityBatchAdd:
        return Make<BatchAdd>(std::move(world));
    default:
        return {};
    }
}

} // namespace tv::fakes
