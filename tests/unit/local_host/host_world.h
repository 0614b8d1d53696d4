// tvtask in memory: command lines go in, an exit code and what was printed come out.
#pragma once

#include "scripted_add_in.h"
#include "scripted_application.h"
#include "scripted_health.h"

#include "host/command_line.h"

#include <gtest/gtest.h>

#include <sstream>

namespace tv::local {

struct Printed
{
    int code = 0;
    std::string out;
    std::string err;

    Json AsJson() const { return Json::parse(out); }
};

class HostWorld : public ::testing::Test
{
  protected:
    HostWorld();
    ~HostWorld() override;

    /// Runs a command line on the test's vault.
    Printed Run(std::vector<std::string> arguments);
    /// As Run; the command must be done.
    std::string Done(std::vector<std::string> arguments);

    std::filesystem::path Folder(std::string_view name) const { return base / PathOf(name); }
    std::string Write(std::string_view name, std::string_view bytes) const;
    std::string VaultFolder() const { return TextOf(base / "vault"); }
    std::shared_ptr<VaultStore> Store() const { return VaultStore::Open(base / "vault"); }

    ScriptedComponent component;
    QuietMachine machine;
    ScriptedApplications applications;
    ScriptedHealth health;
    bool terminal = false;

  private:
    std::filesystem::path base;
};

} // namespace tv::local
