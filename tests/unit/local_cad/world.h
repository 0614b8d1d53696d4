// A small world for the application: files in memory and a kernel that notes what it is asked for.
#pragma once

#include "cad/application.h"
#include "cad/macro_host.h"
#include "cad/macro_library.h"
#include "cad/macro_runner.h"
#include "cad/objects.h"
#include "cad/text.h"

#include <map>
#include <string>
#include <vector>

namespace tv::app {

/// Windows paths, capitals and small letters alike.
class MemoryFiles : public macro::FileSystem
{
  public:
    void Put(std::u16string_view path, std::string bytes);
    std::string Bytes(std::u16string_view path) const;
    bool Has(std::u16string_view path) const { return files.contains(macro::FoldCase(path)); }
    bool HasFolder(std::u16string_view path) const;

    std::unique_ptr<macro::File> Open(std::u16string_view path, macro::FileAccess access) override;
    std::optional<macro::FileEntry> Find(std::u16string_view path) override;
    std::vector<macro::FileEntry> List(std::u16string_view folder) override;
    void Delete(std::u16string_view path) override;
    void Copy(std::u16string_view from, std::u16string_view to) override;
    void Rename(std::u16string_view from, std::u16string_view to) override;
    void CreateFolder(std::u16string_view path) override;
    void RemoveFolder(std::u16string_view path) override;
    void SetReadOnly(std::u16string_view path, bool readOnly) override;
    std::u16string CurrentFolder() override { return u"C:\\"; }
    void ChangeFolder(std::u16string_view) override {}
    std::u16string TemporaryFolder() override { return u"C:\\Temp\\"; }

  private:
    std::map<std::u16string, std::shared_ptr<std::string>> files;
    std::vector<std::u16string> folders{u"c:"};
};

/// Notes each job, writes the job's target so that it can be seen, and fails for sources that a test names.
class NotingGeometry : public Geometry
{
  public:
    explicit NotingGeometry(MemoryFiles& disk) : files(disk) {}
    kernel::Outcome<kernel::Inspection> Inspect(const kernel::InspectJob& job) override;
    kernel::Outcome<kernel::Saved> Save(const kernel::SaveJob& job) override;

    std::vector<kernel::InspectJob> inspected;
    std::vector<kernel::SaveJob> saved;
    std::map<std::string, kernel::Error> failures; // by source path

  private:
    MemoryFiles& files;
};

/// An automation listener that notes each event as "7 C:\out.stl".
class NotingSink final : public ComObject<IDispatch>
{
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO*,
                                     UINT*) override;

    std::vector<std::string> heard;
    std::function<void(DISPID)> onEvent = [](DISPID) {};
    Result answer = S_OK;
};

struct World
{
    MemoryFiles files;
    NotingGeometry geometry{files};
    Application application{files, geometry};
    ObjectContext context{application, {}};
    MacroLibrary library;
    MacroHost host{context, files, [] { return 45000.5; },
                   [](const std::u16string&, int32_t, const std::u16string&) { return 1; },
                   [] { return std::vector<std::u16string>{u"USERNAME=admin"}; }};
    MacroRunner runner{host, library, macro::Limits{}};

    World();
    /// Stores a macro in a file and runs its `main`.
    MacroOutcome RunText(const std::string& text);
};

/// A part with the configurations "Default", "Long" and "A/B".
std::string PartText();
/// An assembly with the virtual part "Cover-1" and the virtual assembly "Sub-1" that holds the virtual part "Pin-1".
std::string AssemblyText();
/// A drawing with the sheets "Sheet1" and "Sheet2".
std::string DrawingText();

} // namespace tv::app
