#pragma once

#include "macro/error.h"
#include "macro/ref.h"

#include <concepts>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tv::macro {

class Object;
class Array;
class Record;
class StringBox;
class ReferenceBox;

/// Kinds of value; the numbers are those that VarType returns.
enum class Type : uint8_t
{
    Empty = 0,
    Null = 1,
    Integer = 2,
    Long = 3,
    Single = 4,
    Double = 5,
    Currency = 6,
    Date = 7,
    String = 8,
    Object = 9,
    Error = 10,
    Boolean = 11,
    Variant = 12,
    Byte = 17,
    LongLong = 20,
    Record = 36,
    Array = 64,
    /// A variable handed over by reference; never stored in a variable that a macro can name.
    Reference = 65,
    /// Bookkeeping of the machine, such as a running enumeration.
    Internal = 66,
    /// Declared type only: a String of fixed length, which keeps the length of what it holds.
    FixedText = 67,
};

/// One value of the macro language: a Variant with its subtype. Sixteen bytes; texts, arrays and records are shared
/// until they are written to.
class Value
{
public:
    Value() = default;
    template <std::same_as<bool> T>
    Value(T truth) : type(Type::Boolean)
    {
        data.truth = truth;
    }
    Value(int16_t number) : type(Type::Integer) { data.integer = number; }
    Value(int32_t number) : type(Type::Long) { data.integer = number; }
    Value(int64_t number) : type(Type::LongLong) { data.integer = number; }
    Value(float number) : type(Type::Single) { data.number = static_cast<double>(number); }
    Value(double number) : type(Type::Double) { data.number = number; }
    Value(std::u16string text);
    Value(std::u16string_view text) : Value(std::u16string(text)) {}
    Value(const char16_t* text) : Value(std::u16string(text)) {}
    template <std::derived_from<Object> T>
    Value(const Ref<T>& object) : Value(ObjectTag{}, static_cast<RefCounted*>(object.get()))
    {
    }
    Value(const Ref<Array>& array);
    Value(const Ref<Record>& record);

    Value(const Value& other) : data(other.data), type(other.type), detail(other.detail)
    {
        if (IsCounted() && data.counted != nullptr) {
            data.counted->AddRef();
        }
    }
    Value(Value&& other) noexcept : data(other.data), type(other.type), detail(other.detail)
    {
        other.type = Type::Empty;
    }
    Value& operator=(const Value& other)
    {
        Value copy(other);
        swap(copy);
        return *this;
    }
    Value& operator=(Value&& other) noexcept
    {
        Value moved(std::move(other));
        swap(moved);
        return *this;
    }
    ~Value()
    {
        if (IsCounted() && data.counted != nullptr) {
            data.counted->Release();
        }
    }

    void swap(Value& other) noexcept
    {
        std::swap(data, other.data);
        std::swap(type, other.type);
        std::swap(detail, other.detail);
    }

    static Value Null();
    static Value Nothing();
    /// What an optional argument holds that a caller left out.
    static Value Missing();
    static Value FromByte(uint8_t number);
    static Value FromDate(double days);
    /// \param scaled the amount times 10,000
    static Value FromCurrency(int64_t scaled);
    static Value FromError(int32_t code);
    /// A text of raw bytes, low byte first. When their number is odd, the last unit is a half one with a zero above.
    static Value FromBytes(std::string_view bytes);
    static Value FromInternal(const Ref<RefCounted>& object);

    Type Kind() const { return type; }
    bool IsEmpty() const { return type == Type::Empty; }
    bool IsNull() const { return type == Type::Null; }
    bool IsString() const { return type == Type::String; }
    bool IsObject() const { return type == Type::Object; }
    bool IsNothing() const { return type == Type::Object && data.counted == nullptr; }
    bool IsArray() const { return type == Type::Array; }
    bool IsMissing() const;
    bool IsReference() const { return type == Type::Reference; }
    /// Any of the number kinds, Boolean and Date included.
    bool IsNumeric() const;

    // Conversions by the rules of the language. They raise 13, 6 or 94 as the language does, take an object's default
    // value, and read a reference's target.
    bool ToBoolean() const;
    int16_t ToInteger() const;
    int32_t ToLong() const;
    int64_t ToLongLong() const;
    double ToDouble() const;
    std::u16string ToText() const;
    /// The object; error 424 when the value is none. May be null for Nothing.
    Ref<Object> ToObject() const;
    /// The array; error 13 when the value is none.
    Ref<Array> ToArray() const;

    // Plain reads of a value whose kind is known.
    bool Truth() const { return data.truth; }
    int64_t Whole() const { return data.integer; }
    double Number() const { return data.number; }
    const std::u16string& Text() const;
    /// Whether a text has an odd number of bytes.
    bool EndsInHalf() const { return detail == kHalf; }
    /// Whether it is a text of whole characters, as nearly all are.
    bool IsWholeText() const { return type == Type::String && !EndsInHalf(); }
    std::string TextBytes() const;
    Object* ObjectPointer() const;
    Array* ArrayPointer() const;
    Record* RecordPointer() const;
    RefCounted* Counted() const { return data.counted; }

    // References: either to a variable that outlives the reference or, through a box, to an element or a field.
    static Value ReferenceTo(Value* variable, Type declared);
    static Value ReferenceTo(const Ref<ReferenceBox>& box, Type declared);
    Value& Target() const;
    Type TargetType() const { return static_cast<Type>(detail & ~kBoxed); }
    /// The value itself, or what the reference leads to.
    const Value& Resolved() const { return type == Type::Reference ? Target() : *this; }
    Value& Resolved() { return type == Type::Reference ? Target() : *this; }

    /// Appends to a text that nobody else holds; false when it is shared, empty or no text.
    bool TryAppend(std::u16string_view more);

    // Raw writes for the machine's fast paths; only between values that hold nothing counted.
    bool IsPlain() const { return !IsCounted() && type != Type::Reference; }
    void SetWhole(int64_t number) { data.integer = number; }
    void SetPlain(const Value& plain)
    {
        data = plain.data;
        type = plain.type;
        detail = plain.detail;
    }

private:
    struct ObjectTag
    {
    };
    static constexpr uint8_t kBoxed = 0x80;
    static constexpr uint8_t kHalf = 1;

    Value(ObjectTag, RefCounted* object);
    Value(Type kind, RefCounted* counted);

    bool IsCounted() const
    {
        return type == Type::String || type == Type::Object || (type >= Type::Record && !IsBareReference());
    }
    bool IsBareReference() const { return type == Type::Reference && (detail & kBoxed) == 0; }

    union Data
    {
        int64_t integer;
        double number;
        bool truth;
        RefCounted* counted;
        Value* variable;
    };
    Data data{.integer = 0};
    Type type = Type::Empty;
    uint8_t detail = 0;
};

/// The shared characters of a text value.
class StringBox final : public RefCounted
{
public:
    explicit StringBox(std::u16string characters);
    ~StringBox() override;

    /// Grows by doubling, so that a text that is built piece by piece costs as much as its length.
    void Append(std::u16string_view more);

    std::u16string text;
    size_t charged;
};

/// Bounds of one array dimension.
struct Dimension
{
    int32_t lower = 0;
    int32_t count = 0;
};

/// An array of the language: up to 60 dimensions, elements of one declared type. A variable that was never dimensioned
/// holds an array without dimensions.
class Array final : public RefCounted
{
public:
    Array(Type elements, std::vector<Dimension> bounds, const Value& initial = {});
    ~Array() override;

    /// A Variant array from 0.
    static Ref<Array> FromValues(std::vector<Value> values);
    /// A String array from 0.
    static Ref<Array> FromTexts(const std::vector<std::u16string>& texts);

    /// The element at the given indices, one a dimension; error 9 when out of bounds or of the wrong number.
    Value& At(std::span<const Value> indices);
    Value& At(int32_t index);
    Ref<Array> Clone() const;

    /// The type that a value takes when it is stored in an element.
    Type StoredType() const { return hasFixedTexts ? Type::FixedText : elementType; }

    Type elementType;
    bool isFixed = false;
    /// Its elements are Strings of fixed length.
    bool hasFixedTexts = false;
    std::vector<Dimension> dimensions;
    std::vector<Value> items;
    /// References to elements that are being held; the array can't change its size meanwhile.
    uint32_t locks = 0;
    /// What a new element holds: records carry their fields.
    Value initialValue;

private:
    size_t charged;
};

/// A value of a user-defined type. Fields are found by position; assignment copies.
class Record final : public RefCounted
{
public:
    Record(int32_t definition, std::vector<Value> initial, std::vector<Type> types);
    ~Record() override;
    Ref<Record> Clone() const;

    int32_t typeIndex;
    std::vector<Value> fields;
    std::vector<Type> fieldTypes;
    uint32_t locks = 0;
};

/// Keeps the array or record alive and in place to whose element a reference leads.
class ReferenceBox final : public RefCounted
{
public:
    ReferenceBox(Value* element, const Ref<Array>& owner);
    ReferenceBox(Value* element, const Ref<Record>& owner, Value parent);
    ~ReferenceBox() override;

    Value* target;

private:
    Ref<Array> array;
    Ref<Record> record;
    Value outer;
};

/// Limits what the values of the running macro may take, on the thread that runs it. Going beyond it is error 7.
class MemoryBudget
{
public:
    explicit MemoryBudget(uint64_t bytes);
    MemoryBudget(const MemoryBudget&) = delete;
    MemoryBudget& operator=(const MemoryBudget&) = delete;
    ~MemoryBudget();

    static void Charge(size_t bytes);
    /// Error 7 when so many bytes more would go beyond the limit.
    static void Check(uint64_t bytes);
    static void Credit(size_t bytes);

private:
    uint64_t previousLimit;
};

} // namespace tv::macro
