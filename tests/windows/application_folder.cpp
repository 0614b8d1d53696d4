#include "application_folder.h"

#include "com/base.h"

#include <fstream>

namespace tv {

namespace {

constexpr wchar_t kTranscriptVariable[] = L"TORVANE_TRANSCRIPT";
constexpr wchar_t kFaultsVariable[] = L"TORVANE_FAULTS";
constexpr wchar_t kCounterVariable[] = L"TORVANE_FAULT_COUNTER";

std::filesystem::path TranscriptPath(const std::filesystem::path& folder)
{
    return folder / L"transcript.txt";
}

} // namespace

ApplicationFolder::ApplicationFolder()
    : folder(std::filesystem::temp_directory_path() / (L"torvane_" + std::to_wstring(GetCurrentProcessId())))
{
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    SetVariable(L"TMP", folder.c_str());
    SetVariable(L"TEMP", folder.c_str());
    SetVariable(kTranscriptVariable, TranscriptPath(folder).c_str());
    SetVariable(kFaultsVariable, nullptr);
    SetVariable(kCounterVariable, nullptr);
}

ApplicationFolder::~ApplicationFolder()
{
    for (const Saved& variable : variables) {
        SetEnvironmentVariableW(variable.name.c_str(), variable.wasSet ? variable.value.c_str() : nullptr);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

void ApplicationFolder::SetVariable(const wchar_t* name, const wchar_t* value)
{
    std::wstring before(32768, L'\0');
    SetLastError(ERROR_SUCCESS);
    before.resize(GetEnvironmentVariableW(name, before.data(), static_cast<DWORD>(before.size())));
    variables.push_back({name, before, !before.empty() || GetLastError() != ERROR_ENVVAR_NOT_FOUND});
    SetEnvironmentVariableW(name, value);
}

std::u16string ApplicationFolder::PathOf(std::u16string_view name) const
{
    return (folder / name).u16string();
}

void ApplicationFolder::Write(std::u16string_view name, std::string_view content) const
{
    std::ofstream(folder / name, std::ios::binary) << content;
}

void ApplicationFolder::AskFaults(std::u16string_view faults, CountedOver counted)
{
    SetEnvironmentVariableW(kFaultsVariable, std::filesystem::path(faults).c_str());
    SetEnvironmentVariableW(kCounterVariable,
                            counted == CountedOver::AllProcesses ? (folder / L"counts.txt").c_str() : nullptr);
}

std::vector<TranscriptLine> ApplicationFolder::Transcript() const
{
    std::vector<TranscriptLine> lines;
    std::ifstream file(TranscriptPath(folder), std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        size_t textAt = 0;
        const auto process = static_cast<uint32_t>(std::stoul(line, &textAt));
        lines.push_back({process, line.substr(textAt + 1, line.find('\r') - textAt - 1)});
    }
    return lines;
}

uint64_t ApplicationFolder::TranscriptSize() const
{
    std::error_code missing;
    const uintmax_t size = std::filesystem::file_size(TranscriptPath(folder), missing);
    return missing ? 0 : size;
}

std::vector<std::u16string> ApplicationFolder::MacroFiles() const
{
    std::vector<std::u16string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().filename().wstring().starts_with(L"TFR")) {
            found.push_back(entry.path().u16string());
        }
    }
    return found;
}

} // namespace tv
