#include "fakes/vault/vault_objects.h"

#include "com/bstring.h"
#include "com/safe_array.h"
#include "support/format.h"
#include "support/text_compare.h"

namespace tv::fakes {

namespace {

struct ErrorWords
{
    Result code;
    std::u16string_view name;
    std::u16string_view description;
};

constexpr ErrorWords kErrorWords[] = {
    {E_FAIL, u"E_FAIL", u"An unspecified error occurred."},
    {E_INVALIDARG, u"E_INVALIDARG", u"An invalid argument was given to the method."},
    {E_VYX_NAME_ALREADY_EXISTS, u"E_VYX_NAME_ALREADY_EXISTS", u"The name is taken."},
    {kVaultPermissionDenied, u"E_VYX_PERMISSION_DENIED", u"You don't have permission to perform this action."},
    {kVaultEndOfList, u"E_VYX_END_OF_LIST", u"The list has no more elements."},
    {kVaultNotLockedByYou, u"E_VYX_FILE_NOT_LOCKED_BY_YOU", u"The file isn't checked out by you."},
    {kVaultLockedByAnother, u"E_VYX_LOCKED_BY_ANOTHER_USER", u"The file in question is checked out by another user."},
    {kVaultFileNotFound, u"E_VYX_FILE_NOT_FOUND", u"The file could not be found."},
    {kVaultFolderNotFound, u"E_VYX_FOLDER_NOT_FOUND", u"The folder could not be found."},
    {kVaultVariableNotFound, u"E_VYX_VARIABLE_NOT_FOUND", u"The specified card variable is missing."},
};

std::u16string Number(int32_t number)
{
    return FormatText(u"%d", number);
}

BStr NewText(std::u16string_view text)
{
    return AllocateText(text);
}

/// A place in a list of ids.
class Position final : public ComObject<IVyxPos>
{
  public:
    explicit Position(std::vector<int32_t> allIds) : ids(std::move(allIds)) {}

    Result TV_CALL IsNull(VariantBool* atEnd) override
    {
        *atEnd = next < ids.size() ? kVariantFalse : kVariantTrue;
        return 0;
    }

    /// Makes an object of the id at the place, which moves on.
    template <typename Make> static Result Take(IVyxPos* position, Make&& make)
    {
        Position& own = *static_cast<Position*>(position);
        if (own.next == own.ids.size()) {
            return kVaultEndOfList;
        }
        make(own.ids[own.next++]);
        return 0;
    }

  private:
    std::vector<int32_t> ids;
    size_t next = 0;
};

class VariableValueObject final : public ComObject<IVyxVariableValue>
{
  public:
    VariableValueObject(WorldPtr vaultWorld, int32_t variable, std::map<std::u16string, Variant> allValues)
        : world(std::move(vaultWorld)), id(variable), values(std::move(allValues))
    {}

    Result TV_CALL GetID(int32_t* variableId) override
    {
        *variableId = id;
        return world->script.Enter("VariableValue.GetID", Number(id));
    }

    Result TV_CALL GetValue(const char16_t* configuration, VARIANT* value) override
    {
        if (const Result fault = world->script.Enter("VariableValue.GetValue", configuration)) {
            return fault;
        }
        const auto found = values.find(configuration);
        if (found == values.end()) {
            return 1;
        }
        Variant(found->second).MoveTo(value);
        return 0;
    }

  private:
    WorldPtr world;
    int32_t id;
    std::map<std::u16string, Variant> values;
};

/// The values of one version, by variable id and then by configuration.
std::map<int32_t, std::map<std::u16string, Variant>> ValuesByVariable(const FakeCard& card)
{
    std::map<int32_t, std::map<std::u16string, Variant>> values;
    for (const auto& [configuration, row] : card) {
        for (const auto& [variable, value] : row) {
            values[variable][configuration] = value;
        }
    }
    return values;
}

class CardReader final : public ComObject<IVyxEnumeratorVariable>
{
  public:
    CardReader(WorldPtr vaultWorld, int32_t file) : world(std::move(vaultWorld)), fileId(file) {}

    Result TV_CALL GetVersionVariables(const VARIANT* version, int32_t folderId, SAFEARRAY** variables,
                                       SAFEARRAY** values, VyxVersionInfo* info) override
    {
        const std::u16string details = Number(version->lVal) + u" " + Number(folderId);
        if (const Result fault = world->script.Enter("EnumeratorVariable.GetVersionVariables", details)) {
            return fault;
        }
        const FakeFile* file = world->FindFile(fileId);
        if (file == nullptr) {
            return kVaultFileNotFound;
        }
        if (file->folderId != folderId) {
            return kVaultFolderNotFound;
        }
        const int32_t number = version->lVal <= 0 ? file->CurrentVersion() : version->lVal;
        const auto found = file->versions.find(number);
        if (found == file->versions.end()) {
            return kVaultFileNotFound;
        }
        const auto byVariable = ValuesByVariable(found->second.card);
        const auto count = static_cast<uint32_t>(byVariable.size());
        SafeArray objects = SafeArray::Vector(VT_VARIANT, count);
        SafeArray firstValues = SafeArray::Vector(VT_VARIANT, count);
        FillArrays(byVariable, objects, firstValues);
        *variables = objects.release();
        *values = firstValues.release();
        info->currentVersion = file->CurrentVersion();
        info->revision = found->second.revision.empty() ? nullptr : NewText(found->second.revision);
        info->state = found->second.state.empty() ? nullptr : NewText(found->second.state);
        return 0;
    }

  private:
    void FillArrays(const std::map<int32_t, std::map<std::u16string, Variant>>& byVariable, SafeArray& objects,
                    SafeArray& firstValues)
    {
        const SafeArrayView<VARIANT> objectView(objects.get());
        const SafeArrayView<VARIANT> valueView(firstValues.get());
        size_t i = 0;
        for (const auto& [variable, values] : byVariable) {
            const auto object = MakeObject<VariableValueObject>(world, variable, values);
            Variant::FromUnknown(object.get()).MoveTo(&objectView[i]);
            Variant(values.begin()->second).MoveTo(&valueView[i]);
            ++i;
        }
    }

    WorldPtr world;
    int32_t fileId;
};

class FileObject final : public ComObject<IVyxFile>
{
  public:
    FileObject(WorldPtr vaultWorld, int32_t file) : world(std::move(vaultWorld)), fileId(file) {}

    Result TV_CALL GetID(int32_t* id) override
    {
        return Answer("File.GetID", [&](FakeFile& file) {
            *id = file.id;
            return 0;
        });
    }

    Result TV_CALL GetName(BStr* name) override
    {
        return Answer("File.GetName", [&](FakeFile& file) {
            *name = NewText(file.path.substr(file.path.find_last_of(u'\\') + 1));
            return 0;
        });
    }

    Result TV_CALL GetLocalPath(int32_t, BStr* path) override
    {
        return Answer("File.GetLocalPath", [&](FakeFile& file) {
            *path = NewText(file.path);
            return 0;
        });
    }

    Result TV_CALL GetCurrentVersion(int32_t* version) override
    {
        return Answer("File.GetCurrentVersion", [&](FakeFile& file) {
            *version = file.CurrentVersion();
            return 0;
        });
    }

    Result TV_CALL IsLocked(VariantBool* locked) override
    {
        return Answer("File.IsLocked", [&](FakeFile& file) {
            *locked = file.lockedBy.empty() ? kVariantFalse : kVariantTrue;
            return 0;
        });
    }

    Result TV_CALL LockFile(int32_t folderId, int32_t, int32_t) override
    {
        return Answer("File.LockFile", [&](FakeFile& file) -> Result {
            if (file.folderId != folderId) {
                return kVaultFolderNotFound;
            }
            if (!file.lockedBy.empty()) {
                return world->LockedByAnother(file) ? kVaultLockedByAnother : kVaultFileIsLocked;
            }
            const FakeFolder* folder = world->FindFolder(file.folderId);
            if (folder != nullptr && folder->readOnly) {
                return kVaultPermissionDenied;
            }
            file.lockedBy = world->user;
            return 0;
        });
    }

    Result TV_CALL GetRevisionName(int32_t version, int32_t folder, BStr* revision) override
    {
        return ReadVersion("File.GetRevisionName", version, folder, &FakeVersion::revision, revision);
    }

    Result TV_CALL GetStateName(int32_t version, int32_t folder, BStr* state) override
    {
        return ReadVersion("File.GetStateName", version, folder, &FakeVersion::state, state);
    }

    Result TV_CALL GetEnumeratorVariable(int32_t, IVyxEnumeratorVariable** variables) override
    {
        return Answer("File.GetEnumeratorVariable", [&](FakeFile&) {
            *variables = MakeObject<CardReader>(world, fileId).release();
            return 0;
        });
    }

  private:
    /// Notes the call and carries it out if the file is still in the vault.
    template <typename Body> Result Answer(std::string_view operation, Body&& body)
    {
        FakeFile* file = world->FindFile(fileId);
        if (const Result fault = world->script.Enter(operation, file != nullptr ? file->path : u"")) {
            return fault;
        }
        return file != nullptr ? body(*file) : kVaultFileNotFound;
    }

    Result ReadVersion(std::string_view operation, int32_t version, int32_t folder, std::u16string FakeVersion::*field,
                       BStr* text)
    {
        if (const Result fault = world->script.Enter(operation, FormatText(u"%d %d %d", fileId, version, folder))) {
            return fault;
        }
        const FakeFile* file = world->FindFile(fileId);
        if (file == nullptr || !file->versions.contains(version)) {
            return kVaultFileNotFound;
        }
        const std::u16string& value = file->versions.at(version).*field;
        *text = value.empty() ? nullptr : NewText(value);
        return 0;
    }

    WorldPtr world;
    int32_t fileId;
};

class FolderObject final : public ComObject<IVyxFolder>
{
  public:
    FolderObject(WorldPtr vaultWorld, int32_t folder) : world(std::move(vaultWorld)), folderId(folder) {}

    Result TV_CALL GetID(int32_t* id) override
    {
        return Answer("Folder.GetID", [&](FakeFolder& folder) {
            *id = folder.id;
            return 0;
        });
    }

    Result TV_CALL GetLocalPath(BStr* path) override
    {
        return Answer("Folder.GetLocalPath", [&](FakeFolder& folder) {
            *path = NewText(folder.path);
            return 0;
        });
    }

    Result TV_CALL GetFirstFilePosition(IVyxPos** position) override
    {
        return Answer("Folder.GetFirstFilePosition", [&](FakeFolder&) {
            *position = MakeObject<Position>(world->FilesIn(folderId)).release();
            return 0;
        });
    }

    Result TV_CALL GetNextFile(IVyxPos* position, IVyxFile** file) override
    {
        return Answer("Folder.GetNextFile", [&](FakeFolder&) {
            return Position::Take(position, [&](int32_t id) { *file = MakeObject<FileObject>(world, id).release(); });
        });
    }

    Result TV_CALL GetFirstSubFolderPosition(IVyxPos** position) override
    {
        return Answer("Folder.GetFirstSubFolderPosition", [&](FakeFolder&) {
            *position = MakeObject<Position>(world->SubFolders(folderId)).release();
            return 0;
        });
    }

    Result TV_CALL GetNextSubFolder(IVyxPos* position, IVyxFolder** folder) override
    {
        return Answer("Folder.GetNextSubFolder", [&](FakeFolder&) {
            return Position::Take(position,
                                  [&](int32_t id) { *folder = MakeObject<FolderObject>(world, id).release(); });
        });
    }

    Result TV_CALL DeleteFile(int32_t, int32_t fileId, int32_t flags) override
    {
        const std::u16string details = Number(fileId) + u" " + Number(flags);
        if (const Result fault = world->script.Enter("Folder.DeleteFile", details)) {
            return fault;
        }
        FakeFile* file = world->FindFile(fileId);
        if (file == nullptr || file->folderId != folderId) {
            return kVaultFileNotFound;
        }
        if (!file->lockedBy.empty()) {
            return world->LockedByAnother(*file) ? kVaultLockedByAnother : kVaultFileIsLocked;
        }
        if (world->FindFolder(folderId)->readOnly) {
            return kVaultPermissionDenied;
        }
        if (world->disk != nullptr) {
            world->disk->ClearReadOnly(file->path);
            world->disk->DeleteFile(file->path);
        }
        world->files.erase(fileId);
        return 0;
    }

  private:
    template <typename Body> Result Answer(std::string_view operation, Body&& body)
    {
        FakeFolder* folder = world->FindFolder(folderId);
        if (const Result fault = world->script.Enter(operation, folder != nullptr ? folder->path : u"")) {
            return fault;
        }
        return folder != nullptr ? body(*folder) : kVaultFolderNotFound;
    }

    WorldPtr world;
    int32_t folderId;
};

class VariableObject final : public ComObject<IVyxVariable>
{
  public:
    VariableObject(WorldPtr vaultWorld, int32_t variable) : world(std::move(vaultWorld)), id(variable) {}

    Result TV_CALL GetID(int32_t* variableId) override
    {
        *variableId = id;
        return world->script.Enter("Variable.GetID", Number(id));
    }

    Result TV_CALL GetName(BStr* name) override
    {
        if (const Result fault = world->script.Enter("Variable.GetName", Number(id))) {
            return fault;
        }
        *name = NewText(world->variables[id]);
        return 0;
    }

  private:
    WorldPtr world;
    int32_t id;
};

class VaultObject final : public ComObject<IVyxVault, IVyxVariableMgr>
{
  public:
    explicit VaultObject(WorldPtr vaultWorld) : world(std::move(vaultWorld)) {}

    Result TV_CALL GetName(BStr* name) override
    {
        if (const Result fault = world->script.Enter("Vault.GetName")) {
            return fault;
        }
        *name = NewText(world->name);
        return 0;
    }

    Result TV_CALL GetRootFolderPath(BStr* path) override
    {
        if (const Result fault = world->script.Enter("Vault.GetRootFolderPath")) {
            return fault;
        }
        *path = NewText(world->root);
        return 0;
    }

    Result TV_CALL GetFolderFromPath(const char16_t* path, IVyxFolder** folder) override
    {
        if (const Result fault = world->script.Enter("Vault.GetFolderFromPath", path)) {
            return fault;
        }
        if (path[0] == u'\0') {
            return E_INVALIDARG;
        }
        const FakeFolder* found = world->FindFolder(path);
        if (found == nullptr) {
            return 1;
        }
        *folder = MakeObject<FolderObject>(world, found->id).release();
        return 0;
    }

    Result TV_CALL GetFileFromPath(const char16_t* path, IVyxFolder** folder, IVyxFile** file) override
    {
        if (const Result fault = world->script.Enter("Vault.GetFileFromPath", path)) {
            return fault;
        }
        if (path[0] == u'\0') {
            return E_INVALIDARG;
        }
        const FakeFile* found = world->FindFile(std::u16string_view(path));
        if (found == nullptr) {
            return 1;
        }
        if (folder != nullptr) {
            *folder = MakeObject<FolderObject>(world, found->folderId).release();
        }
        *file = MakeObject<FileObject>(world, found->id).release();
        return 0;
    }

    Result TV_CALL CreateUtility(int32_t number, IUnknown** utility) override
    {
        if (const Result fault = world->script.Enter("Vault.CreateUtility", Number(number))) {
            return fault;
        }
        *utility = MakeUtility(world, number).release();
        return *utility != nullptr ? 0 : E_INVALIDARG;
    }

    Result TV_CALL GetErrorString(Result code, BStr* name, BStr* description) override
    {
        if (const Result fault = world->script.Enter("Vault.GetErrorString", FormatText(u"%08X", code))) {
            return fault;
        }
        for (const ErrorWords& words : kErrorWords) {
            if (words.code == code) {
                *name = NewText(words.name);
                *description = NewText(words.description);
                return 0;
            }
        }
        return E_FAIL;
    }

    Result TV_CALL GetFirstVariablePosition(IVyxPos** position) override
    {
        if (const Result fault = world->script.Enter("VariableMgr.GetFirstVariablePosition")) {
            return fault;
        }
        std::vector<int32_t> ids;
        for (const auto& [id, name] : world->variables) {
            ids.push_back(id);
        }
        *position = MakeObject<Position>(std::move(ids)).release();
        return 0;
    }

    Result TV_CALL GetNextVariable(IVyxPos* position, IVyxVariable** variable) override
    {
        if (const Result fault = world->script.Enter("VariableMgr.GetNextVariable")) {
            return fault;
        }
        return Position::Take(position,
                              [&](int32_t id) { *variable = MakeObject<VariableObject>(world, id).release(); });
    }

  private:
    WorldPtr world;
};

} // namespace

ComPtr<IVyxVault> MakeVaultObject(WorldPtr world)
{
    const auto object = MakeObject<VaultObject>(std::move(world));
    return ComPtr<IVyxVault>::Share(object.get());
}

} // namespace tv::fakes
