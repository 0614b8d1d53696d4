#include "cad/save_formats.h"

#include <algorithm>
#include <iterator>

namespace tv::app {

const SaveFormat* FindSaveFormat(std::u16string_view extension)
{
    const auto found = std::ranges::find(kSaveFormats, extension, &SaveFormat::extension);
    return found == std::end(kSaveFormats) ? nullptr : &*found;
}

bool IsNeutralExtension(std::u16string_view extension)
{
    constexpr std::u16string_view kNeutral[] = {u".step", u".stp", u".igs", u".iges", u".stl", u".brep", u".brp"};
    return std::ranges::find(kNeutral, extension) != std::end(kNeutral);
}

} // namespace tv::app
