#include "macro/value.h"

#include "macro/convert.h"
#include "macro/long_work.h"
#include "macro/object.h"

#include <algorithm>
#include <limits>

namespace tv::macro {

namespace {

constexpr int32_t kParameterNotFound = static_cast<int32_t>(0x80020004);

// Plain numbers without destructors, so that nothing has to run when a thread ends.
thread_local uint64_t liveBytes = 0;
thread_local uint64_t byteLimit = std::numeric_limits<uint64_t>::max();

thread_local int destroyDepth = 0;
thread_local const RefCounted* waiting = nullptr;

size_t ElementCount(const std::vector<Dimension>& bounds)
{
    uint64_t count = bounds.empty() ? 0 : 1;
    for (const Dimension& dimension : bounds) {
        count *= static_cast<uint64_t>(dimension.count);
        if (count > std::numeric_limits<uint32_t>::max()) {
            Raise(kOutOfMemory);
        }
    }
    return static_cast<size_t>(count);
}

} // namespace

void RefCounted::Destroy(const RefCounted* object)
{
    constexpr int kMostNested = 50;
    if (destroyDepth >= kMostNested) {
        object->nextToDestroy = waiting;
        waiting = object;
        return;
    }
    ++destroyDepth;
    delete object;
    --destroyDepth;
    while (destroyDepth == 0 && waiting != nullptr) {
        const RefCounted* next = waiting;
        waiting = next->nextToDestroy;
        ++destroyDepth;
        delete next;
        --destroyDepth;
    }
}

MemoryBudget::MemoryBudget(uint64_t bytes) : previousLimit(byteLimit)
{
    byteLimit = liveBytes + bytes;
}
MemoryBudget::~MemoryBudget()
{
    byteLimit = previousLimit;
}

void MemoryBudget::Check(uint64_t bytes)
{
    if (bytes > byteLimit || liveBytes > byteLimit - bytes) {
        Raise(kOutOfMemory);
    }
}

void MemoryBudget::Charge(size_t bytes)
{
    Check(bytes);
    liveBytes += bytes;
}

void MemoryBudget::Credit(size_t bytes)
{
    liveBytes -= bytes;
}

StringBox::StringBox(std::u16string characters)
    : text(std::move(characters)), charged(sizeof(StringBox) + text.capacity() * sizeof(char16_t))
{
    MemoryBudget::Charge(charged);
}

StringBox::~StringBox()
{
    MemoryBudget::Credit(charged);
}

void StringBox::Append(std::u16string_view more)
{
    size_t needed = text.size() + more.size();
    if (needed > text.capacity()) {
        size_t wanted = std::max(needed, 2 * text.capacity());
        MemoryBudget::Check(wanted * sizeof(char16_t));
        size_t before = text.capacity();
        text.reserve(wanted);
        size_t growth = (text.capacity() - before) * sizeof(char16_t);
        MemoryBudget::Charge(growth);
        charged += growth;
    }
    text.append(more);
}

Array::Array(Type elements, std::vector<Dimension> bounds, const Value& initial)
    : elementType(elements), dimensions(std::move(bounds)), initialValue(initial)
{
    constexpr size_t kPart = 1 << 16;
    size_t count = ElementCount(dimensions);
    charged = count * sizeof(Value);
    MemoryBudget::Check(charged);
    items.reserve(count);
    while (items.size() < count) {
        items.resize(std::min(count, items.size() + kPart), initial);
        LongWork::Did(kPart);
    }
    if (initial.Kind() == Type::Record) {
        for (Value& item : items) {
            item = Value(initial.RecordPointer()->Clone());
            LongWork::Did(100);
        }
    }
    // Nothing fails from here on, so the destructor gives back what is taken.
    MemoryBudget::Charge(charged);
}

Array::~Array()
{
    MemoryBudget::Credit(charged);
}

Ref<Array> Array::FromValues(std::vector<Value> values)
{
    Ref<Array> array =
        MakeRef<Array>(Type::Variant, std::vector<Dimension>{Dimension{0, static_cast<int32_t>(values.size())}});
    array->items = std::move(values);
    return array;
}

Ref<Array> Array::FromTexts(const std::vector<std::u16string>& texts)
{
    std::vector<Value> values(texts.begin(), texts.end());
    Ref<Array> array = FromValues(std::move(values));
    array->elementType = Type::String;
    array->initialValue = Value(u"");
    return array;
}

Value& Array::At(std::span<const Value> indices)
{
    if (indices.size() != dimensions.size()) {
        Raise(kSubscriptOutOfRange);
    }
    // The first index moves fastest.
    size_t position = 0;
    for (size_t i = indices.size(); i-- > 0;) {
        const Dimension& dimension = dimensions[i];
        const Value& index = indices[i];
        bool isWhole = index.Kind() == Type::Integer || index.Kind() == Type::Long;
        int64_t offset = (isWhole ? index.Whole() : int64_t{index.ToLong()}) - dimension.lower;
        if (offset < 0 || offset >= dimension.count) {
            Raise(kSubscriptOutOfRange);
        }
        position = position * static_cast<size_t>(dimension.count) + static_cast<size_t>(offset);
    }
    return items[position];
}

Value& Array::At(int32_t index)
{
    Value position(index);
    return At(std::span<const Value>(&position, 1));
}

Ref<Array> Array::Clone() const
{
    Ref<Array> copy = MakeRef<Array>(elementType, dimensions, Value());
    copy->isFixed = isFixed;
    copy->hasFixedTexts = hasFixedTexts;
    copy->initialValue = initialValue;
    copy->items = items;
    return copy;
}

Record::Record(int32_t definition, std::vector<Value> initial, std::vector<Type> types)
    : typeIndex(definition), fields(std::move(initial)), fieldTypes(std::move(types))
{
    MemoryBudget::Charge(sizeof(Record) + fields.size() * sizeof(Value));
}

Record::~Record()
{
    MemoryBudget::Credit(sizeof(Record) + fields.size() * sizeof(Value));
}

Ref<Record> Record::Clone() const
{
    Ref<Record> copy = MakeRef<Record>(typeIndex, fields, fieldTypes);
    for (Value& field : copy->fields) {
        if (field.Kind() == Type::Record) {
            field = Value(field.RecordPointer()->Clone());
        }
    }
    return copy;
}

ReferenceBox::ReferenceBox(Value* element, const Ref<Array>& owner) : target(element), array(owner)
{
    ++array->locks;
}

ReferenceBox::ReferenceBox(Value* element, const Ref<Record>& owner, Value parent)
    : target(element), record(owner), outer(std::move(parent))
{
    ++record->locks;
}

ReferenceBox::~ReferenceBox()
{
    if (array) {
        --array->locks;
    }
    if (record) {
        --record->locks;
    }
}

Value::Value(std::u16string text) : type(Type::String)
{
    if (!text.empty()) {
        StringBox* box = new StringBox(std::move(text));
        box->AddRef();
        data.counted = box;
    } else {
        data.counted = nullptr;
    }
}

Value Value::FromBytes(std::string_view bytes)
{
    std::u16string text((bytes.size() + 1) / 2, u'\0');
    for (size_t i = 0; i < bytes.size(); ++i) {
        int unit = static_cast<uint8_t>(bytes[i]) << (8 * (i % 2));
        text[i / 2] = static_cast<char16_t>(text[i / 2] | unit);
    }
    Value value(std::move(text));
    value.detail = bytes.size() % 2 != 0 ? kHalf : uint8_t{0};
    return value;
}

std::string Value::TextBytes() const
{
    std::string bytes;
    for (char16_t unit : Text()) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    if (EndsInHalf()) {
        bytes.pop_back();
    }
    return bytes;
}

Value::Value(const Ref<Array>& array) : Value(Type::Array, array.get()) {}
Value::Value(const Ref<Record>& record) : Value(Type::Record, record.get()) {}
Value::Value(ObjectTag, RefCounted* object) : Value(Type::Object, object) {}

Value::Value(Type kind, RefCounted* counted) : type(kind)
{
    data.counted = counted;
    if (counted != nullptr) {
        counted->AddRef();
    }
}

Value Value::Null()
{
    Value value;
    value.type = Type::Null;
    return value;
}

Value Value::Nothing()
{
    return Value(Type::Object, nullptr);
}
Value Value::Missing()
{
    return FromError(kParameterNotFound);
}

Value Value::FromByte(uint8_t number)
{
    Value value(int32_t{number});
    value.type = Type::Byte;
    return value;
}

Value Value::FromDate(double days)
{
    Value value(days);
    value.type = Type::Date;
    return value;
}

Value Value::FromCurrency(int64_t scaled)
{
    Value value(scaled);
    value.type = Type::Currency;
    return value;
}

Value Value::FromError(int32_t code)
{
    Value value(code);
    value.type = Type::Error;
    return value;
}

Value Value::FromInternal(const Ref<RefCounted>& object)
{
    return Value(Type::Internal, object.get());
}

bool Value::IsMissing() const
{
    return type == Type::Error && data.integer == kParameterNotFound;
}

bool Value::IsNumeric() const
{
    return (type >= Type::Integer && type <= Type::Date) || type == Type::Boolean || type == Type::Byte ||
           type == Type::LongLong;
}

const std::u16string& Value::Text() const
{
    static const std::u16string empty;
    return data.counted == nullptr ? empty : static_cast<const StringBox*>(data.counted)->text;
}

bool Value::TryAppend(std::u16string_view more)
{
    if (type != Type::String || data.counted == nullptr || data.counted->References() != 1) {
        return false;
    }
    static_cast<StringBox*>(data.counted)->Append(more);
    return true;
}

Object* Value::ObjectPointer() const
{
    return static_cast<Object*>(data.counted);
}
Array* Value::ArrayPointer() const
{
    return static_cast<Array*>(data.counted);
}
Record* Value::RecordPointer() const
{
    return static_cast<Record*>(data.counted);
}

Value Value::ReferenceTo(Value* variable, Type declared)
{
    if (variable->type == Type::Reference) {
        return *variable;
    }
    Value reference;
    reference.type = Type::Reference;
    reference.detail = static_cast<uint8_t>(declared);
    reference.data.variable = variable;
    return reference;
}

Value Value::ReferenceTo(const Ref<ReferenceBox>& box, Type declared)
{
    Value reference;
    reference.type = Type::Reference;
    reference.detail = static_cast<uint8_t>(static_cast<uint8_t>(declared) | kBoxed);
    reference.data.counted = box.get();
    box->AddRef();
    return reference;
}

Value& Value::Target() const
{
    return IsBareReference() ? *data.variable : *static_cast<ReferenceBox*>(data.counted)->target;
}

bool Value::ToBoolean() const
{
    return ConvertToBoolean(*this);
}
int16_t Value::ToInteger() const
{
    return static_cast<int16_t>(CoerceTo(Type::Integer, *this).Whole());
}
int32_t Value::ToLong() const
{
    return ConvertToLong(*this);
}
int64_t Value::ToLongLong() const
{
    return CoerceTo(Type::LongLong, *this).Whole();
}
double Value::ToDouble() const
{
    return ConvertToDouble(*this);
}
std::u16string Value::ToText() const
{
    return ConvertToText(*this);
}

Ref<Object> Value::ToObject() const
{
    const Value& value = Resolved();
    if (value.type != Type::Object) {
        Raise(kObjectRequired);
    }
    return Ref<Object>(value.ObjectPointer());
}

Ref<Array> Value::ToArray() const
{
    const Value& value = Resolved();
    if (value.type != Type::Array) {
        Raise(kTypeMismatch);
    }
    return Ref<Array>(value.ArrayPointer());
}

} // namespace tv::macro
