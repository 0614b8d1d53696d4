#include "protocol/errors.h"

#include <algorithm>

namespace tv::kernel {

std::string_view NameOf(ErrorCode code)
{
    return std::ranges::find(kErrorNames, code, &ErrorName::code)->name;
}

ErrorCode ErrorCodeOf(std::string_view name)
{
    const auto found = std::ranges::find(kErrorNames, name, &ErrorName::name);
    return found == std::end(kErrorNames) ? ErrorCode::Failed : found->code;
}

} // namespace tv::kernel
