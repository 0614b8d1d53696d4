// Checks that a neutral file is whole before the geometry library sees it. The library takes what it can get from a
// file that was cut off, and a part with half its faces looks like a success.
#pragma once

#include <filesystem>

namespace tv::kernel {

/// Throws JobFailure with FileNotFound or Damaged.
void CheckStepFile(const std::filesystem::path& file);
void CheckIgesFile(const std::filesystem::path& file);
void CheckStlFile(const std::filesystem::path& file);
void CheckBrepFile(const std::filesystem::path& file);

/// The whole file. Throws JobFailure with FileNotFound.
std::string ReadWholeFile(const std::filesystem::path& file);

} // namespace tv::kernel
