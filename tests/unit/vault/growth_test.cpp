#include "vault_fixture.h"

namespace tv {
namespace {

/// Numbers of calls are held here, which don't depend on the machine; what a file costs in time is printed by the
/// bench.
class Growth : public VaultFilesTest
{
  protected:
    void SaveMany(int32_t count)
    {
        for (int32_t i = 0; i < count; ++i) {
            std::u16string path = u"C:\\Vault\\Out\\";
            for (int32_t rest = i + 1; rest > 0; rest /= 10) {
                path += static_cast<char16_t>(u'0' + rest % 10);
            }
            Save(path + u".stl");
        }
    }

    size_t CallsSince(size_t before) { return vault.Script().Calls().size() - before; }
    size_t Calls() { return vault.Script().Calls().size(); }
};

TEST_F(Growth, ANewOutputIsOneQuestionToTheVaultHoweverManyThereAre)
{
    Begin(3);
    WorkOn();
    SaveMany(500);
    const size_t before = Calls();
    files.AddOutput(u"C:\\Vault\\Out\\last.stl", u"", false);
    EXPECT_EQ(CallsSince(before), 1u);
}

TEST_F(Growth, AnOutputThatIsKnownAsksTheVaultNothing)
{
    Begin(3);
    WorkOn();
    SaveMany(500);
    const size_t before = Calls();
    files.AddOutput(u"C:\\Vault\\Out\\005.stl", u"", false);
    files.AddOutput(u"C:\\VAULT\\Out\\005.STL", u"", false);
    EXPECT_EQ(CallsSince(before), 0u);
}

TEST_F(Growth, RegistrationIsOneCallForEachNewFileAndSevenBeside)
{
    for (const int32_t count : {1, 10, 500}) {
        vault.World().files.clear();
        Begin(3);
        WorkOn();
        SaveMany(count);
        const size_t before = Calls();
        ASSERT_EQ(Register(), 0);
        EXPECT_EQ(CallsSince(before), static_cast<size_t>(count) + 7) << count;
    }
}

TEST_F(Growth, ASelectionIsTwoCallsForEachFileAndSixBeside)
{
    for (const int32_t count : {1, 10, 500}) {
        Begin(1);
        std::vector<fakes::CommandFile> elements;
        const fakes::FakeFile& file = vault.AddFile(u"C:\\Vault\\a.tvnprt");
        for (int32_t i = 0; i < count; ++i) {
            elements.push_back({u"C:\\Vault\\a.tvnprt", file.id, file.folderId});
        }
        const SafeArray data = fakes::MakeCommandData(elements);
        SelectedFiles list;
        const size_t before = Calls();
        files.ResolveSelection(task.get(), vault.Get(), data.get(), list, VaultWork::FetchLocalCopies);
        EXPECT_EQ(CallsSince(before), 2 * static_cast<size_t>(count) + 6) << count;
    }
}

} // namespace
} // namespace tv
