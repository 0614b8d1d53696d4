#include "host_world.h"

#include <atomic>
#include <fstream>
#include <random>

namespace tv::local {

namespace fs = std::filesystem;

HostWorld::HostWorld()
{
    static std::atomic<int> counter = 0;
    base = fs::temp_directory_path() /
           ("tv_host_" + std::to_string(std::random_device{}()) + "_" + std::to_string(++counter));
    fs::create_directories(base);
}

HostWorld::~HostWorld()
{
    std::error_code error;
    const Disk disk({});
    for (const auto& entry : fs::recursive_directory_iterator(base, error)) {
        if (entry.is_regular_file()) {
            disk.SetReadOnly(entry.path(), false);
        }
    }
    fs::remove_all(base, error);
}

Printed HostWorld::Run(std::vector<std::string> arguments)
{
    std::ostringstream out;
    std::ostringstream err;
    HostEnvironment environment{out, err, component, machine, applications, health, terminal, VaultFolder(), {}};
    environment.applicationsFolder = base / "applications";
    const int code = RunCommandLine(arguments, environment);
    return {code, out.str(), err.str()};
}

std::string HostWorld::Done(std::vector<std::string> arguments)
{
    const Printed printed = Run(std::move(arguments));
    EXPECT_EQ(printed.code, 0) << printed.err;
    EXPECT_EQ(printed.err, "");
    return printed.out;
}

std::string HostWorld::Write(std::string_view name, std::string_view bytes) const
{
    const fs::path path = Folder(name);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
    return TextOf(path);
}

} // namespace tv::local
