// The application itself, as macros and other processes see it.
#include "cad/objects.h"

#include "macro/value.h"

#include <algorithm>

namespace tv::app {

namespace {

using macro::Arguments;
using macro::InvokeKind;
using macro::MakeRef;
using macro::Ref;
using macro::Value;

/// A text property that macros read and write.
Value TextProperty(std::u16string& field, InvokeKind kind, Arguments& arguments)
{
    if (kind == InvokeKind::Get) {
        return Value(field);
    }
    field = arguments[0].ToText();
    return {};
}

Value BoolProperty(bool& field, InvokeKind kind, Arguments& arguments)
{
    if (kind == InvokeKind::Get) {
        return Value(field);
    }
    field = arguments[0].ToBoolean();
    return {};
}

Value LongProperty(int32_t& field, InvokeKind kind, Arguments& arguments)
{
    if (kind == InvokeKind::Get) {
        return Value(field);
    }
    field = arguments[0].ToLong();
    return {};
}

/// How a document is to be opened, and how that went.
class SpecificationObject final : public TableObject<SpecificationObject>
{
  public:
    explicit SpecificationObject(std::u16string file) : path(std::move(file)) {}

    Value FileName(InvokeKind kind, Arguments& arguments) { return TextProperty(path, kind, arguments); }
    Value DocumentType(InvokeKind kind, Arguments& arguments) { return LongProperty(type, kind, arguments); }
    Value ReadOnly(InvokeKind kind, Arguments& arguments) { return BoolProperty(readOnly, kind, arguments); }
    Value Silent(InvokeKind kind, Arguments& arguments) { return BoolProperty(silent, kind, arguments); }
    Value ConfigurationName(InvokeKind kind, Arguments& arguments)
    {
        return TextProperty(configuration, kind, arguments);
    }
    Value DisplayState(InvokeKind kind, Arguments& arguments) { return TextProperty(displayState, kind, arguments); }
    Value Error(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(error);
    }

    static constexpr std::u16string_view kClassName = u"DocumentSpecification";
    static const Member<SpecificationObject> kMembers[7];

    std::u16string path;
    int32_t type = 0;
    bool readOnly = false;
    bool silent = false;
    std::u16string configuration;
    std::u16string displayState;
    int32_t error = 0;
};

constexpr Member<SpecificationObject> SpecificationObject::kMembers[] = {
    {u"filename", &SpecificationObject::FileName},
    {u"documenttype", &SpecificationObject::DocumentType},
    {u"readonly", &SpecificationObject::ReadOnly},
    {u"silent", &SpecificationObject::Silent},
    {u"configurationname", &SpecificationObject::ConfigurationName},
    {u"displaystate", &SpecificationObject::DisplayState},
    {u"error", &SpecificationObject::Error},
};

class FrameObject final : public TableObject<FrameObject>
{
  public:
    explicit FrameObject(Application& owner) : application(owner) {}

    const void* Identity() const override { return &application.keepsInvisible; }

    /// The member's name is spelled so.
    Value KeepInVisible(InvokeKind kind, Arguments& arguments)
    {
        return BoolProperty(application.keepsInvisible, kind, arguments);
    }

    Value GetWindowHandle(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(static_cast<int64_t>(application.mainWindow));
    }

    static constexpr std::u16string_view kClassName = u"Frame";
    static const Member<FrameObject> kMembers[2];

  private:
    Application& application;
};

constexpr Member<FrameObject> FrameObject::kMembers[] = {
    {u"keepinvisible", &FrameObject::KeepInVisible},
    {u"getwindowhandle", &FrameObject::GetWindowHandle},
};

class ApplicationObject final : public TableObject<ApplicationObject>
{
  public:
    explicit ApplicationObject(ObjectContext& objects) : context(objects), application(objects.application) {}

    std::shared_ptr<EventSource> Events() const override { return application.Events(); }
    const void* Identity() const override { return &application; }

    Value RevisionNumber(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(application.revision);
    }

    Value SetUserPreferenceToggle(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(2, 2);
        application.preferences.SetToggle(arguments[0].ToLong(), arguments[1].ToBoolean());
        return Value(true);
    }

    Value GetUserPreferenceToggle(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        return Value(application.preferences.Toggle(arguments[0].ToLong()));
    }

    Value SetUserPreferenceIntegerValue(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(2, 2);
        application.preferences.SetInteger(arguments[0].ToLong(), arguments[1].ToLong());
        return Value(true);
    }

    Value GetUserPreferenceIntegerValue(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        return Value(application.preferences.Integer(arguments[0].ToLong()));
    }

    Value SetUserPreferenceStringListValue(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(2, 2);
        application.preferences.SetStringList(arguments[0].ToLong(), arguments[1].ToText());
        return Value(true);
    }

    Value GetUserPreferenceStringListValue(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        return Value(application.preferences.StringList(arguments[0].ToLong()));
    }

    Value SetInteractive(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        application.isInteractive = arguments[0].ToBoolean();
        return {};
    }

    Value SetBackgroundRun(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        application.isBackgroundRun = arguments[0].ToBoolean();
        return {};
    }

    Value SetMainWindowShown(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        application.onWindowShown(arguments[0].ToBoolean());
        return {};
    }

    Value SetAppSwitch(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(2, 2);
        application.switches[arguments[0].ToLong()] = arguments[1].ToBoolean();
        return {};
    }

    Value Frame(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(MakeRef<FrameObject>(application));
    }

    Value CloseAllDocuments(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        application.CloseAll();
        return Value(true);
    }

    Value ExitApplication(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        application.onExit();
        return {};
    }

    Value RunMacro(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(3, 3);
        return Value(context.runMacro(arguments[0].ToText(), arguments[1].ToText(), arguments[2].ToText()).succeeded);
    }

    Value RunMacroEx(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(5, 5);
        const MacroOutcome outcome =
            context.runMacro(arguments[0].ToText(), arguments[1].ToText(), arguments[2].ToText());
        arguments.Assign(4, Value(outcome.error));
        return Value(outcome.succeeded);
    }

    Value GetFirstDocument(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return DocumentValue(context, application.Documents().empty() ? nullptr : application.Documents().front());
    }

    Value ActiveDoc(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return DocumentValue(context, application.ActiveDocument());
    }

    /// LoadFile4(path, argument text, import data, errors)
    Value LoadFile4(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(4, 4);
        const OpenOutcome outcome = application.Load(arguments[0].ToText());
        arguments.Assign(3, Value(outcome.error));
        return DocumentValue(context, outcome.document);
    }

    Value GetOpenDocSpec(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        return Value(MakeRef<SpecificationObject>(arguments[0].ToText()));
    }

    Value OpenDoc7(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        const Ref<macro::Object> given = arguments[0].ToObject();
        auto* specification = dynamic_cast<SpecificationObject*>(given.get());
        if (specification == nullptr) {
            throw macro::MacroError(macro::kTypeMismatch);
        }
        const OpenOutcome outcome =
            application.Open(specification->path, static_cast<app::DocumentType>(specification->type),
                             specification->readOnly, specification->configuration);
        specification->error = outcome.error;
        return DocumentValue(context, outcome.document);
    }

    /// ActivateDoc2(name, silent, errors)
    Value ActivateDoc2(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(3, 3);
        const bool found = application.Activate(arguments[0].ToText());
        arguments.Assign(2, Value(int32_t{found ? 0 : 1}));
        return DocumentValue(context, found ? application.ActiveDocument() : nullptr);
    }

    Value GetExportFileData(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        if (arguments[0].ToLong() != FindConstant(u"tvExportPdfData")) {
            return Value::Nothing();
        }
        return MakePdfExportData();
    }

    Value QuitDoc(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        application.Close(arguments[0].ToText());
        return {};
    }

    static constexpr std::u16string_view kClassName = u"Torvane";
    static const Member<ApplicationObject> kMembers[24];

  private:
    ObjectContext& context;
    Application& application;
};

constexpr Member<ApplicationObject> ApplicationObject::kMembers[] = {
    {u"revisionnumber", &ApplicationObject::RevisionNumber},
    {u"setuserpreferencetoggle", &ApplicationObject::SetUserPreferenceToggle},
    {u"getuserpreferencetoggle", &ApplicationObject::GetUserPreferenceToggle},
    {u"setuserpreferenceintegervalue", &ApplicationObject::SetUserPreferenceIntegerValue},
    {u"getuserpreferenceintegervalue", &ApplicationObject::GetUserPreferenceIntegerValue},
    {u"setuserpreferencestringlistvalue", &ApplicationObject::SetUserPreferenceStringListValue},
    {u"getuserpreferencestringlistvalue", &ApplicationObject::GetUserPreferenceStringListValue},
    {u"setinteractive", &ApplicationObject::SetInteractive},
    {u"setbackgroundrun", &ApplicationObject::SetBackgroundRun},
    {u"setmainwindowshown", &ApplicationObject::SetMainWindowShown},
    {u"setappswitch", &ApplicationObject::SetAppSwitch},
    {u"frame", &ApplicationObject::Frame},
    {u"closealldocuments", &ApplicationObject::CloseAllDocuments},
    {u"exitapplication", &ApplicationObject::ExitApplication},
    {u"runmacro", &ApplicationObject::RunMacro},
    {u"runmacroex", &ApplicationObject::RunMacroEx},
    {u"getfirstdocument", &ApplicationObject::GetFirstDocument},
    {u"activedoc", &ApplicationObject::ActiveDoc},
    {u"loadfile4", &ApplicationObject::LoadFile4},
    {u"getopendocspec", &ApplicationObject::GetOpenDocSpec},
    {u"opendoc7", &ApplicationObject::OpenDoc7},
    {u"activatedoc2", &ApplicationObject::ActivateDoc2},
    {u"getexportfiledata", &ApplicationObject::GetExportFileData},
    {u"quitdoc", &ApplicationObject::QuitDoc},
};

class GlobalObject final : public TableObject<GlobalObject>
{
  public:
    explicit GlobalObject(ObjectContext& objects) : context(objects) {}

    Value Torvane(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(MakeApplicationObject(context));
    }

    static constexpr std::u16string_view kClassName = u"Application";
    static const Member<GlobalObject> kMembers[1];

  private:
    ObjectContext& context;
};

constexpr Member<GlobalObject> GlobalObject::kMembers[] = {
    {u"torvane", &GlobalObject::Torvane},
};

} // namespace

Ref<macro::Object> MakeApplicationObject(ObjectContext& context)
{
    return MakeRef<ApplicationObject>(context);
}

Ref<macro::Object> MakeGlobalObject(ObjectContext& context)
{
    return MakeRef<GlobalObject>(context);
}

} // namespace tv::app
