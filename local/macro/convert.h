#pragma once

#include "macro/number_text.h"
#include "macro/value.h"

#include <optional>

namespace tv::macro {

bool ConvertToBoolean(const Value& value);
int32_t ConvertToLong(const Value& value);
double ConvertToDouble(const Value& value);
std::u16string ConvertToText(const Value& value);

/// What a variable of the declared type holds after the value was assigned to it.
Value CoerceTo(Type declared, const Value& value);

/// The text cut or filled with blanks to a length, as a String of fixed length takes it.
Value FitText(std::u16string text, size_t length);

/// What a variable of the type holds before anything was assigned to it.
Value InitialValue(Type declared);

/// The bytes of a text as an array of Byte from 0, which is what assigning it to one gives.
Ref<Array> BytesOfText(const Value& text);
/// The text that an array of Byte gives; error 13 for other arrays.
Value TextOfBytes(const Array& bytes);

/// Rounds half to even, as every conversion to whole numbers does.
double RoundHalfEven(double number);
/// The whole number, or error 6 when the kind can't hold it.
Value WholeNumber(Type kind, double number);
Value WholeNumber(Type kind, int64_t number);
bool FitsInto(Type kind, int64_t number);

/// The name that TypeName and messages use, such as "Integer".
std::u16string_view TypeText(Type type);

} // namespace tv::macro
