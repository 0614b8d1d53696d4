#include "vault_fixture.h"

#include <algorithm>
#include <chrono>

namespace tv {
namespace {

using Clock = std::chrono::steady_clock;

/// Time for outputs that the simulated vault doesn't slow down: its own look-ups walk all files.
double SecondsFor(int32_t count)
{
    fakes::FakePlatform machine;
    fakes::FakeVault vault;
    VaultFiles files(machine.platform);
    files.Reset(vault.Get(), 1, ExistingFiles::NewVersion);
    const auto start = Clock::now();
    for (int32_t i = 0; i < count; ++i) {
        std::u16string path = u"C:\\Vault\\Out\\";
        for (int32_t rest = i; rest > 0; rest /= 10) {
            path += static_cast<char16_t>(u'0' + rest % 10);
        }
        files.AddOutput(path + u".stl", u"Default", false);
    }
    EXPECT_EQ(files.Outputs().size(), static_cast<size_t>(count));
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// The best of three, so that a busy machine doesn't count.
double BestFor(int32_t count)
{
    return std::min({SecondsFor(count), SecondsFor(count), SecondsFor(count)});
}

TEST(Growth, OfTheCostIsThatOfTheNumberOfOutputs)
{
    const double small = BestFor(300);
    const double large = BestFor(3000);
    // A search through the list would cost a hundred times as much.
    EXPECT_LT(large, small * 40);
}

} // namespace
} // namespace tv
