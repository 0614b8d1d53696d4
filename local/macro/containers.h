#pragma once

#include "macro/object.h"

#include <string>
#include <unordered_map>

namespace tv::macro {

class Runtime;

/// Objects of the language that hold values. What a run made is emptied at its end, because containers may hold each
/// other in a circle.
class Container : public Object
{
public:
    explicit Container(Runtime& owner);
    ~Container() override;
    virtual void Empty() = 0;

    /// Null once the run is over.
    Runtime* runtime;
};

/// The class Collection: values in order, from 1, with optional keys.
class Collection final : public Container
{
public:
    using Container::Container;
    ~Collection() override { Empty(); }
    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) override;
    std::u16string ClassName() const override { return u"Collection"; }
    Ref<Enumerator> Enumerate() override;
    void Empty() override;

    struct Item
    {
        Value value;
        std::u16string key;
    };
    std::vector<Item> items;

private:
    size_t Find(const Value& index);
    /// Position of a key, or nothing.
    std::optional<size_t> FindKey(const std::u16string& key);
    void Add(const Arguments& given);

    /// Positions by folded key; built anew when one is looked for after items have moved.
    std::unordered_map<std::u16string, size_t> places;
    bool placesAreKnown = true;
};

/// "Scripting.Dictionary": values by key, in the order in which the keys came.
class Dictionary final : public Container
{
public:
    using Container::Container;
    ~Dictionary() override { Empty(); }
    Value Invoke(const MemberName& name, InvokeKind kind, Arguments& arguments) override;
    std::u16string ClassName() const override { return u"Dictionary"; }
    Ref<Enumerator> Enumerate() override;
    void Empty() override;

private:
    struct Item
    {
        Value key;
        Value value;
    };
    static size_t BytesOf(const Item& item);
    /// A key as text by which equal keys are found, whatever their kind of number.
    std::u16string Canonical(const Value& key) const;
    Item* Find(const Value& key);
    Item& FindOrAdd(const Value& key);
    void Remove(const Value& key);
    std::vector<Value> Keys() const;
    std::vector<Value> Values() const;
    void Rebuild();

    std::vector<Item> items;
    std::unordered_map<std::u16string, size_t> index;
    int32_t compareMode = 0;
};

/// "Scripting.FileSystemObject" over the host's files.
Ref<Object> MakeFileSystemObject(Runtime& runtime);

} // namespace tv::macro
