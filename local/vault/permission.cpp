#include "vault/permission.h"

#include "vault/error_table.h"
#include "vault/text.h"

namespace tv::local {

namespace {

struct RightRow
{
    Right right;
    std::string_view word;
};

constexpr RightRow kRights[] = {
    {Right::Read, "read"},     {Right::Add, "add"},       {Right::CheckOut, "checkout"},
    {Right::Delete, "delete"}, {Right::Permit, "permit"},
};

Rights RightsOfWord(std::string_view word)
{
    if (SameName(word, "all")) {
        return kAllRights;
    }
    if (SameName(word, "none")) {
        return kNoRights;
    }
    for (const RightRow& row : kRights) {
        if (SameName(word, row.word)) {
            return {static_cast<uint32_t>(row.right)};
        }
    }
    Fail(E_INVALIDARG, "There is no right '" + std::string(word) +
                           "'; the rights are: read, add, checkout, delete, permit, or all, or none.");
}

} // namespace

std::string_view RightWord(Right right)
{
    for (const RightRow& row : kRights) {
        if (row.right == right) {
            return row.word;
        }
    }
    return "unknown";
}

std::string RightsText(Rights rights)
{
    if (rights == kNoRights) {
        return "none";
    }
    if (rights == kAllRights) {
        return "all";
    }
    std::string text;
    for (const RightRow& row : kRights) {
        if (rights.Has(row.right)) {
            text += (text.empty() ? "" : ",") + std::string(row.word);
        }
    }
    return text;
}

Rights ParseRights(std::string_view text)
{
    Rights rights;
    bool any = false;
    while (!text.empty()) {
        const size_t end = std::min(text.find_first_of(", "), text.size());
        if (end > 0) {
            rights.bits |= RightsOfWord(text.substr(0, end)).bits;
            any = true;
        }
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    if (!any) {
        Fail(E_INVALIDARG, "Rights are needed: read, add, checkout, delete, permit, or all, or none.");
    }
    return rights;
}

} // namespace tv::local
