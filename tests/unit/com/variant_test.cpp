#include "com/com_object.h"
#include "com/safe_array.h"
#include "com/variant.h"
#include "system_under_test.h"

using tv::Variant;

namespace {

class Plain final : public tv::ComObject<IUnknown>
{};

ULONG CountOf(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

TEST(Variant, IsLaidOutAsTheSystemsOwn)
{
    EXPECT_EQ(sizeof(VARIANT), 24u);
    EXPECT_EQ(offsetof(VARIANT, llVal), 8u);
    EXPECT_EQ(sizeof(SAFEARRAY), 32u);
    EXPECT_EQ(offsetof(SAFEARRAY, rgsabound), 24u);
}

TEST(Variant, RemembersTheKindThatItWasMadeOf)
{
    EXPECT_EQ(Variant().Type(), VT_EMPTY);
    EXPECT_TRUE(Variant().IsEmpty());
    EXPECT_EQ(Variant::FromInt(1).Type(), VT_I4);
    EXPECT_EQ(Variant::FromFloat(1).Type(), VT_R4);
    EXPECT_EQ(Variant::FromDouble(1).Type(), VT_R8);
    EXPECT_EQ(Variant::FromDate(1).Type(), VT_DATE);
    EXPECT_EQ(Variant::FromBool(true).Type(), VT_BOOL);
    EXPECT_EQ(Variant::FromBool(true).get()->boolVal, -1);
    EXPECT_EQ(Variant::FromText(u"x").Type(), VT_BSTR);
    EXPECT_EQ(Variant::FromUnknown(nullptr).Type(), VT_UNKNOWN);
    EXPECT_EQ(Variant::FromDispatch(nullptr).Type(), VT_DISPATCH);
}

TEST(Variant, ACopyOfATextIsATextOfItsOwn)
{
    const Variant text = Variant::FromText(u"abc");
    const Variant copy = text;
    EXPECT_NE(copy.get()->bstrVal, text.get()->bstrVal);
    EXPECT_EQ(copy.ToText(), u"abc");
}

TEST(Variant, ACopyOfAnObjectCountsIt)
{
    const tv::ComPtr<IUnknown> object = tv::MakeObject<Plain>();
    {
        const Variant value = Variant::FromUnknown(object.get());
        EXPECT_EQ(CountOf(object.get()), 2u);
        const Variant copy = value;
        EXPECT_EQ(CountOf(object.get()), 3u);
    }
    EXPECT_EQ(CountOf(object.get()), 1u);
}

TEST(Variant, ACopyOfAnArrayIsAnArrayOfItsOwn)
{
    const Variant value = Variant::FromArray(tv::SafeArray::Vector(VT_BSTR, 2).release(), VT_BSTR);
    tv::SafeArrayView<tv::BStr>(value.get()->parray)[1] = tv::AllocateText(u"abc");
    const Variant copy = value;
    ASSERT_NE(copy.get()->parray, value.get()->parray);
    EXPECT_EQ(tv::TextOf(tv::SafeArrayView<tv::BStr>(copy.get()->parray)[1]), u"abc");
}

TEST(Variant, AMoveLeavesEmptinessBehind)
{
    Variant text = Variant::FromText(u"abc");
    const Variant moved = std::move(text);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(moved.ToText(), u"abc");
}

TEST(Variant, IsHandedOverToAPlaceOfTheReceiver)
{
    Variant text = Variant::FromText(u"abc");
    VARIANT place;
    text.MoveTo(&place);
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(place.vt, VT_BSTR);
    EXPECT_EQ(VariantClear(&place), 0);
    EXPECT_EQ(place.vt, VT_EMPTY);
}

TEST(Variant, ReceivesAValueInItsPlace)
{
    Variant value = Variant::FromText(u"old");
    Variant::FromInt(5).MoveTo(value.put());
    EXPECT_EQ(value.ToInt(), 5);
}

TEST(Variant, CopyingFollowsAReference)
{
    tv::BString text(u"abc");
    BSTR borrowed = reinterpret_cast<BSTR>(text.get());
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &borrowed;
    const Variant copy = Variant::Copy(reference);
    EXPECT_EQ(copy.Type(), VT_BSTR);
    EXPECT_EQ(copy.ToText(), u"abc");
    EXPECT_NE(copy.get()->bstrVal, borrowed);
}

TEST(Variant, CopyingFollowsAReferenceToAVariant)
{
    Variant inner = Variant::FromText(u"abc");
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = inner.get();
    EXPECT_EQ(Variant::Copy(reference).ToText(), u"abc");
}

TEST(Variant, AReferenceOwnsNothing)
{
    int32_t number = 7;
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_I4;
    reference.byref = &number;
    Variant copy;
    EXPECT_EQ(VariantCopy(copy.get(), &reference), 0);
    EXPECT_EQ(copy.Type(), VT_BYREF | VT_I4);
    EXPECT_EQ(VariantClear(&reference), 0);
    EXPECT_EQ(number, 7);
}

TEST(Variant, AKindThatDoesNotExistCanNotBeCleared)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = 15;
    EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE);
}

TEST(Variant, AnAssignmentToItselfKeepsTheValue)
{
    Variant text = Variant::FromText(u"abc");
    const Variant& same = text;
    text = same;
    EXPECT_EQ(text.ToText(), u"abc");
}

TEST(Variant, AnEmbeddedZeroSurvivesTheCopy)
{
    using namespace std::string_view_literals;
    const Variant text = Variant::FromText(u"a\0b"sv);
    const Variant copy = text;
    EXPECT_EQ(copy.ToText(), u"a\0b"sv);
}

} // namespace
