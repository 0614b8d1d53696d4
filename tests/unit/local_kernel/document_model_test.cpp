#include "document/document_io.h"
#include "document/model.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace {

using namespace tv::document;

Document OneBoxPart(const std::string& import = {})
{
    Part part;
    part.activeConfiguration = "Default";
    part.configurations = {{"Default", {}, {{"Base", Operation::Join, {}, Block{{1, 2, 3}}}}}};
    if (!import.empty()) {
        part.configurations[0].features.push_back({"", Operation::Join, {}, Import{import}});
    }
    return {part};
}

Component Virtual(const std::string& name, Document document)
{
    return {name, {}, std::make_shared<const Document>(std::move(document)), {}, {}};
}

Assembly OneConfiguration(std::vector<Component> components)
{
    return {{}, "Default", {{"Default", {}, {}}}, std::move(components)};
}

std::string Sample(const std::string& name)
{
    std::ifstream stream(std::string(TV_SAMPLES) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

TEST(DocumentModel, TheExtensionNamesTheKindInAnyCase)
{
    EXPECT_EQ(KindOfPath("C:\\a\\B.TVNPRT")->kind, Kind::Part);
    EXPECT_EQ(KindOfPath("x.tvnasm")->kind, Kind::Assembly);
    EXPECT_EQ(KindOfPath("x.TvnDrw")->kind, Kind::Drawing);
    EXPECT_EQ(KindOfPath("x.step"), nullptr);
    EXPECT_EQ(KindOfPath("tvnprt"), nullptr);
}

TEST(DocumentModel, ItemsOfAModelAreItsConfigurationsAndOfADrawingItsSheets)
{
    Drawing drawing;
    drawing.activeSheet = "B";
    drawing.sheets.resize(2);
    drawing.sheets[0].name = "A";
    drawing.sheets[1].name = "B";
    EXPECT_EQ(ItemNames({drawing}), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(ActiveItem({drawing}), "B");
    EXPECT_EQ(ItemNames(OneBoxPart()), std::vector<std::string>{"Default"});
}

TEST(DocumentModel, OnlyAnItemThatExistsBecomesActive)
{
    Document document = OneBoxPart();
    std::get<Part>(document.content).configurations.push_back({"Long", {}, {}});
    EXPECT_FALSE(SetActiveItem(document, "Short"));
    EXPECT_EQ(ActiveItem(document), "Default");
    EXPECT_TRUE(SetActiveItem(document, "Long"));
    EXPECT_EQ(ActiveItem(document), "Long");
}

TEST(DocumentModel, AVirtualComponentIsFoundAlongItsPathOfNames)
{
    const Document inner{OneConfiguration({Virtual("Pin-1", OneBoxPart())})};
    Assembly assembly = OneConfiguration({Virtual("Sub-1", inner)});
    assembly.components.push_back({"Plate-1", "plate.tvnprt", nullptr, {}, {}});
    const Document outer{assembly};
    EXPECT_EQ(*FindEmbedded(outer, {"Sub-1", "Pin-1"}), OneBoxPart());
    EXPECT_EQ(FindEmbedded(outer, {}), &outer);
    EXPECT_EQ(FindEmbedded(outer, {"Pin-1"}), nullptr);
    EXPECT_EQ(FindEmbedded(outer, {"Plate-1"}), nullptr);
}

TEST(DocumentModel, ReferencesAreListedOnceAndThoseOfVirtualComponentsToo)
{
    Assembly assembly = OneConfiguration({Virtual("Sub-1", OneBoxPart("supplier/pin.step"))});
    assembly.components.push_back({"Plate-1", "plate.tvnprt", nullptr, {}, {}});
    assembly.components.push_back({"Plate-2", "plate.tvnprt", nullptr, {}, {}});
    EXPECT_EQ(References({assembly}), (std::vector<std::string>{"supplier/pin.step", "plate.tvnprt"}));
}

TEST(DocumentModel, EachSheetFormatHasItsStandardSize)
{
    const struct
    {
        const char* name;
        double width;
        double height;
    } expected[] = {
        {"A4", 210, 297},         {"A4 landscape", 297, 210}, {"A3", 420, 297},          {"A2", 594, 420},
        {"A1", 841, 594},         {"A0", 1189, 841},          {"ANSI A", 279.4, 215.9},  {"ANSI B", 431.8, 279.4},
        {"ANSI C", 558.8, 431.8}, {"ANSI D", 863.6, 558.8},   {"ANSI E", 1117.6, 863.6},
    };
    ASSERT_EQ(std::size(kSheetFormats), std::size(expected));
    for (size_t i = 0; i < std::size(expected); i++) {
        EXPECT_EQ(kSheetFormats[i].name, expected[i].name);
        EXPECT_EQ(kSheetFormats[i].width, expected[i].width);
        EXPECT_EQ(kSheetFormats[i].height, expected[i].height);
    }
}

TEST(DocumentWriter, WhatIsWrittenReadsBackTheSame)
{
    for (const char* name : {"bracket.tvnprt", "gearbox.tvnasm", "bracket.tvndrw", "imported.tvnprt"}) {
        const Document document = ReadDocument(Sample(name), name);
        EXPECT_EQ(ReadDocument(WriteDocument(document), name), document) << name;
    }
}

TEST(DocumentWriter, TextBeyondAsciiSurvives)
{
    Document document = OneBoxPart();
    std::get<Part>(document.content).properties["Description"] = "Gehäuse Ø 40 – 歯車箱";
    EXPECT_EQ(ReadDocument(WriteDocument(document), "x.tvnprt"), document);
}

TEST(Samples, AreAPartWithThreeConfigurationsAnAssemblyWithAVirtualComponentAndADrawingWithTwoSheets)
{
    EXPECT_EQ(ItemNames(ReadDocument(Sample("bracket.tvnprt"), "bracket.tvnprt")),
              (std::vector<std::string>{"Default", "Long", "Light"}));
    const Document gearbox = ReadDocument(Sample("gearbox.tvnasm"), "gearbox.tvnasm");
    EXPECT_NE(FindEmbedded(gearbox, {"Housing-1"}), nullptr);
    EXPECT_EQ(References(gearbox), (std::vector<std::string>{"imported.tvnprt", "bracket.tvnprt"}));
    EXPECT_EQ(ItemNames(ReadDocument(Sample("bracket.tvndrw"), "bracket.tvndrw")),
              (std::vector<std::string>{"Overview", "Long version"}));
    EXPECT_EQ(References(ReadDocument(Sample("imported.tvnprt"), "imported.tvnprt")),
              std::vector<std::string>{"flange.step"});
}

} // namespace
