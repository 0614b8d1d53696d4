// Makes macros out of bytes that are nearly always well formed, so that a fuzzer reaches what stands behind the parser.
#pragma once

#include "targets.h"

namespace tv::fuzz {

std::u16string GenerateProgram(Bytes bytes);

} // namespace tv::fuzz
