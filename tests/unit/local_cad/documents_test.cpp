#include "cad/documents.h"
#include "local_cad/world.h"

#include <gtest/gtest.h>

namespace tv::app {

TEST(Documents, AFileThatIsNoDocumentIsDamagedAndNamed)
{
    World world;
    world.files.Put(u"C:\\Vault\\broken.tvnprt", "{ \"format\": ");
    const ReadOutcome read = ReadDocumentFile(world.files, u"C:\\Vault\\broken.tvnprt");
    EXPECT_EQ(read.error, 16384);
    EXPECT_NE(read.message.find("broken.tvnprt"), std::string::npos);
}

TEST(Documents, AMissingFileIsNotFound)
{
    World world;
    EXPECT_EQ(ReadDocumentFile(world.files, u"C:\\Vault\\none.tvnprt").error, 2);
}

TEST(Documents, ADocumentOfALaterFormatIsOfAFutureVersion)
{
    World world;
    std::string text = PartText();
    const size_t at = text.find("\"version\": 1");
    ASSERT_NE(at, std::string::npos);
    text.replace(at, 12, "\"version\": 9");
    world.files.Put(u"C:\\Vault\\later.tvnprt", text);
    EXPECT_EQ(ReadDocumentFile(world.files, u"C:\\Vault\\later.tvnprt").error, *FindConstant(u"tvFutureVersion"));
}

TEST(Documents, WritingLeavesNoTemporaryFileBehind)
{
    World world;
    const ReadOutcome read = ReadDocumentFile(world.files, u"C:\\Vault\\bracket.tvnprt");
    WriteDocumentFile(world.files, u"C:\\Vault\\copy.tvnprt", *read.document);
    EXPECT_EQ(world.files.Bytes(u"C:\\Vault\\copy.tvnprt"), PartText());
    EXPECT_FALSE(world.files.Has(u"C:\\Vault\\copy.tvnprt.writing"));
}

TEST(Documents, ReferencesFollowADocumentToAnotherFolder)
{
    World world;
    const ReadOutcome read = ReadDocumentFile(world.files, u"C:\\Vault\\gearbox.tvnasm");
    const auto moved = WithReferencesFrom(*read.document, u"C:\\Vault", u"C:\\Vault\\out");
    ASSERT_TRUE(moved);
    EXPECT_EQ(document::References(*moved), (std::vector<std::string>{"../bracket.tvnprt"}));
    EXPECT_FALSE(WithReferencesFrom(*read.document, u"C:\\Vault", u"D:\\out"));
}

} // namespace tv::app
