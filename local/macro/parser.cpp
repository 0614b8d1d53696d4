#include "macro/parser.h"

#include "macro/text.h"

#include <algorithm>
#include <array>

namespace tv::macro {

namespace {

constexpr auto kReservedWords = std::to_array<std::u16string_view>({
    u"addressof", u"and",     u"any",     u"as",     u"boolean",  u"byref",      u"byte",    u"byval",
    u"call",      u"case",    u"close",   u"const",  u"currency", u"date",       u"declare", u"dim",
    u"do",        u"double",  u"each",    u"else",   u"elseif",   u"empty",      u"end",     u"endif",
    u"enum",      u"eqv",     u"erase",   u"event",  u"exit",     u"false",      u"for",     u"friend",
    u"function",  u"get",     u"global",  u"gosub",  u"goto",     u"if",         u"imp",     u"implements",
    u"in",        u"input",   u"integer", u"is",     u"let",      u"like",       u"lock",    u"long",
    u"longlong",  u"longptr", u"loop",    u"lset",   u"mod",      u"new",        u"next",    u"not",
    u"nothing",   u"null",    u"on",      u"open",   u"option",   u"optional",   u"or",      u"paramarray",
    u"preserve",  u"print",   u"private", u"public", u"put",      u"raiseevent", u"redim",   u"rem",
    u"resume",    u"return",  u"rset",    u"select", u"set",      u"single",     u"static",  u"stop",
    u"string",    u"sub",     u"then",    u"to",     u"true",     u"type",       u"typeof",  u"unlock",
    u"until",     u"variant", u"wend",    u"while",  u"with",     u"withevents", u"write",   u"xor",
});

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

struct LetterStatement
{
    std::u16string_view folded;
    Type type;
};

constexpr LetterStatement kLetterStatements[] = {
    {u"defbool", Type::Boolean}, {u"defbyte", Type::Byte},       {u"defcur", Type::Currency},
    {u"defdate", Type::Date},    {u"defdbl", Type::Double},      {u"defint", Type::Integer},
    {u"deflng", Type::Long},     {u"deflnglng", Type::LongLong}, {u"deflngptr", Type::LongLong},
    {u"defobj", Type::Object},   {u"defsng", Type::Single},      {u"defstr", Type::String},
    {u"defvar", Type::Variant},
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

Expression::~Expression()
{
    // A joined text of thousands of terms is a chain as deep; it is taken apart without recursion.
    while (base) {
        ExpressionPtr next = std::move(base->base);
        base.reset();
        base = std::move(next);
    }
}

bool IsReservedWord(std::u16string_view folded)
{
    return std::find(kReservedWords.begin(), kReservedWords.end(), folded) != kReservedWords.end();
}

Parser::DepthGuard::DepthGuard(Parser& owner) : parser(owner)
{
    constexpr int kMostNested = 250;
    if (++parser.depth > kMostNested) {
        --parser.depth;
        parser.Fail(u"Too deeply nested");
    }
}

bool Parser::IsSymbol(const Token& token, std::u16string_view text)
{
    return token.kind == TokenKind::Symbol && token.text == text;
}

bool Parser::IsWord(const Token& token, std::u16string_view folded)
{
    return token.kind == TokenKind::Name && !token.isBracketed && token.folded == folded;
}

bool Parser::TakeSymbol(std::u16string_view text)
{
    bool found = IsSymbol(text);
    at += found ? 1 : 0;
    return found;
}

bool Parser::TakeWord(std::u16string_view folded)
{
    bool found = IsWord(folded);
    at += found ? 1 : 0;
    return found;
}

void Parser::ExpectSymbol(std::u16string_view text)
{
    if (!TakeSymbol(text)) {
        Expected(text);
    }
}

void Parser::ExpectWord(std::u16string_view folded, std::u16string_view shown)
{
    if (!TakeWord(folded)) {
        Expected(shown);
    }
}

bool Parser::AtEndOfLine() const
{
    return Current().kind == TokenKind::EndOfLine || Current().kind == TokenKind::EndOfText;
}

bool Parser::AtEndOfStatement() const
{
    return AtEndOfLine() || IsSymbol(u":");
}

void Parser::ExpectEndOfStatement()
{
    if (!AtEndOfStatement()) {
        Expected(u"end of statement");
    }
}

void Parser::SkipLineEnds()
{
    while (Current().kind == TokenKind::EndOfLine || IsSymbol(u":")) {
        ++at;
    }
}

const Token& Parser::ExpectName()
{
    const Token& token = Current();
    if (token.kind != TokenKind::Name || (!token.isBracketed && IsReservedWord(token.folded))) {
        Expected(u"identifier");
    }
    ++at;
    return token;
}

void Parser::Fail(std::u16string message) const
{
    if (Current().kind == TokenKind::Bad) {
        throw CompileFailure{Here(), Current().text};
    }
    throw CompileFailure{Here(), std::move(message)};
}

void Parser::Expected(std::u16string_view what) const
{
    Fail(u"Expected: " + std::u16string(what));
}

void Parser::Unsupported(std::u16string_view what) const
{
    Fail(std::u16string(what) + u" is not supported by this macro language");
}

ModuleSyntax Parser::ParseModule()
{
    ModuleSyntax module;
    for (SkipLineEnds(); Current().kind != TokenKind::EndOfText; SkipLineEnds()) {
        ParseModuleLine(module);
        ExpectEndOfStatement();
    }
    return module;
}

void Parser::ParseModuleLine(ModuleSyntax& module)
{
    if (IsWord(u"attribute") || IsWord(u"version")) {
        while (!AtEndOfLine()) {
            ++at;
        }
        return;
    }
    if (TakeWord(u"option")) {
        return ParseOption(module);
    }
    if (std::any_of(std::begin(kLetterStatements), std::end(kLetterStatements),
                    [this](const LetterStatement& known) { return IsWord(known.folded); })) {
        return ParseLetterTypes(module);
    }
    bool isVariable = false;
    if (TakeWord(u"public") || TakeWord(u"private") || TakeWord(u"global")) {
        isVariable = true;
    } else if (IsWord(u"friend")) {
        Unsupported(u"Friend");
    }
    bool isStatic = TakeWord(u"static");
    if (TakeWord(u"dim")) {
        isVariable = true;
    } else if (TakeWord(u"const")) {
        for (ConstantSyntax& constant : ParseConstants()) {
            module.constants.push_back(std::move(constant));
        }
        return;
    } else if (TakeWord(u"declare")) {
        return ParseDeclare(module);
    } else if (TakeWord(u"type")) {
        return ParseRecord(module);
    } else if (TakeWord(u"enum")) {
        return ParseEnum(module);
    } else if (IsWord(u"sub") || IsWord(u"function") ||
               (IsWord(u"property") &&
                (IsWord(Ahead(1), u"get") || IsWord(Ahead(1), u"let") || IsWord(Ahead(1), u"set")))) {
        return ParseProcedure(module, isStatic);
    }
    struct Refused
    {
        std::u16string_view word;
        std::u16string_view shown;
    };
    constexpr Refused kRefused[] = {
        {u"implements", u"Implements"},        {u"event", u"Event"},   {u"withevents", u"WithEvents"},
        {u"begin", u"A form or class header"}, {u"defdec", u"DefDec"},
    };
    for (const Refused& refused : kRefused) {
        if (IsWord(refused.word)) {
            Unsupported(refused.shown);
        }
    }
    if (!isVariable) {
        Fail(u"Invalid outside procedure");
    }
    for (VariableSyntax& variable : ParseVariables()) {
        module.variables.push_back(std::move(variable));
    }
}

void Parser::ParseOption(ModuleSyntax& module)
{
    if (TakeWord(u"explicit")) {
        module.optionExplicit = true;
    } else if (TakeWord(u"base")) {
        const Token& token = Current();
        if (token.kind != TokenKind::Literal || (token.text != u"0" && token.text != u"1")) {
            Expected(u"0 or 1");
        }
        module.optionBase = token.text == u"1" ? 1 : 0;
        ++at;
    } else if (TakeWord(u"compare")) {
        if (TakeWord(u"text")) {
            module.compareText = true;
        } else if (!TakeWord(u"binary")) {
            Expected(u"Text or Binary");
        }
    } else if (TakeWord(u"private")) {
        ExpectWord(u"module", u"Module");
    } else {
        Expected(u"Explicit, Base, Compare or Private");
    }
}

/// `DefInt I-N, X`
void Parser::ParseLetterTypes(ModuleSyntax& module)
{
    const std::u16string folded = tokens[at++].folded;
    Type type =
        std::find_if(std::begin(kLetterStatements), std::end(kLetterStatements), [&](const LetterStatement& known) {
            return known.folded == folded;
        })->type;
    auto takeLetter = [this] {
        const Token& token = Current();
        bool isLetter = token.kind == TokenKind::Name && token.folded.size() == 1 && token.folded[0] >= u'a' &&
                        token.folded[0] <= u'z';
        if (!isLetter) {
            Expected(u"letter");
        }
        ++at;
        return static_cast<size_t>(token.folded[0] - u'a');
    };
    do {
        size_t first = takeLetter();
        size_t last = TakeSymbol(u"-") ? takeLetter() : first;
        for (size_t letter = std::min(first, last); letter <= std::max(first, last); ++letter) {
            letterTypes[letter] = type;
        }
    } while (TakeSymbol(u","));
    module.letterTypes = letterTypes;
}

void Parser::ParseDeclare(ModuleSyntax& module)
{
    DeclareSyntax declare;
    TakeWord(u"ptrsafe");
    if (TakeWord(u"function")) {
        declare.isFunction = true;
    } else if (!TakeWord(u"sub")) {
        Expected(u"Sub or Function");
    }
    declare.at = Here();
    const Token& name = ExpectName();
    declare.name = name.text;
    TakeWord(u"cdecl");
    ExpectWord(u"lib", u"Lib");
    auto takeText = [this] {
        if (Current().kind != TokenKind::Literal || !Current().literal.IsString()) {
            Expected(u"string constant");
        }
        return tokens[at++].literal.Text();
    };
    declare.library = takeText();
    declare.entry = TakeWord(u"alias") ? takeText() : declare.name;
    if (IsSymbol(u"(")) {
        declare.parameters = ParseParameters();
    }
    declare.result = ParseAsClause(name);
    if (!declare.isFunction && declare.result.isGiven) {
        Expected(u"end of statement");
    }
    module.declares.push_back(std::move(declare));
}

void Parser::ParseRecord(ModuleSyntax& module)
{
    RecordSyntax record;
    record.at = Here();
    record.name = ExpectName().text;
    ExpectEndOfStatement();
    for (SkipLineEnds(); !(IsWord(u"end") && IsWord(Ahead(1), u"type")); SkipLineEnds()) {
        if (Current().kind == TokenKind::EndOfText) {
            Expected(u"End Type");
        }
        // Any word may name a field.
        VariableSyntax field;
        field.at = Here();
        if (Current().kind != TokenKind::Name) {
            Expected(u"identifier");
        }
        const Token& name = tokens[at++];
        field.name = name.text;
        if (IsSymbol(u"(")) {
            field.isArray = true;
            field.bounds = ParseBounds();
        }
        field.type = ParseAsClause(name);
        if (!field.type.isGiven) {
            Expected(u"As");
        }
        record.fields.push_back(std::move(field));
        ExpectEndOfStatement();
    }
    at += 2;
    module.records.push_back(std::move(record));
}

void Parser::ParseEnum(ModuleSyntax& module)
{
    EnumSyntax enumeration;
    enumeration.at = Here();
    enumeration.name = ExpectName().text;
    ExpectEndOfStatement();
    for (SkipLineEnds(); !(IsWord(u"end") && IsWord(Ahead(1), u"enum")); SkipLineEnds()) {
        if (Current().kind == TokenKind::EndOfText) {
            Expected(u"End Enum");
        }
        EnumSyntax::Member member;
        member.at = Here();
        member.name = ExpectName().text;
        if (TakeSymbol(u"=")) {
            member.value = ParseExpression();
        }
        enumeration.members.push_back(std::move(member));
        ExpectEndOfStatement();
    }
    at += 2;
    module.enums.push_back(std::move(enumeration));
}

ProcedureKind Parser::ParseProcedureKind()
{
    if (TakeWord(u"sub")) {
        return ProcedureKind::Sub;
    }
    if (TakeWord(u"function")) {
        return ProcedureKind::Function;
    }
    ExpectWord(u"property", u"Property");
    if (TakeWord(u"get")) {
        return ProcedureKind::PropertyGet;
    }
    if (TakeWord(u"let")) {
        return ProcedureKind::PropertyLet;
    }
    ExpectWord(u"set", u"Get, Let or Set");
    return ProcedureKind::PropertySet;
}

void Parser::ParseProcedure(ModuleSyntax& module, bool isStatic)
{
    ProcedureSyntax procedure;
    procedure.kind = ParseProcedureKind();
    procedure.isStatic = isStatic;
    procedure.at = Here();
    const Token& name = ExpectName();
    procedure.name = name.text;
    if (IsSymbol(u"(")) {
        bool endsWithValue =
            procedure.kind == ProcedureKind::PropertyLet || procedure.kind == ProcedureKind::PropertySet;
        procedure.parameters = ParseParameters(endsWithValue);
    }
    bool hasResult = procedure.kind == ProcedureKind::Function || procedure.kind == ProcedureKind::PropertyGet;
    if (hasResult) {
        procedure.result = ParseAsClause(name);
        if (procedure.result.isGiven && TakeSymbol(u"(")) {
            ExpectSymbol(u")");
            procedure.resultIsArray = true;
        }
    }
    ExpectEndOfStatement();
    bool isProperty = procedure.kind >= ProcedureKind::PropertyGet;
    std::u16string_view folded = isProperty ? u"property" : hasResult ? u"function" : u"sub";
    std::u16string_view shown = isProperty ? u"Property" : hasResult ? u"Function" : u"Sub";
    procedureWord = shown;
    procedure.body = ParseBlock({u"end"});
    procedure.end = Here();
    FailAtStrayEnd();
    ExpectEnd(folded, shown);
    module.procedures.push_back(std::move(procedure));
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
