#include "host/document_references.h"

#include "vault/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <fstream>
#include <set>

namespace tv::local {

namespace {

using Json = nlohmann::json;

constexpr std::string_view kDocumentExtensions[] = {"tvnprt", "tvnasm", "tvndrw"};

void CollectTexts(const Json& node, std::set<std::string>& texts)
{
    if (node.is_string()) {
        texts.insert(node.get<std::string>());
    }
    if (node.is_structured()) {
        for (const Json& child : node) {
            CollectTexts(child, texts);
        }
    }
}

/// Joins a relative path to the folder; empty for a text that can't be one.
std::optional<VaultPath> Resolve(VaultPath folder, std::string_view text)
{
    if (text.find('.') == std::string_view::npos || text.find_first_of(":*?\"<>|\n") != std::string_view::npos ||
        text.starts_with('/') || text.starts_with('\\')) {
        return std::nullopt;
    }
    std::string part;
    for (char character : std::string(text) + "/") {
        if (character != '/' && character != '\\') {
            part += character;
            continue;
        }
        if (part == "..") {
            if (folder.empty()) {
                return std::nullopt;
            }
            folder.pop_back();
        } else if (!part.empty() && part != ".") {
            folder.push_back(part);
        }
        part.clear();
    }
    return folder;
}

} // namespace

std::vector<ReferenceRecord> FindDocumentReferences(VaultStore& store, const FileRecord& document,
                                                    const std::filesystem::path& bytes)
{
    std::vector<ReferenceRecord> references;
    const std::string extension = ExtensionOf(document.name);
    if (std::find(std::begin(kDocumentExtensions), std::end(kDocumentExtensions), extension) ==
        std::end(kDocumentExtensions)) {
        return references;
    }
    std::ifstream stream(bytes, std::ios::binary);
    const Json tree = Json::parse(stream, nullptr, false);
    if (tree.is_discarded()) {
        return references;
    }
    std::set<std::string> texts;
    CollectTexts(tree, texts);
    const VaultPath folder = store.PathOfFolder(document.folder);
    for (const std::string& text : texts) {
        const auto path = Resolve(folder, text);
        const auto source = path ? store.FindFile(*path) : std::nullopt;
        if (source && source->id != document.id) {
            references.push_back({source->id, source->latestVersion});
        }
    }
    return references;
}

} // namespace tv::local
