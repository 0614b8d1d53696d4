// Statements and functions of files.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/file_names.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <cmath>

namespace tv::macro {

namespace {

constexpr size_t kZone = 14;

Value OpenStatement(Runtime& runtime, const Arguments& a)
{
    constexpr int32_t kDefaultRecord = 128;
    constexpr int32_t kLongestRecord = 32767;
    OpenMode mode = static_cast<OpenMode>(a[1].ToLong());
    int32_t bits = a[2].ToLong();
    FileSharing sharing{(bits & 2) == 0, (bits & 1) == 0, (bits & 4) != 0, (bits & 8) != 0};
    int32_t recordLength = a.Has(4) ? a[4].ToLong() : kDefaultRecord;
    if (recordLength < 1 || recordLength > kLongestRecord) {
        Raise(kInvalidCall);
    }
    runtime.files.Open(a[3].ToLong(), a[0].ToText(), mode, sharing, static_cast<uint64_t>(recordLength));
    return Value();
}

Value CloseStatement(Runtime& runtime, const Arguments& a)
{
    if (a.Count() == 0) {
        runtime.files.CloseAll();
    }
    for (const Value& number : a.All()) {
        runtime.files.Close(number.ToLong());
    }
    return Value();
}

/// A value as Print shows it: a number has a sign or blank in front and a blank behind.
std::u16string PrintedText(const Value& given)
{
    Value value = given.Resolved().IsObject() ? DefaultValue(given) : given.Resolved();
    if (value.IsNull()) {
        return u"Null";
    }
    bool isNumber = value.IsNumeric() && value.Kind() != Type::Boolean && value.Kind() != Type::Date;
    std::u16string text = value.ToText();
    if (!isNumber) {
        return text;
    }
    return (text[0] == u'-' ? std::u16string() : std::u16string(u" ")) + text + u" ";
}

/// Lays out the items of a Print statement from a column on.
std::u16string LayOut(const std::u16string& layout, const Arguments& a, size_t column)
{
    std::u16string line;
    auto moveTo = [&](size_t wanted) {
        if (wanted < column) {
            line += u"\r\n";
            column = 0;
        }
        line.append(wanted - column, u' ');
        column = wanted;
    };
    size_t next = 2;
    bool open = false;
    for (char16_t item : layout) {
        open = item != u'v';
        auto places = [&] {
            int32_t count = a[next++].ToLong();
            constexpr int32_t kWidest = 32767;
            if (count > kWidest) {
                Raise(kInvalidCall);
            }
            return count;
        };
        switch (item) {
        case u'v': {
            std::u16string text = PrintedText(a.All()[next++]);
            size_t lineStart = text.rfind(u'\n');
            column = lineStart == std::u16string::npos ? column + text.size() : text.size() - lineStart - 1;
            line += text;
            break;
        }
        case u',':
            moveTo((column / kZone + 1) * kZone);
            break;
        case u's':
            moveTo(column + static_cast<size_t>(std::max(0, places())));
            break;
        case u't':
            moveTo(static_cast<size_t>(std::max(1, places())) - 1);
            break;
        default:
            break;
        }
    }
    return open ? line : line + u"\r\n";
}

Value PrintStatement(Runtime& runtime, const Arguments& a)
{
    const std::u16string layout = a[0].ToText();
    if (a.Has(1)) {
        int32_t number = a[1].ToLong();
        size_t column = runtime.files.ForPrinting(number).column;
        runtime.files.Print(number, LayOut(layout, a, column));
        return Value();
    }
    runtime.debugLine += LayOut(layout, a, runtime.debugLine.size());
    MemoryBudget::Check(runtime.debugLine.size() * sizeof(char16_t));
    if (runtime.debugLine.ends_with(u"\r\n")) {
        runtime.debugLine.resize(runtime.debugLine.size() - 2);
        runtime.host.DebugPrint(runtime.debugLine);
        runtime.debugLine.clear();
    }
    return Value();
}

/// A value as Write # writes it, so that Input # reads it back.
std::u16string WrittenText(const Value& given)
{
    Value value = given.Resolved().IsObject() ? DefaultValue(given) : given.Resolved();
    switch (value.Kind()) {
    case Type::Empty:
        return {};
    case Type::Null:
        return u"#NULL#";
    case Type::Boolean:
        return value.Truth() ? u"#TRUE#" : u"#FALSE#";
    case Type::Error:
        return u"#ERROR " + Widen(std::to_string(value.Whole())) + u"#";
    case Type::Date: {
        DateParts parts = SplitDate(value.Number());
        char buffer[64];
        bool midnight = parts.hour == 0 && parts.minute == 0 && parts.second == 0;
        std::string text;
        if (std::trunc(value.Number()) != 0 || midnight) {
            std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d", parts.year, parts.month, parts.day);
            text = buffer;
        }
        if (!midnight) {
            std::snprintf(buffer, sizeof buffer, "%s%02d:%02d:%02d", text.empty() ? "" : " ", parts.hour, parts.minute,
                          parts.second);
            text += buffer;
        }
        return u"#" + Widen(text) + u"#";
    }
    case Type::String:
        return u"\"" + value.Text() + u"\"";
    default:
        return value.ToText();
    }
}

Value WriteStatement(Runtime& runtime, const Arguments& a)
{
    std::u16string line;
    for (size_t i = 2; i < a.Count(); ++i) {
        line += (i > 2 ? u"," : u"") + WrittenText(a.All()[i]);
    }
    const std::u16string layout = a[0].ToText();
    bool open = !layout.empty() && layout.back() != u'v';
    runtime.files.Print(a[1].ToLong(), line + (open ? u"," : u"\r\n"));
    return Value();
}

Value LineInputStatement(Runtime& runtime, const Arguments& a)
{
    return Value(runtime.files.ReadLine(a[0].ToLong()));
}

Value InputStatement(Runtime& runtime, const Arguments& a)
{
    return runtime.files.ReadField(a[0].ToLong(), static_cast<Type>(a[1].ToLong()));
}

Value InputFunction(Runtime& runtime, const Arguments& a)
{
    int32_t count = a[0].ToLong();
    if (count < 0) {
        Raise(kInvalidCall);
    }
    return Value(runtime.files.ReadUnits(a[1].ToLong(), static_cast<size_t>(count)));
}

int64_t TransferPosition(const Arguments& a)
{
    if (!a.Has(1)) {
        return 0;
    }
    int64_t position = a[1].ToLongLong();
    if (position < 1) {
        Raise(kBadRecordNumber);
    }
    return position;
}

/// Get: the variable's present value tells how much is read.
Value GetStatement(Runtime& runtime, const Arguments& a)
{
    return runtime.files.Get(a[0].ToLong(), TransferPosition(a), a.All()[2].Resolved(),
                             static_cast<Type>(a[3].ToLong()));
}

Value PutStatement(Runtime& runtime, const Arguments& a)
{
    runtime.files.Put(a[0].ToLong(), TransferPosition(a), a.All()[2].Resolved(), static_cast<Type>(a[3].ToLong()));
    return Value();
}

Value SeekStatement(Runtime& runtime, const Arguments& a)
{
    runtime.files.SeekTo(a[0].ToLong(), static_cast<uint64_t>(TransferPosition(a)));
    return Value();
}

struct LockRange
{
    uint64_t first = 0;
    uint64_t last = 0;
};

/// Without a range the whole file, with one border only that record or byte, and "To 5" from the first on.
LockRange LockRangeOf(const Arguments& a)
{
    if (!a.Has(1) && !a.Has(2)) {
        return {};
    }
    int64_t first = a.Has(1) ? a[1].ToLongLong() : 1;
    int64_t last = a.Has(2) ? a[2].ToLongLong() : first;
    if (first < 1 || last < first) {
        Raise(kBadRecordNumber);
    }
    return {static_cast<uint64_t>(first), static_cast<uint64_t>(last)};
}

Value LockStatement(Runtime& runtime, const Arguments& a)
{
    LockRange range = LockRangeOf(a);
    runtime.files.Lock(a[0].ToLong(), range.first, range.last);
    return Value();
}

Value UnlockStatement(Runtime& runtime, const Arguments& a)
{
    LockRange range = LockRangeOf(a);
    runtime.files.Unlock(a[0].ToLong(), range.first, range.last);
    return Value();
}

Value Seek(Runtime& runtime, const Arguments& a)
{
    return Value(static_cast<int32_t>(runtime.files.NextPosition(a[0].ToLong())));
}

Value Loc(Runtime& runtime, const Arguments& a)
{
    return Value(static_cast<int32_t>(runtime.files.Location(a[0].ToLong())));
}

Value Eof(Runtime& runtime, const Arguments& a)
{
    return Value(runtime.files.IsEof(a[0].ToLong()));
}

Value Lof(Runtime& runtime, const Arguments& a)
{
    return Value(static_cast<int32_t>(runtime.files.At(a[0].ToLong()).file->Size()));
}

Value FreeFile(Runtime& runtime, const Arguments& a)
{
    return Value(static_cast<int16_t>(runtime.files.FreeNumber(a.Has(0) && a[0].ToLong() == 1)));
}

Value Kill(Runtime& runtime, const Arguments& a)
{
    std::u16string path = a[0].ToText();
    FileSystem& files = runtime.host.Files();
    if (runtime.files.IsOpen(path)) {
        Raise(kFileAlreadyOpen);
    }
    if (!HasWildcards(path)) {
        std::optional<FileEntry> entry = files.Find(path);
        if (!entry || entry->isFolder) {
            Raise(kFileNotFound);
        }
        files.Delete(path);
        return Value();
    }
    bool found = false;
    for (const FileEntry& entry : ListMatching(runtime.host.Files(), path)) {
        if (!entry.isFolder) {
            found = true;
            files.Delete(FolderOf(path) + entry.name);
        }
    }
    if (!found) {
        Raise(kFileNotFound);
    }
    return Value();
}

Value NameStatement(Runtime& runtime, const Arguments& a)
{
    FileSystem& files = runtime.host.Files();
    std::u16string from = a[0].ToText();
    std::u16string to = a[1].ToText();
    if (!files.Find(from)) {
        Raise(kFileNotFound);
    }
    if (!EqualIgnoringCase(from, to) && files.Find(to)) {
        Raise(kFileExists);
    }
    if (runtime.files.IsOpen(from)) {
        Raise(kFileAlreadyOpen);
    }
    files.Rename(from, to);
    return Value();
}

Value MkDir(Runtime& runtime, const Arguments& a)
{
    std::u16string path = a[0].ToText();
    if (runtime.host.Files().Find(path)) {
        Raise(kPathFileAccess);
    }
    runtime.host.Files().CreateFolder(path);
    return Value();
}

Value RmDir(Runtime& runtime, const Arguments& a)
{
    std::u16string path = a[0].ToText();
    std::optional<FileEntry> entry = runtime.host.Files().Find(path);
    if (!entry || !entry->isFolder) {
        Raise(kPathNotFound);
    }
    if (!runtime.host.Files().List(path).empty()) {
        Raise(kPathFileAccess);
    }
    runtime.host.Files().RemoveFolder(path);
    return Value();
}

Value ChDir(Runtime& runtime, const Arguments& a)
{
    runtime.host.Files().ChangeFolder(a[0].ToText());
    return Value();
}

Value ChDrive(Runtime&, const Arguments&)
{
    return Value();
}
Value CurDir(Runtime& runtime, const Arguments&)
{
    return Value(runtime.host.Files().CurrentFolder());
}

FileEntry FileAt(Runtime& runtime, const Arguments& a)
{
    std::optional<FileEntry> entry = runtime.host.Files().Find(a[0].ToText());
    if (!entry) {
        Raise(kFileNotFound);
    }
    return *entry;
}

Value FileLen(Runtime& runtime, const Arguments& a)
{
    return Value(static_cast<int32_t>(FileAt(runtime, a).size));
}

Value FileDateTime(Runtime& runtime, const Arguments& a)
{
    return Value::FromDate(FileAt(runtime, a).modified);
}

Value FileCopy(Runtime& runtime, const Arguments& a)
{
    std::u16string from = a[0].ToText();
    if (runtime.files.IsOpen(from)) {
        Raise(kPermissionDenied);
    }
    FileAt(runtime, a);
    runtime.host.Files().Copy(from, a[1].ToText());
    return Value();
}

Value GetAttr(Runtime& runtime, const Arguments& a)
{
    FileEntry entry = FileAt(runtime, a);
    constexpr int32_t kArchive = 32;
    int32_t attributes = entry.isFolder ? 16 : kArchive;
    attributes += entry.isReadOnly ? 1 : 0;
    attributes += entry.isHidden ? 2 : 0;
    return Value(static_cast<int16_t>(attributes));
}

Value SetAttr(Runtime& runtime, const Arguments& a)
{
    FileAt(runtime, a);
    if (runtime.files.IsOpen(a[0].ToText())) {
        Raise(kFileAlreadyOpen);
    }
    runtime.host.Files().SetReadOnly(a[0].ToText(), (a[1].ToLong() & 1) != 0);
    return Value();
}

/// Whether what a path names lies in the root of a drive, which has no entries "." and "..".
bool LiesInRoot(FileSystem& files, const std::u16string& path)
{
    std::u16string folder = FolderOf(path);
    if (folder.empty()) {
        folder = files.CurrentFolder();
    }
    size_t last = folder.find_last_not_of(u"\\/");
    return last == std::u16string::npos || folder[last] == u':';
}

Value Dir(Runtime& runtime, const Arguments& a)
{
    if (a.Has(0)) {
        std::u16string path = a[0].ToText();
        int32_t attributes = a.Has(1) ? a[1].ToLong() : 0;
        bool wantsFolders = (attributes & 16) != 0;
        bool wantsHidden = (attributes & 2) != 0;
        if (path.empty() || path.back() == u'\\' || path.back() == u'/') {
            path += u"*";
        }
        runtime.listing.clear();
        runtime.listingAt = 0;
        try {
            std::vector<FileEntry> entries = ListMatching(runtime.host.Files(), path);
            for (std::u16string_view dots : {u".", u".."}) {
                if (wantsFolders && !LiesInRoot(runtime.host.Files(), path) && FileNameMatches(dots, NameOf(path))) {
                    runtime.listing.emplace_back(dots);
                }
            }
            for (const FileEntry& entry : entries) {
                if ((!entry.isFolder || wantsFolders) && (!entry.isHidden || wantsHidden)) {
                    runtime.listing.push_back(entry.name);
                }
            }
        } catch (const MacroError&) {
            // A folder that isn't there has no files.
            runtime.listing.clear();
        }
        runtime.isListing = true;
    } else if (!runtime.isListing) {
        Raise(kInvalidCall);
    }
    if (runtime.listingAt < runtime.listing.size()) {
        return Value(runtime.listing[runtime.listingAt++]);
    }
    runtime.isListing = false;
    return Value(u"");
}

constexpr Builtin kFunctions[] = {
    {u"chdir", 1, 1, Type::Empty, ChDir, u"Path"},
    {u"chdrive", 1, 1, Type::Empty, ChDrive, u"Drive"},
    {u"curdir", 0, 1, Type::Variant, CurDir, u"Drive"},
    {u"dir", 0, 2, Type::Variant, Dir, u"PathName Attributes"},
    {u"eof", 1, 1, Type::Boolean, Eof, u"FileNumber"},
    {u"filecopy", 2, 2, Type::Empty, FileCopy, u"Source Destination"},
    {u"filedatetime", 1, 1, Type::Variant, FileDateTime, u"PathName"},
    {u"filelen", 1, 1, Type::Long, FileLen, u"PathName"},
    {u"freefile", 0, 1, Type::Integer, FreeFile, u"RangeNumber"},
    {u"getattr", 1, 1, Type::Integer, GetAttr, u"PathName"},
    {u"input", 2, 2, Type::Variant, InputFunction, u"Number FileNumber"},
    {u"kill", 1, 1, Type::Empty, Kill, u"PathName"},
    {u"loc", 1, 1, Type::Long, Loc, u"FileNumber"},
    {u"lof", 1, 1, Type::Long, Lof, u"FileNumber"},
    {u"mkdir", 1, 1, Type::Empty, MkDir, u"Path"},
    {u"rmdir", 1, 1, Type::Empty, RmDir, u"Path"},
    {u"seek", 1, 1, Type::Long, Seek, u"FileNumber"},
    {u"setattr", 2, 2, Type::Empty, SetAttr, u"PathName Attributes"},
    {u"#open", 5, 5, Type::Empty, OpenStatement, {}},
    {u"#close", 0, kAnyNumber, Type::Empty, CloseStatement, {}},
    {u"#print", 2, kAnyNumber, Type::Empty, PrintStatement, {}},
    {u"#write", 2, kAnyNumber, Type::Empty, WriteStatement, {}},
    {u"#lineinput", 1, 1, Type::String, LineInputStatement, {}},
    {u"#input", 2, 2, Type::Variant, InputStatement, {}},
    {u"#get", 4, 4, Type::Variant, GetStatement, {}},
    {u"#put", 4, 4, Type::Empty, PutStatement, {}},
    {u"#lock", 3, 3, Type::Empty, LockStatement, {}},
    {u"#unlock", 3, 3, Type::Empty, UnlockStatement, {}},
    {u"#seek", 2, 2, Type::Empty, SeekStatement, {}},
    {u"#name", 2, 2, Type::Empty, NameStatement, {}},
};

} // namespace

std::span<const Builtin> FileFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
