#pragma once

#include "macro/lexer.h"

#include <initializer_list>

namespace tv::macro {

/// Turns tokens into a syntax tree. The first mistake ends it with a CompileFailure.
class Parser
{
public:
    explicit Parser(std::vector<Token> all) : tokens(std::move(all)) {}

    ModuleSyntax ParseModule();

private:
    // Tokens.
    const Token& Current() const { return tokens[at]; }
    const Token& Ahead(size_t count) const { return tokens[std::min(at + count, tokens.size() - 1)]; }
    Position Here() const { return Current().at; }
    bool IsSymbol(std::u16string_view text) const { return IsSymbol(Current(), text); }
    static bool IsSymbol(const Token& token, std::u16string_view text);
    bool IsWord(std::u16string_view folded) const { return IsWord(Current(), folded); }
    static bool IsWord(const Token& token, std::u16string_view folded);
    bool TakeSymbol(std::u16string_view text);
    bool TakeWord(std::u16string_view folded);
    void ExpectSymbol(std::u16string_view text);
    void ExpectWord(std::u16string_view folded, std::u16string_view shown);
    bool AtEndOfLine() const;
    bool AtEndOfStatement() const;
    void ExpectEndOfStatement();
    void SkipLineEnds();
    /// A name that isn't reserved.
    const Token& ExpectName();
    [[noreturn]] void Fail(std::u16string message) const;
    [[noreturn]] void Expected(std::u16string_view what) const;
    [[noreturn]] void Unsupported(std::u16string_view what) const;

    // The module.
    void ParseModuleLine(ModuleSyntax& module);
    bool AtProcedure() const;
    void ParseOption(ModuleSyntax& module);
    void ParseDeclare(ModuleSyntax& module);
    void ParseRecord(ModuleSyntax& module);
    void ParseEnum(ModuleSyntax& module);
    void ParseProcedure(ModuleSyntax& module, bool isStatic);
    ProcedureKind ParseProcedureKind();
    /// \param endsWithValue the last one is the value of Property Let or Set
    std::vector<ParameterSyntax> ParseParameters(bool endsWithValue = false);
    ParameterSyntax ParseParameter();
    std::vector<VariableSyntax> ParseVariables();
    VariableSyntax ParseVariable();
    std::vector<BoundSyntax> ParseBounds();
    std::vector<ConstantSyntax> ParseConstants();
    void ParseLetterTypes(ModuleSyntax& module);
    /// The type behind As; without As that of the name's suffix or first letter.
    TypeSyntax ParseAsClause(const Token& name);
    TypeSyntax ParseWrittenType();
    /// Parameters and results have texts of any length.
    static void RefuseLength(const TypeSyntax& type);
    TypeSyntax ParseTypeName();

    // Statements.
    /// Statements up to one of the closing words, which isn't taken.
    Block ParseBlock(std::initializer_list<std::u16string_view> closers);
    bool AtCloser(std::initializer_list<std::u16string_view> closers) const;
    void SkipAttribute();
    void ParseLineStart(Block& block);
    Statement ParseStatement();
    StatementBody ParseStatementBody();
    std::optional<StatementBody> ParseContextualStatement();
    StatementBody ParseDim();
    StatementBody ParseConst();
    StatementBody ParseErase();
    StatementBody ParseStop();
    StatementBody ParseEnd();
    StatementBody ParseRaiseEvent();
    StatementBody ParseSet();
    StatementBody ParseLet();
    StatementBody ParseCall();
    StatementBody ParseGoTo();
    StatementBody ParseGoSub();
    StatementBody ParseReturn();
    StatementBody ParseIf();
    StatementBody ParseSingleLineIf(IfStatement statement);
    Block ParseInlineBlock();
    StatementBody ParseSelect();
    SelectStatement::Test ParseCaseTest();
    StatementBody ParseFor();
    StatementBody ParseDo();
    StatementBody ParseWhile();
    StatementBody ParseWith();
    StatementBody ParseOn();
    StatementBody ParseOnJump();
    StatementBody ParseAlign();
    StatementBody ParseLock();
    StatementBody ParseResume();
    StatementBody ParseExit();
    StatementBody ParseReDim();
    StatementBody ParseOpen();
    StatementBody ParseClose();
    StatementBody ParsePrint();
    StatementBody ParseDebugPrint();
    std::vector<PrintStatement::Item> ParsePrintItems();
    StatementBody ParseLineInput();
    StatementBody ParseInput();
    StatementBody ParseTransfer();
    StatementBody ParseSeek();
    StatementBody ParseName();
    StatementBody ParseMid();
    StatementBody ParseCallOrLet();
    void FailAtStrayEnd() const;
    void FailAtModuleWord() const;
    ExpressionPtr ParseFileNumber();
    std::u16string ParseLabel();
    /// Closes a block that ends with `End <word>`.
    void ExpectEnd(std::u16string_view folded, std::u16string_view shown);
    void TakeNextVariables();
    void OpenFor(const Expression& variable);

    // Expressions.
    ExpressionPtr ParseExpression();
    ExpressionPtr ParseBinary(int level);
    ExpressionPtr ParseUnary();
    ExpressionPtr ParsePower();
    ExpressionPtr ParsePostfix();
    ExpressionPtr ParsePrimary();
    ExpressionPtr ParseMember(ExpressionPtr base);
    ExpressionPtr ParseTypeOf();
    ExpressionPtr ParseNew();
    std::vector<ArgumentSyntax> ParseArguments(bool inParentheses, bool takesFileNumbers = false);
    ArgumentSyntax ParseArgument();
    ExpressionPtr ParseTarget();
    ExpressionPtr ParseCallTarget();
    bool ParenthesisContinuesTarget() const;
    ExpressionPtr Make(ExpressionKind kind) const { return std::make_unique<Expression>(kind, Here()); }

    /// An instruction counts its values with sixteen bits.
    static constexpr size_t kMostArguments = 10000;

    struct DepthGuard
    {
        explicit DepthGuard(Parser& owner);
        ~DepthGuard() { --parser.depth; }
        Parser& parser;
    };

    std::vector<Token> tokens;
    size_t at = 0;
    int depth = 0;
    /// Loops that a `Next i, j` still has to close.
    int pendingNext = 0;
    /// What ends the procedure: Sub, Function or Property.
    std::u16string_view procedureWord = u"Sub";
    /// Folded names of the variables of the For loops around, the innermost last.
    std::vector<std::u16string> forVariables;
    std::array<Type, 26> letterTypes = EveryLetter(Type::Variant);
};

/// The type that a suffix such as "%" gives; Variant without one.
Type SuffixType(char16_t suffix);
/// The type of a name without a type of its own.
Type LetterType(const std::array<Type, 26>& letterTypes, std::u16string_view folded);

/// Words that can't be names of variables or procedures.
bool IsReservedWord(std::u16string_view folded);

} // namespace tv::macro
