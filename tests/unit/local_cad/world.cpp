#include "local_cad/world.h"

#include "document/document_io.h"

#include <algorithm>
#include <cstring>

namespace tv::app {

namespace {

class MemoryFile : public macro::File
{
  public:
    MemoryFile(std::shared_ptr<std::string> stored, bool atEnd)
        : bytes(std::move(stored)), at(atEnd ? bytes->size() : 0)
    {}

    size_t Read(std::span<char> out) override
    {
        const size_t count = std::min(out.size(), bytes->size() - std::min(at, bytes->size()));
        std::memcpy(out.data(), bytes->data() + at, count);
        at += count;
        return count;
    }

    void Write(std::span<const char> in) override
    {
        bytes->resize(std::max(bytes->size(), at + in.size()));
        std::copy(in.begin(), in.end(), bytes->begin() + static_cast<std::ptrdiff_t>(at));
        at += in.size();
    }

    uint64_t Size() override { return bytes->size(); }
    uint64_t Position() override { return at; }
    void Seek(uint64_t position) override { at = position; }

  private:
    std::shared_ptr<std::string> bytes;
    size_t at;
};

std::u16string Key(std::u16string_view path)
{
    std::u16string key = macro::FoldCase(path);
    while (!key.empty() && key.back() == u'\\') {
        key.pop_back();
    }
    return key;
}

} // namespace

void MemoryFiles::Put(std::u16string_view path, std::string bytes)
{
    for (std::u16string folder = FolderOf(path); !folder.empty(); folder = FolderOf(folder)) {
        if (!HasFolder(folder)) {
            folders.push_back(Key(folder));
        }
    }
    files[Key(path)] = std::make_shared<std::string>(std::move(bytes));
}

std::string MemoryFiles::Bytes(std::u16string_view path) const
{
    const auto found = files.find(Key(path));
    return found == files.end() ? "(missing)" : *found->second;
}

bool MemoryFiles::HasFolder(std::u16string_view path) const
{
    return std::ranges::find(folders, Key(path)) != folders.end();
}

std::unique_ptr<macro::File> MemoryFiles::Open(std::u16string_view path, macro::FileAccess access)
{
    const auto found = files.find(Key(path));
    if (access == macro::FileAccess::Read && found == files.end()) {
        macro::Raise(macro::kFileNotFound);
    }
    if (!HasFolder(FolderOf(path))) {
        macro::Raise(macro::kPathNotFound);
    }
    if (found == files.end() || access == macro::FileAccess::Write) {
        files[Key(path)] = std::make_shared<std::string>();
    }
    return std::make_unique<MemoryFile>(files[Key(path)], access == macro::FileAccess::Append);
}

std::optional<macro::FileEntry> MemoryFiles::Find(std::u16string_view path)
{
    if (HasFolder(path)) {
        return macro::FileEntry{FileNameOf(path), true, 0, 0, false, false};
    }
    const auto found = files.find(Key(path));
    if (found == files.end()) {
        return std::nullopt;
    }
    return macro::FileEntry{FileNameOf(path), false, found->second->size(), 0, false, false};
}

std::vector<macro::FileEntry> MemoryFiles::List(std::u16string_view folder)
{
    std::vector<macro::FileEntry> entries;
    for (const auto& [path, bytes] : files) {
        if (FolderOf(path) == Key(folder)) {
            entries.push_back({FileNameOf(path), false, bytes->size(), 0, false, false});
        }
    }
    return entries;
}

void MemoryFiles::Delete(std::u16string_view path)
{
    if (files.erase(Key(path)) == 0) {
        macro::Raise(macro::kFileNotFound);
    }
}

void MemoryFiles::Copy(std::u16string_view from, std::u16string_view to)
{
    Put(to, Bytes(from));
}

void MemoryFiles::Rename(std::u16string_view from, std::u16string_view to)
{
    Put(to, Bytes(from));
    Delete(from);
}

void MemoryFiles::CreateFolder(std::u16string_view path)
{
    if (HasFolder(path)) {
        macro::Raise(macro::kPathFileAccess);
    }
    if (!HasFolder(FolderOf(Key(path)))) {
        macro::Raise(macro::kPathNotFound);
    }
    folders.push_back(Key(path));
}

void MemoryFiles::RemoveFolder(std::u16string_view path)
{
    std::erase(folders, Key(path));
}

void MemoryFiles::SetReadOnly(std::u16string_view, bool) {}

kernel::Outcome<kernel::Inspection> NotingGeometry::Inspect(const kernel::InspectJob& job)
{
    inspected.push_back(job);
    if (const auto failure = failures.find(job.source.path); failure != failures.end()) {
        return failure->second;
    }
    if (!files.Has(ToUtf16(job.source.path))) {
        return kernel::Error{kernel::ErrorCode::FileNotFound, job.source.path + " isn't there."};
    }
    kernel::Inspection inspection;
    inspection.kind = kernel::SourceKind::Neutral;
    inspection.items = {"Default"};
    inspection.activeItem = "Default";
    return inspection;
}

kernel::Outcome<kernel::Saved> NotingGeometry::Save(const kernel::SaveJob& job)
{
    saved.push_back(job);
    if (const auto failure = failures.find(job.source.path); failure != failures.end()) {
        return failure->second;
    }
    files.Put(ToUtf16(job.target), "shape of " + job.source.path);
    return kernel::Saved{job.target, 1, 0};
}

HRESULT NotingSink::Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO*, UINT*)
{
    std::string line = std::to_string(member);
    for (UINT i = params->cArgs; i > 0; --i) {
        line += " " + ToUtf8(Variant::Copy(params->rgvarg[i - 1]).ToText());
    }
    heard.push_back(line);
    onEvent(member);
    return answer;
}

World::World()
{
    context.runMacro = [this](std::u16string_view path, std::u16string_view module, std::u16string_view procedure) {
        return runner.Run(path, module, procedure);
    };
    files.Put(u"C:\\Vault\\bracket.tvnprt", PartText());
    files.Put(u"C:\\Vault\\gearbox.tvnasm", AssemblyText());
    files.Put(u"C:\\Vault\\plan.tvndrw", DrawingText());
    files.Put(u"C:\\Vault\\screw.step", "ISO-10303-21;");
    files.Put(u"C:\\Temp\\keep", "");
}

MacroOutcome World::RunText(const std::string& text)
{
    files.Put(u"C:\\Temp\\macro.tvb", text);
    return runner.Run(u"C:\\Temp\\macro.tvb", u"TVMacro1", u"main");
}

namespace {

document::Document Part(const std::vector<std::string>& configurations)
{
    document::Part part;
    part.activeConfiguration = configurations.front();
    for (const std::string& name : configurations) {
        document::PartConfiguration configuration;
        configuration.name = name;
        configuration.features.push_back({"Body", document::Operation::Join, {}, document::Block{{10, 20, 30}}});
        part.configurations.push_back(configuration);
    }
    return {part};
}

document::Component Virtual(const std::string& name, document::Document content)
{
    document::Component component;
    component.name = name;
    component.embedded = std::make_shared<document::Document>(std::move(content));
    return component;
}

document::Document Assembly(std::vector<document::Component> components)
{
    document::Assembly assembly;
    assembly.activeConfiguration = "Default";
    assembly.configurations.push_back({"Default", {}, {}});
    assembly.components = std::move(components);
    return {assembly};
}

} // namespace

std::string PartText()
{
    return document::WriteDocument(Part({"Default", "Long", "A/B"}));
}

std::string AssemblyText()
{
    document::Component bracket;
    bracket.name = "Bracket-1";
    bracket.path = "bracket.tvnprt";
    return document::WriteDocument(Assembly({bracket, Virtual("Cover-1", Part({"Default"})),
                                             Virtual("Sub-1", Assembly({Virtual("Pin-1", Part({"Default"}))}))}));
}

std::string DrawingText()
{
    document::Drawing drawing;
    drawing.activeSheet = "Sheet2";
    for (const char* name : {"Sheet1", "Sheet2"}) {
        document::Sheet sheet;
        sheet.name = name;
        sheet.format = "A4";
        sheet.size = {210, 297};
        document::View view;
        view.name = "Front";
        view.model = "bracket.tvnprt";
        view.position = {100, 100};
        sheet.views.push_back(view);
        drawing.sheets.push_back(sheet);
    }
    return document::WriteDocument({drawing});
}

} // namespace tv::app
