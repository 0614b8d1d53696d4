#include "host/health_machine.h"

#include "host/health_files.h"
#include "vault/disk.h"

#include "client/kernel_client.h"

#include <csignal>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace tv::local {

namespace {

namespace fs = std::filesystem;

/// Folders and the geometry kernel. The rest is Windows' alone.
class PosixHealth final : public HealthMachine
{
  public:
    bool HasComponents() const override { return false; }
    bool HasKey(const RegistryKey&) override { return false; }
    std::optional<RegistryValue> ReadValue(const RegistryKey&, std::string_view) override { return std::nullopt; }
    std::vector<std::string> SubKeys(const RegistryKey&) override { return {}; }
    ProgramKind LookAtProgram(const std::string&) override { return ProgramKind::Missing; }
    Trouble LoadLibraryFile(const std::string&) override { return "components are Windows' alone"; }
    Listener AskListener(std::chrono::milliseconds) override { return {}; }
    std::vector<Printer> Printers() override { return {}; }
    std::vector<RunningProcess> Applications() override { return {}; }

    std::string KernelProgram(const std::string& applicationFolder) override
    {
        if (const char* named = std::getenv("TVKERNEL"); named != nullptr && *named != '\0') {
            return named;
        }
        const fs::path beside = PathOf(applicationFolder) / "tvkernel";
        return Disk::IsFile(beside) ? TextOf(beside) : std::string();
    }

    Trouble TryKernel(const std::string& applicationFolder) override
    {
        const std::string program = KernelProgram(applicationFolder);
        bool started = false;
        pid_t process = 0;
        kernel::KernelClientSettings settings;
        settings.start = [&](const std::vector<std::string>& arguments) {
            std::vector<char*> words{const_cast<char*>(program.c_str())};
            for (const std::string& argument : arguments) {
                words.push_back(const_cast<char*>(argument.c_str()));
            }
            words.push_back(nullptr);
            started = posix_spawn(&process, program.c_str(), nullptr, nullptr, words.data(), environ) == 0;
            return started;
        };
        Trouble trouble;
        {
            kernel::KernelClient client(std::move(settings));
            if (!client.Start()) {
                trouble = started ? "was started and didn't answer" : "can't be started";
            }
        }
        if (started) {
            // It ends with its connection; one that never connected is ended.
            if (trouble) {
                ::kill(process, SIGKILL);
            }
            ::waitpid(process, nullptr, 0);
        }
        return trouble;
    }

    FolderState TryFolder(const std::string& path) override { return TryFolderByFile(path); }
    bool FileExists(const std::string& path) override { return Disk::IsFile(PathOf(path)); }
    std::optional<uint64_t> FreeBytes(const std::string& path) override { return FreeBytesOf(path); }

    std::vector<FoundFile> Files(const std::string& folder, std::string_view begin, std::string_view end) override
    {
        return FilesBetween(folder, begin, end);
    }

    std::string TemporaryFolder() override
    {
        std::error_code error;
        const fs::path folder = fs::temp_directory_path(error);
        return error ? "/tmp" : TextOf(folder);
    }

    std::string ProgramFolder() override
    {
        std::error_code error;
        return TextOf(fs::read_symlink("/proc/self/exe", error).parent_path());
    }

    std::string Expand(const std::string& text) override { return text; }
};

} // namespace

std::unique_ptr<HealthMachine> MakeHealthMachine()
{
    return std::make_unique<PosixHealth>();
}

} // namespace tv::local
