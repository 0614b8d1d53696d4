#include "name_walker.h"

#include "macro/object.h"
#include "macro/operators.h"

#include <array>
#include <stdexcept>

namespace tv::bench {

namespace {

using macro::Operator;
using macro::Value;

struct Constant final : Node
{
    Value Evaluate(NameWalker&, Scope&) const override { return value; }
    Value value;
};

struct Variable final : Node
{
    Value Evaluate(NameWalker&, Scope& scope) const override { return scope[name]; }
    std::u16string name;
};

struct Binary final : Node
{
    Value Evaluate(NameWalker& walker, Scope& scope) const override
    {
        Value a = left->Evaluate(walker, scope);
        Value b = right->Evaluate(walker, scope);
        return macro::Apply(operation, a, b, {});
    }
    Operator operation = Operator::Add;
    NodePtr left;
    NodePtr right;
};

struct CallOf final : Node
{
    Value Evaluate(NameWalker& walker, Scope& scope) const override
    {
        std::vector<Value> values;
        for (const NodePtr& argument : arguments) {
            values.push_back(argument->Evaluate(walker, scope));
        }
        return walker.Call(name, std::move(values));
    }
    std::u16string name;
    std::vector<NodePtr> arguments;
};

struct Assignment final : Node
{
    Value Evaluate(NameWalker& walker, Scope& scope) const override
    {
        scope[name] = value->Evaluate(walker, scope);
        return {};
    }
    std::u16string name;
    NodePtr value;
};

struct Choice final : Node
{
    Value Evaluate(NameWalker& walker, Scope& scope) const override
    {
        return (condition->Evaluate(walker, scope).ToBoolean() ? then : otherwise)->Evaluate(walker, scope);
    }
    NodePtr condition;
    NodePtr then;
    NodePtr otherwise = std::make_unique<Constant>();
};

struct Loop final : Node
{
    Value Evaluate(NameWalker& walker, Scope& scope) const override
    {
        scope[name] = first->Evaluate(walker, scope);
        const Value end = last->Evaluate(walker, scope);
        const Value one(int16_t{1});
        while (macro::Apply(Operator::LessOrEqual, scope[name], end, {}).ToBoolean()) {
            for (const NodePtr& statement : body) {
                statement->Evaluate(walker, scope);
            }
            scope[name] = macro::Apply(Operator::Add, scope[name], one, {});
        }
        return {};
    }
    std::u16string name;
    NodePtr first;
    NodePtr last;
    std::vector<NodePtr> body;
};

struct KnownOperator
{
    std::u16string_view text;
    Operator operation;
    int level;
};

constexpr auto kOperators = std::to_array<KnownOperator>({
    {u"<=", Operator::LessOrEqual, 0},
    {u"<", Operator::Less, 0},
    {u">", Operator::Greater, 0},
    {u"=", Operator::Equal, 0},
    {u"+", Operator::Add, 1},
    {u"-", Operator::Subtract, 1},
    {u"mod", Operator::Modulo, 2},
    {u"*", Operator::Multiply, 3},
});

class Reader
{
  public:
    Reader(std::u16string_view text, NameWalker& into) : walker(into)
    {
        for (size_t at = 0; at < text.size();) {
            size_t end = at + 1;
            if (text[at] == u' ' || text[at] == u'\r') {
                ++at;
                continue;
            }
            if (IsWordUnit(text[at])) {
                while (end < text.size() && IsWordUnit(text[end])) {
                    ++end;
                }
            } else if (text.substr(at, 2) == u"<=") {
                ++end;
            }
            words.push_back(macro::FoldCase(text.substr(at, end - at)));
            at = end;
        }
        words.emplace_back();
    }

    void ReadModule()
    {
        while (!Peek().empty()) {
            if (Take() == u"\n") {
                continue;
            }
            const std::u16string name = Take();
            NameWalker::Routine routine;
            Expect(u"(");
            while (Peek() != u")") {
                Skip(u"byval");
                routine.parameters.push_back(Take());
                SkipType();
                Skip(u",");
            }
            Expect(u")");
            SkipType();
            routine.body = ReadBlock(u"end");
            Take();
            walker.routines.emplace(name, std::move(routine));
        }
    }

  private:
    static bool IsWordUnit(char16_t unit)
    {
        return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z') || (unit >= u'0' && unit <= u'9');
    }

    const std::u16string& Peek() const { return words[position]; }
    std::u16string Take() { return words[position++]; }

    void Expect(std::u16string_view word)
    {
        if (Take() != word) {
            throw std::runtime_error("the reference evaluator doesn't know this macro");
        }
    }

    void Skip(std::u16string_view word) { position += Peek() == word ? 1 : 0; }

    void SkipType()
    {
        if (Peek() == u"as") {
            position += 2;
        }
    }

    std::vector<NodePtr> ReadBlock(std::u16string_view closer)
    {
        std::vector<NodePtr> block;
        while (Peek() != closer) {
            if (Peek() == u"\n") {
                Take();
            } else if (Peek() == u"dim") {
                while (Peek() != u"\n") {
                    Take();
                }
            } else {
                block.push_back(ReadStatement());
            }
        }
        Take();
        return block;
    }

    NodePtr ReadStatement()
    {
        const std::u16string word = Take();
        if (word == u"for") {
            auto loop = std::make_unique<Loop>();
            loop->name = Take();
            Expect(u"=");
            loop->first = ReadBinary(0);
            Expect(u"to");
            loop->last = ReadBinary(0);
            loop->body = ReadBlock(u"next");
            return loop;
        }
        if (word == u"if") {
            auto choice = std::make_unique<Choice>();
            choice->condition = ReadBinary(0);
            Expect(u"then");
            choice->then = ReadStatement();
            if (Peek() == u"else") {
                Take();
                choice->otherwise = ReadStatement();
            }
            return choice;
        }
        auto assignment = std::make_unique<Assignment>();
        assignment->name = word;
        Expect(u"=");
        assignment->value = ReadBinary(0);
        return assignment;
    }

    NodePtr ReadBinary(int level)
    {
        NodePtr left = ReadOperand();
        while (true) {
            const KnownOperator* found = nullptr;
            for (const KnownOperator& known : kOperators) {
                found = known.text == Peek() && known.level >= level ? &known : found;
            }
            if (found == nullptr) {
                return left;
            }
            Take();
            auto node = std::make_unique<Binary>();
            node->operation = found->operation;
            node->left = std::move(left);
            node->right = ReadBinary(found->level + 1);
            left = std::move(node);
        }
    }

    NodePtr ReadOperand()
    {
        const std::u16string word = Take();
        if (word == u"(") {
            NodePtr inner = ReadBinary(0);
            Expect(u")");
            return inner;
        }
        if (word[0] >= u'0' && word[0] <= u'9') {
            auto node = std::make_unique<Constant>();
            const int32_t number = Value(word).ToLong();
            node->value = number < 32768 ? Value(static_cast<int16_t>(number)) : Value(number);
            return node;
        }
        if (Peek() != u"(") {
            auto node = std::make_unique<Variable>();
            node->name = word;
            return node;
        }
        auto node = std::make_unique<CallOf>();
        node->name = word;
        Take();
        while (Peek() != u")") {
            node->arguments.push_back(ReadBinary(0));
            Skip(u",");
        }
        Take();
        return node;
    }

    NameWalker& walker;
    std::vector<std::u16string> words;
    size_t position = 0;
};

} // namespace

NameWalker::NameWalker(std::u16string_view source)
{
    Reader(source, *this).ReadModule();
}

macro::Value NameWalker::Call(const std::u16string& name, std::vector<macro::Value> arguments)
{
    const Routine& routine = routines.at(name);
    Scope scope;
    for (size_t i = 0; i < routine.parameters.size(); ++i) {
        scope[routine.parameters[i]] = std::move(arguments[i]);
    }
    for (const NodePtr& statement : routine.body) {
        statement->Evaluate(*this, scope);
    }
    return scope[name];
}

} // namespace tv::bench
