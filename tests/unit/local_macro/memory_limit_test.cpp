// Whatever a macro can make grow ends with error 7 at the limit of memory, and the macro can go on after it.

#include "local_macro/script_world.h"

#include <gtest/gtest.h>

namespace tv::macro {

namespace {

struct Growth
{
    const char* name;
    const char* statements;
};

constexpr Growth kGrowths[] = {
    {"String", "s = String(1000000000, \"x\")"},
    {"Space", "s = Space(1000000000)"},
    {"TextThatGrowsInPlace", "Do: s = s & \"0123456789\": Loop"},
    {"TextThatIsDoubled", "s = \"x\": Do: s = s & s: Loop"},
    {"TextAddedByPlus", "s = \"x\": Do: s = s + s: Loop"},
    {"ReplaceThatMultiplies", "s = Replace(String(100000, \"x\"), \"x\", String(10000, \"y\"))"},
    {"Split", "v = Split(String(1000000, \",\"), \",\")"},
    {"Join", "v = Join(Split(String(9999, \",\"), \",\"), String(100000, \"x\"))"},
    {"Filter", "v = Split(Replace(String(20000, \",\"), \",\", \"0123456789,\"), \",\"): w = Filter(v, \"\"): x = "
               "Filter(w, \"\"): y = Filter(x, \"\"): z = Filter(y, \"\")"},
    {"ReDim", "ReDim a(1000000000)"},
    {"ReDimOfThreeDimensions", "ReDim a(1000, 1000, 1000) As Byte"},
    {"ReDimPreserve", "ReDim a(10): Do: ReDim Preserve a(2 * UBound(a)): Loop"},
    {"ArraysInArrays", "Do: v = Array(v, 1): Loop"},
    {"CopiesOfArrays", "ReDim a(10000): Set c = New Collection: Do: a(0) = a(0) + 1: c.Add a: Loop"},
    {"CollectionOfNumbers", "Set c = New Collection: Do: c.Add 1: Loop"},
    {"CollectionWithLongKeys", "Set c = New Collection: Do: i = i + 1: c.Add 1, String(10000, \"k\") & i: Loop"},
    {"Dictionary", "Set d = CreateObject(\"Scripting.Dictionary\"): Do: i = i + 1: d(i) = i: Loop"},
    {"DictionaryWithLongKeys",
     "Set d = CreateObject(\"Scripting.Dictionary\"): Do: i = i + 1: d(String(10000, \"k\") & i) = i: Loop"},
    {"PrintedLineThatStaysOpen", "Do: Debug.Print \"0123456789012345678901234567890123456789\";: Loop"},
    {"LineOfAFile", "Open \"C:\\big.txt\" For Input As #1: Line Input #1, s"},
    {"CharactersOfAFile", "Open \"C:\\big.txt\" For Input As #1: s = Input(LOF(1), #1)"},
    {"FieldOfAFile", "Open \"C:\\big.txt\" For Input As #1: Input #1, s"},
    {"WholeFile", "s = CreateObject(\"Scripting.FileSystemObject\").OpenTextFile(\"C:\\big.txt\").ReadAll"},
};

class MemoryLimit : public testing::TestWithParam<Growth>
{};

ScriptResult RunWithEightMegabytes(const std::string& source)
{
    ScriptHost host;
    host.files.Put(u"C:\\big.txt", std::string(6U << 20, 'x'));
    Limits limits;
    limits.memory = 8U << 20;
    return RunModule(source, host, nullptr, limits);
}

} // namespace

TEST_P(MemoryLimit, IsErrorSeven)
{
    ScriptResult result = RunWithEightMegabytes("Sub main()\n" + std::string(GetParam().statements) + "\nEnd Sub\n");
    EXPECT_EQ(result.FirstProblem(), "");
    EXPECT_EQ(result.run.number, 7);
    EXPECT_EQ(result.run.description, u"Out of memory");
}

TEST_P(MemoryLimit, LeavesAMacroThatCatchesItGoingOn)
{
    ScriptResult result = RunWithEightMegabytes("Sub Grow()\n" + std::string(GetParam().statements) +
                                                "\nEnd Sub\nSub main()\nOn Error Resume Next\nGrow\n"
                                                "number = Err.Number\nClose\nr = String(100000, \"r\")\n"
                                                "If number = 7 And Len(r) = 100000 Then MsgBox \"went on\"\nEnd Sub\n");
    EXPECT_EQ(result.run.outcome, Outcome::Ok);
    EXPECT_EQ(result.run.number, 0);
}

INSTANTIATE_TEST_SUITE_P(Growths, MemoryLimit, testing::ValuesIn(kGrowths),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(MemoryLimit, CountsRecordsOfAnArray)
{
    EXPECT_EQ(
        RunWithEightMegabytes("Type T\nA As Long\nB As String\nEnd Type\nSub main()\nDim r(100000) As T\nEnd Sub\n")
            .run.number,
        7);
}

TEST(MemoryLimit, CountsTextsOfFixedLength)
{
    EXPECT_EQ(RunWithEightMegabytes("Sub main()\nDim s As String * 60000, a(100) As String * 60000\na(1) = \"x\"\n"
                                    "For i = 0 To 100\na(i) = CStr(i)\nNext\nEnd Sub\n")
                  .run.number,
              7);
}

TEST(MemoryLimit, IsGivenBackWhenValuesAreDropped)
{
    ScriptResult result = RunWithEightMegabytes(
        "Sub main()\nDim c As Collection\nFor i = 1 To 20\ns = String(1000000, \"x\")\ns = \"\"\nReDim a(100000)\n"
        "Erase a\nSet c = New Collection\nFor k = 1 To 5000\nc.Add k, \"key\" & k\nNext\nSet c = Nothing\nNext\nEnd "
        "Sub\n");
    EXPECT_EQ(result.run.number, 0);
}

TEST(MemoryLimit, IsGivenBackWhenItemsAreRemoved)
{
    ScriptResult result = RunWithEightMegabytes(
        "Sub main()\nSet c = New Collection\nSet d = CreateObject(\"Scripting.Dictionary\")\nFor i = 1 To 30000\n"
        "c.Add i, \"key\"\nc.Remove \"key\"\nd.Add \"key\", i\nd.Key(\"key\") = \"a longer key\"\nd.Remove \"a longer "
        "key\"\n"
        "Next\nEnd Sub\n");
    EXPECT_EQ(result.run.number, 0);
}

} // namespace tv::macro
