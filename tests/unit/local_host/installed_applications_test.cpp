// The list of the installed versions: what the add-in says of each, and what keeps one from starting.
#include "host_world.h"

#include "host/installed_applications.h"
#include "vault/text.h"

namespace tv::local {

namespace {

class InstalledApplicationsTest : public HostWorld
{
  protected:
    InstalledApplicationsTest() : program(Write("CAD/TORVANE.EXE", "program")) {}

    /// The add-in would start a command line for a year.
    void Put(int32_t year, const std::string& commandLine, StartSource source = StartSource::Setup64)
    {
        component.starts[year] = {year == 0 ? 2013 : year, source, Utf16(commandLine)};
    }
    InstalledApplications Find() { return FindApplications(component, applications); }

    std::string program;
};

std::function<bool(const std::string&)> Among(std::vector<std::string> files)
{
    return
        [files = std::move(files)](const std::string& path) { return std::ranges::find(files, path) != files.end(); };
}

} // namespace

TEST_F(InstalledApplicationsTest, AVersionIsTakenAsTheAddInTellsIt)
{
    Put(2013, program + " /B");
    const InstalledApplications found = Find();
    ASSERT_EQ(found.versions.size(), 1u);
    const InstalledApplication& version = found.versions.front();
    EXPECT_EQ(version.year, 2013);
    EXPECT_EQ(version.className, "Torvane.Application.21");
    EXPECT_EQ(version.classId, "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}");
    EXPECT_EQ(version.source, StartSource::Setup64);
    EXPECT_EQ(version.commandLine, program + " /B");
    EXPECT_EQ(version.program, program);
    EXPECT_EQ(version.problem, "");
    EXPECT_TRUE(version.CanStart());
}

TEST_F(InstalledApplicationsTest, TheDefaultIsAskedForWithoutAYear)
{
    Put(0, program + " /R", StartSource::RegisteredServer);
    const InstalledApplication standard = Find().standard;
    EXPECT_EQ(standard.year, 2013);
    EXPECT_EQ(standard.className, "Torvane.Application");
    EXPECT_EQ(standard.commandLine, program + " /R");
    EXPECT_TRUE(standard.CanStart());
}

TEST_F(InstalledApplicationsTest, AProgramThatIsMissingIsTold)
{
    Put(2013, "C:\\None\\TORVANE.EXE /B", StartSource::Setup32);
    const InstalledApplication version = Find().versions.front();
    EXPECT_EQ(version.program, "C:\\None\\TORVANE.EXE");
    EXPECT_EQ(version.problem,
              "The program 'C:\\None\\TORVANE.EXE' is missing (Setup key, 32-bit view). Repair the installation.");
    EXPECT_FALSE(version.CanStart());
}

TEST_F(InstalledApplicationsTest, ABareNameIsLeftToTheSystemsSearchPath)
{
    Put(2013, "TORVANE.EXE /B");
    EXPECT_EQ(Find().versions.front().problem, "");
}

TEST_F(InstalledApplicationsTest, AYearWithoutAProgramIsTold)
{
    Put(2013, "", StartSource::None);
    EXPECT_EQ(Find().versions.front().problem,
              "Neither a Setup key nor the registered server of the class names a program. Repair the installation.");
}

TEST_F(InstalledApplicationsTest, AYearWithoutAClassIsTold)
{
    applications.years = {2012};
    const InstalledApplications found = Find();
    EXPECT_EQ(found.versions.front().year, 2012);
    EXPECT_EQ(found.versions.front().classId, "");
    EXPECT_EQ(found.versions.front().problem,
              "The class 'Torvane.Application.20' isn't registered. Repair the installation of that version.");
    EXPECT_EQ(found.standard.problem, "The class 'Torvane.Application' isn't registered. Register a version; the local "
                                      "edition's with: TORVANE.EXE /regserver");
}

TEST_F(InstalledApplicationsTest, AYearInWhosePlaceAnotherIsStartedIsTold)
{
    applications.years = {2012, 2013};
    Put(2013, program + " /B");
    component.starts[2012] = {2013, StartSource::RegisteredServer, Utf16(program + " /B")};
    const InstalledApplications found = Find();
    EXPECT_EQ(found.versions[0].year, 2012);
    EXPECT_EQ(found.versions[0].problem, "A task that asks for 2012 gets Torvane 2013, because this version isn't "
                                         "registered whole. Repair its installation.");
    EXPECT_EQ(found.versions[1].problem, "");
    EXPECT_EQ(FindApplication(component, 2012).year, 2013);
    EXPECT_TRUE(FindApplication(component, 2012).CanStart());
}

TEST_F(InstalledApplicationsTest, AnAddInThatIsNotRegisteredOrAnOlderOneIsAFailureWithWords)
{
    component.offersStartPreview = false;
    try {
        Find();
        FAIL();
    } catch (const ResultError& error) {
        EXPECT_EQ(Utf8(error.Text()), "The registered add-in is an older one and can't tell how it would start the CAD "
                                      "application. Register the present one with: regsvr32 TVTaskAddIn.dll");
    }
    component.registered = false;
    EXPECT_THROW(Find(), ResultError);
}

TEST(ApplicationSources, EachHasItsWords)
{
    EXPECT_EQ(SourceWords(StartSource::None), "nowhere");
    EXPECT_EQ(SourceWords(StartSource::Setup64), "Setup key, 64-bit view");
    EXPECT_EQ(SourceWords(StartSource::Setup32), "Setup key, 32-bit view");
    EXPECT_EQ(SourceWords(StartSource::RegisteredServer), "registered server");
}

TEST(ProgramOfACommandLine, AnUnquotedPathWithBlanksIsTheFirstFileThatStandsBeforeABlank)
{
    const std::string line = "C:\\Program Files\\CAD 13\\TORVANE.EXE /B";
    EXPECT_EQ(ProgramOf(line, Among({"C:\\Program Files\\CAD 13\\TORVANE.EXE"})),
              "C:\\Program Files\\CAD 13\\TORVANE.EXE");
    EXPECT_EQ(ProgramOf(line, Among({"C:\\Program.exe", "C:\\Program Files\\CAD 13\\TORVANE.EXE"})), "C:\\Program.exe");
    EXPECT_EQ(ProgramOf(line, Among({"C:\\Program Files\\CAD.exe"})), "C:\\Program Files\\CAD.exe");
}

TEST(ProgramOfACommandLine, WhereNoFileStandsItIsAllUpToTheSwitch)
{
    EXPECT_EQ(ProgramOf("C:\\My CAD\\TORVANE.EXE /B", Among({})), "C:\\My CAD\\TORVANE.EXE");
    EXPECT_EQ(ProgramOf("C:\\My CAD\\TORVANE.EXE /x /B", Among({})), "C:\\My CAD\\TORVANE.EXE");
    EXPECT_EQ(ProgramOf("C:\\My CAD\\TORVANE.EXE", Among({})), "C:\\My CAD\\TORVANE.EXE");
    EXPECT_EQ(ProgramOf("", Among({})), ".exe");
}

TEST(ProgramOfACommandLine, AQuotedPathEndsAtItsClosingQuote)
{
    EXPECT_EQ(ProgramOf("\"C:\\Any Place\\T.EXE\" -q /R", Among({"C:\\Any.exe"})), "C:\\Any Place\\T.EXE");
    EXPECT_EQ(ProgramOf("\"C:\\Any Place\\T\" /R", Among({})), "C:\\Any Place\\T.exe");
    EXPECT_EQ(ProgramOf("\"C:\\Any", Among({})), "C:\\Any.exe");
}

TEST(ProgramOfACommandLine, ServersArgumentsAreNoPartOfIt)
{
    EXPECT_EQ(ProgramOf("C:\\CAD\\TORVANE.EXE -Embedding /B", Among({"C:\\CAD\\TORVANE.EXE"})), "C:\\CAD\\TORVANE.EXE");
}

} // namespace tv::local
