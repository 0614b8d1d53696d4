// The statements that work on files.

#include "macro/parser.h"

namespace tv::macro {

ExpressionPtr Parser::ParseFileNumber()
{
    TakeSymbol(u"#");
    return ParseExpression();
}

StatementBody Parser::ParseOpen()
{
    ++at;
    OpenStatement statement;
    statement.path = ParseExpression();
    if (TakeWord(u"for")) {
        struct Mode
        {
            std::u16string_view folded;
            OpenStatement::Mode mode;
        };
        static constexpr Mode kModes[] = {
            {u"input", OpenStatement::Mode::Input},   {u"output", OpenStatement::Mode::Output},
            {u"append", OpenStatement::Mode::Append}, {u"binary", OpenStatement::Mode::Binary},
            {u"random", OpenStatement::Mode::Random},
        };
        bool found = false;
        for (const Mode& mode : kModes) {
            if (!found && TakeWord(mode.folded)) {
                statement.mode = mode.mode;
                found = true;
            }
        }
        if (!found) {
            Expected(u"Input, Output, Append, Binary or Random");
        }
    }
    if (TakeWord(u"access")) {
        bool read = TakeWord(u"read");
        bool write = TakeWord(u"write");
        if (!read && !write) {
            Expected(u"Read or Write");
        }
        statement.readOnly = !write;
        statement.writeOnly = !read;
    }
    if (TakeWord(u"lock")) {
        statement.locksReading = TakeWord(u"read");
        statement.locksWriting = TakeWord(u"write");
        if (!statement.locksReading && !statement.locksWriting) {
            Expected(u"Read or Write");
        }
    } else {
        TakeWord(u"shared");
    }
    ExpectWord(u"as", u"As");
    statement.number = ParseFileNumber();
    if (TakeWord(u"len")) {
        ExpectSymbol(u"=");
        statement.recordLength = ParseExpression();
    }
    return statement;
}

StatementBody Parser::ParseClose()
{
    ++at;
    CloseStatement statement;
    if (!AtEndOfStatement() && !IsWord(u"else")) {
        do {
            statement.numbers.push_back(ParseFileNumber());
        } while (TakeSymbol(u","));
    }
    return statement;
}

std::vector<PrintStatement::Item> Parser::ParsePrintItems()
{
    using Kind = PrintStatement::Item::Kind;
    std::vector<PrintStatement::Item> items;
    while (!AtEndOfStatement() && !IsWord(u"else")) {
        if (items.size() > kMostArguments) {
            Fail(u"Too many arguments");
        }
        PrintStatement::Item item;
        if (TakeSymbol(u";")) {
            item.kind = Kind::Semicolon;
        } else if (TakeSymbol(u",")) {
            item.kind = Kind::Comma;
        } else if (IsWord(u"spc") && IsSymbol(Ahead(1), u"(")) {
            item.kind = Kind::Spaces;
            at += 2;
            item.value = ParseExpression();
            ExpectSymbol(u")");
        } else if (IsWord(u"tab")) {
            item.kind = Kind::Tab;
            ++at;
            if (TakeSymbol(u"(")) {
                item.value = ParseExpression();
                ExpectSymbol(u")");
            }
        } else {
            item.value = ParseExpression();
        }
        items.push_back(std::move(item));
    }
    return items;
}

StatementBody Parser::ParsePrint()
{
    PrintStatement statement;
    statement.isWrite = IsWord(u"write");
    ++at;
    ExpectSymbol(u"#");
    statement.number = ParseExpression();
    if (!AtEndOfStatement()) {
        ExpectSymbol(u",");
    }
    statement.items = ParsePrintItems();
    return statement;
}

StatementBody Parser::ParseDebugPrint()
{
    at += 3;
    PrintStatement statement;
    statement.items = ParsePrintItems();
    return statement;
}

StatementBody Parser::ParseLineInput()
{
    at += 2;
    InputStatement statement;
    statement.wholeLine = true;
    ExpectSymbol(u"#");
    statement.number = ParseExpression();
    ExpectSymbol(u",");
    statement.targets.push_back(ParseTarget());
    return statement;
}

StatementBody Parser::ParseInput()
{
    ++at;
    InputStatement statement;
    ExpectSymbol(u"#");
    statement.number = ParseExpression();
    while (TakeSymbol(u",")) {
        statement.targets.push_back(ParseTarget());
    }
    if (statement.targets.empty()) {
        Expected(u",");
    }
    return statement;
}

StatementBody Parser::ParseTransfer()
{
    TransferStatement statement;
    statement.isPut = IsWord(u"put");
    ++at;
    statement.number = ParseFileNumber();
    ExpectSymbol(u",");
    if (!IsSymbol(u",")) {
        statement.position = ParseExpression();
    }
    ExpectSymbol(u",");
    statement.variable = statement.isPut ? ParseExpression() : ParseTarget();
    return statement;
}

StatementBody Parser::ParseSeek()
{
    ++at;
    SeekStatement statement;
    statement.number = ParseFileNumber();
    ExpectSymbol(u",");
    statement.position = ParseExpression();
    return statement;
}

StatementBody Parser::ParseLock()
{
    LockStatement statement;
    statement.isUnlock = IsWord(u"unlock");
    ++at;
    statement.number = ParseFileNumber();
    if (TakeSymbol(u",")) {
        if (!IsWord(u"to")) {
            statement.first = ParseExpression();
        }
        if (TakeWord(u"to")) {
            statement.last = ParseExpression();
        }
    }
    return statement;
}

StatementBody Parser::ParseName()
{
    ++at;
    NameStatement statement;
    statement.from = ParseExpression();
    ExpectWord(u"as", u"As");
    statement.to = ParseExpression();
    return statement;
}

} // namespace tv::macro
