// Reads STEP, IGES, STL and BREP files.
#pragma once

#include "engine/model.h"

#include <filesystem>

namespace tv::kernel {

/// Whether there is a reader for the extension of this path.
bool IsNeutralFile(const std::filesystem::path& file);

/// Throws JobFailure: FileNotFound, Damaged, EmptyShape, UnsupportedFormat.
Model ReadNeutralFile(const std::filesystem::path& file);

/// The model's shape with faces and edges: for a mesh one flat face for each triangle, with flat regions merged.
TopoDS_Shape BoundaryShape(const Model& model);

/// The extension in lower case, with its dot.
std::string LowerExtension(const std::filesystem::path& file);

/// Starts the readers and writers of the geometry library. Takes a moment, so a server does it before its first job.
void PrepareExchange();

} // namespace tv::kernel
