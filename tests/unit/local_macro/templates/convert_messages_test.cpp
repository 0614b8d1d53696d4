// What the convert template writes into the log of its task instance.

#include "local_macro/templates/template_world.h"

#include <gtest/gtest.h>

namespace tv::macro {
namespace {

constexpr char kOleMessage[] =
    "This document contains OLE objects. Such objects can't be converted outside of Torvane. "
    "Please open the document and perform the conversion from Torvane.\r\n";

/// A drawing with the sheets A and B and a part with the configurations A and B.
class ConvertMessages : public testing::Test
{
  protected:
    ConvertMessages()
    {
        world.cad.documents[u"C:\\V\\d.drw"] = {kScriptedDrawing, {}, {u"A", u"B"}};
        world.cad.documents[u"C:\\V\\p.prt"] = {kScriptedPart, {u"A", u"B"}};
    }

    ConvertWorld world;
};

TEST_F(ConvertMessages, AnUnsupportedExtensionIsNamedAsItIsWritten)
{
    world.Run(u"C:\\V\\letter.Doc");
    EXPECT_EQ(world.Log(), "The file extension 'Doc' is not supported.\r\n");
}

TEST_F(ConvertMessages, AFutureVersionIsTold)
{
    world.cad.openError = 8192;
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\p.prt' is future version.\r\n");
    EXPECT_EQ(world.Calls("Torvane.RevisionNumber"), "");
}

TEST_F(ConvertMessages, AFutureVersionIsToldThoughNoDocumentCame)
{
    world.cad.openError = 8192;
    world.Run(u"C:\\V\\missing.prt");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\missing.prt' is future version.\r\n");
}

TEST_F(ConvertMessages, AMissingDocumentIsToldWithItsError)
{
    world.cad.openError = 2;
    world.Run(u"C:\\V\\missing.asm");
    EXPECT_EQ(world.Log(), "Method call ModelDoc2::OpenDoc7 for document 'C:\\V\\missing.asm' failed. Error code 2 "
                           "returned.\r\n");
}

TEST_F(ConvertMessages, AnErrorWithADocumentDoesNotStopTheConversion)
{
    world.cad.openError = 2;
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "(none)");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"p.prt\"\n");
}

TEST_F(ConvertMessages, ASheetThatCannotHaveTheExtension)
{
    world.cad.saves[u"C:\\Out\\d_B.stl"] = {false, 256, 0};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(),
              "The file 'C:\\V\\d.drw' and sheet 'B' can't be converted to the file extension '.stl'.\r\n");
}

TEST_F(ConvertMessages, AConfigurationThatCannotHaveTheExtension)
{
    world.cad.saves[u"C:\\Out\\p_A.stl"] = {false, 256, 0};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              "The file 'C:\\V\\p.prt' and configuration 'A' can't be converted to the file extension '.stl'.\r\n");
}

TEST_F(ConvertMessages, ASecondOutputThatCannotHaveTheExtension)
{
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\O2\\d_B.stl"] = {false, 256, 0};
    world.cad.saves[u"C:\\O2\\p_A.stl"] = {false, 256, 0};
    world.Run(u"C:\\V\\d.drw");
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              "The file 'C:\\V\\d.drw' and sheet 'B' can't be converted to the file extension '.stl'.\r\n"
              "The file 'C:\\V\\p.prt' and configuration 'A' can't be converted to the file extension '.stl'.\r\n");
}

TEST_F(ConvertMessages, TheExtensionIsTheOnlyReasonWhenItsBitStandsAlone)
{
    world.cad.saves[u"C:\\Out\\p_A.stl"] = {false, 256 + 1, 0};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_A.stl' and configuration 'A' "
              "failed. Error code 257 returned.\r\n");
}

TEST_F(ConvertMessages, ASheetThatIsNotSaved)
{
    world.cad.saves[u"C:\\Out\\d_A.stl"] = {false, 3, 0};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\d_A.stl' and sheet 'A' failed. "
              "Error code 3 returned.\r\n");
}

TEST_F(ConvertMessages, AConfigurationThatIsNotSavedDoesNotStopTheNext)
{
    world.cad.saves[u"C:\\Out\\p_A.stl"] = {false, 3, 7};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_A.stl' and configuration 'A' "
              "failed. Error code 3 returned.\r\n");
    EXPECT_EQ(world.Calls("Extension"), "Extension.SaveAs \"C:\\Out\\p_A.stl\", 0, 1, Nothing, 0, 0\n"
                                        "Extension.SaveAs \"C:\\Out\\p_B.stl\", 0, 1, Nothing, 3, 7\n");
}

TEST_F(ConvertMessages, ASheetWithForeignObjects)
{
    world.cad.saves[u"C:\\Out\\d_A.stl"] = {false, 4096 + 1, 512 + 2};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(),
              std::string("Method call ModelDocExtension::SaveAs for document 'C:\\Out\\d_A.stl' and sheet 'A' failed. "
                          "Error code 4097 returned.\r\n") +
                  kOleMessage);
}

TEST_F(ConvertMessages, AConfigurationWithForeignObjects)
{
    world.cad.saves[u"C:\\Out\\p_B.stl"] = {false, 4096, 512};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              std::string("Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_B.stl' and configuration 'B' "
                          "failed. Error code 4096 returned.\r\n") +
                  kOleMessage);
}

/// All bits but the one that counts stand in for the missing one.
TEST_F(ConvertMessages, ForeignObjectsOfASheetAreToldOnlyWithBothBits)
{
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\Out\\d_A.stl"] = {false, 4096, 0xFFFF - 512};
    world.cad.saves[u"C:\\Out\\d_B.stl"] = {false, 0xFFFF - 4096, 512};
    world.cad.saves[u"C:\\O2\\d_A.stl"] = {false, 4096, 0xFFFF - 512};
    world.cad.saves[u"C:\\O2\\d_B.stl"] = {false, 0xFFFF - 4096, 512};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\d_A.stl' and sheet 'A' failed. "
              "Error code 4096 returned.\r\n"
              "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\d_A.stl' and sheet 'A' failed. "
              "Error code 4096 returned.\r\n"
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\d_B.stl' and sheet 'B' failed. "
              "Error code 61439 returned.\r\n"
              "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\d_B.stl' and sheet 'B' failed. "
              "Error code 61439 returned.\r\n");
}

TEST_F(ConvertMessages, ForeignObjectsOfAConfigurationAreToldOnlyWithBothBits)
{
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\Out\\p_A.stl"] = {false, 4096, 0xFFFF - 512};
    world.cad.saves[u"C:\\Out\\p_B.stl"] = {false, 0xFFFF - 4096, 512};
    world.cad.saves[u"C:\\O2\\p_A.stl"] = {false, 4096, 0xFFFF - 512};
    world.cad.saves[u"C:\\O2\\p_B.stl"] = {false, 0xFFFF - 4096, 512};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_A.stl' and configuration 'A' "
              "failed. Error code 4096 returned.\r\n"
              "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\p_A.stl' and configuration 'A' "
              "failed. Error code 4096 returned.\r\n"
              "warnings1 = 65023\r\n"
              "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_B.stl' and configuration 'B' "
              "failed. Error code 61439 returned.\r\n"
              "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\p_B.stl' and configuration 'B' "
              "failed. Error code 61439 returned.\r\n"
              "warnings1 = 512\r\n");
}

TEST_F(ConvertMessages, TheSecondOutputOfASheetHasNoLineOfWarnings)
{
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\O2\\d_A.stl"] = {false, 3, 7};
    world.cad.saves[u"C:\\O2\\d_B.stl"] = {false, 4096, 512};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(),
              std::string("Method call ModelDocExtension::SaveAs for document 'C:\\O2\\d_A.stl' and sheet 'A' failed. "
                          "Error code 3 returned.\r\n"
                          "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\d_B.stl' and sheet 'B' failed. "
                          "Error code 4096 returned.\r\n") +
                  kOleMessage);
}

TEST_F(ConvertMessages, TheSecondOutputOfAConfigurationTellsItsWarnings)
{
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\O2\\p_A.stl"] = {false, 3, 7};
    world.cad.saves[u"C:\\O2\\p_B.stl"] = {false, 4096, 512};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(),
              std::string("Method call ModelDocExtension::SaveAs for document 'C:\\O2\\p_A.stl' and configuration 'A' "
                          "failed. Error code 3 returned.\r\n"
                          "warnings1 = 7\r\n"
                          "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\p_B.stl' and configuration 'B' "
                          "failed. Error code 4096 returned.\r\n"
                          "warnings1 = 512\r\n") +
                  kOleMessage);
}

TEST_F(ConvertMessages, NoSheetMatchesThePattern)
{
    world.Variables().SetInt(u"OutputSheets", 8);
    world.Variables().SetText(u"NamedSheet", u"Z*");
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\d.drw' didn't contain any sheets named 'Z*'.\r\n");
    EXPECT_EQ(world.Calls("Extension"), "");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"d.drw\"\n");
}

TEST_F(ConvertMessages, NoConfigurationMatchesThePattern)
{
    world.Variables().SetInt(u"OutputConfs", 8);
    world.Variables().SetText(u"NamedConf", u"Z*");
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Document 'C:\\V\\p.prt' didn't contain any configurations named 'Z*'.\r\n");
    EXPECT_EQ(world.Calls("Extension"), "");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "Torvane.QuitDoc \"p.prt\"\n");
}

TEST_F(ConvertMessages, NoChoiceOfItemsReadsLikeNoMatch)
{
    for (int32_t number : {0, 1}) {
        world.host.files.Put(u"C:\\Vault\\Logs\\{guid}.log", "");
        world.Variables().SetInt(u"OutputSheets", number);
        world.Variables().SetInt(u"OutputConfs", number);
        world.Run(u"C:\\V\\d.drw");
        world.Run(u"C:\\V\\p.prt");
        EXPECT_EQ(world.Log(), "Document 'C:\\V\\d.drw' didn't contain any sheets named '*'.\r\n"
                               "Document 'C:\\V\\p.prt' didn't contain any configurations named '*'.\r\n")
            << number;
    }
}

TEST_F(ConvertMessages, AllSheetsInOneFileAreNotSaved)
{
    world.Variables().SetInt(u"FileSheets", 2);
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\Out\\d_All.stl"] = {false, 256, 0};
    world.cad.saves[u"C:\\O2\\d_All.stl"] = {false, 4096, 512};
    world.Run(u"C:\\V\\d.drw");
    EXPECT_EQ(world.Log(), "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\d_All.stl' failed. Error code "
                           "256 returned.\r\n"
                           "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\d_All.stl' failed. Error code "
                           "4096 returned.\r\n");
}

TEST_F(ConvertMessages, AllConfigurationsInOneFileAreNotSaved)
{
    world.Variables().SetInt(u"FileConfs", 2);
    world.Variables().SetText(u"OutputPath2", u"C:\\O2\\<Filename>_<Configuration>");
    world.cad.saves[u"C:\\Out\\p_All.stl"] = {false, 1, 0};
    world.cad.saves[u"C:\\O2\\p_All.stl"] = {false, 2, 0};
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Method call ModelDocExtension::SaveAs for document 'C:\\Out\\p_All.stl' failed. Error code "
                           "1 returned.\r\n"
                           "Method call ModelDocExtension::SaveAs for document 'C:\\O2\\p_All.stl' failed. Error code "
                           "2 returned.\r\n");
}

TEST_F(ConvertMessages, AFormatWithoutBracketsIsAnUnexpectedError)
{
    world.Variables().SetText(u"FileFormat", u"STL");
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Error while converting file 'C:\\V\\p.prt': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 5\r\n"
                           "Error description: 'Invalid procedure call or argument'\r\n"
                           "\r\n");
    EXPECT_EQ(world.Calls("Torvane.QuitDoc"), "");
}

TEST_F(ConvertMessages, ANeutralFileThatDoesNotLoadIsAnUnexpectedError)
{
    world.cad.openError = 2;
    world.Run(u"C:\\V\\missing.step");
    EXPECT_EQ(world.Log(), "Error while converting file 'C:\\V\\missing.step': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 91\r\n"
                           "Error description: 'Object variable or With block variable not set'\r\n"
                           "\r\n");
}

TEST_F(ConvertMessages, AnErrorInAVirtualComponentEndsTheMacroUnderTheNameOfItsAssembly)
{
    world.cad.documents[u"C:\\V\\top.asm"] = {kScriptedAssembly, {u"A"}, {}, {{u"C:\\T\\v.step", true}}};
    world.Run(u"C:\\V\\top.asm");
    EXPECT_EQ(world.Log(), "Error while converting file 'C:\\V\\top.asm': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 91\r\n"
                           "Error description: 'Object variable or With block variable not set'\r\n"
                           "\r\n");
}

TEST_F(ConvertMessages, AnErrorOfTheApplicationKeepsItsNumber)
{
    world.cad.failures["Torvane.ActivateDoc2"] = 1007;
    world.Run(u"C:\\V\\p.prt");
    EXPECT_EQ(world.Log(), "Error while converting file 'C:\\V\\p.prt': \r\n"
                           "An unexpected error occurred while executing the generated script. Script syntax error?\r\n"
                           "Error number: 1007\r\n"
                           "Error description: 'Application-defined or object-defined error'\r\n"
                           "\r\n");
}

} // namespace
} // namespace tv::macro
