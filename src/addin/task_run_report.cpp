// The final status of a run.
#include "addin/task_run.h"

#include "com/result.h"
#include "com/variant.h"
#include "support/task_variables.h"
#include "support/texts.h"

namespace tv {

namespace {

constexpr int32_t kFileObject = 1;

std::u16string Without(std::u16string text, std::u16string_view unwanted)
{
    for (size_t found = text.find(unwanted); found != std::u16string::npos; found = text.find(unwanted, found)) {
        text.erase(found, unwanted.size());
    }
    return text;
}

} // namespace

Result TaskRun::Report(Result outcome)
{
    int32_t current = 0;
    if (const Result read = instance.GetStatus(&current); read < 0) {
        return read;
    }
    if (current == static_cast<int32_t>(TaskStatus::CancelRequested)) {
        return kEndedBeforeDone;
    }
    std::u16string message;
    TaskStatus status = FinalStatus(outcome, message);
    std::vector<VyxDocument> documents;
    if (const Result collected = tools.vaultFiles.CollectResultFiles(documents, status == TaskStatus::Failed);
        collected < 0) {
        return collected;
    }
    if (status == TaskStatus::Done && kind == static_cast<int32_t>(TaskKind::Convert) &&
        tools.vaultFiles.CountExistingOutputs(false, true) == 0) {
        status = TaskStatus::Failed;
        message = AddInText(16, u"No file converted.");
    }
    const Variant list = DocumentList(std::move(documents));
    const Result written = instance.SetStatus(static_cast<int32_t>(status), outcome,
                                              message.empty() ? nullptr : message.c_str(), list.get(), 0);
    return written < 0 ? written : outcome;
}

TaskStatus TaskRun::FinalStatus(Result outcome, std::u16string& message)
{
    if (outcome != 0) {
        message = FailureText();
        return TaskStatus::Failed;
    }
    if (tools.vaultFiles.AnyLogFileExists()) {
        message = AddInText(14, u"Task finished with errors. Please see the log-file for more details.");
        return TaskStatus::Failed;
    }
    return TaskStatus::Done;
}

std::u16string TaskRun::FailureText() const
{
    if (selected.empty()) {
        return AddInText(15, u"No file selected.");
    }
    // A run that asked for no particular version must not tell of a "Torvane 0".
    return Without(tools.manager.LastError(), u" 0");
}

Variant TaskRun::DocumentList(std::vector<VyxDocument> documents) const
{
    for (const std::unique_ptr<TaskFile>& file : selected) {
        documents.push_back(
            {file->fileId, kFileObject, file->folderId, file->version == -1 ? file->latestVersion : file->version});
    }
    if (documents.empty()) {
        return {};
    }
    SafeArray array = MakeRecordArray(std::span<const VyxDocument>(documents));
    return Variant::FromArray(array.release(), VT_RECORD);
}

} // namespace tv
