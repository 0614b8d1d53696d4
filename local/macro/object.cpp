#include "macro/object.h"

#include "macro/convert.h"
#include "macro/host.h"
#include "macro/text.h"

namespace tv::macro {

std::u16string FoldCase(std::u16string_view text) { return Lower(text); }

bool Arguments::Has(size_t index) const { return index < values.size() && !values[index].Resolved().IsMissing(); }

const Value& Arguments::operator[](size_t index) const
{
    if (!Has(index)) {
        Raise(kArgumentNotOptional);
    }
    return values[index].Resolved();
}

Value Arguments::Or(size_t index, Value fallback) const
{
    return Has(index) ? values[index].Resolved() : std::move(fallback);
}

void Arguments::Assign(size_t index, const Value& value)
{
    if (index >= values.size() || !values[index].IsReference()) {
        return;
    }
    Type declared = values[index].TargetType();
    Value& target = values[index].Target();
    target = declared == Type::Variant     ? value
             : declared == Type::FixedText ? FitText(value.ToText(), target.Text().size())
                                           : CoerceTo(declared, value);
}

Arguments Arguments::Ordered(std::span<const std::u16string_view> parameters, std::vector<Value>& storage) const
{
    if (names.empty()) {
        return *this;
    }
    size_t positional = values.size() - names.size();
    storage.assign(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(positional));
    for (size_t i = 0; i < names.size(); ++i) {
        size_t place = 0;
        while (place < parameters.size() && !EqualIgnoringCase(parameters[place], names[i].text)) {
            ++place;
        }
        if (place == parameters.size() || place < positional) {
            Raise(kNamedArgumentNotFound);
        }
        if (storage.size() <= place) {
            storage.resize(place + 1, Value::Missing());
        }
        storage[place] = values[positional + i];
    }
    return Arguments(storage);
}

void Arguments::Expect(size_t least, size_t most) const
{
    if (values.size() < least || values.size() > most) {
        Raise(kWrongArgumentCount);
    }
}

bool Object::IsKindOf(std::u16string_view className) const { return EqualIgnoringCase(className, ClassName()); }

Ref<Enumerator> Object::Enumerate() { NoSuchMember(); }

void Object::NoSuchMember() { Raise(kNoSuchMember); }

Value DefaultValue(const Value& object)
{
    static const MemberName defaultMember;
    Object* target = object.Resolved().ObjectPointer();
    if (target == nullptr) {
        Raise(kObjectNotSet);
    }
    Arguments none;
    Value value = Ref<Object>(target)->Invoke(defaultMember, InvokeKind::Get, none);
    // A default member may be an object with a default member in turn, but not without end.
    for (int depth = 0; value.IsObject() && depth < 16; ++depth) {
        if (value.IsNothing()) {
            Raise(kObjectNotSet);
        }
        Ref<Object> inner(value.ObjectPointer());
        value = inner->Invoke(defaultMember, InvokeKind::Get, none);
    }
    if (value.IsObject()) {
        Raise(kNoSuchMember);
    }
    return value;
}

Ref<Object> Host::GetObject(std::u16string_view, std::u16string_view) { return nullptr; }

std::u16string Host::InputBox(const std::u16string&, const std::u16string&, const std::u16string&) { return {}; }

void Host::DebugPrint(const std::u16string&) {}

std::vector<std::u16string> Host::Environment() { return {}; }

} // namespace tv::macro
