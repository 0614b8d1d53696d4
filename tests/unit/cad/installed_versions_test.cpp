#include "cad/installed_versions.h"

#include "fakes/platform/fake_platform.h"
#include "interfaces/ids.h"

#include <gtest/gtest.h>

namespace tv {

namespace {

constexpr char16_t kSetup2013[] = u"SOFTWARE\\Torvane\\Torvane 2013\\Setup";
constexpr char16_t kAddInKey[] = u"Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn";
constexpr char16_t kServer[] = u"SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\\LocalServer32";
constexpr char16_t kProgId[] = u"SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\\ProgID";

class InstalledVersionsTest : public testing::Test
{
  protected:
    StartCommand Command(int32_t version, bool forceRegression = false)
    {
        return GetCommandLine(machine.registry, kLocalApplicationClass, {{}, false, version}, forceRegression);
    }
    void PutFolder(const std::u16string& folder, uint32_t view = kKeyView64)
    {
        machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Folder", folder, view);
    }
    void PutOffice(uint32_t number, uint32_t view = kKeyView64)
    {
        machine.registry.PutNumber(kLocalMachineRoot, kSetup2013, u"Torvane Office Installed", number, view);
    }

    fakes::FakePlatform machine;
};

} // namespace

TEST_F(InstalledVersionsTest, AFolderWithTrailingBackslashesGetsASingleOneBeforeTheProgram)
{
    PutFolder(u"C:\\CAD\\\\");
    PutOffice(1);
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /B");
}

TEST_F(InstalledVersionsTest, AFolderWithBlanksIsNotQuoted)
{
    PutFolder(u"C:\\Program Files\\CAD");
    PutOffice(1);
    EXPECT_EQ(Command(2013).commandLine, u"C:\\Program Files\\CAD\\TORVANE.EXE /B");
}

TEST_F(InstalledVersionsTest, AFolderInThe32BitViewAloneIsFoundAtTheSecondTry)
{
    PutFolder(u"D:\\CAD32", kKeyView32);
    PutOffice(1, kKeyView32);
    EXPECT_EQ(Command(2013).commandLine, u"D:\\CAD32\\TORVANE.EXE /B");
}

TEST_F(InstalledVersionsTest, The64BitViewComesFirst)
{
    PutFolder(u"D:\\CAD32", kKeyView32);
    PutFolder(u"C:\\CAD64");
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD64\\TORVANE.EXE /R");
}

TEST_F(InstalledVersionsTest, TheViewsAreAskedWithTheFixedAccessMasks)
{
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"");
    EXPECT_EQ(kReadView64, 0x20119u);
    EXPECT_EQ(kReadView32, 0x20219u);
}

TEST_F(InstalledVersionsTest, TheLocationServesWhenTheFolderIsMissing)
{
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Location", u"C:\\Old");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"C:\\Old");
}

TEST_F(InstalledVersionsTest, TheLocationServesWhenTheFolderHasNoTerminator)
{
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Folder", {kRegString, {'C', 0, ':', 0}});
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Location", u"C:\\Old");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"C:\\Old");
}

TEST_F(InstalledVersionsTest, TheLocationServesWhenTheFolderIsANumber)
{
    machine.registry.PutNumber(kLocalMachineRoot, kSetup2013, u"Torvane Folder", 7);
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Location", u"C:\\Old");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"C:\\Old");
}

TEST_F(InstalledVersionsTest, TheLocationNeedsNoTerminator)
{
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Location",
                              {kRegString, {'C', 0, ':', 0, '\\', 0}});
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"C:\\");
}

TEST_F(InstalledVersionsTest, ALocationThatIsNoTextIsNone)
{
    machine.registry.PutNumber(kLocalMachineRoot, kSetup2013, u"Torvane Location", 7);
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"");
}

TEST_F(InstalledVersionsTest, AFolderOfNoBytesIsAnEmptyResultAndTheLocationIsNotRead)
{
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Folder", {kRegString, {}});
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Location", u"C:\\Old");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"");
}

TEST_F(InstalledVersionsTest, AnExpandableFolderIsNotExpanded)
{
    machine.registry.SetEnvironment(u"X", u"Y");
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Folder",
                              {kRegExpandString, {'%', 0, 'X', 0, '%', 0, 0, 0}});
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"%X%");
}

TEST_F(InstalledVersionsTest, TheOfficeNumberIsMinusOneWhenItIsMissingOrNoNumber)
{
    EXPECT_EQ(GetOfficeInstalled(machine.registry, 2013, kReadView64), -1);
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Office Installed", u"1");
    EXPECT_EQ(GetOfficeInstalled(machine.registry, 2013, kReadView64), -1);
    PutOffice(3);
    EXPECT_EQ(GetOfficeInstalled(machine.registry, 2013, kReadView64), 3);
}

TEST_F(InstalledVersionsTest, WithoutAnOfficeNumberInBothViewsTheSwitchIsRegression)
{
    PutFolder(u"C:\\CAD");
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /R");
    EXPECT_TRUE(Command(2013).regressionMode);
}

TEST_F(InstalledVersionsTest, AnOfficeNumberOfZeroMeansRegressionAndThe32BitViewIsNotAsked)
{
    PutFolder(u"C:\\CAD");
    PutOffice(0);
    PutOffice(1, kKeyView32);
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(InstalledVersionsTest, AForcedRegressionBeatsTheOffice)
{
    PutFolder(u"C:\\CAD");
    PutOffice(1);
    EXPECT_EQ(Command(2013, true).commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(InstalledVersionsTest, TheUsersSettingForcesRegression)
{
    PutFolder(u"C:\\CAD");
    PutOffice(1);
    machine.registry.PutNumber(kCurrentUserRoot, kAddInKey, u"ForceRegressionMode", 1);
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(InstalledVersionsTest, ABigEndianSettingHasItsHalvesExchangedAndStillForcesRegression)
{
    PutFolder(u"C:\\CAD");
    PutOffice(1);
    machine.registry.PutValue(kCurrentUserRoot, kAddInKey, u"ForceRegressionMode", {kRegNumberBigEndian, {1, 0, 0, 0}});
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(InstalledVersionsTest, ASettingOfAnotherTypeOrSizeCountsAsZero)
{
    PutFolder(u"C:\\CAD");
    PutOffice(1);
    machine.registry.PutText(kCurrentUserRoot, kAddInKey, u"ForceRegressionMode", u"1");
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /B");
}

TEST_F(InstalledVersionsTest, TheSettingsKeysAreCreatedWhenTheyAreMissing)
{
    PutFolder(u"C:\\CAD");
    Command(2013);
    EXPECT_TRUE(machine.registry.KeyExists(kCurrentUserRoot, kAddInKey));
}

TEST_F(InstalledVersionsTest, WithNoYearTheRegisteredServerIsTakenWithItsArgumentsAndGivesTheYear)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"\"C:\\Any\\T.EXE\" -q");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application.20");
    const StartCommand command = Command(0);
    EXPECT_EQ(command.commandLine, u"\"C:\\Any\\T.EXE\" -q /R");
    EXPECT_EQ(command.requestedVersion, 2012);
}

TEST_F(InstalledVersionsTest, TheOfficeNumberIsThatOfTheYearThatTheServerGave)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application.21");
    PutOffice(1);
    EXPECT_EQ(Command(0).commandLine, u"C:\\Any\\T.EXE /B");
}

TEST_F(InstalledVersionsTest, AYearThatIsNotInstalledFallsBackToTheRegisteredServer)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application.21");
    const StartCommand command = Command(2010);
    EXPECT_EQ(command.commandLine, u"C:\\Any\\T.EXE /R");
    EXPECT_EQ(command.requestedVersion, 2013);
}

TEST_F(InstalledVersionsTest, AClassNameWithNoNumberGivesTheYear1992)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application");
    EXPECT_EQ(Command(0).requestedVersion, 1992);
}

TEST_F(InstalledVersionsTest, AClassNameThatBeginsWithItsOnlyDotGivesNoYear)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u".21");
    EXPECT_EQ(Command(0).requestedVersion, 0);
}

TEST_F(InstalledVersionsTest, WithoutAnyExecutableThereIsNoSwitchAndTheModeStays)
{
    const StartCommand command = GetCommandLine(machine.registry, kLocalApplicationClass, {{}, true, 2013}, false);
    EXPECT_EQ(command.commandLine, u"");
    EXPECT_TRUE(command.regressionMode);
}

} // namespace tv
