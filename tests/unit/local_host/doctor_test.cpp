#include "doctor_world.h"

#include "host/application_records.h"

namespace tv::local {

namespace {

constexpr char kAddInClass[] = "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01}";
constexpr char kApplicationClass[] = "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}";

// The table.

TEST_F(DoctorWorld, ChecksAreCarriedOutInThisOrder)
{
    std::string order;
    for (const CheckRow& row : DoctorChecks()) {
        constexpr const char* kNeeds[] = {"nothing", "components", "a vault", "both"};
        order += std::string(row.group) + " | " + std::string(row.name) + " | " +
                 kNeeds[static_cast<size_t>(row.needs)] + "\n";
    }
    EXPECT_EQ(order, "Add-in | add-in class | components\n"
                     "Add-in | add-in file | components\n"
                     "Add-in | threading model | components\n"
                     "Add-in | add-in start | components\n"
                     "CAD application | application classes | components\n"
                     "CAD application | set-ups | components\n"
                     "CAD application | versions | components\n"
                     "CAD application | application start | components\n"
                     "CAD application | kernel | nothing\n"
                     "CAD application | stray applications | components\n"
                     "CAD application | start-up add-ins | components\n"
                     "Settings | settings keys | components\n"
                     "Settings | settings | components\n"
                     "Machine | listener | components\n"
                     "Machine | printers | components\n"
                     "Machine | temporary folder | nothing\n"
                     "Machine | stray macros | nothing\n"
                     "Vault | vault folders | nothing\n"
                     "Vault | vault | nothing\n"
                     "Vault | contents | a vault\n"
                     "Vault | vault settings | both\n"
                     "Vault | claimed runs | a vault\n"
                     "Vault | check-outs | a vault\n"
                     "Tasks | task macros | a vault\n"
                     "Tasks | task versions | both\n"
                     "Tasks | task printers | both\n"
                     "Tasks | task outputs | a vault\n");
}

// The add-in.

TEST_F(DoctorWorld, ARegisteredAddInIsInOrder)
{
    EXPECT_EQ(Check("add-in class"), "ok | class | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} is registered\n");
    EXPECT_EQ(Check("add-in file"), "ok | file | C:\\Local\\TVTaskAddIn.dll, 64-bit\n");
    EXPECT_EQ(Check("threading model"), "ok | threading model | Both\n");
    EXPECT_EQ(Check("add-in start"), "ok | start | it loads and makes its object\n");
}

TEST_F(DoctorWorld, AnAddInThatIsNotRegisteredIsRegisteredFromBesideTheProgram)
{
    health.RemoveKey(ClassKey(kAddInClass));
    EXPECT_EQ(Check("add-in class"), "problem | class | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} isn't registered\n"
                                     "  Register the add-in, as administrator:\n"
                                     "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
    EXPECT_EQ(Check("add-in file"), "");
    EXPECT_EQ(Check("threading model"), "");
    EXPECT_EQ(Check("add-in start"), "");
}

TEST_F(DoctorWorld, AnAddInThatStandsNowhereIsRegisteredByItsName)
{
    health.RemoveKey(ClassKey(kAddInClass));
    health.programs.erase("C:\\Local\\TVTaskAddIn.dll");
    EXPECT_EQ(Check("add-in class"), "problem | class | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} isn't registered\n"
                                     "  Register the add-in, as administrator:\n"
                                     "    regsvr32 \"TVTaskAddIn.dll\"\n");
}

TEST_F(DoctorWorld, AnAddInInThe32BitViewOnlyIsAProblem)
{
    health.RemoveKey(ClassKey(kAddInClass));
    health.SetText(ClassKey(kAddInClass, "\\InprocServer32", RegistryView::Bits32), "C:\\Old\\TVTaskAddIn.dll");
    EXPECT_EQ(
        Check("add-in class"),
        "problem | class | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} is registered for 32-bit programs only, and the "
        "vault's are 64-bit\n"
        "  Register the add-in, as administrator:\n"
        "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
}

TEST_F(DoctorWorld, AnAddInOfTheUserAloneIsInOrder)
{
    health.RemoveKey(ClassKey(kAddInClass));
    health.SetText(UserClassKey(kAddInClass, "\\InprocServer32"), "C:\\Local\\TVTaskAddIn.dll");
    EXPECT_EQ(Check("add-in class"),
              "ok | class | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} is registered for this user\n");
    EXPECT_EQ(Check("add-in file"), "ok | file | C:\\Local\\TVTaskAddIn.dll, 64-bit\n");
}

TEST_F(DoctorWorld, AnAddInOfTheUserThatHidesTheMachinesIsAWarning)
{
    health.SetText(UserClassKey(kAddInClass, "\\InprocServer32"), "C:\\Mine\\TVTaskAddIn.dll");
    EXPECT_EQ(
        Check("add-in class"),
        "warning | class | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} is \"C:\\Mine\\TVTaskAddIn.dll\" for this user, "
        "who doesn't get the machine's \"C:\\Local\\TVTaskAddIn.dll\"\n"
        "  Take out the user's, unless it is wanted:\n"
        "    reg delete \"HKCU\\SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01}\" /f /reg:64\n");
}

TEST_F(DoctorWorld, AnAddInsFileMustBeA64BitLibraryThatIsThere)
{
    const std::string advice = "  Register the add-in, as administrator:\n"
                               "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n";
    health.SetText(ClassKey(kAddInClass, "\\InprocServer32"), "C:\\Gone\\TVTaskAddIn.dll");
    EXPECT_EQ(Check("add-in file"), "problem | file | \"C:\\Gone\\TVTaskAddIn.dll\" isn't there\n" + advice);
    EXPECT_EQ(Check("add-in start"), "");
    health.programs["C:\\Gone\\TVTaskAddIn.dll"] = ProgramKind::NoProgram;
    EXPECT_EQ(Check("add-in file"), "problem | file | \"C:\\Gone\\TVTaskAddIn.dll\" is no library\n" + advice);
    health.programs["C:\\Gone\\TVTaskAddIn.dll"] = ProgramKind::Bits32;
    EXPECT_EQ(Check("add-in file"),
              "problem | file | \"C:\\Gone\\TVTaskAddIn.dll\" is a 32-bit library, and the vault's "
              "programs are 64-bit\n" +
                  advice);
}

TEST_F(DoctorWorld, TheFileOfAnAddInMayNameTheEnvironment)
{
    health.SetValue(ClassKey(kAddInClass, "\\InprocServer32"), "",
                    {RegistryType::ExpandableText, "%ROOT%\\Local\\TVTaskAddIn.dll"});
    EXPECT_EQ(Check("add-in file"), "ok | file | C:\\Local\\TVTaskAddIn.dll, 64-bit\n");
}

TEST_F(DoctorWorld, AThreadingModelThatKeepsTheAddInOffTheThreadOfARunIsTold)
{
    const RegistryKey key = ClassKey(kAddInClass, "\\InprocServer32");
    health.SetValue(key, "ThreadingModel", {RegistryType::Text, "apartment"});
    EXPECT_EQ(Check("threading model"), "ok | threading model | apartment\n");
    health.SetValue(key, "ThreadingModel", {RegistryType::Text, "Free"});
    EXPECT_EQ(Check("threading model"),
              "problem | threading model | \"Free\" stands there, so that the add-in isn't made "
              "on the thread of a run\n"
              "  Register the add-in, as administrator:\n"
              "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
    health.SetValue(key, "ThreadingModel", {RegistryType::Number, "", 1});
    EXPECT_EQ(Check("threading model"),
              "warning | threading model | none stands there, so that the add-in isn't made on "
              "the thread of a run\n"
              "  Register the add-in, as administrator:\n"
              "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
}

TEST_F(DoctorWorld, AnAddInThatCannotBeLoadedOrMadeIsAProblem)
{
    health.loadTrouble = "a part is missing (Windows error 126)";
    EXPECT_EQ(Check("add-in start"),
              "problem | start | \"C:\\Local\\TVTaskAddIn.dll\" can't be loaded: a part is missing "
              "(Windows error 126)\n"
              "  Register the add-in, as administrator:\n"
              "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
    health.loadTrouble.reset();
    component.registered = false;
    EXPECT_EQ(Check("add-in start"), "problem | start | The add-in can't be created (0x80040154).\n"
                                     "  Register the add-in, as administrator:\n"
                                     "    regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
}

// The application's registration.

constexpr char kRegisterLocal[] = "  Register the application, as administrator:\n"
                                  "    \"C:\\Local\\TORVANE.EXE\" /regserver\n";

TEST_F(DoctorWorld, RegisteredClassesAreToldWithTheirPrograms)
{
    EXPECT_EQ(Check("application classes"),
              "ok | Torvane.Application | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n"
              "ok | Torvane.Application.21 | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n");
}

TEST_F(DoctorWorld, NamesThatOnlyBeginLikeTheApplicationsAreNotItsClasses)
{
    health.SetText(Classes("Torvane.ApplicationHelper\\CLSID"), "{1}");
    health.SetText(Classes("Torvane.Application.Viewer\\CLSID"), "{2}");
    EXPECT_EQ(Check("application classes"),
              "ok | Torvane.Application | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n"
              "ok | Torvane.Application.21 | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n");
}

TEST_F(DoctorWorld, AnApplicationThatIsNotRegisteredIsAProblem)
{
    RemoveApplication();
    EXPECT_EQ(Check("application classes"),
              std::string("problem | Torvane.Application | isn't registered\n") + kRegisterLocal);
    health.programs.clear();
    EXPECT_EQ(Check("application classes"), "problem | Torvane.Application | isn't registered\n"
                                            "  Register the application, as administrator:\n"
                                            "    \"TORVANE.EXE\" /regserver\n");
}

TEST_F(DoctorWorld, AnApplicationInThe32BitViewOnlyIsCopiedToTheOther)
{
    RemoveApplication();
    health.SetText(Classes("Torvane.Application\\CLSID", RegistryView::Bits32), kApplicationClass);
    EXPECT_EQ(
        Check("application classes"),
        "problem | Torvane.Application | is registered in the 32-bit view of the registry only, and a run looks in "
        "the 64-bit one\n"
        "  Copy it there, as administrator:\n"
        "    reg export \"HKLM\\SOFTWARE\\Classes\\Torvane.Application\" \"%TEMP%\\torvane.reg\" /y /reg:32\n"
        "    reg import \"%TEMP%\\torvane.reg\" /reg:64\n");
}

TEST_F(DoctorWorld, ATaskForAnyVersionNeedsTheNameWithoutAVersion)
{
    health.RemoveKey(Classes("Torvane.Application"));
    EXPECT_EQ(Check("application classes"),
              std::string("problem | Torvane.Application | isn't registered, so a task that asks for no version can't "
                          "start any\n") +
                  kRegisterLocal +
                  "ok | Torvane.Application.21 | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n");
}

TEST_F(DoctorWorld, ANameWithoutAClassIdIsAProblem)
{
    health.RemoveKey(Classes("Torvane.Application.21\\CLSID"));
    health.SetText(Classes("Torvane.Application.21"), "Torvane Application");
    EXPECT_EQ(
        Check("application classes"),
        std::string("ok | Torvane.Application | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n"
                    "problem | Torvane.Application.21 | has no class id, so nothing can be started by it\n") +
            kRegisterLocal);
}

TEST_F(DoctorWorld, AClassWithoutAServerIsAProblem)
{
    health.RemoveKey(ClassKey(kApplicationClass, "\\LocalServer32"));
    health.RemoveKey(Classes("Torvane.Application.21"));
    EXPECT_EQ(Check("application classes"),
              std::string("problem | Torvane.Application | the class {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} names no "
                          "server\n") +
                  kRegisterLocal);
}

TEST_F(DoctorWorld, AServerInThe32BitViewOnlyIsCopiedToTheOther)
{
    health.RemoveKey(ClassKey(kApplicationClass));
    health.RemoveKey(Classes("Torvane.Application.21"));
    health.SetText(ClassKey(kApplicationClass, "\\LocalServer32", RegistryView::Bits32), "C:\\Local\\TORVANE.EXE");
    EXPECT_EQ(
        Check("application classes"),
        "problem | Torvane.Application | the class {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} has its server in the 32-bit "
        "view of the registry only, and a run looks in the 64-bit one\n"
        "  Copy it there, as administrator:\n"
        "    reg export \"HKLM\\SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\" "
        "\"%TEMP%\\torvane.reg\" /y /reg:32\n"
        "    reg import \"%TEMP%\\torvane.reg\" /reg:64\n");
}

TEST_F(DoctorWorld, AServerThatLeadsNowhereIsRegisteredAnewFromAProgramThatIsThere)
{
    health.SetText(ClassKey(kApplicationClass, "\\LocalServer32"), "C:\\Nowhere\\TORVANE.EXE /B");
    health.RemoveKey(Classes("Torvane.Application.21"));
    EXPECT_EQ(Check("application classes"),
              "problem | Torvane.Application | the class {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} names the program "
              "\"C:\\Nowhere\\TORVANE.EXE\", which isn't there\n"
              "  Register the application that is there, as administrator:\n"
              "    \"C:\\Local\\TORVANE.EXE\" /regserver\n");
}

TEST_F(DoctorWorld, WhatIsLeftOfARemovedApplicationIsTakenOut)
{
    health.programs.clear();
    health.RemoveKey(Classes("Torvane.Application.21"));
    EXPECT_EQ(Check("application classes"),
              "problem | Torvane.Application | the class {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} names the program "
              "\"C:\\Local\\TORVANE.EXE\", which isn't there\n"
              "  Install the application again, or take out what is left of it, as administrator:\n"
              "    reg delete \"HKLM\\SOFTWARE\\Classes\\Torvane.Application\" /f /reg:64\n"
              "    reg delete \"HKLM\\SOFTWARE\\Classes\\CLSID\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03}\" /f /reg:64\n");
}

TEST_F(DoctorWorld, AServersArgumentsAndQuotesAreNotItsProgram)
{
    health.SetText(ClassKey(kApplicationClass, "\\LocalServer32"), "\"C:\\Local\\TORVANE.EXE\" -Embedding");
    health.RemoveKey(Classes("Torvane.Application.21"));
    EXPECT_EQ(Check("application classes"),
              "ok | Torvane.Application | {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n");
}

// Its Setup keys.

TEST_F(DoctorWorld, ASetupKeyIsToldWithItsProgramAndItsView)
{
    EXPECT_EQ(Check("set-ups"), "ok | Torvane 2013 | C:\\Local\\TORVANE.EXE (Setup key, 64-bit view)\n");
    health.RemoveKey(SetupKey(2013));
    health.SetValue(SetupKey(2013, RegistryView::Bits32), "Torvane Location", {RegistryType::Text, "C:\\Local\\"});
    EXPECT_EQ(Check("set-ups"), "ok | Torvane 2013 | C:\\Local\\TORVANE.EXE (Setup key, 32-bit view)\n");
}

TEST_F(DoctorWorld, NoSetupKeyMeansThatTheRegisteredServerIsStarted)
{
    health.RemoveKey(SetupKey(2013));
    EXPECT_EQ(Check("set-ups"), "ok | Setup keys | none; the registered server is started, with the switch /R\n");
}

TEST_F(DoctorWorld, ASetupKeyInThe32BitViewIsHiddenByOneInTheOther)
{
    health.SetValue(SetupKey(2013, RegistryView::Bits32), "Torvane Folder", {RegistryType::Text, "C:\\Nowhere"});
    EXPECT_EQ(Check("set-ups"), "ok | Torvane 2013 | C:\\Local\\TORVANE.EXE (Setup key, 64-bit view)\n");
}

TEST_F(DoctorWorld, ASetupKeyWithoutAFolderIsAWarning)
{
    health.SetValue(SetupKey(2013), "Torvane Folder", {RegistryType::Number, "", 5});
    EXPECT_EQ(
        Check("set-ups"),
        "warning | Torvane 2013 | its Setup key (64-bit view) names no folder, so the registered server is taken\n"
        "  Repair the installation, or take out what is left of it, as administrator:\n"
        "    reg delete \"HKLM\\SOFTWARE\\Torvane\\Torvane 2013\" /f /reg:64\n");
}

TEST_F(DoctorWorld, ASetupKeyOfARemovedVersionIsAProblem)
{
    health.SetValue(SetupKey(2012), "Torvane Folder", {RegistryType::Text, "C:\\Torvane 2012"});
    EXPECT_EQ(Check("set-ups"),
              "problem | Torvane 2012 | its Setup key (64-bit view) leads to \"C:\\Torvane 2012\\TORVANE.EXE\", which "
              "isn't there\n"
              "  Install it again, or take out what is left of it, as administrator:\n"
              "    reg delete \"HKLM\\SOFTWARE\\Torvane\\Torvane 2012\" /f /reg:64\n"
              "ok | Torvane 2013 | C:\\Local\\TORVANE.EXE (Setup key, 64-bit view)\n");
}

TEST_F(DoctorWorld, AnInstalledVersionWithoutAClassIsAWarning)
{
    health.RemoveKey(Classes("Torvane.Application.21"));
    EXPECT_EQ(Check("set-ups"),
              "warning | Torvane 2013 | is installed in \"C:\\Local\", and its class Torvane.Application.21 isn't "
              "registered: a task that asks for it gets another version\n"
              "  Register the application, as administrator:\n"
              "    \"C:\\Local\\TORVANE.EXE\" /regserver\n");
}

TEST_F(DoctorWorld, OtherKeysOfTheProductAreNoSetUps)
{
    health.MakeKey({RegistryRoot::Machine, "SOFTWARE\\Torvane\\Applications"});
    health.MakeKey({RegistryRoot::Machine, "SOFTWARE\\Torvane\\Torvane 2013 Viewer"});
    health.MakeKey({RegistryRoot::Machine, "SOFTWARE\\Torvane\\Torvane "});
    EXPECT_EQ(Check("set-ups"), "ok | Torvane 2013 | C:\\Local\\TORVANE.EXE (Setup key, 64-bit view)\n");
}

// Versions, as the add-in would start them.

TEST_F(DoctorWorld, VersionsAreToldAsTheAddInWouldStartThem)
{
    EXPECT_EQ(Check("versions"), "ok | tasks for 2013 | TORVANE.EXE /B (Setup key, 64-bit view)\n"
                                 "ok | tasks for any version | TORVANE.EXE /R (registered server)\n");
}

TEST_F(DoctorWorld, AVersionThatCannotBeStartedIsAWarningAndNoneAtAllAProblem)
{
    component.starts.clear();
    EXPECT_EQ(
        Check("versions"),
        "warning | tasks for 2013 | The class 'Torvane.Application.21' isn't registered. Repair the installation of "
        "that version.\n"
        "  Register the version that is to be started, as administrator:\n"
        "    \"C:\\Local\\TORVANE.EXE\" /regserver\n"
        "problem | tasks for any version | The class 'Torvane.Application' isn't registered. Register a version; the "
        "local edition's with: TORVANE.EXE /regserver\n"
        "  Register the version that is to be started, as administrator:\n"
        "    \"C:\\Local\\TORVANE.EXE\" /regserver\n");
}

TEST_F(DoctorWorld, VersionsCannotBeToldWithoutTheAddIn)
{
    health.RemoveKey(ClassKey(kAddInClass));
    EXPECT_EQ(Check("versions"), "warning | versions | can't be told while the add-in isn't registered\n");
}

// Its start.

TEST_F(DoctorWorld, EachProgramIsStartedOnceAndTellsItsRevision)
{
    EXPECT_EQ(Check("application start"), "ok | start | C:\\Local\\TORVANE.EXE is revision 21.0.0\n");
    ASSERT_EQ(applications.starts.size(), 1u);
    EXPECT_EQ(applications.starts[0].commandLine, "\"C:\\Local\\TORVANE.EXE\" /B");
    EXPECT_EQ(applications.log, (std::vector<std::string>{"start", "close", "gone"}));
}

constexpr char kRepair[] = "  Repair the installation of that version, or register it again:\n"
                           "    \"C:\\Local\\TORVANE.EXE\" /regserver\n";

TEST_F(DoctorWorld, AnApplicationOfAnotherRevisionThanRegisteredIsAProblem)
{
    applications.revision = "20.4.1";
    EXPECT_EQ(Check("application start"),
              std::string("problem | start | C:\\Local\\TORVANE.EXE is registered as Torvane 2013, revision 21, and "
                          "says that it is revision 20.4.1\n") +
                  kRepair);
}

TEST_F(DoctorWorld, AnApplicationThatDoesNotTellItsRevisionIsAProblem)
{
    applications.revision = "";
    EXPECT_EQ(Check("application start"),
              std::string("problem | start | C:\\Local\\TORVANE.EXE started and didn't tell its revision\n") + kRepair);
}

TEST_F(DoctorWorld, AnApplicationThatDoesNotStartIsAProblem)
{
    applications.failure = "The CAD application ended during its start (exit code 3).";
    EXPECT_EQ(Check("application start"),
              std::string("problem | start | C:\\Local\\TORVANE.EXE: The CAD application ended during its start (exit "
                          "code 3).\n") +
                  kRepair);
}

TEST_F(DoctorWorld, AnyRevisionWillDoForAClassWithoutAVersion)
{
    health.RemoveKey(Classes("Torvane.Application.21"));
    health.RemoveKey(SetupKey(2013));
    applications.revision = "20.4.1";
    EXPECT_EQ(Check("application start"), "ok | start | C:\\Local\\TORVANE.EXE is revision 20.4.1\n");
}

// The kernel.

TEST_F(DoctorWorld, TheKernelIsLookedForBesideTheApplication)
{
    EXPECT_EQ(Check("kernel"), "ok | geometry kernel | C:\\Local\\tvkernel.exe answers\n");
}

TEST_F(DoctorWorld, AMissingOrSilentKernelIsAProblem)
{
    const std::string advice = "  Put tvkernel beside TORVANE.EXE, or name it by a variable of the environment:\n"
                               "    setx TVKERNEL \"C:\\PATH\\TO\\tvkernel.exe\"\n";
    health.kernelTrouble = "was started and didn't answer";
    EXPECT_EQ(Check("kernel"),
              "problem | geometry kernel | \"C:\\Local\\tvkernel.exe\" was started and didn't answer\n" + advice);
    health.kernel = "";
    EXPECT_EQ(Check("kernel"),
              "problem | geometry kernel | there is none, so the local application can't read or write shapes\n" +
                  advice);
}

TEST_F(DoctorWorld, AnotherApplicationBringsItsOwnKernel)
{
    health.kernel = "";
    health.SetText(Classes("Torvane.Application\\CLSID"), "{00000000-0000-0000-0000-000000000001}");
    EXPECT_EQ(Check("kernel"), "ok | geometry kernel | the registered application brings its own\n");
}

TEST_F(DoctorWorld, TheKernelIsLookedAtOnAnySystem)
{
    health.hasComponents = false;
    EXPECT_EQ(Check("kernel"), "ok | geometry kernel | C:\\Local\\tvkernel.exe answers\n");
    health.kernel = "";
    EXPECT_EQ(Check("kernel"),
              "problem | geometry kernel | there is none, so the local application can't read or write shapes\n"
              "  Put tvkernel beside TORVANE.EXE, or name it by a variable of the environment:\n"
              "    export TVKERNEL=/PATH/TO/tvkernel\n");
}

// Running applications, start-up add-ins.

TEST_F(DoctorWorld, AnApplicationWhoseStarterIsGoneIsAWarning)
{
    EXPECT_EQ(Check("stray applications"), "ok | running applications | none\n");
    health.applications = {{100, true}, {104, true}};
    EXPECT_EQ(Check("stray applications"),
              "ok | running applications | 2 with the program that started them, 0 started to stay\n");
    health.applications = {{100, true}, {104, false}};
    EXPECT_EQ(Check("stray applications"), "warning | TORVANE.EXE 104 | runs, and the program that started it is gone\n"
                                           "  End it, unless somebody works with it:\n"
                                           "    taskkill /F /PID 104\n");
}

TEST_F(DoctorWorld, AnApplicationThatWasStartedToStayIsNotStray)
{
    ApplicationRecords(Folder("applications")).Add({{104, 1}, 2013, "TORVANE.EXE /B", ""});
    health.applications = {{104, false}};
    EXPECT_EQ(Check("stray applications"),
              "ok | running applications | 0 with the program that started them, 1 started to stay\n");
}

TEST_F(DoctorWorld, StartUpAddInsThatAreSwitchedOnAreInOrder)
{
    EXPECT_EQ(Check("start-up add-ins"), "ok | start-up add-ins | none\n");
    health.SetValue(StartUp("AddInsStartup\\{A}"), "", {RegistryType::Number, "", 1});
    health.SetValue(StartUp("AddInsStartup\\{B}"), "", {RegistryType::Number, "", 2});
    health.SetText(StartUp("Startup\\Applications\\C"), "on");
    health.MakeKey(StartUp("Startup\\Applications\\D"));
    EXPECT_EQ(Check("start-up add-ins"), "ok | start-up add-ins | 4, all switched on\n");
}

TEST_F(DoctorWorld, AStartUpAddInThatIsSwitchedOffIsToldWithWhatSwitchesItOn)
{
    health.SetValue(StartUp("AddInsStartup\\{A}"), "", {RegistryType::Number, "", 0});
    health.SetText(StartUp("Startup\\Applications\\C"), "");
    EXPECT_EQ(
        Check("start-up add-ins"),
        "warning | {A} | is switched off (0); a run that ended by force may have left it so\n"
        "  Switch it on again. Leave it if it was you who switched it off:\n"
        "    reg add \"HKCU\\Software\\Torvane\\AddInsStartup\\{A}\" /ve /t REG_DWORD /d 1 /f\n"
        "warning | C | is switched off (an empty text); a run that ended by force may have left it so\n"
        "  Switch it on in the application, or import a saved export of its key: the text that stood there isn't kept. "
        "Leave it if it was you who switched it off\n");
}

TEST_F(DoctorWorld, StartUpAddInsMayBeSwitchedOffWhileARunIsUnderWay)
{
    health.SetValue(StartUp("AddInsStartup\\{A}"), "", {RegistryType::Number, "", 0});
    health.applications = {{100, true}};
    EXPECT_EQ(Check("start-up add-ins"),
              "ok | start-up add-ins | 1 switched off while the application is running for a "
              "task; look again when it has ended\n");
    health.applications = {{100, false}};
    EXPECT_EQ(Check("start-up add-ins").substr(0, 7), "warning");
}

// Settings.

TEST_F(DoctorWorld, TheFourKeysOfTheSettingsAreTold)
{
    EXPECT_EQ(Check("settings keys"), "ok | keys | the user's: none; the machine's: none; the machine's, 32-bit view: "
                                      "none; the machine's, 64-bit view: none\n");
    health.MakeKey({RegistryRoot::User, "Software\\Torvane\\Applications\\Quellor"});
    health.MakeKey({RegistryRoot::Machine, "Software\\Torvane\\Applications\\Quellor"});
    EXPECT_EQ(Check("settings keys"),
              "ok | keys | the user's: there; the machine's: there; the machine's, 32-bit view: "
              "none; the machine's, 64-bit view: there\n");
}

TEST_F(DoctorWorld, SettingsOfTheMachineInThe32BitViewOnlyAreAWarning)
{
    health.MakeKey({RegistryRoot::Machine, "Software\\Torvane\\Applications\\Quellor", RegistryView::Bits32});
    EXPECT_EQ(
        Check("settings keys"),
        "warning | keys | the user's: none; the machine's: none; the machine's, 32-bit view: there; the machine's, "
        "64-bit view: none. Settings of the machine are looked for in the 64-bit view\n"
        "  Copy them there, as administrator:\n"
        "    reg export \"HKLM\\Software\\Torvane\\Applications\\Quellor\" \"%TEMP%\\torvane.reg\" /y /reg:32\n"
        "    reg import \"%TEMP%\\torvane.reg\" /reg:64\n");
}

TEST_F(DoctorWorld, NoSettingsMeansThatTheDefaultsCount)
{
    EXPECT_EQ(Check("settings"), "ok | values | none, so the defaults count\n");
}

TEST_F(DoctorWorld, ForceRegressionModeIsToldAsTheAddInReadsIt)
{
    const auto with = [&](const RegistryValue& value) {
        health.SetValue(AddInSettings(), "ForceRegressionMode", value);
        return Check("settings");
    };
    EXPECT_EQ(with({RegistryType::Number, "", 0}), "ok | ForceRegressionMode | 0\n");
    EXPECT_EQ(with({RegistryType::Number, "", 1}),
              "ok | ForceRegressionMode | 1: the application is always started with /R\n");
    EXPECT_EQ(with({RegistryType::BigEndianNumber, "", 1}),
              "warning | ForceRegressionMode | 1 is REG_DWORD_BIG_ENDIAN, and is read as 65536\n"
              "  Store it as REG_DWORD:\n"
              "    reg add \"HKCU\\Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn\" /v ForceRegressionMode /t "
              "REG_DWORD /d 1 /f\n");
    EXPECT_EQ(with({RegistryType::Text, "1"}),
              "warning | ForceRegressionMode | is REG_SZ and no number, and is read as 0\n"
              "  Store a number:\n"
              "    reg add \"HKCU\\Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn\" /v ForceRegressionMode /t "
              "REG_DWORD /d 0 /f\n");
}

TEST_F(DoctorWorld, ScriptCopyPathIsToldAsTheAddInReadsIt)
{
    const auto with = [&](const RegistryValue& value) {
        health.SetValue(AddInSettings(), "ScriptCopyPath", value);
        return Check("settings");
    };
    const std::string takeOut = "    reg delete \"HKCU\\Software\\Torvane\\Applications\\Quellor\\TVTaskAddIn\" /v "
                                "ScriptCopyPath /f\n";
    health.folders["C:\\Gone"] = FolderState::Missing;
    EXPECT_EQ(with({RegistryType::Text, ""}), "ok | ScriptCopyPath | empty\n");
    EXPECT_EQ(with({RegistryType::Text, "C:\\Copies\\last.tvb"}),
              "ok | ScriptCopyPath | each macro is copied to \"C:\\Copies\\last.tvb\"\n");
    EXPECT_EQ(
        with({RegistryType::ExpandableText, "%ROOT%\\Gone\\last.tvb"}),
        "warning | ScriptCopyPath | macros can't be copied to \"C:\\Gone\\last.tvb\", because nothing can be written "
        "into its folder\n"
        "  Make the folder, or take the setting out:\n"
        "    mkdir \"C:\\Gone\"\n" +
            takeOut);
    EXPECT_EQ(with({RegistryType::Number, "", 3}),
              "warning | ScriptCopyPath | is REG_DWORD and no text, and isn't read\n"
              "  Store the path of a file, or take it out:\n" +
                  takeOut);
    EXPECT_EQ(with({RegistryType::Other}), "warning | ScriptCopyPath | is of another type and no text, and isn't read\n"
                                           "  Store the path of a file, or take it out:\n" +
                                               takeOut);
}

// The listener.

TEST_F(DoctorWorld, NoListenerIsInOrderAndSoIsOneThatAnswers)
{
    EXPECT_EQ(Check("listener"),
              "ok | listener | none at \\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04}; runs work the same\n");
    health.listener = {ListenerState::Answers, 300};
    EXPECT_EQ(Check("listener"),
              "ok | listener | answers at \\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04} (process 300)\n");
}

TEST_F(DoctorWorld, AListenerThatKeepsRunsWaitingIsAProblem)
{
    health.listener = {ListenerState::Silent, 300};
    EXPECT_EQ(
        Check("listener"),
        "problem | listener | it (process 300) takes messages at "
        "\\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04} and didn't answer within 15 seconds: a run that saves a "
        "file waits for it without end\n"
        "  End the listener; its own program may start it again:\n"
        "    taskkill /F /PID 300\n");
    health.listener = {ListenerState::KeepsSenderWaiting, 0};
    EXPECT_EQ(
        Check("listener"),
        "problem | listener | a run has waited for the listener at "
        "\\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04} for more than 15 seconds, and all others wait behind it\n"
        "  End the program that listens, or start the machine again\n");
}

TEST_F(DoctorWorld, AListenerThatTakesNothingIsAWarning)
{
    health.listener = {ListenerState::Busy, 300};
    EXPECT_EQ(Check("listener"),
              "warning | listener | it (process 300) takes no message at "
              "\\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04} within 15 seconds, so nobody hears of "
              "a run's files\n"
              "  End the listener; its own program may start it again:\n"
              "    taskkill /F /PID 300\n");
}

// Printers.

TEST_F(DoctorWorld, PrintersAreToldWithTheDefaultOne)
{
    EXPECT_EQ(Check("printers"), "warning | printers | none, so print tasks can't work on this machine\n"
                                 "  Install one before a print task runs here:\n"
                                 "    control printers\n");
    health.printers = {{"Laser"}, {"Plotter", true}};
    EXPECT_EQ(Check("printers"), "ok | printers | Laser, Plotter (default)\n");
    health.printers = {{"Laser"}, {"Plotter"}};
    EXPECT_EQ(Check("printers"), "warning | printers | Laser, Plotter; none is the default\n"
                                 "  Choose the default one:\n"
                                 "    rundll32 printui.dll,PrintUIEntry /y /n \"Laser\"\n");
}

// Folders.

TEST_F(DoctorWorld, TheTemporaryFolderMustBeWritableAndHaveRoom)
{
    EXPECT_EQ(Check("temporary folder"), "ok | temporary folder | C:\\Temp, where macros go, can be written\n");
    const auto with = [&](FolderState state) {
        health.folders["C:\\Temp"] = state;
        return Check("temporary folder");
    };
    EXPECT_EQ(with(FolderState::Missing), "problem | temporary folder | \"C:\\Temp\" isn't there\n"
                                          "  Make it:\n"
                                          "    mkdir \"C:\\Temp\"\n");
    EXPECT_EQ(with(FolderState::NoFolder), "problem | temporary folder | \"C:\\Temp\" is a file and no folder\n"
                                           "  Move the file away and make the folder:\n"
                                           "    mkdir \"C:\\Temp\"\n");
    EXPECT_EQ(with(FolderState::Refused), "problem | temporary folder | \"C:\\Temp\" can't be written\n"
                                          "  Give yourself the right to, or ask whoever administers the disk:\n"
                                          "    icacls \"C:\\Temp\" /grant \"%USERNAME%:(OI)(CI)M\"\n");
    EXPECT_EQ(with(FolderState::Full), "problem | temporary folder | \"C:\\Temp\" has no room left\n"
                                       "  Make room on its disk\n");
}

TEST_F(DoctorWorld, ADiskThatGetsFullIsAWarningAndThenAProblem)
{
    const auto with = [&](std::optional<uint64_t> bytes) {
        health.freeBytes = bytes;
        return Check("temporary folder");
    };
    const std::string fine = "ok | temporary folder | C:\\Temp, where macros go, can be written\n";
    EXPECT_EQ(with(std::nullopt), fine);
    EXPECT_EQ(with(1073741824), fine);
    EXPECT_EQ(with(1073741823), "warning | temporary folder | the disk of \"C:\\Temp\" has 1.0 GB left\n"
                                "  Make room on that disk\n");
    EXPECT_EQ(with(104857600), "warning | temporary folder | the disk of \"C:\\Temp\" has 100 MB left\n"
                               "  Make room on that disk\n");
    EXPECT_EQ(with(52428800), "problem | temporary folder | the disk of \"C:\\Temp\" has 50.0 MB left\n"
                              "  Make room on that disk\n");
}

TEST_F(DoctorWorld, ElsewhereThanOnWindowsFoldersAreMendedByThatSystemsCommands)
{
    health.hasComponents = false;
    health.folders["C:\\Temp"] = FolderState::Refused;
    EXPECT_EQ(Check("temporary folder"), "problem | temporary folder | \"C:\\Temp\" can't be written\n"
                                         "  Give yourself the right to, or ask whoever administers the disk:\n"
                                         "    chmod u+rwx \"C:\\Temp\"\n");
    health.folders["C:\\Temp"] = FolderState::Missing;
    EXPECT_EQ(Check("temporary folder"), "problem | temporary folder | \"C:\\Temp\" isn't there\n"
                                         "  Make it:\n"
                                         "    mkdir -p \"C:\\Temp\"\n");
}

TEST_F(DoctorWorld, AMacroFileThatNoRunCanUseAnyMoreIsStray)
{
    EXPECT_EQ(Check("stray macros"), "ok | left macro files | none\n");
    const auto with = [&](const std::string& name, std::chrono::seconds age) {
        health.files = {{"C:\\Temp\\" + name, age}};
        return Check("stray macros");
    };
    using std::chrono::hours;
    using std::chrono::minutes;
    const std::string none = "ok | left macro files | none\n";
    const auto one = [](const std::string& name) {
        return "warning | left macro files | 1 of a run that has ended, in C:\\Temp\n"
               "  Delete it:\n"
               "    del \"C:\\Temp\\" +
               name + "\"\n";
    };
    EXPECT_EQ(with("TFR1A2.tvb", minutes(10)), none);
    EXPECT_EQ(with("TFR1A2.tvb", minutes(11)), one("TFR1A2.tvb"));
    EXPECT_EQ(with("TFR1A2.tmp", minutes(11)), one("TFR1A2.tmp"));
    EXPECT_EQ(with("TFR1A2.txt", minutes(11)), none);
    health.applications = {{100, true}};
    EXPECT_EQ(with("TFR1A2.tvb", hours(24)), none);
    EXPECT_EQ(with("TFR1A2.tvb", hours(25)), one("TFR1A2.tvb"));
    machine.alive = 4711;
    EXPECT_EQ(with("tvtask_4711.tvb", hours(25)), none);
    EXPECT_EQ(with("tvtask_4712.tvb", minutes(1)), one("tvtask_4712.tvb"));
    EXPECT_EQ(with("tvtask_4712.events", minutes(1)), one("tvtask_4712.events"));
}

TEST_F(DoctorWorld, FiveStrayMacrosAreNamedAtOnce)
{
    for (int i = 1; i <= 7; ++i) {
        health.files.push_back({"C:\\Temp\\TFR" + std::to_string(i) + ".tvb", std::chrono::hours(1)});
    }
    EXPECT_EQ(Check("stray macros"), "warning | left macro files | 7 of runs that have ended, in C:\\Temp\n"
                                     "  Delete them, these first; tvtask doctor names the others then:\n"
                                     "    del \"C:\\Temp\\TFR1.tvb\"\n"
                                     "    del \"C:\\Temp\\TFR2.tvb\"\n"
                                     "    del \"C:\\Temp\\TFR3.tvb\"\n"
                                     "    del \"C:\\Temp\\TFR4.tvb\"\n"
                                     "    del \"C:\\Temp\\TFR5.tvb\"\n");
    health.files.resize(2);
    health.hasComponents = false;
    EXPECT_EQ(Check("stray macros"), "warning | left macro files | 2 of runs that have ended, in C:\\Temp\n"
                                     "  Delete them:\n"
                                     "    rm \"C:\\Temp\\TFR1.tvb\"\n"
                                     "    rm \"C:\\Temp\\TFR2.tvb\"\n");
}

// What is printed.

TEST_F(DoctorWorld, AHealthyMachineWithoutAVaultHasNoProblem)
{
    health.printers = {{"Laser", true}};
    const Printed printed = Run({"doctor"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(printed.err, "");
    EXPECT_EQ(
        WithoutBase(printed.out),
        "Add-in\n"
        "  ok         class                     {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} is registered\n"
        "  ok         file                      C:\\Local\\TVTaskAddIn.dll, 64-bit\n"
        "  ok         threading model           Both\n"
        "  ok         start                     it loads and makes its object\n"
        "\n"
        "CAD application\n"
        "  ok         Torvane.Application       {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n"
        "  ok         Torvane.Application.21    {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E03} is C:\\Local\\TORVANE.EXE\n"
        "  ok         Torvane 2013              C:\\Local\\TORVANE.EXE (Setup key, 64-bit view)\n"
        "  ok         tasks for 2013            TORVANE.EXE /B (Setup key, 64-bit view)\n"
        "  ok         tasks for any version     TORVANE.EXE /R (registered server)\n"
        "  ok         start                     C:\\Local\\TORVANE.EXE is revision 21.0.0\n"
        "  ok         geometry kernel           C:\\Local\\tvkernel.exe answers\n"
        "  ok         running applications      none\n"
        "  ok         start-up add-ins          none\n"
        "\n"
        "Settings\n"
        "  ok         keys                      the user's: none; the machine's: none; the machine's, 32-bit view: "
        "none; the machine's, 64-bit view: none\n"
        "  ok         values                    none, so the defaults count\n"
        "\n"
        "Machine\n"
        "  ok         listener                  none at \\\\.\\pipe\\{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E04}; runs "
        "work the same\n"
        "  ok         printers                  Laser (default)\n"
        "  ok         temporary folder          C:\\Temp, where macros go, can be written\n"
        "  ok         left macro files          none\n"
        "\n"
        "Vault\n"
        "  warning    vault                     there is none in \"BASE/vault\"\n"
        "             Name yours by --vault, or make one:\n"
        "               tvtask init\n"
        "\n"
        "0 problems, 1 warning\n");
}

TEST_F(DoctorWorld, AProblemIsPrintedWithItsAdviceAndEndsWithOne)
{
    health.RemoveKey(ClassKey(kAddInClass));
    const Printed printed = Run({"doctor"});
    EXPECT_EQ(printed.code, 1);
    EXPECT_EQ(printed.out.substr(0, printed.out.find("\n\n") + 1),
              "Add-in\n"
              "  problem    class                     {5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} isn't registered\n"
              "             Register the add-in, as administrator:\n"
              "               regsvr32 \"C:\\Local\\TVTaskAddIn.dll\"\n");
    EXPECT_EQ(printed.out.substr(printed.out.rfind("\n\n")), "\n\n1 problem, 3 warnings\n");
}

TEST_F(DoctorWorld, WhatCannotBeOnThisSystemIsNotSaidToBeInOrder)
{
    health.hasComponents = false;
    const Printed printed = Run({"doctor"});
    EXPECT_EQ(printed.code, 0);
    EXPECT_EQ(WithoutBase(printed.out),
              "Add-in\n"
              "  not here   add-in class              not on this system\n"
              "  not here   add-in file               not on this system\n"
              "  not here   threading model           not on this system\n"
              "  not here   add-in start              not on this system\n"
              "\n"
              "CAD application\n"
              "  not here   application classes       not on this system\n"
              "  not here   set-ups                   not on this system\n"
              "  not here   versions                  not on this system\n"
              "  not here   application start         not on this system\n"
              "  ok         geometry kernel           C:\\Local\\tvkernel.exe answers\n"
              "  not here   stray applications        not on this system\n"
              "  not here   start-up add-ins          not on this system\n"
              "\n"
              "Settings\n"
              "  not here   settings keys             not on this system\n"
              "  not here   settings                  not on this system\n"
              "\n"
              "Machine\n"
              "  not here   listener                  not on this system\n"
              "  not here   printers                  not on this system\n"
              "  ok         temporary folder          C:\\Temp, where macros go, can be written\n"
              "  ok         left macro files          none\n"
              "\n"
              "Vault\n"
              "  warning    vault                     there is none in \"BASE/vault\"\n"
              "             Name yours by --vault, or make one:\n"
              "               tvtask init\n"
              "\n"
              "0 problems, 1 warning\n");
}

TEST_F(DoctorWorld, JsonHasEveryFindingWithItsCheckAndItsCommands)
{
    health.RemoveKey(ClassKey(kAddInClass));
    const Printed printed = Run({"doctor", "--json"});
    EXPECT_EQ(printed.code, 1);
    const Json json = printed.AsJson();
    EXPECT_EQ(json["problems"], 1);
    EXPECT_EQ(json["warnings"], 3);
    EXPECT_EQ(json["findings"][0], Json::parse(R"json({
        "group": "Add-in",
        "check": "add-in class",
        "level": "problem",
        "subject": "class",
        "found": "{5A1C7F30-8F0E-4B52-9A44-2F6D1C0A7E01} isn't registered",
        "advice": "Register the add-in, as administrator:",
        "commands": ["regsvr32 \"C:\\Local\\TVTaskAddIn.dll\""]
    })json"));
}

TEST_F(DoctorWorld, ACheckThatFailsIsAProblemAndTheOthersAreCarriedOut)
{
    component.offersStartPreview = false;
    EXPECT_EQ(Check("versions"),
              "problem | versions | couldn't be looked at: The registered add-in is an older one and can't tell how it "
              "would start the CAD application. Register the present one with: regsvr32 TVTaskAddIn.dll\n");
    EXPECT_EQ(Check("geometry kernel"), "");
    EXPECT_EQ(Check("kernel"), "ok | geometry kernel | C:\\Local\\tvkernel.exe answers\n");
}

} // namespace

} // namespace tv::local
