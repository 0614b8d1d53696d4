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
    void Reserve(size_t count);
    void Add(TaskFile file);

    const std::vector<TaskFile>& Files() const { return files; }
    std::vector<TaskFile>& Files() { return files; }

    /// Indexes of the records with this path, in list order.
    std::vector<size_t> WithPath(std::u16string_view path) const;

  private:
    /// The records with one path; those between the first and the last are found by nextWithPath.
    struct Chain
    {
        size_t first;
        size_t last;
    };

    std::vector<TaskFile> files;
    std::vector<size_t> nextWithPath; ///< of each record, the next one with its path; its own index at the end
    std::unordered_map<std::u16string, Chain> byPath;
};

} // namespace tv
