#include "engine/writers.h"

#include "engine/failure.h"
#include "engine/neutral_reader.h"

#include <algorithm>

namespace tv::kernel {

namespace {

constexpr std::string_view kUnits = "mm|cm|m|in|ft";

constexpr OptionRow kStepOptions[] = {
    {"schema", "AP203|AP214", "AP214", "the STEP application protocol"},
};

constexpr OptionRow kIgesOptions[] = {
    {"representation", "surfaces|solids", "surfaces", "trimmed surfaces (type 144) or manifold solids (type 186)"},
};

constexpr OptionRow kStlOptions[] = {
    {"binary", "true|false", "true", "binary, or text"},
    {"unit", kUnits, "mm", "what a unit in the file stands for"},
    {"quality", "coarse|fine", "coarse", "how closely the triangles follow curved faces"},
    {"positive", "true|false", "false", "moves the model to where no coordinate is negative"},
};

constexpr OptionRow kVrmlOptions[] = {
    {"unit", kUnits, "mm", "what a unit in the file stands for"},
    {"quality", "coarse|fine", "coarse", "how closely the triangles follow curved faces"},
};

constexpr OptionRow kPdfOptions[] = {
    {"color", "true|false", "true", "hidden edges and frames in colour, or all in black"},
    {"hidden-lines", "dashed|removed", "dashed", "of a model's views; a drawing's views say it themselves"},
    {"edges", "automatic|exact|fast", "automatic", "exact takes long on models with hundreds of faces"},
    {"sheet", "A4|A4 landscape|A3|A2|A1|A0|ANSI A|ANSI B|ANSI C|ANSI D|ANSI E", "A3", "the size of a model's page"},
    {"header-footer", "true|false", "false", "the name above the frame and the page number below it"},
};

constexpr Writer kWriters[] = {
    {".step", "STEP", kStepOptions, WriteStep}, {".stp", "STEP", kStepOptions, WriteStep},
    {".igs", "IGES", kIgesOptions, WriteIges},  {".iges", "IGES", kIgesOptions, WriteIges},
    {".stl", "STL", kStlOptions, WriteStl},     {".wrl", "VRML", kVrmlOptions, WriteVrml},
    {".brep", "BREP", {}, WriteBrep},           {".pdf", "PDF", kPdfOptions, WritePages(WritePdf)},
};

} // namespace

std::span<const Writer> Writers()
{
    return kWriters;
}

const Writer* FindWriter(const std::filesystem::path& target)
{
    const auto found = std::ranges::find(kWriters, LowerExtension(target), &Writer::extension);
    return found == std::end(kWriters) ? nullptr : &*found;
}

void FailToWrite(const WriteTarget& target, const std::string& reason)
{
    throw JobFailure(ErrorCode::CannotWrite, Quoted(target.finalName) + " can't be written: " + reason + ".");
}

} // namespace tv::kernel
