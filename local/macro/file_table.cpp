#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/file_records.h"
#include "macro/long_work.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

constexpr int32_t kMostNumbers = 511;
constexpr char kEndMark = '\x1A';

/// Texts from a file become characters of two bytes, and are held by their value besides.
void Append(std::string& text, int byte)
{
    constexpr size_t kBetweenChecks = 0x10000;
    text.push_back(static_cast<char>(byte));
    if (text.size() % kBetweenChecks == 0) {
        MemoryBudget::Check(text.size() * 4);
    }
}

} // namespace

bool FileTable::IsOpen(const std::u16string& path) const
{
    return std::any_of(open.begin(), open.end(),
                       [&](const auto& entry) { return EqualIgnoringCase(entry.second.path, path); });
}

void FileTable::Open(int32_t number, const std::u16string& path, OpenMode mode, FileSharing sharing,
                     uint64_t recordLength)
{
    if (number < 1 || number > kMostNumbers) {
        Raise(kBadFileNumber);
    }
    if (open.contains(number)) {
        Raise(kFileAlreadyOpen);
    }
    if (path.empty()) {
        Raise(kPathFileAccess);
    }
    OpenFile opened;
    opened.path = path;
    opened.mode = mode;
    opened.sharing = sharing;
    opened.sharing.writes = sharing.writes && mode != OpenMode::Input;
    opened.sharing.reads = sharing.reads && mode != OpenMode::Output && mode != OpenMode::Append;
    opened.recordLength = recordLength;
    CheckSharing(opened);
    constexpr FileAccess kAccess[] = {FileAccess::Read, FileAccess::Write, FileAccess::Append, FileAccess::ReadWrite,
                                      FileAccess::ReadWrite};
    bool onlyReads = opened.TransfersBytes() && !sharing.writes;
    opened.file = files.Open(path, onlyReads ? FileAccess::Read : kAccess[static_cast<size_t>(mode)]);
    open.emplace(number, std::move(opened));
}

void FileTable::CheckSharing(const OpenFile& opening) const
{
    auto isExclusive = [](const OpenFile& file) {
        return file.mode == OpenMode::Output || file.mode == OpenMode::Append;
    };
    auto shutsOut = [](const FileSharing& one, const FileSharing& other) {
        return (one.locksReading && other.reads) || (one.locksWriting && other.writes);
    };
    for (const auto& [number, file] : open) {
        if (!EqualIgnoringCase(file.path, opening.path)) {
            continue;
        }
        if (isExclusive(file) || isExclusive(opening)) {
            Raise(kFileAlreadyOpen);
        }
        if (shutsOut(file.sharing, opening.sharing) || shutsOut(opening.sharing, file.sharing)) {
            Raise(kPermissionDenied);
        }
    }
}

void FileTable::Close(int32_t number)
{
    if (number < 1 || number > kMostNumbers) {
        Raise(kBadFileNumber);
    }
    open.erase(number);
}

OpenFile& FileTable::At(int32_t number)
{
    auto found = open.find(number);
    if (found == open.end()) {
        Raise(kBadFileNumber);
    }
    return found->second;
}

OpenFile& FileTable::ForReading(int32_t number)
{
    OpenFile& file = At(number);
    if ((file.mode != OpenMode::Input && file.mode != OpenMode::Binary) || !file.sharing.reads) {
        Raise(kBadFileMode);
    }
    return file;
}

OpenFile& FileTable::ForPrinting(int32_t number)
{
    OpenFile& file = At(number);
    if (file.mode != OpenMode::Output && file.mode != OpenMode::Append) {
        Raise(kBadFileMode);
    }
    return file;
}

int32_t FileTable::FreeNumber(bool upperRange) const
{
    for (int32_t number = upperRange ? 256 : 1; number <= (upperRange ? kMostNumbers : 255); ++number) {
        if (!open.contains(number)) {
            return number;
        }
    }
    Raise(kTooManyFiles);
}

bool FileTable::Fill(OpenFile& file)
{
    if (file.bufferAt < file.buffer.size()) {
        return true;
    }
    LongWork::Did(4096);
    file.buffer.resize(4096);
    file.buffer.resize(file.file->Read(file.buffer));
    file.bufferAt = 0;
    return !file.buffer.empty();
}

int FileTable::Peek(OpenFile& file)
{
    return Fill(file) ? static_cast<unsigned char>(file.buffer[file.bufferAt]) : -1;
}

int FileTable::Take(OpenFile& file)
{
    int byte = Peek(file);
    file.bufferAt += byte >= 0 ? 1 : 0;
    return byte;
}

bool FileTable::IsEof(int32_t number)
{
    OpenFile& file = At(number);
    // Where Get reads, the end shows only once something was missing.
    return file.TransfersBytes() ? file.cameShort : AtEnd(file);
}

bool FileTable::AtEnd(OpenFile& file)
{
    if (file.mode == OpenMode::Output || file.mode == OpenMode::Append) {
        return true;
    }
    int next = Peek(file);
    return next < 0 || (next == kEndMark && file.mode == OpenMode::Input);
}

bool FileTable::OthersHoldLocks(int32_t number) const
{
    return std::any_of(open.begin(), open.end(),
                       [&](const auto& entry) { return entry.first != number && !entry.second.locks.empty(); });
}

/// What a sequential statement takes is known behind it only; what it shouldn't have taken is given back.
template <typename Read> auto FileTable::ReadUnlocked(int32_t number, Read read)
{
    OpenFile& file = ForReading(number);
    if (!OthersHoldLocks(number)) {
        return read(file);
    }
    const uint64_t start = Position(file);
    auto result = read(file);
    const uint64_t end = Position(file);
    try {
        CheckLocks(number, file, start, end - start);
    } catch (const MacroError&) {
        Seek(file, start);
        throw;
    }
    return result;
}

std::u16string FileTable::ReadLine(int32_t number)
{
    return ReadUnlocked(number, [this](OpenFile& file) { return TakeLine(file); });
}

std::u16string FileTable::ReadUnits(int32_t number, size_t count)
{
    return ReadUnlocked(number, [&](OpenFile& file) { return TakeUnits(file, count); });
}

Value FileTable::ReadField(int32_t number, Type stored)
{
    return ReadUnlocked(number, [&](OpenFile& file) { return TakeField(file, stored); });
}

std::u16string FileTable::TakeLine(OpenFile& file)
{
    if (AtEnd(file)) {
        Raise(kInputPastEnd);
    }
    std::string line;
    while (!AtEnd(file)) {
        int byte = Take(file);
        if (byte == '\r') {
            if (Peek(file) == '\n') {
                Take(file);
            }
            break;
        }
        if (byte == '\n') {
            break;
        }
        Append(line, byte);
    }
    return FromNarrow(line);
}

std::u16string FileTable::TakeUnits(OpenFile& file, size_t count)
{
    std::string bytes;
    for (; count > 0; --count) {
        int byte = Take(file);
        if (byte < 0) {
            Raise(kInputPastEnd);
        }
        Append(bytes, byte);
    }
    return FromNarrow(bytes);
}

Value FileTable::TakeField(OpenFile& file, Type stored)
{
    while (Peek(file) == ' ' || Peek(file) == '\t') {
        Take(file);
    }
    if (AtEnd(file)) {
        Raise(kInputPastEnd);
    }
    std::string text;
    bool quoted = Peek(file) == '"';
    if (quoted) {
        Take(file);
        while (!AtEnd(file) && Peek(file) != '"') {
            Append(text, Take(file));
        }
        Take(file);
    }
    while (!AtEnd(file) && Peek(file) != ',' && Peek(file) != '\r' && Peek(file) != '\n') {
        int byte = Take(file);
        if (!quoted) {
            Append(text, byte);
        }
    }
    int end = AtEnd(file) ? -1 : Take(file);
    if (end == '\r' && Peek(file) == '\n') {
        Take(file);
    }
    std::u16string field = FromNarrow(text);
    if (quoted) {
        return Value(std::move(field));
    }
    field = TrimBlanks(field);
    if (stored == Type::String || stored == Type::FixedText) {
        return Value(std::move(field));
    }
    if (field.empty()) {
        return Value();
    }
    struct Word
    {
        std::u16string_view text;
        Value value;
    };
    const Word words[] = {{u"#TRUE#", Value(true)}, {u"#FALSE#", Value(false)}, {u"#NULL#", Value::Null()}};
    for (const Word& word : words) {
        if (EqualIgnoringCase(field, word.text)) {
            return word.value;
        }
    }
    constexpr std::u16string_view kError = u"#ERROR ";
    if (field.size() > kError.size() && EqualIgnoringCase(field.substr(0, kError.size()), kError)) {
        std::u16string_view code = std::u16string_view(field).substr(kError.size());
        return Value::FromError(static_cast<int32_t>(ParseNumber(code.substr(0, code.size() - 1)).value_or(0)));
    }
    if (field.size() > 2 && field.front() == u'#' && field.back() == u'#') {
        if (std::optional<double> date = ParseDate(std::u16string_view(field).substr(1, field.size() - 2))) {
            return Value::FromDate(*date);
        }
    }
    if (std::optional<double> value = ParseNumber(field)) {
        return Value(*value);
    }
    return Value(std::move(field));
}

void FileTable::Print(int32_t number, std::u16string_view text)
{
    OpenFile& file = ForPrinting(number);
    file.file->Write(ToNarrow(text));
    size_t lineStart = text.rfind(u'\n');
    file.column = lineStart == std::u16string_view::npos ? file.column + text.size() : text.size() - lineStart - 1;
}

uint64_t FileTable::Position(OpenFile& file)
{
    return file.file->Position() - (file.buffer.size() - file.bufferAt);
}

void FileTable::Seek(OpenFile& file, uint64_t position)
{
    file.buffer.clear();
    file.bufferAt = 0;
    file.file->Seek(position);
}

std::string FileTable::ReadBytes(OpenFile& file, size_t count)
{
    std::string bytes;
    while (bytes.size() < count && Peek(file) >= 0) {
        bytes.push_back(static_cast<char>(Take(file)));
    }
    return bytes;
}

OpenFile& FileTable::ForTransfer(int32_t number)
{
    OpenFile& file = At(number);
    if (!file.TransfersBytes()) {
        Raise(kBadFileMode);
    }
    return file;
}

Value FileTable::Get(int32_t number, int64_t position, const Value& present, Type stored)
{
    OpenFile& file = ForTransfer(number);
    if (!file.sharing.reads) {
        Raise(kPathFileAccess);
    }
    if (position > 0) {
        SeekTo(number, static_cast<uint64_t>(position));
    }
    file.cameShort = false;
    if (!file.HasRecords()) {
        return FromRecordBytes(present, stored, false, [&](size_t count) {
            CheckLocks(number, file, Position(file), count);
            std::string bytes = ReadBytes(file, count);
            file.cameShort = file.cameShort || bytes.size() < count;
            bytes.resize(count, '\0');
            return bytes;
        });
    }
    uint64_t start = (file.nextRecord - 1) * file.recordLength;
    CheckLocks(number, file, start, file.recordLength);
    Seek(file, start);
    std::string record = ReadBytes(file, static_cast<size_t>(file.recordLength));
    file.cameShort = record.size() < file.recordLength;
    record.resize(static_cast<size_t>(file.recordLength), '\0');
    size_t taken = 0;
    Value value = FromRecordBytes(present, stored, true, [&](size_t count) {
        if (count > record.size() - taken) {
            Raise(kBadRecordLength);
        }
        taken += count;
        return record.substr(taken - count, count);
    });
    ++file.nextRecord;
    return value;
}

void FileTable::Put(int32_t number, int64_t position, const Value& value, Type stored)
{
    OpenFile& file = ForTransfer(number);
    if (!file.sharing.writes) {
        Raise(kPathFileAccess);
    }
    std::string bytes = ToRecordBytes(value, stored, file.HasRecords());
    if (file.HasRecords() && bytes.size() > file.recordLength) {
        Raise(kBadRecordLength);
    }
    if (position > 0) {
        SeekTo(number, static_cast<uint64_t>(position));
    }
    uint64_t start = file.HasRecords() ? (file.nextRecord - 1) * file.recordLength : Position(file);
    if (file.HasRecords()) {
        // A file of records holds whole ones.
        uint64_t size = file.file->Size();
        uint64_t end = start + file.recordLength;
        bytes.resize(static_cast<size_t>(size >= end ? bytes.size() : file.recordLength), '\0');
        ++file.nextRecord;
    }
    CheckLocks(number, file, start, bytes.size());
    Seek(file, start);
    file.file->Write(bytes);
}

uint64_t FileTable::NextPosition(int32_t number)
{
    OpenFile& file = At(number);
    return file.HasRecords() ? file.nextRecord : Position(file) + 1;
}

void FileTable::SeekTo(int32_t number, uint64_t position)
{
    OpenFile& file = At(number);
    file.cameShort = false;
    if (file.HasRecords()) {
        constexpr uint64_t kMostRecords = 0x7FFFFFFF;
        if (position > kMostRecords) {
            Raise(kBadRecordNumber);
        }
        file.nextRecord = position;
    } else {
        Seek(file, position - 1);
    }
}

uint64_t FileTable::Location(int32_t number)
{
    constexpr uint64_t kSequentialBlock = 128;
    OpenFile& file = At(number);
    if (file.HasRecords()) {
        return file.nextRecord - 1;
    }
    return file.mode == OpenMode::Binary ? Position(file) : Position(file) / kSequentialBlock;
}

OpenFile::Range FileTable::RangeOf(const OpenFile& file, uint64_t first, uint64_t last)
{
    // A sequential file is locked as a whole.
    if (first == 0 || !file.TransfersBytes()) {
        return OpenFile::Range{0, UINT64_MAX};
    }
    uint64_t unit = file.HasRecords() ? file.recordLength : 1;
    return OpenFile::Range{(first - 1) * unit, last * unit};
}

void FileTable::Lock(int32_t number, uint64_t first, uint64_t last)
{
    OpenFile& file = At(number);
    OpenFile::Range range = RangeOf(file, first, last);
    CheckLocks(-1, file, range.first, range.end - range.first);
    file.locks.push_back(range);
}

void FileTable::Unlock(int32_t number, uint64_t first, uint64_t last)
{
    OpenFile& file = At(number);
    auto found = std::find(file.locks.begin(), file.locks.end(), RangeOf(file, first, last));
    if (found == file.locks.end()) {
        Raise(kPermissionDenied);
    }
    file.locks.erase(found);
}

void FileTable::CheckLocks(int32_t number, const OpenFile& file, uint64_t first, uint64_t count) const
{
    for (const auto& [other, shared] : open) {
        if (other == number || !EqualIgnoringCase(shared.path, file.path)) {
            continue;
        }
        for (const OpenFile::Range& lock : shared.locks) {
            if (first < lock.end && lock.first < first + count) {
                Raise(kPermissionDenied);
            }
        }
    }
}

} // namespace tv::macro
