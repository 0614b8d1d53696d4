#include "kernel_test_support.h"

#include "server/job_runner.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tv::kernel::test {

TemporaryFolder::TemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "tvkernel-test-XXXXXX").string();
    folder = mkdtemp(name.data());
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::string TemporaryFolder::Write(const std::string& name, const std::string& text) const
{
    std::ofstream(folder / name, std::ios::binary) << text;
    return *this / name;
}

std::string Sample(const std::string& name)
{
    return std::string(TV_SAMPLES) + "/" + name;
}

std::string ReadFile(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

std::string PartText(const std::string& features)
{
    return R"({"format": "torvane-part", "version": 1, "configurations": [{"name": "Default", "features": [)" +
           features + "]}]}";
}

Outcome<Inspection> Inspect(const std::string& path, const std::string& configuration)
{
    InspectJob job;
    job.source.path = path;
    job.configuration = configuration;
    return DecodeInspection(RunRequest(job, kNobodyWatches).value());
}

Outcome<Saved> Save(const SaveJob& job)
{
    return DecodeSaved(RunRequest(job, kNobodyWatches).value());
}

Outcome<Saved> Convert(const std::string& source, const std::string& target,
                       const std::map<std::string, std::string>& options)
{
    SaveJob job;
    job.source.path = source;
    job.target = target;
    job.options = options;
    return Save(job);
}

std::string OutputOf(const std::string& command)
{
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    char bytes[4096];
    for (size_t count = 0; (count = fread(bytes, 1, sizeof bytes, pipe)) > 0;) {
        output.append(bytes, count);
    }
    pclose(pipe);
    return output;
}

} // namespace tv::kernel::test

/// The geometry library keeps its tables until the process ends.
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=0";
}
