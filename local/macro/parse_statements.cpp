#include "macro/parser.h"

#include "macro/text.h"

#include <array>

namespace tv::macro {

namespace {

struct StrayEnd
{
    std::u16string_view folded;
    std::u16string_view message;
};

/// The words behind End of blocks within procedures.
constexpr StrayEnd kStrayEnds[] = {
    {u"if", u"End If without block If"},
    {u"select", u"End Select without Select Case"},
    {u"with", u"End With without With"},
};

/// Words that end a block. Where one stands without its block it is named in the message.
struct StrayWord
{
    std::u16string_view folded;
    std::u16string_view message;
};

constexpr StrayWord kStrayWords[] = {
    {u"else", u"Else without If"},          {u"elseif", u"Else without If"}, {u"endif", u"End If without block If"},
    {u"next", u"Next without For"},         {u"loop", u"Loop without Do"},   {u"wend", u"Wend without While"},
    {u"case", u"Case without Select Case"},
};

} // namespace

bool Parser::AtCloser(std::initializer_list<std::u16string_view> closers) const
{
    if (pendingNext > 0) {
        return true;
    }
    // The end of the procedure ends its blocks, complete or not.
    if (IsWord(u"end") &&
        (IsWord(Ahead(1), u"sub") || IsWord(Ahead(1), u"function") || IsWord(Ahead(1), u"property"))) {
        return true;
    }
    for (std::u16string_view closer : closers) {
        if (IsWord(closer) && (closer != u"end" || Ahead(1).kind == TokenKind::Name)) {
            return true;
        }
    }
    return false;
}

Block Parser::ParseBlock(std::initializer_list<std::u16string_view> closers)
{
    DepthGuard guard(*this);
    Block block;
    while (true) {
        size_t before = 0;
        do {
            SkipLineEnds();
            SkipAttribute();
            before = at;
            ParseLineStart(block);
        } while (at != before);
        if (Current().kind == TokenKind::EndOfText || AtCloser(closers)) {
            return block;
        }
        block.push_back(ParseStatement());
        if (pendingNext > 0) {
            // `Next j, i` has closed this block as well; the end of its line is the outer statement's.
            return block;
        }
        ExpectEndOfStatement();
    }
}

/// A line of an exported module that is no part of the program.
void Parser::SkipAttribute()
{
    if (Current().startsLine && IsWord(u"attribute") && Ahead(1).kind == TokenKind::Name) {
        while (!AtEndOfLine()) {
            ++at;
        }
        SkipLineEnds();
    }
}

/// A label or a line number in front of a statement.
void Parser::ParseLineStart(Block& block)
{
    const Token& token = Current();
    if (!token.startsLine) {
        return;
    }
    if (token.kind == TokenKind::Literal && token.literal.IsNumeric() && token.literal.Kind() != Type::Date) {
        block.push_back(Statement{token.at, LabelStatement{token.text}});
        ++at;
        TakeSymbol(u":");
        return;
    }
    constexpr std::u16string_view kStatementWords[] = {u"doevents", u"beep", u"randomize", u"reset"};
    bool isStatement =
        std::find(std::begin(kStatementWords), std::end(kStatementWords), token.folded) != std::end(kStatementWords);
    if (token.kind == TokenKind::Name && !IsReservedWord(token.folded) && !isStatement && IsSymbol(Ahead(1), u":")) {
        block.push_back(Statement{token.at, LabelStatement{token.text}});
        at += 2;
    }
}

Statement Parser::ParseStatement()
{
    DepthGuard guard(*this);
    Position where = Here();
    return Statement{where, ParseStatementBody()};
}

StatementBody Parser::ParseStatementBody()
{
    if (Current().kind == TokenKind::Bad) {
        Fail(u"");
    }
    if (std::optional<StatementBody> found = ParseContextualStatement()) {
        return std::move(*found);
    }
    for (const StrayWord& stray : kStrayWords) {
        if (IsWord(stray.folded)) {
            Fail(std::u16string(stray.message));
        }
    }
    struct StatementWord
    {
        std::u16string_view folded;
        StatementBody (Parser::*parse)();
    };
    static constexpr StatementWord kStatements[] = {
        {u"call", &Parser::ParseCall},     {u"close", &Parser::ParseClose},
        {u"const", &Parser::ParseConst},   {u"dim", &Parser::ParseDim},
        {u"do", &Parser::ParseDo},         {u"end", &Parser::ParseEnd},
        {u"erase", &Parser::ParseErase},   {u"exit", &Parser::ParseExit},
        {u"for", &Parser::ParseFor},       {u"get", &Parser::ParseTransfer},
        {u"gosub", &Parser::ParseGoSub},   {u"goto", &Parser::ParseGoTo},
        {u"if", &Parser::ParseIf},         {u"input", &Parser::ParseInput},
        {u"let", &Parser::ParseLet},       {u"lock", &Parser::ParseLock},
        {u"lset", &Parser::ParseAlign},    {u"on", &Parser::ParseOn},
        {u"open", &Parser::ParseOpen},     {u"print", &Parser::ParsePrint},
        {u"put", &Parser::ParseTransfer},  {u"raiseevent", &Parser::ParseRaiseEvent},
        {u"redim", &Parser::ParseReDim},   {u"resume", &Parser::ParseResume},
        {u"return", &Parser::ParseReturn}, {u"rset", &Parser::ParseAlign},
        {u"select", &Parser::ParseSelect}, {u"set", &Parser::ParseSet},
        {u"static", &Parser::ParseDim},    {u"stop", &Parser::ParseStop},
        {u"unlock", &Parser::ParseLock},   {u"while", &Parser::ParseWhile},
        {u"with", &Parser::ParseWith},     {u"write", &Parser::ParsePrint},
    };
    for (const StatementWord& known : kStatements) {
        if (IsWord(known.folded)) {
            return (this->*known.parse)();
        }
    }
    return ParseCallOrLet();
}

/// Statements whose words may be names as well: what follows decides.
std::optional<StatementBody> Parser::ParseContextualStatement()
{
    const Token& next = Ahead(1);
    if (IsWord(u"debug") && IsSymbol(next, u".") && IsWord(Ahead(2), u"print")) {
        return ParseDebugPrint();
    }
    if (IsWord(u"line") && IsWord(next, u"input")) {
        return ParseLineInput();
    }
    if ((IsWord(u"mid") || IsWord(u"midb")) && IsSymbol(next, u"(")) {
        ++at;
        bool assigned = ParenthesisContinuesTarget();
        --at;
        if (assigned) {
            return ParseMid();
        }
    }
    bool beginsOperand = next.kind == TokenKind::Literal || IsSymbol(next, u"#") ||
                         (next.kind == TokenKind::Name && !IsWord(next, u"as"));
    if (IsWord(u"name") && beginsOperand) {
        return ParseName();
    }
    if (IsWord(u"error") && beginsOperand) {
        ++at;
        return RaiseStatement{ParseExpression()};
    }
    if (IsWord(u"seek") && beginsOperand) {
        return ParseSeek();
    }
    if (IsWord(u"reset") && (next.kind == TokenKind::EndOfLine || IsSymbol(next, u":"))) {
        ++at;
        return CloseStatement{};
    }
    if (IsWord(u"width") && IsSymbol(next, u"#")) {
        Unsupported(u"Width #");
    }
    return std::nullopt;
}

StatementBody Parser::ParseDim()
{
    bool isStatic = IsWord(u"static");
    ++at;
    return DimStatement{ParseVariables(), isStatic};
}

StatementBody Parser::ParseConst()
{
    ++at;
    return ConstStatement{ParseConstants()};
}

StatementBody Parser::ParseErase()
{
    ++at;
    EraseStatement erase;
    do {
        erase.targets.push_back(ParseTarget());
    } while (TakeSymbol(u","));
    return erase;
}

StatementBody Parser::ParseStop()
{
    // There is no debugger to stop for: it ends the macro, as in a compiled program.
    ++at;
    return EndStatement{};
}

StatementBody Parser::ParseEnd()
{
    FailAtStrayEnd();
    ++at;
    if (Current().kind == TokenKind::Name && !IsWord(u"else")) {
        Expected(u"end of statement");
    }
    return EndStatement{};
}

StatementBody Parser::ParseRaiseEvent()
{
    Unsupported(u"RaiseEvent");
}

StatementBody Parser::ParseSet()
{
    ++at;
    SetStatement set;
    set.target = ParseTarget();
    ExpectSymbol(u"=");
    set.value = ParseExpression();
    return set;
}

StatementBody Parser::ParseLet()
{
    ++at;
    LetStatement let;
    let.target = ParseTarget();
    ExpectSymbol(u"=");
    let.value = ParseExpression();
    return let;
}

StatementBody Parser::ParseCall()
{
    ++at;
    return CallStatement{ParseTarget()};
}

void Parser::FailAtStrayEnd() const
{
    for (const StrayEnd& stray : kStrayEnds) {
        if (IsWord(u"end") && IsWord(Ahead(1), stray.folded)) {
            Fail(std::u16string(stray.message));
        }
    }
}

/// What belongs outside of procedures means that the end of this one is missing.
void Parser::FailAtModuleWord() const
{
    for (std::u16string_view word : {u"public", u"private", u"global"}) {
        if (IsWord(word)) {
            Fail(u"Invalid attribute in Sub or Function");
        }
    }
    for (std::u16string_view word : {u"sub", u"function", u"declare", u"enum", u"type", u"option"}) {
        if (IsWord(word)) {
            Expected(u"End " + std::u16string(procedureWord));
        }
    }
}

StatementBody Parser::ParseCallOrLet()
{
    FailAtModuleWord();
    ExpressionPtr target = ParseCallTarget();
    if (target->kind == ExpressionKind::Literal || target->kind == ExpressionKind::Parenthesized) {
        throw CompileFailure{target->at, u"Expected: statement"};
    }
    if (TakeSymbol(u"=")) {
        return LetStatement{std::move(target), ParseExpression()};
    }
    if (IsSymbol(u"(") && IsSymbol(Ahead(1), u")")) {
        at += 2;
        ExpectEndOfStatement();
        return CallStatement{std::move(target)};
    }
    if (AtEndOfStatement() || IsWord(u"else")) {
        return CallStatement{std::move(target)};
    }
    ExpressionPtr call = std::make_unique<Expression>(ExpressionKind::Index, target->at);
    call->arguments = ParseArguments(false);
    call->base = std::move(target);
    return CallStatement{std::move(call)};
}

StatementBody Parser::ParseIf()
{
    IfStatement statement;
    IfStatement::Branch first;
    first.at = Here();
    ++at;
    first.condition = ParseExpression();
    if (IsWord(u"goto")) {
        statement.branches.push_back(std::move(first));
        return ParseSingleLineIf(std::move(statement));
    }
    ExpectWord(u"then", u"Then or GoTo");
    bool isBlock = AtEndOfLine();
    statement.branches.push_back(std::move(first));
    if (!isBlock) {
        return ParseSingleLineIf(std::move(statement));
    }
    statement.branches.back().block = ParseBlock({u"else", u"elseif", u"end", u"endif"});
    while (IsWord(u"elseif")) {
        IfStatement::Branch branch;
        branch.at = Here();
        ++at;
        branch.condition = ParseExpression();
        ExpectWord(u"then", u"Then");
        branch.block = ParseBlock({u"else", u"elseif", u"end", u"endif"});
        statement.branches.push_back(std::move(branch));
    }
    if (TakeWord(u"else")) {
        statement.otherwise = ParseBlock({u"end", u"endif", u"else", u"elseif"});
    }
    if (!TakeWord(u"endif")) {
        ExpectEnd(u"if", u"If");
    }
    return statement;
}

StatementBody Parser::ParseSingleLineIf(IfStatement statement)
{
    statement.branches.back().block = ParseInlineBlock();
    if (TakeWord(u"else")) {
        statement.otherwise = ParseInlineBlock();
    }
    return statement;
}

/// The statements of a single-line If. A line number alone is a jump.
Block Parser::ParseInlineBlock()
{
    DepthGuard guard(*this);
    Block block;
    if (Current().kind == TokenKind::Literal && Current().literal.IsNumeric()) {
        block.push_back(Statement{Here(), GoToStatement{Current().text}});
        ++at;
    }
    while (true) {
        while (TakeSymbol(u":")) {
        }
        if (AtEndOfLine() || IsWord(u"else")) {
            return block;
        }
        block.push_back(ParseStatement());
        if (!IsWord(u"else")) {
            ExpectEndOfStatement();
        }
    }
}

StatementBody Parser::ParseSelect()
{
    ++at;
    ExpectWord(u"case", u"Case");
    SelectStatement statement;
    statement.subject = ParseExpression();
    ExpectEndOfStatement();
    SkipLineEnds();
    while (IsWord(u"case")) {
        SelectStatement::Case arm;
        arm.at = Here();
        ++at;
        if (TakeWord(u"else")) {
            arm.isElse = true;
        } else {
            do {
                arm.tests.push_back(ParseCaseTest());
            } while (TakeSymbol(u","));
        }
        ExpectEndOfStatement();
        arm.block = ParseBlock({u"case", u"end"});
        statement.cases.push_back(std::move(arm));
    }
    ExpectEnd(u"select", u"Select");
    return statement;
}

SelectStatement::Test Parser::ParseCaseTest()
{
    struct Comparison
    {
        std::u16string_view text;
        Operator operation;
    };
    static constexpr Comparison kComparisons[] = {
        {u"=", Operator::Equal},   {u"<>", Operator::NotEqual},    {u"<", Operator::Less},
        {u">", Operator::Greater}, {u"<=", Operator::LessOrEqual}, {u">=", Operator::GreaterOrEqual},
    };
    SelectStatement::Test test;
    bool hasIs = TakeWord(u"is");
    for (const Comparison& comparison : kComparisons) {
        if (TakeSymbol(comparison.text)) {
            test.operation = comparison.operation;
            test.value = ParseExpression();
            return test;
        }
    }
    if (hasIs) {
        Expected(u"comparison operator");
    }
    test.value = ParseExpression();
    if (TakeWord(u"to")) {
        test.upTo = ParseExpression();
    }
    return test;
}

StatementBody Parser::ParseAlign()
{
    AlignStatement statement;
    statement.isRight = IsWord(u"rset");
    ++at;
    statement.target = ParseTarget();
    ExpectSymbol(u"=");
    statement.value = ParseExpression();
    return statement;
}

StatementBody Parser::ParseReDim()
{
    ++at;
    ReDimStatement statement;
    statement.preserve = TakeWord(u"preserve");
    do {
        ReDimStatement::Item item;
        // The last parenthesis holds the bounds; anything before it leads to the array.
        ExpressionPtr target = ParsePrimary();
        while (IsSymbol(u".") || ParenthesisContinuesTarget()) {
            if (IsSymbol(u".")) {
                target = ParseMember(std::move(target));
            } else {
                ExpressionPtr call = Make(ExpressionKind::Index);
                ++at;
                call->arguments = ParseArguments(true);
                ExpectSymbol(u")");
                call->base = std::move(target);
                target = std::move(call);
            }
        }
        item.target = std::move(target);
        item.bounds = ParseBounds();
        if (item.bounds.empty()) {
            Expected(u"expression");
        }
        if (TakeWord(u"as")) {
            item.type = ParseWrittenType();
        }
        statement.items.push_back(std::move(item));
    } while (TakeSymbol(u","));
    return statement;
}

void Parser::ExpectEnd(std::u16string_view folded, std::u16string_view shown)
{
    if (!IsWord(u"end") || !IsWord(Ahead(1), folded)) {
        Expected(u"End " + std::u16string(shown));
    }
    at += 2;
}

StatementBody Parser::ParseMid()
{
    MidStatement statement;
    statement.countsBytes = IsWord(u"midb");
    at += 2;
    statement.target = ParseTarget();
    ExpectSymbol(u",");
    statement.start = ParseExpression();
    if (TakeSymbol(u",")) {
        statement.length = ParseExpression();
    }
    ExpectSymbol(u")");
    ExpectSymbol(u"=");
    statement.value = ParseExpression();
    return statement;
}

} // namespace tv::macro
