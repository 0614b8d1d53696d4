#include "host/script_contexts.h"

namespace tv::local {

namespace {

bool IsBlank(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

bool IsLineEnd(char16_t unit)
{
    return unit == u'\r' || unit == u'\n';
}

char16_t Lower(char16_t unit)
{
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

class ContextReader
{
  public:
    explicit ContextReader(std::u16string_view text) : script(text) {}

    std::vector<ScriptContext> Read(const std::vector<std::pair<size_t, size_t>>& opaque)
    {
        auto next = opaque.begin();
        for (size_t i = 0; i < script.size();) {
            if (next != opaque.end() && next->first == i) {
                contexts.insert(contexts.end(), next->second, context);
                i += next->second;
                startsStatement = false;
                ++next;
            } else {
                ReadUnit(i++);
            }
        }
        return std::move(contexts);
    }

  private:
    void ReadUnit(size_t i)
    {
        const char16_t unit = script[i];
        if (IsLineEnd(unit)) {
            // A comment that is continued goes on in the next line; a text never does.
            if (context != ScriptContext::Comment || !IsContinued(i)) {
                context = ScriptContext::Code;
            }
            startsStatement = true;
        } else if (context == ScriptContext::Text) {
            context = unit == u'"' ? ScriptContext::Code : ScriptContext::Text;
        } else if (context == ScriptContext::Code) {
            ReadCode(i);
        }
        contexts.push_back(context);
    }

    void ReadCode(size_t i)
    {
        const char16_t unit = script[i];
        if (unit == u'"') {
            context = ScriptContext::Text;
        } else if (unit == u'\'' || (startsStatement && IsRem(i))) {
            context = ScriptContext::Comment;
        }
        startsStatement = unit == u':' || (startsStatement && IsBlank(unit));
    }

    bool IsRem(size_t i) const
    {
        constexpr std::u16string_view kRem = u"rem";
        for (size_t k = 0; k < kRem.size(); ++k) {
            if (i + k >= script.size() || Lower(script[i + k]) != kRem[k]) {
                return false;
            }
        }
        const size_t behind = i + kRem.size();
        return behind >= script.size() || IsBlank(script[behind]) || IsLineEnd(script[behind]);
    }

    /// Whether the line that ends here has a blank and an underscore at its end.
    bool IsContinued(size_t lineEnd) const
    {
        size_t i = lineEnd;
        if (i > 0 && script[i] == u'\n' && script[i - 1] == u'\r') {
            --i;
        }
        while (i > 0 && IsBlank(script[i - 1])) {
            --i;
        }
        return i > 1 && script[i - 1] == u'_' && IsBlank(script[i - 2]);
    }

    std::u16string_view script;
    std::vector<ScriptContext> contexts;
    ScriptContext context = ScriptContext::Code;
    bool startsStatement = true;
};

} // namespace

std::vector<ScriptContext> ContextsOf(std::u16string_view script, const std::vector<std::pair<size_t, size_t>>& opaque)
{
    return ContextReader(script).Read(opaque);
}

} // namespace tv::local
