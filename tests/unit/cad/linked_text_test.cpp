#include "cad/linked_text.h"

#include "cad_test.h"

namespace tv {

namespace {

using fakes::FakeDocument;

class LinkedTextTest : public CadTest
{
  protected:
    /// A drawing with one view of three texts, in an application that was started with " /R".
    FakeDocument& OpenDrawing()
    {
        FakeDocument& drawing = cad.Last().Open(3, u"d");
        drawing.viewItems = {{{u"M6 x 20", u"M6"}, {u"abc", u"xyz"}, {u"same", u"same"}}, {{u"", u"old"}}};
        return drawing;
    }
    void StartInRegression()
    {
        machine.registry.PutNumber(kLocalMachineRoot, u"SOFTWARE\\Torvane\\Torvane 2013\\Setup",
                                   u"Torvane Office Installed", 0);
        ConfigureAndStart(1);
        ASSERT_TRUE(manager.RegressionMode());
    }
};

} // namespace

TEST_F(LinkedTextTest, TextsOfDifferentLengthAreLinkedAnew)
{
    StartInRegression();
    FakeDocument& drawing = OpenDrawing();
    cad.Last().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(drawing.viewItems[0][0].linkedText, u"M6 x 20");
    EXPECT_EQ(drawing.viewItems[1][0].linkedText, u"");
    EXPECT_EQ(outputs.Outputs().size(), 1u);
}

TEST_F(LinkedTextTest, TextsOfOneLengthAreLeftAloneThoughTheyDiffer)
{
    StartInRegression();
    FakeDocument& drawing = OpenDrawing();
    cad.Last().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(drawing.viewItems[0][1].linkedText, u"xyz");
}

TEST_F(LinkedTextTest, NothingHappensInAnApplicationThatWasNotStartedForRegression)
{
    ConfigureAndStart(1);
    FakeDocument& drawing = OpenDrawing();
    cad.Last().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(drawing.viewItems[0][0].linkedText, u"M6");
    EXPECT_EQ(cad.Last().script.CountOf(u"GetUserPreferenceToggle"), 0);
}

TEST_F(LinkedTextTest, NothingHappensWhenThePreferenceIsOn)
{
    StartInRegression();
    cad.Last().toggles[347] = true;
    FakeDocument& drawing = OpenDrawing();
    cad.Last().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(drawing.viewItems[0][0].linkedText, u"M6");
}

TEST_F(LinkedTextTest, NothingHappensWithoutAnApplicationOrADrawing)
{
    RefreshLinkedText(nullptr, nullptr);
    ConfigureAndStart(1);
    RefreshLinkedText(manager.GetApplication().get(), nullptr);
    EXPECT_EQ(cad.Last().script.CountOf(u"GetUserPreferenceToggle"), 0);
}

TEST_F(LinkedTextTest, ViewsThatCannotBeReadAreRaised)
{
    StartInRegression();
    FakeDocument& drawing = OpenDrawing();
    cad.Last().script.OnEveryCall(u"GetViewArrays").Fail(E_ACCESSDENIED);
    EXPECT_EQ(cad.Last().Write(drawing, u"C:\\Vault\\d.pdf"), std::vector<Result>{Code(0x80070005)});
    EXPECT_TRUE(outputs.Outputs().empty());
}

} // namespace tv
