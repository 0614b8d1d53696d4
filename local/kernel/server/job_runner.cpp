#include "server/job_runner.h"

#include "engine/run_job.h"
#include "server/target_file.h"

namespace tv::kernel {

namespace {

template <class T> std::string EncodeOutcome(const Outcome<T>& outcome)
{
    return outcome ? Encode(*outcome) : Encode(outcome.error());
}

std::optional<std::string> Reply(const std::optional<Outcome<std::string>>& result)
{
    if (!result) {
        return std::nullopt;
    }
    return *result ? **result : Encode(result->error());
}

std::optional<std::string> Run(const InspectJob& job, int watchedFd)
{
    return Reply(RunInChild([&job] { return EncodeOutcome(RunInspect(job)); }, job.limits, job.source.path, watchedFd));
}

std::optional<std::string> Run(const SaveJob& job, int watchedFd)
{
    const auto temporary = TargetFile::CreateTemporary(job.target);
    if (!temporary) {
        return Encode(temporary.error());
    }
    TargetFile target(job.target, *temporary);
    const auto work = [&job, &target] { return EncodeOutcome(RunSave(job, target.temporary())); };
    const std::optional<std::string> reply = Reply(RunInChild(work, job.limits, job.source.path, watchedFd));
    if (!reply || !DecodeSaved(*reply)) {
        return reply;
    }
    const std::optional<Error> error = target.Commit();
    return error ? Encode(*error) : *reply;
}

} // namespace

std::optional<std::string> RunRequest(const Request& request, int watchedFd)
{
    return std::visit([watchedFd](const auto& job) { return Run(job, watchedFd); }, request);
}

} // namespace tv::kernel
