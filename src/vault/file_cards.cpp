#include "vault/file_cards.h"

#include "com/safe_array.h"
#include "script/date_format.h"
#include "support/paths.h"
#include "vault/file_card_rows.h"
#include "vault/vault_access.h"

#include <optional>
#include <unordered_map>

namespace tv {

namespace {

constexpr int32_t kWriteFlag = 1;

/// The card of a source file in the version that the run worked on.
struct SourceCard
{
    SafeArray variables;
    SafeArray values;
};

/// Reads the card and tells the source what else is known of that version.
SourceCard ReadCard(const ComPtr<IVyxFile>& file, TaskFile& source)
{
    ComPtr<IVyxEnumeratorVariable> reader;
    ThrowIfFailed(file->GetEnumeratorVariable(0, reader.put()));
    SourceCard card;
    VyxVersionInfo info{};
    const Variant version = Variant::FromInt(source.version);
    ThrowIfFailed(Needed(reader).GetVersionVariables(version.get(), source.folderId, card.variables.put(),
                                                     card.values.put(), &info));
    source.latestVersion = info.currentVersion;
    source.revision = BString::Adopt(info.revision).Text();
    source.state = BString::Adopt(info.state).Text();
    return card;
}

ComPtr<IVyxVariableValue> ObjectIn(const VARIANT& element)
{
    ComPtr<IVyxVariableValue> object;
    Variant copy = Variant::Copy(element);
    if (copy.ChangeType(VT_UNKNOWN) >= 0) {
        QueryFor(copy.get()->punkVal, object);
    }
    return object;
}

/// The variables of one card. They are asked for their ids one after the other, as far as a search has to go, and each
/// of them once, however many rows search.
class CardVariables
{
  public:
    explicit CardVariables(const SourceCard& card) : elements(card.variables.get()) {}

    /// The first variable with the id; null when the card doesn't hold it.
    IVyxVariableValue* Find(int32_t variableId)
    {
        if (const auto found = known.find(variableId); found != known.end()) {
            return found->second.get();
        }
        while (next < elements.size()) {
            const ComPtr<IVyxVariableValue> object = ObjectIn(elements[next++]);
            if (!object) {
                continue;
            }
            const int32_t id = IdOf(object);
            known.emplace(id, object);
            if (id == variableId) {
                return object.get();
            }
        }
        return nullptr;
    }

  private:
    SafeArrayView<VARIANT> elements;
    std::unordered_map<int32_t, ComPtr<IVyxVariableValue>> known;
    size_t next = 0;
};

/// Nothing when the card doesn't hold the variable, or not for the configuration.
std::optional<Variant> CardValue(CardVariables& card, int32_t variableId, const std::u16string& configuration)
{
    IVyxVariableValue* variable = card.Find(variableId);
    if (variable == nullptr) {
        return std::nullopt;
    }
    Variant value;
    const Result result = ThrowIfFailed(variable->GetValue(configuration.c_str(), value.put()));
    return result == 0 ? std::optional(value) : std::nullopt;
}

int32_t VersionOfRun(const TaskFile& source)
{
    return source.version != 0 && source.version != -1 ? source.version : source.latestVersion;
}

/// Nothing for a row that isn't written.
std::optional<Variant> ValueOf(const FileCardRow& row, const TaskFile& output, CardVariables& card, ClockService& clock)
{
    const TaskFile& source = *output.source;
    switch (row.source) {
    case CardSource::FileName:
        return Variant::FromText(source.path);
    case CardSource::FilePath:
        return Variant::FromText(FolderOf(source.path));
    case CardSource::Configuration:
        return Variant::FromText(output.outputConf);
    case CardSource::Revision:
        return Variant::FromText(source.revision);
    case CardSource::Version:
        return Variant::FromInt(VersionOfRun(source));
    case CardSource::WorkflowState:
        return Variant::FromText(source.state);
    case CardSource::ConversionTime:
        return Variant::FromDate(CurrentDate(clock).days);
    case CardSource::FreeText:
        return Variant::FromText(row.text);
    case CardSource::CardVariable:
        return CardValue(card, row.sourceId, source.isCadDocument ? output.outputConf : std::u16string());
    }
    return std::nullopt;
}

void QueueCard(IVyxBatchUpdate& batch, const std::vector<FileCardRow>& rows, const TaskFile& output,
               const SourceCard& card, ClockService& clock)
{
    CardVariables variables(card);
    for (const FileCardRow& row : rows) {
        if (const auto value = ValueOf(row, output, variables, clock)) {
            ThrowIfFailed(batch.SetCardValue(output.fileId, row.destinationId, value->get(), 0, kWriteFlag));
        }
    }
}

} // namespace

Result WriteFileCards(IVyxTaskInstance* instance, IVyxVault* vault, const std::vector<TaskFile>& outputs,
                      ClockService& clock)
{
    return AtBoundary([&] {
        std::vector<FileCardRow> rows;
        ReadFileCardRows(instance, vault, rows);
        if (rows.empty()) {
            return 0;
        }
        ComPtr<IVyxBatchUpdate> batch;
        ThrowIfFailed(MakeUtility(vault, kUtilityBatchUpdate, batch));
        for (const TaskFile& output : outputs) {
            if (!output.inVault || output.isLog || output.source == nullptr) {
                continue;
            }
            ComPtr<IVyxFile> file;
            const Result found =
                ThrowIfFailed(vault->GetFileFromPath(output.source->path.c_str(), nullptr, file.put()));
            if (!file) {
                return found;
            }
            QueueCard(*batch.get(), rows, output, ReadCard(file, *output.source), clock);
        }
        SafeArray errors;
        return batch->CommitUpdate(errors.put(), 0);
    });
}

} // namespace tv
