#include "disk_world.h"

#include "com/result.h"

#include <atomic>
#include <fstream>
#include <iterator>
#include <random>

namespace tv::local {

namespace fs = std::filesystem;

DiskWorld::DiskWorld()
{
    static std::atomic<int> counter = 0;
    base = fs::temp_directory_path() /
           ("tv_vault_" + std::to_string(std::random_device{}()) + "_" + std::to_string(++counter));
    fs::create_directories(base);
}

DiskWorld::~DiskWorld()
{
    std::error_code error;
    const Disk disk({});
    for (const auto& entry : fs::recursive_directory_iterator(base, error)) {
        if (entry.is_regular_file()) {
            disk.SetReadOnly(entry.path(), false);
        }
    }
    fs::remove_all(base, error);
}

StoreOptions DiskWorld::OptionsOf(const Session& session) const
{
    StoreOptions options;
    options.session = session;
    options.now = [] { return std::string("2026-11-21T01:40:05Z"); };
    return options;
}

fs::path DiskWorld::Write(std::string_view name, std::string_view bytes) const
{
    const fs::path path = Folder(name);
    fs::create_directories(path.parent_path());
    WriteBytes(path, bytes);
    return path;
}

FileRecord DiskWorld::Import(VaultStore& store, std::string_view name, std::string_view bytes, const VaultPath& folder)
{
    FileWork work(std::shared_ptr<VaultStore>(&store, [](VaultStore*) {}));
    return work.Import(Write("outside/" + std::string(name), bytes), folder, "first").file;
}

std::string BytesOf(const fs::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void WriteBytes(const fs::path& path, std::string_view bytes)
{
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::vector<Result> CodesOf(const std::vector<Outcome>& outcomes)
{
    std::vector<Result> codes;
    for (const Outcome& outcome : outcomes) {
        codes.push_back(outcome.code);
    }
    return codes;
}

std::string WordsOf(const std::function<void()>& operation)
{
    try {
        operation();
        return {};
    } catch (const ResultError& error) {
        return WordsOf(error);
    }
}

Result CodeOf(const std::function<void()>& operation)
{
    try {
        operation();
        return 0;
    } catch (const ResultError& error) {
        return error.Code();
    }
}

} // namespace tv::local
