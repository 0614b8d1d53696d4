// What every command of the host works with.
#pragma once

#include "host/application_process.h"
#include "host/component.h"
#include "host/errors.h"
#include "host/health_machine.h"
#include "host/machine.h"
#include "vault/vault_objects.h"

#include <nlohmann/json.hpp>

#include <filesystem>
#include <ostream>

namespace tv::local {

using Json = nlohmann::ordered_json;

/// The world around the host; a test brings its own.
struct HostEnvironment
{
    std::ostream& out;
    std::ostream& err;
    Component& component;
    Machine& machine;
    ApplicationStarter& applications;
    HealthMachine& health;
    /// The output goes to a person's screen, where a line can be written over.
    bool terminal = false;
    std::string defaultVault;
    StoreOptions storeOptions;
    /// Where it is kept which applications were started to stay.
    std::filesystem::path applicationsFolder = {};
};

/// One command line's choices, and the vault once it is open.
struct HostContext
{
    HostEnvironment& environment;
    std::string vaultFolder;
    bool json = false;
    std::shared_ptr<VaultStore> store;

    void OpenVault();
    FileWork Files() const { return FileWork(store); }

    /// Reads a path of the vault, or a full path of its local view.
    VaultPath ReadPath(std::string_view text) const;
    FileRecord RequireFile(std::string_view path) const;
    FolderRecord RequireFolder(std::string_view path) const;
    TaskRecord RequireTask(std::string_view name) const;
    InstanceRecord RequireInstance(int32_t id) const;

    void PrintJson(const Json& value) const;
};

} // namespace tv::local
