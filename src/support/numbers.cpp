#include "support/numbers.h"

#include <algorithm>
#include <limits>

namespace tv {

int32_t ParseDecimal(std::u16string_view text)
{
    constexpr std::u16string_view kWhiteSpace = u" \t\n\v\f\r";
    size_t position = std::min(text.find_first_not_of(kWhiteSpace), text.size());
    bool isNegative = false;
    if (position < text.size() && (text[position] == u'-' || text[position] == u'+')) {
        isNegative = text[position] == u'-';
        ++position;
    }
    constexpr int64_t kBeyond = int64_t{1} << 40;
    int64_t number = 0;
    for (; position < text.size() && text[position] >= u'0' && text[position] <= u'9'; ++position) {
        number = std::min(number * 10 + (text[position] - u'0'), kBeyond);
    }
    return static_cast<int32_t>(std::clamp<int64_t>(isNegative ? -number : number, std::numeric_limits<int32_t>::min(),
                                                    std::numeric_limits<int32_t>::max()));
}

} // namespace tv
