#include "macro/file_records.h"

#include "macro/convert.h"
#include "macro/text.h"

#include <cstring>

namespace tv::macro {

namespace {

template <typename Number> std::string Raw(Number number)
{
    char bytes[sizeof number];
    std::memcpy(bytes, &number, sizeof number);
    return std::string(bytes, sizeof number);
}

template <typename Number> Number FromRaw(const TakeBytes& take)
{
    std::string bytes = take(sizeof(Number));
    bytes.resize(sizeof(Number), '\0');
    Number number;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

std::string WithLength(const std::string& bytes)
{
    constexpr size_t kLongest = 0xFFFF;
    if (bytes.size() > kLongest) {
        Raise(kInvalidCall);
    }
    return Raw(static_cast<uint16_t>(bytes.size())) + bytes;
}

std::string NumberBytes(const Value& value)
{
    switch (value.Kind()) {
    case Type::Byte:
        return Raw(static_cast<uint8_t>(value.Whole()));
    case Type::Integer:
        return Raw(static_cast<int16_t>(value.Whole()));
    case Type::Boolean:
        return Raw(static_cast<int16_t>(value.Truth() ? -1 : 0));
    case Type::Long:
    case Type::Error:
        return Raw(static_cast<int32_t>(value.Whole()));
    case Type::LongLong:
    case Type::Currency:
        return Raw(value.Whole());
    case Type::Single:
        return Raw(static_cast<float>(value.Number()));
    case Type::Double:
    case Type::Date:
        return Raw(value.Number());
    case Type::Empty:
    case Type::Null:
        return {};
    default:
        Raise(kTypeNotSupported);
    }
}

Value NumberFrom(Type type, const TakeBytes& take)
{
    switch (type) {
    case Type::Byte:
        return Value::FromByte(FromRaw<uint8_t>(take));
    case Type::Integer:
        return Value(FromRaw<int16_t>(take));
    case Type::Boolean:
        return Value(FromRaw<int16_t>(take) != 0);
    case Type::Long:
        return Value(FromRaw<int32_t>(take));
    case Type::Error:
        return Value::FromError(FromRaw<int32_t>(take));
    case Type::LongLong:
        return Value(FromRaw<int64_t>(take));
    case Type::Currency:
        return Value::FromCurrency(FromRaw<int64_t>(take));
    case Type::Single:
        return Value(FromRaw<float>(take));
    case Type::Double:
        return Value(FromRaw<double>(take));
    case Type::Date:
        return Value::FromDate(FromRaw<double>(take));
    case Type::Empty:
        return Value();
    case Type::Null:
        return Value::Null();
    default:
        Raise(kTypeNotSupported);
    }
}

std::string ArrayBytes(const Array& array, bool inRecords)
{
    std::string bytes;
    if (inRecords && !array.isFixed) {
        bytes += Raw(static_cast<uint16_t>(array.dimensions.size()));
        for (const Dimension& dimension : array.dimensions) {
            bytes += Raw(dimension.count) + Raw(dimension.lower);
        }
    }
    for (const Value& item : array.items) {
        bytes += ToRecordBytes(item, array.StoredType(), inRecords);
    }
    return bytes;
}

Ref<Array> ArrayFrom(const Array& present, bool inRecords, const TakeBytes& take)
{
    Ref<Array> filled = present.Clone();
    if (inRecords && !present.isFixed) {
        constexpr uint16_t kMostDimensions = 60;
        constexpr int32_t kMostElements = 0xFFFF;
        uint16_t count = FromRaw<uint16_t>(take);
        if (count > kMostDimensions) {
            Raise(kBadRecordLength);
        }
        std::vector<Dimension> dimensions;
        for (uint16_t i = 0; i < count; ++i) {
            Dimension dimension;
            dimension.count = FromRaw<int32_t>(take);
            dimension.lower = FromRaw<int32_t>(take);
            if (dimension.count < 0 || dimension.count > kMostElements) {
                Raise(kBadRecordLength);
            }
            dimensions.push_back(dimension);
        }
        filled = MakeRef<Array>(present.elementType, std::move(dimensions), present.initialValue);
        filled->hasFixedTexts = present.hasFixedTexts;
    }
    for (Value& item : filled->items) {
        item = FromRecordBytes(item, filled->StoredType(), inRecords, take);
    }
    return filled;
}

} // namespace

std::string ToRecordBytes(const Value& value, Type stored, bool inRecords)
{
    switch (stored) {
    case Type::Variant: {
        std::string kind = Raw(static_cast<uint16_t>(value.Kind()));
        return kind + (value.IsString() ? WithLength(ToNarrow(value.Text())) : NumberBytes(value));
    }
    case Type::FixedText:
        return ToNarrow(value.Text());
    case Type::String:
        return inRecords ? WithLength(ToNarrow(value.ToText())) : ToNarrow(value.ToText());
    case Type::Record: {
        const Record& record = *value.RecordPointer();
        std::string bytes;
        for (size_t i = 0; i < record.fields.size(); ++i) {
            Type field = record.fieldTypes[i];
            bytes += ToRecordBytes(record.fields[i], field, true);
        }
        return bytes;
    }
    case Type::Array:
        return ArrayBytes(*value.ArrayPointer(), inRecords);
    default:
        return NumberBytes(value);
    }
}

Value FromRecordBytes(const Value& present, Type stored, bool inRecords, const TakeBytes& take)
{
    switch (stored) {
    case Type::Variant: {
        Type kind = static_cast<Type>(FromRaw<uint16_t>(take));
        return kind == Type::String ? Value(FromNarrow(take(FromRaw<uint16_t>(take)))) : NumberFrom(kind, take);
    }
    case Type::FixedText:
        return Value(FromNarrow(take(present.Text().size())));
    case Type::String: {
        size_t length = inRecords ? FromRaw<uint16_t>(take) : present.Text().size();
        return Value(FromNarrow(take(length)));
    }
    case Type::Record: {
        Ref<Record> filled = present.RecordPointer()->Clone();
        for (size_t i = 0; i < filled->fields.size(); ++i) {
            filled->fields[i] = FromRecordBytes(filled->fields[i], filled->fieldTypes[i], true, take);
        }
        return Value(filled);
    }
    case Type::Array:
        return Value(ArrayFrom(*present.ArrayPointer(), inRecords, take));
    default:
        return NumberFrom(stored, take);
    }
}

} // namespace tv::macro
