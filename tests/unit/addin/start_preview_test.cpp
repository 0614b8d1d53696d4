#include "addin_test.h"

namespace tv {

namespace {

constexpr char16_t kSetup2013[] = u"SOFTWARE\\Torvane\\Torvane 2013\\Setup";
constexpr char16_t kServer[] = u"SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\\LocalServer32";

/// The add-in on a machine that has version 2013 in C:\CAD.
class StartPreviewTest : public AddInTest
{
  protected:
    Result Ask(int32_t year) { return addIn->GetStartCommand(year, &startedYear, &classId, &source, command.put()); }

    int32_t startedYear = -1;
    GUID classId{};
    StartSource source = StartSource::None;
    BString command;
};

} // namespace

TEST_F(StartPreviewTest, AYearIsStartedFromItsSetupKey)
{
    EXPECT_EQ(Ask(2013), 0);
    EXPECT_EQ(command.Text(), u"C:\\CAD\\TORVANE.EXE /B");
    EXPECT_EQ(startedYear, 2013);
    EXPECT_EQ(classId, kLocalApplicationClass);
    EXPECT_EQ(source, StartSource::Setup64);
}

TEST_F(StartPreviewTest, ItIsTheCommandLineThatARunStarts)
{
    machine.registry.PutNumber(kLocalMachineRoot, kSetup2013, u"Torvane Office Installed", 0);
    EXPECT_EQ(Ask(2013), 0);
    EXPECT_EQ(RunTask(), 0);
    EXPECT_EQ(command.Text(), u"C:\\CAD\\TORVANE.EXE /R");
    EXPECT_EQ(machine.processes.Last().commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(StartPreviewTest, WithoutAYearTheRegisteredServerIsStarted)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"D:\\Server\\T.EXE");
    EXPECT_EQ(Ask(0), 0);
    EXPECT_EQ(command.Text(), u"D:\\Server\\T.EXE /B");
    EXPECT_EQ(startedYear, 2013);
    EXPECT_EQ(source, StartSource::RegisteredServer);
}

TEST_F(StartPreviewTest, AYearWhoseClassIsNotRegisteredGivesTheOneThatIs)
{
    EXPECT_EQ(Ask(2010), 0);
    EXPECT_EQ(startedYear, 2013);
    EXPECT_EQ(source, StartSource::RegisteredServer);
}

TEST_F(StartPreviewTest, AClassWithoutAProgramHasNoCommandLine)
{
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Folder", u"");
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"");
    EXPECT_EQ(Ask(2013), 0);
    EXPECT_EQ(command.Text(), u"");
    EXPECT_EQ(source, StartSource::None);
}

TEST_F(StartPreviewTest, ACommandLineIsCutWhereARunCutsIt)
{
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Folder", std::u16string(255, u'x'));
    EXPECT_EQ(Ask(2013), 0);
    EXPECT_EQ(command.Text(), std::u16string(255, u'x') + u"\\TOR");
}

TEST_F(StartPreviewTest, WithoutAnyClassItFailsAsTheStartWould)
{
    machine.runningObjects.RemoveClass(u"Torvane.Application");
    machine.runningObjects.RemoveClass(u"Torvane.Application.21");
    EXPECT_EQ(Ask(2013), Code(0x800401F3));
    EXPECT_EQ(startedYear, -1);
}

TEST_F(StartPreviewTest, NothingIsStarted)
{
    Ask(2013);
    EXPECT_EQ(machine.processes.Count(), 0u);
}

TEST_F(StartPreviewTest, EveryArgumentMustBePresent)
{
    EXPECT_EQ(addIn->GetStartCommand(0, nullptr, &classId, &source, command.put()), Code(0x80004003));
    EXPECT_EQ(addIn->GetStartCommand(0, &startedYear, nullptr, &source, command.put()), Code(0x80004003));
    EXPECT_EQ(addIn->GetStartCommand(0, &startedYear, &classId, nullptr, command.put()), Code(0x80004003));
    EXPECT_EQ(addIn->GetStartCommand(0, &startedYear, &classId, &source, nullptr), Code(0x80004003));
}

} // namespace tv
