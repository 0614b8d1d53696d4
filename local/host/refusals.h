// What a person can do about a refusal of the vault, and commands on several files, of which some may be refused.
#pragma once

#include "host/host_context.h"

#include <functional>
#include <string>
#include <vector>

namespace tv::local {

/// "anna on PC7"; empty for a file that nobody has checked out.
std::string HolderText(const std::optional<CheckOutRecord>& checkOut);

/// A sentence on what to do next about a refusal, with a blank before it; empty where there is nothing to say.
std::string NextStep(HostContext& context, Result code, const FileRecord& file);

/// Carries out an action on a file. Its refusal comes back with the next step, a value that can't be as a UsageError.
void OnFile(HostContext& context, const FileRecord& file, const std::function<void()>& action);
/// The same for what isn't done on a file.
void OnVault(const std::function<void()>& action);

/// The files of several paths, each once. Nothing is done about any of them when one of the paths is wrong.
std::vector<FileRecord> RequireFiles(HostContext& context, const std::vector<std::string>& paths);

/// What a command did to one file: a line for a person, and members of its JSON object.
struct FileDone
{
    std::string line;
    Json json;
};

/// Carries out a command on each file and prints what came of it. A refusal is told and doesn't stop the others; the
/// exit code is 1 then.
int ForEachFile(HostContext& context, const std::vector<FileRecord>& files,
                const std::function<FileDone(const FileRecord&)>& action);

} // namespace tv::local
