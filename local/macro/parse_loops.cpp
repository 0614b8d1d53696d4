// Loops, With blocks and jumps.

#include "macro/parser.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

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

StatementBody Parser::ParseGoTo()
{
    ++at;
    return GoToStatement{ParseLabel()};
}

StatementBody Parser::ParseGoSub()
{
    ++at;
    return GoSubStatement{ParseLabel()};
}

StatementBody Parser::ParseReturn()
{
    ++at;
    return ReturnStatement{};
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

} // namespace tv::macro
