#include "macro/compiler.h"

#include "macro/convert.h"
#include "macro/text.h"

namespace tv::macro {

namespace {

/// Bytes that a variable of the type takes, which is what Len gives for one; 0 when Len counts characters.
int32_t SizeOf(Type type)
{
    switch (type) {
    case Type::Byte:
        return 1;
    case Type::Integer:
    case Type::Boolean:
        return 2;
    case Type::Long:
    case Type::Single:
        return 4;
    case Type::LongLong:
    case Type::Double:
    case Type::Currency:
    case Type::Date:
        return 8;
    default:
        return 0;
    }
}

std::vector<std::u16string_view> SplitNames(std::u16string_view names)
{
    std::vector<std::u16string_view> parts;
    while (!names.empty()) {
        size_t blank = std::min(names.find(u' '), names.size());
        parts.push_back(names.substr(0, blank));
        names.remove_prefix(std::min(blank + 1, names.size()));
    }
    return parts;
}

} // namespace

void Compiler::RefuseLeftOut(const std::u16string& folded, const Position& at) const
{
    std::u16string_view shown = LeftOutFunction(folded);
    if (!shown.empty()) {
        Fail(at, std::u16string(shown) + u" is not supported by this macro language");
    }
}

std::optional<Type> Compiler::EmitCallByName(const Expression& name, const std::vector<ArgumentSyntax>& arguments)
{
    std::u16string folded = Lower(name.name);
    if (FindVariable(folded) != nullptr && !IsOwnName(folded)) {
        Fail(name.at, u"Expected: Sub, Function or Property instead of variable " + name.name);
    }
    if (const Symbol* symbol = FindSymbol(folded)) {
        switch (symbol->kind) {
        case SymbolKind::Procedure:
            return EmitProcedureCall(symbol->index, arguments, name.at);
        case SymbolKind::Property: {
            int32_t get = properties[static_cast<size_t>(symbol->index)].get;
            if (get < 0) {
                Fail(name.at, u"Invalid use of property: " + name.name);
            }
            return EmitProcedureCall(get, arguments, name.at);
        }
        case SymbolKind::External:
            return EmitExternalCall(symbol->index, arguments);
        default:
            Fail(name.at, u"Expected: Sub, Function or Property instead of " + name.name);
        }
    }
    if (folded == u"err") {
        Emit(Op::PushErr);
        return Type::Object;
    }
    RefuseLeftOut(folded, name.at);
    int32_t builtin = FindBuiltin(folded);
    if (builtin >= 0) {
        return EmitBuiltinCall(builtin, arguments, name.at, name.suffix);
    }
    if (IsHostGlobal(folded)) {
        Emit(Op::HostGlobal, AddName(folded));
        if (!arguments.empty()) {
            int32_t names = EmitLateArguments(arguments);
            Emit(Op::GetMember, AddName(u""), static_cast<uint16_t>(arguments.size()), 0, names);
        }
        return Type::Variant;
    }
    return std::nullopt;
}

std::vector<const ArgumentSyntax*> Compiler::MatchArguments(const std::vector<Parameter>& parameters,
                                                            const std::vector<ArgumentSyntax>& arguments,
                                                            const Position& at) const
{
    std::vector<const ArgumentSyntax*> matched(parameters.size(), nullptr);
    bool hasParamArray = !parameters.empty() && parameters.back().isParamArray;
    bool sawName = false;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const ArgumentSyntax& argument = arguments[i];
        size_t place = i;
        if (!argument.name.empty()) {
            sawName = true;
            std::u16string folded = Lower(argument.name);
            place = 0;
            while (place < parameters.size() && parameters[place].name != folded) {
                ++place;
            }
            if (place == parameters.size() || parameters[place].isParamArray) {
                Fail(at, u"Named argument not found: " + argument.name);
            }
            if (matched[place] != nullptr) {
                Fail(at, u"Named argument already specified: " + argument.name);
            }
        } else if (sawName) {
            Fail(at, u"Expected: named parameter");
        }
        if (hasParamArray && place + 1 >= parameters.size()) {
            continue;
        }
        if (place >= parameters.size()) {
            Fail(at, u"Wrong number of arguments or invalid property assignment");
        }
        matched[place] = argument.value ? &argument : nullptr;
    }
    return matched;
}

Type Compiler::EmitProcedureCall(int32_t index, const std::vector<ArgumentSyntax>& arguments, const Position& at)
{
    const Procedure& callee = module->procedures[static_cast<size_t>(index)];
    const ProcedureSyntax* declared = nullptr;
    for (size_t i = 0; i < procedureOf.size(); ++i) {
        declared = procedureOf[i] == index ? &syntax.procedures[i] : declared;
    }
    Type result = Type::Empty;
    if (callee.hasResult) {
        result = declared->resultIsArray ? Type::Array : Resolve(declared->result).type;
    }
    // `Names(2)` of a function without parameters is an element of what it returns.
    ParamArrayUse rest;
    bool indexesResult = callee.parameters.empty() && !arguments.empty() && callee.hasResult;
    const std::vector<Parameter>& parameters = callee.parameters;
    if (!indexesResult) {
        std::vector<const ArgumentSyntax*> matched = MatchArguments(parameters, arguments, at);
        for (size_t i = 0; i < parameters.size(); ++i) {
            if (parameters[i].isParamArray) {
                EmitParamArray(arguments, i, rest);
            } else {
                EmitArgument(parameters[i], matched[i], at);
            }
        }
    }
    Emit(Op::Call, index, static_cast<uint16_t>(parameters.size()));
    EmitWriteBack(rest);
    if (indexesResult) {
        EmitIndices(arguments, at);
        Emit(Op::Index, 0, static_cast<uint16_t>(arguments.size()));
        return Type::Variant;
    }
    return result;
}

/// Leaves a reference to an array of what was given, and notes which elements came from variables.
void Compiler::EmitParamArray(const std::vector<ArgumentSyntax>& arguments, size_t first, ParamArrayUse& use)
{
    uint16_t count = 0;
    for (size_t i = first; i < arguments.size(); ++i, ++count) {
        if (!arguments[i].value) {
            Emit(Op::PushMissing);
            continue;
        }
        const Expression& value = *arguments[i].value;
        if (value.kind == ExpressionKind::Parenthesized) {
            EmitValue(value);
            continue;
        }
        AddressResult address = EmitAddress(value);
        bool isWritable = address.isReference && !address.isArray && address.record < 0;
        if (isWritable) {
            int32_t slot = NewSlot();
            StatementInfo& statement = scope->procedure->statements[scope->statement];
            statement.heldFirst = statement.heldEnd == 0 ? slot : statement.heldFirst;
            statement.heldEnd = slot + 1;
            Emit(Op::StoreLocal, slot, 0, kRaw);
            Emit(Op::LoadLocal, slot);
            use.items.push_back(ParamArrayUse::Item{slot, count, address.stored});
        }
        if (address.isReference) {
            Emit(Op::LoadIndirect);
        }
    }
    Emit(Op::MakeArray, 0, count);
    if (use.items.empty()) {
        return;
    }
    use.array = NewSlot();
    Emit(Op::StoreLocal, use.array, 0, kRaw);
    Emit(Op::AddressLocal, use.array, 0, static_cast<uint8_t>(Type::Array));
}

void Compiler::EmitWriteBack(const ParamArrayUse& use)
{
    for (const ParamArrayUse::Item& item : use.items) {
        Emit(Op::LoadLocal, item.slot);
        Emit(Op::Push, AddConstant(Value(item.index)));
        Emit(Op::IndexVariable, use.array, 1, static_cast<uint8_t>(Place::Local));
        bool isRaw = item.stored == Type::Object || item.stored == Type::Variant;
        Emit(Op::StoreIndirect, 0, 0, isRaw ? kRaw : static_cast<uint8_t>(item.stored));
        Emit(Op::Push, AddConstant(Value()));
        Emit(Op::StoreLocal, item.slot, 0, kRaw);
    }
}

void Compiler::EmitArgument(const Parameter& parameter, const ArgumentSyntax* argument, const Position& at)
{
    if (argument == nullptr) {
        if (!parameter.isOptional) {
            Fail(at, u"Argument not optional");
        }
        Emit(Op::Push, AddConstant(parameter.defaultValue));
        return;
    }
    const Expression& value = *argument->value;
    if (!parameter.byValue && value.kind != ExpressionKind::Parenthesized) {
        AddressResult address = EmitAddress(value);
        if (address.isReference) {
            bool isVariable = value.kind == ExpressionKind::Name;
            bool sameType = address.type == parameter.type && address.isArray == parameter.isArray &&
                            address.record == parameter.record;
            if (sameType || (parameter.type == Type::Variant && !parameter.isArray)) {
                return;
            }
            if (isVariable || parameter.isArray) {
                Fail(value.at, u"ByRef argument type mismatch");
            }
            Emit(Op::LoadIndirect);
        }
        if (parameter.isArray && address.type != Type::Array && address.type != Type::Variant) {
            Fail(value.at, u"Type mismatch: array or user-defined type expected");
        }
    } else {
        EmitValue(value);
    }
    Type wanted = parameter.isArray ? Type::Array : parameter.type;
    if (wanted == Type::Object) {
        Emit(Op::CheckObject, parameter.className.empty() ? -1 : AddName(parameter.className));
    } else if (wanted != Type::Variant && wanted != Type::Record) {
        Emit(Op::Coerce, 0, 0, static_cast<uint8_t>(wanted));
    }
}

/// What Len gives for a record: the bytes of its fields, a text of any length counting as its pointer.
int32_t Compiler::SizeOfRecord(int32_t record) const
{
    int64_t size = 0;
    for (const Shape& field : module->records[static_cast<size_t>(record)].fields) {
        constexpr int32_t kPointer = 8;
        constexpr int32_t kVariant = 24;
        int32_t one = field.fixedLength >= 0        ? field.fixedLength
                      : field.record >= 0           ? SizeOfRecord(field.record)
                      : field.type == Type::Variant ? kVariant
                      : SizeOf(field.type) == 0     ? kPointer
                                                    : SizeOf(field.type);
        int64_t count = 1;
        for (const Dimension& dimension : field.dimensions) {
            count = std::min<int64_t>(count * dimension.count, 0x7FFFFFFF);
        }
        size += field.isArray && !field.isFixed ? kPointer : one * count;
    }
    return static_cast<int32_t>(std::min<int64_t>(size, 0x7FFFFFFF));
}

Type Compiler::EmitBuiltinCall(int32_t index, const std::vector<ArgumentSyntax>& arguments, const Position& at,
                               char16_t suffix, bool isQualified)
{
    if (suffix == u'$') {
        // Date$ and Time$ have forms of their own.
        int32_t asText = FindBuiltin(std::u16string(GetBuiltin(index).name) + u"$");
        index = asText >= 0 ? asText : index;
    }
    const Builtin& builtin = GetBuiltin(index);
    std::vector<const ArgumentSyntax*> ordered;
    std::vector<std::u16string_view> names = SplitNames(builtin.parameters);
    for (size_t i = 0; i < arguments.size(); ++i) {
        size_t place = i;
        if (!arguments[i].name.empty()) {
            place = 0;
            while (place < names.size() && !EqualIgnoringCase(names[place], arguments[i].name)) {
                ++place;
            }
            if (place == names.size()) {
                Fail(at, u"Named argument not found: " + arguments[i].name);
            }
        }
        if (ordered.size() <= place) {
            ordered.resize(place + 1, nullptr);
        }
        ordered[place] = arguments[i].value ? &arguments[i] : nullptr;
    }
    if (ordered.size() > builtin.most) {
        Fail(at, u"Wrong number of arguments or invalid property assignment");
    }
    for (size_t i = 0; i < builtin.least; ++i) {
        if (i >= ordered.size() || ordered[i] == nullptr) {
            Fail(at, u"Argument not optional");
        }
    }
    Type first = Type::Variant;
    for (size_t i = 0; i < ordered.size(); ++i) {
        if (ordered[i] == nullptr) {
            Emit(Op::PushMissing);
        } else {
            Type type = EmitValue(*ordered[i]->value);
            first = i == 0 ? type : first;
        }
    }
    if (builtin.name == u"len" || builtin.name == u"lenb") {
        int32_t record = ordered.size() == 1 && first == Type::Record ? RecordOf(*ordered[0]->value) : -1;
        int32_t size = record >= 0 ? SizeOfRecord(record) : SizeOf(first);
        if (size > 0) {
            Emit(Op::Pop);
            Emit(Op::Push, AddConstant(Value(size)));
            return Type::Long;
        }
    }
    Emit(Op::CallBuiltin, index, static_cast<uint16_t>(ordered.size()));
    if (builtin.name == u"array" && syntax.optionBase == 1 && !isQualified) {
        EmitInternal(u"#fromone", 1);
    }
    if (builtin.result == Type::Empty) {
        // A statement of the language leaves a value as well, so that all calls are alike.
        Emit(Op::Pop);
        return Type::Empty;
    }
    if (suffix == u'$' && builtin.result != Type::String) {
        // A String can't be Null.
        Emit(Op::Coerce, 0, 0, static_cast<uint8_t>(Type::String));
        return Type::String;
    }
    return builtin.result;
}

Type Compiler::EmitExternalCall(int32_t index, const std::vector<ArgumentSyntax>& arguments)
{
    const std::vector<Parameter>& parameters = externalParameters[static_cast<size_t>(index)];
    std::vector<const ArgumentSyntax*> matched = MatchArguments(parameters, arguments, lastPosition);
    for (size_t i = 0; i < parameters.size(); ++i) {
        EmitArgument(parameters[i], matched[i], lastPosition);
    }
    Emit(Op::CallExternal, index, static_cast<uint16_t>(parameters.size()));
    Type result = module->externals[static_cast<size_t>(index)].result;
    if (result == Type::Empty) {
        Emit(Op::Pop);
    }
    return result;
}

int32_t Compiler::EmitLateArguments(const std::vector<ArgumentSyntax>& arguments)
{
    std::vector<MemberName> names;
    for (const ArgumentSyntax& argument : arguments) {
        if (!argument.name.empty()) {
            names.emplace_back(argument.name);
        } else if (!names.empty()) {
            Fail(lastPosition, u"Expected: named parameter");
        }
        if (!argument.value) {
            Emit(Op::PushMissing);
        } else {
            // Variables travel by reference, so that a method can give something back through them.
            EmitAddress(*argument.value);
            NoteHandedToMember(*argument.value);
        }
    }
    if (names.empty()) {
        return -1;
    }
    module->argumentNames.push_back(std::move(names));
    return static_cast<int32_t>(module->argumentNames.size()) - 1;
}

/// `VBA`, one of its modules such as `Strings`, or both.
bool Compiler::IsLanguageLibrary(const Expression& expression) const
{
    if (expression.kind == ExpressionKind::Member) {
        return expression.base && expression.base->kind == ExpressionKind::Name &&
               EqualIgnoringCase(expression.base->name, u"vba") && IsLanguageLibrary(*expression.base) &&
               IsLibraryModule(Lower(expression.name));
    }
    std::u16string folded = expression.kind == ExpressionKind::Name ? Lower(expression.name) : std::u16string();
    return (folded == u"vba" || IsLibraryModule(folded)) && FindVariable(folded) == nullptr &&
           FindSymbol(folded) == nullptr;
}

Type Compiler::EmitLibraryMember(const Expression& member, const std::vector<ArgumentSyntax>& arguments)
{
    std::u16string folded = Lower(member.name);
    RefuseLeftOut(folded, member.at);
    const std::u16string qualifier = Lower(member.base->name);
    if (IsLibraryModule(qualifier) && !IsInLibraryModule(qualifier, folded)) {
        Fail(member.at, u"Method or data member not found: " + member.name);
    }
    if (folded == u"err") {
        Emit(Op::PushErr);
        return Type::Object;
    }
    int32_t builtin = FindBuiltin(folded);
    if (builtin < 0) {
        Fail(member.at, u"Method or data member not found: " + member.name);
    }
    return EmitBuiltinCall(builtin, arguments, member.at, member.suffix, true);
}

Type Compiler::EmitMemberCall(const Expression& member, const std::vector<ArgumentSyntax>& arguments)
{
    if (!member.base) {
        EmitWithSubject(member.at);
    } else {
        const Expression& base = *member.base;
        if (IsLanguageLibrary(base)) {
            return EmitLibraryMember(member, arguments);
        }
        if (base.kind == ExpressionKind::Name && FindVariable(Lower(base.name)) == nullptr) {
            std::u16string folded = Lower(base.name);
            if (folded == u"debug" && EqualIgnoringCase(member.name, u"assert")) {
                return Type::Empty;
            }
            bool isLibrary = options.library != nullptr && options.library->HasLibrary(folded);
            if (isLibrary && FindSymbol(folded) == nullptr && IsHostGlobal(Lower(member.name))) {
                return *EmitCallByName(member, arguments);
            }
        }
        EmitValue(base);
    }
    int32_t names = EmitLateArguments(arguments);
    Emit(Op::GetMember, AddName(member.name), static_cast<uint16_t>(arguments.size()), 0, names);
    return Type::Variant;
}

} // namespace tv::macro
