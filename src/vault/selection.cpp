// What a command was launched on, turned into a list of files.

#include "com/safe_array.h"
#include "support/paths.h"
#include "support/task_variables.h"
#include "support/text_compare.h"
#include "vault/convertible_extensions.h"
#include "vault/vault_access.h"
#include "vault/vault_files.h"

#include <algorithm>
#include <unordered_map>

namespace tv {

namespace {

constexpr int32_t kFileElement = 1;
constexpr int32_t kFolderElement = 2;
constexpr int32_t kConvert = 1;

constexpr int32_t kLatestReferences = 0;
constexpr int32_t kAsBuiltReferences = 1;

bool HasExtensionOf(std::u16string_view path, std::span<const std::u16string_view> extensions)
{
    const std::u16string extension = ExtensionOf(path);
    return std::ranges::any_of(extensions, [&](std::u16string_view one) { return EqualIgnoringCase(one, extension); });
}

std::unique_ptr<TaskFile> SelectedFile(const VyxCmdData& element)
{
    auto file = std::make_unique<TaskFile>();
    file->path = TextOf(element.path);
    file->fileId = element.fileId;
    file->folderId = element.folderId;
    file->version = element.version;
    file->conf = TextOf(element.configuration);
    file->isCadDocument = IsCadDocument(file->path);
    return file;
}

std::unique_ptr<TaskFile> FileOfFolder(const ComPtr<IVyxFile>& vaultFile, int32_t folderId)
{
    auto file = std::make_unique<TaskFile>();
    BString path;
    ThrowIfFailed(vaultFile->GetLocalPath(folderId, path.put()));
    file->path = path.Text();
    file->fileId = IdOf(vaultFile);
    file->version = CurrentVersionOf(vaultFile);
    file->folderId = folderId;
    file->isCadDocument = IsCadDocument(file->path);
    return file;
}

bool IsAtEnd(const ComPtr<IVyxPos>& position)
{
    VariantBool atEnd = kVariantTrue;
    ThrowIfFailed(Needed(position).IsNull(&atEnd));
    return atEnd != kVariantFalse;
}

int32_t ReferenceFlags(IVyxTaskInstance* instance)
{
    if (const auto sourceReferences = ReadInt(instance, u"SourceRefs")) {
        return (*sourceReferences & 1) != 0 ? kAsBuiltReferences : kLatestReferences;
    }
    if (const auto versionType = ReadInt(instance, u"__printer_refversiontype")) {
        return *versionType == 0 ? kAsBuiltReferences : kLatestReferences;
    }
    return kLatestReferences;
}

/// The first record of a file counts.
std::unordered_map<int32_t, int32_t> LatestVersionsById(SAFEARRAY* records)
{
    const SafeArrayView<VyxListFile> view(records);
    std::unordered_map<int32_t, int32_t> latest;
    latest.reserve(view.size());
    for (const VyxListFile& record : view) {
        latest.emplace(static_cast<int32_t>(record.fileId), static_cast<int32_t>(record.latestVersion));
    }
    return latest;
}

} // namespace

bool IsCadDocument(std::u16string_view path)
{
    return HasExtensionOf(path, kCadDocumentExtensions);
}

bool IsConvertible(std::u16string_view path)
{
    return HasExtensionOf(path, kConvertibleExtensions);
}

void VaultFiles::ResolveSelection(IVyxTaskInstance* instance, IVyxVault* vaultOfCommand, SAFEARRAY* data,
                                  SelectedFiles& list, VaultWork work)
{
    if (kind == 0) {
        ThrowIfFailed(ReadTaskKind(instance, true, kind));
    }
    const SafeArrayView<VyxCmdData> elements(data);
    for (const VyxCmdData& element : elements) {
        AddElement(element, vaultOfCommand, list);
    }
    if (work == VaultWork::FetchLocalCopies) {
        FetchLocalCopies(instance, vaultOfCommand, list);
        TakeLatestVersions(list);
    }
}

void VaultFiles::AddElement(const VyxCmdData& element, IVyxVault* vaultOfCommand, SelectedFiles& list)
{
    const std::u16string path(TextOf(element.path));
    if (element.kind == kFileElement && !ExtensionOf(path).empty()) {
        list.push_back(SelectedFile(element));
    } else if (element.kind == kFolderElement) {
        ComPtr<IVyxFolder> folder;
        if (ThrowIfFailed(vaultOfCommand->GetFolderFromPath(path.c_str(), folder.put())) == 0) {
            AddFolder(Needed(folder), list);
        }
    }
}

void VaultFiles::AddFolder(IVyxFolder& folder, SelectedFiles& list)
{
    AddFilesOfFolder(folder, list);
    ComPtr<IVyxPos> position;
    ThrowIfFailed(folder.GetFirstSubFolderPosition(position.put()));
    while (!IsAtEnd(position)) {
        ComPtr<IVyxFolder> subFolder;
        ThrowIfFailed(folder.GetNextSubFolder(position.get(), subFolder.put()));
        AddFolder(Needed(subFolder), list);
    }
}

void VaultFiles::AddFilesOfFolder(IVyxFolder& folder, SelectedFiles& list)
{
    int32_t folderId = 0;
    ThrowIfFailed(folder.GetID(&folderId));
    ComPtr<IVyxPos> position;
    ThrowIfFailed(folder.GetFirstFilePosition(position.put()));
    while (!IsAtEnd(position)) {
        ComPtr<IVyxFile> vaultFile;
        ThrowIfFailed(folder.GetNextFile(position.get(), vaultFile.put()));
        Needed(vaultFile);
        auto file = FileOfFolder(vaultFile, folderId);
        if (kind != kConvert || IsConvertible(file->path)) {
            list.push_back(std::move(file));
        }
    }
}

void VaultFiles::FetchLocalCopies(IVyxTaskInstance* instance, IVyxVault* vaultOfCommand, const SelectedFiles& list)
{
    ComPtr<IUnknown> utility;
    ThrowIfFailed(vaultOfCommand->CreateUtility(kUtilityBatchGet, utility.put()));
    // A missing utility is noticed where it is first used.
    ComPtr<IVyxBatchGet> batch;
    utility.As(batch);
    for (const auto& file : list) {
        const Variant version = Variant::FromInt(std::max(file->version, 0));
        ThrowIfFailed(Needed(batch).AddSelection(vaultOfCommand, file->fileId, file->folderId, version.get()));
    }
    const int32_t flags = ReferenceFlags(instance);
    ThrowIfFailed(Needed(batch).CreateTree(0, flags));
    ThrowIfFailed(batch->GetFiles(0, 0));
}

void VaultFiles::TakeLatestVersions(const SelectedFiles& list)
{
    std::vector<TaskFile*> files;
    files.reserve(list.size());
    for (const auto& file : list) {
        files.push_back(file.get());
    }
    FillLatestVersions(files);
}

Result VaultFiles::GetLatestVersions(std::vector<TaskFile>& list)
{
    return AtBoundary([&] {
        std::vector<TaskFile*> files;
        files.reserve(list.size());
        for (TaskFile& file : list) {
            files.push_back(&file);
        }
        FillLatestVersions(files);
        return 0;
    });
}

/// Raises a failure, and then leaves every record as it was.
void VaultFiles::FillLatestVersions(std::span<TaskFile* const> files)
{
    ComPtr<IVyxBatchList> batch;
    ThrowIfFailed(MakeUtility(vault.get(), kUtilityBatchList, batch));
    for (const TaskFile* file : files) {
        ThrowIfFailed(batch->AddFile(Variant::FromText(file->path).get(), 0, 0, 0));
    }
    SafeArray created;
    SafeArray records;
    ThrowIfFailed(batch->CreateList(u"", created.put()));
    created.reset();
    ThrowIfFailed(batch->GetFileList(records.put()));
    const auto latest = LatestVersionsById(records.get());
    for (TaskFile* file : files) {
        if (const auto found = latest.find(file->fileId); found != latest.end()) {
            file->latestVersion = found->second;
        }
    }
}

} // namespace tv
