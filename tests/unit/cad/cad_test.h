// What the tests of the application's owner share: a machine with the application on it, a vault, and the manager.
#pragma once

#include "cad/tv_manager.h"
#include "cad/watchdog.h"
#include "com/result.h"
#include "fakes/application/cad_installation.h"
#include "fakes/vault/fake_task.h"
#include "fakes/vault/fake_vault.h"
#include "vault/vault_files.h"

#include <gtest/gtest.h>

namespace tv {

constexpr Result Code(uint32_t value)
{
    return static_cast<Result>(value);
}

/// The code that a call raises, 0 when it raises none.
template <typename Call> Result RaisedBy(Call&& call)
{
    try {
        call();
    } catch (const ResultError& error) {
        return error.Code();
    }
    return 0;
}

class CadTest : public testing::Test
{
  protected:
    CadTest() { SchedulerDialogSeen() = false; }

    /// A manager that is set up for a run of that kind with year 2013.
    void Configure(int32_t kind, int32_t version = 2013)
    {
        ASSERT_EQ(outputs.Reset(vault.Get(), kind, ExistingFiles::NewVersion), 0);
        manager.Configure(outputs, kind, task.get(), version);
    }
    void ConfigureAndStart(int32_t kind)
    {
        Configure(kind);
        ASSERT_EQ(manager.StartApplication(), 0);
    }

    fakes::FakePlatform machine;
    fakes::CadInstallation cad{machine};
    fakes::FakeVault vault{u"C:\\Vault", &machine.files};
    ComPtr<fakes::FakeTaskInstance> task = MakeObject<fakes::FakeTaskInstance>();
    VaultFiles outputs{machine.platform};
    TVManager manager{machine.platform};
};

} // namespace tv
