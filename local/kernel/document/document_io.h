// Reads and writes documents in their JSON form. docs/document-format.md describes the form.
#pragma once

#include "document/model.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace tv::document {

inline constexpr int kFormatVersion = 1;

enum class Fault
{
    NotJson,       // not a document at all, or cut off
    Invalid,       // JSON, and something in it is missing, unknown or out of range
    FutureVersion, // written by a later version of the application
};

/// What is wrong with a document: file, place in the JSON and reason, in one sentence made for a person.
class DocumentError : public std::runtime_error
{
  public:
    DocumentError(Fault why, const std::string& sentence) : std::runtime_error(sentence), reason(why) {}
    Fault fault() const { return reason; }

  private:
    Fault reason;
};

/// Reads the JSON text of a document.
///
/// \param text      UTF-8
/// \param fileName  named in errors; its extension, if it is one of ours, must agree with the document's kind
/// \throws DocumentError
Document ReadDocument(std::string_view text, std::string_view fileName);

/// Writes the document so that ReadDocument gives it back: UTF-8, indented, LF line ends, members in a fixed order.
std::string WriteDocument(const Document& document);

} // namespace tv::document
