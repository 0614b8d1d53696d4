// MadeWindows: a second process with windows as a test wants them, and what it tells of the messages that reach them.
#pragma once

#include "com/base.h"
#include "platform/win32/handle.h"

#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace tv {

enum class WindowStyle
{
    Overlapped,
    Hidden, ///< overlapped and never shown
    Minimized,
    Popup,
    Child,     ///< of the window that is given as the owner
    MessageBox ///< the system's, with the buttons OK and Cancel
};

/// What becomes of a window when a key was let go in it or it was asked to close.
enum class AfterAnswer
{
    Stay,
    Go,
    ComeAgain ///< a new window of the same description takes its place
};

struct WantedWindow
{
    std::string name;  ///< one word; the reports call it so
    std::string title; ///< in UTF-8
    WindowStyle style = WindowStyle::Overlapped;
    std::string owner = "-"; ///< name of a window before it
    AfterAnswer after = AfterAnswer::Stay;
    std::string windowClass = "WatchedWindow";
};

/// The windows stand from the construction to the destruction, which ends the process. The first one stands below all
/// others on the desktop. A process that can't be had fails the test that asks for it.
class MadeWindows
{
  public:
    explicit MadeWindows(const std::vector<WantedWindow>& windows = {});
    MadeWindows(const MadeWindows&) = delete;
    MadeWindows& operator=(const MadeWindows&) = delete;
    ~MadeWindows();

    uint32_t ProcessId() const { return processId; }
    void Make(const WantedWindow& window);

    /// Waits until a line has been reported that often, a minute at most.
    bool Await(const std::string& line, size_t times = 1);
    /// All lines, those of every message included that was posted before the call.
    std::vector<std::string> Lines();
    /// What was reported of one window since it was made, without its name.
    std::vector<std::string> ReportsOf(const std::string& name);

  private:
    void Start(const std::wstring& commandLine, HANDLE input, HANDLE output);
    void Send(const std::string& request);
    void ReadReports();
    std::vector<std::string> LinesSoFar();

    win32::Handle process;
    win32::Handle requests;
    win32::Handle reports;
    std::thread reader;
    std::mutex lock;
    std::string reported;
    uint32_t processId = 0;
    int syncs = 0;
};

} // namespace tv
