#include "com/record_array.h"

#include "com/bstring.h"
#include "com/com_object.h"

#include <cstring>

namespace tv {

namespace {

/// The description of one layout. It knows which bytes of a record are texts and nothing of the other fields, and so
/// offers no field by name.
class RecordDescription final : public ComObject<IRecordInfo>
{
  public:
    explicit RecordDescription(const RecordLayout& described) : layout(described) {}

    HRESULT STDMETHODCALLTYPE RecordInit(PVOID record) override
    {
        if (record == nullptr) {
            return E_INVALIDARG;
        }
        std::memset(record, 0, layout.size);
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE RecordClear(PVOID record) override
    {
        if (record == nullptr) {
            return E_INVALIDARG;
        }
        for (uint32_t offset : layout.textOffsets) {
            SysFreeString(TextAt(record, offset));
            SetTextAt(record, offset, nullptr);
        }
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE RecordCopy(PVOID from, PVOID to) override
    {
        if (from == nullptr || to == nullptr) {
            return E_INVALIDARG;
        }
        if (from == to) {
            return S_OK;
        }
        RecordClear(to);
        std::memcpy(to, from, layout.size);
        return OwnTexts(from, to);
    }

    HRESULT STDMETHODCALLTYPE GetGuid(GUID* id) override
    {
        if (id == nullptr) {
            return E_INVALIDARG;
        }
        *id = layout.id;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetName(BSTR* name) override
    {
        if (name == nullptr) {
            return E_INVALIDARG;
        }
        return AtBoundary([&] {
            *name = reinterpret_cast<BSTR>(AllocateText(layout.name));
            return S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE GetSize(ULONG* size) override
    {
        if (size == nullptr) {
            return E_INVALIDARG;
        }
        *size = layout.size;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE GetTypeInfo(ITypeInfo** info) override
    {
        if (info == nullptr) {
            return E_INVALIDARG;
        }
        *info = nullptr;
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE GetField(PVOID, LPCOLESTR, VARIANT*) override { return kFieldNotFound; }
    HRESULT STDMETHODCALLTYPE GetFieldNoCopy(PVOID, LPCOLESTR, VARIANT*, PVOID*) override { return kFieldNotFound; }
    HRESULT STDMETHODCALLTYPE PutField(ULONG, PVOID, LPCOLESTR, VARIANT*) override { return kFieldNotFound; }
    HRESULT STDMETHODCALLTYPE PutFieldNoCopy(ULONG, PVOID, LPCOLESTR, VARIANT*) override { return kFieldNotFound; }

    HRESULT STDMETHODCALLTYPE GetFieldNames(ULONG* count, BSTR*) override
    {
        if (count == nullptr) {
            return E_INVALIDARG;
        }
        *count = 0;
        return S_OK;
    }

    int STDMETHODCALLTYPE IsMatchingType(IRecordInfo* other) override
    {
        GUID id{};
        return other != nullptr && other->GetGuid(&id) >= 0 && id == layout.id ? 1 : 0;
    }

    PVOID STDMETHODCALLTYPE RecordCreate() override
    {
        PVOID record = CoTaskMemAlloc(layout.size);
        if (record != nullptr) {
            RecordInit(record);
        }
        return record;
    }

    HRESULT STDMETHODCALLTYPE RecordCreateCopy(PVOID source, PVOID* copy) override
    {
        if (source == nullptr || copy == nullptr) {
            return E_INVALIDARG;
        }
        *copy = nullptr;
        PVOID made = RecordCreate();
        if (made == nullptr) {
            return E_OUTOFMEMORY;
        }
        const HRESULT result = RecordCopy(source, made);
        if (result < 0) {
            RecordDestroy(made);
            return result;
        }
        *copy = made;
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE RecordDestroy(PVOID record) override
    {
        const HRESULT result = RecordClear(record);
        if (result >= 0) {
            CoTaskMemFree(record);
        }
        return result;
    }

  private:
    /// What the system's own descriptions answer for a name they don't know.
    static constexpr HRESULT kFieldNotFound = static_cast<HRESULT>(0x80028017u);

    // Records are packed, so a text in one may stand at any address.
    static BSTR TextAt(PVOID record, uint32_t offset)
    {
        BSTR text = nullptr;
        std::memcpy(&text, static_cast<const char*>(record) + offset, sizeof(text));
        return text;
    }

    static void SetTextAt(PVOID record, uint32_t offset, BSTR text)
    {
        std::memcpy(static_cast<char*>(record) + offset, &text, sizeof(text));
    }

    /// Gives `to`, a plain copy of `from`, texts of its own. On failure it holds no text that is `from`'s.
    HRESULT OwnTexts(PVOID from, PVOID to)
    {
        for (uint32_t offset : layout.textOffsets) {
            SetTextAt(to, offset, nullptr);
        }
        for (uint32_t offset : layout.textOffsets) {
            const BSTR text = TextAt(from, offset);
            if (text == nullptr) {
                continue;
            }
            const BSTR copy = SysAllocStringLen(text, SysStringLen(text));
            if (copy == nullptr) {
                return E_OUTOFMEMORY;
            }
            SetTextAt(to, offset, copy);
        }
        return S_OK;
    }

    const RecordLayout layout;
};

} // namespace

ComPtr<IRecordInfo> DescribeRecord(const RecordLayout& layout)
{
    return ComPtr<IRecordInfo>::Adopt(new RecordDescription(layout));
}

SafeArray MakeRecordArray(const RecordLayout& layout, uint32_t count)
{
    const ComPtr<IRecordInfo> description = DescribeRecord(layout);
    SAFEARRAY* made = SafeArrayCreateVectorEx(VT_RECORD, 0, count, description.get());
    if (made == nullptr) {
        throw ResultError(E_OUTOFMEMORY);
    }
    return SafeArray::Adopt(made);
}

} // namespace tv
