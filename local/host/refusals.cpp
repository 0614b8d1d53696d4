#include "host/refusals.h"

#include "vault/text.h"

#include <algorithm>

namespace tv::local {

namespace {

constexpr Result kWrongValues[] = {E_INVALIDARG, kErrorInvalidName, kErrorInvalidRevision, kErrorInvalidUserName};

constexpr char kPermitStep[] = " To see who may do what: tvtask permit";

std::string Quoted(const std::string& path)
{
    return "\"" + path + "\"";
}

bool IsWrongValue(Result code)
{
    return std::find(std::begin(kWrongValues), std::end(kWrongValues), code) != std::end(kWrongValues);
}

} // namespace

std::string HolderText(const std::optional<CheckOutRecord>& checkOut)
{
    return checkOut ? checkOut->holder.user + " on " + checkOut->holder.machine : std::string();
}

std::string NextStep(HostContext& context, Result code, const FileRecord& file)
{
    const std::string path = Quoted(VaultPathText(context.store->PathOfFile(file)));
    switch (code) {
    case kErrorNotLockedByYou:
        return file.checkOut ? " That user has to check it in or to undo the check-out."
                             : " To check it out: tvtask checkout " + path;
    case kErrorLockedByAnotherUser:
        return " That user has to check it in or to undo the check-out.";
    case kErrorLockedOnOtherComputer:
        return " Check it in or undo the check-out there.";
    case kErrorFileIsLocked:
        return " To end that: tvtask checkin " + path + " or tvtask undo " + path;
    case kErrorPermissionDenied:
        return kPermitStep;
    case kErrorFileNotFound:
        return file.checkOut ? " To give the check-out back: tvtask undo " + path : "";
    case kErrorNameAlreadyExists:
        return " To see what is there: tvtask ls " + Quoted(VaultPathText(context.store->PathOfFolder(file.folder)));
    default:
        return {};
    }
}

void OnFile(HostContext& context, const FileRecord& file, const std::function<void()>& action)
{
    try {
        action();
    } catch (const ResultError& error) {
        if (IsWrongValue(error.Code())) {
            throw UsageError(WordsOf(error));
        }
        throw ResultError(error.Code(), Utf16(WordsOf(error) + NextStep(context, error.Code(), file)));
    }
}

void OnVault(const std::function<void()>& action)
{
    try {
        action();
    } catch (const ResultError& error) {
        if (IsWrongValue(error.Code())) {
            throw UsageError(WordsOf(error));
        }
        const std::string step = error.Code() == kErrorPermissionDenied ? kPermitStep : "";
        throw ResultError(error.Code(), Utf16(WordsOf(error) + step));
    }
}

std::vector<FileRecord> RequireFiles(HostContext& context, const std::vector<std::string>& paths)
{
    std::vector<FileRecord> files;
    for (const std::string& path : paths) {
        const FileRecord file = context.RequireFile(path);
        if (std::none_of(files.begin(), files.end(), [&](const FileRecord& other) { return other.id == file.id; })) {
            files.push_back(file);
        }
    }
    return files;
}

int ForEachFile(HostContext& context, const std::vector<FileRecord>& files,
                const std::function<FileDone(const FileRecord&)>& action)
{
    Json all = Json::array();
    int code = kExitDone;
    for (const FileRecord& file : files) {
        Json json{{"path", VaultPathText(context.store->PathOfFile(file))}, {"id", file.id}};
        try {
            FileDone done;
            OnFile(context, file, [&] { done = action(file); });
            json["done"] = true;
            json.update(done.json);
            if (!context.json) {
                context.environment.out << done.line << "\n";
            }
        } catch (const ResultError& error) {
            code = kExitFailed;
            json["done"] = false;
            json["error"] = WordsOf(error);
            context.environment.err << "tvtask: " << WordsOf(error) << "\n";
        }
        all.push_back(json);
    }
    if (context.json) {
        context.PrintJson(all);
    }
    return code;
}

} // namespace tv::local
