#include "support/str.h"

#include "support/narrow_text.h"

#include <algorithm>

namespace tv {

Str::Str(Str&& other) noexcept : text(std::move(other.text))
{
    other.text.clear();
    other.DropNarrow();
}

Str& Str::operator=(const Str& other)
{
    if (this != &other) {
        SetText(other.text);
    }
    return *this;
}

Str& Str::operator=(Str&& other) noexcept
{
    if (this != &other) {
        text = std::move(other.text);
        other.text.clear();
        other.DropNarrow();
        DropNarrow();
    }
    return *this;
}

const char* Str::Narrow() const
{
    if (narrow == nullptr) {
        const std::string bytes = NarrowText(text);
        narrow = std::make_unique<char[]>(bytes.size() + 1);
        std::copy(bytes.begin(), bytes.end(), narrow.get());
        narrowSize = bytes.size() + 1;
    }
    return narrow.get();
}

void Str::SetText(std::u16string words)
{
    text = std::move(words);
    DropNarrow();
}

void Str::DropNarrow() noexcept
{
    narrow.reset();
    narrowSize = 0;
}

StrComp::StrComp(uint32_t value, int32_t width, bool zero)
{
    if (width >= 1) {
        const std::u16string format = FormatText(u"%%%s%dd", zero ? u"0" : u"", width);
        Format(format, value);
    } else {
        Format(u"%d", value);
    }
}

} // namespace tv
