// A macro evaluator as a textbook writes it: it walks the syntax tree and looks every name up in a map. Benches measure
// the interpreter against it. It knows what loops, calls and arithmetic need, and takes the interpreter's own
// operators, so that both compute the same and differ only in how they get there.
#pragma once

#include "macro/value.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tv::bench {

using Scope = std::map<std::u16string, macro::Value>;

class NameWalker;

class Node
{
  public:
    virtual ~Node() = default;
    virtual macro::Value Evaluate(NameWalker& walker, Scope& scope) const = 0;
};

using NodePtr = std::unique_ptr<Node>;

/// A module of Functions and Subs over `x = …`, `For … Next`, single-line `If`, calls by value and binary operators.
class NameWalker
{
  public:
    explicit NameWalker(std::u16string_view source);

    macro::Value Call(const std::u16string& name, std::vector<macro::Value> arguments);

    struct Routine
    {
        std::vector<std::u16string> parameters;
        std::vector<NodePtr> body;
    };
    std::unordered_map<std::u16string, Routine> routines;
};

} // namespace tv::bench
