#include "cad/tv_manager.h"

#include "cad/dispatch_application.h"
#include "cad/tv_document.h"
#include "com/result.h"
#include "support/task_variables.h"
#include "vault/vault_files.h"

#include <algorithm>

namespace tv {

namespace {

constexpr int32_t kMostRuns = 100;
constexpr uint64_t kMemoryFloor = 0x10000000;

void TakeMask(IUnknown* variables, const char16_t* name, uint32_t& mask)
{
    if (const std::optional<int32_t> value = ReadInt(variables, name)) {
        mask = static_cast<uint32_t>(*value);
    }
}

void TakeText(IUnknown* variables, const char16_t* name, std::u16string& text)
{
    if (const std::optional<std::u16string> value = ReadText(variables, name)) {
        text = *value;
    }
}

} // namespace

TVManager::TVManager(Platform& services)
    : platform(services), watchdog(services, processId, [this] { CloseApplication(Waiting::Yes, 0); }),
      suppression(services.registry)
{}

TVManager::~TVManager() = default;

void TVManager::Configure(VaultFiles& outputs, int32_t kind, IUnknown* variables, int32_t version)
{
    documents.clear();
    outputRegister = &outputs;
    taskKind = kind;
    requestedVersion = version;
    if (kind != static_cast<int32_t>(TaskKind::Convert)) {
        return;
    }
    TakeMask(variables, u"FileSheets", sheets.files);
    TakeMask(variables, u"OutputSheets", sheets.outputs);
    TakeMask(variables, u"FileConfs", configurations.files);
    TakeMask(variables, u"OutputConfs", configurations.outputs);
    TakeText(variables, u"NamedSheet", sheets.named);
    TakeText(variables, u"NamedConf", configurations.named);
}

void TVManager::SuppressStartupAddIns(StartupAddIns what)
{
    if (what == StartupAddIns::Suppress) {
        suppression.Suppress();
    } else {
        suppression.Restore();
    }
}

Result TVManager::RestartApplication(Result code)
{
    CountRestart();
    const Result closed = CloseApplication(Waiting::Yes, code);
    return closed < 0 ? closed : StartApplication();
}

void TVManager::CountRestart()
{
    ++failureCount;
    if (SchedulerDialogSeen()) {
        forceRegression = true;
        failureCount = 0;
    }
}

MemoryCheck TVManager::CheckMemory()
{
    const std::unique_ptr<Process> process = platform.processes.Open(processId, kProcessQuery | kProcessReadMemory);
    uint64_t workingSet = 0;
    if (process == nullptr || !process->GetWorkingSet(workingSet)) {
        return MemoryCheck::Unknown;
    }
    if (freshStart) {
        baseWorkingSet = workingSet;
        return MemoryCheck::BaselineTaken;
    }
    return workingSet > 2 * baseWorkingSet && workingSet > kMemoryFloor ? MemoryCheck::RestartDue : MemoryCheck::Fine;
}

void TVManager::MaintainApplication()
{
    Result code = 0;
    if (runCount >= kMostRuns || CheckMemory() == MemoryCheck::RestartDue) {
        CountRestart();
        code = CloseApplication(Waiting::Yes, 0);
    }
    if (code >= 0 && !application) {
        code = StartApplication();
    }
    // A process started here is judged against the baseline of the one before it: clearing the mark at once takes its
    // baseline from it. Installations are tuned to that.
    ++runCount;
    freshStart = false;
    ThrowIfFailed(code);
}

void TVManager::OnEvent(int32_t, std::span<const VARIANT>)
{
    RefreshDocuments();
}

Result TVManager::RefreshDocuments()
{
    ComPtr<ITorvaneDocument> document;
    if (!application || application->GetFirstDocument(document.put()) < 0) {
        return 0;
    }
    while (document) {
        ComPtr<IUnknown> identity;
        if (const Result asked = document.As(identity); asked < 0) {
            return asked;
        }
        if (const auto known = documents.find(identity.get()); known != documents.end()) {
            document = known->second->Listed();
        } else if (const Result added = AddDocument(document, identity); added < 0) {
            return added;
        }
        ComPtr<ITorvaneDocument> next;
        if (const Result read = document->GetNextDocument(next.put()); read < 0) {
            return read;
        }
        document = std::move(next);
    }
    return 0;
}

Result TVManager::AddDocument(const ComPtr<ITorvaneDocument>& document, const ComPtr<IUnknown>& identity)
{
    int32_t type = 0;
    if (const Result read = document->GetDocumentType(&type); read < 0) {
        return read;
    }
    const auto sink = std::make_shared<CTVDocument>(*this, document, identity, type);
    if (const Result attached = sink->Attach(); attached < 0) {
        sink->Detach();
        return attached;
    }
    // An event that came in during the calls above may have added the same document.
    if (!documents.emplace(identity.get(), sink).second) {
        sink->Detach();
    }
    return 0;
}

void TVManager::RemoveDocument(const CTVDocument& document)
{
    const auto found =
        std::ranges::find_if(documents, [&](const auto& entry) { return entry.second.get() == &document; });
    if (found == documents.end()) {
        return;
    }
    const std::shared_ptr<CTVDocument> removed = found->second;
    documents.erase(found);
    removed->Detach();
}

void TVManager::DetachAll()
{
    connection.Disconnect();
    for (const auto& [identity, document] : std::exchange(documents, {})) {
        document->Detach();
    }
}

} // namespace tv
