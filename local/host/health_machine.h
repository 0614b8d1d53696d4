// What "tvtask doctor" asks of the machine. Nothing here changes anything, but for a file that is written to see
// whether it can be, and that goes again.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tv::local {

enum class RegistryRoot
{
    User,
    Machine,
};

/// A 64-bit program that chooses no view has the 64-bit one.
enum class RegistryView
{
    Bits64,
    Bits32,
};

struct RegistryKey
{
    RegistryRoot root = RegistryRoot::Machine;
    std::string path;
    RegistryView view = RegistryView::Bits64;
};

enum class RegistryType
{
    Text,
    ExpandableText,
    Number,
    BigEndianNumber,
    Other,
};

struct RegistryValue
{
    RegistryType type = RegistryType::Text;
    /// Of a text, as it is stored.
    std::string text = {};
    /// Of a number of four bytes, in the order of the machine whatever its type.
    uint32_t number = 0;
};

enum class ProgramKind
{
    Missing,
    NoProgram,
    Bits32,
    Bits64,
};

/// Empty when it went well, or else a clause that says why it didn't.
using Trouble = std::optional<std::string>;

enum class ListenerState
{
    None,
    Answers,
    /// It took a message and gave no answer in time.
    Silent,
    /// Another sender has waited for it the whole time.
    KeepsSenderWaiting,
    /// The pipe is there and nobody takes a message from it.
    Busy,
};

struct Listener
{
    ListenerState state = ListenerState::None;
    /// The listener's process; 0 where the system doesn't tell.
    int32_t process = 0;
};

struct Printer
{
    std::string name;
    bool isDefault = false;
};

struct RunningProcess
{
    int32_t id = 0;
    /// The process that started it still lives.
    bool hasParent = true;
};

struct FoundFile
{
    std::string path;
    std::chrono::seconds age{};
};

enum class FolderState
{
    Writable,
    Missing,
    NoFolder,
    Refused,
    Full,
};

class HealthMachine
{
  public:
    virtual ~HealthMachine() = default;

    /// Whether the system has a registry, components, printers and the CAD application. Without, those that are asked
    /// below have nothing.
    virtual bool HasComponents() const = 0;

    virtual bool HasKey(const RegistryKey& key) = 0;
    /// An empty name is the key's own value.
    virtual std::optional<RegistryValue> ReadValue(const RegistryKey& key, std::string_view name) = 0;
    virtual std::vector<std::string> SubKeys(const RegistryKey& key) = 0;

    virtual ProgramKind LookAtProgram(const std::string& path) = 0;
    /// Loads a component's library into this process and lets it go again.
    virtual Trouble LoadLibraryFile(const std::string& path) = 0;

    /// Sends a listener the notification of no file, in its turn among the senders, and waits for the answer.
    virtual Listener AskListener(std::chrono::milliseconds patience) = 0;
    virtual std::vector<Printer> Printers() = 0;
    /// Processes of the CAD application.
    virtual std::vector<RunningProcess> Applications() = 0;

    /// The geometry kernel that an application in that folder would start; empty when there is none.
    virtual std::string KernelProgram(const std::string& applicationFolder) = 0;
    /// Starts the kernel, waits until it has answered, and ends it.
    virtual Trouble TryKernel(const std::string& applicationFolder) = 0;

    virtual FolderState TryFolder(const std::string& path) = 0;
    virtual bool FileExists(const std::string& path) = 0;
    /// Empty when the system doesn't tell.
    virtual std::optional<uint64_t> FreeBytes(const std::string& path) = 0;
    /// Files right in a folder whose names begin and end so, whatever the case.
    virtual std::vector<FoundFile> Files(const std::string& folder, std::string_view begin, std::string_view end) = 0;
    /// Both without a separator at the end.
    virtual std::string TemporaryFolder() = 0;
    virtual std::string ProgramFolder() = 0;
    /// Replaces %NAME% by the environment's values.
    virtual std::string Expand(const std::string& text) = 0;
};

std::unique_ptr<HealthMachine> MakeHealthMachine();

} // namespace tv::local
