#include "platform/win32/module.h"

#include "platform/win32/handle.h"

namespace tv::win32 {

ScriptResource Win32Module::ReadScript(int32_t id)
{
    const HRSRC place = ::FindResourceW(instance, MAKEINTRESOURCEW(id), L"Script");
    if (place == nullptr) {
        return {{}, ResourceFailure::NotFound};
    }
    const DWORD size = ::SizeofResource(instance, place);
    if (size == 0) {
        return {{}, ResourceFailure::NoSize};
    }
    const HGLOBAL loaded = ::LoadResource(instance, place);
    if (loaded == nullptr) {
        return {{}, ResourceFailure::NotLoaded};
    }
    const auto* bytes = static_cast<const char*>(::LockResource(loaded));
    if (bytes == nullptr) {
        return {{}, ResourceFailure::NotLocked};
    }
    return {std::string(bytes, size), std::nullopt};
}

std::optional<std::u16string> Win32Module::ReadString(int32_t id)
{
    // Without a buffer the function lends the text itself, and says its length.
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(instance, static_cast<UINT>(id), reinterpret_cast<wchar_t*>(&text), 0);
    if (length <= 0 || text == nullptr) {
        return std::nullopt;
    }
    return std::u16string(reinterpret_cast<const char16_t*>(text), static_cast<size_t>(length));
}

std::u16string Win32Module::WideText(std::string_view bytes)
{
    if (bytes.empty()) {
        return {};
    }
    const int length = static_cast<int>(bytes.size());
    const int size = ::MultiByteToWideChar(CP_THREAD_ACP, 0, bytes.data(), length, nullptr, 0);
    std::u16string text(static_cast<size_t>(size), u'\0');
    ::MultiByteToWideChar(CP_THREAD_ACP, 0, bytes.data(), length, AsWide(text.data()), size);
    return text;
}

void Win32Module::ShowMessage(std::u16string_view text)
{
    ::MessageBoxW(::GetActiveWindow(), ZeroTerminated(text), nullptr, MB_OK | MB_ICONEXCLAMATION);
}

} // namespace tv::win32
