#include "local_cad/world.h"

#include <gtest/gtest.h>

namespace tv::app {

namespace {

ComPtr<NotingSink> Listen(const std::shared_ptr<EventSource>& events)
{
    ComPtr<NotingSink> sink = MakeObject<NotingSink>();
    ConnectionCookie cookie = 0;
    EXPECT_EQ(events->Connect(sink.get(), &cookie), S_OK);
    return sink;
}

} // namespace

TEST(Application, AnOpenedDocumentIsAnnounced)
{
    World world;
    const ComPtr<NotingSink> sink = Listen(world.application.Events());
    world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"");
    EXPECT_EQ(sink->heard, (std::vector<std::string>{"22", "12", "7"}));
}

TEST(Application, ASaveIsAnnouncedBeforeTheBytesAreWritten)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    const ComPtr<NotingSink> sink = Listen(document->Events());
    bool thereAlready = true;
    sink->onEvent = [&](DISPID) { thereAlready = world.files.Has(u"C:\\Vault\\out.stl"); };
    EXPECT_TRUE(world.application.Save(*document, u"C:\\Vault\\out.stl", {}).Succeeded());
    EXPECT_EQ(sink->heard, (std::vector<std::string>{"7 C:\\Vault\\out.stl"}));
    EXPECT_FALSE(thereAlready);
    EXPECT_TRUE(world.files.Has(u"C:\\Vault\\out.stl"));
}

TEST(Application, ARefusedFormatIsNotAnnounced)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    const ComPtr<NotingSink> sink = Listen(document->Events());
    EXPECT_EQ(world.application.Save(*document, u"C:\\Vault\\out.xyz", {}).error, 256);
    EXPECT_EQ(world.application.Save(*document, u"C:\\Vault\\out.x_t", {}).error, 4096);
    EXPECT_EQ(world.application.Save(*document, u"", {}).error, 4);
    EXPECT_TRUE(sink->heard.empty());
}

TEST(Application, TheKernelGetsTheActiveConfiguration)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    ASSERT_TRUE(document->Activate(u"long"));
    world.application.Save(*document, u"C:\\Vault\\out.step", {});
    ASSERT_EQ(world.geometry.saved.size(), 1u);
    EXPECT_EQ(world.geometry.saved[0].items, (std::vector<std::string>{"Long"}));
    EXPECT_EQ(world.geometry.saved[0].source.path, "C:\\Vault\\bracket.tvnprt");
}

TEST(Application, ADrawingsSheetsGoToTheKernelAsTheyAreAskedFor)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\plan.tvndrw", DocumentType::Drawing, true, u"").document;
    world.application.Save(*document, u"C:\\Vault\\all.pdf", {});
    world.application.Save(*document, u"C:\\Vault\\one.pdf", {u"Sheet2"});
    ASSERT_EQ(world.geometry.saved.size(), 2u);
    EXPECT_TRUE(world.geometry.saved[0].items.empty());
    EXPECT_EQ(world.geometry.saved[1].items, (std::vector<std::string>{"Sheet2"}));
}

TEST(Application, AVirtualComponentOpensWhileItsAssemblyIsOpen)
{
    World world;
    const std::u16string pin = u"C:\\Vault\\Pin-1^Sub-1^gearbox.tvnprt";
    EXPECT_EQ(world.application.Open(pin, DocumentType::Part, true, u"").error, 2);
    world.application.Open(u"C:\\Vault\\gearbox.tvnasm", DocumentType::Assembly, true, u"");
    const auto document = world.application.Open(pin, DocumentType::Part, true, u"").document;
    ASSERT_NE(document, nullptr);
    const kernel::Source source = document->KernelSource();
    EXPECT_EQ(source.path, "C:\\Vault\\gearbox.tvnasm");
    EXPECT_EQ(source.component, (std::vector<std::string>{"Sub-1", "Pin-1"}));
}

TEST(Application, AnAssemblyTellsItsComponents)
{
    World world;
    const auto document =
        world.application.Open(u"C:\\Vault\\gearbox.tvnasm", DocumentType::Assembly, true, u"").document;
    const std::vector<ComponentInfo> components = document->Components(true);
    ASSERT_EQ(components.size(), 3u);
    EXPECT_EQ(components[0].path, u"C:\\Vault\\bracket.tvnprt");
    EXPECT_FALSE(components[0].isVirtual);
    EXPECT_EQ(components[1].path, u"C:\\Vault\\Cover-1^gearbox.tvnprt");
    EXPECT_TRUE(components[1].isVirtual);
    EXPECT_EQ(components[2].path, u"C:\\Vault\\Sub-1^gearbox.tvnasm");
    EXPECT_EQ(document->Components(false).size(), 4u);
}

TEST(Application, ADocumentThatIsOpenIsGivenAgain)
{
    World world;
    const auto first = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    const auto second = world.application.Open(u"c:\\vault\\BRACKET.tvnprt", DocumentType::Part, true, u"").document;
    EXPECT_EQ(first, second);
    EXPECT_EQ(world.application.Documents().size(), 1u);
}

TEST(Application, ADocumentOfAnotherKindIsRefused)
{
    World world;
    EXPECT_EQ(world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Drawing, true, u"").error, 1024);
}

TEST(Application, ADamagedNeutralFileGivesItsError)
{
    World world;
    world.geometry.failures["C:\\Vault\\screw.step"] = {kernel::ErrorCode::Damaged, "screw.step is damaged"};
    const OpenOutcome outcome = world.application.Load(u"C:\\Vault\\screw.step");
    EXPECT_EQ(outcome.document, nullptr);
    EXPECT_EQ(outcome.error, 16384);
    EXPECT_EQ(outcome.message, "screw.step is damaged");
    EXPECT_TRUE(world.application.Documents().empty());
}

TEST(Application, WithoutAKernelGeometryIsRefusedAndOwnDocumentsAreSaved)
{
    World world;
    world.geometry.failures["C:\\Vault\\bracket.tvnprt"] = {kernel::ErrorCode::NoKernel, "no kernel"};
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    EXPECT_EQ(world.application.Save(*document, u"C:\\Vault\\out.stl", {}).error, 4096);
    EXPECT_TRUE(world.application.Save(*document, u"C:\\Vault\\copy.tvnprt", {}).Succeeded());
    EXPECT_EQ(world.files.Bytes(u"C:\\Vault\\copy.tvnprt"), PartText());
}

TEST(Application, AClosedDocumentIsAnnouncedAndGone)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"").document;
    const ComPtr<NotingSink> sink = Listen(document->Events());
    EXPECT_TRUE(world.application.Close(u"bracket.tvnprt"));
    EXPECT_EQ(sink->heard, (std::vector<std::string>{"2"}));
    EXPECT_FALSE(world.application.Close(u"bracket.tvnprt"));
    EXPECT_TRUE(world.application.Documents().empty());
}

TEST(Application, ADrawingsActiveSheetIsTheOneItWasSavedWith)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\plan.tvndrw", DocumentType::None, true, u"").document;
    EXPECT_EQ(document->ActiveItem(), u"Sheet2");
    EXPECT_FALSE(document->Activate(u"Sheet3"));
}

} // namespace tv::app
