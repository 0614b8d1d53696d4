#include "cad/app_object.h"

#include <algorithm>

namespace tv::app {

namespace {

/// The lists are made before the program begins, in no certain order; this is there before all of them.
constinit const MemberNameList* firstList = nullptr;

} // namespace

MemberNameList::MemberNameList(std::span<const std::u16string_view> ownNames) : names(ownNames), next(firstList)
{
    firstList = this;
}

bool IsMemberOfAnyClass(std::u16string_view name)
{
    for (const MemberNameList* list = firstList; list != nullptr; list = list->next) {
        if (std::ranges::find(list->names, name) != list->names.end()) {
            return true;
        }
    }
    return false;
}

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
