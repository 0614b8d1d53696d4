// The lines of a module outside of procedures, and what surrounds a procedure's statements.

#include "macro/parser.h"

#include <algorithm>
#include <span>

namespace tv::macro {

namespace {

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

ModuleSyntax Parser::ParseModule()
{
    ModuleSyntax module;
    for (SkipLineEnds(); Current().kind != TokenKind::EndOfText; SkipLineEnds()) {
        ParseModuleLine(module);
        ExpectEndOfStatement();
    }
    return module;
}

/// Whether a procedure begins here, with what may stand in front of its kind.
bool Parser::AtProcedure() const
{
    constexpr std::u16string_view kBeginnings[] = {u"public", u"private", u"friend", u"static"};
    constexpr std::u16string_view kKinds[] = {u"sub", u"function", u"property"};
    auto isOneOf = [](const Token& token, std::span<const std::u16string_view> words) {
        return std::any_of(words.begin(), words.end(), [&](std::u16string_view word) { return IsWord(token, word); });
    };
    size_t kind = 0;
    while (isOneOf(Ahead(kind), kBeginnings)) {
        ++kind;
    }
    return isOneOf(Ahead(kind), kKinds);
}

void Parser::ParseModuleLine(ModuleSyntax& module)
{
    if (IsWord(u"attribute") || IsWord(u"version")) {
        while (!AtEndOfLine()) {
            ++at;
        }
        return;
    }
    if (!module.procedures.empty() && !AtProcedure()) {
        Fail(u"Only comments may appear after End Sub, End Function, or End Property");
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
    RefuseLength(declare.result);
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
        RefuseLength(procedure.result);
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

} // namespace tv::macro
