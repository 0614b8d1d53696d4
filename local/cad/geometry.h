// What the application asks of the geometry kernel.
#pragma once

#include "protocol/errors.h"
#include "protocol/jobs.h"

namespace tv::app {

/// Loads and writes shapes. Paths in the jobs are Windows paths in UTF-8. Failures are values.
class Geometry
{
  public:
    virtual ~Geometry() = default;
    virtual kernel::Outcome<kernel::Inspection> Inspect(const kernel::InspectJob& job) = 0;
    virtual kernel::Outcome<kernel::Saved> Save(const kernel::SaveJob& job) = 0;
};

} // namespace tv::app
