// Reading and writing the application's own documents through the file system.
#pragma once

#include "cad/constants.h"
#include "document/model.h"
#include "macro/file_system.h"

#include <optional>
#include <string>

namespace tv::app {

/// Outcome of reading a document: the document, or why there is none.
struct ReadOutcome
{
    std::optional<document::Document> document;
    int32_t error = 0; ///< of OpenError
    std::string message;
};

ReadOutcome ReadDocumentFile(macro::FileSystem& files, std::u16string_view path);

/// Reads a whole file; a failure is a MacroError.
std::string ReadBytes(macro::FileSystem& files, std::u16string_view path);

/// Writes through a temporary file beside the target, so that no half document ever stands there. A failure is a
/// MacroError.
void WriteDocumentFile(macro::FileSystem& files, std::u16string_view path, const document::Document& document);

/// A copy of the document whose references, relative to one folder, are relative to another. Empty when a reference
/// can't be written from there because it lies on another root.
std::optional<document::Document> WithReferencesFrom(const document::Document& document, std::u16string_view oldFolder,
                                                     std::u16string_view newFolder);

} // namespace tv::app
