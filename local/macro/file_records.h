#pragma once

#include "macro/value.h"

#include <functional>
#include <string>

// How values lie in the files of Get and Put.

namespace tv::macro {

/// Takes so many bytes from a file or a record; what lies beyond its end is zeros.
using TakeBytes = std::function<std::string(size_t count)>;

/// The bytes that Put writes.
///
/// \param stored    declared type of the variable; a Variant's kind is written in front of its value
/// \param inRecords the file has records, where a text has its length in front and a dynamic array its bounds
std::string ToRecordBytes(const Value& value, Type stored, bool inRecords);

/// The value that Get reads.
///
/// \param present what the variable holds, whose kind, length and bounds tell what is read
Value FromRecordBytes(const Value& present, Type stored, bool inRecords, const TakeBytes& take);

} // namespace tv::macro
