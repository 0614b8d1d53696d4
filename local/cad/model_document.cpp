#include "cad/model_document.h"

#include "cad/text.h"
#include "interfaces/ids.h"

#include <algorithm>

namespace tv::app {

namespace {

DocumentType TypeOf(const document::Document& content)
{
    switch (document::KindOf(content)) {
    case document::Kind::Part:
        return DocumentType::Part;
    case document::Kind::Assembly:
        return DocumentType::Assembly;
    default:
        return DocumentType::Drawing;
    }
}

const GUID& EventsOf(DocumentType type)
{
    switch (type) {
    case DocumentType::Assembly:
        return kInterfaceId<DAssemblyDocEvents>;
    case DocumentType::Drawing:
        return kInterfaceId<DDrawingDocEvents>;
    default:
        return kInterfaceId<DPartDocEvents>;
    }
}

/// "Cover-1^gearbox.tvnprt" beside the assembly: legal as a file name, and no user's file is called so.
std::u16string VirtualPath(std::u16string_view ownerPath, const std::string& component,
                           const document::Document& embedded)
{
    const document::KindInfo& kind = document::InfoOf(document::KindOf(embedded));
    return FolderOf(ownerPath) + u"\\" + ToUtf16(component) + u"^" + StemOf(ownerPath) + ToUtf16(kind.extension);
}

const document::Assembly* AssemblyIn(const document::Document& content)
{
    return std::get_if<document::Assembly>(&content.content);
}

} // namespace

ModelDocument::ModelDocument(std::u16string documentPath, document::Document document, std::u16string root,
                             std::vector<std::string> components)
    : path(std::move(documentPath)), rootPath(root.empty() ? path : std::move(root)), chain(std::move(components)),
      type(TypeOf(document)), content(std::move(document))
{
    for (const std::string& name : document::ItemNames(*content)) {
        items.push_back(ToUtf16(name));
    }
    Activate(ToUtf16(document::ActiveItem(*content)));
    MakeEventSources();
}

ModelDocument::ModelDocument(std::u16string filePath, const kernel::Inspection& inspection)
    : path(std::move(filePath)), rootPath(path),
      type(inspection.kind == kernel::SourceKind::Assembly ? DocumentType::Assembly : DocumentType::Part)
{
    for (const std::string& name : inspection.items) {
        items.push_back(ToUtf16(name));
    }
    if (items.empty()) {
        items.push_back(ToUtf16(document::kDefaultConfiguration));
    }
    MakeEventSources();
}

void ModelDocument::MakeEventSources()
{
    events = std::make_shared<EventSource>(EventsOf(type));
    viewEvents = std::make_shared<EventSource>(kInterfaceId<DModelViewEvents>);
}

std::u16string ModelDocument::Title() const
{
    return FileNameOf(path);
}

bool ModelDocument::Activate(std::u16string_view name)
{
    const auto found = std::ranges::find_if(items, [&](const auto& item) { return SameIgnoringCase(item, name); });
    if (found == items.end()) {
        return false;
    }
    activeItem = static_cast<size_t>(found - items.begin());
    if (content) {
        document::SetActiveItem(*content, ToUtf8(*found));
    }
    return true;
}

std::vector<ComponentInfo> ModelDocument::Components(bool topLevelOnly) const
{
    std::vector<ComponentInfo> found;
    const document::Assembly* assembly = content ? AssemblyIn(*content) : nullptr;
    if (assembly == nullptr) {
        return found;
    }
    const std::u16string folder = FolderOf(rootPath);
    for (const document::Component& component : assembly->components) {
        found.push_back({ToUtf16(component.name),
                         component.IsVirtual() ? VirtualPath(path, component.name, *component.embedded)
                                               : JoinPath(folder, ToUtf16(component.path)),
                         component.IsVirtual()});
    }
    if (!topLevelOnly) {
        for (const VirtualComponent& inner : VirtualComponents()) {
            if (const document::Assembly* nested = AssemblyIn(*inner.document)) {
                for (const document::Component& component : nested->components) {
                    found.push_back({ToUtf16(component.name),
                                     component.IsVirtual()
                                         ? VirtualPath(inner.path, component.name, *component.embedded)
                                         : JoinPath(folder, ToUtf16(component.path)),
                                     component.IsVirtual()});
                }
            }
        }
    }
    return found;
}

std::vector<VirtualComponent> ModelDocument::VirtualComponents() const
{
    std::vector<VirtualComponent> found;
    if (content) {
        CollectVirtual(*content, path, chain, found);
    }
    return found;
}

void ModelDocument::CollectVirtual(const document::Document& owner, std::u16string_view ownerPath,
                                   const std::vector<std::string>& ownerChain,
                                   std::vector<VirtualComponent>& found) const
{
    const document::Assembly* assembly = AssemblyIn(owner);
    if (assembly == nullptr) {
        return;
    }
    for (const document::Component& component : assembly->components) {
        if (!component.IsVirtual()) {
            continue;
        }
        VirtualComponent inner;
        inner.path = VirtualPath(ownerPath, component.name, *component.embedded);
        inner.chain = ownerChain;
        inner.chain.push_back(component.name);
        inner.document = component.embedded;
        found.push_back(inner);
        CollectVirtual(*component.embedded, inner.path, inner.chain, found);
    }
}

kernel::Source ModelDocument::KernelSource() const
{
    kernel::Source source;
    source.path = ToUtf8(rootPath);
    source.component = chain;
    return source;
}

} // namespace tv::app
