// What the local vault costs a file, and how that grows with the number of files in one folder. Nothing may grow faster
// than the number of files; the last column tells.
#include "vault/text.h"
#include "vault/vault_objects.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <random>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

constexpr int kNumbers[] = {1000, 10000, 100000};
constexpr int kWrittenFiles = 1000;

using Clock = std::chrono::steady_clock;

double MicrosecondsOf(const std::function<void()>& action)
{
    const auto start = Clock::now();
    action();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void Require(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "The bench doesn't do what it measures: %s.\n", what);
        std::exit(1);
    }
}

/// A vault in a temporary folder, gone at the end.
class World
{
  public:
    World() : root(fs::temp_directory_path() / ("tv_bench_vault_" + std::to_string(std::random_device{}())))
    {
        StoreOptions options;
        options.beforeWrite = [this](std::string_view step) { commits += step == "commit" ? 1 : 0; };
        store = VaultStore::Create(root, "Bench", options);
    }
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    ~World()
    {
        store.reset();
        std::error_code error;
        fs::remove_all(root, error);
    }

    fs::path Place(int index) const { return root / "Out" / ("part " + std::to_string(index) + ".stl"); }

    void WriteOutputs(int count) const
    {
        fs::create_directories(root / "Out");
        for (int i = 0; i < count; ++i) {
            std::ofstream(Place(i), std::ios::binary) << "solid " << i;
        }
    }

    fs::path root;
    std::shared_ptr<VaultStore> store;
    int commits = 0;
};

using Row = std::map<int, double>;

/// Files whose bytes are the same and that have no local copy, so that the database is measured and not the disk.
void AddFiles(World& world, int count, std::map<std::string, Row>& table)
{
    world.WriteOutputs(1);
    const PendingContent content = world.store->TakeBytes(world.Place(0));
    std::vector<AddPlan> plans;
    for (int i = 0; i < count; ++i) {
        plans.push_back({{"Out"}, TextOf(world.Place(i).filename()), content, [] { return FileStamp{}; }});
    }
    const int before = world.commits;
    table["add in one transaction"][count] = MicrosecondsOf([&] { world.store->AddFiles(plans); }) / count;
    Require(world.commits == before + 1, "one commit for all that is added");
}

void CheckIn(World& world, int count, std::map<std::string, Row>& table)
{
    std::vector<CheckInPlan> plans;
    for (const FileRecord& file : world.store->FilesIn(world.store->FindFolder({"Out"})->id)) {
        plans.push_back({file.id, std::nullopt});
    }
    const int before = world.commits;
    table["check in, nothing written"][count] = MicrosecondsOf([&] { world.store->CheckIn(plans, ""); }) / count;
    Require(world.commits == before + 1, "one commit for all that is checked in");
}

void LookUp(World& world, int count, std::map<std::string, Row>& table)
{
    const int32_t folder = world.store->FindFolder({"Out"})->id;
    size_t found = 0;
    table["list a folder"][count] = MicrosecondsOf([&] { found = world.store->FilesIn(folder).size(); }) / count;
    Require(found == static_cast<size_t>(count), "all files are listed");
    table["find by path"][count] =
        MicrosecondsOf([&] {
            for (int i = 0; i < count; ++i) {
                found -= world.store->FindFile({"Out", TextOf(world.Place(i).filename())}) ? 1u : 0u;
            }
        }) /
        count;
    Require(found == 0, "all files are found");
}

void UseObjects(World& world, int count, std::map<std::string, Row>& table)
{
    const ComPtr<IVyxVault> vault = MakeVaultObject(world.store);
    ComPtr<IVyxFolder> folder;
    ThrowIfFailed(vault->GetFolderFromPath(Utf16(TextOf(world.root / "Out")).c_str(), folder.put()));
    int walked = 0;
    table["walk a folder by objects"][count] =
        MicrosecondsOf([&] {
            ComPtr<IVyxPos> position;
            ThrowIfFailed(folder->GetFirstFilePosition(position.put()));
            for (VariantBool end = kVariantFalse; position->IsNull(&end) == 0 && end == kVariantFalse;) {
                ComPtr<IVyxFile> file;
                int32_t version = 0;
                ThrowIfFailed(folder->GetNextFile(position.get(), file.put()));
                ThrowIfFailed(file->GetCurrentVersion(&version));
                walked += version;
            }
        }) /
        count;
    Require(walked == count, "all files are walked");
    ComPtr<IUnknown> unknown;
    ThrowIfFailed(vault->CreateUtility(kUtilityBatchList, unknown.put()));
    ComPtr<IVyxBatchList> list;
    ThrowIfFailed(unknown.As(list));
    SafeArray files;
    table["list of latest versions"][count] =
        MicrosecondsOf([&] {
            for (int i = 0; i < count; ++i) {
                ThrowIfFailed(list->AddFile(Variant::FromText(Utf16(TextOf(world.Place(i)))).get(), 0, 0, 0));
            }
            ThrowIfFailed(list->CreateList(u"", files.put()));
        }) /
        count;
    Require(SafeArrayView<VyxListFile>(files.get()).size() == static_cast<size_t>(count), "all files are in the list");
}

void MeasureGrowth()
{
    std::map<std::string, Row> table;
    for (const int count : kNumbers) {
        World world;
        AddFiles(world, count, table);
        CheckIn(world, count, table);
        LookUp(world, count, table);
        UseObjects(world, count, table);
    }
    std::printf("microseconds a file         %10d %10d %10d    growth\n", kNumbers[0], kNumbers[1], kNumbers[2]);
    for (const auto& [name, row] : table) {
        std::printf("%-27s %10.2f %10.2f %10.2f %8.2fx\n", name.c_str(), row.at(kNumbers[0]), row.at(kNumbers[1]),
                    row.at(kNumbers[2]), row.at(kNumbers[2]) / row.at(kNumbers[1]));
    }
}

/// Files whose bytes all differ and reach the disk one by one, added together and each by itself.
void MeasureWriting()
{
    World together;
    together.WriteOutputs(kWrittenFiles);
    std::vector<AddRequest> requests;
    for (int i = 0; i < kWrittenFiles; ++i) {
        requests.push_back({together.Place(i), {"Out"}});
    }
    FileWork all(together.store);
    const double batch = MicrosecondsOf([&] { all.AddAll(requests); }) / kWrittenFiles;
    World alone;
    alone.WriteOutputs(kWrittenFiles);
    FileWork work(alone.store);
    const FolderRecord folder = alone.store->MakeFolder({"Out"});
    const double single = MicrosecondsOf([&] {
                              for (int i = 0; i < kWrittenFiles; ++i) {
                                  work.Add(alone.Place(i), folder);
                              }
                          }) /
                          kWrittenFiles;
    std::printf("\nadd %d files with bytes of their own: %.0f microseconds a file together, %.0f one by one (%.1fx)\n",
                kWrittenFiles, batch, single, single / batch);
}

} // namespace

} // namespace tv::local

int main()
{
    tv::local::MeasureGrowth();
    tv::local::MeasureWriting();
    return 0;
}
