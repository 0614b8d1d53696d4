// Component types for systems that have none: the names, sizes and values of Windows' own. Included by com/base.h only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

using HRESULT = int32_t;
using SCODE = int32_t;
using ULONG = uint32_t;
using LONG = int32_t;
using UINT = uint32_t;
using USHORT = uint16_t;
using WORD = uint16_t;
using LCID = uint32_t;
using DISPID = int32_t;
using MEMBERID = DISPID;
using VARTYPE = uint16_t;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
using BSTR = OLECHAR*;
using VARIANT_BOOL = int16_t;
using DATE = double;
using PVOID = void*;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

#define STDMETHODCALLTYPE

struct GUID
{
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    uint8_t Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool operator==(const GUID& left, const GUID& right)
{
    return std::memcmp(&left, &right, sizeof(GUID)) == 0;
}

struct IUnknown
{
    virtual HRESULT QueryInterface(REFIID id, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;
};

enum VARENUM : uint16_t
{
    VT_EMPTY = 0,
    VT_NULL = 1,
    VT_I2 = 2,
    VT_I4 = 3,
    VT_R4 = 4,
    VT_R8 = 5,
    VT_CY = 6,
    VT_DATE = 7,
    VT_BSTR = 8,
    VT_DISPATCH = 9,
    VT_ERROR = 10,
    VT_BOOL = 11,
    VT_VARIANT = 12,
    VT_UNKNOWN = 13,
    VT_DECIMAL = 14,
    VT_I1 = 16,
    VT_UI1 = 17,
    VT_UI2 = 18,
    VT_UI4 = 19,
    VT_I8 = 20,
    VT_UI8 = 21,
    VT_INT = 22,
    VT_UINT = 23,
    VT_VOID = 24,
    VT_HRESULT = 25,
    VT_RECORD = 36,
    VT_ARRAY = 0x2000,
    VT_BYREF = 0x4000,
    VT_TYPEMASK = 0xfff
};

struct IDispatch;
struct IRecordInfo;
struct SAFEARRAY;
struct VARIANT;

union CY
{
    int64_t int64;
};

/// The system's variant: 24 bytes, the kind in the first two, the value at offset 8.
struct VARIANT
{
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union
    {
        int64_t llVal;
        uint64_t ullVal;
        int32_t lVal;
        uint32_t ulVal;
        int32_t intVal;
        uint32_t uintVal;
        int16_t iVal;
        uint16_t uiVal;
        int8_t cVal;
        uint8_t bVal;
        float fltVal;
        double dblVal;
        VARIANT_BOOL boolVal;
        SCODE scode;
        CY cyVal;
        DATE date;
        BSTR bstrVal;
        IUnknown* punkVal;
        IDispatch* pdispVal;
        SAFEARRAY* parray;
        void* byref;
        int16_t* piVal;
        int32_t* plVal;
        VARIANT_BOOL* pboolVal;
        BSTR* pbstrVal;
        VARIANT* pvarVal;
        SAFEARRAY** pparray;
        __extension__ struct
        {
            void* pvRecord;
            IRecordInfo* pRecInfo;
        };
    };
};
using VARIANTARG = VARIANT;
static_assert(sizeof(VARIANT) == 24 && offsetof(VARIANT, llVal) == 8);

struct SAFEARRAYBOUND
{
    ULONG cElements;
    LONG lLbound;
};

struct SAFEARRAY
{
    USHORT cDims;
    USHORT fFeatures;
    ULONG cbElements;
    ULONG cLocks;
    PVOID pvData;
    SAFEARRAYBOUND rgsabound[1];
};
static_assert(offsetof(SAFEARRAY, pvData) == 16 && offsetof(SAFEARRAY, rgsabound) == 24);

struct DISPPARAMS
{
    VARIANTARG* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

struct EXCEPINFO
{
    WORD wCode;
    WORD wReserved;
    BSTR bstrSource;
    BSTR bstrDescription;
    BSTR bstrHelpFile;
    ULONG dwHelpContext;
    PVOID pvReserved;
    HRESULT (*pfnDeferredFillIn)(EXCEPINFO*);
    SCODE scode;
};

struct ITypeInfo;

struct IDispatch : IUnknown
{
    virtual HRESULT GetTypeInfoCount(UINT* count) = 0;
    virtual HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) = 0;
    virtual HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) = 0;
    virtual HRESULT Invoke(DISPID member, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                           EXCEPINFO* exception, UINT* badArgument) = 0;
};

struct IRecordInfo : IUnknown
{
    virtual HRESULT RecordInit(PVOID record) = 0;
    virtual HRESULT RecordClear(PVOID record) = 0;
    virtual HRESULT RecordCopy(PVOID from, PVOID to) = 0;
    virtual HRESULT GetGuid(GUID* id) = 0;
    virtual HRESULT GetName(BSTR* name) = 0;
    virtual HRESULT GetSize(ULONG* size) = 0;
    virtual HRESULT GetTypeInfo(ITypeInfo** info) = 0;
    virtual HRESULT GetField(PVOID data, LPCOLESTR name, VARIANT* value) = 0;
    virtual HRESULT GetFieldNoCopy(PVOID data, LPCOLESTR name, VARIANT* value, PVOID* array) = 0;
    virtual HRESULT PutField(ULONG flags, PVOID data, LPCOLESTR name, VARIANT* value) = 0;
    virtual HRESULT PutFieldNoCopy(ULONG flags, PVOID data, LPCOLESTR name, VARIANT* value) = 0;
    virtual HRESULT GetFieldNames(ULONG* count, BSTR* names) = 0;
    virtual int32_t IsMatchingType(IRecordInfo* other) = 0;
    virtual PVOID RecordCreate() = 0;
    virtual HRESULT RecordCreateCopy(PVOID source, PVOID* copy) = 0;
    virtual HRESULT RecordDestroy(PVOID record) = 0;
};

struct IConnectionPoint;
struct IConnectionPointContainer;
struct IEnumConnectionPoints;
struct IEnumConnections;

struct IConnectionPointContainer : IUnknown
{
    virtual HRESULT EnumConnectionPoints(IEnumConnectionPoints** points) = 0;
    virtual HRESULT FindConnectionPoint(REFIID id, IConnectionPoint** point) = 0;
};

struct IConnectionPoint : IUnknown
{
    virtual HRESULT GetConnectionInterface(IID* id) = 0;
    virtual HRESULT GetConnectionPointContainer(IConnectionPointContainer** container) = 0;
    virtual HRESULT Advise(IUnknown* sink, uint32_t* cookie) = 0;
    virtual HRESULT Unadvise(uint32_t cookie) = 0;
    virtual HRESULT EnumConnections(IEnumConnections** connections) = 0;
};

inline constexpr WORD DISPATCH_METHOD = 1;
inline constexpr WORD DISPATCH_PROPERTYGET = 2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 8;
inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr DISPID DISPID_NEWENUM = -4;

inline constexpr USHORT FADF_STATIC = 0x2;
inline constexpr USHORT FADF_FIXEDSIZE = 0x10;
inline constexpr USHORT FADF_RECORD = 0x20;
inline constexpr USHORT FADF_HAVEIID = 0x40;
inline constexpr USHORT FADF_HAVEVARTYPE = 0x80;
inline constexpr USHORT FADF_BSTR = 0x100;
inline constexpr USHORT FADF_UNKNOWN = 0x200;
inline constexpr USHORT FADF_DISPATCH = 0x400;
inline constexpr USHORT FADF_VARIANT = 0x800;
inline constexpr USHORT FADF_CREATEVECTOR = 0x2000;

inline constexpr USHORT VARIANT_NOVALUEPROP = 1;
inline constexpr USHORT VARIANT_ALPHABOOL = 2;
inline constexpr LCID LOCALE_USER_DEFAULT = 0x400;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
#define TV_PORTABLE_RESULT(name, value) inline constexpr HRESULT name = static_cast<HRESULT>(value)
TV_PORTABLE_RESULT(E_UNEXPECTED, 0x8000FFFFu);
TV_PORTABLE_RESULT(E_NOTIMPL, 0x80004001u);
TV_PORTABLE_RESULT(E_NOINTERFACE, 0x80004002u);
TV_PORTABLE_RESULT(E_POINTER, 0x80004003u);
TV_PORTABLE_RESULT(E_ABORT, 0x80004004u);
TV_PORTABLE_RESULT(E_FAIL, 0x80004005u);
TV_PORTABLE_RESULT(E_ACCESSDENIED, 0x80070005u);
TV_PORTABLE_RESULT(E_OUTOFMEMORY, 0x8007000Eu);
TV_PORTABLE_RESULT(E_INVALIDARG, 0x80070057u);
TV_PORTABLE_RESULT(DISP_E_UNKNOWNINTERFACE, 0x80020001u);
TV_PORTABLE_RESULT(DISP_E_MEMBERNOTFOUND, 0x80020003u);
TV_PORTABLE_RESULT(DISP_E_PARAMNOTFOUND, 0x80020004u);
TV_PORTABLE_RESULT(DISP_E_TYPEMISMATCH, 0x80020005u);
TV_PORTABLE_RESULT(DISP_E_UNKNOWNNAME, 0x80020006u);
TV_PORTABLE_RESULT(DISP_E_BADVARTYPE, 0x80020008u);
TV_PORTABLE_RESULT(DISP_E_EXCEPTION, 0x80020009u);
TV_PORTABLE_RESULT(DISP_E_OVERFLOW, 0x8002000Au);
TV_PORTABLE_RESULT(DISP_E_BADINDEX, 0x8002000Bu);
TV_PORTABLE_RESULT(DISP_E_ARRAYISLOCKED, 0x8002000Du);
TV_PORTABLE_RESULT(DISP_E_BADPARAMCOUNT, 0x8002000Eu);
TV_PORTABLE_RESULT(REGDB_E_CLASSNOTREG, 0x80040154u);
TV_PORTABLE_RESULT(CLASS_E_NOAGGREGATION, 0x80040110u);
TV_PORTABLE_RESULT(CLASS_E_CLASSNOTAVAILABLE, 0x80040111u);
TV_PORTABLE_RESULT(CO_E_CLASSSTRING, 0x800401F3u);
TV_PORTABLE_RESULT(CONNECT_E_NOCONNECTION, 0x80040200u);
TV_PORTABLE_RESULT(CONNECT_E_CANNOTCONNECT, 0x80040202u);
#undef TV_PORTABLE_RESULT

#define SUCCEEDED(result) ((static_cast<HRESULT>(result)) >= 0)
#define FAILED(result) ((static_cast<HRESULT>(result)) < 0)

BSTR SysAllocString(const OLECHAR* text);
BSTR SysAllocStringLen(const OLECHAR* text, UINT length);
void SysFreeString(BSTR text);
UINT SysStringLen(BSTR text);

void* CoTaskMemAlloc(size_t size);
void CoTaskMemFree(void* memory);

void VariantInit(VARIANT* value);
HRESULT VariantClear(VARIANT* value);
HRESULT VariantCopy(VARIANT* to, const VARIANT* from);
HRESULT VariantCopyInd(VARIANT* to, const VARIANT* from);
HRESULT VariantChangeType(VARIANT* to, const VARIANT* from, USHORT flags, VARTYPE type);
HRESULT VarBstrFromDate(DATE date, LCID locale, ULONG flags, BSTR* text);

SAFEARRAY* SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG count);
SAFEARRAY* SafeArrayCreateVectorEx(VARTYPE type, LONG lowerBound, ULONG count, PVOID extra);
HRESULT SafeArrayDestroy(SAFEARRAY* array);
HRESULT SafeArrayCopy(SAFEARRAY* array, SAFEARRAY** copy);
HRESULT SafeArrayLock(SAFEARRAY* array);
HRESULT SafeArrayUnlock(SAFEARRAY* array);
HRESULT SafeArrayAccessData(SAFEARRAY* array, void** data);
HRESULT SafeArrayUnaccessData(SAFEARRAY* array);
UINT SafeArrayGetDim(SAFEARRAY* array);
UINT SafeArrayGetElemsize(SAFEARRAY* array);
HRESULT SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* bound);
HRESULT SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* type);
HRESULT SafeArrayGetRecordInfo(SAFEARRAY* array, IRecordInfo** info);
HRESULT SafeArrayGetElement(SAFEARRAY* array, LONG* index, void* element);
HRESULT SafeArrayPutElement(SAFEARRAY* array, LONG* index, void* element);
