#include "com/com_object.h"
#include "system_under_test.h"

#include <cstring>
#include <thread>

struct IFirst : IUnknown
{
    virtual tv::Result TV_CALL First() = 0;
};
struct ISecond : IUnknown
{
    virtual tv::Result TV_CALL Second() = 0;
};
struct IThird : IUnknown
{
    virtual tv::Result TV_CALL Third() = 0;
};
TV_IID(IFirst, "7d1f7f3a-6b5d-4e0a-9d52-000000000001");
TV_IID(ISecond, "7d1f7f3a-6b5d-4e0a-9d52-000000000002");
TV_IID(IThird, "7d1f7f3a-6b5d-4e0a-9d52-000000000003");

using tv::ComPtr;

namespace {

class Both final : public tv::ComObject<IFirst, ISecond>
{
  public:
    explicit Both(int* deaths) : deathCount(deaths) {}
    ~Both() override { ++*deathCount; }

    tv::Result TV_CALL First() override { return 1; }
    tv::Result TV_CALL Second() override { return 2; }

  private:
    int* deathCount;
};

ULONG CountOf(IUnknown* object)
{
    object->AddRef();
    return object->Release();
}

TEST(ComObject, IsBornWithOneReferenceAndDiesWithTheLast)
{
    int deaths = 0;
    ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    EXPECT_EQ(CountOf(object.get()), 1u);
    ComPtr<IFirst> second = object;
    EXPECT_EQ(CountOf(object.get()), 2u);
    object.reset();
    EXPECT_EQ(deaths, 0);
    second.reset();
    EXPECT_EQ(deaths, 1);
}

TEST(ComObject, AnswersForEachOfItsInterfaces)
{
    int deaths = 0;
    const ComPtr<IFirst> first = tv::MakeObject<Both>(&deaths);
    ComPtr<ISecond> second;
    ASSERT_EQ(first.As(second), 0);
    EXPECT_EQ(second->Second(), 2);
    ComPtr<IFirst> back;
    ASSERT_EQ(second.As(back), 0);
    EXPECT_EQ(back.get(), first.get());
    EXPECT_EQ(back->First(), 1);
}

/// Asks by an id that stands at an odd address, as the system's proxies do when they unpack a call.
__attribute__((no_sanitize("alignment"))) tv::Result AskByUnalignedId(IUnknown* object, void** found)
{
    alignas(GUID) static char bytes[sizeof(GUID) + 1];
    std::memcpy(bytes + 1, &tv::kInterfaceId<ISecond>, sizeof(GUID));
    return object->QueryInterface(*reinterpret_cast<const GUID*>(bytes + 1), found);
}

TEST(ComObject, AnswersAQueryByAnIdThatIsNotAligned)
{
    int deaths = 0;
    const ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    ComPtr<ISecond> second;
    ASSERT_EQ(AskByUnalignedId(object.get(), second.putVoid()), S_OK);
    EXPECT_EQ(second->Second(), 2);
}

TEST(ComObject, HasOneIdentityWhicheverInterfaceIsAsked)
{
    int deaths = 0;
    const ComPtr<IFirst> first = tv::MakeObject<Both>(&deaths);
    ComPtr<ISecond> second;
    ASSERT_EQ(first.As(second), 0);
    ComPtr<IUnknown> identityOfFirst;
    ComPtr<IUnknown> identityOfSecond;
    ASSERT_EQ(first.As(identityOfFirst), 0);
    ASSERT_EQ(second.As(identityOfSecond), 0);
    EXPECT_EQ(identityOfFirst.get(), identityOfSecond.get());
}

TEST(ComObject, AnUnknownInterfaceLeavesNothingBehind)
{
    int deaths = 0;
    {
        const ComPtr<IFirst> first = tv::MakeObject<Both>(&deaths);
        void* place = &deaths;
        EXPECT_EQ(first->QueryInterface(tv::kInterfaceId<IThird>, &place), E_NOINTERFACE);
        EXPECT_EQ(place, nullptr);
        EXPECT_EQ(first->QueryInterface(tv::kInterfaceId<IFirst>, nullptr), E_POINTER);
        EXPECT_EQ(CountOf(first.get()), 1u);
    }
    EXPECT_EQ(deaths, 1);
}

/// Answers for the id of an interface that it doesn't derive from, as an event sink does.
class Sink final : public tv::ComObject<IFirst>
{
  public:
    tv::Result TV_CALL First() override { return 1; }

  private:
    void* FindInterface(REFIID id) override
    {
        return id == tv::kInterfaceId<IThird> ? static_cast<IFirst*>(this) : nullptr;
    }
};

TEST(ComObject, AClassCanAnswerForFurtherIds)
{
    const ComPtr<IFirst> sink = tv::MakeObject<Sink>();
    void* answered = nullptr;
    ASSERT_EQ(sink->QueryInterface(tv::kInterfaceId<IThird>, &answered), 0);
    EXPECT_EQ(answered, sink.get());
    EXPECT_EQ(CountOf(sink.get()), 2u);
    sink->Release();
}

/// Lends itself out while it dies, as an object does that takes leave of its listeners.
class TakesLeave final : public tv::ComObject<IFirst>
{
  public:
    explicit TakesLeave(int* deaths) : deathCount(deaths) {}
    ~TakesLeave() override
    {
        ++*deathCount;
        const ComPtr<IFirst> lent = ComPtr<IFirst>::Share(this);
    }
    tv::Result TV_CALL First() override { return 1; }

  private:
    int* deathCount;
};

TEST(ComObject, AReferenceTakenWhileItDiesDoesNotDestroyItTwice)
{
    int deaths = 0;
    tv::MakeObject<TakesLeave>(&deaths).reset();
    EXPECT_EQ(deaths, 1);
}

TEST(ComObject, IsCountedAcrossThreads)
{
    int deaths = 0;
    {
        const ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
        const auto lend = [&] {
            for (int i = 0; i < 10000; ++i) {
                const ComPtr<IFirst> lent = object;
            }
        };
        std::thread one(lend);
        std::thread two(lend);
        one.join();
        two.join();
        EXPECT_EQ(CountOf(object.get()), 1u);
    }
    EXPECT_EQ(deaths, 1);
}

TEST(ComPtr, AdoptTakesOverAReferenceAndShareAddsOne)
{
    int deaths = 0;
    Both* raw = new Both(&deaths);
    {
        const ComPtr<IFirst> shared = ComPtr<IFirst>::Share(raw);
        EXPECT_EQ(CountOf(shared.get()), 2u);
    }
    EXPECT_EQ(deaths, 0);
    ComPtr<IFirst>::Adopt(raw).reset();
    EXPECT_EQ(deaths, 1);
}

TEST(ComPtr, AMoveLeavesTheCountAlone)
{
    int deaths = 0;
    ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    const ComPtr<IFirst> moved = std::move(object);
    EXPECT_FALSE(object);
    EXPECT_EQ(CountOf(moved.get()), 1u);
}

TEST(ComPtr, PutFreesWhatWasHeld)
{
    int deaths = 0;
    ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    EXPECT_EQ(*object.put(), nullptr);
    EXPECT_EQ(deaths, 1);
}

TEST(ComPtr, AnAssignmentToItselfKeepsTheObject)
{
    int deaths = 0;
    ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    const ComPtr<IFirst>& same = object;
    object = same;
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(object->First(), 1);
}

TEST(ComPtr, ReleaseGivesUpTheReference)
{
    int deaths = 0;
    ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    IFirst* raw = object.release();
    EXPECT_FALSE(object);
    raw->Release();
    EXPECT_EQ(deaths, 1);
}

TEST(ComPtr, AskingNoObjectIsAnError)
{
    const ComPtr<IFirst> none;
    ComPtr<ISecond> second;
    EXPECT_EQ(none.As(second), E_POINTER);
    EXPECT_EQ(tv::QueryFor(nullptr, second), E_POINTER);
    EXPECT_FALSE(second);
}

TEST(ComPtr, AFailedQueryEmptiesTheReceiver)
{
    int deaths = 0;
    const ComPtr<IFirst> object = tv::MakeObject<Both>(&deaths);
    ComPtr<IThird> third;
    EXPECT_EQ(object.As(third), E_NOINTERFACE);
    EXPECT_FALSE(third);
    EXPECT_EQ(tv::QueryFor(object.get(), third), E_NOINTERFACE);
    ComPtr<ISecond> second;
    EXPECT_EQ(tv::QueryFor(object.get(), second), 0);
    EXPECT_EQ(second->Second(), 2);
}

} // namespace
