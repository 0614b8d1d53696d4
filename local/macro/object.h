#pragma once

#include "macro/value.h"

#include <initializer_list>
#include <optional>

namespace tv::macro {

/// Lower-case form by which names are compared: the language doesn't tell capitals from small letters.
std::u16string FoldCase(std::u16string_view text);

/// The name of a member as a macro wrote it, with what is needed to compare it fast.
struct MemberName
{
    MemberName() = default;
    explicit MemberName(std::u16string_view written) : text(written), folded(FoldCase(written)) {}

    bool Is(std::u16string_view lowerCase) const { return folded == lowerCase; }
    /// The default member, such as in `list(3)`.
    bool IsDefault() const { return folded.empty(); }

    std::u16string text;
    std::u16string folded;
};

enum class InvokeKind
{
    /// A method call or the reading of a property: the language can't tell them apart.
    Get,
    /// `object.Member = value`; the value is the last argument.
    Let,
    /// `Set object.Member = value`; the value is the last argument.
    Set,
};

/// The arguments of one call. Variables arrive by reference and can be written back.
class Arguments
{
public:
    Arguments() = default;
    explicit Arguments(std::span<Value> given) : values(given) {}
    /// \param trailingNames names of the last arguments, when they were given by name
    Arguments(std::span<Value> given, std::span<const MemberName> trailingNames) : values(given), names(trailingNames) {}

    size_t Count() const { return values.size(); }
    /// Whether the argument was given and not left out.
    bool Has(size_t index) const;
    /// The argument's value; error 449 when it was left out.
    const Value& operator[](size_t index) const;
    Value Or(size_t index, Value fallback) const;
    /// Writes to the caller's variable, converted to its type. An argument that is no variable swallows it.
    void Assign(size_t index, const Value& value);

    bool HasNames() const { return !names.empty(); }
    /// Puts arguments that were given by name where the parameters stand. An unknown name is error 448.
    /// \param storage keeps the arguments in their new order; must outlive the result
    Arguments Ordered(std::span<const std::u16string_view> parameters, std::vector<Value>& storage) const;
    /// Raises 450 unless the number of arguments lies within the bounds.
    void Expect(size_t least, size_t most) const;

    std::span<Value> All() const { return values; }
    std::span<const MemberName> Names() const { return names; }

private:
    std::span<Value> values;
    std::span<const MemberName> names;
};

/// Gives the elements of a For Each loop.
class Enumerator : public RefCounted
{
public:
    /// The next element, or nothing at the end.
    virtual std::optional<Value> Next() = 0;
};

/// An object that a macro uses by names. The application derives its objects from this.
class Object : public RefCounted
{
public:
    /// Calls a method, reads or writes a property. Throws MacroError; an unknown name is NoSuchMember().
    virtual Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) = 0;

    /// What TypeName returns, such as "ModelDoc2".
    virtual std::u16string ClassName() const = 0;

    /// Whether a variable declared with this class may hold the object. The name is given without a library in front.
    virtual bool IsKindOf(std::u16string_view className) const;

    /// The elements for For Each; error 438 unless overridden.
    virtual Ref<Enumerator> Enumerate();

    /// Whether both stand for the same thing, for the operator Is.
    virtual bool IsSame(const Object& other) const { return this == &other; }

protected:
    [[noreturn]] static void NoSuchMember();
};

/// The default value of an object, such as `Err` read as a number. Error 91 for Nothing.
Value DefaultValue(const Value& object);

} // namespace tv::macro
