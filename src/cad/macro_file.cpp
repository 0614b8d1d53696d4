#include "cad/macro_file.h"

#include "com/result.h"
#include "platform/registry_service.h"
#include "support/paths.h"

namespace tv {

namespace {

void ThrowIfError(uint32_t error)
{
    ThrowIfFailed(ResultFromSystemError(error));
}

} // namespace

MacroFile::MacroFile(FileService& service, std::u16string_view text) : files(service)
{
    std::unique_ptr<OutputFile> file;
    ThrowIfError(files.CreateTemporaryFile(u"TFR", file));
    temporaryPath = file->Path();
    macroPath = WithExtension(temporaryPath, kMacroExtension);
    // As many bytes as the text has units, also where a code page of two bytes a character would need more.
    std::string bytes = files.NarrowText(text);
    bytes.resize(text.size(), '\0');
    if (const uint32_t error = file->Write(bytes); error != kErrorSuccess) {
        file.reset();
        files.DeleteFile(temporaryPath);
        ThrowIfError(error);
    }
}

MacroFile::~MacroFile()
{
    Delete();
}

Result MacroFile::Rename()
{
    const uint32_t deleted = files.DeleteFile(macroPath);
    if (deleted != kErrorSuccess && deleted != kErrorFileNotFound) {
        return ResultFromSystemError(deleted);
    }
    const uint32_t moved = files.MoveFile(temporaryPath, macroPath);
    if (moved == kErrorSuccess) {
        temporaryPath.clear();
    }
    return ResultFromSystemError(moved);
}

void MacroFile::Delete()
{
    if (files.FileExists(macroPath)) {
        files.DeleteFile(macroPath);
    }
    if (!temporaryPath.empty()) {
        files.DeleteFile(temporaryPath);
        temporaryPath.clear();
    }
}

} // namespace tv
