#include "engine/loader.h"

#include "document/document_io.h"
#include "engine/failure.h"
#include "engine/file_checks.h"
#include "engine/neutral_reader.h"
#include "engine/shape_builder.h"

#include <BRep_Builder.hxx>
#include <TopoDS_Compound.hxx>

#include <algorithm>
#include <strings.h>

namespace tv::kernel {

namespace {

namespace fs = std::filesystem;
using namespace document;

ErrorCode CodeOf(Fault fault)
{
    return fault == Fault::FutureVersion ? ErrorCode::FutureVersion : ErrorCode::Damaged;
}

Document Parse(const std::string& text, const std::string& fileName)
{
    try {
        return ReadDocument(text, fileName);
    } catch (const DocumentError& error) {
        throw JobFailure(CodeOf(error.fault()), error.what());
    }
}

[[noreturn]] void UnknownConfiguration(const std::string& owner, const std::string& name)
{
    throw JobFailure(ErrorCode::UnknownItem, Quoted(owner) + " has no configuration " + Quoted(name) + ".");
}

const std::string& Chosen(const std::string& configuration, const std::string& active)
{
    return configuration.empty() ? active : configuration;
}

fs::path FindIgnoringCase(const fs::path& folder, const std::string& name)
{
    std::error_code error;
    if (name == "." || name == ".." || fs::exists(folder / name, error)) {
        return folder / name;
    }
    for (const auto& entry : fs::directory_iterator(folder, error)) {
        if (strcasecmp(entry.path().filename().c_str(), name.c_str()) == 0) {
            return entry.path();
        }
    }
    return folder / name;
}

TopoDS_Compound CompoundOf(const std::vector<ModelNode>& children)
{
    TopoDS_Compound compound;
    BRep_Builder builder;
    builder.MakeCompound(compound);
    for (const ModelNode& child : children) {
        builder.Add(compound, child.shape);
    }
    return compound;
}

} // namespace

fs::path ResolveReference(const fs::path& user, const std::string& reference)
{
    fs::path found = user.parent_path();
    for (const fs::path& name : fs::path(reference)) {
        found = FindIgnoringCase(found.empty() ? fs::path(".") : found, name.string());
    }
    return found;
}

OpenedSource Open(const Source& source)
{
    OpenedSource opened;
    opened.file = source.path;
    opened.name = opened.file.stem().string();
    if (!KindOfPath(source.path) && source.documentText.empty()) {
        if (!IsNeutralFile(opened.file)) {
            throw JobFailure(ErrorCode::UnsupportedFormat, "The file " + Quoted(source.path) +
                                                               " can't be opened: there is no reader for " +
                                                               Quoted(LowerExtension(opened.file)) + ".");
        }
        return opened;
    }
    const std::string text = source.documentText.empty() ? ReadWholeFile(opened.file) : source.documentText;
    const Document document = Parse(text, source.path);
    const Document* wanted = FindEmbedded(document, source.component);
    if (!wanted) {
        throw JobFailure(ErrorCode::UnknownItem,
                         Quoted(source.path) + " has no virtual component " + Quoted(source.component.back()) + ".");
    }
    opened.document = *wanted;
    opened.name = source.component.empty() ? opened.name : source.component.back();
    return opened;
}

Model Loader::Load(const OpenedSource& source, const std::string& configuration)
{
    if (source.drawing()) {
        throw JobFailure(ErrorCode::UnsuitableSource, Quoted(source.file.string()) + " is a drawing and has no shape.");
    }
    if (!source.document) {
        Model model = ReadNeutralFile(source.file);
        if (!configuration.empty() && configuration != model.configuration) {
            UnknownConfiguration(source.file.string(), configuration);
        }
        return model;
    }
    Model model;
    model.configuration = Chosen(configuration, ActiveItem(*source.document));
    model.root = Build(*source.document, source.file, source.name, model.configuration);
    return model;
}

Model Loader::LoadReference(const fs::path& user, const std::string& reference, const std::string& configuration)
{
    const fs::path file = ResolveReference(user, reference);
    if (!fs::exists(file)) {
        throw JobFailure(ErrorCode::FileNotFound, "The file " + Quoted(file.string()) + ", to which " +
                                                      Quoted(user.string()) + " refers, is not there.");
    }
    const Key key(file, configuration);
    if (const auto found = loaded.find(key); found != loaded.end()) {
        return found->second;
    }
    if (!loading.insert(key).second) {
        throw JobFailure(ErrorCode::Damaged, Quoted(file.string()) + " contains itself.");
    }
    Model model = Load(Open({.path = file.string(), .component = {}, .documentText = {}}), configuration);
    loading.erase(key);
    return loaded.emplace(key, std::move(model)).first->second;
}

ModelNode Loader::Build(const Document& document, const fs::path& file, const std::string& name,
                        const std::string& configuration)
{
    if (const auto* assembly = std::get_if<Assembly>(&document.content)) {
        return BuildAssembly(*assembly, file, name, configuration);
    }
    return BuildPart(std::get<Part>(document.content), file, name, configuration);
}

ModelNode Loader::BuildPart(const Part& part, const fs::path& file, const std::string& name,
                            const std::string& configuration)
{
    const PartConfiguration* found = FindConfiguration(part, Chosen(configuration, part.activeConfiguration));
    if (!found) {
        UnknownConfiguration(file.string(), configuration);
    }
    const auto import = [this, &file](const std::string& reference) {
        return BoundaryShape(LoadReference(file, reference, {}));
    };
    const std::string owner = Quoted(file.string()) + ", configuration " + Quoted(found->name);
    return {name, BuildShape(*found, import, owner), {}};
}

ModelNode Loader::BuildAssembly(const Assembly& assembly, const fs::path& file, const std::string& name,
                                const std::string& configuration)
{
    const AssemblyConfiguration* found =
        FindConfiguration(assembly, Chosen(configuration, assembly.activeConfiguration));
    if (!found) {
        UnknownConfiguration(file.string(), configuration);
    }
    ModelNode node{name, {}, {}};
    for (const Component& component : assembly.components) {
        if (std::ranges::find(found->suppressed, component.name) == found->suppressed.end()) {
            node.children.push_back(BuildComponent(component, file));
        }
    }
    if (node.children.empty()) {
        throw JobFailure(ErrorCode::EmptyShape, Quoted(file.string()) + ", configuration " + Quoted(found->name) +
                                                    ": there is no component to show.");
    }
    node.shape = CompoundOf(node.children);
    return node;
}

ModelNode Loader::BuildComponent(const Component& component, const fs::path& file)
{
    ModelNode node;
    if (component.IsVirtual()) {
        node = Build(*component.embedded, file, component.name, component.configuration);
    } else {
        const Model model = LoadReference(file, component.path, component.configuration);
        node = model.root;
        node.shape = model.mesh.IsNull() ? node.shape : BoundaryShape(model);
    }
    node.name = component.name;
    node.shape.Move(TopLoc_Location(MoveTo(component.placement)));
    return node;
}

} // namespace tv::kernel
