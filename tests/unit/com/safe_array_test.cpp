#include "com/bstring.h"
#include "com/com_object.h"
#include "com/safe_array.h"
#include "com/variant.h"
#include "system_under_test.h"

using tv::SafeArray;
using tv::SafeArrayView;

namespace {

struct KindRow
{
    VARTYPE type;
    UINT size;
};

constexpr KindRow kKinds[] = {
    {VT_I1, 1},      {VT_UI1, 1},      {VT_I2, 2},  {VT_UI2, 2},  {VT_BOOL, 2},  {VT_I4, 4},       {VT_UI4, 4},
    {VT_R4, 4},      {VT_I8, 8},       {VT_UI8, 8}, {VT_R8, 8},   {VT_CY, 8},    {VT_DATE, 8},     {VT_BSTR, 8},
    {VT_UNKNOWN, 8}, {VT_DISPATCH, 8}, {VT_INT, 4}, {VT_UINT, 4}, {VT_ERROR, 4}, {VT_VARIANT, 24},
};

TEST(SafeArray, EveryKindHasItsSizeAndRemembersItsKind)
{
    for (const KindRow& row : kKinds) {
        const SafeArray array = SafeArray::Vector(row.type, 3);
        EXPECT_EQ(SafeArrayGetElemsize(array.get()), row.size) << row.type;
        EXPECT_EQ(SafeArrayGetDim(array.get()), 1u);
        VARTYPE type = 0;
        EXPECT_EQ(SafeArrayGetVartype(array.get(), &type), 0);
        EXPECT_EQ(type, row.type);
    }
}

TEST(SafeArray, AKindWithoutElementsIsRefused)
{
    for (VARTYPE type : {VT_EMPTY, VT_NULL, VT_VOID, VT_RECORD}) {
        EXPECT_THROW(SafeArray::Vector(type, 1), tv::ResultError) << type;
    }
}

TEST(SafeArray, KnowsItsBounds)
{
    const SafeArray array = SafeArray::Adopt(SafeArrayCreateVector(VT_I4, 5, 3));
    LONG lower = 0;
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetLBound(array.get(), 1, &lower), 0);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, &upper), 0);
    EXPECT_EQ(lower, 5);
    EXPECT_EQ(upper, 7);
    EXPECT_EQ(SafeArrayGetLBound(array.get(), 2, &lower), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 0, &upper), DISP_E_BADINDEX);
    EXPECT_EQ(SafeArrayGetLBound(nullptr, 1, &lower), E_INVALIDARG);
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, nullptr), E_INVALIDARG);
}

TEST(SafeArray, AnEmptyArrayEndsBeforeItBegins)
{
    const SafeArray array = SafeArray::Vector(VT_BSTR, 0);
    LONG upper = 0;
    EXPECT_EQ(SafeArrayGetUBound(array.get(), 1, &upper), 0);
    EXPECT_EQ(upper, -1);
    EXPECT_EQ(SafeArrayView<tv::BStr>(array.get()).size(), 0u);
}

TEST(SafeArray, ALockedArrayCanNotBeDestroyed)
{
    SafeArray array = SafeArray::Vector(VT_I4, 1);
    ASSERT_EQ(SafeArrayLock(array.get()), 0);
    EXPECT_EQ(SafeArrayDestroy(array.get()), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(SafeArrayUnlock(array.get()), 0);
    EXPECT_EQ(SafeArrayUnlock(array.get()), E_UNEXPECTED);
    EXPECT_EQ(SafeArrayLock(nullptr), E_INVALIDARG);
    EXPECT_EQ(SafeArrayDestroy(nullptr), 0);
}

TEST(SafeArray, ElementsAreCopiedInAndOut)
{
    const SafeArray array = SafeArray::Vector(VT_BSTR, 2);
    LONG index = 1;
    tv::BString text(u"abc");
    ASSERT_EQ(SafeArrayPutElement(array.get(), &index, text.get()), 0);
    ASSERT_EQ(SafeArrayPutElement(array.get(), &index, text.get()), 0);
    tv::BString read;
    ASSERT_EQ(SafeArrayGetElement(array.get(), &index, read.put()), 0);
    EXPECT_EQ(read.View(), u"abc");
    EXPECT_NE(read.get(), text.get());
    index = 2;
    EXPECT_EQ(SafeArrayPutElement(array.get(), &index, text.get()), DISP_E_BADINDEX);
    index = -1;
    EXPECT_EQ(SafeArrayGetElement(array.get(), &index, read.put()), DISP_E_BADINDEX);
}

TEST(SafeArray, VariantsInItAreDeepCopies)
{
    const SafeArray array = SafeArray::Vector(VT_VARIANT, 1);
    LONG index = 0;
    tv::Variant text = tv::Variant::FromText(u"abc");
    ASSERT_EQ(SafeArrayPutElement(array.get(), &index, text.get()), 0);
    tv::Variant read;
    ASSERT_EQ(SafeArrayGetElement(array.get(), &index, read.put()), 0);
    EXPECT_EQ(read.ToText(), u"abc");
    EXPECT_NE(read.get()->bstrVal, text.get()->bstrVal);
}

class Plain final : public tv::ComObject<IUnknown>
{};

ULONG CountOf(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

TEST(SafeArray, ObjectsInItAreCountedAndFreed)
{
    const tv::ComPtr<IUnknown> object = tv::MakeObject<Plain>();
    {
        const SafeArray array = SafeArray::Vector(VT_UNKNOWN, 2);
        LONG index = 0;
        ASSERT_EQ(SafeArrayPutElement(array.get(), &index, object.get()), 0);
        EXPECT_EQ(CountOf(object.get()), 2u);
        SafeArray copy;
        ASSERT_EQ(SafeArrayCopy(array.get(), copy.put()), 0);
        EXPECT_EQ(CountOf(object.get()), 3u);
    }
    EXPECT_EQ(CountOf(object.get()), 1u);
}

TEST(SafeArray, ACopyHasTheSameBoundsAndElementsOfItsOwn)
{
    const SafeArray array = SafeArray::Adopt(SafeArrayCreateVector(VT_BSTR, 3, 1));
    SafeArrayView<tv::BStr>(array.get())[0] = tv::AllocateText(u"abc");
    SafeArray copy;
    ASSERT_EQ(SafeArrayCopy(array.get(), copy.put()), 0);
    LONG lower = 0;
    EXPECT_EQ(SafeArrayGetLBound(copy.get(), 1, &lower), 0);
    EXPECT_EQ(lower, 3);
    EXPECT_EQ(tv::TextOf(SafeArrayView<tv::BStr>(copy.get())[0]), u"abc");
    EXPECT_NE(SafeArrayView<tv::BStr>(copy.get())[0], SafeArrayView<tv::BStr>(array.get())[0]);
}

TEST(SafeArrayView, ShowsTheElementsAndUnlocksBehindItself)
{
    const SafeArray array = SafeArray::Vector(VT_I4, 3);
    {
        const SafeArrayView<int32_t> view(array.get());
        ASSERT_EQ(view.size(), 3u);
        view[0] = 7;
        view[2] = 9;
        EXPECT_EQ(SafeArrayDestroy(array.get()), DISP_E_ARRAYISLOCKED);
    }
    int32_t sum = 0;
    for (int32_t element : SafeArrayView<int32_t>(array.get())) {
        sum += element;
    }
    EXPECT_EQ(sum, 16);
}

TEST(SafeArrayView, NoArrayShowsNothing)
{
    EXPECT_EQ(SafeArrayView<int32_t>(nullptr).size(), 0u);
}

TEST(SafeArrayView, ElementsOfAnotherSizeAreRefused)
{
    const SafeArray array = SafeArray::Vector(VT_I2, 3);
    try {
        SafeArrayView<int32_t> view(array.get());
        FAIL() << "two bytes are no four";
    } catch (const tv::ResultError& error) {
        EXPECT_EQ(error.Code(), DISP_E_TYPEMISMATCH);
    }
}

TEST(SafeArrayView, AnArrayThatCanNotBeLockedIsRaisedInWords)
{
    SafeArray array = SafeArray::Vector(VT_I4, 1);
    array.get()->cLocks = 0xFFFF;
    try {
        SafeArrayView<int32_t> view(array.get());
        FAIL() << "no further lock is possible";
    } catch (const tv::ResultError& error) {
        EXPECT_EQ(error.Code(), E_UNEXPECTED);
        EXPECT_EQ(error.Text(), u"Could not lock safe array.");
    }
    array.get()->cLocks = 0;
}

TEST(SafeArrayView, LockingNoArrayIsRaisedInWords)
{
    void* data = nullptr;
    try {
        tv::LockArray(nullptr, &data);
        FAIL() << "there is nothing to lock";
    } catch (const tv::ResultError& error) {
        EXPECT_EQ(error.Code(), E_INVALIDARG);
        EXPECT_EQ(error.Text(), u"Could not lock safe array.");
    }
}

} // namespace
