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

TEST_F(InstalledVersionsTest, TheSourceTellsWhereTheExecutableStands)
{
    EXPECT_EQ(Command(2013).source, StartSource::None);
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    EXPECT_EQ(Command(2013).source, StartSource::RegisteredServer);
    PutFolder(u"D:\\CAD32", kKeyView32);
    EXPECT_EQ(Command(2013).source, StartSource::Setup32);
    PutFolder(u"C:\\CAD");
    EXPECT_EQ(Command(2013).source, StartSource::Setup64);
    EXPECT_EQ(Command(0).source, StartSource::RegisteredServer);
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

TEST_F(InstalledVersionsTest, AFolderThatIsTooLongForTheBufferGivesWayToTheLocation)
{
    PutFolder(std::u16string(260, u'x'));
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Location", u"C:\\Old");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"C:\\Old");
    PutFolder(std::u16string(259, u'x'));
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), std::u16string(259, u'x'));
}

TEST_F(InstalledVersionsTest, AFolderOfAnOddSizeGivesWayToTheLocation)
{
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Folder", {kRegString, {'C', 0, 0}});
    machine.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Location", u"C:\\Old");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"C:\\Old");
}

TEST_F(InstalledVersionsTest, TheLocationMayBeExpandableAndIsNotExpanded)
{
    machine.registry.SetEnvironment(u"X", u"Y");
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Location",
                              {kRegExpandString, {'%', 0, 'X', 0, '%', 0, 0, 0}});
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"%X%");
}

TEST_F(InstalledVersionsTest, ALocationOfNoBytesIsAnEmptyResult)
{
    machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Location", {kRegString, {}});
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"");
}

TEST_F(InstalledVersionsTest, AnEmptyFolderInThe64BitViewGivesWayToThe32BitView)
{
    PutFolder(u"");
    PutFolder(u"D:\\CAD32", kKeyView32);
    PutOffice(1);
    EXPECT_EQ(Command(2013).commandLine, u"D:\\CAD32\\TORVANE.EXE /B");
}

TEST_F(InstalledVersionsTest, EachNumberAndSettingHasItsSwitch)
{
    struct Row
    {
        std::optional<uint32_t> office64;
        std::optional<uint32_t> office32;
        bool isForced;
        std::optional<fakes::RegistryValue> setting;
        std::u16string_view regressionSwitch;
    };
    const fakes::RegistryValue zero{kRegNumber, {0, 0, 0, 0}};
    const fakes::RegistryValue one{kRegNumber, {1, 0, 0, 0}};
    const fakes::RegistryValue bigZero{kRegNumberBigEndian, {0, 0, 0, 0}};
    const fakes::RegistryValue bigOne{kRegNumberBigEndian, {1, 0, 0, 0}};
    const fakes::RegistryValue binaryOne{kRegBinary, {1, 0, 0, 0}};
    const fakes::RegistryValue longOne{kRegNumber, {1, 0, 0, 0, 0, 0, 0, 0}};
    const fakes::RegistryValue shortOne{kRegNumber, {1, 0}};
    const Row rows[] = {
        {1, {}, false, {}, u" /B"},      {2, {}, false, {}, u" /B"},         {0, {}, false, {}, u" /R"},
        {{}, {}, false, {}, u" /R"},     {{}, 1, false, {}, u" /B"},         {{}, 0, false, {}, u" /R"},
        {0, 1, false, {}, u" /R"},       {0xFFFFFFFF, 1, false, {}, u" /B"}, {0x80000000, 1, false, {}, u" /R"},
        {1, {}, true, {}, u" /R"},       {1, {}, false, zero, u" /B"},       {1, {}, false, one, u" /R"},
        {1, {}, false, bigZero, u" /B"}, {1, {}, false, bigOne, u" /R"},     {1, {}, false, binaryOne, u" /B"},
        {1, {}, false, longOne, u" /B"}, {1, {}, false, shortOne, u" /B"},   {0, {}, true, one, u" /R"},
    };
    int number = 0;
    for (const Row& row : rows) {
        SCOPED_TRACE(++number);
        fakes::FakePlatform other;
        other.registry.PutText(kLocalMachineRoot, kSetup2013, u"Torvane Folder", u"C:\\CAD");
        if (row.office64) {
            other.registry.PutNumber(kLocalMachineRoot, kSetup2013, u"Torvane Office Installed", *row.office64);
        }
        if (row.office32) {
            other.registry.PutNumber(kLocalMachineRoot, kSetup2013, u"Torvane Office Installed", *row.office32,
                                     kKeyView32);
        }
        if (row.setting) {
            other.registry.PutValue(kCurrentUserRoot, kAddInKey, u"ForceRegressionMode", *row.setting);
        }
        const StartCommand command =
            GetCommandLine(other.registry, kLocalApplicationClass, {{}, false, 2013}, row.isForced);
        EXPECT_EQ(command.commandLine, u"C:\\CAD\\TORVANE.EXE" + std::u16string(row.regressionSwitch));
        EXPECT_EQ(command.regressionMode, row.regressionSwitch == u" /R");
        EXPECT_EQ(command.requestedVersion, 2013);
        EXPECT_EQ(other.registry.OpenCount(), 0u);
    }
}

TEST_F(InstalledVersionsTest, AUsersKeyThatCannotBeHadForcesNothing)
{
    PutFolder(u"C:\\CAD");
    PutOffice(1);
    machine.registry.PutNumber(kCurrentUserRoot, kAddInKey, u"ForceRegressionMode", 1);
    machine.registry.Deny(kCurrentUserRoot, u"Software\\Torvane\\Applications\\Quellor");
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /B");
}

TEST_F(InstalledVersionsTest, ACommandWithoutRegressionClearsTheMode)
{
    PutFolder(u"C:\\CAD");
    PutOffice(1);
    EXPECT_FALSE(GetCommandLine(machine.registry, kLocalApplicationClass, {{}, true, 2013}, false).regressionMode);
}

TEST_F(InstalledVersionsTest, EachClassNameGivesItsYear)
{
    struct Row
    {
        std::u16string_view progId;
        int32_t year;
    };
    const Row rows[] = {
        {u"Torvane.Application.21", 2013},
        {u"Torvane.Application.8", 2000},
        {u"Torvane.Application.0", 1992},
        {u"Torvane.Application", 1992},
        {u"Torvane.Application.", 1992},
        {u"Torvane.Application.x9", 1992},
        {u"Torvane.Application.21b", 2013},
        {u"x.21", 2013},
        {u".21", 0},
        {u"21", 0},
        {u"", 0},
    };
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    for (const Row& row : rows) {
        machine.registry.PutText(kLocalMachineRoot, kProgId, u"", row.progId);
        EXPECT_EQ(Command(0).requestedVersion, row.year) << testing::PrintToString(row.progId);
    }
}

TEST_F(InstalledVersionsTest, TheClassNameGivesTheYearThoughThereIsNoServer)
{
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application.20");
    const StartCommand command = Command(2013);
    EXPECT_EQ(command.commandLine, u"");
    EXPECT_EQ(command.requestedVersion, 2012);
}

TEST_F(InstalledVersionsTest, AnInstalledYearLeavesTheRegisteredServerAlone)
{
    PutFolder(u"C:\\CAD");
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application.20");
    EXPECT_EQ(Command(2013).requestedVersion, 2013);
    EXPECT_EQ(Command(2013).commandLine, u"C:\\CAD\\TORVANE.EXE /R");
}

TEST_F(InstalledVersionsTest, KeysAreOpenedInThisOrderWithTheseViews)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    machine.registry.PutText(kLocalMachineRoot, kProgId, u"", u"Torvane.Application.21");
    Command(2013);
    EXPECT_EQ(machine.registry.AccessMasks(),
              (std::vector<uint32_t>{0x20119, 0x20219, 0x20019, 0x20019, 0x2001F, 0x2001F, 0x20119, 0x20219}));
    EXPECT_EQ(machine.log.SubjectsOf("registry.OpenKey"),
              (std::vector<std::u16string>{kSetup2013, kSetup2013, kServer, kProgId, kSetup2013, kSetup2013}));
}

TEST_F(InstalledVersionsTest, EachFolderGetsOneBackslashBeforeTheProgram)
{
    struct Row
    {
        std::u16string_view folder;
        std::u16string_view command;
    };
    const Row rows[] = {
        {u"C:\\CAD", u"C:\\CAD\\TORVANE.EXE /B"},
        {u"C:\\CAD\\", u"C:\\CAD\\TORVANE.EXE /B"},
        {u"C:\\CAD\\\\\\", u"C:\\CAD\\TORVANE.EXE /B"},
        {u"C:\\", u"C:\\TORVANE.EXE /B"},
        {u"\\", u"\\TORVANE.EXE /B"},
        {u"C:\\CAD/", u"C:\\CAD/\\TORVANE.EXE /B"},
        {u"\\\\server\\share\\", u"\\\\server\\share\\TORVANE.EXE /B"},
    };
    PutOffice(1);
    for (const Row& row : rows) {
        PutFolder(std::u16string(row.folder));
        EXPECT_EQ(Command(2013).commandLine, row.command) << testing::PrintToString(row.folder);
    }
}

TEST_F(InstalledVersionsTest, EachYearHasAKeyOfItsOwn)
{
    for (const int32_t year : {2012, 2014, 1, -1}) {
        const std::u16string text = u"SOFTWARE\\Torvane\\Torvane " + std::u16string(year == 2012   ? u"2012"
                                                                                    : year == 2014 ? u"2014"
                                                                                    : year == 1    ? u"1"
                                                                                                   : u"-1");
        machine.registry.PutText(kLocalMachineRoot, text + u"\\Setup", u"Torvane Folder", text);
    }
    EXPECT_EQ(GetInstallFolder(machine.registry, 2012, kReadView64), u"SOFTWARE\\Torvane\\Torvane 2012");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2014, kReadView64), u"SOFTWARE\\Torvane\\Torvane 2014");
    EXPECT_EQ(GetInstallFolder(machine.registry, 1, kReadView64), u"SOFTWARE\\Torvane\\Torvane 1");
    EXPECT_EQ(GetInstallFolder(machine.registry, -1, kReadView64), u"SOFTWARE\\Torvane\\Torvane -1");
    EXPECT_EQ(GetInstallFolder(machine.registry, 2013, kReadView64), u"");
}

TEST_F(InstalledVersionsTest, AnOfficeNumberOfAnotherTypeOrSizeIsNone)
{
    const fakes::RegistryValue values[] = {
        {kRegNumberBigEndian, {0, 0, 0, 1}}, {kRegBinary, {1, 0, 0, 0}},
        {kRegString, {'1', 0, 0, 0}},        {kRegNumber, {1, 0}},
        {kRegNumber, {1, 0, 0, 0, 0}},       {kRegNumber, {}},
    };
    for (const fakes::RegistryValue& value : values) {
        machine.registry.PutValue(kLocalMachineRoot, kSetup2013, u"Torvane Office Installed", value);
        EXPECT_EQ(GetOfficeInstalled(machine.registry, 2013, kReadView64), -1) << value.type;
    }
}

TEST_F(InstalledVersionsTest, AnOfficeNumberIsReadInTheViewThatIsAskedFor)
{
    PutOffice(64);
    PutOffice(32, kKeyView32);
    EXPECT_EQ(GetOfficeInstalled(machine.registry, 2013, kReadView64), 64);
    EXPECT_EQ(GetOfficeInstalled(machine.registry, 2013, kReadView32), 32);
}

TEST_F(InstalledVersionsTest, AServerWithoutAClassNameLeavesTheYear)
{
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"C:\\Any\\T.EXE");
    const StartCommand command = Command(2010);
    EXPECT_EQ(command.commandLine, u"C:\\Any\\T.EXE /R");
    EXPECT_EQ(command.requestedVersion, 2010);
    EXPECT_EQ(Command(0).requestedVersion, 0);
}

TEST_F(InstalledVersionsTest, AServerThatIsNoTextIsNone)
{
    machine.registry.PutNumber(kLocalMachineRoot, kServer, u"", 7);
    EXPECT_EQ(Command(0).commandLine, u"");
    machine.registry.PutText(kLocalMachineRoot, kServer, u"", u"");
    EXPECT_EQ(Command(0).commandLine, u"");
}

TEST_F(InstalledVersionsTest, AnExpandableServerIsTakenAsItStands)
{
    machine.registry.SetEnvironment(u"X", u"Y");
    machine.registry.PutValue(kLocalMachineRoot, kServer, u"", {kRegExpandString, {'%', 0, 'X', 0, '%', 0, 0, 0}});
    EXPECT_EQ(Command(0).commandLine, u"%X% /R");
}

} // namespace tv
