// ApplicationFixture: the CAD application as a process of a test's own, started, found by its process id, driven by
// name, and gone at the end.
#pragma once

#include "com/bstring.h"
#include "com/com_ptr.h"
#include "com/variant.h"
#include "interfaces/application.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tv {

std::string Narrow(const std::wstring& text);

/// What a call of RunMacroEx came to.
struct MacroAnswer
{
    HRESULT result;
    bool succeeded;
    LONG error; ///< as the application told it; -1 when it told none
};

class ApplicationFixture : public testing::Test
{
  protected:
    /// How long what comes may take on a busy machine, in milliseconds.
    static constexpr DWORD kPatience = 60'000;

    void SetUp() override;
    /// Ends the process and removes the folder with what was written.
    void TearDown() override;

    /// Starts the application without waiting for anything.
    void Launch(const std::wstring& arguments = L"/B");
    /// Looks for the application in the running object table until it is there, at most so many milliseconds.
    void Attach(DWORD patience = kPatience);
    /// Ends the process, by force if it still lives.
    void EndProcess();

    /// Calls a member by name; the arguments are borrowed.
    static HRESULT Try(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments, Variant& answer);

    MacroAnswer RunMacroFile(const std::wstring& path);

    /// Writes a file into the folder; it goes at the end.
    std::wstring Write(const wchar_t* name, const std::string& text);

    std::wstring folder;
    std::vector<std::wstring> written;
    PROCESS_INFORMATION process{};
    ComPtr<IDispatch> application;
};

} // namespace tv
