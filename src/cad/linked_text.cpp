#include "cad/linked_text.h"

#include "cad/dispatch_application.h"
#include "com/bstring.h"
#include "com/result.h"
#include "com/safe_array.h"
#include "com/variant.h"

#include <functional>

namespace tv {

namespace {

constexpr int32_t kLinkedTextIsCurrent = 347;

/// Calls `visit` for each element of an array, whether it holds variants or plain objects.
void ForEachElement(const VARIANT& value, const std::function<void(const VARIANT&)>& visit)
{
    if ((value.vt & VT_ARRAY) == 0) {
        return;
    }
    const VARTYPE elementType = static_cast<VARTYPE>(value.vt & VT_TYPEMASK);
    if (elementType == VT_VARIANT) {
        const SafeArrayView<VARIANT> elements(value.parray);
        for (const VARIANT& element : elements) {
            visit(element);
        }
    } else if (elementType == VT_DISPATCH || elementType == VT_UNKNOWN) {
        const SafeArrayView<IUnknown*> elements(value.parray);
        for (IUnknown* element : elements) {
            visit(*Variant::FromUnknown(element).get());
        }
    }
}

IUnknown* ObjectOf(const VARIANT& value)
{
    return value.vt == VT_DISPATCH ? value.pdispVal : value.vt == VT_UNKNOWN ? value.punkVal : nullptr;
}

template <typename Interface>
ComPtr<Interface> RequireObject(const VARIANT& value)
{
    ComPtr<Interface> found;
    if (AskApplication(ObjectOf(value), found) < 0) {
        throw ResultError(E_POINTER);
    }
    return found;
}

void RefreshItem(ITorvaneViewItem& item)
{
    BString text;
    BString linked;
    ThrowIfFailed(item.GetText(text.put()));
    ThrowIfFailed(item.GetLinkedText(linked.put()));
    if (text.View().size() != linked.View().size()) {
        ThrowIfFailed(item.SetLinkedText(text.Text().c_str()));
    }
}

void RefreshView(const VARIANT& element)
{
    const ComPtr<ITorvaneView> view = RequireObject<ITorvaneView>(element);
    Variant items;
    ThrowIfFailed(view->GetItems(items.put()));
    ForEachElement(*items.get(), [](const VARIANT& item) { RefreshItem(*RequireObject<ITorvaneViewItem>(item).get()); });
}

} // namespace

void RefreshLinkedText(ITorvane* application, ITorvaneDrawing* drawing)
{
    if (application == nullptr || drawing == nullptr) {
        return;
    }
    bool isCurrent = false;
    ThrowIfFailed(application->GetUserPreferenceToggle(kLinkedTextIsCurrent, &isCurrent));
    if (isCurrent) {
        return;
    }
    Variant arrays;
    ThrowIfFailed(drawing->GetViewArrays(arrays.put()));
    ForEachElement(*arrays.get(), [](const VARIANT& views) { ForEachElement(views, RefreshView); });
}

} // namespace tv
