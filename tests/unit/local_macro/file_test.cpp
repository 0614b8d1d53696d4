#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

namespace {

/// What a file holds after the statements ran; "(missing)" when there is none.
std::string FileAfter(std::string_view statements, std::u16string_view path = u"C:\\out.txt")
{
    ScriptHost host;
    ScriptResult result = RunModule("Sub main()\n" + std::string(statements) + "\nEnd Sub", host);
    EXPECT_EQ(result.run.outcome, Outcome::Ok) << result.FirstProblem() << " error " << result.run.number;
    return host.files.Content(path).value_or("(missing)");
}

} // namespace

TEST(Files, PrintGivesANumberASignOrBlankAndATrailingBlank)
{
    EXPECT_EQ(FileAfter("Open \"C:\\out.txt\" For Output As #1\nPrint #1, 5\nPrint #1, -5; 6\nClose #1"),
              " 5 \r\n-5  6 \r\n");
}

TEST(Files, PrintMovesToTheNextZoneAtAComma)
{
    EXPECT_EQ(
        FileAfter("Open \"C:\\out.txt\" For Output As 1\nPrint #1, \"ab\", \"c\"\nPrint #1, \"12345678901234\", 1\n"
                  "Close"),
        "ab            c\r\n12345678901234               1 \r\n");
}

TEST(Files, ATrailingSemicolonKeepsTheLineOpen)
{
    EXPECT_EQ(FileAfter("Open \"C:\\out.txt\" For Output As #1\nPrint #1, \"a\";\nPrint #1, \"b\"\nPrint #1,\n"
                        "Print #1, Tab(5); \"x\"; Spc(2); \"y\"\nClose #1"),
              "ab\r\n\r\n    x  y\r\n");
}

TEST(Files, AppendAddsToWhatIsThere)
{
    EXPECT_EQ(FileAfter("For i = 1 To 2\nOpen \"C:\\out.txt\" For Append As #1\nPrint #1, \"line\"\nClose #1\nNext"),
              "line\r\nline\r\n");
}

TEST(Files, AnEmptyFileComesFromOpeningAndClosing)
{
    EXPECT_EQ(FileAfter("Open \"C:\\out.txt\" For Append As #1\nClose #1"), "");
}

TEST(Files, ACharacterOutsideTheCodePageBecomesAQuestionMark)
{
    EXPECT_EQ(FileAfter("Open \"C:\\out.txt\" For Output As #1\nPrint #1, ChrW(937) & ChrW(8364);\nClose #1"), "?\x80");
}

TEST(Files, WriteAndInputSpeakToEachOther)
{
    EXPECT_EQ(
        FileAfter("Open \"C:\\out.txt\" For Output As #1\nWrite #1, \"a,b\", 1.5, True, Null, #1/2/2020#\nClose #1"),
        "\"a,b\",1.5,#TRUE#,#NULL#,#2020-01-02#\r\n");
    EXPECT_EQ(RunLines("Open \"C:\\out.txt\" For Output As #1\nWrite #1, \"a,b\", 1.5, True\nClose #1\n"
                       "Open \"C:\\out.txt\" For Input As #1\nInput #1, a, b, c\nDebug.Print a; b; c; EOF(1)"),
              "a,b 1.5 TrueTrue");
}

TEST(Files, LineInputReadsLineByLine)
{
    EXPECT_EQ(
        RunLines("f = FreeFile\nOpen \"C:\\t.txt\" For Output As f\nPrint #f, \"one\": Print #f, \"two\"\nClose f\n"
                 "Open \"C:\\t.txt\" For Input As #f\nDebug.Print LOF(f)\nDo Until EOF(f)\nLine Input #f, s\n"
                 "Debug.Print s\nLoop\nLine Input #f, s"),
        " 10 \none\ntwo\nerror 62");
}

TEST(Files, BinaryFilesKeepTheBytesOfValues)
{
    EXPECT_EQ(RunLines("Dim n As Integer, t As String\nOpen \"C:\\b\" For Binary As #1\nn = 513\nPut #1, , n\n"
                       "Put #1, , \"abc\"\nt = Space(2)\nGet #1, 4, t\nn = 0\nGet #1, 1, n\nDebug.Print LOF(1); t; n"),
              " 5 bc 513 ");
}

TEST(Files, HaveTheirErrors)
{
    EXPECT_EQ(RunLines("Print #1, 1"), "error 52");
    EXPECT_EQ(RunLines("Open \"C:\\none\" For Input As #1"), "error 53");
    EXPECT_EQ(RunLines("Open \"C:\\a\" For Output As #1\nOpen \"C:\\b\" For Output As #1"), "error 55");
    EXPECT_EQ(RunLines("Open \"C:\\a\" For Output As #1\nLine Input #1, s"), "error 54");
    EXPECT_EQ(RunLines("Open \"C:\\none\\a\" For Output As #1"), "error 76");
    EXPECT_EQ(RunLines("Kill \"C:\\none\""), "error 53");
    EXPECT_EQ(RunLines("MkDir \"C:\\Temp\""), "error 75");
    EXPECT_EQ(RunLines("RmDir \"C:\\none\""), "error 76");
}

TEST(Files, FoldersAreMadeListedAndRemoved)
{
    EXPECT_EQ(RunLines("MkDir \"C:\\d\"\nOpen \"C:\\d\\b.txt\" For Output As #1\nPrint #1, \"xyz\"\nClose\n"
                       "FileCopy \"C:\\d\\b.txt\", \"C:\\d\\a.txt\"\nName \"C:\\d\\b.txt\" As \"C:\\d\\c.log\"\n"
                       "Debug.Print FileLen(\"C:\\d\\a.txt\")\nn = Dir(\"C:\\d\\*.*\")\nWhile n <> \"\"\n"
                       "Debug.Print n\nn = Dir\nWend\nDebug.Print Dir(\"C:\\d\\*.txt\")\nKill \"C:\\d\\*.*\"\n"
                       "RmDir \"C:\\d\"\nDebug.Print Dir(\"C:\\d\", vbDirectory) = \"\""),
              " 5 \na.txt\nc.log\na.txt\nTrue");
}

TEST(Files, TheFileSystemObjectSeesTheSameFiles)
{
    EXPECT_EQ(
        RunLines("Set fso = CreateObject(\"Scripting.FileSystemObject\")\n"
                 "Set s = fso.CreateTextFile(\"C:\\t.txt\", True)\ns.WriteLine \"one\"\ns.Write \"two\"\ns.Close\n"
                 "Debug.Print fso.FileExists(\"C:\\t.txt\"); fso.FolderExists(\"C:\\none\")\n"
                 "Set s = fso.OpenTextFile(\"C:\\t.txt\")\nDo Until s.AtEndOfStream\nDebug.Print s.ReadLine\nLoop\n"
                 "Debug.Print fso.GetBaseName(\"C:\\a\\b.c.d\"); fso.GetExtensionName(\"b.c.d\"); "
                 "fso.GetParentFolderName(\"C:\\a\\b\"); fso.BuildPath(\"C:\\a\", \"b\")"),
        "TrueFalse\none\ntwo\nb.cdC:\\aC:\\a\\b");
}

} // namespace tv::macro
