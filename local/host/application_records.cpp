#include "host/application_records.h"

#include "vault/disk.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <fstream>

namespace tv::local {

namespace fs = std::filesystem;

namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view kExtension = ".json";

Json ToJson(const ApplicationRecord& record)
{
    return {{"processId", record.process.id},
            {"created", record.process.created},
            {"year", record.year},
            {"commandLine", record.commandLine},
            {"eventsFile", record.eventsFile}};
}

std::optional<ApplicationRecord> Read(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    const Json json = Json::parse(stream, nullptr, false);
    try {
        ApplicationRecord record;
        json.at("processId").get_to(record.process.id);
        json.at("created").get_to(record.process.created);
        json.at("year").get_to(record.year);
        json.at("commandLine").get_to(record.commandLine);
        json.at("eventsFile").get_to(record.eventsFile);
        return record;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

} // namespace

std::string ApplicationRecords::NewEventsFile(int32_t host) const
{
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    const auto time = std::chrono::system_clock::now().time_since_epoch().count();
    return TextOf(folder / PathOf(std::to_string(host) + "_" + std::to_string(time) + ".events"));
}

void ApplicationRecords::Add(const ApplicationRecord& record) const
{
    const fs::path file = FileOf(record.process.id);
    const fs::path unfinished = fs::path(file).replace_extension("new");
    std::error_code error;
    fs::create_directories(folder, error);
    std::ofstream stream(unfinished, std::ios::binary);
    stream << ToJson(record).dump(2, ' ', false, Json::error_handler_t::replace) << "\n";
    stream.close();
    if (stream) {
        fs::rename(unfinished, file, error);
    }
    if (!stream || error) {
        throw std::runtime_error("The file '" + TextOf(file) +
                                 "', by which later commands find the application, can't " + "be written.");
    }
}

std::vector<ApplicationRecord> ApplicationRecords::All() const
{
    std::vector<ApplicationRecord> records;
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
        if (entry.path().extension() == PathOf(kExtension)) {
            if (auto record = Read(entry.path())) {
                records.push_back(std::move(*record));
            }
        }
    }
    std::ranges::sort(records, {}, [](const ApplicationRecord& record) { return record.process.id; });
    return records;
}

void ApplicationRecords::Remove(const ApplicationRecord& record) const
{
    std::error_code ignored;
    // Meanwhile the id may be that of a newer application.
    const fs::path file = FileOf(record.process.id);
    if (Read(file) == record) {
        fs::remove(file, ignored);
    }
    fs::remove(PathOf(record.eventsFile), ignored);
}

fs::path ApplicationRecords::FileOf(int32_t processId) const
{
    return folder / PathOf(std::to_string(processId) + std::string(kExtension));
}

} // namespace tv::local
