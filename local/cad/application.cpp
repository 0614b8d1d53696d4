#include "cad/application.h"

#include "cad/documents.h"
#include "cad/save_formats.h"
#include "cad/text.h"
#include "interfaces/application.h"

#include <algorithm>

namespace tv::app {

namespace {

int32_t OpenErrorOf(kernel::ErrorCode code)
{
    switch (code) {
    case kernel::ErrorCode::FileNotFound:
        return kOpenFileNotFound;
    case kernel::ErrorCode::Damaged:
    case kernel::ErrorCode::EmptyShape:
        return kOpenFileDamaged;
    case kernel::ErrorCode::FutureVersion:
        return kOpenFutureVersion;
    case kernel::ErrorCode::UnsupportedFormat:
        return kOpenInvalidFileType;
    case kernel::ErrorCode::NoKernel:
    case kernel::ErrorCode::KernelLost:
        return kOpenNoGeometry;
    default:
        return kOpenGenericError;
    }
}

int32_t SaveErrorOf(kernel::ErrorCode code)
{
    switch (code) {
    case kernel::ErrorCode::UnsupportedFormat:
    case kernel::ErrorCode::UnsuitableSource:
    case kernel::ErrorCode::NoKernel:
        return kSaveNotSupported;
    default:
        return kSaveGenericError;
    }
}

bool IsOwnExtension(std::u16string_view extension)
{
    const SaveFormat* format = FindSaveFormat(extension);
    return format != nullptr && format->route == SaveRoute::Own;
}

} // namespace

Application::Application(macro::FileSystem& fileSystem, Geometry& shapes)
    : files(fileSystem), geometry(shapes), events(std::make_shared<EventSource>(kInterfaceId<DTorvaneEvents>))
{}

OpenOutcome Application::Open(std::u16string_view path, DocumentType type, bool readOnly,
                              std::u16string_view configuration)
{
    std::shared_ptr<ModelDocument> document = FindByPath(path);
    const bool isNew = document == nullptr;
    if (isNew) {
        document = OpenVirtual(path);
    }
    if (document == nullptr) {
        if (!IsOwnExtension(ExtensionOf(path))) {
            return {nullptr, kOpenInvalidFileType, ToUtf8(path) + " is no document of this application"};
        }
        ReadOutcome read = ReadDocumentFile(files, path);
        if (!read.document) {
            onNote("open failed: " + read.message);
            return {nullptr, read.error, read.message};
        }
        document = std::make_shared<ModelDocument>(std::u16string(path), std::move(*read.document));
    }
    if (type != DocumentType::None && type != document->Type()) {
        return {nullptr, kOpenInvalidFileType, ToUtf8(path) + " is a document of another kind"};
    }
    if (!configuration.empty() && !document->Activate(configuration)) {
        return {nullptr, kOpenGenericError, ToUtf8(path) + " has no configuration \"" + ToUtf8(configuration) + "\""};
    }
    if (!isNew) {
        SetActive(document);
        return {document, 0, {}};
    }
    document->isReadOnly = readOnly;
    return Announce(document);
}

OpenOutcome Application::Load(std::u16string_view path)
{
    if (std::shared_ptr<ModelDocument> open = FindByPath(path)) {
        SetActive(open);
        return {open, 0, {}};
    }
    if (!IsNeutralExtension(ExtensionOf(path))) {
        return {nullptr, kOpenInvalidFileType, ToUtf8(path) + " is in no format that can be imported"};
    }
    kernel::InspectJob job;
    job.source.path = ToUtf8(path);
    const kernel::Outcome<kernel::Inspection> inspection = geometry.Inspect(job);
    if (!inspection) {
        onNote("load failed: " + inspection.error().message);
        return {nullptr, OpenErrorOf(inspection.error().code), inspection.error().message};
    }
    return Announce(std::make_shared<ModelDocument>(std::u16string(path), *inspection));
}

OpenOutcome Application::Announce(std::shared_ptr<ModelDocument> document)
{
    documents.push_back(document);
    onNote("opened " + ToUtf8(document->Path()));
    events->Fire(kEventDocumentOpened);
    events->Fire(kEventDocumentLoaded);
    SetActive(document);
    return {document, 0, {}};
}

SaveOutcome Application::Save(ModelDocument& document, std::u16string_view target,
                              const std::vector<std::u16string>& items)
{
    if (target.empty()) {
        return {kSaveNameEmpty, "no file name given"};
    }
    const std::u16string extension = ExtensionOf(target);
    const SaveFormat* format = FindSaveFormat(extension);
    if (format == nullptr) {
        return {kSaveInvalidExtension, "nobody knows the file type of " + ToUtf8(target)};
    }
    if (format->route == SaveRoute::NotOffered) {
        return {kSaveNotSupported, "files of the type " + ToUtf8(extension) + " can't be written"};
    }
    // Listeners check the target out or clear the way for it, so they hear of it before the first byte is written.
    const Variant path = Variant::FromText(target);
    document.Events()->Fire(kEventDocumentWritten, std::span<const Variant>(&path, 1));
    onSaving();
    SaveOutcome outcome = format->route == SaveRoute::Own ? SaveOwn(document, target, extension)
                                                          : SaveByKernel(document, target, extension, items);
    onNote(outcome.Succeeded() ? "saved " + ToUtf8(target) : "save failed: " + outcome.message);
    if (outcome.Succeeded()) {
        onMacroEvent({MacroEventKind::Saved, ToUtf8(target)});
    }
    return outcome;
}

SaveOutcome Application::SaveOwn(ModelDocument& document, std::u16string_view target, std::u16string_view extension)
{
    if (document.IsNeutral()) {
        return {kSaveNotSupported, "an imported file can't be written as " + ToUtf8(extension)};
    }
    const document::KindInfo& kind = document::InfoOf(document::KindOf(*document.Content()));
    if (ToUtf16(kind.extension) != extension) {
        return {kSaveInvalidExtension, "a " + std::string(kind.noun) + " can't be written as " + ToUtf8(extension)};
    }
    const std::optional<document::Document> moved =
        WithReferencesFrom(*document.Content(), FolderOf(document.RootPath()), FolderOf(target));
    if (!moved) {
        return {kSaveGenericError, "what the document refers to can't be reached from " + ToUtf8(target)};
    }
    try {
        WriteDocumentFile(files, target, *moved);
    } catch (const macro::MacroError& error) {
        return {kSaveGenericError, ToUtf8(target) + ": " + ToUtf8(error.description)};
    }
    return {};
}

SaveOutcome Application::SaveByKernel(ModelDocument& document, std::u16string_view target,
                                      std::u16string_view extension, const std::vector<std::u16string>& items)
{
    kernel::SaveJob job;
    job.source = document.KernelSource();
    job.target = ToUtf8(target);
    job.options = ExportOptions(preferences, extension);
    if (document.IsDrawing()) {
        for (const std::u16string& item : items) {
            job.items.push_back(ToUtf8(item));
        }
    } else if (!document.IsNeutral()) {
        job.items.push_back(ToUtf8(document.ActiveItem()));
    }
    const kernel::Outcome<kernel::Saved> saved = geometry.Save(job);
    if (!saved) {
        return {SaveErrorOf(saved.error().code), saved.error().message};
    }
    return {};
}

std::shared_ptr<ModelDocument> Application::NextAfter(const ModelDocument& document) const
{
    const auto found =
        std::ranges::find_if(documents, [&](const auto& candidate) { return candidate.get() == &document; });
    return found == documents.end() || found + 1 == documents.end() ? nullptr : *(found + 1);
}

std::shared_ptr<ModelDocument> Application::FindByPath(std::u16string_view path) const
{
    const auto found =
        std::ranges::find_if(documents, [&](const auto& document) { return SameIgnoringCase(document->Path(), path); });
    return found == documents.end() ? nullptr : *found;
}

std::shared_ptr<ModelDocument> Application::Find(std::u16string_view name) const
{
    if (std::shared_ptr<ModelDocument> byPath = FindByPath(name)) {
        return byPath;
    }
    const auto found = std::ranges::find_if(
        documents, [&](const auto& document) { return SameIgnoringCase(document->Title(), name); });
    return found == documents.end() ? nullptr : *found;
}

std::shared_ptr<ModelDocument> Application::OpenVirtual(std::u16string_view path) const
{
    for (const std::shared_ptr<ModelDocument>& document : documents) {
        for (const VirtualComponent& component : document->VirtualComponents()) {
            if (SameIgnoringCase(component.path, path)) {
                return std::make_shared<ModelDocument>(component.path, *component.document, document->RootPath(),
                                                       component.chain);
            }
        }
    }
    return nullptr;
}

bool Application::Activate(std::u16string_view name)
{
    std::shared_ptr<ModelDocument> document = Find(name);
    if (document == nullptr) {
        return false;
    }
    SetActive(std::move(document));
    return true;
}

void Application::SetActive(std::shared_ptr<ModelDocument> document)
{
    if (active == document) {
        return;
    }
    active = std::move(document);
    events->Fire(kEventDocumentActivated);
    onChanged();
}

bool Application::Close(std::u16string_view name)
{
    const std::shared_ptr<ModelDocument> document = Find(name);
    if (document == nullptr) {
        return false;
    }
    document->Events()->Fire(kEventDocumentGone);
    document->isOpen = false;
    std::erase(documents, document);
    if (active == document) {
        active = documents.empty() ? nullptr : documents.back();
    }
    onNote("closed " + ToUtf8(document->Path()));
    onChanged();
    return true;
}

void Application::CloseAll()
{
    while (!documents.empty()) {
        Close(documents.back()->Path());
    }
}

} // namespace tv::app
