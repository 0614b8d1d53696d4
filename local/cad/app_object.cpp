#include "cad/app_object.h"

namespace tv::app {

bool AppObject::IsSame(const macro::Object& other) const
{
    const auto* same = dynamic_cast<const AppObject*>(&other);
    return same != nullptr && same->Identity() == Identity();
}

void ExpectGet(macro::InvokeKind kind)
{
    if (kind != macro::InvokeKind::Get) {
        throw macro::MacroError(macro::kNoSuchMember);
    }
}

} // namespace tv::app
