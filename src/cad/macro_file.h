// MacroFile: the text of a macro as a file that the application accepts.
#pragma once

#include "com/base.h"
#include "platform/file_service.h"

#include <string>
#include <string_view>

namespace tv {

/// Extension of the application's text macros, with its dot.
inline constexpr std::u16string_view kMacroExtension = u".tvb";

/// A file in the temporary folder, deleted with the object.
class MacroFile
{
  public:
    /// Writes the text in the system's narrow code page. The system's failure is raised.
    MacroFile(FileService& service, std::u16string_view text);
    MacroFile(const MacroFile&) = delete;
    MacroFile& operator=(const MacroFile&) = delete;
    ~MacroFile();

    /// Gives the file the extension that the application asks for; a file that has the new name is deleted first.
    Result Rename();
    void CopyTo(std::u16string_view path) { files.CopyFile(macroPath, path); }
    void Delete();

    const std::u16string& Path() const { return macroPath; }

  private:
    FileService& files;
    std::u16string temporaryPath;
    std::u16string macroPath;
};

} // namespace tv
