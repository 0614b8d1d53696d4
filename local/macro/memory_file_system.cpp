#include "macro/memory_file_system.h"

#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

class MemoryFile final : public File
{
public:
    MemoryFile(std::shared_ptr<std::string> content, size_t start, bool append)
        : bytes(std::move(content)), at(start), appends(append)
    {
    }

    size_t Read(std::span<char> into) override
    {
        size_t count = at < bytes->size() ? std::min(into.size(), bytes->size() - at) : 0;
        std::copy_n(bytes->begin() + static_cast<std::ptrdiff_t>(at), count, into.begin());
        at += count;
        return count;
    }

    void Write(std::span<const char> from) override
    {
        at = appends ? bytes->size() : at;
        if (bytes->size() < at + from.size()) {
            bytes->resize(at + from.size());
        }
        std::copy(from.begin(), from.end(), bytes->begin() + static_cast<std::ptrdiff_t>(at));
        at += from.size();
    }

    uint64_t Size() override { return bytes->size(); }
    uint64_t Position() override { return at; }
    void Seek(uint64_t position) override { at = static_cast<size_t>(position); }

private:
    std::shared_ptr<std::string> bytes;
    size_t at;
    bool appends;
};

std::u16string ParentOf(std::u16string_view key)
{
    size_t separator = key.rfind(u'\\');
    return separator == std::u16string_view::npos ? std::u16string() : std::u16string(key.substr(0, separator));
}

std::u16string NameOf(std::u16string_view path)
{
    size_t separator = path.rfind(u'\\');
    return std::u16string(separator == std::u16string_view::npos ? path : path.substr(separator + 1));
}

} // namespace

MemoryFileSystem::MemoryFileSystem()
{
    nodes[u"c:"] = Node{u"C:", true, false, false, nullptr};
    nodes[u"c:\\temp"] = Node{u"Temp", true, false, false, nullptr};
}

std::u16string MemoryFileSystem::FullPath(std::u16string_view path) const
{
    std::u16string full(path);
    std::replace(full.begin(), full.end(), u'/', u'\\');
    bool isDrive = full.size() > 1 && full[1] == u':';
    if (!isDrive && !full.starts_with(u"\\\\")) {
        bool fromRoot = full.starts_with(u"\\");
        std::u16string base = fromRoot ? current.substr(0, 2) : current;
        full = base + (fromRoot || base.ends_with(u"\\") ? u"" : u"\\") + full;
    }
    while (full.size() > 2 && full.back() == u'\\') {
        full.pop_back();
    }
    return full;
}

std::u16string MemoryFileSystem::KeyOf(std::u16string_view path) const { return Lower(FullPath(path)); }

MemoryFileSystem::Node* MemoryFileSystem::FindNode(std::u16string_view path)
{
    auto found = nodes.find(KeyOf(path));
    if (found == nodes.end()) {
        return nullptr;
    }
    if (found->second.isDenied) {
        Raise(kPermissionDenied);
    }
    return &found->second;
}

void MemoryFileSystem::RequireParent(std::u16string_view path) const
{
    auto found = nodes.find(ParentOf(KeyOf(path)));
    if (found == nodes.end() || !found->second.isFolder) {
        Raise(kPathNotFound);
    }
    if (found->second.isDenied) {
        Raise(kPermissionDenied);
    }
}

void MemoryFileSystem::Put(std::u16string_view path, std::string_view bytes)
{
    std::u16string full = FullPath(path);
    for (size_t i = full.find(u'\\', 3); i != std::u16string::npos; i = full.find(u'\\', i + 1)) {
        std::u16string folder = full.substr(0, i);
        nodes.try_emplace(Lower(folder), Node{NameOf(folder), true, false, false, nullptr});
    }
    nodes[Lower(full)] = Node{NameOf(full), false, false, false, std::make_shared<std::string>(bytes)};
}

std::optional<std::string> MemoryFileSystem::Content(std::u16string_view path) const
{
    auto found = nodes.find(KeyOf(path));
    return found == nodes.end() || found->second.isFolder ? std::nullopt : std::optional(*found->second.bytes);
}

void MemoryFileSystem::Deny(std::u16string_view path)
{
    auto [found, isNew] = nodes.try_emplace(KeyOf(path), Node{NameOf(FullPath(path)), true, false, false, nullptr});
    found->second.isDenied = true;
}

std::unique_ptr<File> MemoryFileSystem::Open(std::u16string_view path, FileAccess access)
{
    RequireParent(path);
    Node* node = FindNode(path);
    if (node != nullptr && node->isFolder) {
        Raise(kPathFileAccess);
    }
    if (node == nullptr) {
        if (access == FileAccess::Read) {
            Raise(kFileNotFound);
        }
        Node created{NameOf(FullPath(path)), false, false, false, std::make_shared<std::string>()};
        node = &nodes.insert_or_assign(KeyOf(path), created).first->second;
    }
    if (node->isReadOnly && access != FileAccess::Read) {
        Raise(kPathFileAccess);
    }
    if (access == FileAccess::Write) {
        node->bytes->clear();
    }
    bool appends = access == FileAccess::Append;
    return std::make_unique<MemoryFile>(node->bytes, appends ? node->bytes->size() : 0, appends);
}

std::optional<FileEntry> MemoryFileSystem::Find(std::u16string_view path)
{
    auto found = nodes.find(KeyOf(path));
    if (found == nodes.end()) {
        return std::nullopt;
    }
    const Node& node = found->second;
    FileEntry entry;
    entry.name = node.name;
    entry.isFolder = node.isFolder;
    entry.isReadOnly = node.isReadOnly;
    entry.size = node.isFolder ? 0 : node.bytes->size();
    return entry;
}

std::vector<FileEntry> MemoryFileSystem::List(std::u16string_view folder)
{
    Node* node = FindNode(folder);
    if (node == nullptr || !node->isFolder) {
        Raise(kPathNotFound);
    }
    std::vector<FileEntry> entries;
    std::u16string key = KeyOf(folder);
    for (const auto& [path, child] : nodes) {
        if (path != key && ParentOf(path) == key) {
            entries.push_back(*Find(path));
        }
    }
    return entries;
}

void MemoryFileSystem::Delete(std::u16string_view path)
{
    Node* node = FindNode(path);
    if (node == nullptr || node->isFolder) {
        Raise(kFileNotFound);
    }
    if (node->isReadOnly) {
        Raise(kPathFileAccess);
    }
    nodes.erase(KeyOf(path));
}

void MemoryFileSystem::Copy(std::u16string_view from, std::u16string_view to)
{
    Node* node = FindNode(from);
    if (node == nullptr || node->isFolder) {
        Raise(kFileNotFound);
    }
    std::string bytes = *node->bytes;
    Open(to, FileAccess::Write)->Write(bytes);
}

void MemoryFileSystem::Rename(std::u16string_view from, std::u16string_view to)
{
    Node* node = FindNode(from);
    if (node == nullptr) {
        Raise(kFileNotFound);
    }
    RequireParent(to);
    Node moved = *node;
    moved.name = NameOf(FullPath(to));
    nodes.erase(KeyOf(from));
    nodes[KeyOf(to)] = moved;
}

void MemoryFileSystem::CreateFolder(std::u16string_view path)
{
    RequireParent(path);
    if (FindNode(path) != nullptr) {
        Raise(kPathFileAccess);
    }
    nodes[KeyOf(path)] = Node{NameOf(FullPath(path)), true, false, false, nullptr};
}

void MemoryFileSystem::RemoveFolder(std::u16string_view path)
{
    Node* node = FindNode(path);
    if (node == nullptr || !node->isFolder) {
        Raise(kPathNotFound);
    }
    nodes.erase(KeyOf(path));
}

void MemoryFileSystem::SetReadOnly(std::u16string_view path, bool readOnly)
{
    if (Node* node = FindNode(path)) {
        node->isReadOnly = readOnly;
    }
}

void MemoryFileSystem::ChangeFolder(std::u16string_view path)
{
    Node* node = FindNode(path);
    if (node == nullptr || !node->isFolder) {
        Raise(kPathNotFound);
    }
    current = FullPath(path);
}

} // namespace tv::macro
