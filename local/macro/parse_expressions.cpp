#include "macro/parser.h"

#include "macro/text.h"

namespace tv::macro {

namespace {

struct BinaryOperator
{
    std::u16string_view text;
    Operator operation;
    int level;
};

// From the loosest to the tightest; a level's operators associate to the left.
constexpr BinaryOperator kBinaryOperators[] = {
    {u"imp", Operator::Imp, 0},
    {u"eqv", Operator::Eqv, 1},
    {u"xor", Operator::Xor, 2},
    {u"or", Operator::Or, 3},
    {u"and", Operator::And, 4},
    {u"=", Operator::Equal, 6},
    {u"<>", Operator::NotEqual, 6},
    {u"<", Operator::Less, 6},
    {u">", Operator::Greater, 6},
    {u"<=", Operator::LessOrEqual, 6},
    {u">=", Operator::GreaterOrEqual, 6},
    {u"like", Operator::Like, 6},
    {u"is", Operator::Is, 6},
    {u"&", Operator::Concatenate, 7},
    {u"+", Operator::Add, 8},
    {u"-", Operator::Subtract, 8},
    {u"mod", Operator::Modulo, 9},
    {u"\\", Operator::IntegerDivide, 10},
    {u"*", Operator::Multiply, 11},
    {u"/", Operator::Divide, 11},
};

constexpr int kNotLevel = 5;
constexpr int kUnaryLevel = 12;

const BinaryOperator* FindOperator(const Token& token)
{
    if (token.kind != TokenKind::Symbol && (token.kind != TokenKind::Name || token.isBracketed)) {
        return nullptr;
    }
    std::u16string_view text = token.kind == TokenKind::Symbol ? token.text : token.folded;
    for (const BinaryOperator& known : kBinaryOperators) {
        if (known.text == text) {
            return &known;
        }
    }
    return nullptr;
}

ExpressionPtr MakeBinary(Operator operation, Position at, ExpressionPtr left, ExpressionPtr right)
{
    ExpressionPtr node = std::make_unique<Expression>(ExpressionKind::Binary, at);
    node->operation = operation;
    node->base = std::move(left);
    node->right = std::move(right);
    return node;
}

} // namespace

ExpressionPtr Parser::ParseExpression()
{
    DepthGuard guard(*this);
    return ParseBinary(0);
}

ExpressionPtr Parser::ParseBinary(int level)
{
    if (level >= kUnaryLevel) {
        return ParseUnary();
    }
    ExpressionPtr left;
    if (IsWord(u"not")) {
        DepthGuard guard(*this);
        ExpressionPtr node = Make(ExpressionKind::Unary);
        ++at;
        node->operation = Operator::Not;
        node->base = ParseBinary(kNotLevel);
        left = std::move(node);
    } else {
        left = ParseUnary();
    }
    // Precedence climbing: take operators as long as they bind at least as tightly as asked for.
    while (const BinaryOperator* known = FindOperator(Current())) {
        if (known->level < level) {
            break;
        }
        Position where = Here();
        ++at;
        ExpressionPtr right = ParseBinary(known->level + 1);
        left = MakeBinary(known->operation, where, std::move(left), std::move(right));
    }
    return left;
}

ExpressionPtr Parser::ParseUnary()
{
    if (IsSymbol(u"-") || IsSymbol(u"+")) {
        DepthGuard guard(*this);
        ExpressionPtr node = Make(ExpressionKind::Unary);
        node->operation = IsSymbol(u"-") ? Operator::Negate : Operator::Plus;
        ++at;
        node->base = ParseUnary();
        return node;
    }
    return ParsePower();
}

ExpressionPtr Parser::ParsePower()
{
    ExpressionPtr left = ParsePostfix();
    while (IsSymbol(u"^")) {
        Position where = Here();
        ++at;
        ExpressionPtr right;
        if (IsSymbol(u"-") || IsSymbol(u"+")) {
            DepthGuard guard(*this);
            right = Make(ExpressionKind::Unary);
            right->operation = IsSymbol(u"-") ? Operator::Negate : Operator::Plus;
            ++at;
            right->base = ParsePostfix();
        } else {
            right = ParsePostfix();
        }
        left = MakeBinary(Operator::Power, where, std::move(left), std::move(right));
    }
    return left;
}

ExpressionPtr Parser::ParsePostfix()
{
    ExpressionPtr node = ParsePrimary();
    int length = 0;
    while (true) {
        if (++length > 300) {
            Fail(u"Expression too complex");
        }
        if (IsSymbol(u"(") && node->kind != ExpressionKind::Literal) {
            ExpressionPtr call = Make(ExpressionKind::Index);
            bool isInput = node->kind == ExpressionKind::Name && EqualIgnoringCase(node->name, u"input");
            ++at;
            call->arguments = ParseArguments(true, isInput);
            ExpectSymbol(u")");
            call->base = std::move(node);
            node = std::move(call);
        } else if ((IsSymbol(u".") || IsSymbol(u"!")) && !(Current().spaceBefore && IsSymbol(u"!"))) {
            node = ParseMember(std::move(node));
        } else {
            return node;
        }
    }
}

ExpressionPtr Parser::ParseMember(ExpressionPtr base)
{
    bool bang = IsSymbol(u"!");
    ++at;
    ExpressionPtr member = Make(bang ? ExpressionKind::Bang : ExpressionKind::Member);
    if (Current().kind != TokenKind::Name) {
        Expected(u"identifier");
    }
    member->name = Current().text;
    member->suffix = Current().suffix;
    ++at;
    member->base = std::move(base);
    return member;
}

ExpressionPtr Parser::ParsePrimary()
{
    const Token& token = Current();
    if (token.kind == TokenKind::Literal) {
        ExpressionPtr node = Make(ExpressionKind::Literal);
        node->literal = token.literal;
        ++at;
        return node;
    }
    if (IsSymbol(u"(")) {
        DepthGuard guard(*this);
        ExpressionPtr node = Make(ExpressionKind::Parenthesized);
        ++at;
        node->base = ParseExpression();
        ExpectSymbol(u")");
        return node;
    }
    if (IsSymbol(u".") || IsSymbol(u"!")) {
        return ParseMember(nullptr);
    }
    if (token.kind != TokenKind::Name) {
        Expected(u"expression");
    }
    if (IsWord(u"addressof")) {
        Unsupported(u"AddressOf");
    }
    if (IsWord(u"me")) {
        Unsupported(u"Me");
    }
    if (IsWord(u"typeof")) {
        return ParseTypeOf();
    }
    if (IsWord(u"new")) {
        return ParseNew();
    }
    struct Word
    {
        std::u16string_view folded;
        Value (*value)();
    };
    static constexpr Word kWords[] = {
        {u"true", [] { return Value(true); }},
        {u"false", [] { return Value(false); }},
        {u"empty", [] { return Value(); }},
        {u"null", [] { return Value::Null(); }},
        {u"nothing", [] { return Value::Nothing(); }},
    };
    for (const Word& word : kWords) {
        if (IsWord(word.folded)) {
            ExpressionPtr node = Make(ExpressionKind::Literal);
            node->literal = word.value();
            ++at;
            return node;
        }
    }
    // Names of functions that are reserved words as well.
    constexpr std::u16string_view kFunctionWords[] = {u"date", u"string", u"input"};
    bool isFunction =
        std::find(std::begin(kFunctionWords), std::end(kFunctionWords), token.folded) != std::end(kFunctionWords);
    if (!token.isBracketed && IsReservedWord(token.folded) && !isFunction) {
        Expected(u"expression");
    }
    ExpressionPtr node = Make(ExpressionKind::Name);
    node->name = token.text;
    node->suffix = token.suffix;
    ++at;
    return node;
}

ExpressionPtr Parser::ParseTypeOf()
{
    ExpressionPtr node = Make(ExpressionKind::TypeOf);
    ++at;
    node->base = ParsePostfix();
    ExpectWord(u"is", u"Is");
    TypeSyntax type = ParseTypeName();
    if (type.type != Type::Object) {
        throw CompileFailure{type.at, u"Expected: class name"};
    }
    node->name = type.name.empty() ? u"Object" : type.name;
    return node;
}

ExpressionPtr Parser::ParseNew()
{
    ExpressionPtr node = Make(ExpressionKind::New);
    ++at;
    TypeSyntax type = ParseTypeName();
    node->name = type.qualifier.empty() ? type.name : type.qualifier + u"." + type.name;
    return node;
}

std::vector<ArgumentSyntax> Parser::ParseArguments(bool inParentheses, bool takesFileNumbers)
{
    std::vector<ArgumentSyntax> arguments;
    auto atEnd = [&] { return inParentheses ? IsSymbol(u")") : AtEndOfStatement() || IsWord(u"else"); };
    if (atEnd()) {
        return arguments;
    }
    while (true) {
        if (IsSymbol(u",") || atEnd()) {
            arguments.push_back(ArgumentSyntax{nullptr, {}});
        } else {
            if (takesFileNumbers) {
                TakeSymbol(u"#");
            }
            arguments.push_back(ParseArgument());
        }
        if (arguments.size() > kMostArguments) {
            Fail(u"Too many arguments");
        }
        if (!TakeSymbol(u",")) {
            break;
        }
    }
    return arguments;
}

ArgumentSyntax Parser::ParseArgument()
{
    ArgumentSyntax argument;
    if (Current().kind == TokenKind::Name && IsSymbol(Ahead(1), u":=")) {
        argument.name = Current().text;
        at += 2;
        argument.value = ParseExpression();
        return argument;
    }
    if (TakeWord(u"byval")) {
        ExpressionPtr copy = Make(ExpressionKind::Parenthesized);
        copy->base = ParseExpression();
        argument.value = std::move(copy);
        return argument;
    }
    argument.value = ParseExpression();
    return argument;
}

/// A variable, an element or a member to which something is assigned.
ExpressionPtr Parser::ParseTarget()
{
    ExpressionPtr target = ParsePostfix();
    if (target->kind == ExpressionKind::Literal || target->kind == ExpressionKind::Parenthesized) {
        throw CompileFailure{target->at, u"Expected: variable"};
    }
    return target;
}

/// Whether the parenthesis that follows belongs to the target of a statement: `a(1) = 2`, `list(1).Clear`. In
/// `Show (1), 2` it begins an argument.
bool Parser::ParenthesisContinuesTarget() const
{
    size_t position = at;
    int open = 0;
    do {
        const Token& token = tokens[position];
        if (token.kind == TokenKind::EndOfLine || token.kind == TokenKind::EndOfText) {
            return false;
        }
        open += IsSymbol(token, u"(") ? 1 : IsSymbol(token, u")") ? -1 : 0;
        ++position;
    } while (open > 0);
    const Token& next = tokens[position];
    return IsSymbol(next, u"=") || IsSymbol(next, u"(") ||
           ((IsSymbol(next, u".") || IsSymbol(next, u"!")) && !next.spaceBefore);
}

/// The name, members and indices in front of the arguments or the "=" of a statement.
ExpressionPtr Parser::ParseCallTarget()
{
    ExpressionPtr node = ParsePrimary();
    int length = 0;
    while (true) {
        if (++length > 300) {
            Fail(u"Expression too complex");
        }
        // Behind a blank a member belongs to the first argument, unless the line was continued there.
        bool apart = Current().spaceBefore && Here().line == tokens[at - 1].at.line;
        bool memberFollows = (IsSymbol(u".") || IsSymbol(u"!")) && !apart;
        if (memberFollows) {
            node = ParseMember(std::move(node));
        } else if (IsSymbol(u"(") && ParenthesisContinuesTarget()) {
            ExpressionPtr call = Make(ExpressionKind::Index);
            ++at;
            call->arguments = ParseArguments(true);
            ExpectSymbol(u")");
            call->base = std::move(node);
            node = std::move(call);
        } else {
            return node;
        }
    }
}

} // namespace tv::macro
