#include "macro/lexer.h"

#include "macro/convert.h"
#include "macro/dates.h"
#include "macro/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tv::macro {

namespace {

bool IsDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}
bool IsNameStart(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') ||
           (unit >= 0x80 && unit != 0xA0 && unit != 0x3000);
}
bool IsNameUnit(char16_t unit)
{
    return IsNameStart(unit) || IsDigit(unit) || unit == u'_';
}
bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t' || unit == 0xA0 || unit == 0x3000;
}
bool IsLineEnd(char16_t unit)
{
    return unit == u'\r' || unit == u'\n';
}
bool IsOctalDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'7';
}
bool IsHexDigit(char16_t unit)
{
    char16_t lower = LowerUnit(unit);
    return IsDigit(unit) || (lower >= u'a' && lower <= u'f');
}

constexpr std::array<std::u16string_view, 8> kLongSymbols = {u"<=", u">=", u"<>", u":=", u"=<", u"=>", u"><", u"##"};

class Lexer
{
  public:
    explicit Lexer(std::u16string_view text) : source(text) {}

    std::vector<Token> Run()
    {
        while (at < source.size()) {
            ReadToken();
        }
        Add(TokenKind::EndOfLine, at, u"");
        Add(TokenKind::EndOfText, at, u"");
        return std::move(tokens);
    }

  private:
    char16_t Unit(size_t offset = 0) const { return at + offset < source.size() ? source[at + offset] : u'\0'; }

    Position PositionOf(size_t offset) const { return Position{line, static_cast<int>(offset - lineStart) + 1}; }

    Token& Add(TokenKind kind, size_t start, std::u16string text)
    {
        Token token;
        token.kind = kind;
        token.at = PositionOf(start);
        token.text = std::move(text);
        token.startsLine = atLineStart;
        token.spaceBefore = blankBefore;
        blankBefore = false;
        atLineStart = kind == TokenKind::EndOfLine;
        tokens.push_back(std::move(token));
        return tokens.back();
    }

    void ReadToken()
    {
        char16_t unit = Unit();
        if (IsLineEnd(unit)) {
            EndLine();
        } else if (IsBlank(unit)) {
            ReadBlanks();
        } else if (unit == u'\'') {
            SkipComment();
        } else if (unit == u'"') {
            ReadString();
        } else if (unit == u'#' && ReadDateLiteral()) {
            return;
        } else if (IsDigit(unit) || (unit == u'.' && IsDigit(Unit(1)))) {
            ReadNumber();
        } else if (unit == u'&' && ReadRadixNumber()) {
            return;
        } else if (IsNameStart(unit)) {
            ReadName();
        } else if (unit == u'[' && ReadBracketedName()) {
            return;
        } else {
            ReadSymbol();
        }
    }

    void NextLine()
    {
        if (Unit() == u'\r' && Unit(1) == u'\n') {
            ++at;
        }
        ++at;
        ++line;
        lineStart = at;
    }

    void EndLine()
    {
        Add(TokenKind::EndOfLine, at, u"");
        NextLine();
    }

    void ReadBlanks()
    {
        blankBefore = true;
        while (IsBlank(Unit())) {
            ++at;
        }
        SkipContinuation();
    }

    /// A blank and an underscore at the end of a line continue it on the next one.
    bool SkipContinuation()
    {
        if (Unit() != u'_') {
            return false;
        }
        size_t after = at + 1;
        while (after < source.size() && IsBlank(source[after])) {
            ++after;
        }
        if (after < source.size() && !IsLineEnd(source[after])) {
            return false;
        }
        at = after;
        if (at < source.size()) {
            NextLine();
        }
        return true;
    }

    void SkipComment()
    {
        while (at < source.size() && !IsLineEnd(Unit())) {
            if (IsBlank(Unit())) {
                ++at;
                SkipContinuation();
            } else {
                ++at;
            }
        }
    }

    void ReadString()
    {
        size_t start = at++;
        std::u16string text;
        while (true) {
            if (at >= source.size() || IsLineEnd(Unit())) {
                Add(TokenKind::Bad, start, u"Expected: \" at the end of the text");
                return;
            }
            if (Unit() == u'"') {
                if (Unit(1) != u'"') {
                    break;
                }
                ++at;
            }
            text.push_back(source[at++]);
        }
        ++at;
        AddLiteral(start, Value(std::move(text)));
    }

    void AddLiteral(size_t start, Value literal)
    {
        Add(TokenKind::Literal, start, std::u16string(source.substr(start, at - start))).literal = std::move(literal);
    }

    bool ReadDateLiteral()
    {
        size_t close = at + 1;
        while (close < source.size() && source[close] != u'#' && !IsLineEnd(source[close]) && close - at < 40) {
            ++close;
        }
        if (close >= source.size() || source[close] != u'#') {
            return false;
        }
        std::optional<double> date = ParseDate(source.substr(at + 1, close - at - 1));
        if (!date) {
            return false;
        }
        size_t start = at;
        at = close + 1;
        AddLiteral(start, Value::FromDate(*date));
        return true;
    }

    void ReadNumber()
    {
        size_t start = at;
        bool floating = false;
        std::u16string digits;
        auto take = [&] { digits.push_back(source[at++]); };
        while (IsDigit(Unit())) {
            take();
        }
        if (Unit() == u'.') {
            floating = true;
            take();
            while (IsDigit(Unit())) {
                take();
            }
        }
        char16_t mark = LowerUnit(Unit());
        size_t sign = Unit(1) == u'+' || Unit(1) == u'-' ? 2 : 1;
        if ((mark == u'e' || mark == u'd') && IsDigit(Unit(sign))) {
            floating = true;
            take();
            while (IsDigit(Unit()) || Unit() == u'+' || Unit() == u'-') {
                if (!IsDigit(Unit()) && LowerUnit(digits.back()) != u'e' && LowerUnit(digits.back()) != u'd') {
                    break;
                }
                take();
            }
        }
        AddNumber(start, digits, floating);
    }

    void AddNumber(size_t start, const std::u16string& digits, bool floating)
    {
        char16_t suffix = Unit();
        // "1&x" joins texts, and a "#" in front of a digit is a file number's.
        bool counts = std::u16string_view(u"%&!#@").find(suffix) != std::u16string_view::npos && suffix != 0 &&
                      !IsNameUnit(Unit(1)) && Unit(1) != u'"';
        counts = counts || IsLongLongMark(0);
        double number = ParseNumber(digits).value_or(0);
        try {
            Value literal = counts ? SuffixedNumber(suffix, digits) : PlainNumber(number, floating);
            at += counts ? 1 : 0;
            AddLiteral(start, std::move(literal));
        } catch (const MacroError&) {
            at += counts ? 1 : 0;
            Add(TokenKind::Bad, start, u"Overflow");
        }
    }

    /// "2^3" without blanks is a power; otherwise a "^" that touches a number belongs to it.
    bool IsLongLongMark(size_t offset) const
    {
        char16_t next = Unit(offset + 1);
        return Unit(offset) == u'^' && !IsNameUnit(next) &&
               std::u16string_view(u"(.\"-").find(next) == std::u16string_view::npos;
    }

    static Value SuffixedNumber(char16_t suffix, const std::u16string& digits)
    {
        switch (suffix) {
        case u'%':
            return CoerceTo(Type::Integer, Value(digits));
        case u'&':
            return CoerceTo(Type::Long, Value(digits));
        case u'^':
            return CoerceTo(Type::LongLong, Value(digits));
        case u'!':
            return CoerceTo(Type::Single, Value(digits));
        case u'@':
            return CoerceTo(Type::Currency, Value(digits));
        default:
            return CoerceTo(Type::Double, Value(digits));
        }
    }

    static Value PlainNumber(double number, bool floating)
    {
        if (std::isinf(number)) {
            Raise(kOverflow);
        }
        if (!floating && number <= 32767) {
            return Value(static_cast<int16_t>(number));
        }
        if (!floating && number <= 2147483647.0) {
            return Value(static_cast<int32_t>(number));
        }
        return Value(number);
    }

    bool ReadRadixNumber()
    {
        char16_t mark = LowerUnit(Unit(1));
        bool hex = mark == u'h' && IsHexDigit(Unit(2));
        bool octal = mark == u'o' && IsOctalDigit(Unit(2));
        bool bareOctal = IsOctalDigit(mark) && StartsOperand();
        if (!hex && !octal && !bareOctal) {
            return false;
        }
        size_t start = at;
        at += bareOctal ? 1 : 2;
        uint64_t number = 0;
        size_t count = 0;
        while (hex ? IsHexDigit(Unit()) : IsOctalDigit(Unit())) {
            char16_t lower = LowerUnit(Unit());
            uint64_t digit = static_cast<uint64_t>(IsDigit(lower) ? lower - u'0' : lower - u'a' + 10);
            number = number * (hex ? 16 : 8) + digit;
            ++at;
            ++count;
        }
        bool isLong = Unit() == u'&';
        bool isInteger = Unit() == u'%';
        bool isLongLong = IsLongLongMark(0);
        at += isLong || isInteger || isLongLong ? 1 : 0;
        if (count > 16 || number > 0xFFFFFFFF || isLongLong) {
            if (count > 16) {
                Add(TokenKind::Bad, start, u"Overflow");
            } else {
                AddLiteral(start, Value(static_cast<int64_t>(number)));
            }
        } else if (number <= 0xFFFF && !isLong) {
            AddLiteral(start, Value(static_cast<int16_t>(static_cast<uint16_t>(number))));
        } else {
            AddLiteral(start, Value(static_cast<int32_t>(static_cast<uint32_t>(number))));
        }
        return true;
    }

    /// Whether an operand may stand here: "=&17" has an octal number, "n &17" joins.
    bool StartsOperand() const
    {
        return !tokens.empty() && tokens.back().kind == TokenKind::Symbol && tokens.back().text != u")";
    }

    void ReadName()
    {
        size_t start = at;
        while (IsNameUnit(Unit())) {
            ++at;
        }
        std::u16string text(source.substr(start, at - start));
        std::u16string folded = Lower(text);
        if (folded == u"rem" && StartsStatement()) {
            SkipComment();
            return;
        }
        char16_t suffix = TakeSuffix();
        Token& token = Add(TokenKind::Name, start, std::move(text));
        token.folded = std::move(folded);
        token.suffix = suffix;
    }

    bool StartsStatement() const
    {
        return atLineStart || tokens.empty() || (tokens.back().kind == TokenKind::Symbol && tokens.back().text == u":");
    }

    char16_t TakeSuffix()
    {
        char16_t suffix = Unit();
        char16_t next = Unit(1);
        bool counts = false;
        switch (suffix) {
        case u'$':
        case u'%':
        case u'@':
            counts = true;
            break;
        case u'&':
            counts = !IsNameUnit(next) && next != u'"' && next != u'(';
            break;
        case u'!':
            counts = !IsNameStart(next) && next != u'[';
            break;
        case u'#':
            counts = !IsDigit(next) && !IsNameStart(next);
            break;
        default:
            break;
        }
        if (!counts) {
            return 0;
        }
        ++at;
        return suffix;
    }

    bool ReadBracketedName()
    {
        size_t close = source.find(u']', at);
        if (close == std::u16string_view::npos || close == at + 1) {
            return false;
        }
        std::u16string_view inner = source.substr(at + 1, close - at - 1);
        if (!std::all_of(inner.begin(), inner.end(), [](char16_t u) { return IsNameUnit(u) || u == u' '; })) {
            return false;
        }
        Token& token = Add(TokenKind::Name, at, std::u16string(inner));
        token.folded = Lower(inner);
        token.isBracketed = true;
        at = close + 1;
        return true;
    }

    void ReadSymbol()
    {
        for (std::u16string_view symbol : kLongSymbols) {
            if (symbol != u"##" && source.substr(at, 2) == symbol) {
                std::u16string canonical = symbol == u"=<"   ? u"<="
                                           : symbol == u"=>" ? u">="
                                           : symbol == u"><" ? u"<>"
                                                             : std::u16string(symbol);
                Add(TokenKind::Symbol, at, std::move(canonical));
                at += 2;
                return;
            }
        }
        char16_t unit = Unit();
        if (std::u16string_view(u"()+-*/\\^&=<>,.:;#!?").find(unit) != std::u16string_view::npos && unit != 0) {
            Add(TokenKind::Symbol, at, std::u16string(1, unit));
        } else {
            Add(TokenKind::Bad, at, u"Invalid character");
        }
        ++at;
    }

    std::u16string_view source;
    size_t at = 0;
    size_t lineStart = 0;
    int line = 1;
    bool atLineStart = true;
    bool blankBefore = false;
    std::vector<Token> tokens;
};

} // namespace

std::vector<Token> Tokenize(std::u16string_view source, const CompileOptions& options)
{
    return FilterConditions(Lexer(source).Run(), options);
}

} // namespace tv::macro
