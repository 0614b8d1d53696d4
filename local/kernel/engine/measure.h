#pragma once

#include "engine/model.h"
#include "protocol/jobs.h"

namespace tv::kernel {

/// Volume, area, box and counts of a model.
void Measure(const Model& model, Inspection& inspection);

} // namespace tv::kernel
