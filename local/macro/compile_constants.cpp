// Constants of modules and procedures, computed while compiling.

#include "macro/compiler.h"

#include "macro/convert.h"
#include "macro/text.h"

namespace tv::macro {

Value Compiler::EvaluateConstant(const Expression& expression)
{
    lastPosition = expression.at;
    switch (expression.kind) {
    case ExpressionKind::Literal:
        return expression.literal;
    case ExpressionKind::Parenthesized:
        return EvaluateConstant(*expression.base);
    case ExpressionKind::Name:
        if (std::optional<Value> value = NamedConstant(expression.name, expression.at)) {
            return *value;
        }
        break;
    case ExpressionKind::Member:
        if (std::optional<Value> value = MemberConstant(expression)) {
            return *value;
        }
        break;
    case ExpressionKind::Unary:
        return ApplyUnary(expression.operation, EvaluateConstant(*expression.base), {false, false, false});
    case ExpressionKind::Binary: {
        std::vector<const Expression*> spine;
        const Expression* left = &expression;
        for (; left->kind == ExpressionKind::Binary; left = left->base.get()) {
            spine.push_back(left);
        }
        Value value = EvaluateConstant(*left);
        for (size_t i = spine.size(); i-- > 0;) {
            Value right = EvaluateConstant(*spine[i]->right);
            lastPosition = spine[i]->at;
            value = Apply(spine[i]->operation, value, right, {false, false, syntax.compareText});
        }
        return value;
    }
    default:
        break;
    }
    const Expression* start = &expression;
    while (start->kind == ExpressionKind::Index && start->base) {
        start = start->base.get();
    }
    Fail(start->at, u"Constant expression required");
}

Value Compiler::ConstantValue(int32_t index, const Position& at)
{
    ConstantEntry& entry = constantEntries[static_cast<size_t>(index)];
    if (entry.value) {
        return *entry.value;
    }
    if (entry.isBeingEvaluated || constantDepth > 200) {
        Fail(at, u"Circular dependencies between constants");
    }
    entry.isBeingEvaluated = true;
    ++constantDepth;
    Value value;
    if (entry.syntax != nullptr) {
        Type type = Resolve(entry.syntax->type).type;
        value = EvaluateConstant(*entry.syntax->value);
        value = type == Type::Object ? value : CoerceTo(type, value);
    } else {
        const EnumSyntax::Member& member = entry.enumeration->members[entry.member];
        if (member.value) {
            value = CoerceTo(Type::Long, EvaluateConstant(*member.value));
        } else if (entry.member == 0) {
            value = Value(int32_t{0});
        } else {
            // A member without a value is one more than the one before it.
            Value before = ConstantValue(index - 1, at);
            value = Apply(Operator::Add, before, Value(int32_t{1}), {false, false, false});
        }
    }
    --constantDepth;
    ConstantEntry& done = constantEntries[static_cast<size_t>(index)];
    done.isBeingEvaluated = false;
    done.value = value;
    return value;
}

std::optional<Value> Compiler::NamedConstant(const std::u16string& name, const Position& at)
{
    std::u16string folded = Lower(name);
    if (scope != nullptr) {
        auto local = scope->constants.find(folded);
        if (local != scope->constants.end()) {
            return local->second;
        }
        if (scope->variables.contains(folded)) {
            return std::nullopt;
        }
    }
    if (const Symbol* symbol = FindSymbol(folded)) {
        if (symbol->kind != SymbolKind::Constant) {
            return std::nullopt;
        }
        return ConstantValue(symbol->index, at);
    }
    if (std::optional<Value> value = FindBuiltinConstant(folded)) {
        return value;
    }
    return options.library == nullptr ? std::nullopt : options.library->Constant(folded);
}

/// An enumeration or a library in front of a constant: `tvDocumentTypes_e.tvDocPART`.
bool Compiler::IsQualifier(const std::u16string& folded) const
{
    if (FindVariable(folded) != nullptr) {
        return false;
    }
    const Symbol* symbol = FindSymbol(folded);
    if (symbol != nullptr) {
        return symbol->kind == SymbolKind::Enum;
    }
    return folded == u"vba" || IsBuiltinEnumeration(folded) ||
           (options.library != nullptr &&
            (options.library->HasEnumeration(folded) || options.library->HasLibrary(folded)));
}

std::optional<Value> Compiler::MemberConstant(const Expression& member)
{
    const Expression* base = member.base.get();
    while (base != nullptr && base->kind == ExpressionKind::Member && base->base != nullptr &&
           base->base->kind == ExpressionKind::Name && IsQualifier(Lower(base->base->name))) {
        if (!IsQualifier(Lower(base->name))) {
            return std::nullopt;
        }
        return NamedConstant(member.name, member.at);
    }
    if (base == nullptr || base->kind != ExpressionKind::Name || !IsQualifier(Lower(base->name))) {
        return std::nullopt;
    }
    return NamedConstant(member.name, member.at);
}

std::optional<Value> Compiler::TryConstant(const Expression& expression)
{
    if (expression.kind == ExpressionKind::Literal) {
        return expression.literal;
    }
    if (expression.kind == ExpressionKind::Unary && expression.base->kind == ExpressionKind::Literal &&
        expression.operation == Operator::Negate) {
        try {
            return ApplyUnary(Operator::Negate, expression.base->literal, {false, false, false});
        } catch (const MacroError&) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace tv::macro
