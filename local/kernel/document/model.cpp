#include "document/model.h"

#include <algorithm>
#include <cctype>

namespace tv::document {

namespace {

template <class T> const T* FindByName(const std::vector<T>& items, std::string_view name)
{
    const auto found = std::ranges::find(items, name, &T::name);
    return found == items.end() ? nullptr : &*found;
}

template <class T> std::vector<std::string> NamesOf(const std::vector<T>& items)
{
    std::vector<std::string> names;
    for (const T& item : items) {
        names.push_back(item.name);
    }
    return names;
}

bool SameLetter(char a, char b)
{
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
}

void AddOnce(std::vector<std::string>& list, const std::string& path)
{
    if (std::ranges::find(list, path) == list.end()) {
        list.push_back(path);
    }
}

void Collect(const Document& document, std::vector<std::string>& list);

void Collect(const Part& part, std::vector<std::string>& list)
{
    for (const PartConfiguration& configuration : part.configurations) {
        for (const Feature& feature : configuration.features) {
            if (const auto* import = std::get_if<Import>(&feature.solid)) {
                AddOnce(list, import->file);
            }
        }
    }
}

void Collect(const Assembly& assembly, std::vector<std::string>& list)
{
    for (const Component& component : assembly.components) {
        if (component.IsVirtual()) {
            Collect(*component.embedded, list);
        } else {
            AddOnce(list, component.path);
        }
    }
}

void Collect(const Drawing& drawing, std::vector<std::string>& list)
{
    for (const Sheet& sheet : drawing.sheets) {
        for (const View& view : sheet.views) {
            AddOnce(list, view.model);
        }
    }
}

void Collect(const Document& document, std::vector<std::string>& list)
{
    std::visit([&list](const auto& content) { Collect(content, list); }, document.content);
}

} // namespace

bool Component::operator==(const Component& other) const
{
    const bool sameDocument =
        IsVirtual() && other.IsVirtual() ? *embedded == *other.embedded : IsVirtual() == other.IsVirtual();
    return sameDocument && name == other.name && path == other.path && configuration == other.configuration &&
           placement == other.placement;
}

Kind KindOf(const Document& document)
{
    return kKinds[document.content.index()].kind;
}

const KindInfo& InfoOf(Kind kind)
{
    return *std::ranges::find(kKinds, kind, &KindInfo::kind);
}

const KindInfo* KindOfPath(std::string_view path)
{
    const auto endsPath = [path](const KindInfo& info) {
        return path.size() >= info.extension.size() &&
               std::ranges::equal(path.substr(path.size() - info.extension.size()), info.extension, SameLetter);
    };
    const auto found = std::ranges::find_if(kKinds, endsPath);
    return found == std::end(kKinds) ? nullptr : &*found;
}

std::vector<std::string> ItemNames(const Document& document)
{
    if (const auto* drawing = std::get_if<Drawing>(&document.content)) {
        return NamesOf(drawing->sheets);
    }
    if (const auto* assembly = std::get_if<Assembly>(&document.content)) {
        return NamesOf(assembly->configurations);
    }
    return NamesOf(std::get<Part>(document.content).configurations);
}

const std::string& ActiveItem(const Document& document)
{
    if (const auto* drawing = std::get_if<Drawing>(&document.content)) {
        return drawing->activeSheet;
    }
    if (const auto* assembly = std::get_if<Assembly>(&document.content)) {
        return assembly->activeConfiguration;
    }
    return std::get<Part>(document.content).activeConfiguration;
}

bool SetActiveItem(Document& document, std::string_view name)
{
    const std::vector<std::string> names = ItemNames(document);
    if (std::ranges::find(names, name) == names.end()) {
        return false;
    }
    if (auto* drawing = std::get_if<Drawing>(&document.content)) {
        drawing->activeSheet = name;
    } else if (auto* assembly = std::get_if<Assembly>(&document.content)) {
        assembly->activeConfiguration = name;
    } else {
        std::get<Part>(document.content).activeConfiguration = name;
    }
    return true;
}

const PartConfiguration* FindConfiguration(const Part& part, std::string_view name)
{
    return FindByName(part.configurations, name);
}

const AssemblyConfiguration* FindConfiguration(const Assembly& assembly, std::string_view name)
{
    return FindByName(assembly.configurations, name);
}

const Sheet* FindSheet(const Drawing& drawing, std::string_view name)
{
    return FindByName(drawing.sheets, name);
}

const Component* FindComponent(const Assembly& assembly, std::string_view name)
{
    return FindByName(assembly.components, name);
}

const Document* FindEmbedded(const Document& document, const std::vector<std::string>& component)
{
    const Document* found = &document;
    for (const std::string& name : component) {
        const auto* assembly = std::get_if<Assembly>(&found->content);
        const Component* inner = assembly ? FindComponent(*assembly, name) : nullptr;
        if (!inner || !inner->IsVirtual()) {
            return nullptr;
        }
        found = inner->embedded.get();
    }
    return found;
}

std::vector<std::string> References(const Document& document)
{
    std::vector<std::string> list;
    Collect(document, list);
    return list;
}

} // namespace tv::document
