// Files, folders and the cards of files.
#include "vault/object_support.h"

#include <algorithm>

namespace tv::local {

namespace {

/// The values of one card variable, one for each configuration that has one.
class VariableValueObject final : public ComObject<IVyxVariableValue>
{
  public:
    VariableValueObject(int32_t identifier, std::vector<CardValue> all) : id(identifier), values(std::move(all)) {}

    Result TV_CALL GetID(int32_t* variableId) override
    {
        return AtBoundary([&] {
            RequirePointer(variableId);
            *variableId = id;
            return 0;
        });
    }

    Result TV_CALL GetValue(const char16_t* configuration, VARIANT* value) override
    {
        return AtBoundary([&] {
            RequirePointer(value);
            const std::string wanted = configuration != nullptr ? Utf8(configuration) : std::string();
            const auto found = std::find_if(values.begin(), values.end(),
                                            [&](const CardValue& card) { return card.configuration == wanted; });
            if (found == values.end()) {
                VariantInit(value);
                return 1;
            }
            found->value.ToVariant().MoveTo(value);
            return 0;
        });
    }

  private:
    int32_t id;
    std::vector<CardValue> values;
};

class CardReader final : public ComObject<IVyxEnumeratorVariable>
{
  public:
    CardReader(Context shared, int32_t fileId) : context(std::move(shared)), id(fileId) {}

    Result TV_CALL GetVersionVariables(const VARIANT* version, int32_t folderId, SAFEARRAY** variables,
                                       SAFEARRAY** values, VyxVersionInfo* info) override
    {
        return AtBoundary([&] {
            RequirePointer(variables);
            RequirePointer(values);
            const FileRecord file = context->RequireFileIn(id, folderId);
            const int32_t wanted = NumberArgument(version);
            const auto record = context->store->Version(file.id, wanted > 0 ? wanted : file.latestVersion);
            if (!record) {
                return kErrorFileNotFound;
            }
            const auto cards = GroupByVariable(context->store->CardValues(file.id, record->number));
            SafeArray objects = SafeArray::Vector(VT_VARIANT, static_cast<uint32_t>(cards.size()));
            SafeArray firsts = SafeArray::Vector(VT_VARIANT, static_cast<uint32_t>(cards.size()));
            Fill(cards, objects, firsts);
            if (info != nullptr) {
                *info = {file.latestVersion, NewText(record->revision), NewText(record->state)};
            }
            *variables = objects.release();
            *values = firsts.release();
            return Result{0};
        });
    }

  private:
    using Group = std::vector<CardValue>;

    static std::vector<Group> GroupByVariable(const std::vector<CardValue>& values)
    {
        std::vector<Group> groups;
        for (const CardValue& value : values) {
            if (groups.empty() || groups.back().front().variable != value.variable) {
                groups.emplace_back();
            }
            groups.back().push_back(value);
        }
        return groups;
    }

    static void Fill(const std::vector<Group>& cards, const SafeArray& objects, const SafeArray& firsts)
    {
        const SafeArrayView<VARIANT> objectView(objects.get());
        const SafeArrayView<VARIANT> firstView(firsts.get());
        for (size_t i = 0; i < cards.size(); ++i) {
            const auto object = MakeObject<VariableValueObject>(cards[i].front().variable, cards[i]);
            Variant::FromUnknown(object.get()).MoveTo(&objectView[i]);
            cards[i].front().value.ToVariant().MoveTo(&firstView[i]);
        }
    }

    Context context;
    int32_t id;
};

class FileObject final : public ComObject<IVyxFile>
{
  public:
    FileObject(Context shared, int32_t fileId) : context(std::move(shared)), id(fileId) {}

    Result TV_CALL GetID(int32_t* result) override
    {
        return Give(result, [](const FileRecord& file) { return file.id; });
    }

    Result TV_CALL GetName(BStr* name) override
    {
        return Give(name, [](const FileRecord& file) { return NewText(std::string_view(file.name)); });
    }

    Result TV_CALL GetLocalPath(int32_t folderId, BStr* path) override
    {
        return AtBoundary([&] {
            RequirePointer(path);
            const FileRecord file = context->RequireFileIn(id, folderId);
            *path = NewText(std::string_view(TextOf(context->files.LocalPathOf(file))));
            return 0;
        });
    }

    Result TV_CALL GetCurrentVersion(int32_t* version) override
    {
        return Give(version, [](const FileRecord& file) { return file.latestVersion; });
    }

    Result TV_CALL IsLocked(VariantBool* locked) override
    {
        return Give(locked, [](const FileRecord& file) { return file.checkOut ? kVariantTrue : kVariantFalse; });
    }

    Result TV_CALL LockFile(int32_t folderId, int32_t, int32_t) override
    {
        return AtBoundary([&] {
            context->RequireFileIn(id, folderId);
            context->files.CheckOut(id);
            return 0;
        });
    }

    Result TV_CALL GetRevisionName(int32_t version, int32_t folderId, BStr* revision) override
    {
        return AtBoundary([&] {
            RequirePointer(revision);
            *revision = NewText(RequireVersion(version, folderId).revision);
            return 0;
        });
    }

    Result TV_CALL GetStateName(int32_t version, int32_t folderId, BStr* state) override
    {
        return AtBoundary([&] {
            RequirePointer(state);
            *state = NewText(RequireVersion(version, folderId).state);
            return 0;
        });
    }

    Result TV_CALL GetEnumeratorVariable(int32_t, IVyxEnumeratorVariable** variables) override
    {
        return AtBoundary([&] {
            RequirePointer(variables);
            context->RequireFile(id);
            *variables = MakeCardReader(context, id).release();
            return 0;
        });
    }

  private:
    template <typename Value, typename Reader> Result Give(Value* result, Reader&& read)
    {
        return AtBoundary([&] {
            RequirePointer(result);
            *result = read(context->RequireFile(id));
            return 0;
        });
    }

    VersionRecord RequireVersion(int32_t version, int32_t folderId)
    {
        const FileRecord file = context->RequireFileIn(id, folderId);
        const auto record = context->store->Version(id, version > 0 ? version : file.latestVersion);
        if (!record) {
            Fail(kErrorFileNotFound, "'" + file.name + "' has no version " + std::to_string(version) + ".");
        }
        return *record;
    }

    Context context;
    int32_t id;
};

class FolderObject final : public ComObject<IVyxFolder>
{
  public:
    FolderObject(Context shared, int32_t folderId) : context(std::move(shared)), id(folderId) {}

    Result TV_CALL GetID(int32_t* result) override
    {
        return AtBoundary([&] {
            RequirePointer(result);
            *result = id;
            return 0;
        });
    }

    Result TV_CALL GetLocalPath(BStr* path) override
    {
        return AtBoundary([&] {
            RequirePointer(path);
            *path = NewText(std::string_view(TextOf(context->files.LocalPath(context->store->PathOfFolder(id)))));
            return 0;
        });
    }

    Result TV_CALL GetFirstFilePosition(IVyxPos** position) override
    {
        return AtBoundary([&] {
            RequirePointer(position);
            *position = MakePosition(context->store->FilesIn(id)).release();
            return 0;
        });
    }

    Result TV_CALL GetNextFile(IVyxPos* position, IVyxFile** file) override
    {
        return AtBoundary([&] {
            RequirePointer(file);
            *file = MakeFileObject(context, Position::Take(position)).release();
            return 0;
        });
    }

    Result TV_CALL GetFirstSubFolderPosition(IVyxPos** position) override
    {
        return AtBoundary([&] {
            RequirePointer(position);
            *position = MakePosition(context->store->SubFolders(id)).release();
            return 0;
        });
    }

    Result TV_CALL GetNextSubFolder(IVyxPos* position, IVyxFolder** folder) override
    {
        return AtBoundary([&] {
            RequirePointer(folder);
            *folder = MakeFolderObject(context, Position::Take(position)).release();
            return 0;
        });
    }

    Result TV_CALL DeleteFile(int32_t, int32_t fileId, int32_t flags) override
    {
        return AtBoundary([&] {
            if (flags != -1) {
                Fail(E_INVALIDARG, "A file leaves this vault with all its versions; the flags must be -1.");
            }
            context->RequireFileIn(fileId, id);
            context->files.Delete(fileId);
            return 0;
        });
    }

  private:
    template <typename Records> static ComPtr<IVyxPos> MakePosition(const Records& records)
    {
        std::vector<int32_t> ids;
        for (const auto& record : records) {
            ids.push_back(record.id);
        }
        return ComPtr<IVyxPos>::Adopt(MakeObject<Position>(std::move(ids)).release());
    }

    Context context;
    int32_t id;
};

} // namespace

ComPtr<IVyxFile> MakeFileObject(const Context& context, int32_t file)
{
    return ComPtr<IVyxFile>::Adopt(MakeObject<FileObject>(context, file).release());
}

ComPtr<IVyxFolder> MakeFolderObject(const Context& context, int32_t folder)
{
    return ComPtr<IVyxFolder>::Adopt(MakeObject<FolderObject>(context, folder).release());
}

ComPtr<IVyxEnumeratorVariable> MakeCardReader(const Context& context, int32_t file)
{
    return ComPtr<IVyxEnumeratorVariable>::Adopt(MakeObject<CardReader>(context, file).release());
}

} // namespace tv::local
