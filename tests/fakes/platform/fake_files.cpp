#include "fakes/platform/fake_files.h"

#include "platform/registry_service.h"
#include "support/format.h"
#include "support/narrow_text.h"
#include "support/paths.h"

#include <algorithm>

namespace tv::fakes {

namespace {

constexpr uint32_t kErrorPathNotFound = 3;
constexpr uint32_t kErrorSharingViolation = 32;
constexpr uint32_t kErrorInvalidName = 123;
constexpr uint32_t kErrorAlreadyExists = 183;
constexpr std::u16string_view kTemporaryFolder = u"C:\\Temp";

/// The form in which the disk keeps a path: backslashes, none at the end, not even of a drive.
std::u16string Plain(std::u16string_view path)
{
    std::u16string plain(path);
    std::replace(plain.begin(), plain.end(), u'/', u'\\');
    return WithoutTrailingBackslashes(plain);
}

std::u16string ParentOf(std::u16string_view plain)
{
    return Plain(FolderOf(plain));
}

bool HasBadCharacter(std::u16string_view plain)
{
    const std::u16string_view behindDrive = HasDriveLetter(plain) ? plain.substr(2) : plain;
    return behindDrive.find_first_of(u"<>\"|?*:") != std::u16string_view::npos;
}

std::u16string Subject(std::u16string_view from, std::u16string_view to)
{
    return std::u16string(from).append(u" -> ").append(to);
}

} // namespace

/// A file that is open for writing.
class FakeOutputFile final : public OutputFile
{
  public:
    FakeOutputFile(FakeFiles& disk, std::u16string name, bool isText)
        : files(disk), path(std::move(name)), isTextMode(isText)
    {}
    ~FakeOutputFile() override
    {
        files.log.Note("files.Close", path);
        --files.openCount;
        if (FakeFiles::Entry* entry = files.Find(path)) {
            --entry->openings;
            entry->isOpenAlone = false;
        }
    }

    uint32_t Write(std::span<const char> bytes) override
    {
        if (const uint32_t error = files.log.Enter("files.Write", path)) {
            return error;
        }
        FakeFiles::Entry* entry = files.Find(path);
        if (entry == nullptr) {
            return kErrorInvalidHandle;
        }
        for (char byte : bytes) {
            entry->bytes += isTextMode && byte == '\n' ? "\r\n" : std::string(1, byte);
        }
        return kErrorSuccess;
    }

    std::u16string Path() const override { return path; }

  private:
    FakeFiles& files;
    std::u16string path;
    bool isTextMode;
};

FakeFiles::FakeFiles(CallLog& callLog) : log(callLog)
{
    AddFolder(kTemporaryFolder);
}

FakeFiles::Entry* FakeFiles::Find(std::u16string_view path)
{
    const auto found = entries.find(Plain(path));
    return found == entries.end() ? nullptr : &found->second;
}

const FakeFiles::Entry* FakeFiles::Find(std::u16string_view path) const
{
    return const_cast<FakeFiles*>(this)->Find(path);
}

FakeFiles::Entry& FakeFiles::Put(std::u16string_view path, bool isFolder)
{
    const std::u16string plain = Plain(path);
    Entry& entry = entries[plain];
    entry = Entry{plain, isFolder, false, false, 0, {}};
    return entry;
}

uint32_t FakeFiles::ErrorOfNewName(std::u16string_view path)
{
    const std::u16string plain = Plain(path);
    if (plain.empty()) {
        return kErrorPathNotFound;
    }
    if (HasBadCharacter(plain)) {
        return kErrorInvalidName;
    }
    const Entry* parent = Find(ParentOf(plain));
    return parent == nullptr || !parent->isFolder ? kErrorPathNotFound : kErrorSuccess;
}

uint32_t FakeFiles::ErrorOfExistingFile(std::u16string_view path)
{
    const Entry* entry = Find(path);
    if (entry == nullptr) {
        const uint32_t error = ErrorOfNewName(path);
        return error != kErrorSuccess ? error : kErrorFileNotFound;
    }
    if (entry->isFolder) {
        return kErrorAccessDenied;
    }
    return kErrorSuccess;
}

bool FakeFiles::FileExists(std::u16string_view path)
{
    log.Note("files.FileExists", path);
    const Entry* entry = Find(path);
    return entry != nullptr && !entry->isFolder;
}

uint32_t FakeFiles::ClearReadOnly(std::u16string_view path)
{
    if (const uint32_t error = log.Enter("files.ClearReadOnly", path)) {
        return error;
    }
    Entry* entry = Find(path);
    if (entry == nullptr) {
        return ErrorOfExistingFile(path);
    }
    entry->isReadOnly = false;
    return kErrorSuccess;
}

uint32_t FakeFiles::DeleteFile(std::u16string_view path)
{
    if (const uint32_t error = log.Enter("files.DeleteFile", path)) {
        return error;
    }
    if (const uint32_t error = ErrorOfExistingFile(path)) {
        return error;
    }
    if (Find(path)->isReadOnly) {
        return kErrorAccessDenied;
    }
    if (Find(path)->openings > 0) {
        return kErrorSharingViolation;
    }
    entries.erase(Plain(path));
    return kErrorSuccess;
}

uint32_t FakeFiles::MoveFile(std::u16string_view from, std::u16string_view to)
{
    if (const uint32_t error = log.Enter("files.MoveFile", Subject(from, to))) {
        return error;
    }
    if (const uint32_t error = ErrorOfExistingFile(from)) {
        return error;
    }
    if (const uint32_t error = ErrorOfNewName(to)) {
        return error;
    }
    if (Find(to) != nullptr && Find(to) != Find(from)) {
        return kErrorAlreadyExists;
    }
    if (Find(from)->openings > 0) {
        return kErrorSharingViolation;
    }
    Entry moved = std::move(*Find(from));
    entries.erase(Plain(from));
    moved.path = Plain(to);
    entries[moved.path] = std::move(moved);
    return kErrorSuccess;
}

uint32_t FakeFiles::CopyFile(std::u16string_view from, std::u16string_view to)
{
    if (const uint32_t error = log.Enter("files.CopyFile", Subject(from, to))) {
        return error;
    }
    if (const uint32_t error = ErrorOfExistingFile(from)) {
        return error;
    }
    if (const uint32_t error = ErrorOfNewName(to)) {
        return error;
    }
    if (Find(from)->isOpenAlone) {
        return kErrorSharingViolation;
    }
    if (const Entry* target = Find(to)) {
        if (target->isFolder || target->isReadOnly) {
            return kErrorAccessDenied;
        }
        if (target->openings > 0 || target == Find(from)) {
            return kErrorSharingViolation;
        }
    }
    const std::string bytes = Find(from)->bytes;
    const bool isReadOnly = Find(from)->isReadOnly;
    Entry& copy = Put(to, false);
    copy.bytes = bytes;
    copy.isReadOnly = isReadOnly;
    return kErrorSuccess;
}

uint32_t FakeFiles::CreateDirectory(std::u16string_view path)
{
    if (const uint32_t error = log.Enter("files.CreateDirectory", path)) {
        return error;
    }
    if (Find(path) != nullptr) {
        return kErrorAlreadyExists;
    }
    if (const uint32_t error = ErrorOfNewName(path)) {
        return error;
    }
    Put(path, true);
    return kErrorSuccess;
}

std::unique_ptr<OutputFile> FakeFiles::OpenForAppend(std::u16string_view path)
{
    if (log.Enter("files.OpenForAppend", path) != 0) {
        return nullptr;
    }
    Entry* entry = Find(path);
    if (entry == nullptr) {
        return ErrorOfNewName(path) != kErrorSuccess ? nullptr : OpenShared(Put(path, false));
    }
    return entry->isFolder || entry->isReadOnly || entry->isOpenAlone ? nullptr : OpenShared(*entry);
}

uint32_t FakeFiles::CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file)
{
    if (const uint32_t error = log.Enter("files.CreateTemporaryFile", prefix)) {
        return error;
    }
    const std::u16string path =
        AppendPath(kTemporaryFolder, FormatText(u"%s%04X.tmp", prefix.substr(0, 3), ++lastTemporary));
    file = OpenAlone(Put(path, false));
    return kErrorSuccess;
}

std::unique_ptr<OutputFile> FakeFiles::OpenShared(Entry& entry)
{
    ++entry.openings;
    ++openCount;
    return std::make_unique<FakeOutputFile>(*this, entry.path, true);
}

std::unique_ptr<OutputFile> FakeFiles::OpenAlone(Entry& entry)
{
    ++entry.openings;
    ++openCount;
    entry.isOpenAlone = true;
    return std::make_unique<FakeOutputFile>(*this, entry.path, false);
}

std::string FakeFiles::NarrowText(std::u16string_view text)
{
    return narrowing ? narrowing(text) : NarrowWesternText(text);
}

void FakeFiles::AddFile(std::u16string_view path, std::string bytes)
{
    AddFolder(FolderOf(path));
    Put(path, false).bytes = std::move(bytes);
}

void FakeFiles::AddFolder(std::u16string_view path)
{
    const std::u16string plain = Plain(path);
    if (plain.empty() || Find(plain) != nullptr) {
        return;
    }
    if (const std::u16string parent = FolderOf(plain); parent != plain) {
        AddFolder(parent);
    }
    Put(plain, true);
}

void FakeFiles::SetReadOnly(std::u16string_view path, bool isReadOnly)
{
    if (Entry* entry = Find(path)) {
        entry->isReadOnly = isReadOnly;
    }
}

void FakeFiles::RemoveFile(std::u16string_view path)
{
    entries.erase(Plain(path));
}

bool FakeFiles::IsReadOnly(std::u16string_view path) const
{
    const Entry* entry = Find(path);
    return entry != nullptr && entry->isReadOnly;
}

bool FakeFiles::FolderExists(std::u16string_view path) const
{
    const Entry* entry = Find(path);
    return entry != nullptr && entry->isFolder;
}

std::optional<std::string> FakeFiles::Content(std::u16string_view path) const
{
    const Entry* entry = Find(path);
    return entry == nullptr || entry->isFolder ? std::nullopt : std::optional(entry->bytes);
}

std::vector<std::u16string> FakeFiles::Files() const
{
    std::vector<std::u16string> paths;
    for (const auto& [name, entry] : entries) {
        if (!entry.isFolder) {
            paths.push_back(entry.path);
        }
    }
    return paths;
}

} // namespace tv::fakes
