#include "macro/containers.h"

#include "macro/builtins.h"
#include "macro/convert.h"
#include "macro/runtime.h"
#include "macro/text.h"

#include <algorithm>

namespace tv::macro {

namespace {

class ListEnumerator final : public Enumerator
{
  public:
    explicit ListEnumerator(std::vector<Value> given) : values(std::move(given)) {}

    std::optional<Value> Next() override
    {
        return position < values.size() ? std::optional(values[position++]) : std::nullopt;
    }

  private:
    std::vector<Value> values;
    size_t position = 0;
};

constexpr size_t kItemBytes = 96;

/// The key is held twice, the second time folded, to be found by.
size_t BytesOf(const Collection::Item& item)
{
    return kItemBytes + 2 * item.key.size() * sizeof(char16_t);
}

} // namespace

Container::Container(Runtime& owner) : runtime(&owner)
{
    owner.containers.insert(this);
}

Container::~Container()
{
    if (runtime != nullptr) {
        runtime->containers.erase(this);
    }
}

void Collection::Empty()
{
    std::vector<Item> dropped;
    dropped.swap(items);
    places.clear();
    placesAreKnown = true;
    for (const Item& item : dropped) {
        MemoryBudget::Credit(BytesOf(item));
    }
}

std::optional<size_t> Collection::FindKey(const std::u16string& key)
{
    if (!placesAreKnown) {
        for (size_t i = 0; i < items.size(); ++i) {
            if (!items[i].key.empty()) {
                places.emplace(Lower(items[i].key), i);
            }
        }
        placesAreKnown = true;
    }
    auto found = places.find(Lower(key));
    return found == places.end() ? std::nullopt : std::optional(found->second);
}

size_t Collection::Find(const Value& given)
{
    if (given.IsString()) {
        std::optional<size_t> place = FindKey(given.Text());
        if (!place) {
            Raise(kInvalidCall);
        }
        return *place;
    }
    int32_t position = given.ToLong();
    if (position < 1 || static_cast<size_t>(position) > items.size()) {
        Raise(kSubscriptOutOfRange);
    }
    return static_cast<size_t>(position) - 1;
}

void Collection::Add(const Arguments& given)
{
    static constexpr std::u16string_view kParameters[] = {u"item", u"key", u"before", u"after"};
    std::vector<Value> storage;
    Arguments a = given.Ordered(kParameters, storage);
    a.Expect(1, 4);
    Item item{a[0], {}};
    if (a.Has(1)) {
        if (!a[1].IsString()) {
            Raise(kTypeMismatch);
        }
        item.key = a[1].Text();
        if (!item.key.empty() && FindKey(item.key)) {
            Raise(kKeyAlreadyUsed);
        }
    }
    if (a.Has(2) && a.Has(3)) {
        Raise(kInvalidCall);
    }
    size_t place = a.Has(2) ? Find(a[2]) : a.Has(3) ? Find(a[3]) + 1 : items.size();
    MemoryBudget::Charge(BytesOf(item));
    if (place < items.size()) {
        placesAreKnown = false;
        places.clear();
    } else if (placesAreKnown && !item.key.empty()) {
        places.emplace(Lower(item.key), place);
    }
    items.insert(items.begin() + static_cast<std::ptrdiff_t>(place), std::move(item));
}

Value Collection::Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments)
{
    if (kind != InvokeKind::Get) {
        NoSuchMember();
    }
    if (name.Is(u"add")) {
        Add(arguments);
        return Value();
    }
    if (name.Is(u"count")) {
        return Value(static_cast<int32_t>(items.size()));
    }
    if (name.Is(u"item") || name.IsDefault()) {
        arguments.Expect(1, 1);
        return items[Find(arguments[0])].value;
    }
    if (name.Is(u"remove")) {
        arguments.Expect(1, 1);
        size_t place = Find(arguments[0]);
        Item removed = std::move(items[place]);
        if (place + 1 < items.size()) {
            placesAreKnown = false;
            places.clear();
        } else {
            places.erase(Lower(removed.key));
        }
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(place));
        MemoryBudget::Credit(BytesOf(removed));
        return Value();
    }
    NoSuchMember();
}

Ref<Enumerator> Collection::Enumerate()
{
    std::vector<Value> values;
    for (const Item& item : items) {
        values.push_back(item.value);
    }
    return MakeRef<ListEnumerator>(std::move(values));
}

void Dictionary::Empty()
{
    std::vector<Item> dropped;
    dropped.swap(items);
    index.clear();
    for (const Item& item : dropped) {
        MemoryBudget::Credit(BytesOf(item));
    }
}

/// The key is held once more by the index.
size_t Dictionary::BytesOf(const Item& item)
{
    return kItemBytes + (item.key.IsString() ? item.key.Text().size() * sizeof(char16_t) : 0);
}

std::u16string Dictionary::Canonical(const Value& key) const
{
    if (key.IsArray() || key.Kind() == Type::Record) {
        Raise(kTypeMismatch);
    }
    if (key.IsObject()) {
        return u"o" + Widen(std::to_string(reinterpret_cast<uintptr_t>(key.ObjectPointer())));
    }
    if (key.IsString()) {
        return u"s" + (compareMode == 1 ? Lower(key.Text()) : key.Text());
    }
    if (key.IsEmpty() || key.IsNull()) {
        return key.IsEmpty() ? u"e" : u"n";
    }
    return u"d" + NumberText(key.ToDouble());
}

Dictionary::Item* Dictionary::Find(const Value& key)
{
    auto found = index.find(Canonical(key));
    return found == index.end() ? nullptr : &items[found->second];
}

Dictionary::Item& Dictionary::FindOrAdd(const Value& key)
{
    auto [found, isNew] = index.emplace(Canonical(key), items.size());
    if (isNew) {
        Item item{key, Value()};
        try {
            MemoryBudget::Charge(BytesOf(item));
        } catch (const MacroError&) {
            index.erase(found);
            throw;
        }
        items.push_back(std::move(item));
    }
    return items[found->second];
}

void Dictionary::Rebuild()
{
    index.clear();
    for (size_t i = 0; i < items.size(); ++i) {
        index.emplace(Canonical(items[i].key), i);
    }
}

void Dictionary::Remove(const Value& key)
{
    auto found = index.find(Canonical(key));
    if (found == index.end()) {
        throw MacroError(32811, u"Element not found");
    }
    Item removed = std::move(items[found->second]);
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(found->second));
    MemoryBudget::Credit(BytesOf(removed));
    Rebuild();
}

std::vector<Value> Dictionary::Keys() const
{
    std::vector<Value> keys;
    for (const Item& item : items) {
        keys.push_back(item.key);
    }
    return keys;
}

std::vector<Value> Dictionary::Values() const
{
    std::vector<Value> values;
    for (const Item& item : items) {
        values.push_back(item.value);
    }
    return values;
}

Value Dictionary::Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments)
{
    if (name.Is(u"item") || name.IsDefault()) {
        if (kind != InvokeKind::Get) {
            arguments.Expect(2, 2);
            FindOrAdd(arguments[0]).value = arguments[1];
            return Value();
        }
        arguments.Expect(1, 1);
        // Reading a key that isn't there makes it.
        return FindOrAdd(arguments[0]).value;
    }
    if (name.Is(u"add")) {
        arguments.Expect(2, 2);
        if (Find(arguments[0]) != nullptr) {
            Raise(kKeyAlreadyUsed);
        }
        FindOrAdd(arguments[0]).value = arguments[1];
        return Value();
    }
    if (name.Is(u"exists")) {
        arguments.Expect(1, 1);
        return Value(Find(arguments[0]) != nullptr);
    }
    if (name.Is(u"count")) {
        return Value(static_cast<int32_t>(items.size()));
    }
    if (name.Is(u"remove")) {
        Remove(arguments[0]);
        return Value();
    }
    if (name.Is(u"removeall")) {
        Empty();
        return Value();
    }
    if (name.Is(u"keys") || name.Is(u"items")) {
        Ref<Array> list = Array::FromValues(name.Is(u"keys") ? Keys() : Values());
        if (arguments.Count() == 1) {
            return list->At(arguments[0].ToLong());
        }
        return Value(list);
    }
    if (name.Is(u"key") && kind == InvokeKind::Let) {
        arguments.Expect(2, 2);
        Item* item = Find(arguments[0]);
        if (item == nullptr) {
            throw MacroError(32811, u"Element not found");
        }
        Item renamed{arguments[1], item->value};
        // Refused before anything has changed.
        Canonical(renamed.key);
        MemoryBudget::Charge(BytesOf(renamed));
        MemoryBudget::Credit(BytesOf(*item));
        std::swap(*item, renamed);
        Rebuild();
        return Value();
    }
    if (name.Is(u"comparemode")) {
        if (kind == InvokeKind::Let) {
            if (!items.empty()) {
                Raise(kInvalidCall);
            }
            compareMode = arguments[0].ToLong();
        }
        return Value(compareMode);
    }
    NoSuchMember();
}

Ref<Enumerator> Dictionary::Enumerate()
{
    return MakeRef<ListEnumerator>(Keys());
}

Runtime::~Runtime()
{
    if (!debugLine.empty()) {
        try {
            host.DebugPrint(debugLine);
        } catch (const std::exception&) {
            // The run is over; nobody is left to hear of it.
        }
    }
    std::vector<Ref<Container>> held;
    for (Container* container : containers) {
        held.emplace_back(container);
    }
    for (const Ref<Container>& container : held) {
        container->Empty();
        container->runtime = nullptr;
    }
}

bool IsBuiltinClass(std::u16string_view folded)
{
    constexpr std::u16string_view kClasses[] = {
        u"collection",           u"vba.collection", u"scripting.dictionary", u"scripting.filesystemobject",
        u"scripting.textstream", u"scripting.file", u"scripting.folder",     u"errobject",
        u"vba.errobject",
    };
    return std::find(std::begin(kClasses), std::end(kClasses), folded) != std::end(kClasses);
}

Ref<Object> CreateBuiltinObject(Runtime& runtime, std::u16string_view folded)
{
    if (folded == u"collection" || folded == u"vba.collection") {
        return MakeRef<Collection>(runtime);
    }
    if (folded == u"scripting.dictionary") {
        return MakeRef<Dictionary>(runtime);
    }
    if (folded == u"scripting.filesystemobject") {
        return MakeFileSystemObject(runtime);
    }
    return nullptr;
}

} // namespace tv::macro
