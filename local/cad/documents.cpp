#include "cad/documents.h"

#include "cad/text.h"
#include "document/document_io.h"

#include <memory>

namespace tv::app {

namespace {

/// Moves every reference of a document from one folder to another.
class ReferenceMover
{
  public:
    ReferenceMover(std::u16string_view from, std::u16string_view to) : oldFolder(from), newFolder(to) {}

    bool Succeeded() const { return succeeded; }

    void Move(document::Document& document)
    {
        std::visit([this](auto& content) { MoveContent(content); }, document.content);
    }

  private:
    void MoveContent(document::Part& part)
    {
        for (document::PartConfiguration& configuration : part.configurations) {
            for (document::Feature& feature : configuration.features) {
                if (auto* import = std::get_if<document::Import>(&feature.solid)) {
                    MovePath(import->file);
                }
            }
        }
    }

    void MoveContent(document::Assembly& assembly)
    {
        for (document::Component& component : assembly.components) {
            if (component.IsVirtual()) {
                auto moved = std::make_shared<document::Document>(*component.embedded);
                Move(*moved);
                component.embedded = moved;
            } else {
                MovePath(component.path);
            }
        }
    }

    void MoveContent(document::Drawing& drawing)
    {
        for (document::Sheet& sheet : drawing.sheets) {
            for (document::View& view : sheet.views) {
                MovePath(view.model);
            }
        }
    }

    void MovePath(std::string& reference)
    {
        const std::u16string absolute = JoinPath(oldFolder, ToUtf16(reference));
        const std::u16string moved = RelativePath(absolute, newFolder);
        if (moved.empty()) {
            succeeded = false;
        } else {
            reference = ToUtf8(moved);
        }
    }

    std::u16string oldFolder;
    std::u16string newFolder;
    bool succeeded = true;
};

} // namespace

std::string ReadBytes(macro::FileSystem& files, std::u16string_view path)
{
    const std::unique_ptr<macro::File> file = files.Open(path, macro::FileAccess::Read);
    std::string bytes(file->Size(), '\0');
    size_t done = 0;
    while (done < bytes.size()) {
        const size_t count = file->Read(std::span<char>(bytes).subspan(done));
        if (count == 0) {
            break;
        }
        done += count;
    }
    bytes.resize(done);
    return bytes;
}

ReadOutcome ReadDocumentFile(macro::FileSystem& files, std::u16string_view path)
{
    std::string text;
    try {
        text = ReadBytes(files, path);
    } catch (const macro::MacroError& error) {
        const bool missing = error.number == macro::kFileNotFound || error.number == macro::kPathNotFound;
        return {std::nullopt, missing ? kOpenFileNotFound : kOpenGenericError,
                ToUtf8(path) + ": " + ToUtf8(error.description)};
    }
    try {
        return {document::ReadDocument(text, ToUtf8(path)), 0, {}};
    } catch (const document::DocumentError& error) {
        return {std::nullopt, error.fault() == document::Fault::FutureVersion ? kOpenFutureVersion : kOpenFileDamaged,
                error.what()};
    }
}

void WriteDocumentFile(macro::FileSystem& files, std::u16string_view path, const document::Document& document)
{
    const std::string text = document::WriteDocument(document);
    const std::u16string temporary = std::u16string(path) + u".writing";
    {
        const std::unique_ptr<macro::File> file = files.Open(temporary, macro::FileAccess::Write);
        file->Write(text);
    }
    if (files.Find(path)) {
        files.Delete(path);
    }
    files.Rename(temporary, path);
}

std::optional<document::Document> WithReferencesFrom(const document::Document& document, std::u16string_view oldFolder,
                                                     std::u16string_view newFolder)
{
    document::Document copy = document;
    if (SameIgnoringCase(oldFolder, newFolder)) {
        return copy;
    }
    ReferenceMover mover(oldFolder, newFolder);
    mover.Move(copy);
    if (!mover.Succeeded()) {
        return std::nullopt;
    }
    return copy;
}

} // namespace tv::app
