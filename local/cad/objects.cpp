#include "cad/objects.h"

#include "cad/text.h"
#include "macro/value.h"

#include <algorithm>

namespace tv::app {

namespace {

using macro::Arguments;
using macro::InvokeKind;
using macro::MakeRef;
using macro::Ref;
using macro::Value;

using DocumentPtr = std::shared_ptr<ModelDocument>;

Value TextArray(const std::vector<std::u16string>& texts)
{
    return Value(macro::Array::FromTexts(texts));
}

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

class NamedObject final : public TableObject<NamedObject>
{
  public:
    /// A thing of which the application tells the name only: a configuration, a sheet.
    NamedObject(std::u16string_view classNamed, std::u16string ownName) : kind(classNamed), name(std::move(ownName)) {}

    std::u16string ClassName() const override { return kind; }

    Value Name(InvokeKind invoke, Arguments&)
    {
        ExpectGet(invoke);
        return Value(name);
    }

    static constexpr std::u16string_view kClassName = u"Configuration";
    static const Member<NamedObject> kMembers[2];

  private:
    std::u16string kind;
    std::u16string name;
};

constexpr Member<NamedObject> NamedObject::kMembers[] = {
    {u"name", &NamedObject::Name},
    {u"getname", &NamedObject::Name},
};

class ConfigurationManagerObject final : public TableObject<ConfigurationManagerObject>
{
  public:
    explicit ConfigurationManagerObject(DocumentPtr owner) : document(std::move(owner)) {}

    Value ActiveConfiguration(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(MakeRef<NamedObject>(u"Configuration", document->ActiveItem()));
    }

    static constexpr std::u16string_view kClassName = u"ConfigurationManager";
    static const Member<ConfigurationManagerObject> kMembers[1];

  private:
    DocumentPtr document;
};

constexpr Member<ConfigurationManagerObject> ConfigurationManagerObject::kMembers[] = {
    {u"activeconfiguration", &ConfigurationManagerObject::ActiveConfiguration},
};

class ComponentObject final : public TableObject<ComponentObject>
{
  public:
    explicit ComponentObject(ComponentInfo shown) : component(std::move(shown)) {}

    Value IsVirtual(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(component.isVirtual);
    }

    Value GetPathName(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(component.path);
    }

    Value Name(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(component.name);
    }

    static constexpr std::u16string_view kClassName = u"Component2";
    static const Member<ComponentObject> kMembers[3];

  private:
    ComponentInfo component;
};

constexpr Member<ComponentObject> ComponentObject::kMembers[] = {
    {u"isvirtual", &ComponentObject::IsVirtual},
    {u"getpathname", &ComponentObject::GetPathName},
    {u"name", &ComponentObject::Name},
};

class PdfDataObject final : public TableObject<PdfDataObject>
{
  public:
    Value SetSheets(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(2, 2);
        const std::optional<int32_t> specified = FindConstant(u"tvExportData_ExportSpecifiedSheets");
        sheets.clear();
        if (arguments[0].ToLong() == specified) {
            const Value& names = arguments[1].Resolved();
            if (names.IsArray()) {
                for (const Value& name : names.ToArray()->items) {
                    sheets.push_back(name.ToText());
                }
            } else {
                sheets.push_back(names.ToText());
            }
        }
        return Value(true);
    }

    const std::vector<std::u16string>& Sheets() const { return sheets; }

    static constexpr std::u16string_view kClassName = u"ExportPdfData";
    static const Member<PdfDataObject> kMembers[1];

  private:
    std::vector<std::u16string> sheets;
};

constexpr Member<PdfDataObject> PdfDataObject::kMembers[] = {
    {u"setsheets", &PdfDataObject::SetSheets},
};

class ExtensionObject final : public TableObject<ExtensionObject>
{
  public:
    ExtensionObject(ObjectContext& objects, DocumentPtr owner) : context(objects), document(std::move(owner)) {}

    /// SaveAs(name, version, options, export data, errors, warnings)
    Value SaveAs(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(6, 6);
        std::vector<std::u16string> sheets;
        const Value& exportData = arguments[3].Resolved();
        if (exportData.IsObject() && !exportData.IsNothing()) {
            if (const auto* pdf = dynamic_cast<const PdfDataObject*>(exportData.ObjectPointer())) {
                sheets = pdf->Sheets();
            }
        }
        arguments.Assign(4, Value(int32_t{0}));
        arguments.Assign(5, Value(int32_t{0}));
        const SaveOutcome outcome = context.application.Save(*document, arguments[0].ToText(), sheets);
        arguments.Assign(4, Value(outcome.error));
        return Value(outcome.Succeeded());
    }

    static constexpr std::u16string_view kClassName = u"ModelDocExtension";
    static const Member<ExtensionObject> kMembers[1];

  private:
    ObjectContext& context;
    DocumentPtr document;
};

constexpr Member<ExtensionObject> ExtensionObject::kMembers[] = {
    {u"saveas", &ExtensionObject::SaveAs},
};

class ModelViewObject final : public TableObject<ModelViewObject>
{
  public:
    explicit ModelViewObject(DocumentPtr owner) : document(std::move(owner)) {}

    std::shared_ptr<EventSource> Events() const override { return document->ViewEvents(); }
    const void* Identity() const override { return document->ViewEvents().get(); }

    /// A document has one view.
    Value GetNextModelView(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value::Nothing();
    }

    static constexpr std::u16string_view kClassName = u"ModelView";
    static const Member<ModelViewObject> kMembers[1];

  private:
    DocumentPtr document;
};

constexpr Member<ModelViewObject> ModelViewObject::kMembers[] = {
    {u"getnextmodelview", &ModelViewObject::GetNextModelView},
};

/// One look at a model on a sheet.
class DrawingViewObject final : public TableObject<DrawingViewObject>
{
  public:
    explicit DrawingViewObject(std::u16string ownName) : name(std::move(ownName)) {}

    Value GetName(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(name);
    }

    /// Texts of this application's views are never linked, so a view has no items.
    Value GetItems(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(macro::Array::FromValues({}));
    }

    static constexpr std::u16string_view kClassName = u"View";
    static const Member<DrawingViewObject> kMembers[2];

  private:
    std::u16string name;
};

constexpr Member<DrawingViewObject> DrawingViewObject::kMembers[] = {
    {u"getname", &DrawingViewObject::GetName},
    {u"getitems", &DrawingViewObject::GetItems},
};

class DocumentObject final : public TableObject<DocumentObject>
{
  public:
    DocumentObject(ObjectContext& objects, DocumentPtr shown) : context(objects), document(std::move(shown)) {}

    std::shared_ptr<EventSource> Events() const override { return document->Events(); }
    const void* Identity() const override { return document.get(); }

    std::u16string ClassName() const override { return u"ModelDoc2"; }

    bool IsKindOf(std::u16string_view className) const override
    {
        const std::u16string folded = macro::FoldCase(className);
        switch (document->Type()) {
        case DocumentType::Part:
            return folded == u"modeldoc2" || folded == u"partdoc";
        case DocumentType::Assembly:
            return folded == u"modeldoc2" || folded == u"assemblydoc";
        default:
            return folded == u"modeldoc2" || folded == u"drawingdoc";
        }
    }

    Value GetType(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(static_cast<int32_t>(document->Type()));
    }

    Value GetPathName(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(document->Path());
    }

    Value GetTitle(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(document->Title());
    }

    Value Extension(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(MakeRef<ExtensionObject>(context, document));
    }

    Value ConfigurationManager(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        if (document->IsDrawing()) {
            return Value::Nothing();
        }
        return Value(MakeRef<ConfigurationManagerObject>(document));
    }

    Value GetConfigurationNames(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return document->IsDrawing() ? Value() : TextArray(document->Items());
    }

    Value ShowConfiguration(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        arguments.Expect(1, 1);
        return Activated(!document->IsDrawing(), arguments[0].ToText());
    }

    Value GetNextDocument(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return DocumentValue(context, context.application.NextAfter(*document));
    }

    Value GetFirstModelView(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(MakeRef<ModelViewObject>(document));
    }

    Value GetPrintTarget(InvokeKind kind, Arguments&)
    {
        ExpectGet(kind);
        return Value(document->printTarget);
    }

    Value GetSheetNames(InvokeKind kind, Arguments&)
    {
        ExpectDrawing(kind);
        return TextArray(document->Items());
    }

    Value GetCurrentSheet(InvokeKind kind, Arguments&)
    {
        ExpectDrawing(kind);
        return Value(MakeRef<NamedObject>(u"Sheet", document->ActiveItem()));
    }

    Value ActivateSheet(InvokeKind kind, Arguments& arguments)
    {
        ExpectDrawing(kind);
        arguments.Expect(1, 1);
        return Activated(true, arguments[0].ToText());
    }

    Value GetViewArrays(InvokeKind kind, Arguments&)
    {
        ExpectDrawing(kind);
        std::vector<Value> sheets;
        for (const document::Sheet& sheet : std::get<document::Drawing>(document->Content()->content).sheets) {
            std::vector<Value> views;
            for (const document::View& view : sheet.views) {
                views.push_back(Value(MakeRef<DrawingViewObject>(ToUtf16(view.name))));
            }
            sheets.push_back(Value(macro::Array::FromValues(std::move(views))));
        }
        return Value(macro::Array::FromValues(std::move(sheets)));
    }

    Value GetComponents(InvokeKind kind, Arguments& arguments)
    {
        ExpectGet(kind);
        if (document->Type() != DocumentType::Assembly) {
            NoSuchMember();
        }
        arguments.Expect(1, 1);
        std::vector<Value> components;
        for (ComponentInfo& component : document->Components(arguments[0].ToBoolean())) {
            components.push_back(Value(MakeRef<ComponentObject>(std::move(component))));
        }
        return components.empty() ? Value() : Value(macro::Array::FromValues(std::move(components)));
    }

    static constexpr std::u16string_view kClassName = u"ModelDoc2";
    static const Member<DocumentObject> kMembers[15];

  private:
    void ExpectDrawing(InvokeKind kind) const
    {
        ExpectGet(kind);
        if (!document->IsDrawing()) {
            NoSuchMember();
        }
    }

    Value Activated(bool applies, std::u16string_view name)
    {
        const bool done = applies && document->Activate(name);
        if (done) {
            context.application.onChanged();
        }
        return Value(done);
    }

    ObjectContext& context;
    DocumentPtr document;
};

constexpr Member<DocumentObject> DocumentObject::kMembers[] = {
    {u"gettype", &DocumentObject::GetType},
    {u"getpathname", &DocumentObject::GetPathName},
    {u"gettitle", &DocumentObject::GetTitle},
    {u"extension", &DocumentObject::Extension},
    {u"configurationmanager", &DocumentObject::ConfigurationManager},
    {u"getconfigurationnames", &DocumentObject::GetConfigurationNames},
    {u"showconfiguration", &DocumentObject::ShowConfiguration},
    {u"getnextdocument", &DocumentObject::GetNextDocument},
    {u"getfirstmodelview", &DocumentObject::GetFirstModelView},
    {u"getprinttarget", &DocumentObject::GetPrintTarget},
    {u"getsheetnames", &DocumentObject::GetSheetNames},
    {u"getcurrentsheet", &DocumentObject::GetCurrentSheet},
    {u"activatesheet", &DocumentObject::ActivateSheet},
    {u"getviewarrays", &DocumentObject::GetViewArrays},
    {u"getcomponents", &DocumentObject::GetComponents},
};

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
        return Value(MakeRef<PdfDataObject>());
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

Value DocumentValue(ObjectContext& context, const DocumentPtr& document)
{
    if (document == nullptr) {
        return Value::Nothing();
    }
    return Value(MakeRef<DocumentObject>(context, document));
}

bool IsClassName(std::u16string_view folded)
{
    constexpr std::u16string_view kClasses[] = {
        u"application",   u"assemblydoc",          u"component2",        u"configuration", u"configurationmanager",
        u"documentspecification", u"drawingdoc",   u"exportpdfdata",     u"frame",         u"modeldoc2",
        u"modeldocextension",     u"modelview",    u"partdoc",           u"sheet",         u"torvane",
        u"view",
    };
    return std::ranges::find(kClasses, folded) != std::end(kClasses);
}

} // namespace tv::app
