#include "host/card_commands.h"

#include "host/card_values.h"
#include "host/refusals.h"
#include "host/table.h"
#include "vault/text.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace tv::local {

namespace {

constexpr char kFileColumn[] = "(file)";

std::string ConfigurationTitle(const std::string& configuration)
{
    return configuration.empty() ? kFileColumn : configuration;
}

Json ToJson(const StoredValue& value)
{
    const std::string_view kind = CardKindWord(value);
    if (kind == "int") {
        return std::get<int64_t>(value.content);
    }
    if (kind == "bool") {
        return std::get<int64_t>(value.content) != 0;
    }
    if (kind == "float") {
        // By its text, so that a number of few digits stays one.
        const std::string text = CardValueText(value);
        double number = 0;
        std::from_chars(text.data(), text.data() + text.size(), number);
        return number;
    }
    if (kind == "empty") {
        return nullptr;
    }
    return kind == "date" ? CardValueText(value) : value.Display();
}

bool WorksOnCard(HostContext& context, const FileRecord& file)
{
    return file.checkOut && file.checkOut->holder == context.store->CurrentUser() && !file.checkOut->fresh;
}

std::string VersionText(HostContext& context, const FileRecord& file, int32_t version)
{
    return version == 0 && WorksOnCard(context, file)
               ? "checked out, as the next check-in will store it"
               : "version " + std::to_string(version == 0 ? file.latestVersion : version);
}

void RequireVersion(HostContext& context, const FileRecord& file, int32_t version)
{
    if (version > 0 && !context.store->Version(file.id, version)) {
        throw UsageError("'" + VaultPathText(context.store->PathOfFile(file)) + "' has no version " +
                         std::to_string(version) + "; its versions go from 1 to " + std::to_string(file.latestVersion) +
                         ".");
    }
}

/// The values of a card by variable, and the configurations that have any, the file itself first.
struct Card
{
    std::map<int32_t, std::map<std::string, StoredValue>> values;
    std::vector<std::string> configurations;
};

Card ReadCard(const std::vector<CardValue>& values, const std::optional<std::string>& configuration)
{
    Card card;
    for (const CardValue& value : values) {
        if (configuration && value.configuration != *configuration) {
            continue;
        }
        card.values[value.variable][value.configuration] = value.value;
        const auto place =
            std::lower_bound(card.configurations.begin(), card.configurations.end(), value.configuration);
        if (place == card.configurations.end() || *place != value.configuration) {
            card.configurations.insert(place, value.configuration);
        }
    }
    return card;
}

void PrintCard(HostContext& context, const Card& card)
{
    std::vector<Table::Column> columns{{"Variable"}, {"Kind"}};
    for (const std::string& configuration : card.configurations) {
        columns.push_back({ConfigurationTitle(configuration)});
    }
    Table table(columns);
    for (const auto& [variable, values] : card.values) {
        const auto named = context.store->CardVariableById(variable);
        std::vector<std::string> cells{named ? named->name : std::to_string(variable),
                                       std::string(CardKindWord(values.begin()->second))};
        for (const std::string& configuration : card.configurations) {
            const auto value = values.find(configuration);
            cells.push_back(value == values.end() ? "" : CardValueText(value->second));
        }
        table.Add(std::move(cells));
    }
    table.Print(context.environment.out);
}

Json ToJson(HostContext& context, const Card& card)
{
    Json variables = Json::object();
    for (const auto& [variable, values] : card.values) {
        const auto named = context.store->CardVariableById(variable);
        Json& all = variables[named ? named->name : std::to_string(variable)] = Json::object();
        for (const auto& [configuration, value] : values) {
            all[configuration] = {{"kind", CardKindWord(value)}, {"value", ToJson(value)}};
        }
    }
    return variables;
}

/// The card variable of that name; made when there is none. Names that differ by their case alone would never be told
/// apart by a person.
int32_t VariableOf(HostContext& context, const std::string& name, std::vector<std::string>& made)
{
    if (const auto variable = context.store->FindCardVariable(name)) {
        return variable->id;
    }
    made.push_back(name);
    return context.store->MakeCardVariable(name);
}

void RefuseOtherCase(HostContext& context, const std::string& name)
{
    if (context.store->FindCardVariable(name)) {
        return;
    }
    for (const CardVariable& variable : context.store->CardVariables()) {
        if (SameName(variable.name, name)) {
            throw UsageError("There is no card variable '" + name + "', but '" + variable.name + "'; write it so.");
        }
    }
}

} // namespace

int CardCommand(HostContext& context, const std::string& path, int32_t version,
                const std::optional<std::string>& configuration)
{
    const FileRecord file = context.RequireFile(path);
    RequireVersion(context, file, version);
    const Card card = ReadCard(
        version > 0 ? context.store->CardValues(file.id, version) : context.store->WorkingCard(file.id), configuration);
    const std::string name = VaultPathText(context.store->PathOfFile(file));
    if (context.json) {
        context.PrintJson({{"path", name},
                           {"version", version > 0 ? version : file.latestVersion},
                           {"checkedOut", version == 0 && WorksOnCard(context, file)},
                           {"variables", ToJson(context, card)}});
        return kExitDone;
    }
    context.environment.out << name << "  " << VersionText(context, file, version) << "\n";
    if (card.values.empty()) {
        context.environment.out << "The card is empty"
                                << (configuration ? " for " + ConfigurationTitle(*configuration) : "")
                                << ". To write into it: tvtask card set \"" << name << "\" VARIABLE=VALUE\n";
    } else {
        PrintCard(context, card);
    }
    return kExitDone;
}

int SetCardCommand(HostContext& context, const std::string& path, const std::vector<std::string>& assignments,
                   const std::string& configuration)
{
    const FileRecord file = context.RequireFile(path);
    const std::vector<CardValue> present = context.store->WorkingCard(file.id);
    // The kind that the variable has in this configuration, or in whichever has it.
    const auto current = [&](std::string_view name) -> std::optional<StoredValue> {
        const auto variable = context.store->FindCardVariable(name);
        std::optional<StoredValue> found;
        for (const CardValue& value : present) {
            if (variable && value.variable == variable->id && (!found || value.configuration == configuration)) {
                found = value.value;
            }
        }
        return found;
    };
    std::vector<NamedValue> values;
    for (const std::string& assignment : assignments) {
        values.push_back(ParseCardAssignment(assignment, current));
        RefuseOtherCase(context, values.back().name);
    }
    std::vector<std::string> made;
    OnFile(context, file, [&] {
        context.store->RequireWritable(file);
        std::vector<CardWrite> writes;
        for (const NamedValue& value : values) {
            writes.push_back({file.id, VariableOf(context, value.name, made), configuration, value.value});
        }
        for (const Result result : context.store->WriteCards(writes)) {
            ThrowIfFailed(result);
        }
    });
    const std::string name = VaultPathText(context.store->PathOfFile(file));
    if (context.json) {
        context.PrintJson({{"path", name},
                           {"version", file.latestVersion},
                           {"checkedOut", WorksOnCard(context, file)},
                           {"written", values.size()},
                           {"newVariables", made}});
        return kExitDone;
    }
    for (const std::string& variable : made) {
        context.environment.out << "Made the card variable '" << variable << "'\n";
    }
    context.environment.out << "Wrote " << values.size() << (values.size() == 1 ? " value" : " values")
                            << " into the card of " << name << ", " << VersionText(context, file, 0) << "\n";
    return kExitDone;
}

} // namespace tv::local
