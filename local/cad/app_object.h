// Base of the application's objects: a class is a table of members, and each object can be a source of events.
#pragma once

#include "cad/event_source.h"
#include "macro/object.h"

#include <array>
#include <iterator>
#include <memory>
#include <span>
#include <string_view>

namespace tv::app {

/// An object that macros use by names and other processes by automation.
class AppObject : public macro::Object
{
  public:
    /// The events that the object offers to listeners; null for none.
    virtual std::shared_ptr<EventSource> Events() const { return nullptr; }

    /// Names of the members in a fixed order. Their places are the automation's member numbers.
    virtual std::span<const std::u16string_view> MemberNames() const = 0;

    /// A value that stands for what the object shows: two objects of the same thing have the same one.
    virtual const void* Identity() const { return this; }

    bool IsSame(const macro::Object& other) const override;
};

/// One member of a class: its name in small letters and the function behind it.
template <typename Class> struct Member
{
    std::u16string_view name;
    macro::Value (Class::*call)(macro::InvokeKind kind, macro::Arguments& arguments);
};

/// The member names of one class, which joins those of all classes when it is made. Lasts as long as the program.
class MemberNameList
{
  public:
    explicit MemberNameList(std::span<const std::u16string_view> ownNames);
    MemberNameList(const MemberNameList&) = delete;
    MemberNameList& operator=(const MemberNameList&) = delete;

    std::span<const std::u16string_view> Names() const { return names; }

  private:
    friend bool IsMemberOfAnyClass(std::u16string_view name);

    std::span<const std::u16string_view> names;
    const MemberNameList* next;
};

/// True when a class of the program's objects has a member of that name, given in small letters.
bool IsMemberOfAnyClass(std::u16string_view name);

/// Implements the calls of a class whose members stand in `Class::kMembers`, an array of Member<Class>.
template <typename Class> class TableObject : public AppObject
{
  public:
    macro::Value Invoke(const macro::MemberName& name, macro::InvokeKind kind, macro::Arguments& arguments) override
    {
        for (const Member<Class>& member : Class::kMembers) {
            if (name.Is(member.name)) {
                return (static_cast<Class&>(*this).*member.call)(kind, arguments);
            }
        }
        NoSuchMember();
    }

    std::u16string ClassName() const override { return std::u16string(Class::kClassName); }

    std::span<const std::u16string_view> MemberNames() const override { return kMemberNames.Names(); }

  private:
    static std::span<const std::u16string_view> NamesInTable()
    {
        static const auto names = [] {
            std::array<std::u16string_view, std::size(Class::kMembers)> list{};
            for (size_t i = 0; i < list.size(); ++i) {
                list[i] = Class::kMembers[i].name;
            }
            return list;
        }();
        return names;
    }

    static inline const MemberNameList kMemberNames{NamesInTable()};
};

/// Raises error 450 or 438 unless the member is read or called.
void ExpectGet(macro::InvokeKind kind);

} // namespace tv::app
