// Changes of kind, row by row. What the left column holds becomes the kind in the middle with the result on the right.
#include "com/bstring.h"
#include "com/com_object.h"
#include "com/result.h"
#include "com/variant.h"
#include "system_under_test.h"

#include <cmath>
#include <limits>

using tv::Variant;

namespace {

constexpr tv::Result kMismatch = static_cast<tv::Result>(0x80020005u);
constexpr tv::Result kOverflow = static_cast<tv::Result>(0x8002000Au);
constexpr tv::Result kBadType = static_cast<tv::Result>(0x80020008u);

struct DoubleToInt
{
    double from;
    tv::Result result;
    int32_t to;
};

constexpr DoubleToInt kDoubleToInt[] = {
    {0.5, 0, 0},
    {1.5, 0, 2},
    {2.5, 0, 2},
    {12.5, 0, 12},
    {13.5, 0, 14},
    {-0.5, 0, 0},
    {-1.5, 0, -2},
    {-2.5, 0, -2},
    {12.4999999, 0, 12},
    {2147483647.4, 0, 2147483647},
    {2147483647.5, kOverflow, 0},
    {-2147483648.5, 0, -2147483647 - 1},
    {-2147483648.6, kOverflow, 0},
    {1e300, kOverflow, 0},
};

TEST(ChangeType, ARealNumberBecomesAnIntegerByRoundingHalvesToEven)
{
    for (const DoubleToInt& row : kDoubleToInt) {
        Variant value = Variant::FromDouble(row.from);
        EXPECT_EQ(value.ChangeType(VT_I4), row.result) << row.from;
        if (row.result == 0) {
            EXPECT_EQ(value.get()->lVal, row.to) << row.from;
        }
    }
    EXPECT_EQ(Variant::FromFloat(12.5f).ToInt(), 12);
    EXPECT_EQ(Variant::FromFloat(13.5f).ToInt(), 14);
}

struct DoubleToText
{
    double from;
    std::u16string_view to;
};

constexpr DoubleToText kDoubleToText[] = {
    {0.1, u"0.1"},
    {0.2 + 0.1, u"0.3"},
    {100.0, u"100"},
    {-7.25, u"-7.25"},
    {1.0 / 3, u"0.333333333333333"},
    {123456789.123456789, u"123456789.123457"},
    {123456789012345.0, u"123456789012345"},
    {1e14, u"100000000000000"},
    {1e15, u"1E+15"},
    {1e16, u"1E+16"},
    {1e-4, u"0.0001"},
    {1e-5, u"1E-05"},
    {1.5e-7, u"1.5E-07"},
    {1e100, u"1E+100"},
    {-0.0, u"0"},
    {0.0, u"0"},
};

TEST(ChangeType, ADoubleIsWrittenWithFifteenDigits)
{
    for (const DoubleToText& row : kDoubleToText) {
        EXPECT_EQ(Variant::FromDouble(row.from).ToText(), row.to) << row.from;
    }
}

TEST(ChangeType, AFloatIsWrittenWithSevenDigitsAndWidenedAsItIs)
{
    EXPECT_EQ(Variant::FromFloat(0.1f).ToText(), u"0.1");
    EXPECT_EQ(Variant::FromFloat(12.5f).ToText(), u"12.5");
    EXPECT_EQ(Variant::FromFloat(16777216.0f).ToText(), u"1.677722E+07");
    EXPECT_EQ(Variant::FromFloat(0.1f).ToDouble(), 0.10000000149011612);
}

struct TextToNumber
{
    std::u16string_view from;
    tv::Result intResult;
    int32_t asInt;
    tv::Result doubleResult;
    double asDouble;
};

constexpr TextToNumber kTextToNumber[] = {
    {u"2", 0, 2, 0, 2},
    {u" 2 ", 0, 2, 0, 2},
    {u"\t2", 0, 2, 0, 2},
    {u"2.5", 0, 2, 0, 2.5},
    {u"3.5", 0, 4, 0, 3.5},
    {u".5", 0, 0, 0, 0.5},
    {u"5.", 0, 5, 0, 5},
    {u"-7", 0, -7, 0, -7},
    {u"+7", 0, 7, 0, 7},
    {u"- 7", 0, -7, 0, -7},
    {u"7-", 0, -7, 0, -7},
    {u"007", 0, 7, 0, 7},
    {u"1,000", 0, 1000, 0, 1000},
    {u"1,2,3", 0, 123, 0, 123},
    {u"12,5", 0, 125, 0, 125},
    {u"1.000,5", 0, 1, 0, 1.0005},
    {u"1e3", 0, 1000, 0, 1000},
    {u"1E3", 0, 1000, 0, 1000},
    {u"1e+3", 0, 1000, 0, 1000},
    {u"25e-1", 0, 2, 0, 2.5},
    {u"$5", 0, 5, 0, 5},
    {u"-$5", 0, -5, 0, -5},
    {u"(5)", 0, -5, 0, -5},
    {u"&H10", 0, 16, 0, 16},
    {u"&hff", 0, 255, 0, 255},
    {u"&O17", 0, 15, 0, 15},
    {u"-&H10", 0, 16, 0, 16},
    {u"&HFFFF", 0, 65535, 0, 65535},
    {u"&H80000000", 0, -2147483647 - 1, 0, -2147483648.0},
    {u"&H100000000", kOverflow, 0, kOverflow, 0},
    {u"(-5)", 0, -5, 0, -5},
    {u"-(5)", 0, -5, 0, -5},
    {u"5 -", 0, -5, 0, -5},
    {u"5$", 0, 5, 0, 5},
    {u"5,", 0, 5, 0, 5},
    {u"1e400", kOverflow, 0, kOverflow, 0},
    {u"1e-400", 0, 0, 0, 0},
    {u",5", kMismatch, 0, kMismatch, 0},
    {u"1 e3", kMismatch, 0, kMismatch, 0},
    {u"1d3", kMismatch, 0, kMismatch, 0},
    {u"&10", kMismatch, 0, kMismatch, 0},
    {u"2147483647", 0, 2147483647, 0, 2147483647},
    {u"-2147483648", 0, -2147483647 - 1, 0, -2147483648.0},
    {u"2147483648", kOverflow, 0, 0, 2147483648.0},
    {u"99999999999", kOverflow, 0, 0, 99999999999.0},
    {u"", kMismatch, 0, kMismatch, 0},
    {u" ", kMismatch, 0, kMismatch, 0},
    {u"-", kMismatch, 0, kMismatch, 0},
    {u"(5", kMismatch, 0, kMismatch, 0},
    {u"5)", kMismatch, 0, kMismatch, 0},
    {u"&H", kMismatch, 0, kMismatch, 0},
    {u"&HG", kMismatch, 0, kMismatch, 0},
    {u"abc", kMismatch, 0, kMismatch, 0},
    {u"2abc", kMismatch, 0, kMismatch, 0},
    {u"1 2", kMismatch, 0, kMismatch, 0},
    {u"1.2.3", kMismatch, 0, kMismatch, 0},
    {u"1e", kMismatch, 0, kMismatch, 0},
    {u"--7", kMismatch, 0, kMismatch, 0},
    {u"0x10", kMismatch, 0, kMismatch, 0},
    {u"5%", kMismatch, 0, kMismatch, 0},
    {u"True", kMismatch, 0, kMismatch, 0},
    {u"true", kMismatch, 0, kMismatch, 0},
    {u"#TRUE#", kMismatch, 0, kMismatch, 0},
};

TEST(ChangeType, TextIsReadAsANumberTheAmericanWay)
{
    for (const TextToNumber& row : kTextToNumber) {
        Variant asInt = Variant::FromText(row.from);
        EXPECT_EQ(asInt.ChangeType(VT_I4), row.intResult) << Narrow(row.from);
        if (row.intResult == 0) {
            EXPECT_EQ(asInt.get()->lVal, row.asInt) << Narrow(row.from);
        }
        Variant asDouble = Variant::FromText(row.from);
        EXPECT_EQ(asDouble.ChangeType(VT_R8), row.doubleResult) << Narrow(row.from);
        if (row.doubleResult == 0) {
            EXPECT_DOUBLE_EQ(asDouble.get()->dblVal, row.asDouble) << Narrow(row.from);
        }
    }
}

struct TextToBool
{
    std::u16string_view from;
    tv::Result result;
    int16_t to;
};

constexpr TextToBool kTextToBool[] = {
    {u"True", 0, -1},       {u"true", 0, -1},    {u"TRUE", 0, -1},        {u"FALSE", 0, 0},
    {u"False", 0, 0},       {u"#TRUE#", 0, -1},  {u"#FALSE#", 0, 0},      {u"1", 0, -1},
    {u"0", 0, 0},           {u"-1", 0, -1},      {u"2.5", 0, -1},         {u"0.4", 0, -1},
    {u"yes", kMismatch, 0}, {u"", kMismatch, 0}, {u"Wahr", kMismatch, 0}, {u" True", kMismatch, 0},
};

TEST(ChangeType, TextIsReadAsATruthValueByWordOrByNumber)
{
    for (const TextToBool& row : kTextToBool) {
        Variant value = Variant::FromText(row.from);
        EXPECT_EQ(value.ChangeType(VT_BOOL), row.result) << Narrow(row.from);
        if (row.result == 0) {
            EXPECT_EQ(value.get()->boolVal, row.to) << Narrow(row.from);
        }
    }
}

TEST(ChangeType, ATruthValueIsWrittenAsANumberUnlessWordsAreAskedFor)
{
    EXPECT_EQ(Variant::FromBool(true).ToText(), u"-1");
    EXPECT_EQ(Variant::FromBool(false).ToText(), u"0");
    for (bool truth : {true, false}) {
        Variant from = Variant::FromBool(truth);
        Variant words;
        ASSERT_EQ(VariantChangeType(words.get(), from.get(), VARIANT_ALPHABOOL, VT_BSTR), 0);
        EXPECT_EQ(words.ToText(), truth ? u"True" : u"False");
    }
}

TEST(ChangeType, ATruthValueIsMinusOneAndAllBitsOfAnUnsignedKind)
{
    EXPECT_EQ(Variant::FromBool(true).ToInt(), -1);
    EXPECT_EQ(Variant::FromBool(true).ToDouble(), -1.0);
    EXPECT_EQ(Variant::FromBool(false).ToInt(), 0);
    Variant byte = Variant::FromBool(true);
    ASSERT_EQ(byte.ChangeType(VT_UI1), 0);
    EXPECT_EQ(byte.get()->bVal, 255);
    Variant word = Variant::FromBool(true);
    ASSERT_EQ(word.ChangeType(VT_UI2), 0);
    EXPECT_EQ(word.get()->uiVal, 65535);
    Variant wide = Variant::FromBool(true);
    ASSERT_EQ(wide.ChangeType(VT_UI4), 0);
    EXPECT_EQ(wide.get()->ulVal, 4294967295u);
}

struct IntTo
{
    int32_t from;
    std::u16string_view text;
    bool truth;
    tv::Result shortResult;
    tv::Result byteResult;
};

constexpr IntTo kIntTo[] = {
    {0, u"0", false, 0, 0},
    {255, u"255", true, 0, 0},
    {300, u"300", true, 0, kOverflow},
    {-5, u"-5", true, 0, kOverflow},
    {70000, u"70000", true, kOverflow, kOverflow},
    {-2147483647 - 1, u"-2147483648", true, kOverflow, kOverflow},
};

TEST(ChangeType, AnIntegerFitsItsTargetOrOverflows)
{
    for (const IntTo& row : kIntTo) {
        EXPECT_EQ(Variant::FromInt(row.from).ToText(), row.text);
        EXPECT_EQ(Variant::FromInt(row.from).ToBool(), row.truth);
        EXPECT_EQ(Variant::FromInt(row.from).ChangeType(VT_I2), row.shortResult) << row.from;
        EXPECT_EQ(Variant::FromInt(row.from).ChangeType(VT_UI1), row.byteResult) << row.from;
        EXPECT_EQ(Variant::FromInt(row.from).ToDouble(), row.from);
    }
}

struct IntKind
{
    VARTYPE type;
    std::u16string_view highest;
    std::u16string_view tooHigh;
    std::u16string_view lowest;
    std::u16string_view tooLow;
};

constexpr IntKind kIntKinds[] = {
    {VT_I1, u"127", u"128", u"-128", u"-129"},
    {VT_UI1, u"255", u"256", u"0", u"-1"},
    {VT_I2, u"32767", u"32768", u"-32768", u"-32769"},
    {VT_UI2, u"65535", u"65536", u"0", u"-1"},
    {VT_I4, u"2147483647", u"2147483648", u"-2147483648", u"-2147483649"},
    {VT_UI4, u"4294967295", u"4294967296", u"0", u"-1"},
    {VT_INT, u"2147483647", u"2147483648", u"-2147483648", u"-2147483649"},
    {VT_UINT, u"4294967295", u"4294967296", u"0", u"-1"},
    {VT_I8, u"9223372036854775807", u"9223372036854775808", u"-9223372036854775808", u"-9223372036854775809"},
    {VT_UI8, u"18446744073709551615", u"18446744073709551616", u"0", u"-1"},
};

TEST(ChangeType, EveryIntegerKindReadsItsWholeRangeFromTextAndNothingBeyond)
{
    for (const IntKind& row : kIntKinds) {
        for (std::u16string_view inside : {row.highest, row.lowest}) {
            Variant value = Variant::FromText(inside);
            EXPECT_EQ(value.ChangeType(row.type), 0) << row.type << " " << Narrow(inside);
            EXPECT_EQ(value.Type(), row.type);
            EXPECT_EQ(Narrow(value.ToText()), Narrow(inside)) << row.type;
        }
        for (std::u16string_view outside : {row.tooHigh, row.tooLow}) {
            EXPECT_EQ(Variant::FromText(outside).ChangeType(row.type), kOverflow) << row.type << " " << Narrow(outside);
        }
    }
}

TEST(ChangeType, AnUnsignedNumberBeyondTheSignedRangeOverflows)
{
    Variant value;
    value.get()->vt = VT_UI4;
    value.get()->ulVal = 3000000000u;
    EXPECT_EQ(value.ToText(), u"3000000000");
    if (!RunsOnWine()) {
        // Wine keeps the bits and answers -1294967296.
        EXPECT_EQ(value.ChangeType(VT_I4), kOverflow);
    }
}

TEST(ChangeType, EmptyIsZeroFalseAndNoText)
{
    EXPECT_EQ(Variant().ToText(), u"");
    EXPECT_EQ(Variant().ToInt(), 0);
    EXPECT_EQ(Variant().ToDouble(), 0.0);
    EXPECT_FALSE(Variant().ToBool());
}

TEST(ChangeType, NullAndErrorAreNoValueOfAnyKind)
{
    for (VARTYPE type : {VT_NULL, VT_ERROR}) {
        for (VARTYPE wanted : {VT_I4, VT_R8, VT_BOOL, VT_BSTR, VT_DATE}) {
            Variant value;
            value.get()->vt = type;
            value.get()->scode = DISP_E_PARAMNOTFOUND;
            EXPECT_EQ(value.ChangeType(wanted), kMismatch) << type << " to " << wanted;
        }
    }
}

TEST(ChangeType, NoObjectHasNoDefaultValue)
{
    EXPECT_EQ(Variant::FromDispatch(nullptr).ChangeType(VT_BSTR), kBadType);
    EXPECT_EQ(Variant::FromDispatch(nullptr).ChangeType(VT_I4), kBadType);
    EXPECT_EQ(Variant::FromUnknown(nullptr).ChangeType(VT_I4), kMismatch);
}

TEST(ChangeType, AKindThatDoesNotExistIsRefused)
{
    EXPECT_EQ(Variant::FromInt(1).ChangeType(15), kBadType);
    EXPECT_EQ(Variant::FromInt(1).ChangeType(VT_VOID), kBadType);
}

/// An object whose default property is 12.5.
class TwelveAndAHalf final : public tv::ComObject<IDispatch>
{
  public:
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override
    {
        if (member != DISPID_VALUE) {
            return DISP_E_MEMBERNOTFOUND;
        }
        Variant::FromDouble(12.5).MoveTo(result);
        return S_OK;
    }
};

TEST(ChangeType, AnObjectStandsForItsDefaultProperty)
{
    const tv::ComPtr<IDispatch> object = tv::MakeObject<TwelveAndAHalf>();
    EXPECT_EQ(Variant::FromDispatch(object.get()).ToText(), u"12.5");
    EXPECT_EQ(Variant::FromDispatch(object.get()).ToInt(), 12);
    Variant from = Variant::FromDispatch(object.get());
    Variant to;
    EXPECT_EQ(VariantChangeType(to.get(), from.get(), VARIANT_NOVALUEPROP, VT_I4), kMismatch);
}

TEST(ChangeType, AnObjectBecomesAnotherKindOfObjectByAskingIt)
{
    const tv::ComPtr<IDispatch> object = tv::MakeObject<TwelveAndAHalf>();
    Variant value = Variant::FromDispatch(object.get());
    ASSERT_EQ(value.ChangeType(VT_UNKNOWN), 0);
    ASSERT_EQ(value.ChangeType(VT_DISPATCH), 0);
    EXPECT_EQ(value.get()->pdispVal, object.get());
}

TEST(ChangeType, CurrencyHasFourDecimals)
{
    Variant money;
    money.get()->vt = VT_CY;
    money.get()->cyVal.int64 = 125000;
    EXPECT_EQ(money.ToText(), u"12.5");
    EXPECT_EQ(money.ToInt(), 12);
    EXPECT_EQ(money.ToDouble(), 12.5);
    Variant read = Variant::FromText(u"-1,234.56785");
    ASSERT_EQ(read.ChangeType(VT_CY), 0);
    EXPECT_EQ(read.get()->cyVal.int64, -12345678);
    EXPECT_EQ(Variant::FromDouble(1e15).ChangeType(VT_CY), kOverflow);
}

TEST(ChangeType, ADateIsItsSerialNumber)
{
    EXPECT_EQ(Variant::FromDate(45000.75).ToDouble(), 45000.75);
    EXPECT_EQ(Variant::FromDate(45000.75).ToInt(), 45001);
    EXPECT_EQ(Variant::FromDate(45000.75).ToText(), u"3/15/2023 6:00:00 PM");
    Variant value = Variant::FromDouble(45000.5);
    ASSERT_EQ(value.ChangeType(VT_DATE), 0);
    EXPECT_EQ(value.get()->date, 45000.5);
}

TEST(ChangeType, ANumberOutsideOfTheCalendarIsNoDate)
{
    EXPECT_EQ(Variant::FromDouble(2958466.0).ChangeType(VT_DATE), kOverflow);
    EXPECT_EQ(Variant::FromDouble(-657435.0).ChangeType(VT_DATE), kOverflow);
    EXPECT_EQ(Variant::FromDouble(2958465.0).ChangeType(VT_DATE), 0);
    EXPECT_EQ(Variant::FromDouble(-657434.0).ChangeType(VT_DATE), 0);
}

struct TextToDate
{
    std::u16string_view from;
    tv::Result result;
    double to;
};

constexpr TextToDate kTextToDate[] = {
    {u"2023-03-15", 0, 45000},
    {u"3/15/2023", 0, 45000},
    {u"3-15-2023", 0, 45000},
    {u"15/3/2023", 0, 45000},
    {u"3/15/23", 0, 45000},
    {u"1/1/60", 0, 21916},
    {u"1/1/20", 0, 43831},
    {u"2023/3/15", 0, 45000},
    {u"2023-15-3", 0, 45000},
    {u"March 2023", 0, 44986},
    {u"3/2023", 0, 44986},
    {u"0:30 AM", 0, 0.5 / 24},
    {u"13:00 PM", 0, 13.0 / 24},
    {u"31/31/2023", kMismatch, 0},
    {u"6:00 p", kMismatch, 0},
    {u"45000", kMismatch, 0},
    {u"3/15/2023 6:00:00 PM", 0, 45000.75},
    {u"3/15/2023 18:00", 0, 45000.75},
    {u"6:00 PM 3/15/2023", 0, 45000.75},
    {u"March 15, 2023", 0, 45000},
    {u"15 March 2023", 0, 45000},
    {u"15-Mar-2023", 0, 45000},
    {u"12:00 AM", 0, 0},
    {u"12:00 PM", 0, 0.5},
    {u"6 PM", 0, 0.75},
    {u"18:30:00", 0, 18.5 / 24},
    {u"2/30/2023", kMismatch, 0},
    {u"25:00", kMismatch, 0},
    {u"15.03.2023", kMismatch, 0},
    {u"notadate", kMismatch, 0},
    {u"", kMismatch, 0},
};

TEST(ChangeType, TextIsReadAsADateTheAmericanWay)
{
    for (const TextToDate& row : kTextToDate) {
        Variant value = Variant::FromText(row.from);
        EXPECT_EQ(value.ChangeType(VT_DATE), row.result) << Narrow(row.from);
        if (row.result == 0) {
            EXPECT_NEAR(value.get()->date, row.to, 1e-9) << Narrow(row.from);
        }
    }
}

TEST(ChangeType, AnyValueCanBecomeEmptyOrNullButNullAndErrorCanNot)
{
    for (VARTYPE wanted : {VT_EMPTY, VT_NULL}) {
        EXPECT_EQ(Variant::FromInt(1).ChangeType(wanted), 0);
        EXPECT_EQ(Variant::FromText(u"abc").ChangeType(wanted), 0);
    }
    Variant null;
    null.get()->vt = VT_NULL;
    EXPECT_EQ(null.ChangeType(VT_EMPTY), kMismatch);
    EXPECT_EQ(Variant::FromInt(1).ChangeType(VT_ERROR), kMismatch);
    EXPECT_EQ(Variant::FromInt(1).ChangeType(VT_VARIANT), kMismatch);
    EXPECT_EQ(Variant::FromInt(1).ChangeType(VT_DISPATCH), kMismatch);
}

TEST(ChangeType, AReferenceIsFollowed)
{
    int32_t number = 42;
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_I4;
    reference.byref = &number;
    Variant text;
    ASSERT_EQ(VariantChangeType(text.get(), &reference, 0, VT_BSTR), 0);
    EXPECT_EQ(text.ToText(), u"42");
}

TEST(ChangeType, AnArrayIsNoSingleValue)
{
    Variant array = Variant::FromArray(SafeArrayCreateVector(VT_I4, 0, 2), VT_I4);
    EXPECT_EQ(array.ChangeType(VT_BSTR), kMismatch);
    EXPECT_EQ(array.Type(), VT_ARRAY | VT_I4);
    EXPECT_EQ(Variant::FromInt(1).ChangeType(VT_ARRAY | VT_I4), kMismatch);
}

TEST(ChangeType, AValueStaysAsItWasWhenItsChangeFails)
{
    Variant text = Variant::FromText(u"abc");
    EXPECT_EQ(text.ChangeType(VT_I4), kMismatch);
    EXPECT_EQ(text.ToText(), u"abc");
}

TEST(ChangeType, AnImpossibleReadIsRaised)
{
    EXPECT_THROW(Variant::FromText(u"abc").ToInt(), tv::ResultError);
}

} // namespace
