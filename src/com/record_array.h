// Arrays of fixed-size records, with the record description that tells a receiver their size and their texts.
#pragma once

#include "com/com_ptr.h"
#include "com/safe_array.h"

#include <span>
#include <string_view>
#include <type_traits>

namespace tv {

/// What the description of a record states: its id, its name, its size in bytes and the offsets of the texts (BStr) in
/// it, which are freed and copied with the record. All views must outlive the process's arrays, so they are constants.
struct RecordLayout
{
    GUID id;
    std::u16string_view name;
    uint32_t size;
    std::span<const uint32_t> textOffsets;
};

/// Returns the description object of a layout. Two descriptions of one id match each other.
ComPtr<IRecordInfo> DescribeRecord(const RecordLayout& layout);

/// Makes an array of `count` zeroed records from index 0. Raises E_OUTOFMEMORY.
SafeArray MakeRecordArray(const RecordLayout& layout, uint32_t count);

/// Makes an array with a copy of each record; a text in a record is taken over as it stands, not copied. The layout
/// stands with the record type as `Record::kLayout`.
template <typename Record>
SafeArray MakeRecordArray(std::span<const Record> records)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    SafeArray array = MakeRecordArray(Record::kLayout, static_cast<uint32_t>(records.size()));
    SafeArrayView<Record> view(array.get());
    for (size_t i = 0; i < records.size(); ++i) {
        view[i] = records[i];
    }
    return array;
}

} // namespace tv
