#include "host/installed_applications.h"

#include "com/bstring.h"
#include "com/guid.h"
#include "vault/disk.h"
#include "vault/error_table.h"
#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr std::string_view kClassName = "Torvane.Application";
constexpr std::string_view kProgramExtension = ".exe";

struct SourceRow
{
    StartSource source;
    std::string_view words;
};

constexpr SourceRow kSources[] = {
    {StartSource::None, "nowhere"},
    {StartSource::Setup64, "Setup key, 64-bit view"},
    {StartSource::Setup32, "Setup key, 32-bit view"},
    {StartSource::RegisteredServer, "registered server"},
};

std::string ClassNameOf(int32_t year)
{
    return std::string(kClassName) + (year == 0 ? "" : "." + std::to_string(year - kYearOfRevisionZero));
}

std::string NotRegistered(const InstalledApplication& application)
{
    return "The class '" + application.className + "' isn't registered. " +
           (application.year == 0 ? "Register a version; the local edition's with: TORVANE.EXE /regserver"
                                  : "Repair the installation of that version.");
}

/// What keeps the program from starting; empty for nothing.
std::string ProgramProblem(const InstalledApplication& application)
{
    if (application.commandLine.empty()) {
        return "Neither a Setup key nor the registered server of the class names a program. Repair the installation.";
    }
    // A bare name is looked for along the system's search path.
    const bool hasFolder = application.program.find_first_of("\\/") != std::string::npos;
    if (hasFolder && !Disk::IsFile(PathOf(application.program))) {
        return "The program '" + application.program + "' is missing (" + std::string(SourceWords(application.source)) +
               "). Repair the installation.";
    }
    return {};
}

InstalledApplication Ask(ITVStartPreview& preview, int32_t year)
{
    InstalledApplication application;
    application.year = year;
    application.className = ClassNameOf(year);
    GUID classId{};
    BString commandLine;
    if (preview.GetStartCommand(year, &application.year, &classId, &application.source, commandLine.put()) < 0) {
        application.problem = NotRegistered(application);
        return application;
    }
    application.classId = Utf8(GuidText(classId));
    application.commandLine = Utf8(commandLine.View());
    application.program =
        ProgramOf(application.commandLine, [](const std::string& path) { return Disk::IsFile(PathOf(path)); });
    application.problem = ProgramProblem(application);
    return application;
}

ComPtr<ITVStartPreview> PreviewOf(Component& component)
{
    ComPtr<ITVStartPreview> preview;
    if (component.Create().As(preview) < 0) {
        Fail(E_NOINTERFACE, "The registered add-in is an older one and can't tell how it would start the CAD "
                            "application. Register the present one with: regsvr32 TVTaskAddIn.dll");
    }
    return preview;
}

/// A row of the list is about the year that it was asked for, also when another one would be started.
InstalledApplication RowOf(ITVStartPreview& preview, int32_t year)
{
    InstalledApplication application = Ask(preview, year);
    if (application.year != year) {
        application.problem = "A task that asks for " + std::to_string(year) + " gets Torvane " +
                              std::to_string(application.year) +
                              ", because this version isn't registered whole. Repair its installation.";
        application.year = year;
    }
    return application;
}

bool IsSwitch(std::string_view word)
{
    return word.starts_with('/');
}

} // namespace

std::string_view SourceWords(StartSource source)
{
    return std::ranges::find(kSources, source, &SourceRow::source)->words;
}

InstalledApplication FindApplication(Component& component, int32_t year)
{
    return Ask(*PreviewOf(component).get(), year);
}

InstalledApplications FindApplications(Component& component, ApplicationStarter& applications)
{
    const std::vector<int32_t> years = applications.RegisteredYears();
    const ComPtr<ITVStartPreview> preview = PreviewOf(component);
    InstalledApplications found;
    for (const int32_t year : years) {
        found.versions.push_back(RowOf(*preview.get(), year));
    }
    found.standard = Ask(*preview.get(), 0);
    return found;
}

std::string ProgramOf(std::string_view commandLine, const std::function<bool(const std::string&)>& exists)
{
    const auto fileOf = [](std::string_view path) {
        const std::string_view name = path.substr(path.find_last_of("\\/") + 1);
        return std::string(path) + (name.find('.') == std::string_view::npos ? std::string(kProgramExtension) : "");
    };
    if (commandLine.starts_with('"')) {
        return fileOf(commandLine.substr(1, commandLine.find('"', 1) - 1));
    }
    // The system tries the text up to each blank in turn; that is how an unquoted path with blanks in it starts.
    std::optional<std::string> withoutSwitches;
    for (size_t blank = commandLine.find(' ');; blank = commandLine.find(' ', blank + 1)) {
        const std::string file = fileOf(commandLine.substr(0, blank));
        if (exists(file)) {
            return file;
        }
        if (blank == std::string_view::npos) {
            return withoutSwitches.value_or(file);
        }
        if (!withoutSwitches && IsSwitch(commandLine.substr(blank + 1))) {
            withoutSwitches = file;
        }
    }
}

} // namespace tv::local
