#include "com/bstring.h"
#include "com/com_object.h"
#include "com/record_array.h"
#include "com/variant.h"
#include "system_under_test.h"

#include <vector>

namespace {

#pragma pack(push, 1)
struct Entry
{
    int16_t id;
    tv::BStr name;
    int32_t size;
    tv::BStr path;

    static const tv::RecordLayout kLayout;
};
#pragma pack(pop)
static_assert(sizeof(Entry) == 22);

constexpr uint32_t kEntryTexts[] = {2, 14};
const tv::RecordLayout Entry::kLayout = {tv::ParseGuid("7d1f7f3a-6b5d-4e0a-9d52-000000000010"), u"Entry", 22,
                                         kEntryTexts};

constexpr tv::RecordLayout kOtherLayout = {tv::ParseGuid("7d1f7f3a-6b5d-4e0a-9d52-000000000011"), u"Other", 4, {}};

Entry MakeEntry(int16_t id, std::u16string_view name)
{
    return {id, tv::AllocateText(name), 7, nullptr};
}

// A packed field may stand at any address, so it is compared by value and never by reference.
tv::BStr NameIn(const Entry& entry)
{
    return entry.name;
}

int IdIn(const Entry& entry)
{
    return entry.id;
}

tv::BStr NameOf(SAFEARRAY* array, size_t index)
{
    return NameIn(tv::SafeArrayView<Entry>(array)[index]);
}

TEST(RecordDescription, StatesIdNameAndSize)
{
    const tv::ComPtr<IRecordInfo> description = tv::DescribeRecord(Entry::kLayout);
    GUID id{};
    EXPECT_EQ(description->GetGuid(&id), 0);
    EXPECT_TRUE(id == Entry::kLayout.id);
    BSTR name = nullptr;
    EXPECT_EQ(description->GetName(&name), 0);
    EXPECT_EQ(tv::BString::Adopt(reinterpret_cast<tv::BStr>(name)).View(), u"Entry");
    ULONG size = 0;
    EXPECT_EQ(description->GetSize(&size), 0);
    EXPECT_EQ(size, 22u);
    EXPECT_EQ(description->GetSize(nullptr), E_INVALIDARG);
}

TEST(RecordDescription, OffersNoFieldByName)
{
    const tv::ComPtr<IRecordInfo> description = tv::DescribeRecord(Entry::kLayout);
    ULONG fields = 7;
    EXPECT_EQ(description->GetFieldNames(&fields, nullptr), 0);
    EXPECT_EQ(fields, 0u);
    Entry entry{};
    tv::Variant value;
    EXPECT_EQ(static_cast<uint32_t>(description->GetField(&entry, nullptr, value.get())), 0x80028017u);
}

TEST(RecordDescription, TwoOfOneIdMatch)
{
    const tv::ComPtr<IRecordInfo> one = tv::DescribeRecord(Entry::kLayout);
    const tv::ComPtr<IRecordInfo> same = tv::DescribeRecord(Entry::kLayout);
    const tv::ComPtr<IRecordInfo> other = tv::DescribeRecord(kOtherLayout);
    EXPECT_TRUE(one->IsMatchingType(same.get()));
    EXPECT_FALSE(one->IsMatchingType(other.get()));
    EXPECT_FALSE(one->IsMatchingType(nullptr));
}

TEST(RecordDescription, ClearingTwiceFreesOnce)
{
    const tv::ComPtr<IRecordInfo> description = tv::DescribeRecord(Entry::kLayout);
    Entry entry = MakeEntry(1, u"abc");
    EXPECT_EQ(description->RecordClear(&entry), 0);
    EXPECT_EQ(NameIn(entry), nullptr);
    EXPECT_EQ(description->RecordClear(&entry), 0);
    EXPECT_EQ(description->RecordClear(nullptr), E_INVALIDARG);
}

TEST(RecordDescription, ACopyReplacesAndOwnsItsTexts)
{
    const tv::ComPtr<IRecordInfo> description = tv::DescribeRecord(Entry::kLayout);
    Entry from = MakeEntry(1, u"new");
    Entry to = MakeEntry(2, u"old");
    ASSERT_EQ(description->RecordCopy(&from, &to), 0);
    EXPECT_EQ(IdIn(to), 1);
    EXPECT_EQ(tv::TextOf(to.name), u"new");
    EXPECT_NE(NameIn(to), NameIn(from));
    ASSERT_EQ(description->RecordCopy(&to, &to), 0);
    EXPECT_EQ(tv::TextOf(to.name), u"new");
    description->RecordClear(&from);
    description->RecordClear(&to);
}

TEST(RecordDescription, CreatesCopiesAndDestroysRecords)
{
    const tv::ComPtr<IRecordInfo> description = tv::DescribeRecord(Entry::kLayout);
    Entry from = MakeEntry(3, u"abc");
    PVOID copy = nullptr;
    ASSERT_EQ(description->RecordCreateCopy(&from, &copy), 0);
    EXPECT_EQ(tv::TextOf(static_cast<Entry*>(copy)->name), u"abc");
    EXPECT_EQ(description->RecordDestroy(copy), 0);
    PVOID fresh = description->RecordCreate();
    ASSERT_NE(fresh, nullptr);
    EXPECT_EQ(IdIn(*static_cast<Entry*>(fresh)), 0);
    EXPECT_EQ(description->RecordDestroy(fresh), 0);
    description->RecordClear(&from);
}

TEST(RecordArray, TakesOverTheTextsOfItsRecords)
{
    const Entry entries[] = {MakeEntry(1, u"one"), MakeEntry(2, u"two")};
    const tv::SafeArray array = tv::MakeRecordArray<Entry>(entries);
    const tv::SafeArrayView<Entry> view(array.get());
    ASSERT_EQ(view.size(), 2u);
    EXPECT_EQ(NameIn(view[0]), NameIn(entries[0]));
    EXPECT_EQ(IdIn(view[1]), 2);
    EXPECT_EQ(tv::TextOf(view[1].name), u"two");
}

TEST(RecordArray, KnowsItsRecord)
{
    const tv::SafeArray array = tv::MakeRecordArray(Entry::kLayout, 2);
    tv::ComPtr<IRecordInfo> description;
    ASSERT_EQ(SafeArrayGetRecordInfo(array.get(), description.put()), 0);
    EXPECT_TRUE(description->IsMatchingType(tv::DescribeRecord(Entry::kLayout).get()));
    VARTYPE type = 0;
    EXPECT_EQ(SafeArrayGetVartype(array.get(), &type), 0);
    EXPECT_EQ(type, VT_RECORD);
    EXPECT_EQ(SafeArrayGetElemsize(array.get()), 22u);
    EXPECT_EQ(NameOf(array.get(), 1), nullptr);
}

TEST(RecordArray, AnEmptyOneIsAnArrayToo)
{
    const tv::SafeArray array = tv::MakeRecordArray<Entry>({});
    ASSERT_TRUE(array);
    EXPECT_EQ(tv::SafeArrayView<Entry>(array.get()).size(), 0u);
}

TEST(RecordArray, ACopyOwnsTextsOfItsOwn)
{
    const Entry entries[] = {MakeEntry(1, u"one")};
    tv::SafeArray array = tv::MakeRecordArray<Entry>(entries);
    tv::SafeArray copy;
    ASSERT_EQ(SafeArrayCopy(array.get(), copy.put()), 0);
    EXPECT_NE(NameOf(copy.get(), 0), NameOf(array.get(), 0));
    array.reset();
    EXPECT_EQ(tv::TextOf(NameOf(copy.get(), 0)), u"one");
}

TEST(RecordArray, TravelsInAVariant)
{
    const Entry entries[] = {MakeEntry(1, u"one")};
    const tv::Variant value = tv::Variant::FromArray(tv::MakeRecordArray<Entry>(entries).release(), VT_RECORD);
    EXPECT_EQ(value.Type(), VT_ARRAY | VT_RECORD);
    const tv::Variant copy = value;
    EXPECT_NE(NameOf(copy.get()->parray, 0), NameOf(value.get()->parray, 0));
    EXPECT_EQ(tv::TextOf(NameOf(copy.get()->parray, 0)), u"one");
}

/// Counts what the owner of an array does to its records.
class CountingDescription final : public tv::ComObject<IRecordInfo>
{
  public:
    CountingDescription(int* clears, int* copies)
        : clearCount(clears), copyCount(copies), inner(tv::DescribeRecord(Entry::kLayout))
    {}
    HRESULT STDMETHODCALLTYPE RecordInit(PVOID r) override { return inner->RecordInit(r); }
    HRESULT STDMETHODCALLTYPE RecordClear(PVOID r) override
    {
        ++*clearCount;
        return inner->RecordClear(r);
    }
    HRESULT STDMETHODCALLTYPE RecordCopy(PVOID from, PVOID to) override
    {
        ++*copyCount;
        return inner->RecordCopy(from, to);
    }
    HRESULT STDMETHODCALLTYPE GetGuid(GUID* id) override { return inner->GetGuid(id); }
    HRESULT STDMETHODCALLTYPE GetName(BSTR* name) override { return inner->GetName(name); }
    HRESULT STDMETHODCALLTYPE GetSize(ULONG* size) override { return inner->GetSize(size); }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(ITypeInfo** info) override { return inner->GetTypeInfo(info); }
    HRESULT STDMETHODCALLTYPE GetField(PVOID, LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFieldNoCopy(PVOID, LPCOLESTR, VARIANT*, PVOID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutField(ULONG, PVOID, LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE PutFieldNoCopy(ULONG, PVOID, LPCOLESTR, VARIANT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetFieldNames(ULONG*, BSTR*) override { return E_NOTIMPL; }
    int STDMETHODCALLTYPE IsMatchingType(IRecordInfo* other) override { return inner->IsMatchingType(other); }
    PVOID STDMETHODCALLTYPE RecordCreate() override { return inner->RecordCreate(); }
    HRESULT STDMETHODCALLTYPE RecordCreateCopy(PVOID from, PVOID* to) override
    {
        return inner->RecordCreateCopy(from, to);
    }
    HRESULT STDMETHODCALLTYPE RecordDestroy(PVOID r) override { return inner->RecordDestroy(r); }

  private:
    int* clearCount;
    int* copyCount;
    tv::ComPtr<IRecordInfo> inner;
};

TEST(RecordArray, EveryRecordIsCopiedOnceAndClearedOnce)
{
    int clears = 0;
    int copies = 0;
    {
        const tv::ComPtr<IRecordInfo> description = tv::MakeObject<CountingDescription>(&clears, &copies);
        tv::SafeArray array = tv::SafeArray::Adopt(SafeArrayCreateVectorEx(VT_RECORD, 0, 3, description.get()));
        ASSERT_TRUE(array);
        tv::SafeArray copy;
        ASSERT_EQ(SafeArrayCopy(array.get(), copy.put()), 0);
        EXPECT_EQ(copies, 3);
        clears = 0;
        copy.reset();
        EXPECT_EQ(clears, 3);
        array.reset();
        EXPECT_EQ(clears, 6);
        description->AddRef();
        EXPECT_EQ(description->Release(), 1u);
    }
}

TEST(RecordArray, AHundredThousandRecordsAreMadeCopiedAndFreed)
{
    std::vector<Entry> entries;
    for (int i = 0; i < 100000; ++i) {
        entries.push_back(MakeEntry(static_cast<int16_t>(i % 1000), u"name"));
    }
    const tv::SafeArray array = tv::MakeRecordArray<Entry>(entries);
    tv::SafeArray copy;
    ASSERT_EQ(SafeArrayCopy(array.get(), copy.put()), 0);
    EXPECT_EQ(tv::TextOf(NameOf(copy.get(), 99999)), u"name");
}

} // namespace
