// The application's side of the geometry kernel. KernelClient starts the kernel when a job first needs it, keeps it for
// the jobs that follow, and starts a new one when it has died. Nothing throws: a job gives its result or an Error.
//
//     KernelClient kernel({.start = [](const std::vector<std::string>& arguments) { return Spawn(kTvkernel, arguments);
//     }}); auto saved = kernel.Save({.source = {.path = "/tmp/a.tvnprt"}, .target = "/tmp/a.step"}); if (!saved)
//     Report(saved.error().code, saved.error().message);
#pragma once

#include "protocol/errors.h"
#include "protocol/jobs.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tv::kernel {

struct KernelClientSettings
{
    /// Starts `tvkernel` with these arguments and returns at once; false when it can't be started. No handle is wanted:
    /// the kernel connects back, proves itself by the token, and ends when the connection does.
    std::function<bool(const std::vector<std::string>& arguments)> start;

    /// How long a started kernel may take to connect.
    std::chrono::milliseconds connectWithin{std::chrono::seconds(20)};

    /// How much longer than a job's own time limit the reply is waited for. The kernel ends a job at its limit; this is
    /// for a kernel that hangs itself.
    std::chrono::milliseconds grace{std::chrono::seconds(10)};
};

/// One kernel, one job at a time. Calls block; use it from one thread.
class KernelClient
{
  public:
    explicit KernelClient(KernelClientSettings settings);
    ~KernelClient(); // closes the connection, and with it ends the kernel
    KernelClient(KernelClient&&) noexcept;
    KernelClient& operator=(KernelClient&&) noexcept;

    Outcome<Inspection> Inspect(const InspectJob& job);
    Outcome<Saved> Save(const SaveJob& job);

    /// Starts the kernel if it isn't running, so that the first job needn't wait for it.
    bool Start();

    /// Whether a kernel is connected, as far as can be seen without asking it.
    bool IsConnected();

    /// Ends the kernel. The next job starts a new one.
    void Close();

  private:
    class Connection;
    std::unique_ptr<Connection> connection;
};

} // namespace tv::kernel
