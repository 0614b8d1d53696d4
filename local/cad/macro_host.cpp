#include "cad/macro_host.h"

#include "cad/text.h"

namespace tv::app {

namespace {

using macro::Arguments;
using macro::Value;

/// Creates a folder and those above it, as SHCreateDirectoryEx does: 0 for a new folder, 183 when it exists, 161 for a
/// path that isn't absolute, 3 when it can't be made.
int32_t CreateDirectories(macro::FileSystem& files, std::u16string path)
{
    constexpr int32_t kAlreadyExists = 183;
    constexpr int32_t kBadPathName = 161;
    constexpr int32_t kPathNotFound = 3;
    while (path.size() > 3 && (path.back() == u'\\' || path.back() == u'/')) {
        path.pop_back();
    }
    if (!IsAbsolutePath(path)) {
        return kBadPathName;
    }
    if (const std::optional<macro::FileEntry> found = files.Find(path)) {
        return kAlreadyExists;
    }
    const std::u16string above = FolderOf(path);
    if (above.size() > 2 && !files.Find(above)) {
        const int32_t result = CreateDirectories(files, above);
        if (result != 0 && result != kAlreadyExists) {
            return result;
        }
    }
    try {
        files.CreateFolder(path);
        return 0;
    } catch (const macro::MacroError&) {
        return kPathNotFound;
    }
}

} // namespace

MacroHost::MacroHost(ObjectContext& objects, macro::FileSystem& fileSystem, std::function<double()> localTime,
                     std::function<int32_t(const std::u16string&, int32_t, const std::u16string&)> showMessage,
                     std::function<std::vector<std::u16string>()> environment)
    : context(objects), files(fileSystem), now(std::move(localTime)), messageBox(std::move(showMessage)),
      entries(std::move(environment))
{
    functions[u"shell32|shcreatedirectoryexa"] = [this](Arguments& arguments) {
        arguments.Expect(3, 3);
        return Value(CreateDirectories(files, arguments[1].ToText()));
    };
    functions[u"shlwapi|pathisrelativea"] = [](Arguments& arguments) {
        arguments.Expect(1, 1);
        return Value(int32_t{IsAbsolutePath(arguments[0].ToText()) ? 0 : 1});
    };
}

Value MacroHost::Global(std::u16string_view)
{
    return Value(MakeGlobalObject(context));
}

macro::Ref<macro::Object> MacroHost::CreateObject(std::u16string_view progId)
{
    const std::u16string name = macro::FoldCase(progId);
    if (name == u"torvane.application" || name.starts_with(u"torvane.application.")) {
        return MakeApplicationObject(context);
    }
    return nullptr;
}

const macro::ExternalFunction* MacroHost::FindFunction(std::u16string_view library, std::u16string_view entry)
{
    const auto found = functions.find(std::u16string(library) + u"|" + std::u16string(entry));
    return found == functions.end() ? nullptr : &found->second;
}

int32_t MacroHost::MessageBox(const std::u16string& prompt, int32_t buttons, const std::u16string& title)
{
    context.application.onMacroEvent({MacroEventKind::Asked, ToUtf8(prompt)});
    return messageBox(prompt, buttons, title);
}

std::vector<std::u16string> MacroHost::Environment()
{
    return entries ? entries() : std::vector<std::u16string>();
}

void MacroHost::DebugPrint(const std::u16string& line)
{
    context.application.onNote("macro: " + ToUtf8(line));
    context.application.onMacroEvent({MacroEventKind::Printed, ToUtf8(line)});
}

} // namespace tv::app
