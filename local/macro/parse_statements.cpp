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

struct RefusedWord
{
    std::u16string_view folded;
    std::u16string_view shown;
};

constexpr RefusedWord kRefusedStatements[] = {
    {u"raiseevent", u"RaiseEvent"},
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
    if (IsWord(u"debug") && IsSymbol(Ahead(1), u".") && IsWord(Ahead(2), u"print")) {
        return ParseDebugPrint();
    }
    if (IsWord(u"line") && IsWord(Ahead(1), u"input")) {
        return ParseLineInput();
    }
    if (IsWord(u"mid") && IsSymbol(Ahead(1), u"(")) {
        ++at;
        bool assigned = ParenthesisContinuesTarget();
        --at;
        if (assigned) {
            return ParseMid();
        }
    }
    // Words that may be names as well: what follows decides.
    const Token& next = Ahead(1);
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
    for (const StrayWord& stray : kStrayWords) {
        if (IsWord(stray.folded)) {
            Fail(std::u16string(stray.message));
        }
    }
    for (const RefusedWord& refused : kRefusedStatements) {
        if (IsWord(refused.folded)) {
            Unsupported(refused.shown);
        }
    }
    if (IsWord(u"if")) {
        return ParseIf();
    }
    if (IsWord(u"select")) {
        return ParseSelect();
    }
    if (IsWord(u"for")) {
        return ParseFor();
    }
    if (IsWord(u"do")) {
        return ParseDo();
    }
    if (IsWord(u"while")) {
        return ParseWhile();
    }
    if (IsWord(u"with")) {
        return ParseWith();
    }
    if (IsWord(u"on")) {
        return ParseOn();
    }
    if (IsWord(u"resume")) {
        return ParseResume();
    }
    if (IsWord(u"exit")) {
        return ParseExit();
    }
    if (IsWord(u"redim")) {
        return ParseReDim();
    }
    if (IsWord(u"open")) {
        return ParseOpen();
    }
    if (IsWord(u"close")) {
        return ParseClose();
    }
    if (IsWord(u"print")) {
        return ParsePrint(false);
    }
    if (IsWord(u"write")) {
        return ParsePrint(true);
    }
    if (IsWord(u"input")) {
        return ParseInput();
    }
    if (IsWord(u"get") || IsWord(u"put")) {
        return ParseTransfer(IsWord(u"put"));
    }
    if (TakeWord(u"dim")) {
        return DimStatement{ParseVariables(), false};
    }
    if (TakeWord(u"static")) {
        return DimStatement{ParseVariables(), true};
    }
    if (TakeWord(u"const")) {
        return ConstStatement{ParseConstants()};
    }
    if (TakeWord(u"erase")) {
        EraseStatement erase;
        do {
            erase.targets.push_back(ParseTarget());
        } while (TakeSymbol(u","));
        return erase;
    }
    if (TakeWord(u"goto")) {
        return GoToStatement{ParseLabel()};
    }
    if (TakeWord(u"gosub")) {
        return GoSubStatement{ParseLabel()};
    }
    if (TakeWord(u"return")) {
        return ReturnStatement{};
    }
    if (TakeWord(u"stop")) {
        // There is no debugger to stop for: it ends the macro, as in a compiled program.
        return EndStatement{};
    }
    if (IsWord(u"lset") || IsWord(u"rset")) {
        return ParseAlign(IsWord(u"rset"));
    }
    if (IsWord(u"lock") || IsWord(u"unlock")) {
        return ParseLock(IsWord(u"unlock"));
    }
    if (IsWord(u"end")) {
        FailAtStrayEnd();
        if (Ahead(1).kind == TokenKind::Name && !IsWord(Ahead(1), u"else")) {
            ++at;
            Expected(u"end of statement");
        }
        ++at;
        return EndStatement{};
    }
    if (TakeWord(u"set")) {
        SetStatement set;
        set.target = ParseTarget();
        ExpectSymbol(u"=");
        set.value = ParseExpression();
        return set;
    }
    if (TakeWord(u"let")) {
        LetStatement let;
        let.target = ParseTarget();
        ExpectSymbol(u"=");
        let.value = ParseExpression();
        return let;
    }
    if (TakeWord(u"call")) {
        return CallStatement{ParseTarget()};
    }
    return ParseCallOrLet();
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

void Parser::TakeNextVariables()
{
    if (AtEndOfStatement()) {
        return;
    }
    size_t count = 0;
    do {
        Position where = Here();
        ExpressionPtr variable = ParsePostfix();
        if (count == forVariables.size()) {
            throw CompileFailure{where, u"Next without For"};
        }
        const std::u16string& expected = forVariables[forVariables.size() - 1 - count];
        if (variable->kind != ExpressionKind::Name || Lower(variable->name) != expected) {
            throw CompileFailure{where, u"Invalid Next control variable reference"};
        }
        ++count;
    } while (TakeSymbol(u","));
    pendingNext = static_cast<int>(count) - 1;
}

/// Notes the variable of a loop that begins.
void Parser::OpenFor(const Expression& variable)
{
    std::u16string folded = variable.kind == ExpressionKind::Name ? Lower(variable.name) : std::u16string();
    if (!folded.empty() && std::find(forVariables.begin(), forVariables.end(), folded) != forVariables.end()) {
        throw CompileFailure{variable.at, u"For control variable already in use"};
    }
    forVariables.push_back(std::move(folded));
}

StatementBody Parser::ParseFor()
{
    ++at;
    bool isEach = TakeWord(u"each");
    ForStatement counted;
    ForEachStatement each;
    if (isEach) {
        each.variable = ParseTarget();
        ExpectWord(u"in", u"In");
        each.group = ParseExpression();
    } else {
        counted.variable = ParseTarget();
        ExpectSymbol(u"=");
        counted.first = ParseExpression();
        ExpectWord(u"to", u"To");
        counted.last = ParseExpression();
        if (TakeWord(u"step")) {
            counted.step = ParseExpression();
        }
    }
    ExpectEndOfStatement();
    OpenFor(isEach ? *each.variable : *counted.variable);
    Block block = ParseBlock({u"next"});
    Position end = Here();
    if (pendingNext > 0) {
        --pendingNext;
    } else {
        ExpectWord(u"next", u"Next");
        TakeNextVariables();
    }
    forVariables.pop_back();
    if (isEach) {
        each.block = std::move(block);
        each.end = end;
        return each;
    }
    counted.block = std::move(block);
    counted.end = end;
    return counted;
}

StatementBody Parser::ParseDo()
{
    ++at;
    DoStatement loop;
    if (IsWord(u"while") || IsWord(u"until")) {
        loop.untilBefore = IsWord(u"until");
        ++at;
        loop.before = ParseExpression();
    }
    ExpectEndOfStatement();
    loop.block = ParseBlock({u"loop"});
    loop.end = Here();
    ExpectWord(u"loop", u"Loop");
    if (IsWord(u"while") || IsWord(u"until")) {
        if (loop.before) {
            Expected(u"end of statement");
        }
        loop.untilAfter = IsWord(u"until");
        ++at;
        loop.after = ParseExpression();
    }
    return loop;
}

StatementBody Parser::ParseWhile()
{
    ++at;
    DoStatement loop;
    loop.isWhile = true;
    loop.before = ParseExpression();
    ExpectEndOfStatement();
    loop.block = ParseBlock({u"wend"});
    loop.end = Here();
    ExpectWord(u"wend", u"Wend");
    return loop;
}

StatementBody Parser::ParseWith()
{
    ++at;
    WithStatement statement;
    statement.subject = ParseExpression();
    ExpectEndOfStatement();
    statement.block = ParseBlock({u"end"});
    ExpectEnd(u"with", u"With");
    return statement;
}

std::u16string Parser::ParseLabel()
{
    const Token& token = Current();
    if (token.kind == TokenKind::Literal && token.literal.IsNumeric()) {
        ++at;
        return token.text;
    }
    return ExpectName().text;
}

StatementBody Parser::ParseOn()
{
    ++at;
    TakeWord(u"local");
    if (!TakeWord(u"error")) {
        return ParseOnJump();
    }
    OnErrorStatement statement;
    if (TakeWord(u"resume")) {
        ExpectWord(u"next", u"Next");
        statement.action = OnErrorStatement::Action::ResumeNext;
        return statement;
    }
    ExpectWord(u"goto", u"GoTo or Resume Next");
    if (IsSymbol(u"-") && Ahead(1).text == u"1") {
        at += 2;
        statement.action = OnErrorStatement::Action::ClearActive;
        return statement;
    }
    statement.label = ParseLabel();
    statement.action = statement.label == u"0" ? OnErrorStatement::Action::Off : OnErrorStatement::Action::GoTo;
    return statement;
}

StatementBody Parser::ParseOnJump()
{
    OnJumpStatement statement;
    statement.number = ParseExpression();
    statement.isGoSub = TakeWord(u"gosub");
    if (!statement.isGoSub) {
        ExpectWord(u"goto", u"GoTo or GoSub");
    }
    do {
        statement.labels.push_back(ParseLabel());
    } while (TakeSymbol(u","));
    return statement;
}

StatementBody Parser::ParseAlign(bool isRight)
{
    ++at;
    AlignStatement statement;
    statement.isRight = isRight;
    statement.target = ParseTarget();
    ExpectSymbol(u"=");
    statement.value = ParseExpression();
    return statement;
}

StatementBody Parser::ParseResume()
{
    ++at;
    ResumeStatement statement;
    if (AtEndOfStatement() || IsWord(u"else")) {
        return statement;
    }
    if (TakeWord(u"next")) {
        statement.target = ResumeStatement::Target::Next;
        return statement;
    }
    statement.label = ParseLabel();
    statement.target = statement.label == u"0" ? ResumeStatement::Target::Same : ResumeStatement::Target::Label;
    return statement;
}

StatementBody Parser::ParseExit()
{
    ++at;
    struct Exit
    {
        std::u16string_view folded;
        ExitStatement::What what;
    };
    static constexpr Exit kExits[] = {
        {u"do", ExitStatement::What::Do},
        {u"for", ExitStatement::What::For},
        {u"sub", ExitStatement::What::Sub},
        {u"function", ExitStatement::What::Function},
        {u"property", ExitStatement::What::Property},
    };
    for (const Exit& exit : kExits) {
        if (TakeWord(exit.folded)) {
            return ExitStatement{exit.what};
        }
    }
    Expected(u"Do, For, Sub, Function or Property");
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
    at += 2;
    MidStatement statement;
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
