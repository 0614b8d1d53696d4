#include "server/child_job.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <new>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define TV_ADDRESS_SPACE_IS_LIMITED 0 // the sanitizer maps terabytes that it never touches
#else
#define TV_ADDRESS_SPACE_IS_LIMITED 1
#endif

namespace tv::kernel {

namespace {

using Clock = std::chrono::steady_clock;

/// How often a running child's memory is looked at.
constexpr int kGlanceMilliseconds = 20;

/// What a child says with its exit code when the memory ran out.
constexpr int kExitOutOfMemory = 117;

/// Address space that isn't memory in use: libraries, stacks, what the allocator sets aside.
constexpr uint64_t kAddressSpaceAllowance = uint64_t{1} << 30;

class File
{
  public:
    explicit File(int descriptor) : fd(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { reset(); }
    int get() const { return fd; }
    void reset()
    {
        if (fd >= 0) {
            close(fd);
            fd = -1;
        }
    }

  private:
    int fd;
};

void SetLimit(decltype(RLIMIT_AS) resource, uint64_t value)
{
    const rlimit limit{value, value};
    setrlimit(resource, &limit);
}

void LimitChild(const Limits& limits)
{
    SetLimit(RLIMIT_CORE, 0);
    // The parent watches the clock; this is for a child whose parent is gone.
    SetLimit(RLIMIT_CPU, static_cast<uint64_t>(limits.time.count()) / 1000 * 2 + 2);
    if (TV_ADDRESS_SPACE_IS_LIMITED) {
        SetLimit(RLIMIT_AS, limits.memoryBytes + kAddressSpaceAllowance);
    }
}

void SilenceOutput()
{
    const int nothing = open("/dev/null", O_RDWR | O_CLOEXEC);
    dup2(nothing, STDIN_FILENO);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
}

bool WriteAll(int fd, const std::string& text)
{
    size_t written = 0;
    while (written < text.size()) {
        const ssize_t now = write(fd, text.data() + written, text.size() - written);
        if (now < 0 && errno != EINTR) {
            return false;
        }
        written += now > 0 ? static_cast<size_t>(now) : 0;
    }
    return true;
}

[[noreturn]] void BeChild(const std::function<std::string()>& work, const Limits& limits, pid_t parent, int pipe)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) {
        _exit(EXIT_FAILURE);
    }
    SilenceOutput();
    LimitChild(limits);
    std::set_new_handler([] { _exit(kExitOutOfMemory); });
    // Destructors of the library's statics take long and may crash: the result is out, and the system cleans up.
    _exit(WriteAll(pipe, work()) ? EXIT_SUCCESS : EXIT_FAILURE);
}

uint64_t MemoryOf(pid_t child)
{
    std::ifstream statm("/proc/" + std::to_string(child) + "/statm");
    uint64_t total = 0;
    uint64_t resident = 0;
    statm >> total >> resident;
    return resident * static_cast<uint64_t>(sysconf(_SC_PAGESIZE));
}

bool IsClosed(int socket)
{
    char byte = 0;
    const ssize_t seen = recv(socket, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return seen == 0 || (seen < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR);
}

enum class Ending
{
    ByItself,
    TooLong,
    TooMuchMemory,
    NobodyWaits,
};

/// Reads what the child writes until it ends, or until there is a reason to end it.
Ending Follow(pid_t child, int pipe, const Limits& limits, int watchedFd, std::string& output)
{
    const auto deadline = Clock::now() + limits.time;
    while (true) {
        pollfd waiting[] = {{pipe, POLLIN, 0}, {watchedFd, POLLIN, 0}};
        poll(waiting, watchedFd == kNobodyWatches ? 1 : 2, kGlanceMilliseconds);
        if (waiting[0].revents) {
            char bytes[65536];
            const ssize_t count = read(pipe, bytes, sizeof bytes);
            if (count == 0) {
                return Ending::ByItself;
            }
            output.append(bytes, static_cast<size_t>(std::max<ssize_t>(count, 0)));
        }
        if (watchedFd != kNobodyWatches && waiting[1].revents && IsClosed(watchedFd)) {
            return Ending::NobodyWaits;
        }
        if (Clock::now() >= deadline) {
            return Ending::TooLong;
        }
        if (MemoryOf(child) > limits.memoryBytes) {
            return Ending::TooMuchMemory;
        }
    }
}

int Reap(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

Error TimedOut(const std::string& subject, const Limits& limits)
{
    return {ErrorCode::TimedOut, "\"" + subject + "\": the job was ended at its time limit of " +
                                     std::to_string(limits.time.count()) + " ms."};
}

Error OutOfMemory(const std::string& subject, const Limits& limits)
{
    return {ErrorCode::OutOfMemory, "\"" + subject + "\": the job was ended at its memory limit of " +
                                        std::to_string(limits.memoryBytes >> 20) + " MB."};
}

Outcome<std::string> ResultOf(int status, std::string output, const std::string& subject, const Limits& limits)
{
    if (WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS) {
        return output;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == kExitOutOfMemory) {
        return OutOfMemory(subject, limits);
    }
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU) {
        return TimedOut(subject, limits);
    }
    const std::string how = WIFSIGNALED(status) ? std::string(" (") + strsignal(WTERMSIG(status)) + ")" : "";
    return Error{ErrorCode::Crashed,
                 "\"" + subject + "\": the geometry library crashed" + how + "; the file may be damaged."};
}

} // namespace

std::optional<Outcome<std::string>> RunInChild(const std::function<std::string()>& work, const Limits& limits,
                                               const std::string& subject, int watchedFd)
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return Error{ErrorCode::Failed, "\"" + subject + "\": no pipe for the job could be made."};
    }
    const File reading(ends[0]);
    File writing(ends[1]);
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child == 0) {
        BeChild(work, limits, parent, writing.get());
    }
    writing.reset();
    if (child < 0) {
        return Error{ErrorCode::Failed, "\"" + subject + "\": no process for the job could be started."};
    }
    setpgid(child, child); // also here, so that the group exists whoever comes first
    std::string output;
    const Ending ending = Follow(child, reading.get(), limits, watchedFd, output);
    if (ending != Ending::ByItself) {
        kill(-child, SIGKILL);
    }
    const int status = Reap(child);
    switch (ending) {
    case Ending::NobodyWaits:
        return std::nullopt;
    case Ending::TooLong:
        return TimedOut(subject, limits);
    case Ending::TooMuchMemory:
        return OutOfMemory(subject, limits);
    case Ending::ByItself:
        break;
    }
    return ResultOf(status, std::move(output), subject, limits);
}

} // namespace tv::kernel
