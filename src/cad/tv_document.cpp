#include "cad/tv_document.h"

#include "cad/dispatch_application.h"
#include "cad/event_interfaces.h"
#include "cad/linked_text.h"
#include "cad/output_names.h"
#include "cad/tv_manager.h"
#include "com/bstring.h"
#include "com/result.h"
#include "com/variant.h"
#include "vault/vault_files.h"

#include <algorithm>

namespace tv {

namespace {

constexpr int32_t kDrawing = 3;
constexpr int32_t kConvertTask = 1;
constexpr int32_t kPrintTask = 2;

/// A document that lacks the interface that its kind has is no document to record from.
template <typename Interface> ComPtr<Interface> Require(IUnknown* object, ComPtr<Interface>& found)
{
    if (!found && AskApplication(object, found) < 0) {
        throw ResultError(E_POINTER);
    }
    return found;
}

} // namespace

CTVDocument::CTVDocument(TVManager& owner, ComPtr<ITorvaneDocument> found, ComPtr<IUnknown> identity, int32_t type)
    : manager(owner), listed(std::move(found)), document(std::move(identity)), documentType(type),
      taskKind(owner.TaskKind()), majorRevision(owner.MajorRevision())
{}

CTVDocument::~CTVDocument() = default;

Result CTVDocument::Attach()
{
    Result result = E_UNEXPECTED;
    if (taskKind == kPrintTask) {
        result = AttachViews();
        if (result < 0) {
            return result;
        }
    }
    const auto kind = std::ranges::find(kDocumentKinds, documentType, &DocumentKind::type);
    if (kind == std::end(kDocumentKinds)) {
        return result;
    }
    return connection.Connect(document.get(), kind->events, *this, majorRevision);
}

Result CTVDocument::AttachViews()
{
    ComPtr<ITorvaneDocument> typed;
    if (const Result asked = AskApplication(document.get(), typed); asked < 0) {
        return asked;
    }
    ComPtr<ITorvaneModelView> view;
    Result read = typed->GetFirstModelView(view.put());
    while (read >= 0 && view) {
        ComPtr<IUnknown> identity;
        if (const Result asked = view.As(identity); asked < 0) {
            return asked;
        }
        if (!views.contains(identity.get())) {
            auto sink = std::make_unique<CTVView>(*this, identity, majorRevision);
            if (const Result connected = sink->Connect(); connected < 0) {
                return connected;
            }
            views.emplace(identity.get(), std::move(sink));
        }
        ComPtr<ITorvaneModelView> next;
        read = view->GetNextModelView(next.put());
        view = std::move(next);
    }
    return read < 0 ? read : 0;
}

void CTVDocument::Detach()
{
    if (detached) {
        return;
    }
    connection.Disconnect();
    for (auto& [identity, view] : views) {
        view->Detach();
    }
    asDrawing.reset();
    asDocument.reset();
    listed.reset();
    document.reset();
    detached = true;
}

void CTVDocument::OnEvent(int32_t event, std::span<const VARIANT> arguments)
{
    // The manager lets go of a document while that document's own event is being handled.
    const std::shared_ptr<CTVDocument> keptAlive = shared_from_this();
    if (event == kEventDocumentGone) {
        manager.RemoveDocument(*this);
    } else {
        RecordOutput(Variant::Copy(arguments[0]).ToText(), OutputWay::Saved);
    }
}

void CTVDocument::RecordPrinted()
{
    const std::shared_ptr<CTVDocument> keptAlive = shared_from_this();
    BString target;
    ThrowIfFailed(AsDocument()->GetPrintTarget(target.put()));
    RecordOutput(target.Text(), OutputWay::Printed);
}

void CTVDocument::RecordOutput(const std::u16string& path, OutputWay way)
{
    std::u16string name;
    if (documentType == kDrawing) {
        name = NameOfSheet();
    } else if (documentType != 0) {
        name = NameOfConfiguration();
    }
    manager.CountOutput();
    VaultFiles& outputs = *manager.OutputRegister();
    if (way == OutputWay::Printed) {
        outputs.AddPrinted(path, name);
    } else {
        outputs.AddOutput(path, name, false);
    }
}

ComPtr<ITorvaneDocument> CTVDocument::AsDocument()
{
    return Require(document.get(), asDocument);
}

ComPtr<ITorvaneDrawing> CTVDocument::AsDrawing()
{
    return Require(document.get(), asDrawing);
}

std::u16string CTVDocument::NameOfSheet()
{
    const ComPtr<ITorvaneDrawing> drawing = AsDrawing();
    ComPtr<IUnknown> current;
    ComPtr<ITorvaneSheet> sheet;
    BString name;
    if (drawing->GetCurrentSheet(current.put()) >= 0 && current && AskApplication(current.get(), sheet) >= 0) {
        sheet->GetName(name.put());
    }
    if (taskKind != kConvertTask) {
        return name.Text();
    }
    const std::u16string mapped = OutputName(manager.SheetChoice(), OutputKind::Sheet, name.Text());
    if (manager.RegressionMode()) {
        RefreshLinkedText(manager.GetApplication().get(), drawing.get());
    }
    return mapped;
}

std::u16string CTVDocument::NameOfConfiguration()
{
    const ComPtr<ITorvaneDocument> typed = AsDocument();
    ComPtr<ITorvaneConfigurationManager> configurations;
    ComPtr<ITorvaneConfiguration> active;
    BString name;
    if (typed->GetConfigurationManager(configurations.put()) >= 0 && configurations &&
        configurations->GetActiveConfiguration(active.put()) >= 0 && active) {
        active->GetName(name.put());
    }
    return taskKind == kConvertTask ? OutputName(manager.ConfigurationChoice(), OutputKind::Configuration, name.Text())
                                    : name.Text();
}

} // namespace tv
