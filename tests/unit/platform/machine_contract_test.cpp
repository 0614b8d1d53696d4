#include "com/com_object.h"
#include "interfaces/vault.h"
#include "worlds.h"

#include <algorithm>
#include <atomic>

namespace tv {
namespace {

template <typename World> class MachineContract : public testing::Test
{
  protected:
    std::vector<WindowHandle> Windows()
    {
        std::vector<WindowHandle> windows;
        for (WindowHandle window = desktop.TopWindow(); window != 0; window = desktop.NextWindow(window)) {
            windows.push_back(window);
        }
        return windows;
    }

    World world;
    DesktopService& desktop = world.Services().desktop;
    ThreadService& threads = world.Services().threads;
};

TYPED_TEST_SUITE(MachineContract, Worlds);

TYPED_TEST(MachineContract, TheClockTellsAMoment)
{
    LocalTime now{};
    ASSERT_TRUE(this->world.Services().clock.GetLocalTime(now));
    EXPECT_GE(now.year, 2020);
    EXPECT_TRUE(now.month >= 1 && now.month <= 12 && now.day >= 1 && now.day <= 31);
    EXPECT_TRUE(now.hour >= 0 && now.hour < 24 && now.minute >= 0 && now.minute < 60);
    EXPECT_TRUE(now.second >= 0 && now.second < 60);
}

TYPED_TEST(MachineContract, SleepingLetsTimePass)
{
    LocalTime before{};
    LocalTime after{};
    this->world.Services().clock.GetLocalTime(before);
    this->world.Services().clock.Sleep(1100);
    this->world.Services().clock.GetLocalTime(after);
    EXPECT_NE(before, after);
}

TYPED_TEST(MachineContract, AStopEventIsUnsignalledByItsTest)
{
    const std::unique_ptr<StopEvent> stop = this->threads.MakeStopEvent();
    EXPECT_FALSE(stop->IsSignalled());
    stop->Signal();
    stop->Signal();
    EXPECT_TRUE(stop->IsSignalled());
    EXPECT_FALSE(stop->IsSignalled());
}

TYPED_TEST(MachineContract, JoiningWaitsForTheBody)
{
    this->world.UseRealThreads();
    std::atomic<bool> done{false};
    const std::unique_ptr<WorkerThread> thread = this->threads.StartThread([&] {
        this->world.Services().clock.Sleep(30);
        done = true;
    });
    thread->Join();
    EXPECT_TRUE(done);
}

TYPED_TEST(MachineContract, AThreadIsStoppedByItsEvent)
{
    this->world.UseRealThreads();
    const std::unique_ptr<StopEvent> stop = this->threads.MakeStopEvent();
    const std::unique_ptr<WorkerThread> thread = this->threads.StartThread([&] {
        while (!stop->IsSignalled()) {
            this->world.Services().clock.Sleep(1);
        }
    });
    stop->Signal();
    thread->Join();
}

TYPED_TEST(MachineContract, AWindowIsFoundWithItsProcessTitleAndOwner)
{
    const WindowHandle main = this->world.AddWindow(u"Torvane", 0);
    const WindowHandle dialog = this->world.AddWindow(u"Formlyn", main);
    if (main == 0) {
        GTEST_SKIP() << "this session has no desktop";
    }
    ASSERT_NE(dialog, 0);
    const std::vector<WindowHandle> windows = this->Windows();
    EXPECT_EQ(std::count(windows.begin(), windows.end(), main), 1);
    EXPECT_EQ(std::count(windows.begin(), windows.end(), dialog), 1);
    EXPECT_EQ(this->desktop.ProcessOf(dialog), this->world.OwnProcess());
    EXPECT_EQ(this->desktop.TitleOf(dialog), u"Formlyn");
    EXPECT_EQ(this->desktop.ParentOf(dialog), main);
    EXPECT_EQ(this->desktop.ParentOf(main), 0);
    this->world.CloseWindow(dialog);
    EXPECT_FALSE(this->desktop.IsWindow(dialog));
    EXPECT_TRUE(this->desktop.IsWindow(main));
    this->world.CloseWindow(main);
}

TYPED_TEST(MachineContract, ATitleIsToldUpTo259Characters)
{
    const WindowHandle window = this->world.AddWindow(std::u16string(300, u'x'), 0);
    if (window == 0) {
        GTEST_SKIP() << "this session has no desktop";
    }
    EXPECT_EQ(this->desktop.TitleOf(window), std::u16string(259, u'x'));
    this->world.CloseWindow(window);
}

TYPED_TEST(MachineContract, NoWindowHasNothing)
{
    EXPECT_FALSE(this->desktop.IsWindow(0));
    EXPECT_EQ(this->desktop.ProcessOf(0), 0u);
    EXPECT_EQ(this->desktop.TitleOf(0), u"");
    EXPECT_EQ(this->desktop.ParentOf(0), 0);
    this->desktop.Post(0x7FFFFFF0, kMessageClose, 0, 0);
}

class Place final : public ComObject<IVyxPos>
{
  public:
    Result TV_CALL IsNull(VariantBool*) override { return E_NOTIMPL; }
};

TYPED_TEST(MachineContract, AnUnknownClassNameHasNoClass)
{
    GUID id{};
    EXPECT_EQ(this->world.Services().runningObjects.ClassFromProgId(u"Torvane.NoSuchThing", id),
              static_cast<Result>(0x800401F3u));
}

TYPED_TEST(MachineContract, ARunningObjectIsFoundByItsNameAlone)
{
    const std::unique_ptr<RunningObjectTable> table = this->world.Services().runningObjects.GetTable();
    ASSERT_NE(table, nullptr);
    ComPtr<IUnknown> object;
    EXPECT_EQ(table->GetObject(u"Torvane_PID_1", object), static_cast<Result>(0x800401E3u));
    EXPECT_FALSE(object);
    const ComPtr<Place> place = MakeObject<Place>();
    this->world.Register(u"Torvane_PID_1", place.get());
    EXPECT_EQ(table->GetObject(u"Torvane_PID_1", object), 0);
    EXPECT_EQ(object.get(), static_cast<IUnknown*>(place.get()));
    EXPECT_EQ(table->GetObject(u"Torvane_PID_2", object), static_cast<Result>(0x800401E3u));
    EXPECT_FALSE(object);
}

TYPED_TEST(MachineContract, AResourceThatIsMissingIsNotFound)
{
    ModuleService& module = this->world.Services().module;
    EXPECT_EQ(module.ReadScript(209).failure, ResourceFailure::NotFound);
    EXPECT_EQ(module.ReadString(55296), std::nullopt);
    EXPECT_EQ(module.WideText("Sub main()"), u"Sub main()");
    EXPECT_EQ(module.WideText(""), u"");
}

} // namespace
} // namespace tv
