// What the tests of the add-in object share: a machine with the application on it, a vault, a task and the component.
#pragma once

#include "addin/tv_task_addin.h"
#include "cad/watchdog.h"
#include "com/bstring.h"
#include "com/result.h"
#include "fakes/application/cad_installation.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"

#include <gtest/gtest.h>

namespace tv {

constexpr Result Code(uint32_t value)
{
    return static_cast<Result>(value);
}

/// A command record that owns what a command record owns.
class CommandRecord
{
  public:
    CommandRecord(int32_t type, IUnknown* vault, IUnknown* extra)
    {
        cmd.commandType = type;
        cmd.vault = vault;
        cmd.extra = extra;
        if (extra != nullptr) {
            extra->AddRef();
        }
    }
    CommandRecord(const CommandRecord&) = delete;
    CommandRecord& operator=(const CommandRecord&) = delete;
    ~CommandRecord()
    {
        BString::Adopt(cmd.comment);
        ComPtr<IUnknown>::Adopt(cmd.extra);
    }
    void Press(std::u16string_view button) { cmd.comment = AllocateText(button); }

    VyxCmd cmd{};
};

/// Two parts in the vault, a convert task on them, and an application whose macro saves a STEP file beside each part.
class AddInTest : public testing::Test
{
  protected:
    AddInTest()
    {
        SchedulerDialogSeen() = false;
        AddPart(u"C:\\Vault\\a.tvnprt", 3);
        AddPart(u"C:\\Vault\\b.tvnprt", 1);
        task->variables.SetInt(u"__type", 1);
        task->variables.SetInt(u"__tv_version", 2013);
        task->variables.SetText(u"__script", u"Convert <Filepath>");
        task->variables.SetText(u"ErrorLogPath", u"\\Logs");
        vault.AddFolder(u"C:\\Vault\\Logs");
        cad.prepare = [this](fakes::FakeApplication& application, int) {
            application.onMacro = [this](fakes::FakeApplication& running, const std::u16string& path) {
                macros.push_back(machine.files.Content(path).value_or(""));
                return onMacro ? onMacro(running, macros.back()) : SaveBeside(running, macros.back());
            };
            application.onWrite = [this](const std::u16string& path) { machine.files.AddFile(path, "bytes"); };
        };
    }

    void AddPart(const std::u16string& path, int32_t versions)
    {
        const fakes::FakeFile& file = vault.AddFile(path, versions);
        machine.files.AddFile(path, "part");
        selection.push_back({path, file.id, file.folderId, 0, u"", 1});
    }

    /// Opens the part that the macro names, saves it as a STEP file and closes it.
    static fakes::MacroResult SaveBeside(fakes::FakeApplication& application, const std::string& macro)
    {
        const std::string name = macro.substr(macro.find(' ') + 1);
        std::u16string path(name.begin(), name.end());
        fakes::FakeDocument& document = application.Open(1, path);
        application.Write(document, path.substr(0, path.rfind(u'.')) + u".step");
        application.Close(document);
        return {};
    }

    Result Send(CommandRecord& record)
    {
        SafeArray data = fakes::MakeCommandData(selection);
        SAFEARRAY* array = data.get();
        return addIn->OnCmd(&record.cmd, &array);
    }
    Result RunTask(VariantBool* cancel = nullptr)
    {
        CommandRecord record(VyxCmd_TaskRun, vault.Get(), task.get());
        const Result result = Send(record);
        if (cancel != nullptr) {
            *cancel = record.cmd.cancel;
        }
        return result;
    }
    const fakes::WrittenStatus& LastStatus() const { return task->writtenStatuses.back(); }
    std::vector<std::u16string> ProgressTexts() const
    {
        std::vector<std::u16string> texts;
        for (const fakes::WrittenProgress& step : task->progress) {
            texts.push_back(step.text);
        }
        return texts;
    }

    fakes::FakePlatform machine;
    fakes::CadInstallation cad{machine};
    fakes::FakeVault vault{u"C:\\Vault", &machine.files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    std::vector<fakes::CommandFile> selection;
    std::vector<std::string> macros;
    std::function<fakes::MacroResult(fakes::FakeApplication&, const std::string& macro)> onMacro;
    ComPtr<CTVTaskAddIn> addIn = MakeObject<CTVTaskAddIn>(machine.platform);
};

} // namespace tv
