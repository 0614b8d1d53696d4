// Several programs work in one vault at the same time.
#include "disk_world.h"

#include "vault/error_table.h"
#include "vault/text.h"

#include <atomic>
#include <cstdlib>
#include <map>
#include <mutex>
#include <set>
#include <thread>

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace tv::local {

namespace {

namespace fs = std::filesystem;

constexpr char kVaultVariable[] = "TV_SEVERAL_WRITERS_VAULT";
constexpr char kNameVariable[] = "TV_SEVERAL_WRITERS_NAME";
constexpr int kFilesOfEach = 20;

/// Adds files to two folders that all writers share, checks them in, and makes a second version of each.
void WorkInVault(const fs::path& root, const std::string& name)
{
    StoreOptions options;
    options.session = {name, "bench"};
    const auto store = VaultStore::Open(root, options);
    FileWork work(store);
    for (int i = 0; i < kFilesOfEach; ++i) {
        const VaultPath folder{i % 2 == 0 ? "Even" : "Odd"};
        const fs::path place = work.LocalPath(folder) / (name + " " + std::to_string(i) + ".stl");
        fs::create_directories(place.parent_path());
        WriteBytes(place, name + " draft " + std::to_string(i));
        const FileRecord file = work.Add(place, store->MakeFolder(folder));
        ThrowIfFailed(work.CheckIn(std::vector{file.id}, "first")[0].code);
        work.CheckOut(file.id);
        WriteBytes(place, name + " final version " + std::to_string(i));
        ThrowIfFailed(work.CheckIn(std::vector{file.id}, "second")[0].code);
    }
}

class SeveralWriters : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();

    void ExpectAllFilesOf(const std::vector<std::string>& names)
    {
        std::set<int32_t> ids;
        for (const std::string& name : names) {
            for (int i = 0; i < kFilesOfEach; ++i) {
                const std::string number = std::to_string(i);
                const auto file = store->FindFile({i % 2 == 0 ? "Even" : "Odd", name + " " + number + ".stl"});
                ASSERT_TRUE(file) << name << " " << i;
                ids.insert(file->id);
                EXPECT_FALSE(file->checkOut);
                EXPECT_EQ(file->latestVersion, 2);
                ASSERT_EQ(store->Versions(file->id).size(), 2u);
                EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file->id, 1))), name + " draft " + number);
                EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file->id, 2))), name + " final version " + number);
                EXPECT_EQ(store->Version(file->id, 2)->user, name);
            }
        }
        EXPECT_EQ(ids.size(), names.size() * kFilesOfEach);
        EXPECT_EQ(store->SubFolders(kRootFolder).size(), 2u);
        store->Verify();
    }
};

TEST_F(SeveralWriters, InOneProgramLoseNothing)
{
    const std::vector<std::string> names{"anna", "bert", "carla", "dora"};
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    for (const std::string& name : names) {
        threads.emplace_back([&, name] { failures += CodeOf([&] { WorkInVault(Root(), name); }) == 0 ? 0 : 1; });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, 0);
    ExpectAllFilesOf(names);
}

/// By itself this is one writer alone; started by another test, it is one of the programs that share that test's vault.
TEST_F(SeveralWriters, OneOfThemFinishesItsWork)
{
    const char* root = std::getenv(kVaultVariable);
    const char* name = std::getenv(kNameVariable);
    if (root != nullptr && name != nullptr) {
        WorkInVault(PathOf(root), name);
    } else {
        WorkInVault(Root(), "anna");
        ExpectAllFilesOf({"anna"});
    }
}

#ifdef _WIN32

/// Runs this program's writer as a program of its own, which writes no report of its own, and returns its exit code.
int RunWriter(const fs::path& root, const std::string& name)
{
    static std::atomic<bool> starting = false;
    wchar_t program[1024];
    GetModuleFileNameW(nullptr, program, 1024);
    std::wstring line =
        L"\"" + std::wstring(program) + L"\" --gtest_filter=SeveralWriters.OneOfThemFinishesItsWork --gtest_output=";
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    while (starting.exchange(true)) {
        Sleep(1);
    }
    SetEnvironmentVariableA(kVaultVariable, TextOf(root).c_str());
    SetEnvironmentVariableA(kNameVariable, name.c_str());
    const bool started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                                        nullptr, &startup, &process) != 0;
    SetEnvironmentVariableA(kVaultVariable, nullptr);
    SetEnvironmentVariableA(kNameVariable, nullptr);
    starting = false;
    if (!started) {
        return -1;
    }
    unsigned long code = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

#else

int RunWriter(const fs::path& root, const std::string& name)
{
    const std::string program = fs::read_symlink("/proc/self/exe").string();
    const std::string vault = std::string(kVaultVariable) + "=" + root.string();
    const std::string writer = std::string(kNameVariable) + "=" + name;
    const pid_t child = ::fork();
    if (child == 0) {
        ::execl("/usr/bin/env", "env", vault.c_str(), writer.c_str(), program.c_str(),
                "--gtest_filter=SeveralWriters.OneOfThemFinishesItsWork", "--gtest_brief=1",
                "--gtest_output=", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return status;
}

#endif

TEST_F(SeveralWriters, OfSeveralProgramsLoseNothing)
{
    const std::vector<std::string> names{"anna", "bert", "carla"};
    std::atomic<int> failures = 0;
    std::vector<std::thread> waiting;
    for (const std::string& name : names) {
        waiting.emplace_back([&, name] { failures += RunWriter(Root(), name) == 0 ? 0 : 1; });
    }
    for (std::thread& thread : waiting) {
        thread.join();
    }
    EXPECT_EQ(failures, 0);
    ExpectAllFilesOf(names);
}

TEST_F(SeveralWriters, OfOneFileMakeItsVersionsOneAfterTheOther)
{
    const FileRecord file = Import(*store, "shared.step", "start");
    std::atomic<int> made = 0;
    std::vector<std::thread> threads;
    for (const char* name : {"anna", "bert", "carla"}) {
        threads.emplace_back([&, name] {
            FileWork work(OpenAs({name, "bench"}));
            for (int mine = 0; mine < 5;) {
                if (CodeOf([&] { work.CheckOut(file.id); }) != 0) {
                    std::this_thread::yield();
                    continue;
                }
                const std::string bytes = std::string(name) + " version " + std::to_string(mine);
                WriteBytes(Root() / "shared.step", bytes + std::string(static_cast<size_t>(++made), '.'));
                if (work.CheckIn(std::vector{file.id}, bytes)[0].code == 0) {
                    ++mine;
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    const auto versions = store->Versions(file.id);
    ASSERT_EQ(versions.size(), 16u);
    std::map<std::string, int> byUser;
    for (size_t i = 1; i < versions.size(); ++i) {
        EXPECT_EQ(versions[i].number, static_cast<int32_t>(i) + 1);
        EXPECT_EQ(BytesOf(store->ContentPath(versions[i])).substr(0, versions[i].comment.size()), versions[i].comment);
        ++byUser[versions[i].user];
    }
    EXPECT_EQ(byUser, (std::map<std::string, int>{{"anna", 5}, {"bert", 5}, {"carla", 5}}));
    store->Verify();
}

TEST_F(SeveralWriters, WaitForOneThatIsWritingAndThenWrite)
{
    const Disk disk({});
    Database other(Root() / ".quellor" / "vault.db", false, disk);
    std::atomic<bool> done = false;
    std::thread writer;
    {
        const Transaction writing(other);
        writer = std::thread([&] {
            OpenAs(kBert)->MakeFolder({"New"});
            done = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(done);
        EXPECT_FALSE(store->FindFolder({"New"}));
    }
    writer.join();
    EXPECT_TRUE(store->FindFolder({"New"}));
}

TEST_F(SeveralWriters, GiveUpOnOneThatNeverEnds)
{
    const Disk disk({});
    Database other(Root() / ".quellor" / "vault.db", false, disk);
    const Transaction writing(other);
    StoreOptions options = OptionsOf(kBert);
    options.patience = std::chrono::milliseconds(20);
    const auto berts = VaultStore::Open(Root(), options);
    EXPECT_EQ(CodeOf([&] { berts->MakeFolder({"New"}); }), kErrorLocked);
    EXPECT_EQ(WordsOf([&] { berts->MakeFolder({"New"}); }),
              "Another program has been writing into the vault for too long. Try again when it is done.");
    EXPECT_EQ(berts->FilesIn(kRootFolder).size(), 0u);
}

/// A store whose first "write bytes" is preceded by what another program does.
StoreOptions OptionsWithMeanwhile(const Session& session, std::function<void()> meanwhile)
{
    StoreOptions options;
    options.session = session;
    options.beforeWrite = [meanwhile, happened = false](std::string_view step) mutable {
        if (step == "write bytes" && !happened) {
            happened = true;
            meanwhile();
        }
    };
    return options;
}

TEST_F(SeveralWriters, AFileThatAnotherProgramBringsDuringItsImportGetsAVersionMore)
{
    const auto annas = VaultStore::Open(
        Root(), OptionsWithMeanwhile(kAnna, [&] { Import(*OpenAs(kBert), "same.step", "of bert", {"Parts"}); }));
    const ImportedFile imported = FileWork(annas).Import(Write("of anna/same.step", "of anna"), {"Parts"}, "");
    EXPECT_FALSE(imported.isNew);
    ASSERT_EQ(store->Versions(imported.file.id).size(), 2u);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(imported.file.id, 1))), "of bert");
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(imported.file.id, 2))), "of anna");
    EXPECT_EQ(BytesOf(Root() / "Parts" / "same.step"), "of anna");
}

TEST_F(SeveralWriters, AFileThatAnotherProgramBringsAndHoldsDuringItsImportIsRefused)
{
    const auto annas = VaultStore::Open(Root(), OptionsWithMeanwhile(kAnna, [&] {
                                            const auto berts = OpenAs(kBert);
                                            FileWork work(berts);
                                            work.CheckOut(Import(*berts, "same.step", "of bert").id);
                                        }));
    const auto from = Write("of anna/same.step", "of anna");
    EXPECT_EQ(CodeOf([&] { FileWork(annas).Import(from, {}, ""); }), kErrorLockedByAnotherUser);
    EXPECT_EQ(BytesOf(Root() / "same.step"), "of bert");
}

TEST_F(SeveralWriters, ACopyThatIsCheckedOutWhileItIsFetchedStaysItsHolders)
{
    const FileRecord file = Import(*store, "screw.step", "latest");
    const fs::path place = Root() / "screw.step";
    Disk({}).Remove(place);
    const auto annas = VaultStore::Open(Root(), OptionsWithMeanwhile(kAnna, [&] {
                                            FileWork(OpenAs(kBert)).CheckOut(file.id);
                                            WriteBytes(place, "what bert writes");
                                        }));
    EXPECT_EQ(FileWork(annas).Fetch(file, 0), place);
    EXPECT_EQ(BytesOf(place), "what bert writes");
    EXPECT_FALSE(Disk::IsReadOnly(place));
}

TEST_F(SeveralWriters, AFileThatGetsAVersionWhileItIsFetchedIsFetchedAnew)
{
    const FileRecord file = Import(*store, "screw.step", "first");
    const fs::path place = Root() / "screw.step";
    Disk({}).Remove(place);
    const auto annas =
        VaultStore::Open(Root(), OptionsWithMeanwhile(kAnna, [&] { Import(*OpenAs(kBert), "screw.step", "second"); }));
    FileWork(annas).Fetch(file, 0);
    EXPECT_EQ(BytesOf(place), "second");
    EXPECT_TRUE(Disk::IsReadOnly(place));
}

TEST_F(SeveralWriters, OfOneNameImportItAsVersionsOfOneFile)
{
    std::mutex failing;
    std::vector<std::string> failures;
    std::vector<std::thread> threads;
    for (const char* name : {"anna", "bert", "carla", "dora"}) {
        threads.emplace_back([&, name] {
            FileWork work(OpenAs({name, "bench"}));
            for (int i = 0; i < 10; ++i) {
                const std::string file = "part " + std::to_string(i) + ".step";
                const fs::path from = Write(std::string(name) + "/" + file, name + std::to_string(i));
                if (const std::string words = WordsOf([&] { work.Import(from, {"Parts"}, ""); }); !words.empty()) {
                    const std::lock_guard guard(failing);
                    failures.push_back(words);
                }
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, std::vector<std::string>());
    for (int i = 0; i < 10; ++i) {
        const auto file = store->FindFile({"Parts", "part " + std::to_string(i) + ".step"});
        ASSERT_TRUE(file);
        EXPECT_EQ(store->Versions(file->id).size(), 4u);
        EXPECT_EQ(BytesOf(FileWork(store).LocalPathOf(*file)),
                  BytesOf(store->ContentPath(*store->Version(file->id, 4))));
    }
    store->Verify();
}

TEST_F(SeveralWriters, OfOneNameGiveItToOneOfThem)
{
    std::atomic<int> added = 0;
    std::atomic<int> refused = 0;
    std::vector<std::thread> threads;
    for (const char* name : {"anna", "bert", "carla", "dora"}) {
        const fs::path from = Write(std::string(name) + "/same.stl", name);
        threads.emplace_back([&, name, from] {
            FileWork work(OpenAs({name, "bench"}));
            const AddRequest request{from, {"Out"}};
            const Result code = work.AddAll({&request, 1})[0].outcome.code;
            added += code == 0 ? 1 : 0;
            refused += code == kErrorNameAlreadyExists ? 1 : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(added, 1);
    EXPECT_EQ(refused, 3);
    const auto file = store->FindFile({"Out", "same.stl"});
    EXPECT_EQ(BytesOf(Root() / "Out" / "same.stl"), file->checkOut->holder.user);
    EXPECT_EQ(BytesOf(store->ContentPath(*store->Version(file->id, 1))), file->checkOut->holder.user);
}

} // namespace

} // namespace tv::local
