#include "cad/linked_text.h"

#include "cad_test.h"
#include "com/bstring.h"
#include "com/safe_array.h"
#include "com/variant.h"

#include <algorithm>

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

/// A variant with an array of the given variants.
Variant ArrayOf(std::vector<Variant> elements)
{
    SafeArray array = SafeArray::Vector(VT_VARIANT, static_cast<uint32_t>(elements.size()));
    {
        const SafeArrayView<VARIANT> places(array.get());
        for (size_t i = 0; i < elements.size(); ++i) {
            elements[i].MoveTo(&places[i]);
        }
    }
    return Variant::FromArray(array.release(), VT_VARIANT);
}

template <typename... Elements> Variant MakeArray(Elements... elements)
{
    std::vector<Variant> list;
    (list.push_back(std::move(elements)), ...);
    return ArrayOf(std::move(list));
}

class Item final : public ComObject<ITorvaneViewItem>
{
  public:
    Item(std::u16string itsText, std::u16string itsLinkedText)
        : text(std::move(itsText)), linkedText(std::move(itsLinkedText))
    {}
    Result TV_CALL GetText(BStr* given) override
    {
        *given = result < 0 ? nullptr : AllocateText(text);
        return result;
    }
    Result TV_CALL GetLinkedText(BStr* given) override
    {
        *given = linkedResult < 0 ? nullptr : AllocateText(linkedText);
        return linkedResult;
    }
    Result TV_CALL SetLinkedText(const char16_t* given) override
    {
        ++sets;
        if (setResult >= 0) {
            linkedText = given;
        }
        return setResult;
    }

    std::u16string text;
    std::u16string linkedText;
    Result result = 0;
    Result linkedResult = 0;
    Result setResult = 0;
    int sets = 0;
};

class View final : public ComObject<ITorvaneView>
{
  public:
    Result TV_CALL GetItems(VARIANT* given) override
    {
        Variant::Copy(*items.get()).MoveTo(given);
        return 0;
    }

    Variant items;
};

class Drawing final : public ComObject<ITorvaneDrawing>
{
  public:
    Result TV_CALL GetCurrentSheet(IUnknown** current) override
    {
        *current = nullptr;
        return E_NOTIMPL;
    }
    Result TV_CALL GetViewArrays(VARIANT* given) override
    {
        Variant::Copy(*arrays.get()).MoveTo(given);
        return 0;
    }

    Variant arrays;
};

/// An object that is neither a view nor an item.
class Stranger final : public ComObject<IUnknown>
{};

Variant Object(IUnknown* object)
{
    return Variant::FromUnknown(object);
}

/// What a refresh raises for a drawing with these arrays.
Result RaisedFor(Variant arrays)
{
    const ComPtr<fakes::FakeApplication> application = MakeObject<fakes::FakeApplication>();
    const ComPtr<Drawing> drawing = MakeObject<Drawing>();
    drawing->arrays = std::move(arrays);
    return RaisedBy([&] { RefreshLinkedText(application.get(), drawing.get()); });
}

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

TEST(LinkedTextArraysTest, AllItemsOfAllViewsOfAllArraysAreLookedAt)
{
    const ComPtr<Item> items[] = {MakeObject<Item>(u"long", u"x"), MakeObject<Item>(u"abc", u"xyz"),
                                  MakeObject<Item>(u"", u"x"), MakeObject<Item>(u"same", u"same"),
                                  MakeObject<Item>(u"x", u"")};
    const ComPtr<View> first = MakeObject<View>();
    const ComPtr<View> second = MakeObject<View>();
    const ComPtr<View> third = MakeObject<View>();
    first->items = MakeArray(Object(items[0].get()), Object(items[1].get()));
    second->items = MakeArray(Object(items[2].get()), Object(items[3].get()));
    third->items = MakeArray(Object(items[4].get()));
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(first.get()), Object(second.get())), MakeArray(),
                                  MakeArray(Object(third.get())))),
              0);
    EXPECT_EQ(items[0]->linkedText, u"long");
    EXPECT_EQ(items[1]->linkedText, u"xyz");
    EXPECT_EQ(items[2]->linkedText, u"");
    EXPECT_EQ(items[3]->sets, 0);
    EXPECT_EQ(items[4]->linkedText, u"x");
}

TEST(LinkedTextArraysTest, AnObjectThatIsNoViewEndsThePass)
{
    const ComPtr<Stranger> stranger = MakeObject<Stranger>();
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(stranger.get())))), Code(0x80004003));
}

TEST(LinkedTextArraysTest, AnObjectThatIsNoItemEndsThePassBehindTheItemsBeforeIt)
{
    const ComPtr<Item> before = MakeObject<Item>(u"long", u"x");
    const ComPtr<Item> behind = MakeObject<Item>(u"long", u"x");
    const ComPtr<Stranger> stranger = MakeObject<Stranger>();
    const ComPtr<View> view = MakeObject<View>();
    view->items = MakeArray(Object(before.get()), Object(stranger.get()), Object(behind.get()));
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(view.get())))), Code(0x80004003));
    EXPECT_EQ(before->linkedText, u"long");
    EXPECT_EQ(behind->linkedText, u"x");
}

TEST(LinkedTextArraysTest, AnElementThatIsNoObjectEndsThePass)
{
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Variant::FromInt(7)))), Code(0x80004003));
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Variant()))), Code(0x80004003));
}

TEST(LinkedTextArraysTest, ATextThatCannotBeReadIsRaised)
{
    const ComPtr<Item> item = MakeObject<Item>(u"long", u"x");
    item->result = Code(0x80070005);
    const ComPtr<View> view = MakeObject<View>();
    view->items = MakeArray(Object(item.get()));
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(view.get())))), Code(0x80070005));
    EXPECT_EQ(item->sets, 0);
}

TEST(LinkedTextArraysTest, ADrawingWithoutViewsIsNoMatter)
{
    EXPECT_EQ(RaisedFor(MakeArray()), 0);
    EXPECT_EQ(RaisedFor(Variant()), 0);
}

TEST_F(LinkedTextTest, OnlyAConvertTaskHasThePass)
{
    machine.registry.PutNumber(kLocalMachineRoot, u"SOFTWARE\\Torvane\\Torvane 2013\\Setup",
                               u"Torvane Office Installed", 0);
    ConfigureAndStart(3);
    ASSERT_TRUE(manager.RegressionMode());
    FakeDocument& drawing = OpenDrawing();
    cad.Last().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(drawing.viewItems[0][0].linkedText, u"M6");
}

TEST_F(LinkedTextTest, APartHasNoSuchPass)
{
    StartInRegression();
    FakeDocument& part = cad.Last().Open(1, u"p");
    cad.Last().Write(part, u"C:\\Vault\\p.step");
    EXPECT_EQ(cad.Last().script.CountOf(u"GetUserPreferenceToggle"), 0);
    EXPECT_EQ(cad.Last().script.CountOf(u"GetViewArrays"), 0);
}

TEST_F(LinkedTextTest, ThePreferenceIsNumber347)
{
    StartInRegression();
    FakeDocument& drawing = OpenDrawing();
    cad.Last().Write(drawing, u"C:\\Vault\\d.pdf");
    const std::vector<std::u16string>& calls = cad.Last().script.Calls();
    EXPECT_NE(std::ranges::find(calls, u"GetUserPreferenceToggle(347)"), calls.end());
}

TEST_F(LinkedTextTest, APreferenceThatCannotBeReadIsRaised)
{
    StartInRegression();
    FakeDocument& drawing = OpenDrawing();
    cad.Last().script.OnEveryCall(u"GetUserPreferenceToggle").Fail(E_ACCESSDENIED);
    EXPECT_EQ(cad.Last().Write(drawing, u"C:\\Vault\\d.pdf"), std::vector<Result>{Code(0x80070005)});
    EXPECT_EQ(drawing.viewItems[0][0].linkedText, u"M6");
    EXPECT_TRUE(outputs.Outputs().empty());
}

TEST(LinkedTextArraysTest, EachPairOfTextsIsLinkedOrLeft)
{
    struct Row
    {
        std::u16string text;
        std::u16string linkedText;
        int sets;
    };
    const Row rows[] = {
        {u"", u"", 0},        {u"abc", u"abc", 0}, {u"abc", u"xyz", 0}, {u"abc", u"ABC", 0},  {u"abc", u"abcd", 1},
        {u"abcd", u"abc", 1}, {u"", u"old", 1},    {u"new", u"", 1},    {u"a b", u"a  b", 1},
    };
    for (const Row& row : rows) {
        const ComPtr<Item> item = MakeObject<Item>(row.text, row.linkedText);
        const ComPtr<View> view = MakeObject<View>();
        view->items = MakeArray(Object(item.get()));
        EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(view.get())))), 0);
        EXPECT_EQ(item->sets, row.sets) << testing::PrintToString(row.text);
        EXPECT_EQ(item->linkedText, row.sets == 0 ? row.linkedText : row.text);
    }
}

TEST(LinkedTextArraysTest, ArraysMayHoldPlainObjects)
{
    const ComPtr<Item> item = MakeObject<Item>(u"long", u"x");
    const ComPtr<View> view = MakeObject<View>();
    const auto plainArray = [](IUnknown* object) {
        SafeArray array = SafeArray::Vector(VT_UNKNOWN, 1);
        {
            const SafeArrayView<IUnknown*> places(array.get());
            places[0] = ComPtr<IUnknown>::Share(object).release();
        }
        return Variant::FromArray(array.release(), VT_UNKNOWN);
    };
    view->items = plainArray(item.get());
    EXPECT_EQ(RaisedFor(MakeArray(plainArray(view.get()))), 0);
    EXPECT_EQ(item->linkedText, u"long");
}

TEST(LinkedTextArraysTest, AnObjectThatIsMissingEndsThePass)
{
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(nullptr)))), Code(0x80004003));
    const ComPtr<View> view = MakeObject<View>();
    view->items = MakeArray(Object(nullptr));
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(view.get())))), Code(0x80004003));
}

TEST(LinkedTextArraysTest, ALinkedTextThatCannotBeReadOrSetIsRaised)
{
    const ComPtr<Item> item = MakeObject<Item>(u"long", u"x");
    const ComPtr<View> view = MakeObject<View>();
    view->items = MakeArray(Object(item.get()));
    item->linkedResult = Code(0x80070005);
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(view.get())))), Code(0x80070005));
    EXPECT_EQ(item->sets, 0);
    item->linkedResult = 0;
    item->setResult = Code(0x80010001);
    EXPECT_EQ(RaisedFor(MakeArray(MakeArray(Object(view.get())))), Code(0x80010001));
    EXPECT_EQ(item->sets, 1);
}

} // namespace tv
