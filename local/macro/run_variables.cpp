// How the machine reads and writes variables, elements and fields, and steps through loops.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/fast_operators.h"
#include "macro/runner.h"

namespace tv::macro {

namespace {

/// Walks an array as it was when the loop began.
class ArrayEnumerator final : public Enumerator
{
  public:
    explicit ArrayEnumerator(const Ref<Array>& values) : array(values) {}

    std::optional<Value> Next() override
    {
        return position < array->items.size() ? std::optional(array->items[position++]) : std::nullopt;
    }

  private:
    Ref<Array> array;
    size_t position = 0;
};

} // namespace

Value& Runner::Slot(Place place, int32_t slot)
{
    return place == Place::Global ? globals[static_cast<size_t>(slot)] : frame->base[slot].Resolved();
}

void Runner::StoreInto(Value& target, Value value, uint8_t flags)
{
    if (flags == kRaw) {
        target = std::move(value);
        return;
    }
    if (value.IsReference()) {
        value = Value(value.Resolved());
    }
    Type declared = static_cast<Type>(flags);
    if (declared == Type::Variant ||
        (value.Kind() == declared && declared < Type::Record && declared != Type::Object)) {
        target = std::move(value);
    } else if (declared == Type::Array) {
        StoreArray(target, std::move(value));
    } else if (declared == Type::FixedText) {
        target = FitText(value.ToText(), target.Text().size());
    } else if (declared == Type::Record) {
        bool same = value.Kind() == Type::Record && target.Kind() == Type::Record &&
                    value.RecordPointer()->typeIndex == target.RecordPointer()->typeIndex;
        if (!same) {
            Raise(kTypeMismatch);
        }
        target = std::move(value);
    } else {
        target = CoerceTo(declared, value);
    }
}

void Runner::StoreArray(Value& target, Value value)
{
    if (value.IsString() && target.IsArray() && target.ArrayPointer()->elementType == Type::Byte) {
        value = Value(BytesOfText(value));
    }
    if (!value.IsArray()) {
        Raise(kTypeMismatch);
    }
    if (target.IsArray()) {
        if (target.ArrayPointer()->elementType != value.ArrayPointer()->elementType) {
            Raise(kTypeMismatch);
        }
        if (target.ArrayPointer()->isFixed || target.ArrayPointer()->locks > 0) {
            Raise(kArrayLocked);
        }
    }
    if (value.ArrayPointer()->isFixed) {
        Ref<Array> copy = value.ArrayPointer()->Clone();
        copy->isFixed = false;
        value = Value(copy);
    }
    target = std::move(value);
}

void Runner::StoreParam(const Instruction& instruction)
{
    Value value = Pop();
    Value& slot = frame->base[instruction.target];
    if (!slot.IsReference()) {
        return StoreInto(slot, std::move(value), instruction.flags);
    }
    // The caller's variable keeps its own type, also where the parameter is a Variant.
    Type actual = slot.TargetType();
    bool keepsType = actual != Type::Variant && actual != Type::Object && actual != Type::Array;
    uint8_t flags = keepsType ? static_cast<uint8_t>(actual) : instruction.flags;
    StoreInto(slot.Target(), std::move(value), flags);
}

Array& Runner::UniqueArray(Value& holder)
{
    Array* array = holder.ArrayPointer();
    if (array->References() - array->locks > 1) {
        holder = Value(array->Clone());
    }
    return *holder.ArrayPointer();
}

Record& Runner::UniqueRecord(Value& holder)
{
    Record* record = holder.RecordPointer();
    if (record->References() - record->locks > 1) {
        holder = Value(record->Clone());
    }
    return *holder.RecordPointer();
}

Value Runner::ReadElement(const Value& given, std::span<Value> indices)
{
    const Value& base = given.Resolved();
    if (base.IsArray()) {
        return base.ArrayPointer()->At(indices);
    }
    if (base.IsObject()) {
        static const MemberName defaultMember;
        return InvokeObject(base, defaultMember, InvokeKind::Get, indices, {});
    }
    Raise(kTypeMismatch);
}

void Runner::WriteElement(Value& base, std::span<Value> indices, Value value, bool isSet)
{
    if (value.IsReference()) {
        value = Value(value.Resolved());
    }
    if (base.IsArray()) {
        Array& array = UniqueArray(base);
        Value& element = array.At(indices);
        if (isSet && array.elementType != Type::Variant && array.elementType != Type::Object) {
            Raise(kObjectRequired);
        }
        return StoreInto(element, std::move(value), isSet ? kRaw : static_cast<uint8_t>(array.StoredType()));
    }
    if (base.IsObject()) {
        static const MemberName defaultMember;
        std::vector<Value> values(indices.begin(), indices.end());
        values.push_back(std::move(value));
        InvokeObject(Value(base), defaultMember, isSet ? InvokeKind::Set : InvokeKind::Let, values, {});
        return;
    }
    Raise(kTypeMismatch);
}

void Runner::AddressElement(const Instruction& instruction)
{
    std::span<Value> indices(top - instruction.count, instruction.count);
    Value& base = (top - instruction.count - 1)->Resolved();
    Value result;
    if (base.IsArray()) {
        Array& array = UniqueArray(base);
        Value& element = array.At(indices);
        result = Value::ReferenceTo(MakeRef<ReferenceBox>(&element, Ref<Array>(&array)), array.StoredType());
    } else {
        result = ReadElement(base, indices);
    }
    Drop(size_t{instruction.count} + 1);
    Push(std::move(result));
}

void Runner::AddressField(const Instruction& instruction)
{
    Value holder = Pop();
    Value& value = holder.Resolved();
    if (value.Kind() != Type::Record) {
        Raise(kObjectNotSet);
    }
    Record& record = UniqueRecord(value);
    Value& field = record.fields[static_cast<size_t>(instruction.target)];
    Push(Value::ReferenceTo(MakeRef<ReferenceBox>(&field, Ref<Record>(&record), holder),
                            static_cast<Type>(instruction.flags)));
}

void Runner::ReDim(const Instruction& instruction)
{
    size_t count = instruction.count;
    std::vector<Dimension> dimensions;
    for (size_t i = 0; i < count; ++i) {
        int32_t lower = (top - 2 * count + 2 * i)->ToLong();
        int32_t upper = (top - 2 * count + 2 * i + 1)->ToLong();
        int64_t extent = int64_t{upper} - lower + 1;
        if (extent <= 0 || extent > 0x7FFFFFFF) {
            Raise(kSubscriptOutOfRange);
        }
        dimensions.push_back(Dimension{lower, static_cast<int32_t>(extent)});
    }
    Drop(2 * count);
    Value reference = Pop();
    Value& holder = reference.Resolved();
    const Shape& shape = module.shapes[static_cast<size_t>(instruction.target)];
    Array* old = holder.IsArray() ? holder.ArrayPointer() : nullptr;
    if (old != nullptr && (old->isFixed || old->locks > 0)) {
        Raise(kArrayLocked);
    }
    Type elementType = old != nullptr ? old->elementType : shape.type;
    Value initial = old != nullptr && !old->initialValue.IsEmpty() ? old->initialValue : MakeInitial(module, shape);
    Ref<Array> created = MakeRef<Array>(elementType, dimensions, initial);
    created->hasFixedTexts = old != nullptr ? old->hasFixedTexts : shape.fixedLength >= 0;
    bool preserve = instruction.flags == 1 && old != nullptr && !old->dimensions.empty();
    if (preserve) {
        bool sameShape = old->dimensions.size() == dimensions.size();
        for (size_t i = 0; sameShape && i + 1 < dimensions.size(); ++i) {
            sameShape =
                old->dimensions[i].lower == dimensions[i].lower && old->dimensions[i].count == dimensions[i].count;
        }
        // Only the last dimension may change, and only at its end.
        if (!sameShape || old->dimensions.back().lower != dimensions.back().lower) {
            Raise(kSubscriptOutOfRange);
        }
        // The last index moves slowest, so that what is kept comes first.
        size_t kept = std::min(old->items.size(), created->items.size());
        constexpr size_t kPart = 1 << 16;
        for (size_t first = 0; first < kept; first += kPart) {
            std::copy_n(&old->items[first], std::min(kPart, kept - first), &created->items[first]);
            LongWork::Did(kPart);
        }
    }
    holder = Value(created);
}

void Runner::EraseArray()
{
    Value reference = Pop();
    Value& holder = reference.Resolved();
    if (!holder.IsArray()) {
        Raise(kTypeMismatch);
    }
    Array* array = holder.ArrayPointer();
    if (array->locks > 0) {
        Raise(kArrayLocked);
    }
    Ref<Array> emptied = MakeRef<Array>(
        array->elementType, array->isFixed ? array->dimensions : std::vector<Dimension>{}, array->initialValue);
    emptied->isFixed = array->isFixed;
    emptied->hasFixedTexts = array->hasFixedTexts;
    holder = Value(emptied);
}

Value Runner::NewObject(int32_t name)
{
    Ref<Object> object = CreateBuiltinObject(runtime, module.names[static_cast<size_t>(name)].folded);
    if (!object) {
        Raise(kCannotCreateObject);
    }
    return Value(object);
}

void Runner::EnsureNew(const Instruction& instruction)
{
    Value& variable = Slot(static_cast<Place>(instruction.flags), instruction.count);
    if (variable.IsNothing() || variable.IsEmpty()) {
        variable = NewObject(instruction.target);
    }
}

bool Runner::IsOfClass(const Value& object, int32_t className) const
{
    const MemberName& name = module.names[static_cast<size_t>(className)];
    if (name.Is(u"object")) {
        return true;
    }
    size_t dot = name.folded.rfind(u'.');
    std::u16string_view bare = std::u16string_view(name.folded).substr(dot == std::u16string::npos ? 0 : dot + 1);
    return object.ObjectPointer()->IsKindOf(bare);
}

void Runner::CheckObject(int32_t className)
{
    if (Top().IsReference()) {
        Value value = Top().Resolved();
        Top() = std::move(value);
    }
    if (!Top().IsObject()) {
        Raise(kObjectRequired);
    }
    if (className >= 0 && !Top().IsNothing() && !IsOfClass(Top(), className)) {
        Raise(kTypeMismatch);
    }
}

// Operators and loops.

void Runner::Binary(const Instruction& instruction)
{
    Operator operation = static_cast<Operator>(instruction.flags);
    Value& left = Top(1);
    const Value& right = Top();
    if (operation == Operator::Concatenate && left.IsWholeText() && right.IsWholeText()) {
        // A text that an expression is building belongs to nobody else.
        if (!left.TryAppend(right.Text())) {
            const std::u16string& first = left.Text();
            const std::u16string& second = right.Text();
            std::u16string joined;
            MemoryBudget::Check((first.size() + second.size()) * sizeof(char16_t));
            joined.reserve(first.size() + second.size());
            joined.append(first).append(second);
            left = Value(std::move(joined));
        }
        return Drop(1);
    }
    Value result = Apply(operation, left, right, UnpackTraits(instruction.count));
    Drop(1);
    Top() = std::move(result);
}

void Runner::BinaryElsewhere(const Instruction& instruction, const Value* left, const Value& right)
{
    if (left != nullptr) {
        Push(*left);
    }
    Push(right);
    Binary(instruction);
}

void Runner::AppendText(const Instruction& instruction)
{
    Place place = static_cast<Place>(instruction.count);
    bool isFixed = place == Place::Param && frame->base[instruction.target].IsReference() &&
                   frame->base[instruction.target].TargetType() == Type::FixedText;
    Value& target = Slot(place, instruction.target);
    const Value& value = Top();
    if (!isFixed && value.IsWholeText() && target.IsWholeText() && target.TryAppend(value.Text())) {
        return Drop(1);
    }
    Value result = Apply(Operator::Concatenate, target, value, {});
    Top() = std::move(result);
    if (place == Place::Param) {
        return StoreParam(instruction);
    }
    Value joined = Pop();
    StoreInto(target, std::move(joined), instruction.flags);
}

void Runner::ForBegin(const Instruction& instruction)
{
    Type type = static_cast<Type>(instruction.flags);
    Value step = Pop();
    Value last = Pop();
    Value& hidden = frame->base[instruction.extra];
    auto number = [type](const Value& value) {
        if (type != Type::Variant) {
            return CoerceTo(type, value);
        }
        const Value& plain = value.Resolved();
        return plain.IsNumeric() ? plain : CoerceTo(Type::Double, plain);
    };
    hidden = number(last);
    (&hidden)[1] = number(step);
    Value first = number(Top());
    Top() = std::move(first);
}

bool Runner::ForIsOver(const Value& variable, int32_t slot) const
{
    const Value& last = frame->base[slot];
    const Value& step = frame->base[slot + 1];
    if (last.IsEmpty()) {
        Raise(kForLoopNotInitialized);
    }
    int order = CompareValues(variable, last, {true, true, false});
    return CompareValues(step, Value(int16_t{0}), {true, true, false}) >= 0 ? order > 0 : order < 0;
}

void Runner::ForStep(const Instruction& instruction)
{
    if (frame->base[instruction.extra].IsEmpty()) {
        Raise(kForLoopNotInitialized);
    }
    bool widens = static_cast<Type>(instruction.flags) == Type::Variant;
    Value next = Apply(Operator::Add, Top(), frame->base[instruction.extra + 1], {widens, widens, false});
    Top() = std::move(next);
}

void Runner::ForFast(const Instruction& instruction)
{
    Value& variable = frame->base[instruction.count];
    const Value& last = frame->base[instruction.extra];
    const Value& step = frame->base[instruction.extra + 1];
    if (IsPlainWhole(variable) && IsPlainWhole(last) && IsPlainWhole(step)) {
        int64_t next = variable.Whole() + step.Whole();
        if (FitsInto(variable.Kind(), next)) {
            variable.SetWhole(next);
            if (step.Whole() >= 0 ? next <= last.Whole() : next >= last.Whole()) {
                at = static_cast<uint32_t>(instruction.target);
            }
            return;
        }
    }
    Push(variable);
    ForStep(instruction);
    Value next = Pop();
    StoreInto(variable, std::move(next), instruction.flags);
    if (!ForIsOver(variable, instruction.extra)) {
        at = static_cast<uint32_t>(instruction.target);
    }
}

void Runner::EachBegin(const Instruction& instruction)
{
    Value group = Pop();
    const Value& value = group.Resolved();
    Ref<Enumerator> enumerator;
    if (value.IsArray()) {
        enumerator = MakeRef<ArrayEnumerator>(Ref<Array>(value.ArrayPointer()));
    } else if (value.IsObject()) {
        if (value.IsNothing()) {
            Raise(kObjectNotSet);
        }
        enumerator = value.ObjectPointer()->Enumerate();
    } else {
        Raise(value.IsEmpty() || value.IsNumeric() || value.IsString() ? kTypeMismatch : kObjectRequired);
    }
    frame->base[instruction.extra] = Value::FromInternal(Ref<RefCounted>(enumerator));
}

void Runner::EachNext(const Instruction& instruction)
{
    Checkpoint();
    Value& hidden = frame->base[instruction.extra];
    if (hidden.Kind() != Type::Internal || hidden.Counted() == nullptr) {
        Raise(kForLoopNotInitialized);
    }
    Ref<RefCounted> held(hidden.Counted());
    std::optional<Value> next = static_cast<Enumerator*>(held.get())->Next();
    if (!next) {
        hidden = Value();
        at = static_cast<uint32_t>(instruction.target);
        return;
    }
    Push(std::move(*next));
}

} // namespace tv::macro
