#include "vault/file_card_rows.h"

#include "support/numbers.h"
#include "vault/vault_access.h"

#include <map>

namespace tv {

namespace {

using VariableIds = std::map<std::u16string, int32_t, std::less<>>;

VariableIds ReadVariableIds(IVyxVault* vault)
{
    VariableIds ids;
    ComPtr<IVyxVariableMgr> manager;
    ThrowIfFailed(QueryFor(vault, manager));
    ComPtr<IVyxPos> position;
    ThrowIfFailed(manager->GetFirstVariablePosition(position.put()));
    for (VariantBool atEnd = kVariantFalse;;) {
        ThrowIfFailed(Needed(position).IsNull(&atEnd));
        if (atEnd != kVariantFalse) {
            return ids;
        }
        ComPtr<IVyxVariable> variable;
        BString name;
        ThrowIfFailed(manager->GetNextVariable(position.get(), variable.put()));
        ThrowIfFailed(Needed(variable).GetName(name.put()));
        ids.emplace(name.Text(), IdOf(variable));
    }
}

/// Cuts off and returns what stands before the first separator; all of it when there is none.
std::u16string_view TakeField(std::u16string_view& text, char16_t separator)
{
    const size_t end = text.find(separator);
    const std::u16string_view field = text.substr(0, end);
    text = end == std::u16string_view::npos ? std::u16string_view() : text.substr(end + 1);
    return field;
}

/// A name that nobody knows joins with the id 0; the vault's update decides what becomes of it.
int32_t IdOfName(VariableIds& ids, std::u16string_view name)
{
    return ids.emplace(name, 0).first->second;
}

FileCardRow ParseRow(std::u16string_view line, VariableIds& ids)
{
    FileCardRow row;
    row.destinationId = IdOfName(ids, TakeField(line, u';'));
    row.source = static_cast<CardSource>(ParseDecimal(TakeField(line, u';')));
    if (row.source == CardSource::CardVariable) {
        row.sourceId = IdOfName(ids, line);
    } else if (row.source == CardSource::FreeText) {
        row.text = line;
    }
    return row;
}

} // namespace

Result ReadFileCardRows(IVyxTaskInstance* instance, IVyxVault* vault, std::vector<FileCardRow>& rows)
{
    Variant value;
    const Result result = ThrowIfFailed(instance->GetVariable(u"FileCardData", value.put()));
    if (result != 0) {
        return result;
    }
    const std::u16string text = value.ToText();
    if (text.empty()) {
        return 0;
    }
    VariableIds ids = ReadVariableIds(vault);
    for (std::u16string_view rest = text; !rest.empty();) {
        if (const std::u16string_view line = TakeField(rest, u'\n'); !line.empty()) {
            rows.push_back(ParseRow(line, ids));
        }
    }
    return 0;
}

} // namespace tv
