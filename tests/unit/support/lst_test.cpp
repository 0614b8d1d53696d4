#include "support/lst.h"

#include "support/ref_ptr.h"
#include "support/str.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tv {
namespace {

std::vector<int> Forwards(const Lst<int>& list)
{
    return std::vector<int>(list.begin(), list.end());
}

std::vector<int> Backwards(const Lst<int>& list)
{
    std::vector<int> values;
    for (auto place = list.end(); place != list.begin();) {
        values.push_back(*--place);
    }
    return values;
}

TEST(Lst, ANewOneIsEmpty)
{
    const Lst<int> list;
    EXPECT_EQ(list.Count(), 0u);
    EXPECT_EQ(list.Head(), nullptr);
    EXPECT_EQ(list.Tail(), nullptr);
}

TEST(Lst, AddTailAppendsAndCounts)
{
    Lst<int> list;
    list.AddTail(1);
    list.AddTail(2);
    list.AddTail(3);
    EXPECT_EQ(list.Count(), 3u);
    EXPECT_EQ(Forwards(list), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Backwards(list), (std::vector<int>{3, 2, 1}));
}

TEST(Lst, RemoveHeadTakesTheFirstValueOut)
{
    Lst<int> list;
    list.AddTail(1);
    list.AddTail(2);
    EXPECT_EQ(list.RemoveHead(), 1);
    EXPECT_EQ(list.Count(), 1u);
    EXPECT_EQ(*list.Head(), 2);
}

TEST(Lst, RemoveHeadClearsThePreviousLinkOfTheNewHead)
{
    Lst<int> list;
    list.AddTail(1);
    list.AddTail(2);
    list.AddTail(3);
    list.RemoveHead();
    EXPECT_EQ(Backwards(list), (std::vector<int>{3, 2}));
    EXPECT_EQ(Forwards(list), (std::vector<int>{2, 3}));
}

TEST(Lst, RemovingTheOnlyElementLeavesNothing)
{
    Lst<int> list;
    list.AddTail(1);
    list.RemoveHead();
    EXPECT_EQ(list.Head(), nullptr);
    EXPECT_EQ(list.Tail(), nullptr);
    EXPECT_EQ(list.Count(), 0u);
}

TEST(Lst, CanBeFilledAgainAfterItWasEmptied)
{
    Lst<int> list;
    list.AddTail(1);
    list.RemoveHead();
    list.AddTail(2);
    EXPECT_EQ(Forwards(list), (std::vector<int>{2}));
    EXPECT_EQ(Backwards(list), (std::vector<int>{2}));
}

TEST(Lst, RemoveHeadOfAnEmptyListRaises)
{
    Lst<int> list;
    EXPECT_THROW(list.RemoveHead(), std::out_of_range);
}

struct Witness
{
    Witness(int value, std::vector<int>& record) : number(value), gone(&record) {}
    Witness(Witness&& other) noexcept : number(other.number), gone(std::exchange(other.gone, nullptr)) {}
    ~Witness()
    {
        if (gone != nullptr) {
            gone->push_back(number);
        }
    }
    int number;
    std::vector<int>* gone;
};

TEST(Lst, DestroyingAListDestroysItsElementsFromTheHeadOn)
{
    std::vector<int> gone;
    {
        Lst<Witness> list;
        list.AddTail(Witness(1, gone));
        list.AddTail(Witness(2, gone));
        list.AddTail(Witness(3, gone));
        ASSERT_TRUE(gone.empty());
    }
    EXPECT_EQ(gone, (std::vector<int>{1, 2, 3}));
}

TEST(Lst, HoldsTextsAndCountedObjects)
{
    struct Thing : RefObj
    {};
    Lst<Str> texts;
    texts.AddTail(Str(u"a text beyond the small buffer"));
    EXPECT_EQ(texts.RemoveHead().View(), u"a text beyond the small buffer");
    Lst<RefPtr<Thing>> things;
    things.AddTail(RefPtr<Thing>(new Thing));
    EXPECT_TRUE(*things.Head());
}

TEST(Lst, AMovedListLeavesAnEmptyOne)
{
    Lst<int> from;
    from.AddTail(1);
    Lst<int> to;
    to.AddTail(9);
    to = std::move(from);
    EXPECT_EQ(Forwards(to), (std::vector<int>{1}));
    EXPECT_EQ(from.Count(), 0u);
    EXPECT_EQ(from.Head(), nullptr);
}

TEST(Lst, IsDestroyedThroughItsBase)
{
    struct Derived : Lst<std::shared_ptr<int>>
    {
        std::shared_ptr<int> own = std::make_shared<int>(1);
    };
    auto derived = std::make_unique<Derived>();
    const std::weak_ptr<int> own = derived->own;
    const std::unique_ptr<Lst<std::shared_ptr<int>>> base = std::move(derived);
    EXPECT_FALSE(own.expired());
    const_cast<std::unique_ptr<Lst<std::shared_ptr<int>>>&>(base).reset();
    EXPECT_TRUE(own.expired());
}

} // namespace
} // namespace tv
