// OutputList: what a run saved, in order, with a quick look-up by path.
#pragma once

#include "vault/task_file.h"

#include <string_view>
#include <unordered_map>

namespace tv {

/// Paths are compared with case ignored, as the file system does.
class OutputList
{
  public:
    void Clear();
    void Add(TaskFile file);

    const std::vector<TaskFile>& Files() const { return files; }
    std::vector<TaskFile>& Files() { return files; }

    /// Indexes of the records with this path, in list order.
    const std::vector<size_t>& WithPath(std::u16string_view path) const;

  private:
    std::vector<TaskFile> files;
    std::unordered_map<std::u16string, std::vector<size_t>> byPath;
};

} // namespace tv
