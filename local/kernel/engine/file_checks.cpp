#include "engine/file_checks.h"

#include "engine/failure.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <vector>

namespace tv::kernel {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Damaged(const fs::path& file, const std::string& what)
{
    throw JobFailure(ErrorCode::Damaged, "The file " + Quoted(file.string()) + " is damaged: " + what + ".");
}

std::string ReadPart(const fs::path& file, uint64_t from, uint64_t count)
{
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(static_cast<std::streamoff>(from));
    std::string bytes(count, '\0');
    stream.read(bytes.data(), static_cast<std::streamsize>(count));
    bytes.resize(static_cast<size_t>(stream.gcount()));
    return bytes;
}

uint64_t SizeOf(const fs::path& file)
{
    std::error_code error;
    const uint64_t size = fs::file_size(file, error);
    if (error) {
        throw JobFailure(ErrorCode::FileNotFound, "The file " + Quoted(file.string()) + " is not there.");
    }
    if (size == 0) {
        Damaged(file, "it is empty");
    }
    return size;
}

std::string Head(const fs::path& file)
{
    return ReadPart(file, 0, std::min<uint64_t>(SizeOf(file), 1024));
}

std::string Tail(const fs::path& file)
{
    const uint64_t size = SizeOf(file);
    const uint64_t count = std::min<uint64_t>(size, 4096);
    return ReadPart(file, size - count, count);
}

bool Contains(const std::string& text, const char* what)
{
    return text.find(what) != std::string::npos;
}

std::vector<std::string> LinesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(line);
    }
    return lines;
}

/// A count of the last line of an IGES file: a letter and seven digits, blanks for leading zeros.
long CountInTerminateLine(const std::string& line, size_t column)
{
    const char* first = line.data() + column + 1;
    const char* last = first + 7;
    while (first != last && *first == ' ') {
        first++;
    }
    long count = -1;
    std::from_chars(first, last, count);
    return count;
}

constexpr size_t kIgesSectionColumn = 72;

bool IsBinaryStl(const fs::path& file, uint64_t size)
{
    const std::string head = ReadPart(file, 0, 84);
    uint32_t triangles = 0;
    if (head.size() < 84) {
        return false;
    }
    std::memcpy(&triangles, head.data() + 80, sizeof triangles);
    return size == 84 + uint64_t{50} * triangles;
}

bool LooksLikeText(const std::string& head)
{
    for (const char byte : head) {
        const auto letter = static_cast<unsigned char>(byte);
        if (letter == 0 || letter == 0x7F || (letter < ' ' && !std::isspace(letter))) {
            return false;
        }
    }
    return true;
}

} // namespace

void CheckStepFile(const fs::path& file)
{
    if (!Contains(Head(file), "ISO-10303-21;")) {
        Damaged(file, "it doesn't begin as a STEP file does");
    }
    if (!Contains(Tail(file), "END-ISO-10303-21;")) {
        Damaged(file, "it is cut off before its end mark END-ISO-10303-21");
    }
}

void CheckIgesFile(const fs::path& file)
{
    const std::string head = Head(file);
    if (head.size() <= kIgesSectionColumn || (head[kIgesSectionColumn] != 'S' && head[kIgesSectionColumn] != 'C')) {
        Damaged(file, "it doesn't begin as an IGES file does");
    }
    const std::vector<std::string> lines = LinesOf(ReadWholeFile(file));
    const std::string* terminate = nullptr;
    long parameterLines = 0;
    long directoryLines = 0;
    for (const std::string& line : lines) {
        const char section = line.size() > kIgesSectionColumn ? line[kIgesSectionColumn] : ' ';
        parameterLines += section == 'P';
        directoryLines += section == 'D';
        terminate = section == 'T' ? &line : terminate;
    }
    if (!terminate) {
        Damaged(file, "it is cut off before its last section");
    }
    if (CountInTerminateLine(*terminate, 16) != directoryLines ||
        CountInTerminateLine(*terminate, 24) != parameterLines) {
        Damaged(file, "lines are missing from it; its last line counts more or fewer of them");
    }
}

void CheckStlFile(const fs::path& file)
{
    const uint64_t size = SizeOf(file);
    if (IsBinaryStl(file, size)) {
        return;
    }
    const std::string head = Head(file);
    if (!head.starts_with("solid") || !LooksLikeText(head)) {
        Damaged(file, "its size doesn't agree with the number of triangles that it announces");
    }
    if (!Contains(Tail(file), "endsolid")) {
        Damaged(file, "it is cut off before its end mark \"endsolid\"");
    }
}

void CheckBrepFile(const fs::path& file)
{
    const std::string head = Head(file);
    if (!Contains(head, "CASCADE Topology V") && !Contains(head, "DBRep_DrawableShape")) {
        Damaged(file, "it doesn't begin as a BREP file does");
    }
    // The library's reader waits forever for the rest of a file that was cut off.
    const std::string text = ReadWholeFile(file);
    const size_t shapes = text.find("\nTShapes ");
    if (shapes == std::string::npos) {
        Damaged(file, "it is cut off before its list of shapes");
    }
    const std::string list = text.substr(shapes + std::strlen("\nTShapes "));
    const size_t lastMark = list.rfind('*');
    if (std::ranges::count(list, '*') != std::atol(list.c_str()) ||
        list.find_first_of("0123456789", lastMark) == std::string::npos) {
        Damaged(file, "its list of shapes is not complete");
    }
}

std::string ReadWholeFile(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream || fs::is_directory(file)) {
        throw JobFailure(ErrorCode::FileNotFound, "The file " + Quoted(file.string()) + " is not there.");
    }
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

} // namespace tv::kernel
