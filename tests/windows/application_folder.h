// ApplicationFolder: a folder for the temporary files and the transcript of the real application and of whoever drives
// it, so that a test sees what was done and what was left behind.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

/// One line of the application's transcript.
struct TranscriptLine
{
    uint32_t process;
    std::string text;
};

/// Whether a fault's "the third time" is the third one of a process or of all that are started.
enum class CountedOver
{
    EachProcess,
    AllProcesses
};

/// While it lives, this process and those that it starts have their temporary files in the folder, write the transcript
/// to it and have no faults but those asked for here. It goes with all that is in it.
class ApplicationFolder
{
  public:
    ApplicationFolder();
    ApplicationFolder(const ApplicationFolder&) = delete;
    ApplicationFolder& operator=(const ApplicationFolder&) = delete;
    ~ApplicationFolder();

    /// Path of a file of that name; there need not be one.
    std::u16string PathOf(std::u16string_view name) const;
    void Write(std::u16string_view name, std::string_view content) const;

    /// Faults of the applications that are started from now on; docs/torvane-faults.md has their form.
    void AskFaults(std::u16string_view faults, CountedOver counted = CountedOver::EachProcess);

    std::vector<TranscriptLine> Transcript() const;
    /// Grows with each line of the transcript.
    uint64_t TranscriptSize() const;
    /// Files of macros that are there, made or half made.
    std::vector<std::u16string> MacroFiles() const;

  private:
    void SetVariable(const wchar_t* name, const wchar_t* value);

    struct Saved
    {
        std::wstring name;
        std::wstring value;
        bool wasSet;
    };
    std::filesystem::path folder;
    std::vector<Saved> variables;
};

} // namespace tv
