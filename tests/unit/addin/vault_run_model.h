// VaultRunModel: what a convert run does with the vault, step by step, told a second time and without objects. It knows
// which calls go out, in which order, and what is left behind when any of them fails.
#pragma once

#include "com/result.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tv {

/// Which calls to the vault fail: the nth, or all from the nth on; 0 for none.
struct PlannedFault
{
    int n = 0;
    bool isLasting = false;
};

/// A file of the vault, as far as a run changes it.
struct ModelFile
{
    int32_t version = 1;
    std::string lockedBy;
    bool isNew = false;
    size_t references = 0;
    bool hasCard = false;
};

/// What a run leaves behind.
struct RunOutcome
{
    Result result = 0;
    bool hasStatus = false;
    int32_t status = 0;
    std::u16string message;
    size_t documents = 0;
    std::vector<std::string> logged;
    std::vector<std::string> calls;
    std::map<std::string, ModelFile> files;
};

/// The runs of the sweep: five parts whose macros save the files of kSweepOutputs, one each.
struct SweepOutput
{
    const char* part;
    const char* output;
    bool isUnderRoot;
};

inline constexpr SweepOutput kSweepOutputs[] = {
    {"C:\\Vault\\p1.tvnprt", "C:\\Vault\\Out\\new.step", true},
    {"C:\\Vault\\p2.tvnprt", "C:\\Vault\\Out\\old.step", true},
    {"C:\\Vault\\p3.tvnprt", "C:\\Vault\\Out\\theirs.step", true},
    {"C:\\Vault\\p4.tvnprt", "D:\\Out\\outside.step", false},
    {"C:\\Vault\\p5.tvnprt", "C:\\Vault\\Deep\\Er\\new.step", true},
};
inline constexpr char kSweepLog[] = "C:\\Vault\\Logs\\{11111111-2222-3333-4444-555555555555}.log";
inline constexpr Result kSweepFailure = static_cast<Result>(0x80040203u);
inline constexpr size_t kSweepVariables = 2;

class VaultRunModel
{
  public:
    VaultRunModel(PlannedFault plannedFault, bool replacesOutputs);

    RunOutcome Run();

  private:
    struct Record
    {
        std::string path;
        bool inVault = false;
        bool isUnderRoot = false;
        bool isLog = false;
    };

    bool Fails(const char* call);
    void Need(const char* call);
    void NeedEach(std::initializer_list<const char*> calls);
    ModelFile* Find(const std::string& path);

    Result RunTask();
    void PrepareAndWork();
    void AddOutput(const SweepOutput& output);
    bool PrepareVaultFile(const SweepOutput& output);
    void RegisterOutputs();
    void AddNewOutputs();
    void TakeExisting();
    void WriteCards();
    void WriteReferences();
    void CheckIn();
    Result RegisterLog();
    Result Report(Result result);
    size_t CollectDocuments(bool includeLog);
    void Log(const char* context);

    template <typename Step> void Logging(const char* context, Step&& step);

    PlannedFault fault;
    bool replaces;
    RunOutcome outcome;
    std::vector<Record> records;
    bool hasSelection = false;
    bool knowsLogPath = false;
    int callCount = 0;
};

} // namespace tv
