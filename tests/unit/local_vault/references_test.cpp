#include "disk_world.h"

#include "vault/error_table.h"

namespace tv::local {

namespace {

class ReferencesOfFiles : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    FileWork work{store};
    FileRecord bolt = Import(*store, "bolt.tvnprt", "bolt", {"Parts"});
    FileRecord nut = Import(*store, "nut.tvnprt", "nut", {"Parts"});
    FileRecord frame = Import(*store, "frame.tvnasm", "frame");

    void Refer(const FileRecord& parent, const FileRecord& source, int32_t version = 0)
    {
        store->AddReferences(parent.id, std::vector<ReferenceRecord>{{source.id, version}});
    }
};

TEST_F(ReferencesOfFiles, AreListedWithTheVersionAsBuiltAndTheLatest)
{
    Refer(frame, nut);
    Refer(frame, bolt);
    Import(*store, "bolt.tvnprt", "longer bolt", {"Parts"});
    const auto children = store->Children(frame.id);
    ASSERT_EQ(children.size(), 2u);
    EXPECT_EQ(children[0].file.id, bolt.id);
    EXPECT_EQ(children[0].file.name, "bolt.tvnprt");
    EXPECT_EQ(children[0].asBuilt, 1);
    EXPECT_EQ(children[0].file.latestVersion, 2);
    EXPECT_EQ(children[0].parentVersion, 1);
    EXPECT_FALSE(children[0].deleted);
    EXPECT_EQ(children[1].file.id, nut.id);
    EXPECT_EQ(children[1].asBuilt, 1);
    EXPECT_EQ(children[1].file.latestVersion, 1);
}

TEST_F(ReferencesOfFiles, AreThoseOfTheVersionThatIsAskedFor)
{
    Refer(frame, bolt);
    work.CheckOut(frame.id);
    Refer(frame, nut);
    WriteBytes(work.LocalPathOf(frame), "frame with a nut");
    work.CheckIn(std::vector{frame.id}, "");
    EXPECT_EQ(store->Children(frame.id, 1)[0].file.id, bolt.id);
    EXPECT_EQ(store->Children(frame.id, 2)[0].file.id, nut.id);
    EXPECT_EQ(store->Children(frame.id)[0].file.id, nut.id);
    EXPECT_EQ(CodeOf([&] { store->Children(frame.id, 3); }), kErrorFileNotFound);
}

TEST_F(ReferencesOfFiles, OfACheckedOutFileAreForItsHolderThoseThatTheCheckInWillStore)
{
    Refer(frame, bolt);
    work.CheckOut(frame.id);
    EXPECT_EQ(store->Children(frame.id)[0].file.id, bolt.id);
    Refer(frame, nut);
    ASSERT_EQ(store->Children(frame.id).size(), 1u);
    EXPECT_EQ(store->Children(frame.id)[0].file.id, nut.id);
    EXPECT_EQ(store->Children(frame.id)[0].parentVersion, 2);
    EXPECT_EQ(OpenAs(kBert)->Children(frame.id)[0].file.id, bolt.id);
}

TEST_F(ReferencesOfFiles, LeadBackToTheParentsThatUseTheFileNow)
{
    const FileRecord other = Import(*store, "a.tvnasm", "a");
    Refer(frame, bolt);
    Refer(other, bolt);
    Import(*store, "bolt.tvnprt", "longer bolt", {"Parts"});
    const auto parents = store->Parents(bolt.id);
    ASSERT_EQ(parents.size(), 2u);
    EXPECT_EQ(parents[0].file.id, other.id);
    EXPECT_EQ(parents[1].file.id, frame.id);
    EXPECT_EQ(parents[1].asBuilt, 1);
    EXPECT_EQ(parents[1].parentVersion, 1);
    EXPECT_TRUE(store->Parents(nut.id).empty());
}

TEST_F(ReferencesOfFiles, DoNotLeadBackToAParentWhoseLatestVersionDroppedTheFile)
{
    Refer(frame, bolt);
    work.CheckOut(frame.id);
    Refer(frame, nut);
    WriteBytes(work.LocalPathOf(frame), "frame with a nut");
    work.CheckIn(std::vector{frame.id}, "");
    EXPECT_TRUE(store->Parents(bolt.id).empty());
    EXPECT_EQ(store->Parents(nut.id).size(), 1u);
}

TEST_F(ReferencesOfFiles, ToADeletedFileStayAndSaySo)
{
    Refer(frame, bolt);
    work.Delete(bolt.id);
    ASSERT_EQ(store->Children(frame.id).size(), 1u);
    EXPECT_TRUE(store->Children(frame.id)[0].deleted);
    EXPECT_EQ(store->Children(frame.id)[0].file.name, "bolt.tvnprt");
    EXPECT_EQ(CodeOf([&] { work.FetchWithReferences(frame, 0, ReferenceRule::Latest); }), 0);
}

TEST_F(ReferencesOfFiles, DoNotLeadBackToADeletedParent)
{
    Refer(frame, bolt);
    work.Delete(frame.id);
    EXPECT_TRUE(store->Parents(bolt.id).empty());
    work.Restore(frame.id);
    EXPECT_EQ(store->Parents(bolt.id).size(), 1u);
}

TEST_F(ReferencesOfFiles, ToAVersionThatIsNotThereAreRefused)
{
    EXPECT_EQ(CodeOf([&] { Refer(frame, bolt, 2); }), kErrorFileNotFound);
    EXPECT_TRUE(store->Children(frame.id).empty());
}

TEST_F(ReferencesOfFiles, OfAFileOfAnotherAreNotWritten)
{
    FileWork(OpenAs(kBert)).CheckOut(frame.id);
    EXPECT_EQ(CodeOf([&] { Refer(frame, bolt); }), kErrorLockedByAnotherUser);
    EXPECT_TRUE(store->Children(frame.id).empty());
}

TEST_F(ReferencesOfFiles, OfSeveralParentsAreWrittenTogetherOrNotAtAll)
{
    const ParentReferences all[] = {{frame.id, {{bolt.id, 0}}}, {nut.id, {{99, 0}}}};
    EXPECT_EQ(CodeOf([&] { store->AddReferences(all); }), kErrorFileNotFound);
    EXPECT_TRUE(store->Children(frame.id).empty());
}

TEST_F(ReferencesOfFiles, AreFetchedAsBuiltThoughTheirParentWasCheckedOutByAnother)
{
    Refer(frame, bolt);
    Import(*store, "bolt.tvnprt", "longer bolt", {"Parts"});
    FileWork(OpenAs(kBert)).CheckOut(frame.id);
    work.FetchWithReferences(*store->FileById(frame.id), 0, ReferenceRule::AsBuilt);
    EXPECT_EQ(BytesOf(work.LocalPathOf(bolt)), "bolt");
}

} // namespace

} // namespace tv::local
