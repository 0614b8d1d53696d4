#include "local_macro/templates/scripted_application.h"

#include "macro/error.h"
#include "macro/text.h"

#include <algorithm>
#include <optional>

namespace tv::macro {

std::string Utf8Text(std::u16string_view text)
{
    std::string bytes;
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t point = text[i];
        if (point >= 0xD800 && point < 0xDC00 && i + 1 < text.size()) {
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
        }
        const int tail = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
        constexpr uint32_t kLead[] = {0, 0xC0, 0xE0, 0xF0};
        bytes.push_back(static_cast<char>(kLead[tail] | (point >> (6 * tail))));
        for (int i6 = tail - 1; i6 >= 0; --i6) {
            bytes.push_back(static_cast<char>(0x80 | ((point >> (6 * i6)) & 0x3F)));
        }
    }
    return bytes;
}

namespace {

std::string Shown(const Value& given)
{
    const Value& value = given.Resolved();
    if (value.IsObject()) {
        return value.IsNothing() ? "Nothing" : Utf8Text(value.ObjectPointer()->ClassName());
    }
    if (value.IsEmpty()) {
        return "Empty";
    }
    if (value.IsArray()) {
        const Array& array = *value.ArrayPointer();
        std::string joined = array.elementType == Type::Long ? "Long[" : "[";
        for (size_t i = 0; i < array.items.size(); ++i) {
            joined += (i > 0 ? ", " : "") + Shown(array.items[i]);
        }
        return joined + "]";
    }
    const std::string text = Utf8Text(value.ToText());
    return value.IsString() ? '"' + text + '"' : text;
}

/// An object of the application. Each member is entered in the call log under the label of its object before it does
/// its work; what the object doesn't have is error 438.
class ScriptedObject : public Object
{
  public:
    ScriptedObject(ScriptedCad& world, std::u16string_view ownClass, std::string ownLabel)
        : cad(world), className(ownClass), label(std::move(ownLabel))
    {}

    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) final
    {
        if (cad.recording) {
            cad.calls.push_back(Line(name, kind, arguments));
        }
        if (!cad.failures.empty()) {
            const auto failure = cad.failures.find(label + "." + Utf8Text(name.text));
            if (failure != cad.failures.end()) {
                Raise(failure->second);
            }
        }
        if (kind != InvokeKind::Get) {
            if (!Take(name, arguments[0])) {
                NoSuchMember();
            }
            return Value();
        }
        std::optional<Value> answer = Answer(name, arguments);
        if (!answer) {
            NoSuchMember();
        }
        return *answer;
    }

    std::u16string ClassName() const override { return className; }

  protected:
    /// Reads a property or does a call; nothing when the object has no such member.
    virtual std::optional<Value> Answer(const MemberName& name, Arguments& arguments) = 0;
    /// Takes the value of a property; false when the object has none of the name.
    virtual bool Take(const MemberName&, const Value&) { return false; }

    ScriptedCad& cad;

  private:
    std::string Line(const MemberName& name, InvokeKind kind, const Arguments& arguments) const
    {
        std::string line = label + "." + Utf8Text(name.text) + (kind == InvokeKind::Get ? "" : " =");
        for (size_t i = 0; i < arguments.Count(); ++i) {
            line += i == 0 ? " " : ", ";
            const auto preference = i == 0 && name.folded.starts_with(u"setuserpreference") && arguments[0].IsNumeric()
                                        ? cad.preferenceNames.find(arguments[0].ToLong())
                                        : cad.preferenceNames.end();
            line += preference != cad.preferenceNames.end() ? preference->second : Shown(arguments[i]);
        }
        return line;
    }

    std::u16string className;
    std::string label;
};

/// What has one readable member, such as the name of a configuration.
class NamedObject final : public ScriptedObject
{
  public:
    NamedObject(ScriptedCad& world, std::u16string_view ownClass, std::u16string_view ownMember, Value ownValue)
        : ScriptedObject(world, ownClass, Utf8Text(ownClass)), member(ownMember), value(std::move(ownValue))
    {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        arguments.Expect(0, 0);
        return name.Is(member) ? std::optional(value) : std::nullopt;
    }

  private:
    std::u16string_view member;
    Value value;
};

class Frame final : public ScriptedObject
{
  public:
    explicit Frame(ScriptedCad& world) : ScriptedObject(world, u"Frame", "Frame") {}

  protected:
    std::optional<Value> Answer(const MemberName&, Arguments&) override { return std::nullopt; }
    bool Take(const MemberName& name, const Value&) override { return name.Is(u"keepinvisible"); }
};

class PdfData final : public ScriptedObject
{
  public:
    explicit PdfData(ScriptedCad& world) : ScriptedObject(world, u"ExportPdfData", "ExportPdfData") {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        if (!name.Is(u"setsheets")) {
            return std::nullopt;
        }
        arguments.Expect(2, 2);
        return Value(true);
    }
};

class Specification final : public ScriptedObject
{
  public:
    Specification(ScriptedCad& world, std::u16string ownPath)
        : ScriptedObject(world, u"DocumentSpecification", "Specification"), path(std::move(ownPath))
    {}

    const std::u16string path;

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        arguments.Expect(0, 0);
        return name.Is(u"error") ? std::optional(Value(cad.openError)) : std::nullopt;
    }
    bool Take(const MemberName& name, const Value&) override
    {
        constexpr std::u16string_view kProperties[] = {u"documenttype", u"readonly", u"silent", u"configurationname",
                                                       u"displaystate"};
        return std::ranges::count(kProperties, name.folded) == 1;
    }
};

class PageSetup final : public ScriptedObject
{
  public:
    explicit PageSetup(ScriptedCad& world) : ScriptedObject(world, u"PageSetup", "PageSetup") {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        if (!name.Is(u"setheader") && !name.Is(u"setfooter")) {
            return std::nullopt;
        }
        arguments.Expect(3, 3);
        return Value(true);
    }
    bool Take(const MemberName& name, const Value&) override
    {
        return name.Is(u"printerpapersize") || name.Is(u"orientation");
    }
};

class Extension final : public ScriptedObject
{
  public:
    explicit Extension(ScriptedCad& world) : ScriptedObject(world, u"ModelDocExtension", "Extension") {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        if (name.Is(u"saveas")) {
            arguments.Expect(6, 6);
            const std::u16string target = arguments[0].ToText();
            if (cad.onSave) {
                cad.onSave(target);
            }
            const auto found = cad.saves.find(target);
            const SaveOutcome outcome = found == cad.saves.end() ? SaveOutcome{} : found->second;
            arguments.Assign(4, Value(outcome.errors));
            arguments.Assign(5, Value(outcome.warnings));
            return Value(bool{outcome.succeeds});
        }
        if (name.Is(u"printout2")) {
            arguments.Expect(5, 5);
            cad.waitingMessages.insert(cad.waitingMessages.end(), cad.printMessages.begin(), cad.printMessages.end());
            return Value();
        }
        return std::nullopt;
    }
    bool Take(const MemberName& name, const Value&) override { return name.Is(u"usepagesetup"); }
};

std::u16string FileName(const std::u16string& path)
{
    return path.substr(path.find_last_of(u'\\') + 1);
}

class Model final : public ScriptedObject
{
  public:
    Model(ScriptedCad& world, std::u16string ownPath, const ScriptedDocument& ownDocument)
        : ScriptedObject(world, u"ModelDoc2", Utf8Text(FileName(ownPath))), path(std::move(ownPath)),
          document(ownDocument)
    {}

    bool IsKindOf(std::u16string_view name) const override
    {
        return EqualIgnoringCase(name, u"ModelDoc2") ||
               (EqualIgnoringCase(name, u"DrawingDoc") && document.type == kScriptedDrawing) ||
               (EqualIgnoringCase(name, u"AssemblyDoc") && document.type == kScriptedAssembly);
    }

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        if (name.Is(u"gettype")) {
            return Value(document.type);
        }
        if (name.Is(u"getpathname")) {
            return Value(document.hasPath ? path : std::u16string());
        }
        if (name.Is(u"gettitle")) {
            return Value(FileName(path));
        }
        if (name.Is(u"extension")) {
            return Value(MakeRef<Extension>(cad));
        }
        if (name.Is(u"pagesetup")) {
            return Value(MakeRef<PageSetup>(cad));
        }
        if (name.Is(u"printer")) {
            return Value(printer);
        }
        return document.type == kScriptedDrawing ? AnswerAsDrawing(name, arguments) : AnswerAsModel(name, arguments);
    }

    bool Take(const MemberName& name, const Value& value) override
    {
        if (!name.Is(u"printer")) {
            return false;
        }
        if (cad.printers.contains(value.ToText())) {
            printer = value.ToText();
        }
        return true;
    }

  private:
    std::optional<Value> AnswerAsDrawing(const MemberName& name, Arguments& arguments)
    {
        if (name.Is(u"getsheetnames")) {
            return Value(Array::FromTexts(document.sheets));
        }
        if (name.Is(u"getcurrentsheet")) {
            return Value(MakeRef<NamedObject>(cad, u"Sheet", u"getname", Value(document.sheets[document.active])));
        }
        if (name.Is(u"activatesheet")) {
            arguments.Expect(1, 1);
            return Value(true);
        }
        return std::nullopt;
    }

    std::optional<Value> AnswerAsModel(const MemberName& name, Arguments& arguments)
    {
        if (name.Is(u"getconfigurationnames")) {
            return Value(Array::FromTexts(document.configurations));
        }
        if (name.Is(u"configurationmanager")) {
            const Value active(document.configurations[document.active]);
            const Value configuration(MakeRef<NamedObject>(cad, u"Configuration", u"name", active));
            return Value(MakeRef<NamedObject>(cad, u"ConfigurationManager", u"activeconfiguration", configuration));
        }
        if (name.Is(u"showconfiguration")) {
            arguments.Expect(1, 1);
            return Value(std::ranges::count(document.configurations, arguments[0].ToText()) > 0);
        }
        if (name.Is(u"getcomponents") && document.type == kScriptedAssembly) {
            return Components();
        }
        return std::nullopt;
    }

    Value Components();

    const std::u16string path;
    const ScriptedDocument document;
    std::u16string printer = u"System default";
};

class Component final : public ScriptedObject
{
  public:
    Component(ScriptedCad& world, ScriptedComponent ownComponent)
        : ScriptedObject(world, u"Component2", "Component"), component(std::move(ownComponent))
    {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        arguments.Expect(0, 0);
        if (name.Is(u"isvirtual")) {
            return Value(bool{component.isVirtual});
        }
        return name.Is(u"getpathname") ? std::optional(Value(component.path)) : std::nullopt;
    }

  private:
    const ScriptedComponent component;
};

Value Model::Components()
{
    if (document.components.empty()) {
        return Value();
    }
    std::vector<Value> components;
    for (const ScriptedComponent& component : document.components) {
        components.push_back(Value(MakeRef<Component>(cad, component)));
    }
    return Value(Array::FromValues(std::move(components)));
}

class Torvane final : public ScriptedObject
{
  public:
    explicit Torvane(ScriptedCad& world) : ScriptedObject(world, u"Torvane", "Torvane") {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        if (name.Is(u"loadfile4")) {
            arguments.Expect(4, 4);
            arguments.Assign(3, Value(cad.openError));
            return Open(arguments[0].ToText());
        }
        if (name.Is(u"getopendocspec")) {
            return Value(MakeRef<Specification>(cad, arguments[0].ToText()));
        }
        if (name.Is(u"opendoc7")) {
            return Open(static_cast<Specification*>(arguments[0].ObjectPointer())->path);
        }
        if (name.Is(u"revisionnumber")) {
            return Value(cad.revision);
        }
        if (name.Is(u"frame")) {
            return Value(MakeRef<Frame>(cad));
        }
        if (name.Is(u"getexportfiledata")) {
            return Value(MakeRef<PdfData>(cad));
        }
        if (name.Is(u"geterrormessages")) {
            return GiveMessages(arguments);
        }
        return DoSimply(name, arguments);
    }

  private:
    /// Calls of which the log alone matters, with their number of arguments.
    static std::optional<Value> DoSimply(const MemberName& name, Arguments& arguments)
    {
        struct Row
        {
            std::u16string_view name;
            size_t arguments;
        };
        constexpr Row kRows[] = {
            {u"activatedoc2", 3},
            {u"quitdoc", 1},
            {u"setuserpreferencetoggle", 2},
            {u"setuserpreferenceintegervalue", 2},
            {u"setuserpreferencedoublevalue", 2},
            {u"setuserpreferencestringlistvalue", 2},
        };
        for (const Row& row : kRows) {
            if (name.Is(row.name)) {
                arguments.Expect(row.arguments, row.arguments);
                return Value(true);
            }
        }
        return std::nullopt;
    }

    Value Open(const std::u16string& path)
    {
        const auto found = cad.documents.find(path);
        return found == cad.documents.end() ? Value::Nothing() : Value(MakeRef<Model>(cad, path, found->second));
    }

    Value GiveMessages(Arguments& arguments)
    {
        arguments.Expect(3, 3);
        const auto count = static_cast<int32_t>(cad.waitingMessages.size());
        if (count > 0) {
            arguments.Assign(0, Value(Array::FromTexts(cad.waitingMessages)));
            arguments.Assign(1,
                             Value(MakeRef<Array>(Type::Long, std::vector<Dimension>{{0, count}}, Value(int32_t{0}))));
            arguments.Assign(2,
                             Value(MakeRef<Array>(Type::Long, std::vector<Dimension>{{0, count}}, Value(int32_t{0}))));
        } else {
            arguments.Assign(0, Value());
        }
        cad.waitingMessages.clear();
        return Value(count);
    }
};

class ApplicationObject final : public ScriptedObject
{
  public:
    explicit ApplicationObject(ScriptedCad& world) : ScriptedObject(world, u"Application", "Application") {}

  protected:
    std::optional<Value> Answer(const MemberName& name, Arguments& arguments) override
    {
        arguments.Expect(0, 0);
        return name.Is(u"torvane") ? std::optional(Value(MakeRef<Torvane>(cad))) : std::nullopt;
    }
};

} // namespace

Ref<Object> MakeScriptedApplication(ScriptedCad& cad)
{
    return MakeRef<ApplicationObject>(cad);
}

} // namespace tv::macro
