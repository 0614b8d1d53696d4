// Variant: the owner of one automation value.
#pragma once

#include "com/bstring.h"
#include "com/com_ptr.h"

#include <optional>

namespace tv {

/// Owns a VARIANT. Copies are deep.
class Variant
{
  public:
    Variant() { VariantInit(&value); }
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept;
    ~Variant() { VariantClear(&value); }
    Variant& operator=(Variant other) noexcept;

    static Variant FromInt(int32_t number);
    static Variant FromFloat(float number);
    static Variant FromDouble(double number);
    static Variant FromDate(double date);
    static Variant FromBool(bool truth);
    static Variant FromText(std::u16string_view text);
    static Variant FromUnknown(IUnknown* object);
    static Variant FromDispatch(IDispatch* object);
    /// Takes over an array; `elementType` is the VARTYPE of its elements.
    static Variant FromArray(SAFEARRAY* owned, VARTYPE elementType);
    /// Copies a borrowed value; a reference (VT_BYREF) is followed.
    static Variant Copy(const VARIANT& borrowed);

    VARTYPE Type() const { return value.vt; }
    bool IsEmpty() const { return value.vt == VT_EMPTY; }
    VARIANT* get() { return &value; }
    const VARIANT* get() const { return &value; }
    VARIANT* put();
    /// Hands the value over to a place that the receiver owns; this becomes empty.
    void MoveTo(VARIANT* to);

    /// Changes the kind in place by the platform's variant type change; the value stays as it was on failure.
    Result ChangeType(VARTYPE type);

    /// The value as the wanted kind, converted by the platform's variant type change; a failure is raised.
    int32_t ToInt() const;
    double ToDouble() const;
    bool ToBool() const;
    std::u16string ToText() const;

  private:
    VARIANT value;
};

} // namespace tv
