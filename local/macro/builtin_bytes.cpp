// Functions that count the bytes of texts instead of their characters.

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/runtime.h"

#include <algorithm>

namespace tv::macro {

namespace {

std::string BytesOf(const Value& value)
{
    return CoerceTo(Type::String, value).TextBytes();
}

size_t Count(const Value& value, int32_t least)
{
    int32_t count = value.ToLong();
    if (count < least) {
        Raise(kInvalidCall);
    }
    return static_cast<size_t>(count);
}

Value LenB(Runtime&, const Arguments& a)
{
    return a[0].IsNull() ? Value::Null() : Value(static_cast<int32_t>(BytesOf(a[0]).size()));
}

Value LeftB(Runtime&, const Arguments& a)
{
    return a[0].IsNull() ? Value::Null() : Value::FromBytes(BytesOf(a[0]).substr(0, Count(a[1], 0)));
}

Value RightB(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    std::string bytes = BytesOf(a[0]);
    return Value::FromBytes(bytes.substr(bytes.size() - std::min(bytes.size(), Count(a[1], 0))));
}

Value MidB(Runtime&, const Arguments& a)
{
    if (a[0].IsNull()) {
        return Value::Null();
    }
    std::string bytes = BytesOf(a[0]);
    size_t start = Count(a[1], 1) - 1;
    size_t length = a.Has(2) ? Count(a[2], 0) : bytes.size();
    return Value::FromBytes(bytes.substr(std::min(start, bytes.size()), length));
}

/// The statement MidB: some bytes are overwritten, their number stays.
Value AssignMidB(Runtime&, const Arguments& a)
{
    std::string bytes = BytesOf(a[0]);
    size_t start = Count(a[1], 1);
    std::string with = BytesOf(a[3]);
    if (start > bytes.size()) {
        Raise(kInvalidCall);
    }
    size_t length = std::min({a.Has(2) ? Count(a[2], 0) : with.size(), with.size(), bytes.size() - start + 1});
    return Value::FromBytes(bytes.replace(start - 1, length, with.substr(0, length)));
}

Value InStrB(Runtime&, const Arguments& a)
{
    bool hasStart = a.Count() > 2 && a.Has(2);
    size_t first = hasStart ? 1 : 0;
    if (a[first].IsNull() || a[first + 1].IsNull()) {
        return Value::Null();
    }
    size_t from = hasStart ? Count(a[0], 1) - 1 : 0;
    // Bytes have no case.
    if (a.Has(3) && a[3].ToLong() != 0) {
        Raise(kInvalidCall);
    }
    std::string bytes = BytesOf(a[first]);
    size_t found = from < bytes.size() ? bytes.find(BytesOf(a[first + 1]), from) : std::string::npos;
    return Value(found == std::string::npos ? 0 : static_cast<int32_t>(found) + 1);
}

Value AscB(Runtime&, const Arguments& a)
{
    std::string bytes = BytesOf(a[0]);
    if (bytes.empty()) {
        Raise(kInvalidCall);
    }
    return Value::FromByte(static_cast<uint8_t>(bytes[0]));
}

Value ChrB(Runtime&, const Arguments& a)
{
    size_t code = Count(a[0], 0);
    if (code > 255) {
        Raise(kInvalidCall);
    }
    return Value::FromBytes(std::string(1, static_cast<char>(code)));
}

constexpr Builtin kFunctions[] = {
    {u"ascb", 1, 1, Type::Byte, AscB, u"String"},
    {u"chrb", 1, 1, Type::Variant, ChrB, u"CharCode"},
    {u"instrb", 2, 4, Type::Variant, InStrB, u"Start String1 String2 Compare"},
    {u"leftb", 2, 2, Type::Variant, LeftB, u"String Length"},
    {u"lenb", 1, 1, Type::Variant, LenB, u"Expression"},
    {u"midb", 2, 3, Type::Variant, MidB, u"String Start Length"},
    {u"rightb", 2, 2, Type::Variant, RightB, u"String Length"},
    {u"#midb", 4, 4, Type::String, AssignMidB, {}},
};

} // namespace

std::span<const Builtin> ByteFunctions()
{
    return kFunctions;
}

} // namespace tv::macro
