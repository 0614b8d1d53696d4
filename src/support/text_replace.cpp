#include "support/text_replace.h"

namespace tv {

std::u16string ReplaceAll(std::u16string_view text, std::u16string_view from, std::u16string_view to)
{
    std::u16string replaced;
    size_t done = 0;
    if (!from.empty()) {
        for (size_t found = text.find(from); found != std::u16string_view::npos; found = text.find(from, done)) {
            replaced += text.substr(done, found - done);
            replaced += to;
            done = found + from.size();
        }
    }
    replaced += text.substr(done);
    return replaced;
}

} // namespace tv
