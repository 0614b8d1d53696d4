// Variables that a macro uses without declaring them.
#include "macro/macro.h"

#include <gtest/gtest.h>

namespace tv::macro {

namespace {

std::vector<UndeclaredVariable> Undeclared(std::u16string_view body)
{
    return UndeclaredVariables(u"Sub main()\n" + std::u16string(body) + u"\nEnd Sub\n");
}

} // namespace

TEST(Undeclared, AVariableIsListedOnceWithThePlaceOfItsFirstUse)
{
    const auto names = Undeclared(u"Dim a\na = b + b\nc = 1");
    ASSERT_EQ(names.size(), 2U);
    EXPECT_EQ(names[0].name, u"b");
    EXPECT_EQ(names[0].line, 3);
    EXPECT_EQ(names[0].column, 5);
    EXPECT_EQ(names[1].name, u"c");
    EXPECT_EQ(names[1].line, 4);
}

TEST(Undeclared, EachProcedureHasItsOwn)
{
    const auto names = UndeclaredVariables(u"Sub main()\na = 1\nEnd Sub\nSub other()\nb = a\nEnd Sub");
    ASSERT_EQ(names.size(), 3U);
    EXPECT_EQ(names[0].assignments, 1);
    EXPECT_EQ(names[1].name, u"b");
    EXPECT_EQ(names[2].name, u"a");
    EXPECT_EQ(names[2].reads, 1);
    EXPECT_EQ(names[2].assignments, 0);
}

TEST(Undeclared, ReadingIsCounted)
{
    const auto names = Undeclared(u"x = 1\nDebug.Print x + x, y(2)");
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(names[0].reads, 2);
    EXPECT_EQ(names[0].assignments, 1);
}

TEST(Undeclared, ALoopAndSetAssign)
{
    const auto names = Undeclared(u"For i = 1 To 2\nNext\nFor Each e In Array(1)\nNext\nSet o = Nothing");
    ASSERT_EQ(names.size(), 3U);
    for (const UndeclaredVariable& variable : names) {
        EXPECT_EQ(variable.assignments, 1);
    }
}

TEST(Undeclared, HandingOverToAProcedureAndToAMemberAreToldApart)
{
    const auto names = UndeclaredVariables(u"Sub main()\nDim o As Object\nTake a\no.Fill b\nTake (c)\nEnd Sub\n"
                                           u"Sub Take(x)\nEnd Sub");
    ASSERT_EQ(names.size(), 3U);
    EXPECT_EQ(names[0].handedToProcedures, 1);
    EXPECT_EQ(names[0].handedToMembers, 0);
    EXPECT_EQ(names[1].handedToProcedures, 0);
    EXPECT_EQ(names[1].handedToMembers, 1);
    EXPECT_EQ(names[2].reads, 1);
    EXPECT_EQ(names[2].handedToProcedures, 0);
}

TEST(Undeclared, ReDimDeclares)
{
    EXPECT_TRUE(Undeclared(u"ReDim names(2)\nnames(0) = 1").empty());
}

TEST(Undeclared, WithOptionExplicitTheNamesAreListedAllTheSame)
{
    EXPECT_EQ(UndeclaredVariables(u"Option Explicit\nSub main()\na = 1\nEnd Sub").size(), 1U);
}

TEST(Undeclared, ATextThatCannotBeParsedGivesNone)
{
    EXPECT_TRUE(UndeclaredVariables(u"Sub main(\na = 1").empty());
}

TEST(Undeclared, ANameThatIsDeclaredWhereItIsUsedIsFoundBySimilarity)
{
    const auto names = UndeclaredVariables(u"Dim Folder\nSub main()\nDim Sheet\nShet = 1\nFoldr = 2\nEnd Sub\n"
                                           u"Sub other()\nShet = 1\nEnd Sub");
    ASSERT_EQ(names.size(), 3U);
    EXPECT_EQ(names[0].similarName, u"Sheet");
    EXPECT_EQ(names[1].similarName, u"Folder");
    EXPECT_EQ(names[2].similarName, u"");
}

TEST(Undeclared, AnotherUndeclaredNameIsNoneToBeMeant)
{
    EXPECT_EQ(Undeclared(u"Sheet = 1\nShet = 2")[1].similarName, u"");
}

struct Spelling
{
    std::u16string_view name;
    std::u16string_view meant;
    bool looksMisspelled;
};

TEST(Undeclared, OneSlipOfTheHandLooksMisspelled)
{
    constexpr Spelling kSpellings[] = {
        {u"Shet", u"Sheet", true},              // left out
        {u"Sheeet", u"Sheet", true},            // added
        {u"Sheat", u"Sheet", true},             // changed
        {u"Sehet", u"Sheet", true},             // swapped
        {u"SHET", u"sheet", true},              // capitals don't count
        {u"Sheet", u"sheet", false},            // the same name
        {u"Shaat", u"Sheet", false},            // two slips in a short name
        {u"docFlieNmae", u"docFileName", true}, // two in a long one
        {u"doFlieNmae", u"docFileName", false}, // three
        {u"sheets", u"sheet", false},           // a plural
        {u"name", u"names", false},             // and its singular
        {u"conf1", u"conf2", false},            // names that are numbered
        {u"path", u"path2", false},             // one of them only
        {u"row", u"col", false},                // too short to tell
        {u"ext", u"text", false},               // likewise
    };
    for (const Spelling& row : kSpellings) {
        EXPECT_EQ(LooksMisspelled(row.name, row.meant), row.looksMisspelled)
            << std::string(row.name.begin(), row.name.end()) << " " << std::string(row.meant.begin(), row.meant.end());
    }
}

} // namespace tv::macro
