#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

constexpr int32_t kMostNumbers = 511;
constexpr char kEndMark = '\x1A';

} // namespace

bool FileTable::IsOpen(const std::u16string& path) const
{
    return std::any_of(open.begin(), open.end(),
                       [&](const auto& entry) { return EqualIgnoringCase(entry.second.path, path); });
}

void FileTable::Open(int32_t number, const std::u16string& path, OpenMode mode, bool readOnly)
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
    // Only readers may share a file.
    for (const auto& [other, file] : open) {
        if (EqualIgnoringCase(file.path, path) &&
            !(mode == OpenMode::Input && (file.mode == OpenMode::Input || file.mode == OpenMode::Binary)) &&
            !(mode == OpenMode::Binary && (file.mode == OpenMode::Input || file.mode == OpenMode::Binary))) {
            Raise(kFileAlreadyOpen);
        }
    }
    constexpr FileAccess kAccess[] = {FileAccess::Read, FileAccess::Write, FileAccess::Append, FileAccess::ReadWrite};
    OpenFile opened;
    opened.path = path;
    opened.mode = mode;
    opened.readOnly = readOnly || mode == OpenMode::Input;
    opened.file = files.Open(path, readOnly ? FileAccess::Read : kAccess[static_cast<size_t>(mode)]);
    open.emplace(number, std::move(opened));
}

void FileTable::Close(int32_t number)
{
    At(number);
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
    if (file.mode != OpenMode::Input && file.mode != OpenMode::Binary) {
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

bool FileTable::AtEnd(OpenFile& file)
{
    if (file.mode == OpenMode::Output || file.mode == OpenMode::Append) {
        return true;
    }
    int next = Peek(file);
    return next < 0 || (next == kEndMark && file.mode == OpenMode::Input);
}

std::u16string FileTable::ReadLine(int32_t number)
{
    OpenFile& file = ForReading(number);
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
        line.push_back(static_cast<char>(byte));
    }
    return FromNarrow(line);
}

std::u16string FileTable::ReadUnits(int32_t number, size_t count)
{
    OpenFile& file = ForReading(number);
    std::string bytes;
    for (; count > 0; --count) {
        int byte = Take(file);
        if (byte < 0) {
            Raise(kInputPastEnd);
        }
        bytes.push_back(static_cast<char>(byte));
    }
    return FromNarrow(bytes);
}

Value FileTable::ReadField(int32_t number)
{
    OpenFile& file = ForReading(number);
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
            text.push_back(static_cast<char>(Take(file)));
        }
        Take(file);
    }
    while (!AtEnd(file) && Peek(file) != ',' && Peek(file) != '\r' && Peek(file) != '\n') {
        int byte = Take(file);
        if (!quoted) {
            text.push_back(static_cast<char>(byte));
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

std::string FileTable::ReadBytes(int32_t number, int64_t position, size_t count)
{
    OpenFile& file = At(number);
    if (file.mode != OpenMode::Binary) {
        Raise(kBadFileMode);
    }
    if (position > 0) {
        Seek(file, static_cast<uint64_t>(position) - 1);
    }
    std::string bytes;
    while (bytes.size() < count && Peek(file) >= 0) {
        bytes.push_back(static_cast<char>(Take(file)));
    }
    return bytes;
}

void FileTable::WriteBytes(int32_t number, int64_t position, std::string_view bytes)
{
    OpenFile& file = At(number);
    if (file.mode != OpenMode::Binary) {
        Raise(kBadFileMode);
    }
    if (file.readOnly) {
        Raise(kPathFileAccess);
    }
    Seek(file, position > 0 ? static_cast<uint64_t>(position) - 1 : Position(file));
    file.file->Write(bytes);
}

} // namespace tv::macro
