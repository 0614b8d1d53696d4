// What can be asked of the geometry kernel, and what it answers. Texts are UTF-8; paths are those of the system that
// the kernel runs on.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tv::kernel {

/// What a job works on: a neutral file, a document, or a virtual component inside an assembly.
struct Source
{
    std::string path;

    /// Names of virtual components, outermost first: {"Cover-1"} is the document embedded in component "Cover-1" of the
    /// assembly at `path`. Empty means the file's own document.
    std::vector<std::string> component;

    /// A document that was changed and not saved: its JSON text, read in place of the file. References in it are
    /// relative to `path`, which need not exist. Empty means that the file is read.
    std::string documentText;
};

/// A job that goes on for longer, or that wants more, is ended, and fails with TimedOut or OutOfMemory.
struct Limits
{
    std::chrono::milliseconds time{std::chrono::minutes(5)};
    uint64_t memoryBytes = uint64_t{4} << 30;
};

/// Loads the source and measures it.
struct InspectJob
{
    Source source;
    std::string configuration; // empty: the active one
    Limits limits;
};

/// Writes the source in the format that the target's extension names. The target's folder must exist; the target is
/// replaced as a whole once everything is written, so that no half file ever stands there.
struct SaveJob
{
    Source source;

    /// Configuration names of a model, sheet names of a drawing. Empty: the active configuration, or all sheets. Only
    /// PDF holds several configurations.
    std::vector<std::string> items;

    std::string target;

    /// Options of the format by name, such as {"binary", "true"}; `tvkernel formats` lists them. One that is left out
    /// has its default, one that the format doesn't have is refused.
    std::map<std::string, std::string> options;

    Limits limits;
};

enum class SourceKind
{
    Part,
    Assembly,
    Drawing,
    Neutral, // STEP, IGES, STL, BREP
};

/// Millimetres throughout.
struct Box
{
    std::array<double, 3> low{};
    std::array<double, 3> high{};
};

struct Inspection
{
    SourceKind kind = SourceKind::Neutral;
    std::vector<std::string> items; // names of configurations or sheets; one "Default" for a neutral file
    std::string activeItem;
    double volume = 0; // cubic millimetres; of what is closed, 0 for loose faces
    double area = 0;
    Box box;
    int solids = 0;
    int faces = 0;
    int triangles = 0;
};

struct Saved
{
    std::string target;
    uint64_t bytes = 0;
    int pages = 0; // of a PDF, otherwise 0
};

} // namespace tv::kernel
