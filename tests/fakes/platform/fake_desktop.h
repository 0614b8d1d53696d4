// FakeDesktop: a stack of windows that belong to processes.
#pragma once

#include "fakes/platform/call_log.h"
#include "platform/desktop_service.h"

#include <functional>
#include <mutex>

namespace tv::fakes {

struct PostedMessage
{
    WindowHandle window;
    uint32_t message;
    uintptr_t first;
    intptr_t second;
    friend bool operator==(const PostedMessage&, const PostedMessage&) = default;
};

struct ShownMode
{
    WindowHandle window;
    int32_t mode;
    friend bool operator==(const ShownMode&, const ShownMode&) = default;
};

class FakeDesktop final : public DesktopService
{
  public:
    explicit FakeDesktop(CallLog& callLog) : log(callLog) {}

    WindowHandle TopWindow() override;
    WindowHandle NextWindow(WindowHandle window) override;
    uint32_t ProcessOf(WindowHandle window) override;
    std::u16string TitleOf(WindowHandle window) override;
    WindowHandle ParentOf(WindowHandle window) override;
    void Post(WindowHandle window, uint32_t message, uintptr_t first, intptr_t second) override;
    void ShowWindow(WindowHandle window, int32_t mode) override;
    bool IsWindow(WindowHandle window) override;

    /// Opens a window below all others. A title may be longer than the service tells.
    WindowHandle AddWindow(uint32_t processId, std::u16string title, WindowHandle parent = 0);
    void CloseWindow(WindowHandle window);
    void CloseWindowsOf(uint32_t processId);
    /// Called for each posted message, so that a dialog can close when it gets its key.
    void OnPost(std::function<void(const PostedMessage&)> listener);

    std::vector<PostedMessage> Posted() const;
    std::vector<ShownMode> Shown() const;

  private:
    struct Window
    {
        WindowHandle handle;
        uint32_t processId;
        std::u16string title;
        WindowHandle parent;
    };

    const Window* Find(WindowHandle window) const;

    CallLog& log;
    mutable std::mutex lock;
    std::vector<Window> windows;
    std::vector<PostedMessage> posted;
    std::vector<ShownMode> shown;
    std::function<void(const PostedMessage&)> onPost;
    WindowHandle lastHandle = 0x10000;
};

} // namespace tv::fakes
