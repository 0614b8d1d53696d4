#include "host/task_commands.h"

#include "host/table.h"
#include "host/task_variables.h"
#include "vault/text.h"

#include <fstream>
#include <iterator>

namespace tv::local {

namespace {

struct TaskKindRow
{
    int32_t type;
    std::string_view word;
    int32_t resource;
};

constexpr TaskKindRow kTaskKinds[] = {
    {1, "convert", kConvertTemplate},
    {2, "print", kPrintTemplate},
    {3, "script", kExecuteTemplate},
};

constexpr int32_t kScriptKind = 3;
constexpr size_t kLongestShown = 70;

const TaskKindRow& RowOfType(int32_t type)
{
    for (const TaskKindRow& row : kTaskKinds) {
        if (row.type == type) {
            return row;
        }
    }
    return kTaskKinds[2];
}

int32_t TypeOf(HostContext& context, const TaskRecord& task)
{
    const auto value = context.store->TaskVariable(task.id, "__type");
    return value ? value->ToVariant().ToInt() : kScriptKind;
}

/// One line of it, cut where it gets long.
std::string Shown(const StoredValue& value)
{
    std::string text = value.Display();
    const size_t end = text.find_first_of("\r\n");
    const bool cut = end != std::string::npos || CharacterCount(text) > kLongestShown;
    const size_t full = text.size();
    text = Utf8(Utf16(text.substr(0, end)).substr(0, kLongestShown));
    return cut ? text + " … (" + std::to_string(full) + " bytes)" : text;
}

Json ToJson(const StoredValue& value)
{
    const auto kind = KindOfValue(value);
    if (kind == ValueKind::Int) {
        return std::get<int64_t>(value.content);
    }
    if (kind == ValueKind::Bool) {
        return std::get<int64_t>(value.content) != 0;
    }
    if (kind == ValueKind::Float) {
        return std::get<double>(value.content);
    }
    return value.Display();
}

std::string KindText(const StoredValue& value)
{
    const auto kind = KindOfValue(value);
    return kind ? std::string(KindWord(*kind)) : "other";
}

std::string ReadText(const std::string& name)
{
    std::ifstream stream(PathOf(name), std::ios::binary);
    if (!stream) {
        throw UsageError("The macro file '" + name + "' can't be read; give a text file, or --template.");
    }
    const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    // A macro is lines that end in CR LF, whatever the editor.
    std::string text;
    for (size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] == '\n' && (i == 0 || bytes[i - 1] != '\r')) {
            text += '\r';
        }
        text += bytes[i];
    }
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

} // namespace

int NewTaskCommand(HostContext& context, const std::string& name, const std::string& kind)
{
    const TaskKindRow* row = nullptr;
    for (const TaskKindRow& candidate : kTaskKinds) {
        row = candidate.word == kind ? &candidate : row;
    }
    if (row == nullptr) {
        throw UsageError("'" + kind + "' is no kind of task; write convert, print or script.");
    }
    if (context.store->FindTask(name)) {
        throw UsageError("There is a task '" + name + "' already; choose another name.");
    }
    const std::string script = context.environment.component.Template(row->resource);
    const TaskRecord task = context.store->MakeTask(name, NewTaskVariables(row->type, name, script));
    if (context.json) {
        context.PrintJson({{"id", task.id}, {"name", task.name}, {"kind", row->word}});
    } else {
        context.environment.out << "Made the " << row->word << " task '" << task.name << "'\n";
    }
    return kExitDone;
}

int ListTasksCommand(HostContext& context)
{
    Table table({{"Task"}, {"Kind"}, {"Format"}, {"Output path"}, {"Second output path"}});
    Json json = Json::array();
    for (const TaskRecord& task : context.store->Tasks()) {
        const auto show = [&](std::string_view variable) {
            const auto value = context.store->TaskVariable(task.id, variable);
            return value ? value->Display() : std::string();
        };
        const std::string_view kind = RowOfType(TypeOf(context, task)).word;
        table.Add({task.name, std::string(kind), show("FileFormat"), show("OutputPath"), show("OutputPath2")});
        json.push_back({{"id", task.id}, {"name", task.name}, {"kind", kind}});
    }
    if (context.json) {
        context.PrintJson(json);
    } else if (table.IsEmpty()) {
        context.environment.out << "There are no tasks. Make one with: tvtask task new NAME --kind convert\n";
    } else {
        table.Print(context.environment.out);
    }
    return kExitDone;
}

int ShowTaskCommand(HostContext& context, const std::string& name)
{
    const TaskRecord task = context.RequireTask(name);
    Table table({{"Variable"}, {"Kind"}, {"Id", Align::Right}, {"Value"}});
    Json json{{"id", task.id}, {"name", task.name}, {"variables", Json::object()}};
    for (const NamedValue& variable : context.store->TaskVariables(task.id)) {
        const auto identifier = context.store->VariableIdentifier(variable.name);
        table.Add(
            {variable.name, KindText(variable.value), std::to_string(identifier.value_or(0)), Shown(variable.value)});
        json["variables"][variable.name] = {{"kind", KindText(variable.value)}, {"value", ToJson(variable.value)}};
    }
    if (context.json) {
        context.PrintJson(json);
    } else {
        context.environment.out << "Task '" << task.name << "', " << RowOfType(TypeOf(context, task)).word << "\n";
        table.Print(context.environment.out);
    }
    return kExitDone;
}

int SetTaskCommand(HostContext& context, const std::string& name, const std::vector<std::string>& assignments)
{
    const TaskRecord task = context.RequireTask(name);
    std::vector<NamedValue> values;
    for (const std::string& text : assignments) {
        values.push_back(ParseAssignment(
            text, [&](std::string_view variable) { return context.store->TaskVariable(task.id, variable); }));
    }
    context.store->SetTaskVariables(task.id, values);
    Json json = Json::object();
    for (const NamedValue& value : values) {
        json[value.name] = ToJson(value.value);
        if (!context.json) {
            context.environment.out << value.name << " = " << Shown(value.value) << "\n";
        }
    }
    if (context.json) {
        context.PrintJson(json);
    }
    return kExitDone;
}

int TaskScriptCommand(HostContext& context, const std::string& name, const std::string& file, bool useTemplate)
{
    const TaskRecord task = context.RequireTask(name);
    if (useTemplate != file.empty()) {
        throw UsageError("Give the macro's file or --template, one of the two.");
    }
    const std::string script = useTemplate
                                   ? context.environment.component.Template(RowOfType(TypeOf(context, task)).resource)
                                   : ReadText(file);
    const NamedValue value{"__script", StoredValue::FromText(script)};
    context.store->SetTaskVariables(task.id, {&value, 1});
    if (context.json) {
        context.PrintJson({{"name", task.name}, {"bytes", script.size()}});
    } else {
        context.environment.out << "The task '" << task.name << "' has a macro of " << script.size() << " bytes\n";
    }
    return kExitDone;
}

} // namespace tv::local
