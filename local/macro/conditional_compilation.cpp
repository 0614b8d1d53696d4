// What #If leaves of a text.

#include "macro/convert.h"
#include "macro/lexer.h"
#include "macro/text.h"

#include <cmath>

namespace tv::macro {

namespace {

/// Carries out #If, #ElseIf, #Else, #End If and #Const.
class ConditionalFilter
{
  public:
    ConditionalFilter(std::vector<Token> all, const CompileOptions& options) : tokens(std::move(all))
    {
        for (std::u16string_view name : {u"vba6", u"vba7", u"win32", u"win64"}) {
            constants[std::u16string(name)] = Value(true);
        }
        for (const auto& [name, value] : options.conditions) {
            constants[Lower(name)] = Value(value);
        }
    }

    std::vector<Token> Run()
    {
        while (tokens[at].kind != TokenKind::EndOfText) {
            const Token& token = tokens[at];
            if (token.startsLine && token.kind == TokenKind::Symbol && token.text == u"#") {
                Directive();
            } else if (Active()) {
                kept.push_back(tokens[at++]);
            } else {
                ++at;
            }
        }
        if (!branches.empty()) {
            throw CompileFailure{branches.back().at, u"#If without #End If"};
        }
        kept.push_back(tokens[at]);
        return std::move(kept);
    }

  private:
    struct Branch
    {
        Position at;
        bool outerActive = true;
        bool taken = false;
        bool active = false;
        bool sawElse = false;
    };

    bool Active() const { return branches.empty() || branches.back().active; }
    bool Is(std::u16string_view name) const { return tokens[at].kind == TokenKind::Name && tokens[at].folded == name; }
    bool IsSymbol(std::u16string_view text) const
    {
        return tokens[at].kind == TokenKind::Symbol && tokens[at].text == text;
    }

    Branch& Current(const Position& where, std::u16string_view what)
    {
        if (branches.empty()) {
            throw CompileFailure{where, std::u16string(what) + u" without #If"};
        }
        return branches.back();
    }

    void Directive()
    {
        Position where = tokens[at++].at;
        if (Is(u"if")) {
            ++at;
            bool outer = Active();
            bool truth = outer && Condition();
            branches.push_back(Branch{where, outer, truth, truth, false});
        } else if (Is(u"elseif")) {
            ++at;
            Branch& branch = Current(where, u"#ElseIf");
            bool truth = branch.outerActive && !branch.taken && Condition();
            branch.active = truth;
            branch.taken = branch.taken || truth;
        } else if (Is(u"else")) {
            ++at;
            Branch& branch = Current(where, u"#Else");
            if (branch.sawElse) {
                throw CompileFailure{where, u"#Else without #If"};
            }
            branch.sawElse = true;
            branch.active = branch.outerActive && !branch.taken;
        } else if (Is(u"endif") || Is(u"end")) {
            Current(where, u"#End If");
            branches.pop_back();
        } else if (Is(u"const")) {
            ++at;
            Constant();
        } else {
            throw CompileFailure{where, u"Expected: If, ElseIf, Else, End If or Const behind #"};
        }
        while (tokens[at].kind != TokenKind::EndOfLine) {
            ++at;
        }
    }

    void Constant()
    {
        if (!Active()) {
            return;
        }
        std::u16string name = tokens[at].folded;
        if (tokens[at++].kind != TokenKind::Name || !IsSymbol(u"=")) {
            throw CompileFailure{tokens[at].at, u"Expected: name and = behind #Const"};
        }
        ++at;
        constants[name] = Expression(0);
    }

    bool Condition()
    {
        Value value = Expression(0);
        if (!Is(u"then")) {
            throw CompileFailure{tokens[at].at, u"Expected: Then"};
        }
        return ConvertToBoolean(value);
    }

    struct Level
    {
        std::u16string_view text;
        Operator operation;
        int binding;
    };

    // How tightly operators bind; Not and the signs stand between others.
    static constexpr int kNot = 6;
    static constexpr int kComparison = 7;
    static constexpr int kSign = 13;
    static constexpr int kPower = 14;

    const Level* FindLevel() const
    {
        static constexpr Level kLevels[] = {
            {u"imp", Operator::Imp, 1},
            {u"eqv", Operator::Eqv, 2},
            {u"xor", Operator::Xor, 3},
            {u"or", Operator::Or, 4},
            {u"and", Operator::And, 5},
            {u"=", Operator::Equal, kComparison},
            {u"<>", Operator::NotEqual, kComparison},
            {u"<", Operator::Less, kComparison},
            {u">", Operator::Greater, kComparison},
            {u"<=", Operator::LessOrEqual, kComparison},
            {u">=", Operator::GreaterOrEqual, kComparison},
            {u"like", Operator::Like, kComparison},
            {u"&", Operator::Concatenate, 8},
            {u"+", Operator::Add, 9},
            {u"-", Operator::Subtract, 9},
            {u"mod", Operator::Modulo, 10},
            {u"\\", Operator::IntegerDivide, 11},
            {u"*", Operator::Multiply, 12},
            {u"/", Operator::Divide, 12},
            {u"^", Operator::Power, kPower},
        };
        for (const Level& level : kLevels) {
            if (Is(level.text) || IsSymbol(level.text)) {
                return &level;
            }
        }
        return nullptr;
    }

    Value Expression(int binding)
    {
        Value left = Operand();
        for (const Level* level = FindLevel(); level != nullptr && level->binding > binding; level = FindLevel()) {
            ++at;
            Value right = Expression(level->binding);
            left = Evaluated([&] { return Apply(level->operation, left, right, {}); });
        }
        return left;
    }

    template <typename Work> Value Evaluated(Work work)
    {
        try {
            return work();
        } catch (const MacroError& error) {
            throw CompileFailure{tokens[at].at, error.description};
        }
    }

    Value Operand()
    {
        if (++depth > 100) {
            throw CompileFailure{tokens[at].at, u"Expression too complex"};
        }
        const Token& token = tokens[at];
        Value result;
        if (Is(u"not")) {
            ++at;
            Value operand = Expression(kNot);
            result = Evaluated([&] { return ApplyUnary(Operator::Not, operand, {}); });
        } else if (IsSymbol(u"-")) {
            ++at;
            Value operand = Expression(kSign);
            result = Evaluated([&] { return ApplyUnary(Operator::Negate, operand, {}); });
        } else if (IsSymbol(u"(")) {
            ++at;
            result = Expression(0);
            if (!IsSymbol(u")")) {
                throw CompileFailure{tokens[at].at, u"Expected: )"};
            }
            ++at;
        } else if (token.kind == TokenKind::Literal) {
            result = token.literal;
            ++at;
        } else if (token.kind == TokenKind::Name && at + 1 < tokens.size() && tokens[at + 1].text == u"(") {
            result = FunctionValue();
        } else if (token.kind == TokenKind::Name) {
            result = NamedValue(token);
            ++at;
        } else {
            throw CompileFailure{token.at, u"Expected: expression"};
        }
        --depth;
        return result;
    }

    /// One of the few functions that a condition may call.
    Value FunctionValue()
    {
        struct Conversion
        {
            std::u16string_view name;
            Type type;
        };
        static constexpr Conversion kConversions[] = {
            {u"cbool", Type::Boolean}, {u"cbyte", Type::Byte},       {u"ccur", Type::Currency},
            {u"cdate", Type::Date},    {u"cdbl", Type::Double},      {u"cint", Type::Integer},
            {u"clng", Type::Long},     {u"clnglng", Type::LongLong}, {u"clngptr", Type::LongLong},
            {u"csng", Type::Single},   {u"cstr", Type::String},      {u"cvar", Type::Variant},
        };
        const Token name = tokens[at];
        at += 2;
        Value argument = Expression(0);
        if (!IsSymbol(u")")) {
            throw CompileFailure{tokens[at].at, u"Expected: )"};
        }
        ++at;
        return Evaluated([&] {
            for (const Conversion& conversion : kConversions) {
                if (conversion.name == name.folded) {
                    return CoerceTo(conversion.type, argument);
                }
            }
            if (name.folded == u"len" || name.folded == u"lenb") {
                return Value(static_cast<int32_t>(argument.ToText().size() * (name.folded == u"len" ? 1 : 2)));
            }
            struct Calculation
            {
                std::u16string_view name;
                double (*apply)(double number);
            };
            static constexpr Calculation kCalculations[] = {
                {u"abs", [](double number) { return std::abs(number); }},
                {u"fix", [](double number) { return std::trunc(number); }},
                {u"int", [](double number) { return std::floor(number); }},
                {u"sgn", [](double number) { return number > 0   ? 1.0
                                                    : number < 0 ? -1.0
                                                                 : 0.0; }},
            };
            for (const Calculation& calculation : kCalculations) {
                if (calculation.name == name.folded) {
                    return Value(calculation.apply(argument.ToDouble()));
                }
            }
            throw CompileFailure{name.at, u"Sub or Function not defined: " + name.text};
        });
    }

    Value NamedValue(const Token& token) const
    {
        if (token.folded == u"true" || token.folded == u"false") {
            return Value(token.folded == u"true");
        }
        auto found = constants.find(token.folded);
        return found == constants.end() ? Value() : found->second;
    }

    std::vector<Token> tokens;
    std::vector<Token> kept;
    std::map<std::u16string, Value> constants;
    std::vector<Branch> branches;
    size_t at = 0;
    int depth = 0;
};

} // namespace

std::vector<Token> FilterConditions(std::vector<Token> tokens, const CompileOptions& options)
{
    return ConditionalFilter(std::move(tokens), options).Run();
}

} // namespace tv::macro
