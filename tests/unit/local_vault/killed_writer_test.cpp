// A program that works on a vault is killed, at any moment, again and again. Each of its operations has then happened
// whole or not at all, what it reported done has happened, and the next program works on.
#include "disk_world.h"

#include "vault/error_table.h"
#include "vault/sha256.h"

#include <cstdlib>
#include <iostream>
#include <map>
#include <random>
#include <sstream>
#include <thread>

#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

constexpr char kVaultVariable[] = "TV_KILLED_WRITER_VAULT";
constexpr char kJournalVariable[] = "TV_KILLED_WRITER_JOURNAL";
constexpr char kSeedVariable[] = "TV_KILLED_WRITER_SEED";

constexpr int kKills = 200;
constexpr int kKillsOfOneVault = 20;
/// Some three operations: each line may have waited for the disk, and slow ones take their time for that.
constexpr int kMostLines = 25;
constexpr auto kLongestWait = std::chrono::microseconds(2'000);
constexpr const char* kNames[] = {"a.stl", "b.stl", "c.stl", "d.stl", "e.stl"};
constexpr char kCardVariable[] = "Number";

/// Every fifth content is larger than what one write takes.
std::string ContentOf(const std::string& name, int number)
{
    const size_t size = number % 5 == 0 ? 300'000 : 2'000;
    const std::string line = name + " " + std::to_string(number) + "\n";
    std::string bytes;
    while (bytes.size() < size) {
        bytes += line;
    }
    return bytes;
}

std::string HashOf(const std::string& bytes)
{
    Sha256 hash;
    hash.Add(std::as_bytes(std::span(bytes)));
    return hash.Finish();
}

enum class Kind
{
    Import,
    Add,
    CheckOut,
    CheckInAll,
    Undo,
    WriteCard,
    Delete,
    Purge,
};

struct Operation
{
    Kind kind = Kind::Import;
    std::string name;
    int number = 0; ///< makes contents and card values differ from all others
};

/// What the vault holds under one name.
struct NameState
{
    struct File
    {
        std::vector<std::string> hashes;
        bool out = false;
        bool fresh = false;
        int card = 0;
        bool operator==(const File&) const = default;
    };
    std::optional<File> file;
    std::vector<std::vector<std::string>> deleted; ///< the versions of each deleted file
    bool operator==(const NameState&) const = default;
};

using VaultState = std::map<std::string, NameState>;

/// What an operation makes of a vault.
void Apply(const Operation& operation, VaultState& vault)
{
    NameState& state = vault[operation.name];
    const auto hash = [&](const std::string& name) { return HashOf(ContentOf(name, operation.number)); };
    switch (operation.kind) {
    case Kind::Import:
        if (!state.file) {
            state.file.emplace();
        }
        state.file->hashes.push_back(hash(operation.name));
        break;
    case Kind::Add:
        state.file = NameState::File{{hash(operation.name)}, true, true, 0};
        break;
    case Kind::CheckOut:
        state.file->out = true;
        break;
    case Kind::CheckInAll:
        for (auto& [name, other] : vault) {
            if (other.file && other.file->out) {
                if (other.file->fresh) {
                    other.file->hashes.clear();
                }
                other.file->hashes.push_back(hash(name));
                other.file->out = other.file->fresh = false;
            }
        }
        break;
    case Kind::Undo:
        state.file->fresh ? state.file.reset() : static_cast<void>(state.file->out = false);
        break;
    case Kind::WriteCard:
        state.file->card = operation.number;
        break;
    case Kind::Delete:
        state.deleted.push_back(state.file->hashes);
        state.file.reset();
        break;
    case Kind::Purge:
        state.deleted.pop_back();
        break;
    }
}

VaultState StateOf(VaultStore& store)
{
    VaultState vault;
    const auto hashesOf = [&](int32_t file) {
        std::vector<std::string> hashes;
        for (const VersionRecord& version : store.Versions(file)) {
            EXPECT_EQ(version.number, static_cast<int32_t>(hashes.size()) + 1);
            hashes.push_back(version.content);
        }
        return hashes;
    };
    for (const char* name : kNames) {
        NameState& state = vault[name];
        if (const auto file = store.FindFile({"Out", name})) {
            state.file = NameState::File{hashesOf(file->id), file->checkOut.has_value(),
                                         file->checkOut && file->checkOut->fresh, 0};
            EXPECT_EQ(file->latestVersion, static_cast<int32_t>(state.file->hashes.size()));
            // Both configurations of the card are written together.
            const auto card = store.CardValues(file->id, file->latestVersion);
            if (!card.empty()) {
                EXPECT_EQ(card.size(), 2u);
                EXPECT_EQ(card.front().value, card.back().value);
                state.file->card = static_cast<int>(std::get<int64_t>(card.front().value.content));
            }
        }
    }
    auto deleted = store.DeletedFiles();
    std::sort(deleted.begin(), deleted.end(),
              [](const DeletedRecord& one, const DeletedRecord& other) { return one.file.id < other.file.id; });
    for (const DeletedRecord& row : deleted) {
        vault[row.file.name].deleted.push_back(hashesOf(row.file.id));
    }
    return vault;
}

/// The program that is killed. It writes into its journal what it begins, the steps of that, and what it has done.
class Worker
{
  public:
    Worker(const fs::path& root, int journalHandle, unsigned seed) : journal(journalHandle), random(seed)
    {
        StoreOptions options;
        options.session = kAnna;
        options.beforeWrite = [this](std::string_view step) { Tell("step " + std::string(step)); };
        store = VaultStore::Open(root, options);
        outside = root.parent_path() / "outside";
    }

    void Work(int operations)
    {
        const auto variable = store->FindCardVariable(kCardVariable);
        const int first = static_cast<int>(random() % 1'000'000'000);
        for (int number = first; number < first + operations; ++number) {
            const Operation operation{Kind::Import, kNames[random() % std::size(kNames)], number};
            Carry(Choose(operation), variable->id);
        }
    }

  private:
    void Tell(const std::string& line) const
    {
        const std::string whole = line + "\n";
        if (::write(journal, whole.data(), whole.size()) != static_cast<ssize_t>(whole.size())) {
            ::_exit(1);
        }
    }

    std::optional<FileRecord> Find(const std::string& name) { return store->FindFile({"Out", name}); }

    Operation Choose(Operation operation)
    {
        const auto file = Find(operation.name);
        const unsigned dice = random() % 4;
        if (!file) {
            const bool hasDeleted = store->FindDeleted({"Out", operation.name}).has_value();
            operation.kind = hasDeleted && dice == 0 ? Kind::Purge : dice == 1 ? Kind::Import : Kind::Add;
        } else if (file->checkOut) {
            operation.kind = dice == 0 ? Kind::Undo : Kind::CheckInAll;
        } else {
            constexpr Kind kKinds[] = {Kind::Import, Kind::CheckOut, Kind::WriteCard, Kind::Delete};
            operation.kind = kKinds[dice];
        }
        return operation;
    }

    std::vector<int32_t> WriteAllThatIsOut(int number)
    {
        std::vector<int32_t> files;
        for (const char* name : kNames) {
            if (const auto file = Find(name); file && file->checkOut) {
                WriteBytes(store->Root() / "Out" / name, ContentOf(name, number));
                files.push_back(file->id);
            }
        }
        return files;
    }

    void Carry(const Operation& operation, int32_t variable)
    {
        FileWork work(store);
        const auto file = Find(operation.name);
        const fs::path local = store->Root() / "Out" / operation.name;
        const std::string bytes = ContentOf(operation.name, operation.number);
        std::vector<int32_t> written;
        if (operation.kind == Kind::Import) {
            WriteBytes(outside / operation.name, bytes);
        } else if (operation.kind == Kind::Add) {
            // A killed deletion may have left its local copy, read-only.
            fs::create_directories(local.parent_path());
            fs::remove(local);
            WriteBytes(local, bytes);
        } else if (operation.kind == Kind::CheckInAll) {
            written = WriteAllThatIsOut(operation.number);
        }
        Tell("begin " + std::to_string(static_cast<int>(operation.kind)) + " " + operation.name + " " +
             std::to_string(operation.number));
        switch (operation.kind) {
        case Kind::Import:
            work.Import(outside / operation.name, {"Out"}, "");
            break;
        case Kind::Add:
            work.Add(local, store->MakeFolder({"Out"}));
            break;
        case Kind::CheckOut:
            work.CheckOut(file->id);
            break;
        case Kind::CheckInAll:
            for (const Outcome& outcome : work.CheckIn(written, "")) {
                ThrowIfFailed(outcome.code);
            }
            break;
        case Kind::Undo:
            work.UndoCheckOut(file->id);
            break;
        case Kind::WriteCard: {
            const StoredValue value = StoredValue::FromInt(operation.number);
            const CardWrite writes[] = {{file->id, variable, "", value}, {file->id, variable, "Default", value}};
            for (const Result result : store->WriteCards(writes)) {
                ThrowIfFailed(result);
            }
            break;
        }
        case Kind::Delete:
            work.Delete(file->id);
            break;
        case Kind::Purge:
            store->PurgeFile(store->FindDeleted({"Out", operation.name})->file.id);
            break;
        }
        Tell("done");
    }

    int journal;
    std::mt19937 random;
    std::shared_ptr<VaultStore> store;
    fs::path outside;
};

/// A worker in a process of its own, and what its journal tells.
class KilledWorker
{
  public:
    KilledWorker(const fs::path& root, unsigned seed)
    {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        const std::string program = fs::read_symlink("/proc/self/exe").string();
        const std::string vault = std::string(kVaultVariable) + "=" + root.string();
        const std::string handle = std::string(kJournalVariable) + "=" + std::to_string(ends[1]);
        const std::string number = std::string(kSeedVariable) + "=" + std::to_string(seed);
        const std::string scratch = "TMPDIR=" + root.parent_path().string();
        process = ::fork();
        if (process == 0) {
            ::close(ends[0]);
            ::execl("/usr/bin/env", "env", vault.c_str(), handle.c_str(), number.c_str(), scratch.c_str(),
                    program.c_str(), "--gtest_filter=KilledWriter.DoesWhatItReportsAsLongAsItLives", "--gtest_brief=1",
                    "--gtest_output=", static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(ends[1]);
        reader = ends[0];
    }
    KilledWorker(const KilledWorker&) = delete;
    KilledWorker& operator=(const KilledWorker&) = delete;
    ~KilledWorker() { ::close(reader); }

    /// Kills the worker when it has told that many lines and a moment more has passed. Counted in lines, because how
    /// far a worker gets in a time is another thing on each machine.
    void KillAfter(int lines, std::chrono::microseconds moment)
    {
        while (std::count(journal.begin(), journal.end(), '\n') <= lines && Read()) {
        }
        std::this_thread::sleep_for(moment);
        ::kill(process, SIGKILL);
        int status = 0;
        ::waitpid(process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "The worker ended by itself: " << journal;
        while (Read()) {
        }
    }

    const std::string& Journal() const { return journal; }

  private:
    /// False at the journal's end.
    bool Read()
    {
        char buffer[4096];
        const ssize_t count = ::read(reader, buffer, sizeof buffer);
        journal.append(buffer, count > 0 ? static_cast<size_t>(count) : 0);
        return count > 0;
    }

    pid_t process = 0;
    int reader = -1;
    std::string journal;
};

class KilledWriter : public DiskWorld
{
  protected:
    /// Carries out what the journal reports done. What was begun last, if it wasn't done, is given back.
    static std::optional<Operation> Follow(const std::string& journal, VaultState& vault, std::string& lastStep)
    {
        std::optional<Operation> open;
        std::istringstream lines(journal);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string word;
            words >> word;
            if (word == "begin") {
                int kind = 0;
                open.emplace();
                words >> kind >> open->name >> open->number;
                open->kind = static_cast<Kind>(kind);
                lastStep.clear();
            } else if (word == "step") {
                lastStep = line.substr(5);
            } else if (word == "done") {
                Apply(*open, vault);
                open.reset();
            } else {
                ADD_FAILURE() << "The worker says: " << line;
            }
        }
        return open;
    }

    static size_t CountOf(const fs::path& folder)
    {
        return static_cast<size_t>(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    void ExpectTemporariesToGoAfterADay() const
    {
        const fs::path folder = Root() / ".quellor" / "temp";
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - std::chrono::hours(25));
        }
        VaultStore::Open(Root(), OptionsOf(kAnna));
        EXPECT_EQ(CountOf(folder), 0u);
    }

    void MakeVault()
    {
        const Disk disk({});
        std::error_code error;
        for (const auto& entry : fs::recursive_directory_iterator(Root(), error)) {
            if (entry.is_regular_file()) {
                disk.SetReadOnly(entry.path(), false);
            }
        }
        fs::remove_all(Root());
        fs::create_directories(Folder("outside"));
        Make()->MakeCardVariable(kCardVariable);
    }
};

/// By itself this is a worker that is let live; started by the other test, it works on that test's vault until it is
/// killed.
TEST_F(KilledWriter, DoesWhatItReportsAsLongAsItLives)
{
    const char* root = std::getenv(kVaultVariable);
    const char* journal = std::getenv(kJournalVariable);
    const char* seed = std::getenv(kSeedVariable);
    if (root != nullptr && journal != nullptr && seed != nullptr) {
        const Result code = CodeOf(
            [&] { Worker(PathOf(root), std::atoi(journal), static_cast<unsigned>(std::atoi(seed))).Work(1'000'000); });
        dprintf(std::atoi(journal), "error 0x%08X\n", static_cast<unsigned>(code));
        ::_exit(1);
    }
    MakeVault();
    VaultState promised = StateOf(*OpenAs(kAnna));
    const fs::path told = Write("journal", "");
    const int handle = ::open(told.c_str(), O_WRONLY | O_CLOEXEC);
    Worker(Root(), handle, 1).Work(100);
    ::close(handle);
    std::string lastStep;
    EXPECT_FALSE(Follow(BytesOf(told), promised, lastStep));
    EXPECT_TRUE(StateOf(*OpenAs(kAnna)) == promised);
}

TEST_F(KilledWriter, LosesNothingThatItReportedAndLeavesNothingHalfDone)
{
    const char* given = std::getenv("TV_KILL_SEED");
    const unsigned seed =
        given != nullptr ? static_cast<unsigned>(std::atoi(given)) : std::random_device{}() % 1'000'000;
    std::cout << "seed " << seed << " (TV_KILL_SEED=" << seed << " begins with it again)\n";
    std::mt19937 random(seed);
    VaultState promised;
    std::map<std::string, int> killsByStep;
    int insideWrites = 0;
    int happened = 0;
    size_t temporaries = 0;
    for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
        if (kill % kKillsOfOneVault == 0) {
            MakeVault();
            promised = StateOf(*OpenAs(kAnna));
        }
        const int lines = static_cast<int>(random() % kMostLines);
        const auto moment = std::chrono::microseconds(random() % kLongestWait.count());
        KilledWorker worker(Root(), static_cast<unsigned>(random() % 1'000'000));
        worker.KillAfter(lines, moment);
        VaultState before = promised;
        std::string lastStep;
        const auto open = Follow(worker.Journal(), before, lastStep);
        VaultState after = before;
        if (open) {
            Apply(*open, after);
        }
        const auto store = OpenAs(kAnna);
        EXPECT_EQ(CodeOf([&] { store->Verify(); }), 0) << "kill " << kill << " after " << lastStep;
        promised = StateOf(*store);
        EXPECT_TRUE(promised == before || promised == after)
            << "kill " << kill << " in operation " << (open ? static_cast<int>(open->kind) : -1) << " on "
            << (open ? open->name : "nothing") << " after the step '" << lastStep << "'";
        const bool inside = open && !lastStep.empty();
        insideWrites += inside ? 1 : 0;
        happened += inside && promised == after ? 1 : 0;
        killsByStep[inside ? lastStep : "(between operations)"]++;
        temporaries = std::max(temporaries, CountOf(Root() / ".quellor" / "temp"));
        if (kill % kKillsOfOneVault == kKillsOfOneVault - 1) {
            ExpectTemporariesToGoAfterADay();
        }
    }
    std::cout << kKills << " kills, " << insideWrites << " inside a write; of those " << happened
              << " left the operation done; at most " << temporaries << " temporary files were left\n";
    for (const auto& [step, count] : killsByStep) {
        std::cout << "  after '" << step << "': " << count << "\n";
    }
    EXPECT_GT(insideWrites, kKills / 10);
}

} // namespace

} // namespace tv::local
