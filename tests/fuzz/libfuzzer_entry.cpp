#include "targets.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const auto* target = std::find_if(std::begin(tv::fuzz::kTargets), std::end(tv::fuzz::kTargets),
                                      [](const tv::fuzz::Target& known) { return known.name == TV_FUZZ_TARGET; });
    try {
        target->run(tv::fuzz::Bytes(data, size));
    } catch (const tv::fuzz::PropertyBroken& broken) {
        std::fprintf(stderr, "This doesn't hold: %s\n", broken.what());
        std::abort();
    }
    return 0;
}
