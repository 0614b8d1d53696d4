// Functions that tell about values, and the constants of the language.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace tv::macro {

namespace {

Value IsArrayValue(Runtime&, const Arguments& a)
{
    return Value(a.All()[0].Resolved().IsArray());
}
Value IsEmptyValue(Runtime&, const Arguments& a)
{
    return Value(a.All()[0].Resolved().IsEmpty());
}
Value IsNullValue(Runtime&, const Arguments& a)
{
    return Value(a.All()[0].Resolved().IsNull());
}
Value IsObjectValue(Runtime&, const Arguments& a)
{
    return Value(a.All()[0].Resolved().IsObject());
}
Value IsMissingValue(Runtime&, const Arguments& a)
{
    return Value(a.All()[0].Resolved().IsMissing());
}
Value IsErrorValue(Runtime&, const Arguments& a)
{
    return Value(a.All()[0].Resolved().Kind() == Type::Error);
}

Value IsNumericValue(Runtime&, const Arguments& a)
{
    const Value& value = a.All()[0].Resolved();
    if (value.IsString()) {
        std::optional<double> number = ParseNumber(value.Text());
        return Value(number && std::isfinite(*number));
    }
    return Value(value.IsEmpty() || (value.IsNumeric() && value.Kind() != Type::Date));
}

Value IsDateValue(Runtime&, const Arguments& a)
{
    const Value& value = a.All()[0].Resolved();
    return Value(value.Kind() == Type::Date || (value.IsString() && ParseDate(value.Text()).has_value()));
}

Value TypeNameOf(Runtime&, const Arguments& a)
{
    const Value& value = a.All()[0].Resolved();
    if (value.IsObject()) {
        return Value(value.IsNothing() ? u"Nothing" : value.ObjectPointer()->ClassName());
    }
    if (value.IsArray()) {
        return Value(std::u16string(TypeText(value.ArrayPointer()->elementType)) + u"()");
    }
    return Value(TypeText(value.Kind()));
}

Value VarTypeOf(Runtime&, const Arguments& a)
{
    constexpr int32_t kArrayFlag = 8192;
    const Value& value = a.All()[0].Resolved();
    if (value.IsArray()) {
        return Value(kArrayFlag + static_cast<int32_t>(value.ArrayPointer()->elementType));
    }
    if (value.IsObject() && !value.IsNothing()) {
        // An object with a default value tells that value's type.
        try {
            return Value(static_cast<int32_t>(DefaultValue(value).Kind()));
        } catch (const MacroError&) {
            return Value(static_cast<int32_t>(Type::Object));
        }
    }
    return Value(static_cast<int32_t>(value.Kind()));
}

const Dimension& DimensionOf(const Arguments& a)
{
    Ref<Array> array = a[0].ToArray();
    int32_t index = a.Has(1) ? a[1].ToLong() : 1;
    if (index < 1 || static_cast<size_t>(index) > array->dimensions.size()) {
        Raise(kSubscriptOutOfRange);
    }
    return array->dimensions[static_cast<size_t>(index) - 1];
}

Value LowerBound(Runtime&, const Arguments& a)
{
    return Value(DimensionOf(a).lower);
}

Value UpperBound(Runtime&, const Arguments& a)
{
    const Dimension& dimension = DimensionOf(a);
    return Value(dimension.lower + dimension.count - 1);
}

Value MakeArray(Runtime&, const Arguments& a)
{
    std::vector<Value> values;
    for (const Value& value : a.All()) {
        values.push_back(value.Resolved());
    }
    return Value(Array::FromValues(std::move(values)));
}

/// The same array counted from 1, as Array makes it under Option Base 1.
Value CountedFromOne(Runtime&, const Arguments& a)
{
    Ref<Array> array = a[0].ToArray();
    array->dimensions.front().lower = 1;
    return Value(array);
}

Value Rgb(Runtime&, const Arguments& a)
{
    int32_t color = 0;
    for (size_t i = 0; i < 3; ++i) {
        int32_t part = a[i].ToLong();
        if (part < 0) {
            Raise(kInvalidCall);
        }
        color |= std::min(part, 255) << (8 * i);
    }
    return Value(color);
}

Value QBColor(Runtime&, const Arguments& a)
{
    constexpr int32_t kColors[] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
                                   0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
    int32_t color = a[0].ToLong();
    if (color < 0 || static_cast<size_t>(color) >= std::size(kColors)) {
        Raise(kInvalidCall);
    }
    return Value(kColors[color]);
}

Value ErrorText(Runtime& runtime, const Arguments& a)
{
    if (!a.Has(0)) {
        return Value(runtime.err->number == 0 ? std::u16string() : runtime.err->description);
    }
    int32_t number = a[0].ToLong();
    return Value(number == 0 ? std::u16string_view() : ErrorDescription(number));
}

Value ErrorLine(Runtime& runtime, const Arguments&)
{
    return Value(int32_t{runtime.err->line});
}

constexpr Builtin kFunctions[] = {
    {u"#fromone", 1, 1, Type::Variant, CountedFromOne, {}},
    {u"array", 0, kAnyNumber, Type::Variant, MakeArray, {}},
    {u"erl", 0, 0, Type::Long, ErrorLine, {}},
    {u"error", 0, 1, Type::Variant, ErrorText, u"ErrorNumber"},
    {u"isarray", 1, 1, Type::Boolean, IsArrayValue, u"VarName"},
    {u"isdate", 1, 1, Type::Boolean, IsDateValue, u"Expression"},
    {u"isempty", 1, 1, Type::Boolean, IsEmptyValue, u"Expression"},
    {u"iserror", 1, 1, Type::Boolean, IsErrorValue, u"Expression"},
    {u"ismissing", 1, 1, Type::Boolean, IsMissingValue, u"ArgName"},
    {u"isnull", 1, 1, Type::Boolean, IsNullValue, u"Expression"},
    {u"isnumeric", 1, 1, Type::Boolean, IsNumericValue, u"Expression"},
    {u"isobject", 1, 1, Type::Boolean, IsObjectValue, u"Expression"},
    {u"lbound", 1, 2, Type::Long, LowerBound, u"ArrayName Dimension"},
    {u"qbcolor", 1, 1, Type::Long, QBColor, u"Color"},
    {u"rgb", 3, 3, Type::Long, Rgb, u"Red Green Blue"},
    {u"typename", 1, 1, Type::String, TypeNameOf, u"VarName"},
    {u"ubound", 1, 2, Type::Long, UpperBound, u"ArrayName Dimension"},
    {u"vartype", 1, 1, Type::Long, VarTypeOf, u"VarName"},
};

struct LeftOut
{
    std::u16string_view folded;
    std::u16string_view shown;
};

/// They need a registry of their own, other programs, addresses in memory or the type Decimal.
constexpr LeftOut kLeftOut[] = {
    {u"appactivate", u"AppActivate"},
    {u"cdec", u"CDec"},
    {u"deletesetting", u"DeleteSetting"},
    {u"getallsettings", u"GetAllSettings"},
    {u"getsetting", u"GetSetting"},
    {u"imestatus", u"IMEStatus"},
    {u"loadpicture", u"LoadPicture"},
    {u"objptr", u"ObjPtr"},
    {u"savepicture", u"SavePicture"},
    {u"savesetting", u"SaveSetting"},
    {u"sendkeys", u"SendKeys"},
    {u"shell", u"Shell"},
    {u"strptr", u"StrPtr"},
    {u"varptr", u"VarPtr"},
};

} // namespace

std::u16string_view LeftOutFunction(std::u16string_view folded)
{
    for (const LeftOut& row : kLeftOut) {
        if (row.folded == folded) {
            return row.shown;
        }
    }
    return {};
}

std::span<const Builtin> InformationFunctions()
{
    return kFunctions;
}

int32_t FindBuiltin(std::u16string_view folded)
{
    static const std::unordered_map<std::u16string_view, int32_t> index = [] {
        std::unordered_map<std::u16string_view, int32_t> built;
        for (int32_t i = 0;; ++i) {
            const Builtin& builtin = GetBuiltin(i);
            if (builtin.call == nullptr) {
                return built;
            }
            built.emplace(builtin.name, i);
        }
    }();
    auto found = index.find(folded);
    return found == index.end() ? -1 : found->second;
}

const Builtin& GetBuiltin(int32_t index)
{
    static const std::vector<Builtin> all = [] {
        std::vector<Builtin> joined;
        for (std::span<const Builtin> group :
             {TextFunctions(), ByteFunctions(), NumberFunctions(), DateFunctions(), FormatFunctions(),
              FinancialFunctions(), InformationFunctions(), InteractionFunctions(), FileFunctions()}) {
            joined.insert(joined.end(), group.begin(), group.end());
        }
        // Ends the walk that builds the index.
        joined.push_back(Builtin{});
        return joined;
    }();
    return all[static_cast<size_t>(index)];
}

} // namespace tv::macro
