// Parameters, variables, constants and their types, in a module and in procedures alike.

#include "macro/parser.h"

namespace tv::macro {

namespace {

struct NamedType
{
    std::u16string_view name;
    Type type;
};

constexpr NamedType kTypes[] = {
    {u"boolean", Type::Boolean},   {u"byte", Type::Byte},        {u"integer", Type::Integer}, {u"long", Type::Long},
    {u"longlong", Type::LongLong}, {u"longptr", Type::LongLong}, {u"single", Type::Single},   {u"double", Type::Double},
    {u"currency", Type::Currency}, {u"date", Type::Date},        {u"string", Type::String},   {u"object", Type::Object},
    {u"variant", Type::Variant},   {u"any", Type::Variant},
};

} // namespace

Type SuffixType(char16_t suffix)
{
    switch (suffix) {
    case u'%':
        return Type::Integer;
    case u'&':
        return Type::Long;
    case u'!':
        return Type::Single;
    case u'#':
        return Type::Double;
    case u'@':
        return Type::Currency;
    case u'$':
        return Type::String;
    default:
        return Type::Variant;
    }
}

Type LetterType(const std::array<Type, 26>& letterTypes, std::u16string_view folded)
{
    bool isLetter = !folded.empty() && folded.front() >= u'a' && folded.front() <= u'z';
    return isLetter ? letterTypes[static_cast<size_t>(folded.front() - u'a')] : Type::Variant;
}

std::vector<ParameterSyntax> Parser::ParseParameters(bool endsWithValue)
{
    std::vector<ParameterSyntax> parameters;
    ExpectSymbol(u"(");
    if (TakeSymbol(u")")) {
        return parameters;
    }
    do {
        parameters.push_back(ParseParameter());
        if (parameters.size() > 1 && parameters[parameters.size() - 2].isParamArray) {
            Fail(u"ParamArray must be the last parameter");
        }
        if (parameters.size() > 1 && parameters[parameters.size() - 2].isOptional && !parameters.back().isOptional &&
            !parameters.back().isParamArray && !(endsWithValue && IsSymbol(u")"))) {
            Expected(u"Optional");
        }
    } while (TakeSymbol(u","));
    ExpectSymbol(u")");
    return parameters;
}

ParameterSyntax Parser::ParseParameter()
{
    ParameterSyntax parameter;
    parameter.isOptional = TakeWord(u"optional");
    if (TakeWord(u"byval")) {
        parameter.byValue = true;
    } else {
        TakeWord(u"byref");
    }
    parameter.isParamArray = TakeWord(u"paramarray");
    parameter.at = Here();
    const Token& name = ExpectName();
    parameter.name = name.text;
    if (TakeSymbol(u"(")) {
        ExpectSymbol(u")");
        parameter.isArray = true;
    }
    parameter.type = ParseAsClause(name);
    RefuseLength(parameter.type);
    if (TakeSymbol(u"=")) {
        if (!parameter.isOptional) {
            Expected(u"Optional");
        }
        parameter.defaultValue = ParseExpression();
    }
    if (parameter.isParamArray && (!parameter.isArray || parameter.type.type != Type::Variant)) {
        Fail(u"ParamArray must be declared as an array of Variant");
    }
    return parameter;
}

std::vector<VariableSyntax> Parser::ParseVariables()
{
    std::vector<VariableSyntax> variables;
    do {
        variables.push_back(ParseVariable());
    } while (TakeSymbol(u","));
    return variables;
}

VariableSyntax Parser::ParseVariable()
{
    VariableSyntax variable;
    if (IsWord(u"withevents")) {
        Unsupported(u"WithEvents");
    }
    variable.at = Here();
    const Token& name = ExpectName();
    variable.name = name.text;
    if (IsSymbol(u"(")) {
        variable.isArray = true;
        variable.bounds = ParseBounds();
    }
    variable.type = ParseAsClause(name);
    if (variable.isArray && variable.type.isNew) {
        throw CompileFailure{variable.at, u"An array declared As New is not supported by this macro language"};
    }
    return variable;
}

std::vector<BoundSyntax> Parser::ParseBounds()
{
    std::vector<BoundSyntax> bounds;
    ExpectSymbol(u"(");
    if (TakeSymbol(u")")) {
        return bounds;
    }
    do {
        BoundSyntax bound;
        bound.upper = ParseExpression();
        if (TakeWord(u"to")) {
            bound.lower = std::move(bound.upper);
            bound.upper = ParseExpression();
        }
        bounds.push_back(std::move(bound));
    } while (TakeSymbol(u","));
    ExpectSymbol(u")");
    if (bounds.size() > 60) {
        Fail(u"Too many dimensions");
    }
    return bounds;
}

std::vector<ConstantSyntax> Parser::ParseConstants()
{
    std::vector<ConstantSyntax> constants;
    do {
        ConstantSyntax constant;
        constant.at = Here();
        const Token& name = ExpectName();
        constant.name = name.text;
        constant.type = ParseAsClause(name);
        ExpectSymbol(u"=");
        constant.value = ParseExpression();
        constants.push_back(std::move(constant));
    } while (TakeSymbol(u","));
    return constants;
}

TypeSyntax Parser::ParseAsClause(const Token& name)
{
    if (TakeWord(u"as")) {
        return ParseWrittenType();
    }
    TypeSyntax type;
    type.at = Here();
    type.isGiven = name.suffix != 0;
    type.type = type.isGiven ? SuffixType(name.suffix) : LetterType(letterTypes, name.folded);
    return type;
}

TypeSyntax Parser::ParseWrittenType()
{
    bool isNew = TakeWord(u"new");
    TypeSyntax type = ParseTypeName();
    type.isNew = isNew;
    type.isGiven = true;
    if (type.type == Type::String && TakeSymbol(u"*")) {
        type.fixedLength = ParsePrimary();
    }
    return type;
}

void Parser::RefuseLength(const TypeSyntax& type)
{
    if (type.fixedLength) {
        throw CompileFailure{type.at, u"A String of fixed length can't be a parameter or a result"};
    }
}

TypeSyntax Parser::ParseTypeName()
{
    TypeSyntax type;
    type.at = Here();
    if (Current().kind != TokenKind::Name) {
        Expected(u"type name");
    }
    for (const NamedType& known : kTypes) {
        if (IsWord(known.name)) {
            ++at;
            type.type = known.type;
            return type;
        }
    }
    type.type = Type::Object;
    type.name = ExpectName().text;
    if (TakeSymbol(u".")) {
        if (Current().kind != TokenKind::Name) {
            Expected(u"type name");
        }
        type.qualifier = std::move(type.name);
        type.name = tokens[at++].text;
    }
    return type;
}

} // namespace tv::macro
