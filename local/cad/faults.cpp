#include "cad/faults.h"

#include "cad/app_object.h"
#include "cad/fault_table.h"
#include "cad/text.h"

#include <algorithm>
#include <charconv>

namespace tv::app {

namespace {

struct MomentName
{
    FaultMoment moment;
    std::string_view name;
    bool canBeChosen; ///< by "at"
};

constexpr MomentName kMoments[] = {
    {FaultMoment::Start, "start", true}, {FaultMoment::Macro, "macro", true}, {FaultMoment::Save, "save", true},
    {FaultMoment::Close, "close", true}, {FaultMoment::Call, "call", false},  {FaultMoment::Event, "event", false},
};

struct KeyName
{
    AnswerKey key;
    std::string_view name;
};

constexpr KeyName kKeys[] = {
    {AnswerKey::Return, "return"},
    {AnswerKey::Escape, "escape"},
    {AnswerKey::Close, "close"},
};

constexpr bool IsDigit(char unit)
{
    return unit >= '0' && unit <= '9';
}

std::string Quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

std::string_view Trimmed(std::string_view text)
{
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// Cuts at a mark that doesn't stand in single quotes.
std::vector<std::string_view> Cut(std::string_view text, char mark)
{
    std::vector<std::string_view> pieces;
    bool inQuotes = false;
    size_t begin = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\'') {
            inQuotes = !inQuotes;
        } else if (text[i] == mark && !inQuotes) {
            pieces.push_back(text.substr(begin, i - begin));
            begin = i + 1;
        }
    }
    if (inQuotes) {
        throw FaultTextError("A quote isn't closed in " + Quoted(text) + ".");
    }
    pieces.push_back(text.substr(begin));
    return pieces;
}

/// The text of a value: as it stands, or what single quotes enclose, where two stand for one.
std::string TextOf(std::string_view value)
{
    if (!value.starts_with('\'')) {
        if (value.find('\'') != std::string_view::npos) {
            throw FaultTextError("A quote stands within " + Quoted(value) + ": put the whole value into quotes.");
        }
        return std::string(value);
    }
    std::string text;
    for (size_t i = 1; i < value.size(); ++i) {
        if (value[i] != '\'') {
            text += value[i];
        } else if (i + 1 < value.size() && value[i + 1] == '\'') {
            text += value[i++];
        } else if (i + 1 != value.size()) {
            throw FaultTextError("Something stands behind the closing quote of " + Quoted(value) + ".");
        }
    }
    return text;
}

std::string FilledText(std::string_view name, std::string_view value)
{
    std::string text = TextOf(value);
    if (text.empty()) {
        throw FaultTextError("\"" + std::string(name) + "\" has no value.");
    }
    return text;
}

/// A decimal number, or a hexadecimal one behind "0x".
int64_t NumberOf(std::string_view name, std::string_view value, int64_t lowest, int64_t highest)
{
    const bool isHex = value.starts_with("0x") || value.starts_with("0X");
    const std::string_view digits = isHex ? value.substr(2) : value;
    uint64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, isHex ? 16 : 10);
    if (error != std::errc() || end != digits.data() + digits.size() || number < static_cast<uint64_t>(lowest) ||
        number > static_cast<uint64_t>(highest)) {
        throw FaultTextError("\"" + std::string(name) + "\" takes a number from " + std::to_string(lowest) + " to " +
                             std::to_string(highest) + ", and not " + Quoted(value) + ".");
    }
    return static_cast<int64_t>(number);
}

FaultMoment ChosenMoment(std::string_view value)
{
    const auto found = std::ranges::find(kMoments, value, &MomentName::name);
    if (found == std::end(kMoments) || !found->canBeChosen) {
        throw FaultTextError("\"at\" takes start, macro, save or close, and not " + Quoted(value) + ".");
    }
    return found->moment;
}

AnswerKey ChosenKey(std::string_view value)
{
    const auto found = std::ranges::find(kKeys, value, &KeyName::name);
    if (found == std::end(kKeys)) {
        throw FaultTextError("\"key\" takes return, escape or close, and not " + Quoted(value) + ".");
    }
    return found->key;
}

/// The name of a member in the letters by which members are compared.
std::string MemberNameOf(std::string_view value)
{
    std::string name;
    for (const char unit : value) {
        const bool isLarge = unit >= 'A' && unit <= 'Z';
        if (!isLarge && !(unit >= 'a' && unit <= 'z') && !IsDigit(unit)) {
            throw FaultTextError(Quoted(value) + " can't be the name of a member.");
        }
        name += isLarge ? static_cast<char>(unit - 'A' + 'a') : unit;
    }
    if (name.empty()) {
        throw FaultTextError("\"member\" has no value.");
    }
    if (!IsMemberOfAnyClass(ToUtf16(name))) {
        throw FaultTextError("No object of the application has a member " + Quoted(value) + ".");
    }
    return name;
}

void SetArgument(Fault& fault, const FaultArgumentRow& row, std::string_view value)
{
    switch (row.bits) {
    case kAt:
        fault.moment = ChosenMoment(value);
        return;
    case kMember:
        fault.subject = MemberNameOf(value);
        return;
    case kEvent:
        fault.subject = std::to_string(NumberOf(row.name, value, row.lowest, row.highest));
        return;
    case kTitle:
        fault.title = FilledText(row.name, value);
        return;
    case kParent:
        fault.parent = FilledText(row.name, value);
        return;
    case kKey:
        fault.key = ChosenKey(value);
        return;
    default:
        fault.number = static_cast<int32_t>(static_cast<uint32_t>(NumberOf(row.name, value, row.lowest, row.highest)));
        return;
    }
}

void ReadArguments(Fault& fault, const FaultRow& row, std::string_view text)
{
    unsigned given = 0;
    for (const std::string_view piece : text.empty() ? std::vector<std::string_view>() : Cut(text, ',')) {
        const size_t equals = piece.find('=');
        const std::string_view name = Trimmed(piece.substr(0, equals));
        const auto argument = std::ranges::find_if(kFaultArguments, [&](const FaultArgumentRow& candidate) {
            return candidate.name == name && (candidate.bits & (row.needs | row.takes)) != 0;
        });
        if (argument == std::end(kFaultArguments) || equals == std::string_view::npos) {
            throw FaultTextError("The fault \"" + std::string(row.name) + "\" takes no " + Quoted(Trimmed(piece)) +
                                 ".");
        }
        if ((given & argument->bits) != 0) {
            throw FaultTextError("The fault \"" + std::string(row.name) + "\" is given " + Quoted(name) + " twice.");
        }
        given |= argument->bits;
        SetArgument(fault, *argument, Trimmed(piece.substr(equals + 1)));
    }
    for (const FaultArgumentRow& argument : kFaultArguments) {
        if ((argument.bits & row.needs & ~given) != 0) {
            throw FaultTextError("The fault \"" + std::string(row.name) + "\" needs " + Quoted(argument.name) + ".");
        }
    }
}

/// "3" is the third time, "3-" the third and all after it, "3-5" three times.
void ReadPlace(Fault& fault, std::string_view text)
{
    const size_t dash = text.find('-');
    fault.first = static_cast<int32_t>(NumberOf("@", text.substr(0, dash), 1, Fault::kForever));
    if (dash == std::string_view::npos) {
        fault.last = fault.first;
    } else if (dash + 1 < text.size()) {
        fault.last = static_cast<int32_t>(NumberOf("@", text.substr(dash + 1), fault.first, Fault::kForever));
    }
}

Fault ReadFault(std::string_view item)
{
    const std::vector<std::string_view> halves = Cut(item, '@');
    if (halves.size() > 2) {
        throw FaultTextError("There is more than one \"@\" in " + Quoted(item) + ".");
    }
    const std::string_view told = Trimmed(halves[0]);
    const size_t colon = told.find(':');
    const std::string_view name = Trimmed(told.substr(0, colon));
    const auto row = std::ranges::find(kFaultRows, name, &FaultRow::name);
    if (row == std::end(kFaultRows)) {
        throw FaultTextError("There is no fault " + Quoted(name) + ".");
    }
    Fault fault{.kind = row->kind,
                .moment = row->moment,
                .title = std::string(row->title),
                .parent = std::string(row->parent),
                .key = row->key};
    if (colon != std::string_view::npos && Trimmed(told.substr(colon + 1)).empty()) {
        throw FaultTextError("Nothing stands behind the colon of " + Quoted(told) + ".");
    }
    ReadArguments(fault, *row, colon == std::string_view::npos ? std::string_view() : Trimmed(told.substr(colon + 1)));
    if (halves.size() == 2) {
        ReadPlace(fault, Trimmed(halves[1]));
    }
    return fault;
}

/// Digits lead it; what may follow are digits and dots.
std::string RevisionOf(std::string_view value)
{
    if (value.empty() || !IsDigit(value.front()) ||
        !std::ranges::all_of(value, [](char unit) { return IsDigit(unit) || unit == '.'; })) {
        throw FaultTextError("\"revision\" takes a number as 16.2.0, and not " + Quoted(value) + ".");
    }
    return std::string(value);
}

} // namespace

FaultSettings ParseFaults(std::string_view text)
{
    FaultSettings settings;
    if (Trimmed(text).empty()) {
        return settings;
    }
    constexpr std::string_view kCounter = "counter=";
    constexpr std::string_view kRevision = "revision=";
    for (const std::string_view piece : Cut(text, ';')) {
        const std::string_view item = Trimmed(piece);
        if (item.starts_with(kCounter)) {
            settings.counterFile = FilledText("counter", item.substr(kCounter.size()));
        } else if (item.starts_with(kRevision)) {
            settings.revision = RevisionOf(item.substr(kRevision.size()));
        } else {
            settings.faults.push_back(ReadFault(item));
        }
    }
    return settings;
}

std::string_view NameOf(FaultMoment moment)
{
    return std::ranges::find(kMoments, moment, &MomentName::moment)->name;
}

std::string_view NameOf(AnswerKey key)
{
    return std::ranges::find(kKeys, key, &KeyName::key)->name;
}

} // namespace tv::app
