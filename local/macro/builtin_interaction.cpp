// Functions that reach the host, and the object Err.

#include "macro/builtins.h"
#include "macro/containers.h"
#include "macro/convert.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <cmath>

namespace tv::macro {

namespace {

Value MsgBox(Runtime& runtime, const Arguments& a)
{
    int32_t buttons = a.Has(1) ? a[1].ToLong() : 0;
    return Value(runtime.host.MessageBox(a[0].ToText(), buttons, a.Has(2) ? a[2].ToText() : u""));
}

Value InputBox(Runtime& runtime, const Arguments& a)
{
    return Value(runtime.host.InputBox(a[0].ToText(), a.Has(1) ? a[1].ToText() : u"", a.Has(2) ? a[2].ToText() : u""));
}

Value DoEvents(Runtime& runtime, const Arguments&)
{
    runtime.host.DoEvents();
    runtime.checkpoint();
    return Value(int16_t{0});
}

Value Beep(Runtime&, const Arguments&)
{
    return Value();
}

Value CreateObject(Runtime& runtime, const Arguments& a)
{
    std::u16string progId = a[0].ToText();
    Ref<Object> object = CreateBuiltinObject(runtime, Lower(progId));
    if (!object || Lower(progId) == u"collection") {
        object = runtime.host.CreateObject(progId);
    }
    if (!object) {
        Raise(kCannotCreateObject);
    }
    return Value(object);
}

Value GetObject(Runtime& runtime, const Arguments& a)
{
    Ref<Object> object = runtime.host.GetObject(a.Has(0) ? a[0].ToText() : u"", a.Has(1) ? a[1].ToText() : u"");
    if (!object) {
        Raise(kFileNotFoundByName);
    }
    return Value(object);
}

/// What the program was started with behind its name; a macro of a task has none of that.
Value Command(Runtime&, const Arguments&)
{
    return Value(u"");
}

/// By its name, or by its number together with the name.
Value Environ(Runtime& runtime, const Arguments& a)
{
    const std::vector<std::u16string> entries = runtime.host.Environment();
    if (!a[0].IsString()) {
        int32_t number = a[0].ToLong();
        if (number < 1) {
            Raise(kInvalidCall);
        }
        size_t index = static_cast<size_t>(number) - 1;
        return Value(index < entries.size() ? entries[index] : std::u16string());
    }
    const std::u16string name = a[0].ToText();
    if (name.empty()) {
        Raise(kInvalidCall);
    }
    for (const std::u16string& entry : entries) {
        if (entry.size() > name.size() && entry[name.size()] == u'=' &&
            EqualIgnoringCase(std::u16string_view(entry).substr(0, name.size()), name)) {
            return Value(entry.substr(name.size() + 1));
        }
    }
    return Value(u"");
}

Value IIf(Runtime&, const Arguments& a)
{
    bool truth = !a[0].IsNull() && a[0].ToBoolean();
    return a.All()[truth ? 1 : 2].Resolved();
}

Value Choose(Runtime&, const Arguments& a)
{
    int32_t index = CoerceTo(Type::Long, Value(std::trunc(a[0].ToDouble()))).ToLong();
    if (index < 1 || static_cast<size_t>(index) >= a.Count()) {
        return Value::Null();
    }
    return a[static_cast<size_t>(index)];
}

Value Switch(Runtime&, const Arguments& a)
{
    if (a.Count() % 2 != 0) {
        Raise(kInvalidCall);
    }
    for (size_t i = 0; i < a.Count(); i += 2) {
        if (!a[i].IsNull() && a[i].ToBoolean()) {
            return a[i + 1];
        }
    }
    return Value::Null();
}

/// The number of On ... GoTo.
Value ChosenNumber(Runtime&, const Arguments& a)
{
    constexpr int32_t kMostLabels = 255;
    int32_t number = a[0].ToLong();
    if (number < 0 || number > kMostLabels) {
        Raise(kInvalidCall);
    }
    return Value(number);
}

Value CallByName(Runtime&, const Arguments& a)
{
    Ref<Object> object = a[0].ToObject();
    if (!object) {
        Raise(kObjectNotSet);
    }
    int32_t type = a[2].ToLong();
    InvokeKind kind = type == 4 ? InvokeKind::Let : type == 8 ? InvokeKind::Set : InvokeKind::Get;
    Arguments rest(a.All().subspan(3));
    return object->Invoke(MemberName(a[1].ToText()), kind, rest);
}

constexpr Builtin kFunctions[] = {
    {u"beep", 0, 0, Type::Empty, Beep, {}},
    {u"callbyname", 3, kAnyNumber, Type::Variant, CallByName, {}},
    {u"choose", 1, kAnyNumber, Type::Variant, Choose, {}},
    {u"command", 0, 0, Type::String, Command, {}},
    {u"createobject", 1, 2, Type::Variant, CreateObject, u"Class ServerName"},
    {u"doevents", 0, 0, Type::Integer, DoEvents, {}},
    {u"environ", 1, 1, Type::String, Environ, u"Expression"},
    {u"getobject", 0, 2, Type::Variant, GetObject, u"PathName Class"},
    {u"iif", 3, 3, Type::Variant, IIf, u"Expression TruePart FalsePart"},
    {u"inputbox", 1, 7, Type::String, InputBox, u"Prompt Title Default XPos YPos HelpFile Context"},
    {u"msgbox", 1, 5, Type::Long, MsgBox, u"Prompt Buttons Title HelpFile Context"},
    {u"#choice", 1, 1, Type::Long, ChosenNumber, {}},
    {u"switch", 2, kAnyNumber, Type::Variant, Switch, {}},
};

} // namespace

std::span<const Builtin> InteractionFunctions()
{
    return kFunctions;
}

void ErrObject::Clear()
{
    number = 0;
    description.clear();
    source.clear();
    helpFile.clear();
    helpContext = 0;
    line = 0;
}

void ErrObject::Take(const MacroError& error)
{
    number = error.number;
    description = error.description;
    source = error.source.empty() ? u"TVMacro1" : error.source;
    helpFile = error.helpFile;
    helpContext = error.helpContext;
}

void ErrObject::RaiseFrom(const Arguments& given)
{
    static constexpr std::u16string_view kParameters[] = {u"number", u"source", u"description", u"helpfile",
                                                          u"helpcontext"};
    std::vector<Value> storage;
    Arguments a = given.Ordered(kParameters, storage);
    a.Expect(1, 5);
    int32_t number = a[0].ToLong();
    if (number == 0) {
        macro::Raise(kInvalidCall);
    }
    std::u16string words = a.Has(2) ? a[2].ToText() : std::u16string(ErrorDescription(number));
    MacroError error(number, std::move(words), a.Has(1) ? a[1].ToText() : std::u16string());
    error.helpFile = a.Has(3) ? a[3].ToText() : std::u16string();
    error.helpContext = a.Has(4) ? a[4].ToLong() : 0;
    throw error;
}

Value ErrObject::Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments)
{
    bool isLet = kind != InvokeKind::Get;
    if (name.Is(u"raise")) {
        RaiseFrom(arguments);
    }
    if (name.Is(u"clear")) {
        Clear();
        return Value();
    }
    if (name.Is(u"number") || name.IsDefault()) {
        if (isLet) {
            number = arguments[0].ToLong();
        }
        return Value(number);
    }
    struct Property
    {
        std::u16string_view name;
        std::u16string ErrObject::*member;
    };
    static constexpr Property kTexts[] = {{u"description", &ErrObject::description},
                                          {u"source", &ErrObject::source},
                                          {u"helpfile", &ErrObject::helpFile}};
    for (const Property& property : kTexts) {
        if (name.Is(property.name)) {
            if (isLet) {
                this->*property.member = arguments[0].ToText();
            }
            return Value(this->*property.member);
        }
    }
    if (name.Is(u"helpcontext")) {
        helpContext = isLet ? arguments[0].ToLong() : helpContext;
        return Value(helpContext);
    }
    if (name.Is(u"lastdllerror")) {
        return Value(int32_t{0});
    }
    NoSuchMember();
}

} // namespace tv::macro
