#pragma once

#include "macro/host.h"

#include <functional>
#include <map>
#include <memory>
#include <unordered_set>

namespace tv::macro {

class Container;

/// The object Err, and the error that is being handled.
class ErrObject final : public Object
{
public:
    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) override;
    std::u16string ClassName() const override { return u"ErrObject"; }
    void Clear();
    void Take(const MacroError& error);

    int32_t number = 0;
    std::u16string description;
    std::u16string source;
    std::u16string helpFile;
    int32_t helpContext = 0;
    int32_t line = 0;

private:
    [[noreturn]] static void RaiseFrom(const Arguments& arguments);
};

/// How a file was opened by Open.
enum class OpenMode
{
    Input,
    Output,
    Append,
    Binary,
    Random,
};

/// How a file is shared: what this number does with it, and what others may not do meanwhile.
struct FileSharing
{
    bool reads = true;
    bool writes = true;
    bool locksReading = false;
    bool locksWriting = false;
};

/// A file that Open has opened.
struct OpenFile
{
    /// Bytes from the first up to but without the end.
    struct Range
    {
        uint64_t first = 0;
        uint64_t end = 0;
        bool operator==(const Range&) const = default;
    };

    bool HasRecords() const { return mode == OpenMode::Random; }
    bool TransfersBytes() const { return mode == OpenMode::Binary || mode == OpenMode::Random; }

    std::unique_ptr<File> file;
    std::u16string path;
    OpenMode mode = OpenMode::Input;
    FileSharing sharing;
    std::vector<Range> locks;
    /// Bytes of one record of a Random file, and the record that comes next, from 1.
    uint64_t recordLength = 0;
    uint64_t nextRecord = 1;
    /// The last Get found less than it asked for.
    bool cameShort = false;
    /// Column of the next printed character, counted from 0.
    size_t column = 0;
    /// Bytes read ahead of what was taken.
    std::string buffer;
    size_t bufferAt = 0;
};

/// The file numbers of a run. Everything is written through at once, so that nothing is lost with the process.
class FileTable
{
public:
    explicit FileTable(FileSystem& system) : files(system) {}

    void Open(int32_t number, const std::u16string& path, OpenMode mode, FileSharing sharing, uint64_t recordLength);
    /// A number that isn't open stays closed.
    void Close(int32_t number);
    void CloseAll() { open.clear(); }
    /// Error 52 when the number isn't open.
    OpenFile& At(int32_t number);
    /// Also checks the mode: error 54.
    OpenFile& ForReading(int32_t number);
    OpenFile& ForPrinting(int32_t number);
    int32_t FreeNumber(bool upperRange) const;

    /// The function EOF.
    bool IsEof(int32_t number);
    std::u16string ReadLine(int32_t number);
    std::u16string ReadUnits(int32_t number, size_t count);
    /// One field of Input #.
    ///
    /// \param stored declared type of the variable: a text is taken as it stands, a number may be missing
    Value ReadField(int32_t number, Type stored);
    void Print(int32_t number, std::u16string_view text);

    /// Get and Put. The position counts records or bytes from 1; 0 means on from here.
    Value Get(int32_t number, int64_t position, const Value& present, Type stored);
    void Put(int32_t number, int64_t position, const Value& value, Type stored);
    /// Where the next byte or record lies, from 1, and going there.
    uint64_t NextPosition(int32_t number);
    void SeekTo(int32_t number, uint64_t position);
    /// The function Loc.
    uint64_t Location(int32_t number);
    /// Lock and Unlock of records or bytes from 1; 0 to 0 is the whole file.
    void Lock(int32_t number, uint64_t first, uint64_t last);
    void Unlock(int32_t number, uint64_t first, uint64_t last);

    FileSystem& System() { return files; }
    bool IsOpen(const std::u16string& path) const;

private:
    OpenFile& ForTransfer(int32_t number);
    void CheckSharing(const OpenFile& opening) const;
    void CheckLocks(int32_t number, const OpenFile& file, uint64_t first, uint64_t count) const;
    bool OthersHoldLocks(int32_t number) const;
    template <typename Read>
    auto ReadUnlocked(int32_t number, Read read);
    std::u16string TakeLine(OpenFile& file);
    std::u16string TakeUnits(OpenFile& file, size_t count);
    Value TakeField(OpenFile& file, Type stored);
    static OpenFile::Range RangeOf(const OpenFile& file, uint64_t first, uint64_t last);
    bool AtEnd(OpenFile& file);
    std::string ReadBytes(OpenFile& file, size_t count);
    uint64_t Position(OpenFile& file);
    void Seek(OpenFile& file, uint64_t position);
    bool Fill(OpenFile& file);
    int Peek(OpenFile& file);
    int Take(OpenFile& file);

    FileSystem& files;
    std::map<int32_t, OpenFile> open;
};

/// What built-in functions work on: the host and the state of the run.
class Runtime
{
public:
    ~Runtime();
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;
    explicit Runtime(Host& outside) : host(outside), files(outside.Files()), err(MakeRef<ErrObject>()) {}

    Host& host;
    FileTable files;
    Ref<ErrObject> err;
    bool compareText = false;
    /// Seed of Rnd.
    uint32_t random = 0x50000;
    float lastRandom = 0.7055475F;
    /// Rest of the last Dir.
    std::vector<std::u16string> listing;
    size_t listingAt = 0;
    /// The last Dir gave a name, so that another one may follow.
    bool isListing = false;
    /// Column of Debug.Print and the line that is still open.
    std::u16string debugLine;
    std::unordered_set<Container*> containers;
    /// Called by what may take long, so that a stop request is heard.
    std::function<void()> checkpoint = [] {};
};

} // namespace tv::macro
