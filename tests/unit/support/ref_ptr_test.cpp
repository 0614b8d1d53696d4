#include "support/ref_ptr.h"

#include "com/com_object.h"
#include "interfaces/vault.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace tv {
namespace {

struct Thing : RefObj
{
    explicit Thing(int& endings) : ended(endings) {}
    ~Thing() override { ++ended; }
    int& ended;
};

TEST(RefObj, TheCountStartsAtZero)
{
    int ended = 0;
    Thing* thing = new Thing(ended);
    EXPECT_EQ(thing->AddRef(), 1u);
    EXPECT_EQ(thing->AddRef(), 2u);
    EXPECT_EQ(thing->Release(), 1u);
    EXPECT_EQ(ended, 0);
    EXPECT_EQ(thing->Release(), 0u);
    EXPECT_EQ(ended, 1);
}

TEST(RefObj, TheLastReleaseDestroysThroughTheBase)
{
    int ended = 0;
    RefObj* base = new Thing(ended);
    base->AddRef();
    base->Release();
    EXPECT_EQ(ended, 1);
}

TEST(RefObj, ACopyIsHeldByNobody)
{
    int ended = 0;
    const RefPtr<Thing> first(new Thing(ended));
    const RefPtr<Thing> second(new Thing(*first));
    EXPECT_EQ(second->AddRef(), 2u);
    EXPECT_EQ(second->Release(), 1u);
}

TEST(RefObj, CountsAcrossThreads)
{
    int ended = 0;
    {
        const RefPtr<Thing> shared(new Thing(ended));
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&shared] {
                for (int round = 0; round < 5000; ++round) {
                    const RefPtr<Thing> copy(shared);
                }
            });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(ended, 0);
        EXPECT_EQ(shared->AddRef(), 2u);
        shared->Release();
    }
    EXPECT_EQ(ended, 1);
}

TEST(RefPtr, MayBeNull)
{
    const RefPtr<Thing> nothing;
    EXPECT_FALSE(nothing);
    const RefPtr<Thing> copy(nothing);
    EXPECT_EQ(copy.get(), nullptr);
}

TEST(RefPtr, CopyingAddsAReferenceAndDestructionReleases)
{
    int ended = 0;
    {
        RefPtr<Thing> first(new Thing(ended));
        {
            const RefPtr<Thing> second(first);
            EXPECT_EQ(second.get(), first.get());
            first.reset();
            EXPECT_EQ(ended, 0);
        }
        EXPECT_EQ(ended, 1);
    }
    EXPECT_EQ(ended, 1);
}

TEST(RefPtr, AssigningReleasesWhatWasHeld)
{
    int firstEnded = 0;
    int secondEnded = 0;
    RefPtr<Thing> pointer(new Thing(firstEnded));
    pointer = RefPtr<Thing>(new Thing(secondEnded));
    EXPECT_EQ(firstEnded, 1);
    EXPECT_EQ(secondEnded, 0);
}

TEST(RefPtr, AssigningToItselfKeepsTheObject)
{
    int ended = 0;
    RefPtr<Thing> pointer(new Thing(ended));
    const RefPtr<Thing>& same = pointer;
    pointer = same;
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(pointer);
}

TEST(RefPtr, ReachesTheCountOfAComponentThroughItsUnknown)
{
    struct Place final : ComObject<IVyxPos>
    {
        explicit Place(int& endings) : ended(endings) {}
        ~Place() override { ++ended; }
        Result TV_CALL IsNull(VariantBool* atEnd) override
        {
            *atEnd = kVariantTrue;
            return 0;
        }
        int& ended;
    };
    int ended = 0;
    {
        ComPtr<Place> owner = MakeObject<Place>(ended);
        const RefPtr<Place> pointer(owner.get());
        owner.reset();
        EXPECT_EQ(ended, 0);
    }
    EXPECT_EQ(ended, 1);
}

} // namespace
} // namespace tv
