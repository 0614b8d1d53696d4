// What the print template writes into the log of its task instance.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

class PrintMessages : public testing::Test
{
  protected:
    PrintMessages()
    {
        world.cad.documents[u"C:\\V\\d.drw"] = {kScriptedDrawing, {}, {u"One", u"Two"}};
        world.cad.documents[u"C:\\V\\p.prt"] = {};
        world.cad.documents[u"C:\\V\\top.asm"] = {kScriptedAssembly};
        world.cad.documents[u"C:\\V\\n.step"] = {};
    }

    PrintWorld world;
};

TEST_F(PrintMessages, AnUnsupportedExtensionIsNamedAsItIsWritten)
{
    world.Run(u"C:\\V\\letter.Doc");
    EXPECT_EQ(world.Log(), "The file extension 'Doc' is not supported.\r\n");
}

TEST_F(PrintMessages, ANameWithoutADotIsItsOwnExtension)
{
    world.Run(u"C:\\V\\Letter");
    EXPECT_EQ(world.Log(), "The file extension 'C:\\V\\Letter' is not supported.\r\n");
}

TEST_F(PrintMessages, AMissingDocumentIsToldWithItsError)
{
    world.cad.openError = 2;
    world.Run(u"C:\\V\\missing.prt");
    EXPECT_EQ(world.Log(), "Method call ModelDoc2::OpenDoc6 for document 'C:\\V\\missing.prt' failed. Error code 2 "
                           "returned.\r\n");
}

TEST_F(PrintMessages, ANeutralFileThatDoesNotLoadIsToldInTheSameWords)
{
    world.cad.openError = 1024;
    world.Run(u"C:\\V\\missing.STEP");
    EXPECT_EQ(world.Log(), "Method call ModelDoc2::OpenDoc6 for document 'C:\\V\\missing.STEP' failed. Error code 1024 "
                           "returned.\r\n");
}

TEST_F(PrintMessages, AFutureVersionIsPrintedWhenItOpens)
{
    world.cad.openError = 8192;
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "(none)");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"p.prt\"\n");
}

TEST_F(PrintMessages, NoPrinterIsToldWithWhatWasToBePrinted)
{
    struct Row
    {
        std::u16string path;
        std::u16string item;
        const char* log;
    };
    const Row rows[] = {
        {u"C:\\V\\d.drw", u"One",
         "Could not print document 'C:\\V\\d.drw' and sheet 'One'. No printer was selected.\r\n"},
        {u"C:\\V\\p.prt", u"Default",
         "Could not print document 'C:\\V\\p.prt' and configuration 'Default'. No printer was selected.\r\n"},
        {u"C:\\V\\top.asm", u"Default",
         "Could not print document 'C:\\V\\top.asm' and configuration 'Default'. No printer was selected.\r\n"},
        {u"C:\\V\\n.step", u"Sheet1",
         "Could not print document 'C:\\V\\n.step' and configuration 'Sheet1'. No printer was selected.\r\n"},
        {u"C:\\V\\d.drw", u"", "Could not print document 'C:\\V\\d.drw'. No printer was selected.\r\n"},
        {u"C:\\V\\p.prt", u"", "Could not print document 'C:\\V\\p.prt'. No printer was selected.\r\n"},
        {u"C:\\V\\n.step", u"", "Could not print document 'C:\\V\\n.step'. No printer was selected.\r\n"},
    };
    world.Variables().SetText(u"__printer_prname", u"");
    for (const Row& row : rows) {
        world.host.files.Put(u"C:\\Vault\\Logs\\{guid}.log", "");
        world.cad.calls.clear();
        world.Run(row.path, row.item);
        EXPECT_EQ(world.Log(), row.log);
        EXPECT_EQ(world.Calls("PageSetup.") + world.Calls("Extension.") + world.Calls("Torvane.QuitDoc"), "");
    }
}

TEST_F(PrintMessages, TheDefaultSizeHasNoPrinterOfItsOwn)
{
    world.Variables().SetInt(u"__printer_prseltype", 2);
    world.Variables().SetInt(u"__printer_defpapsize", -1);
    world.Variables().SetText(u"__printer_papsize_DEF", u"Plotter");
    world.Run(u"C:\\V\\d.drw", u"Two");
    world.Run(u"C:\\V\\p.prt", u"Default");
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              "Could not print document 'C:\\V\\d.drw' and sheet 'Two'. No printer was selected.\r\n"
              "Could not print document 'C:\\V\\p.prt' and configuration 'Default'. No printer was selected.\r\n"
              "Could not print document 'C:\\V\\p.prt'. No printer was selected.\r\n");
}

TEST_F(PrintMessages, APrinterThatTheDocumentDoesNotTakeIsRefused)
{
    world.cad.printers = {u"Other"};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "The printer 'Plotter' for the Document  'C:\\V\\p.prt' is not a valid printer.\r\n");
    EXPECT_EQ(world.Calls("Extension.") + world.Calls("Torvane.QuitDoc"), "");
    EXPECT_EQ(world.Calls("p.prt.printer"), "p.prt.printer = \"Plotter\"\np.prt.printer\n");
}

TEST_F(PrintMessages, WhatThePrintComplainsAboutIsOneEntryOfManyLines)
{
    world.cad.waitingMessages = {u"an old complaint"};
    world.cad.printMessages = {u"The paper is out.", u"The tray is open."};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(), "Could not print file 'C:\\V\\d.drw'. The following errors occured: \r\n"
                           "The paper is out.\r\n"
                           "The tray is open.\r\n"
                           "\r\n");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"d.drw\"\n");
}

TEST_F(PrintMessages, MoreCopiesThanAnIntegerHoldsAreAnUnexpectedError)
{
    world.Variables().SetText(u"__printer_copycount", u"32768");
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Error while printing file 'C:\\V\\p.prt': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 6\r\n"
                           "Error description: 'Overflow'\r\n"
                           "\r\n");
    EXPECT_EQ(world.Calls(), "");
}

TEST_F(PrintMessages, CopiesThatAreNoNumberAreAnUnexpectedError)
{
    world.Variables().SetText(u"__printer_copycount", u"many");
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Error while printing file 'C:\\V\\p.prt': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 13\r\n"
                           "Error description: 'Type mismatch'\r\n"
                           "\r\n");
}

TEST_F(PrintMessages, AnErrorOfTheApplicationLeavesTheDocumentOpen)
{
    world.cad.failures["Extension.PrintOut2"] = 1007;
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Error while printing file 'C:\\V\\p.prt': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 1007\r\n"
                           "Error description: 'Application-defined or object-defined error'\r\n"
                           "\r\n");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "");
}

TEST_F(PrintMessages, TheLogGathersTheLinesOfAllFiles)
{
    world.cad.printers = {};
    world.Run(u"C:\\V\\p.prt");
    world.Run(u"C:\\V\\a.txt");
    EXPECT_EQ(world.Log(), "The printer 'Plotter' for the Document  'C:\\V\\p.prt' is not a valid printer.\r\n"
                           "The file extension 'txt' is not supported.\r\n");
}

} // namespace
} // namespace tv::macro
