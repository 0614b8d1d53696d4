// A vault, a task, a machine, and the object under test in between.
#pragma once

#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "interfaces/ids.h"
#include "vault/vault_files.h"

#include <gtest/gtest.h>

namespace tv {

class VaultFilesTest : public testing::Test
{
  protected:
    void Begin(int32_t kind = 1, ExistingFiles existing = ExistingFiles::NewVersion)
    {
        ASSERT_EQ(files.Reset(vault.Get(), kind, existing), 0);
        task->variables.SetText(u"ErrorLogPath", u"Logs");
        script.InitScript(vault.Get(), task.get(), u"");
    }

    /// A selected file that stands in the vault, as the one that the macro works on.
    TaskFile& WorkOn(std::u16string_view path = u"C:\\Vault\\Part.tvnprt", int32_t versions = 1)
    {
        fakes::FakeFile& file = vault.AddFile(path, versions);
        selected.push_back(std::make_unique<TaskFile>());
        TaskFile& source = *selected.back();
        source.path = path;
        source.fileId = file.id;
        source.folderId = file.folderId;
        source.version = versions;
        source.isCadDocument = true;
        files.SetCurrent(&source);
        return source;
    }

    /// The macro saves a file: the output is announced, then the bytes are written.
    void Save(std::u16string_view path, std::u16string_view name = u"Default")
    {
        files.AddOutput(path, name, false);
        machine.files.AddFile(path, "saved");
    }

    Result Register() { return files.RegisterOutputs(task.get(), vault.Get(), script); }

    std::string LogText()
    {
        return machine.files.Content(u"C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log").value_or("");
    }

    size_t Notifications() const { return machine.pipes.Messages().size(); }

    void Listen()
    {
        machine.pipes.Listen(kNotificationPipe, [](std::span<const uint8_t>) { return std::vector<uint8_t>{0}; });
    }

    fakes::FakePlatform machine;
    fakes::FakeVault vault{u"C:\\Vault", &machine.files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    TaskScript script{machine.platform};
    SelectedFiles selected;
    VaultFiles files{machine.platform};
};

} // namespace tv
