#include "host/event_reader.h"

#include <fstream>
#include <iterator>

namespace tv::local {

EventReader::EventReader(std::filesystem::path name) : file(std::move(name))
{
    std::error_code missing;
    const auto size = std::filesystem::file_size(file, missing);
    done = missing ? 0 : static_cast<std::streamoff>(size);
}

std::vector<app::MacroEvent> EventReader::Read()
{
    std::ifstream stream(file, std::ios::binary);
    stream.seekg(done);
    const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    std::vector<app::MacroEvent> events;
    size_t from = 0;
    for (size_t end = bytes.find('\n'); end != std::string::npos; end = bytes.find('\n', from)) {
        if (const auto event = app::ReadMacroEvent(std::string_view(bytes).substr(from, end - from))) {
            events.push_back(*event);
        }
        from = end + 1;
    }
    done += static_cast<std::streamoff>(from);
    return events;
}

} // namespace tv::local
