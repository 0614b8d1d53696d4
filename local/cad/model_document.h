// One open document of the application.
#pragma once

#include "cad/constants.h"
#include "cad/event_source.h"
#include "document/model.h"
#include "protocol/jobs.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tv::app {

/// A virtual component of an assembly: it has no file, and a path of its own all the same.
struct VirtualComponent
{
    std::u16string path;
    /// Names of the components that lead to it from the document that has a file, outermost first.
    std::vector<std::string> chain;
    std::shared_ptr<const document::Document> document;
};

/// A component as the assembly shows it.
struct ComponentInfo
{
    std::u16string name;
    std::u16string path;
    bool isVirtual;
};

class ModelDocument
{
  public:
    /// A document of our own. \param chain components that lead to it when it is virtual
    ModelDocument(std::u16string path, document::Document content, std::u16string rootPath = {},
                  std::vector<std::string> chain = {});
    /// A neutral file, which is shown as a part or an assembly with one configuration.
    ModelDocument(std::u16string path, const kernel::Inspection& inspection);

    DocumentType Type() const { return type; }
    const std::u16string& Path() const { return path; }
    /// The name under which the window shows it: the file name with its extension.
    std::u16string Title() const;
    bool IsDrawing() const { return type == DocumentType::Drawing; }
    bool IsNeutral() const { return !content.has_value(); }

    /// Names of the configurations or sheets, in their order.
    const std::vector<std::u16string>& Items() const { return items; }
    const std::u16string& ActiveItem() const { return items[activeItem]; }
    /// False when there is no item of that name. Names are compared with case ignored.
    bool Activate(std::u16string_view name);

    /// Components of an assembly; with `topLevelOnly` false those of virtual assemblies inside it too.
    std::vector<ComponentInfo> Components(bool topLevelOnly) const;
    /// Virtual components of any depth.
    std::vector<VirtualComponent> VirtualComponents() const;

    /// What the kernel loads for this document.
    kernel::Source KernelSource() const;
    const std::optional<document::Document>& Content() const { return content; }
    /// Path of the file that holds the document; another one than Path for a virtual component.
    const std::u16string& RootPath() const { return rootPath; }
    const std::vector<std::string>& Chain() const { return chain; }

    const std::shared_ptr<EventSource>& Events() const { return events; }
    const std::shared_ptr<EventSource>& ViewEvents() const { return viewEvents; }

    bool isReadOnly = true;
    bool isOpen = true;
    /// What was printed last, as GetPrintTarget tells it.
    std::u16string printTarget;

  private:
    void CollectVirtual(const document::Document& owner, std::u16string_view ownerPath,
                        const std::vector<std::string>& ownerChain, std::vector<VirtualComponent>& found) const;
    void MakeEventSources();

    std::u16string path;
    std::u16string rootPath;
    std::vector<std::string> chain;
    DocumentType type;
    std::optional<document::Document> content;
    std::vector<std::u16string> items;
    size_t activeItem = 0;
    std::shared_ptr<EventSource> events;
    std::shared_ptr<EventSource> viewEvents;
};

} // namespace tv::app
