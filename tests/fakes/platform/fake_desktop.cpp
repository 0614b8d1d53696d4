#include "fakes/platform/fake_desktop.h"

#include <algorithm>

namespace tv::fakes {

const FakeDesktop::Window* FakeDesktop::Find(WindowHandle window) const
{
    const auto found =
        std::find_if(windows.begin(), windows.end(), [&](const Window& row) { return row.handle == window; });
    return found == windows.end() ? nullptr : &*found;
}

WindowHandle FakeDesktop::TopWindow()
{
    const std::lock_guard guard(lock);
    return windows.empty() ? 0 : windows.front().handle;
}

WindowHandle FakeDesktop::NextWindow(WindowHandle window)
{
    const std::lock_guard guard(lock);
    const Window* row = Find(window);
    return row == nullptr || row == &windows.back() ? 0 : row[1].handle;
}

uint32_t FakeDesktop::ProcessOf(WindowHandle window)
{
    const std::lock_guard guard(lock);
    const Window* row = Find(window);
    return row == nullptr ? 0 : row->processId;
}

std::u16string FakeDesktop::TitleOf(WindowHandle window)
{
    constexpr size_t kLongestTitle = 259;
    const std::lock_guard guard(lock);
    const Window* row = Find(window);
    return row == nullptr ? std::u16string() : row->title.substr(0, kLongestTitle);
}

WindowHandle FakeDesktop::ParentOf(WindowHandle window)
{
    const std::lock_guard guard(lock);
    const Window* row = Find(window);
    return row == nullptr ? 0 : row->parent;
}

void FakeDesktop::Post(WindowHandle window, uint32_t message, uintptr_t first, intptr_t second)
{
    const PostedMessage sent{window, message, first, second};
    std::function<void(const PostedMessage&)> listener;
    log.Note("desktop.Post");
    {
        const std::lock_guard guard(lock);
        if (Find(window) == nullptr) {
            return;
        }
        posted.push_back(sent);
        listener = onPost;
    }
    if (listener) {
        listener(sent);
    }
}

void FakeDesktop::ShowWindow(WindowHandle window, int32_t mode)
{
    log.Note("desktop.ShowWindow");
    const std::lock_guard guard(lock);
    shown.push_back({window, mode});
}

bool FakeDesktop::IsWindow(WindowHandle window)
{
    const std::lock_guard guard(lock);
    return Find(window) != nullptr;
}

WindowHandle FakeDesktop::AddWindow(uint32_t processId, std::u16string title, WindowHandle parent)
{
    const std::lock_guard guard(lock);
    windows.push_back({++lastHandle, processId, std::move(title), parent});
    return lastHandle;
}

void FakeDesktop::CloseWindow(WindowHandle window)
{
    const std::lock_guard guard(lock);
    std::erase_if(windows, [&](const Window& row) { return row.handle == window; });
}

void FakeDesktop::CloseWindowsOf(uint32_t processId)
{
    const std::lock_guard guard(lock);
    std::erase_if(windows, [&](const Window& row) { return row.processId == processId; });
}

void FakeDesktop::OnPost(std::function<void(const PostedMessage&)> listener)
{
    const std::lock_guard guard(lock);
    onPost = std::move(listener);
}

std::vector<PostedMessage> FakeDesktop::Posted() const
{
    const std::lock_guard guard(lock);
    return posted;
}

std::vector<ShownMode> FakeDesktop::Shown() const
{
    const std::lock_guard guard(lock);
    return shown;
}

} // namespace tv::fakes
