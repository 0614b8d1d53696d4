#include "com/guid.h"
#include "com/result.h"
#include "system_under_test.h"

#include <stdexcept>

namespace {

constexpr GUID kSample = tv::ParseGuid("0123abcd-4567-89ef-0a1b-2c3d4e5f6789");

TEST(Guid, IsReadFromTextAtCompileTime)
{
    static_assert(kSample.Data1 == 0x0123ABCD && kSample.Data2 == 0x4567 && kSample.Data3 == 0x89EF);
    static_assert(kSample.Data4[0] == 0x0A && kSample.Data4[1] == 0x1B && kSample.Data4[7] == 0x89);
    static_assert(tv::ParseGuid("0123ABCD-4567-89EF-0A1B-2C3D4E5F6789").Data1 == 0x0123ABCD);
    EXPECT_EQ(sizeof(GUID), 16u);
}

TEST(Guid, IsWrittenInBracesAndCapitals)
{
    EXPECT_EQ(tv::GuidText(kSample), u"{0123ABCD-4567-89EF-0A1B-2C3D4E5F6789}");
    EXPECT_EQ(tv::GuidText(GUID{}), u"{00000000-0000-0000-0000-000000000000}");
}

TEST(Guid, TheSystemsInterfacesHaveTheirKnownIds)
{
    EXPECT_EQ(tv::GuidText(tv::kInterfaceId<IUnknown>), u"{00000000-0000-0000-C000-000000000046}");
    EXPECT_EQ(tv::GuidText(tv::kInterfaceId<IDispatch>), u"{00020400-0000-0000-C000-000000000046}");
    EXPECT_EQ(tv::GuidText(tv::kInterfaceId<IRecordInfo>), u"{0000002F-0000-0000-C000-000000000046}");
    EXPECT_EQ(tv::GuidText(tv::kInterfaceId<IConnectionPoint>), u"{B196B286-BAB4-101A-B69C-00AA00341D07}");
    EXPECT_EQ(tv::GuidText(tv::kInterfaceId<IConnectionPointContainer>), u"{B196B284-BAB4-101A-B69C-00AA00341D07}");
#ifdef _WIN32
    EXPECT_TRUE(tv::kInterfaceId<IUnknown> == IID_IUnknown);
    EXPECT_TRUE(tv::kInterfaceId<IDispatch> == IID_IDispatch);
    EXPECT_TRUE(tv::kInterfaceId<IRecordInfo> == IID_IRecordInfo);
    EXPECT_TRUE(tv::kInterfaceId<IConnectionPoint> == IID_IConnectionPoint);
    EXPECT_TRUE(tv::kInterfaceId<IConnectionPointContainer> == IID_IConnectionPointContainer);
#endif
}

TEST(ResultCode, ASystemErrorNumberBecomesACodeAndZeroStaysZero)
{
    EXPECT_EQ(tv::ResultFromSystemError(0), 0);
    EXPECT_EQ(static_cast<uint32_t>(tv::ResultFromSystemError(5)), 0x80070005u);
    EXPECT_EQ(static_cast<uint32_t>(tv::ResultFromSystemError(1612)), 0x8007064Cu);
    EXPECT_EQ(static_cast<uint32_t>(tv::ResultFromSystemError(0x12345)), 0x80072345u);
}

TEST(ResultCode, OnlyANegativeCodeIsRaised)
{
    EXPECT_EQ(tv::ThrowIfFailed(0), 0);
    EXPECT_EQ(tv::ThrowIfFailed(1), 1);
    try {
        tv::ThrowIfFailed(E_FAIL);
        FAIL() << "a failure must be raised";
    } catch (const tv::ResultError& error) {
        EXPECT_EQ(error.Code(), E_FAIL);
        EXPECT_EQ(error.Text(), u"");
    }
}

TEST(Boundary, HandsBackTheResultOfItsBody)
{
    EXPECT_EQ(tv::AtBoundary([] { return 0; }), 0);
    EXPECT_EQ(tv::AtBoundary([] { return 1; }), 1);
}

TEST(Boundary, TurnsARaisedFailureIntoItsCode)
{
    EXPECT_EQ(tv::AtBoundary([]() -> tv::Result { throw tv::ResultError(E_ACCESSDENIED); }), E_ACCESSDENIED);
}

TEST(Boundary, TurnsExhaustedMemoryIntoItsCode)
{
    EXPECT_EQ(static_cast<uint32_t>(tv::AtBoundary([]() -> tv::Result { throw std::bad_alloc(); })), 0x8007000Eu);
}

TEST(Boundary, TurnsAnythingElseIntoUnexpected)
{
    EXPECT_EQ(static_cast<uint32_t>(tv::AtBoundary([]() -> tv::Result { throw std::runtime_error("x"); })),
              0x8000FFFFu);
    EXPECT_EQ(static_cast<uint32_t>(tv::AtBoundary([]() -> tv::Result { throw 7; })), 0x8000FFFFu);
}

struct CodeRow
{
    int64_t code;
    uint32_t value;
};

TEST(ResultCode, TheNamedCodesHaveTheSystemsValues)
{
    const CodeRow rows[] = {
        {E_UNEXPECTED, 0x8000FFFF},
        {E_NOTIMPL, 0x80004001},
        {E_NOINTERFACE, 0x80004002},
        {E_POINTER, 0x80004003},
        {E_ABORT, 0x80004004},
        {E_FAIL, 0x80004005},
        {E_ACCESSDENIED, 0x80070005},
        {E_OUTOFMEMORY, 0x8007000E},
        {E_INVALIDARG, 0x80070057},
        {DISP_E_UNKNOWNINTERFACE, 0x80020001},
        {DISP_E_MEMBERNOTFOUND, 0x80020003},
        {DISP_E_PARAMNOTFOUND, 0x80020004},
        {DISP_E_TYPEMISMATCH, 0x80020005},
        {DISP_E_UNKNOWNNAME, 0x80020006},
        {DISP_E_BADVARTYPE, 0x80020008},
        {DISP_E_EXCEPTION, 0x80020009},
        {DISP_E_OVERFLOW, 0x8002000A},
        {DISP_E_BADINDEX, 0x8002000B},
        {DISP_E_ARRAYISLOCKED, 0x8002000D},
        {DISP_E_BADPARAMCOUNT, 0x8002000E},
        {REGDB_E_CLASSNOTREG, 0x80040154},
        {CLASS_E_NOAGGREGATION, 0x80040110},
        {CLASS_E_CLASSNOTAVAILABLE, 0x80040111},
        {CO_E_CLASSSTRING, 0x800401F3},
        {CONNECT_E_NOCONNECTION, 0x80040200},
        {CONNECT_E_CANNOTCONNECT, 0x80040202},
    };
    for (const CodeRow& row : rows) {
        EXPECT_EQ(static_cast<uint32_t>(row.code), row.value);
        EXPECT_LT(row.code, 0);
    }
}

} // namespace
