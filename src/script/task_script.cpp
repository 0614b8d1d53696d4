#include "script/task_script.h"

#include "com/result.h"
#include "com/variant.h"
#include "script/date_format.h"
#include "script/directory_path.h"
#include "script/variable_expansion.h"
#include "support/format.h"
#include "support/paths.h"
#include "support/task_variables.h"

#include <algorithm>

namespace tv {

namespace {

/// Tokens whose values cost a question to the vault for each file.
constexpr std::u16string_view kFileInfoTokens[] = {u"<Revision>", u"<WorkflowState>"};

bool AsksForFileInfo(std::u16string_view outputPath)
{
    return std::ranges::any_of(kFileInfoTokens, [&](std::u16string_view token) {
        return outputPath.find(token) != std::u16string_view::npos;
    });
}

} // namespace

TaskScript::TaskScript(Platform& services) : platform(services) {}

void TaskScript::InitScript(IVyxVault* vaultOfRun, IVyxTaskInstance* taskOfRun, std::u16string_view scriptText)
{
    task = ComPtr<IVyxTaskInstance>::Share(taskOfRun);
    vault = ComPtr<IVyxVault>::Share(vaultOfRun);
    script = ScriptText(std::u16string(scriptText));
    script = ScriptText(ExpandVariables(
        script.Text(), u'{', u'}',
        [&](const std::u16string& name, Variant& value) {
            return task->GetVariableByKey(PlaceholderKey(name).get(), value.put());
        },
        platform.module));
    script = ScriptText(ExpandVariables(
        script.Text(), u'[', u']',
        [&](const std::u16string& name, Variant& value) { return task->GetVariable(name.c_str(), value.put()); },
        platform.module));
    ReadRunValues();
}

void TaskScript::ReadRunValues()
{
    BString root;
    BString vaultName;
    BString guid;
    ThrowIfFailed(vault->GetRootFolderPath(root.put()));
    ThrowIfFailed(vault->GetName(vaultName.put()));
    ThrowIfFailed(task->GetInstanceGuid(guid.put()));
    values.vaultPath = WithoutTrailingBackslashes(root.View());
    values.taskInstanceGuid = guid.Text();
    // Once set it stays for later runs of this object, whatever their own paths hold.
    needFileInfo = OutputPathsAskForFileInfo() || needFileInfo;
    values.today = DateForFileNames(platform, vaultName.View());
}

bool TaskScript::OutputPathsAskForFileInfo()
{
    const std::u16string primary = ReadText(task.get(), u"OutputPath").value_or(u"");
    const std::u16string secondary = ReadText(task.get(), u"OutputPath2").value_or(u"");
    return AsksForFileInfo(primary) || AsksForFileInfo(secondary);
}

void TaskScript::SetSourceFile(std::u16string_view path, std::u16string_view configurationOrSheet, int32_t documentId,
                               int32_t folderId, int32_t version)
{
    source = SourceFile{};
    values.filePath = path;
    values.folderPath = WithoutTrailingBackslashes(FolderOf(path));
    values.configurationOrSheet = configurationOrSheet;
    values.version = FormatText(u"%d", version);
    source.fileName = FileStemOf(path);
    source.extension = ExtensionOf(path);
    source.documentId = static_cast<uint32_t>(documentId);
    source.folderId = static_cast<uint32_t>(folderId);
    source.version = static_cast<uint32_t>(version);
    if (needFileInfo) {
        ReadFileInfo(folderId, version);
    }
}

void TaskScript::ReadFileInfo(int32_t folderId, int32_t version)
{
    ComPtr<IVyxFile> file;
    ThrowIfFailed(vault->GetFileFromPath(values.filePath.c_str(), nullptr, file.put()));
    if (!file) {
        // Code 1, "not in the vault", would read as a cancelled run further up.
        throw ResultError(E_POINTER);
    }
    BString revision;
    BString state;
    ThrowIfFailed(file->GetRevisionName(version, folderId, revision.put()));
    ThrowIfFailed(file->GetStateName(version, folderId, state.put()));
    values.revision = revision.Text();
    values.workflowState = state.Text();
}

std::u16string TaskScript::GetMacroText() const
{
    return script.Expand(values);
}

std::u16string TaskScript::GetLogFilePath()
{
    const std::optional<std::u16string> logFolder = ReadText(task.get(), u"ErrorLogPath");
    if (!logFolder) {
        return {};
    }
    const std::u16string folder = logFolder->empty() ? values.vaultPath : AppendPath(values.vaultPath, *logFolder);
    return AppendPath(folder, values.taskInstanceGuid) + u".log";
}

void TaskScript::AppendToLog(std::u16string_view text) noexcept
{
    // Whatever goes wrong here, the run goes on without the entry.
    AtBoundary([&] {
        const std::u16string path = GetLogFilePath();
        std::unique_ptr<OutputFile> file = OpenLog(path);
        if (file) {
            file->Write(platform.files.NarrowText(text));
        }
        return 0;
    });
}

std::unique_ptr<OutputFile> TaskScript::OpenLog(const std::u16string& path)
{
    if (path.empty()) {
        return nullptr;
    }
    std::unique_ptr<OutputFile> file = platform.files.OpenForAppend(path);
    if (!file && MakeDirectoryPath(platform.files, std::u16string_view(path).substr(0, path.find_last_of(u'\\')))) {
        file = platform.files.OpenForAppend(path);
    }
    return file;
}

void TaskScript::LogVaultError(Result code, std::u16string_view context) noexcept
{
    AtBoundary([&] {
        BString name;
        BString description;
        if (vault->GetErrorString(code, name.put(), description.put()) >= 0) {
            AppendToLog(FormatText(u"An error occured: %s\r\n\t%s\r\n\t%s", context, name.View(), description.View()));
        }
        return 0;
    });
}

} // namespace tv
