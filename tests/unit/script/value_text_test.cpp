#include "fakes/platform/fake_platform.h"
#include "script/variable_expansion.h"

#include <gtest/gtest.h>

#include <limits>

namespace tv {
namespace {

class ValueText : public testing::Test
{
  protected:
    std::u16string TextOfValue(const Variant& value) { return VariantToText(*value.get(), machine.module); }

    fakes::FakePlatform machine;
};

TEST_F(ValueText, WholeNumbersAreDecimal)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_I2;
    value.iVal = -12;
    EXPECT_EQ(VariantToText(value, machine.module), u"-12");
    value.vt = VT_UI1;
    value.bVal = 200;
    EXPECT_EQ(VariantToText(value, machine.module), u"200");
    EXPECT_EQ(TextOfValue(Variant::FromInt(std::numeric_limits<int32_t>::min())), u"-2147483648");
    EXPECT_EQ(TextOfValue(Variant::FromInt(0)), u"0");
}

TEST_F(ValueText, FloatsHaveSixDecimals)
{
    EXPECT_EQ(TextOfValue(Variant::FromFloat(0.5f)), u"0.500000");
    EXPECT_EQ(TextOfValue(Variant::FromDouble(-1234.25)), u"-1234.250000");
}

TEST_F(ValueText, FloatsAreRoundedAndNeverHaveAnExponent)
{
    EXPECT_EQ(TextOfValue(Variant::FromDouble(0.0000006)), u"0.000001");
    EXPECT_EQ(TextOfValue(Variant::FromDouble(1e15)), u"1000000000000000.000000");
    EXPECT_EQ(TextOfValue(Variant::FromDouble(0.0)), u"0.000000");
}

TEST_F(ValueText, EveryTruthValueButZeroIsTrue)
{
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BOOL;
    value.boolVal = 1;
    EXPECT_EQ(VariantToText(value, machine.module), u"True");
}

TEST_F(ValueText, TruthValuesAreWords)
{
    EXPECT_EQ(TextOfValue(Variant::FromBool(true)), u"True");
    EXPECT_EQ(TextOfValue(Variant::FromBool(false)), u"False");
}

TEST_F(ValueText, ATextIsItself)
{
    EXPECT_EQ(TextOfValue(Variant::FromText(u"a\r\nb")), u"a\r\nb");
    EXPECT_EQ(TextOfValue(Variant::FromText(u"")), u"");
}

TEST_F(ValueText, ADateHasTheLocalesForm)
{
    // 15 March 2023, 18:00
    EXPECT_EQ(TextOfValue(Variant::FromDate(45000.75)), u"3/15/2023 6:00:00 PM");
}

TEST_F(ValueText, ADateThatHasNoTextSaysSo)
{
    EXPECT_EQ(TextOfValue(Variant::FromDate(1e9)), u"Invalid DateTime");
    machine.module.AddString(55296, u"Kein Datum");
    EXPECT_EQ(TextOfValue(Variant::FromDate(1e9)), u"Kein Datum");
}

TEST_F(ValueText, AReferenceToAValueIsNoText)
{
    int32_t number = 5;
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BYREF | VT_I4;
    value.byref = &number;
    EXPECT_EQ(VariantToText(value, machine.module), u"");
}

TEST_F(ValueText, EverythingElseIsNoText)
{
    EXPECT_EQ(TextOfValue(Variant()), u"");
    for (const VARTYPE type : {VT_NULL, VT_I8, VT_UI4, VT_UI2, VT_INT, VT_ERROR}) {
        VARIANT value;
        VariantInit(&value);
        value.vt = type;
        value.llVal = 1;
        EXPECT_EQ(VariantToText(value, machine.module), u"") << type;
    }
}

} // namespace
} // namespace tv
