// The formats that can be written. A new format is a function here and a row in the table of writers.cpp.
#pragma once

#include "engine/model.h"
#include "engine/options.h"
#include "engine/page.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tv::kernel {

/// Where a writer writes to, and under which name the file will be known when it stands there.
struct WriteTarget
{
    std::filesystem::path file; // a temporary name
    std::string finalName;      // without folder
};

using WriteModel = void (*)(const Model& model, const Options& options, const WriteTarget& target);
using WritePages = void (*)(const std::vector<Page>& pages, const Options& options, const WriteTarget& target);

struct Writer
{
    std::string_view extension; // lower case, with the dot
    std::string_view title;
    std::span<const OptionRow> options;
    std::variant<WriteModel, WritePages> write;
};

std::span<const Writer> Writers();

/// The writer for a target, by its extension; nullptr when the format can't be written.
const Writer* FindWriter(const std::filesystem::path& target);

void WriteStep(const Model& model, const Options& options, const WriteTarget& target);
void WriteIges(const Model& model, const Options& options, const WriteTarget& target);
void WriteBrep(const Model& model, const Options& options, const WriteTarget& target);
void WriteStl(const Model& model, const Options& options, const WriteTarget& target);
void WriteVrml(const Model& model, const Options& options, const WriteTarget& target);
void WritePdf(const std::vector<Page>& pages, const Options& options, const WriteTarget& target);

/// Throws JobFailure with CannotWrite.
[[noreturn]] void FailToWrite(const WriteTarget& target, const std::string& reason);

} // namespace tv::kernel
