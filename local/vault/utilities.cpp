// The batch utilities of the vault.
#include "vault/object_support.h"

#include <algorithm>

namespace tv::local {

namespace {

class BatchGet final : public ComObject<IVyxBatchGet>
{
  public:
    explicit BatchGet(Context shared) : context(std::move(shared)) {}

    Result TV_CALL AddSelection(IVyxVault* vault, int32_t fileId, int32_t folderId, const VARIANT* version) override
    {
        return AtBoundary([&] {
            RequirePointer(vault);
            context->RequireFileIn(fileId, folderId);
            selection.push_back({fileId, NumberArgument(version)});
            return 0;
        });
    }

    Result TV_CALL CreateTree(WindowHandle, int32_t flags) override
    {
        rule = (flags & 1) != 0 ? ReferenceRule::AsBuilt : ReferenceRule::Latest;
        return 0;
    }

    Result TV_CALL GetFiles(WindowHandle, int32_t) override
    {
        return AtBoundary([&] {
            for (const Wanted& wanted : selection) {
                context->files.FetchWithReferences(context->RequireFile(wanted.file), wanted.version, rule);
            }
            selection.clear();
            return 0;
        });
    }

  private:
    struct Wanted
    {
        int32_t file;
        int32_t version;
    };

    Context context;
    std::vector<Wanted> selection;
    ReferenceRule rule = ReferenceRule::Latest;
};

class BatchList final : public ComObject<IVyxBatchList>
{
  public:
    explicit BatchList(Context shared) : context(std::move(shared)) {}

    Result TV_CALL AddFile(const VARIANT* path, int32_t, int32_t, int32_t) override
    {
        return AtBoundary([&] {
            RequirePointer(path);
            paths.push_back(Utf8(Variant::Copy(*path).ToText()));
            return 0;
        });
    }

    Result TV_CALL CreateList(const char16_t*, SAFEARRAY** files) override
    {
        return AtBoundary([&] {
            records.clear();
            for (const std::string& path : paths) {
                const auto place = BelowRoot(context->store->Root(), path);
                if (const auto file = place ? context->store->FindFile(*place) : std::nullopt) {
                    VyxListFile record{};
                    record.fileId = file->id;
                    record.latestVersion = file->latestVersion;
                    records.push_back(record);
                }
            }
            if (files != nullptr) {
                *files = MakeRecordArray<VyxListFile>(records).release();
            }
            return 0;
        });
    }

    Result TV_CALL GetFileList(SAFEARRAY** files) override
    {
        return AtBoundary([&] {
            RequirePointer(files);
            *files = MakeRecordArray<VyxListFile>(records).release();
            return 0;
        });
    }

  private:
    Context context;
    std::vector<std::string> paths;
    std::vector<VyxListFile> records;
};

class BatchAdd final : public ComObject<IVyxBatchAdd>
{
  public:
    explicit BatchAdd(Context shared) : context(std::move(shared)) {}

    Result TV_CALL AddFileFromPathToPath(const char16_t* localPath, const char16_t* folderPath, WindowHandle, int32_t,
                                         int32_t) override
    {
        return AtBoundary([&] {
            const std::filesystem::path from = PathOf(TextArgument(localPath));
            const std::string folder = TextArgument(folderPath);
            if (!Disk::IsFile(from)) {
                Fail(kErrorFileNotFound, "There is no file '" + TextOf(from) + "'.");
            }
            const auto place = BelowRoot(context->store->Root(), folder);
            if (!place) {
                Fail(kErrorFolderNotFound, "'" + folder + "' isn't a folder of the vault.");
            }
            queue.push_back({from, *place});
            return 0;
        });
    }

    /// Folders that are missing are made: the files' own folders exist on the disk, and the vault follows them.
    Result TV_CALL CommitAdd(WindowHandle, SAFEARRAY** results, int32_t, int32_t, int32_t* count) override
    {
        return AtBoundary([&] {
            RequirePointer(results);
            SafeArray array = MakeRecordArray(VyxAddResult::kLayout, static_cast<uint32_t>(queue.size()));
            {
                const SafeArrayView<VyxAddResult> view(array.get());
                for (size_t i = 0; i < queue.size(); ++i) {
                    AddOne(queue[i], view[i]);
                }
            }
            if (count != nullptr) {
                *count = static_cast<int32_t>(queue.size());
            }
            queue.clear();
            *results = array.release();
            return 0;
        });
    }

  private:
    struct Queued
    {
        std::filesystem::path from;
        VaultPath folder;
    };

    void AddOne(const Queued& queued, VyxAddResult& result)
    {
        const auto place = context->files.LocalPath(queued.folder) / queued.from.filename();
        result.path = NewText(std::string_view(TextOf(place)));
        result.result = AtBoundary([&] {
            const FileRecord file = context->files.Add(queued.from, context->store->MakeFolder(queued.folder));
            result.fileId = file.id;
            result.folderId = file.folder;
            return 0;
        });
    }

    Context context;
    std::vector<Queued> queue;
};

class BatchUnlock final : public ComObject<IVyxBatchUnlock>
{
  public:
    explicit BatchUnlock(Context shared) : context(std::move(shared)) {}

    Result TV_CALL SetComment(const char16_t* text) override
    {
        return AtBoundary([&] {
            comment = TextArgument(text);
            return 0;
        });
    }

    Result TV_CALL AddSelection(IVyxVault* vault, SAFEARRAY* pairs) override
    {
        return AtBoundary([&] {
            RequirePointer(vault);
            RequirePointer(pairs);
            for (const VyxSelectionPair& pair : SafeArrayView<VyxSelectionPair>(pairs)) {
                selection.push_back(pair);
            }
            return 0;
        });
    }

    Result TV_CALL CreateTree(WindowHandle, int32_t, int32_t, VariantBool* done) override
    {
        if (done != nullptr) {
            *done = kVariantTrue;
        }
        return 0;
    }

    /// Checks in what can be; the first refusal is the result.
    Result TV_CALL UnlockFiles(WindowHandle, int32_t) override
    {
        return AtBoundary([&] {
            Result first = 0;
            const auto note = [&](Result result) { first = first < 0 ? first : result; };
            std::vector<int32_t> files;
            for (const VyxSelectionPair& pair : selection) {
                const Result known = AtBoundary([&] {
                    context->RequireFileIn(pair.fileId, pair.folderId);
                    files.push_back(pair.fileId);
                    return 0;
                });
                note(known);
            }
            selection.clear();
            for (Result result : context->files.CheckIn(files, comment)) {
                note(result);
            }
            return first;
        });
    }

  private:
    Context context;
    std::string comment;
    std::vector<VyxSelectionPair> selection;
};

class BatchUpdate final : public ComObject<IVyxBatchUpdate>
{
  public:
    explicit BatchUpdate(Context shared) : context(std::move(shared)) {}

    Result TV_CALL SetCardValue(int32_t fileId, int32_t variableId, const VARIANT* value, int32_t, int32_t) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            writes.push_back({fileId, variableId, {}, StoredValue::FromVariant(*value)});
            return 0;
        });
    }

    /// A value for a variable that the vault no longer has is left out and told in `errors`, one code for each such
    /// value; it doesn't keep the others from being written. A file that isn't in the vault fails the commit.
    Result TV_CALL CommitUpdate(SAFEARRAY** errors, int32_t) override
    {
        return AtBoundary([&] {
            std::vector<Result> refused = context->store->WriteCards(writes);
            writes.clear();
            std::erase(refused, 0);
            const bool fileMissing = std::find(refused.begin(), refused.end(), kErrorFileNotFound) != refused.end();
            if (errors != nullptr) {
                *errors = refused.empty() ? nullptr : ErrorArray(refused).release();
            }
            return fileMissing ? kErrorFileNotFound : Result{0};
        });
    }

  private:
    static SafeArray ErrorArray(const std::vector<Result>& codes)
    {
        SafeArray array = SafeArray::Vector(VT_I4, static_cast<uint32_t>(codes.size()));
        const SafeArrayView<int32_t> view(array.get());
        std::copy(codes.begin(), codes.end(), view.begin());
        return array;
    }

    Context context;
    std::vector<CardWrite> writes;
};

class BatchRefs final : public ComObject<IVyxBatchRefs>
{
  public:
    explicit BatchRefs(Context shared) : context(std::move(shared)) {}

    Result TV_CALL AddReferences(int32_t parentFileId, SAFEARRAY* sources) override
    {
        return AtBoundary([&] {
            RequirePointer(sources);
            context->RequireFile(parentFileId);
            Queued queued{parentFileId, {}};
            for (const VyxSelectionPair& pair : SafeArrayView<VyxSelectionPair>(sources)) {
                context->RequireFileIn(pair.fileId, pair.folderId);
                queued.sources.push_back({pair.fileId, 0});
            }
            queue.push_back(std::move(queued));
            return 0;
        });
    }

    /// Writes everything at the first call, so nothing is ever left pending.
    Result TV_CALL CommitReferences(int32_t, int32_t* stillPending) override
    {
        return AtBoundary([&] {
            for (const Queued& queued : queue) {
                context->store->AddReferences(queued.parent, queued.sources);
            }
            queue.clear();
            if (stillPending != nullptr) {
                *stillPending = 0;
            }
            return 0;
        });
    }

  private:
    struct Queued
    {
        int32_t parent;
        std::vector<ReferenceRecord> sources;
    };

    Context context;
    std::vector<Queued> queue;
};

template <typename Interface, typename Utility> ComPtr<IUnknown> Make(const Context& context)
{
    return ComPtr<IUnknown>::Adopt(static_cast<Interface*>(MakeObject<Utility>(context).release()));
}

struct UtilityRow
{
    int32_t number;
    ComPtr<IUnknown> (*make)(const Context&);
};

constexpr UtilityRow kUtilities[] = {
    {kUtilityBatchUpdate, Make<IVyxBatchUpdate, BatchUpdate>},
    {kUtilityBatchUnlock, Make<IVyxBatchUnlock, BatchUnlock>},
    {kUtilityBatchRefs, Make<IVyxBatchRefs, BatchRefs>},
    {kUtilityBatchGet, Make<IVyxBatchGet, BatchGet>},
    {kUtilityBatchList, Make<IVyxBatchList, BatchList>},
    {kUtilityBatchAdd, Make<IVyxBatchAdd, BatchAdd>},
};

} // namespace

ComPtr<IUnknown> MakeUtility(const Context& context, int32_t number)
{
    for (const UtilityRow& row : kUtilities) {
        if (row.number == number) {
            return row.make(context);
        }
    }
    return nullptr;
}

} // namespace tv::local
