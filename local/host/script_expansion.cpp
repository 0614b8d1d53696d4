#include "host/script_expansion.h"

#include "vault/text.h"

#include <cstdio>

namespace tv::local {

namespace {

/// A text with more than these grows for ever.
constexpr size_t kMostPlaceholders = 20'000;
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr std::u16string_view kLineEndInText = u"\"+vbLf+\"";

std::u16string WithJoinedLines(std::u16string_view text)
{
    std::u16string joined;
    size_t done = 0;
    for (size_t found = text.find(kLineEnd); found != std::u16string_view::npos; found = text.find(kLineEnd, done)) {
        joined += text.substr(done, found - done);
        joined += kLineEndInText;
        done = found + kLineEnd.size();
    }
    return joined + std::u16string(text.substr(done));
}

std::u16string TextInMacro(const std::optional<StoredValue>& value)
{
    if (!value) {
        return {};
    }
    const std::u16string text = ValueText(*value);
    return value->type == VT_BSTR ? WithJoinedLines(text) : text;
}

std::u16string NameOf(std::u16string_view token, char16_t open, char16_t close)
{
    const size_t first = token.find_first_not_of(open);
    const std::u16string_view tail = first == std::u16string_view::npos ? std::u16string_view() : token.substr(first);
    return std::u16string(tail.substr(0, tail.find_last_not_of(close) + 1));
}

class Expansion
{
  public:
    Expansion(std::u16string_view script, const PlaceholderLookup& lookup) : find(lookup)
    {
        done.text = script;
        for (size_t i = 0; i < script.size(); ++i) {
            done.origins.push_back({i, -1});
        }
    }

    void Pass(char16_t open, char16_t close)
    {
        size_t position = done.text.find(open);
        while (position != std::u16string::npos) {
            const size_t end = done.text.find(close, position);
            if (end == std::u16string::npos) {
                AddEndless(EndlessPass::Reason::Unclosed, open, position);
                return;
            }
            const std::u16string token = done.text.substr(position, end - position + 1);
            const std::u16string name = NameOf(token, open, close);
            const std::optional<StoredValue> value = find(open, name);
            const std::u16string text = TextInMacro(value);
            Replace(token, {0, 0, token, name, value, {}}, text);
            if (done.placeholders.size() > kMostPlaceholders) {
                AddEndless(EndlessPass::Reason::Growing, open, std::min(position, done.text.size() - 1));
                done.endless.back().variable = name;
                return;
            }
            position = done.text.find(open, position + text.size());
        }
    }

    ExpandedScript Take() { return std::move(done); }

  private:
    void AddEndless(EndlessPass::Reason reason, char16_t open, size_t position)
    {
        const ExpandedScript::Origin origin = done.origins[position];
        done.endless.push_back({reason, open, origin.offset, VariableOf(origin)});
    }

    std::u16string VariableOf(const ExpandedScript::Origin& origin) const
    {
        return origin.placeholder < 0 ? u"" : done.placeholders[static_cast<size_t>(origin.placeholder)].name;
    }

    /// Replaces every occurrence of a token, also those that stand before the one that was found.
    void Replace(const std::u16string& token, const Placeholder& model, const std::u16string& value)
    {
        std::u16string text;
        std::vector<ExpandedScript::Origin> origins;
        size_t from = 0;
        const auto copy = [&](size_t to) {
            text.append(done.text, from, to - from);
            origins.insert(origins.end(), done.origins.begin() + static_cast<std::ptrdiff_t>(from),
                           done.origins.begin() + static_cast<std::ptrdiff_t>(to));
        };
        for (size_t at = done.text.find(token);
             at != std::u16string::npos && done.placeholders.size() <= kMostPlaceholders;
             at = done.text.find(token, from)) {
            copy(at);
            done.placeholders.push_back(PlaceholderAt(at, token.size(), model));
            const auto index = static_cast<int32_t>(done.placeholders.size()) - 1;
            text += value;
            origins.insert(origins.end(), value.size(), {done.placeholders.back().offset, index});
            from = at + token.size();
        }
        copy(done.text.size());
        done.text = std::move(text);
        done.origins = std::move(origins);
    }

    Placeholder PlaceholderAt(size_t at, size_t size, Placeholder placeholder) const
    {
        const ExpandedScript::Origin first = done.origins[at];
        const ExpandedScript::Origin last = done.origins[at + size - 1];
        placeholder.offset = first.offset;
        placeholder.broughtBy = VariableOf(first);
        if (first.placeholder < 0) {
            placeholder.length = last.placeholder < 0 ? last.offset - first.offset + 1 : 1;
        }
        return placeholder;
    }

    const PlaceholderLookup& find;
    ExpandedScript done;
};

} // namespace

ExpandedScript ExpandScript(std::u16string_view script, const PlaceholderLookup& find)
{
    Expansion expansion(script, find);
    expansion.Pass(u'{', u'}');
    expansion.Pass(u'[', u']');
    return expansion.Take();
}

std::u16string ValueText(const StoredValue& value)
{
    if (value.type == VT_BOOL) {
        return std::get<int64_t>(value.content) != 0 ? u"True" : u"False";
    }
    if (value.type == VT_R4 || value.type == VT_R8) {
        char text[400];
        std::snprintf(text, sizeof text, "%f", std::get<double>(value.content));
        return Utf16(text);
    }
    return Utf16(value.Display());
}

} // namespace tv::local
