// Documents and what belongs to them, as macros and other processes see them.
#include "cad/objects.h"

#include "cad/text.h"
#include "macro/value.h"

namespace tv::app {

namespace {

using macro::Arguments;
using macro::InvokeKind;
using macro::MakeRef;
using macro::Value;

using DocumentPtr = std::shared_ptr<ModelDocument>;

Value TextArray(const std::vector<std::u16string>& texts)
{
    return Value(macro::Array::FromTexts(texts));
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

} // namespace

Value MakePdfExportData()
{
    return Value(MakeRef<PdfDataObject>());
}

Value DocumentValue(ObjectContext& context, const DocumentPtr& document)
{
    if (document == nullptr) {
        return Value::Nothing();
    }
    return Value(MakeRef<DocumentObject>(context, document));
}

} // namespace tv::app
