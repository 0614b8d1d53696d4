#include "targets.h"

namespace tv::fuzz {

void Require(bool holds, const char* property)
{
    if (!holds) {
        throw PropertyBroken(property);
    }
}

std::u16string NarrowText(Bytes bytes)
{
    return std::u16string(bytes.begin(), bytes.end());
}

} // namespace tv::fuzz
