// A host in memory with a few objects and files, so that a macro that a fuzzer wrote finds something to work on.
#pragma once

#include "macro/macro.h"
#include "macro/memory_file_system.h"

namespace tv::fuzz {

class FuzzHost final : public macro::Host
{
  public:
    FuzzHost();
    macro::Value Global(std::u16string_view foldedName) override;
    macro::Ref<macro::Object> CreateObject(std::u16string_view progId) override;
    const macro::ExternalFunction* FindFunction(std::u16string_view library, std::u16string_view entry) override;
    macro::FileSystem& Files() override { return files; }
    double Now() override { return 46341.75; }
    int32_t MessageBox(const std::u16string&, int32_t, const std::u16string&) override { return 6; }
    void DebugPrint(const std::u16string& line) override { printed += line.size(); }

    size_t printed = 0;

  private:
    macro::MemoryFileSystem files;
    macro::ExternalFunction function;
};

/// Compiles the text and runs its main within narrow limits. The result must be one of those that are documented.
void CompileAndRun(std::u16string_view text);

} // namespace tv::fuzz
