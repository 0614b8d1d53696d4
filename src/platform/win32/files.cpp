#include "platform/win32/files.h"

#include "platform/win32/handle.h"

namespace tv::win32 {

namespace {

class Win32OutputFile final : public OutputFile
{
  public:
    enum class Mode
    {
        Binary,
        Text
    };

    Win32OutputFile(Handle opened, std::u16string fullPath, Mode writingMode)
        : file(std::move(opened)), path(std::move(fullPath)), mode(writingMode)
    {}

    uint32_t Write(std::span<const char> bytes) override
    {
        return mode == Mode::Binary ? WriteAll(bytes) : WriteAll(WithCarriageReturns(bytes));
    }

    std::u16string Path() const override { return path; }

  private:
    static std::string WithCarriageReturns(std::span<const char> bytes)
    {
        std::string text;
        text.reserve(bytes.size());
        for (char byte : bytes) {
            if (byte == '\n') {
                text += '\r';
            }
            text += byte;
        }
        return text;
    }

    uint32_t WriteAll(std::span<const char> bytes)
    {
        constexpr size_t kLargestPiece = 1u << 30;
        while (!bytes.empty()) {
            const size_t piece = std::min(bytes.size(), kLargestPiece);
            DWORD written = 0;
            if (::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(piece), &written, nullptr) == FALSE) {
                return ::GetLastError();
            }
            if (written == 0) {
                return ERROR_DISK_FULL;
            }
            bytes = bytes.subspan(written);
        }
        return ERROR_SUCCESS;
    }

    Handle file;
    std::u16string path;
    Mode mode;
};

std::u16string FullPath(std::u16string_view path)
{
    const ZeroTerminated given(path);
    const DWORD size = ::GetFullPathNameW(given, 0, nullptr, nullptr);
    std::u16string full(size, u'\0');
    full.resize(::GetFullPathNameW(given, size, AsWide(full.data()), nullptr));
    return full;
}

} // namespace

bool Win32Files::FileExists(std::u16string_view path)
{
    const DWORD attributes = ::GetFileAttributesW(ZeroTerminated(path));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

uint32_t Win32Files::ClearReadOnly(std::u16string_view path)
{
    const ZeroTerminated name(path);
    const DWORD attributes = ::GetFileAttributesW(name);
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return ::GetLastError();
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) == 0) {
        return ERROR_SUCCESS;
    }
    const DWORD rest = attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    return ErrorUnless(::SetFileAttributesW(name, rest == 0 ? FILE_ATTRIBUTE_NORMAL : rest));
}

uint32_t Win32Files::DeleteFile(std::u16string_view path)
{
    return ErrorUnless(::DeleteFileW(ZeroTerminated(path)));
}

uint32_t Win32Files::MoveFile(std::u16string_view from, std::u16string_view to)
{
    return ErrorUnless(::MoveFileW(ZeroTerminated(from), ZeroTerminated(to)));
}

uint32_t Win32Files::CopyFile(std::u16string_view from, std::u16string_view to)
{
    return ErrorUnless(::CopyFileW(ZeroTerminated(from), ZeroTerminated(to), FALSE));
}

uint32_t Win32Files::CreateDirectory(std::u16string_view path)
{
    return ErrorUnless(::CreateDirectoryW(ZeroTerminated(path), nullptr));
}

std::unique_ptr<OutputFile> Win32Files::OpenForAppend(std::u16string_view path)
{
    // The macro appends to the same file while the component lives, so others may read and write it.
    Handle file(::CreateFileW(ZeroTerminated(path), FILE_APPEND_DATA | SYNCHRONIZE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return nullptr;
    }
    return std::make_unique<Win32OutputFile>(std::move(file), FullPath(path), Win32OutputFile::Mode::Text);
}

uint32_t Win32Files::CreateTemporaryFile(std::u16string_view prefix, std::unique_ptr<OutputFile>& file)
{
    char16_t folder[MAX_PATH + 1];
    const DWORD length = ::GetTempPathW(MAX_PATH + 1, AsWide(folder));
    if (length == 0 || length > MAX_PATH) {
        return length == 0 ? ::GetLastError() : ERROR_BUFFER_OVERFLOW;
    }
    char16_t path[MAX_PATH];
    if (::GetTempFileNameW(AsWide(folder), ZeroTerminated(prefix), 0, AsWide(path)) == 0) {
        return ::GetLastError();
    }
    // The name was made unique by an empty file, which the new one takes the place of.
    Handle created(::CreateFileW(AsWide(path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                 FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED, nullptr));
    if (!created) {
        const DWORD error = ::GetLastError();
        ::DeleteFileW(AsWide(path));
        return error;
    }
    file = std::make_unique<Win32OutputFile>(std::move(created), path, Win32OutputFile::Mode::Binary);
    return ERROR_SUCCESS;
}

std::string Win32Files::NarrowText(std::u16string_view text)
{
    if (text.empty()) {
        return {};
    }
    // A look-alike letter would be a wrong name, so the best fit is not wanted. UTF-8 fits always and refuses the flag.
    const DWORD flags = ::GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const auto* wide = reinterpret_cast<const wchar_t*>(text.data());
    const int length = static_cast<int>(text.size());
    const int size = ::WideCharToMultiByte(CP_ACP, flags, wide, length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, flags, wide, length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

} // namespace tv::win32
