// "Scripting.FileSystemObject" and the text streams it opens.

#include "macro/containers.h"
#include "macro/convert.h"
#include "macro/file_names.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

std::u16string FileNamePart(const std::u16string& path)
{
    size_t end = path.find_last_not_of(u"\\/");
    if (end == std::u16string::npos) {
        return {};
    }
    size_t start = path.find_last_of(u"\\/:", end);
    return path.substr(start == std::u16string::npos ? 0 : start + 1,
                       end - (start == std::u16string::npos ? 0 : start + 1) + 1);
}

std::u16string ParentPart(const std::u16string& path)
{
    size_t end = path.find_last_not_of(u"\\/");
    size_t separator = end == std::u16string::npos ? end : path.find_last_of(u"\\/", end);
    if (separator == std::u16string::npos) {
        return {};
    }
    bool isRoot = separator == 2 && path[1] == u':';
    return path.substr(0, isRoot ? separator + 1 : separator);
}

std::u16string ExtensionPart(const std::u16string& path)
{
    std::u16string name = FileNamePart(path);
    size_t dot = name.rfind(u'.');
    return dot == std::u16string::npos ? std::u16string() : name.substr(dot + 1);
}

std::u16string BasePart(const std::u16string& path)
{
    std::u16string name = FileNamePart(path);
    return name.substr(0, name.rfind(u'.'));
}

std::u16string Joined(std::u16string folder, const std::u16string& name)
{
    if (!folder.empty() && !IsSeparator(folder.back()) && folder.back() != u':') {
        folder.push_back(u'\\');
    }
    return folder + name;
}

class TextStream final : public Object
{
  public:
    explicit TextStream(std::unique_ptr<File> opened, bool reads) : file(std::move(opened)), isReader(reads) {}

    std::u16string ClassName() const override { return u"TextStream"; }

    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& a) override
    {
        if (kind != InvokeKind::Get) {
            NoSuchMember();
        }
        if (name.Is(u"close")) {
            file.reset();
            return Value();
        }
        if (!file) {
            Raise(kBadFileNumber);
        }
        if (name.Is(u"write") || name.Is(u"writeline")) {
            Write(a.Has(0) ? a[0].ToText() : u"");
            if (name.Is(u"writeline")) {
                Write(u"\r\n");
            }
            return Value();
        }
        if (name.Is(u"writeblanklines")) {
            for (int32_t count = a[0].ToLong(); count > 0; --count) {
                Write(u"\r\n");
            }
            return Value();
        }
        return Read(name, a);
    }

  private:
    void Write(const std::u16string& text)
    {
        if (isReader) {
            Raise(kBadFileMode);
        }
        file->Write(ToNarrow(text));
    }

    void Load()
    {
        if (!isReader) {
            Raise(kBadFileMode);
        }
        char bytes[4096];
        for (size_t count = file->Read(bytes); count > 0; count = file->Read(bytes)) {
            MemoryBudget::Check(content.size() + count);
            content.append(bytes, count);
        }
    }

    Value Read(const MemberName& name, const Arguments& a)
    {
        constexpr std::u16string_view kMembers[] = {u"readline",      u"readall",     u"read", u"skipline", u"skip",
                                                    u"atendofstream", u"atendofline", u"line", u"column"};
        if (std::find(std::begin(kMembers), std::end(kMembers), name.folded) == std::end(kMembers)) {
            NoSuchMember();
        }
        Load();
        if (name.Is(u"atendofstream")) {
            return Value(at >= content.size());
        }
        if (name.Is(u"atendofline")) {
            return Value(at >= content.size() || content[at] == '\r' || content[at] == '\n');
        }
        if (name.Is(u"line")) {
            auto here = content.begin() + static_cast<std::ptrdiff_t>(at);
            return Value(static_cast<int32_t>(std::count(content.begin(), here, '\n')) + 1);
        }
        if (name.Is(u"column")) {
            size_t lineEnd = at == 0 ? std::string::npos : content.rfind('\n', at - 1);
            return Value(static_cast<int32_t>(lineEnd == std::string::npos ? at + 1 : at - lineEnd));
        }
        if (at >= content.size()) {
            Raise(kInputPastEnd);
        }
        size_t start = at;
        if (name.Is(u"readall")) {
            at = content.size();
            return Value(FromNarrow(content.substr(start)));
        }
        if (name.Is(u"read") || name.Is(u"skip")) {
            at = std::min(content.size(), at + static_cast<size_t>(std::max(0, a[0].ToLong())));
            return name.Is(u"skip") ? Value() : Value(FromNarrow(content.substr(start, at - start)));
        }
        size_t end = std::min(content.find('\n', at), content.size());
        at = std::min(end + 1, content.size());
        size_t length = end - start - (end > start && content[end - 1] == '\r' ? 1 : 0);
        return name.Is(u"skipline") ? Value() : Value(FromNarrow(content.substr(start, length)));
    }

    std::unique_ptr<File> file;
    bool isReader;
    std::string content;
    size_t at = 0;
};

/// A file or a folder of the file system.
class PathObject final : public Object
{
  public:
    PathObject(FileSystem& system, std::u16string where, bool folder)
        : files(system), path(std::move(where)), isFolder(folder)
    {}

    std::u16string ClassName() const override { return isFolder ? u"Folder" : u"File"; }

    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& a) override
    {
        if (kind != InvokeKind::Get) {
            NoSuchMember();
        }
        if (name.Is(u"path") || name.IsDefault()) {
            return Value(path);
        }
        if (name.Is(u"name")) {
            return Value(FileNamePart(path));
        }
        if (name.Is(u"parentfolder")) {
            return Value(MakeRef<PathObject>(files, ParentPart(path), true));
        }
        if (name.Is(u"delete")) {
            isFolder ? files.RemoveFolder(path) : files.Delete(path);
            return Value();
        }
        std::optional<FileEntry> entry = files.Find(path);
        if (!entry) {
            Raise(isFolder ? kPathNotFound : kFileNotFound);
        }
        if (name.Is(u"size")) {
            return Value(static_cast<double>(entry->size));
        }
        if (name.Is(u"datelastmodified")) {
            return Value::FromDate(entry->modified);
        }
        if (name.Is(u"copy")) {
            files.Copy(path, a[0].ToText());
            return Value();
        }
        if (isFolder && (name.Is(u"files") || name.Is(u"subfolders"))) {
            return Value(Children(name.Is(u"subfolders")));
        }
        NoSuchMember();
    }

  private:
    class List final : public Object
    {
      public:
        explicit List(std::vector<Value> given) : values(std::move(given)) {}
        std::u16string ClassName() const override { return u"Files"; }
        Value Invoke(const MemberName& name, InvokeKind, Arguments& a) override
        {
            if (name.Is(u"count")) {
                return Value(static_cast<int32_t>(values.size()));
            }
            if (name.Is(u"item") || name.IsDefault()) {
                for (const Value& value : values) {
                    Arguments none;
                    Value own = value.ObjectPointer()->Invoke(MemberName(u"name"), InvokeKind::Get, none);
                    if (EqualIgnoringCase(own.ToText(), a[0].ToText())) {
                        return value;
                    }
                }
                Raise(kFileNotFound);
            }
            NoSuchMember();
        }
        Ref<Enumerator> Enumerate() override
        {
            class Walk final : public Enumerator
            {
              public:
                explicit Walk(std::vector<Value> given) : values(std::move(given)) {}
                std::optional<Value> Next() override
                {
                    return at < values.size() ? std::optional(values[at++]) : std::nullopt;
                }

              private:
                std::vector<Value> values;
                size_t at = 0;
            };
            return MakeRef<Walk>(values);
        }

      private:
        std::vector<Value> values;
    };

    Ref<Object> Children(bool folders)
    {
        std::vector<Value> values;
        for (const FileEntry& entry : files.List(path)) {
            if (entry.isFolder == folders) {
                values.push_back(Value(MakeRef<PathObject>(files, Joined(path, entry.name), folders)));
            }
        }
        return MakeRef<List>(std::move(values));
    }

    FileSystem& files;
    std::u16string path;
    bool isFolder;
};

class FileSystemObject final : public Object
{
  public:
    explicit FileSystemObject(FileSystem& system) : files(system) {}

    std::u16string ClassName() const override { return u"FileSystemObject"; }

    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& a) override
    {
        if (kind != InvokeKind::Get) {
            NoSuchMember();
        }
        for (const Member& member : kMembers) {
            if (name.Is(member.name)) {
                a.Expect(member.least, member.most);
                return (this->*member.call)(a);
            }
        }
        NoSuchMember();
    }

  private:
    struct Member
    {
        std::u16string_view name;
        size_t least;
        size_t most;
        Value (FileSystemObject::*call)(const Arguments&);
    };

    bool Exists(const std::u16string& path, bool folder)
    {
        std::optional<FileEntry> entry = path.empty() ? std::nullopt : files.Find(path);
        return entry && entry->isFolder == folder;
    }

    Value FileExists(const Arguments& a) { return Value(Exists(a[0].ToText(), false)); }
    Value FolderExists(const Arguments& a) { return Value(Exists(a[0].ToText(), true)); }
    Value GetFileName(const Arguments& a) { return Value(FileNamePart(a[0].ToText())); }
    Value GetBaseName(const Arguments& a) { return Value(BasePart(a[0].ToText())); }
    Value GetExtensionName(const Arguments& a) { return Value(ExtensionPart(a[0].ToText())); }
    Value GetParentFolderName(const Arguments& a) { return Value(ParentPart(a[0].ToText())); }
    Value BuildPath(const Arguments& a) { return Value(Joined(a[0].ToText(), a[1].ToText())); }
    Value GetTempName(const Arguments&) { return Value(u"rad" + Widen(std::to_string(++temporaries)) + u".tmp"); }

    Value GetAbsolutePathName(const Arguments& a)
    {
        std::u16string path = a[0].ToText();
        bool isAbsolute = (path.size() > 1 && path[1] == u':') || (path.size() > 1 && IsSeparator(path[0]));
        return Value(isAbsolute ? path : Joined(files.CurrentFolder(), path));
    }

    Value GetSpecialFolder(const Arguments&)
    {
        return Value(MakeRef<PathObject>(files, files.TemporaryFolder(), true));
    }

    Value CreateFolder(const Arguments& a)
    {
        if (files.Find(a[0].ToText())) {
            Raise(kFileExists);
        }
        files.CreateFolder(a[0].ToText());
        return Value(MakeRef<PathObject>(files, a[0].ToText(), true));
    }

    /// The files or folders that a source means: itself, or what matches the wildcards of its last part.
    std::vector<std::u16string> Sources(const std::u16string& from, bool folders)
    {
        if (HasWildcards(FolderOf(from))) {
            Raise(kBadFileNumber);
        }
        std::vector<std::u16string> sources;
        if (HasWildcards(from)) {
            for (const FileEntry& entry : ListMatching(files, from)) {
                if (entry.isFolder == folders) {
                    sources.push_back(FolderOf(from) + entry.name);
                }
            }
        } else if (Exists(from, folders)) {
            sources.push_back(from);
        }
        if (sources.empty()) {
            Raise(folders ? kPathNotFound : kFileNotFound);
        }
        return sources;
    }

    /// Calls `act(source, target)` for all that the first argument means. A target is a folder to put things into when
    /// the source has wildcards or when it ends with a separator.
    template <typename Action> Value ForEachSource(const Arguments& a, bool folders, Action act)
    {
        const std::u16string from = a[0].ToText();
        const std::u16string to = a[1].ToText();
        std::vector<std::u16string> sources = Sources(from, folders);
        if (HasWildcards(to)) {
            Raise(kBadFileNumber);
        }
        bool isInto = HasWildcards(from) || (!to.empty() && IsSeparator(to.back()));
        if (HasWildcards(from) && !Exists(to, true)) {
            Raise(kPathNotFound);
        }
        for (const std::u16string& source : sources) {
            act(source, isInto ? Joined(to, FileNamePart(source)) : to);
        }
        return Value();
    }

    Value DeleteFile(const Arguments& a)
    {
        for (const std::u16string& file : Sources(a[0].ToText(), false)) {
            files.Delete(file);
        }
        return Value();
    }

    Value DeleteFolder(const Arguments& a)
    {
        for (const std::u16string& folder : Sources(a[0].ToText(), true)) {
            RemoveTree(folder);
        }
        return Value();
    }

    void RemoveTree(const std::u16string& folder)
    {
        for (const FileEntry& entry : files.List(folder)) {
            std::u16string path = Joined(folder, entry.name);
            entry.isFolder ? RemoveTree(path) : files.Delete(path);
        }
        files.RemoveFolder(folder);
    }

    void RefuseTaken(const std::u16string& to)
    {
        if (files.Find(to)) {
            Raise(kFileExists);
        }
    }

    Value CopyFile(const Arguments& a)
    {
        bool overwrites = !a.Has(2) || a[2].ToBoolean();
        return ForEachSource(a, false, [&](const std::u16string& from, const std::u16string& to) {
            if (!overwrites) {
                RefuseTaken(to);
            }
            files.Copy(from, to);
        });
    }

    Value MoveFile(const Arguments& a)
    {
        return ForEachSource(a, false, [&](const std::u16string& from, const std::u16string& to) {
            RefuseTaken(to);
            files.Rename(from, to);
        });
    }

    void CopyTree(const std::u16string& from, const std::u16string& to)
    {
        // A folder within itself would be copied without end.
        if (EqualIgnoringCase(from, to) || Lower(to).starts_with(Lower(Joined(from, u"")))) {
            Raise(kPermissionDenied);
        }
        if (!Exists(to, true)) {
            files.CreateFolder(to);
        }
        for (const FileEntry& entry : files.List(from)) {
            std::u16string source = Joined(from, entry.name);
            std::u16string target = Joined(to, entry.name);
            entry.isFolder ? CopyTree(source, target) : files.Copy(source, target);
        }
    }

    Value CopyFolder(const Arguments& a)
    {
        bool overwrites = !a.Has(2) || a[2].ToBoolean();
        return ForEachSource(a, true, [&](const std::u16string& from, const std::u16string& to) {
            if (!overwrites) {
                RefuseTaken(to);
            }
            CopyTree(from, to);
        });
    }

    Value MoveFolder(const Arguments& a)
    {
        return ForEachSource(a, true, [&](const std::u16string& from, const std::u16string& to) {
            RefuseTaken(to);
            CopyTree(from, to);
            RemoveTree(from);
        });
    }

    Value GetDriveName(const Arguments& a)
    {
        const std::u16string path = a[0].ToText();
        return Value(path.size() > 1 && path[1] == u':' ? path.substr(0, 2) : std::u16string());
    }

    Value GetFile(const Arguments& a)
    {
        if (!Exists(a[0].ToText(), false)) {
            Raise(kFileNotFound);
        }
        return Value(MakeRef<PathObject>(files, a[0].ToText(), false));
    }

    Value GetFolder(const Arguments& a)
    {
        if (!Exists(a[0].ToText(), true)) {
            Raise(kPathNotFound);
        }
        return Value(MakeRef<PathObject>(files, a[0].ToText(), true));
    }

    Value CreateTextFile(const Arguments& a)
    {
        bool overwrite = !a.Has(1) || a[1].ToBoolean();
        if (!overwrite && files.Find(a[0].ToText())) {
            Raise(kFileExists);
        }
        return Value(MakeRef<TextStream>(files.Open(a[0].ToText(), FileAccess::Write), false));
    }

    Value OpenTextFile(const Arguments& a)
    {
        constexpr int32_t kForReading = 1;
        constexpr int32_t kForAppending = 8;
        int32_t mode = a.Has(1) ? a[1].ToLong() : kForReading;
        bool create = a.Has(2) && a[2].ToBoolean();
        if (!Exists(a[0].ToText(), false) && !create) {
            Raise(kFileNotFound);
        }
        if (mode == kForReading && create && !Exists(a[0].ToText(), false)) {
            files.Open(a[0].ToText(), FileAccess::Write);
        }
        FileAccess access = mode == kForReading     ? FileAccess::Read
                            : mode == kForAppending ? FileAccess::Append
                                                    : FileAccess::Write;
        return Value(MakeRef<TextStream>(files.Open(a[0].ToText(), access), mode == kForReading));
    }

    static const Member kMembers[22];

    FileSystem& files;
    int32_t temporaries = 0;
};

const FileSystemObject::Member FileSystemObject::kMembers[22] = {
    {u"fileexists", 1, 1, &FileSystemObject::FileExists},
    {u"folderexists", 1, 1, &FileSystemObject::FolderExists},
    {u"getfilename", 1, 1, &FileSystemObject::GetFileName},
    {u"getbasename", 1, 1, &FileSystemObject::GetBaseName},
    {u"getextensionname", 1, 1, &FileSystemObject::GetExtensionName},
    {u"getparentfoldername", 1, 1, &FileSystemObject::GetParentFolderName},
    {u"getabsolutepathname", 1, 1, &FileSystemObject::GetAbsolutePathName},
    {u"gettempname", 0, 0, &FileSystemObject::GetTempName},
    {u"getspecialfolder", 1, 1, &FileSystemObject::GetSpecialFolder},
    {u"buildpath", 2, 2, &FileSystemObject::BuildPath},
    {u"createfolder", 1, 1, &FileSystemObject::CreateFolder},
    {u"deletefile", 1, 2, &FileSystemObject::DeleteFile},
    {u"deletefolder", 1, 2, &FileSystemObject::DeleteFolder},
    {u"copyfile", 2, 3, &FileSystemObject::CopyFile},
    {u"movefile", 2, 2, &FileSystemObject::MoveFile},
    {u"copyfolder", 2, 3, &FileSystemObject::CopyFolder},
    {u"movefolder", 2, 2, &FileSystemObject::MoveFolder},
    {u"getdrivename", 1, 1, &FileSystemObject::GetDriveName},
    {u"getfile", 1, 1, &FileSystemObject::GetFile},
    {u"getfolder", 1, 1, &FileSystemObject::GetFolder},
    {u"createtextfile", 1, 3, &FileSystemObject::CreateTextFile},
    {u"opentextfile", 1, 4, &FileSystemObject::OpenTextFile},
};

} // namespace

Ref<Object> MakeFileSystemObject(Runtime& runtime)
{
    return MakeRef<FileSystemObject>(runtime.host.Files());
}

} // namespace tv::macro
