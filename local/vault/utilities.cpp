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

    Result TV_CALL AddFile(const VARIANT* path, int32_t reserved1, int32_t reserved2, int32_t reserved3) override
    {
        return AtBoundary([&] {
            RequirePointer(path);
            if (reserved1 != 0 || reserved2 != 0 || reserved3 != 0) {
                Fail(E_INVALIDARG, "This vault knows no flags for a file of a list; they must be 0.");
            }
            paths.push_back(Utf8(Variant::Copy(*path).ToText()));
            return 0;
        });
    }

    Result TV_CALL CreateList(const char16_t* columns, SAFEARRAY** files) override
    {
        return AtBoundary([&] {
            if (!TextArgument(columns).empty()) {
                Fail(kErrorInvalidQuery, "This vault lists files by id and latest version; the columns must be empty.");
            }
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
            const std::vector<AddOutcome> outcomes = context->files.AddAll(queue);
            SafeArray array = MakeRecordArray(VyxAddResult::kLayout, static_cast<uint32_t>(queue.size()));
            {
                const SafeArrayView<VyxAddResult> view(array.get());
                for (size_t i = 0; i < queue.size(); ++i) {
                    Fill(view[i], queue[i], outcomes[i]);
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
    void Fill(VyxAddResult& result, const AddRequest& request, const AddOutcome& added) const
    {
        const auto place = context->files.LocalPath(request.folder) / request.from.filename();
        result.path = NewText(std::string_view(TextOf(place)));
        result.result = added.outcome.code;
        if (added.file) {
            result.fileId = added.file->id;
            result.folderId = added.file->folder;
        }
    }

    Context context;
    std::vector<AddRequest> queue;
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
            for (const Outcome& outcome : context->files.CheckIn(files, comment)) {
                note(outcome.code);
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

    /// The value is the one that counts for all configurations.
    Result TV_CALL SetCardValue(int32_t fileId, int32_t variableId, const VARIANT* value, int32_t reservedConfiguration,
                                int32_t flags) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            if (reservedConfiguration != 0 || (flags & ~kKnownFlags) != 0) {
                Fail(E_INVALIDARG, "A card value takes the configuration 0 and the flags 0 or 1.");
            }
            writes.push_back({fileId, variableId, {}, StoredValue::FromVariant(*value)});
            return 0;
        });
    }

    /// A value that is refused is left out and told in `errors`, one code for each such value; it doesn't keep the
    /// others from being written. A variable that the vault no longer has is no more than that; any other refusal is
    /// the result as well.
    Result TV_CALL CommitUpdate(SAFEARRAY** errors, int32_t) override
    {
        return AtBoundary([&] {
            std::vector<Result> refused = context->store->WriteCards(writes);
            writes.clear();
            std::erase(refused, 0);
            const auto failure = std::find_if(refused.begin(), refused.end(),
                                              [](Result code) { return code != kErrorVariableNotFound; });
            const Result result = failure != refused.end() ? *failure : Result{0};
            if (errors != nullptr) {
                *errors = refused.empty() ? nullptr : ErrorArray(refused).release();
            }
            return result;
        });
    }

  private:
    static constexpr int32_t kKnownFlags = 1;

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
            ParentReferences queued{parentFileId, {}};
            for (const VyxSelectionPair& pair : SafeArrayView<VyxSelectionPair>(sources)) {
                context->RequireFileIn(pair.fileId, pair.folderId);
                queued.references.push_back({pair.fileId, 0});
            }
            queue.push_back(std::move(queued));
            asked = 0;
            return 0;
        });
    }

    /// The first call, with 0, tells how many files are to get references, and writes nothing. The second, with that
    /// number, writes them all.
    Result TV_CALL CommitReferences(int32_t pending, int32_t* stillPending) override
    {
        return AtBoundary([&] {
            RequirePointer(stillPending);
            if (pending == 0) {
                for (const ParentReferences& queued : queue) {
                    context->store->RequireWritable(context->RequireFile(queued.parent));
                }
                asked = static_cast<int32_t>(queue.size());
                *stillPending = asked;
                return 0;
            }
            if (pending != asked) {
                Fail(E_INVALIDARG, "The references were not asked about with this number before.");
            }
            context->store->AddReferences(queue);
            queue.clear();
            asked = 0;
            *stillPending = 0;
            return 0;
        });
    }

  private:
    Context context;
    std::vector<ParentReferences> queue;
    int32_t asked = 0;
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
