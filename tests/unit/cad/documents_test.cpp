#include "cad_test.h"

namespace tv {

namespace {

using fakes::FakeDocument;

constexpr int32_t kConvert = 1;
constexpr int32_t kPrint = 2;
constexpr int32_t kScript = 3;
constexpr int32_t kPart = 1;
constexpr int32_t kDrawing = 3;

class DocumentsTest : public CadTest
{
  protected:
    fakes::FakeApplication& App() { return cad.Last(); }
    const TaskFile& OnlyOutput()
    {
        EXPECT_EQ(outputs.Outputs().size(), 1u);
        return outputs.Outputs().at(0);
    }
};

} // namespace

TEST_F(DocumentsTest, EachAnnouncementHangsASinkOnNewDocuments)
{
    for (const int32_t event : {22, 12, 7}) {
        ConfigureAndStart(kConvert);
        FakeDocument& document = App().OpenSilently(kPart, u"a");
        EXPECT_EQ(document.events.SinkCount(), 0u);
        EXPECT_EQ(App().Fire(event), std::vector<Result>{0});
        EXPECT_EQ(document.events.SinkCount(kInterfaceId<DPartDocEvents>), 1u) << event;
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

TEST_F(DocumentsTest, OtherEventsOfTheApplicationAreNotTaken)
{
    ConfigureAndStart(kConvert);
    App().OpenSilently(kPart, u"a");
    for (int32_t event = 0; event <= 50; ++event) {
        if (event != 7 && event != 12 && event != 22) {
            EXPECT_EQ(App().Fire(event), std::vector<Result>{0});
        }
    }
    EXPECT_EQ(manager.DocumentCount(), 0u);
}

TEST_F(DocumentsTest, ADocumentIsTakenOnceHoweverOftenItIsAnnounced)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().Open(kPart, u"a");
    App().Fire(22);
    App().Fire(7);
    EXPECT_EQ(document.events.SinkCount(), 1u);
    EXPECT_EQ(manager.DocumentCount(), 1u);
}

TEST_F(DocumentsTest, EachKindOfDocumentHasItsEventInterface)
{
    ConfigureAndStart(kConvert);
    EXPECT_EQ(App().Open(1, u"a").events.SinkCount(kInterfaceId<DPartDocEvents>), 1u);
    EXPECT_EQ(App().Open(2, u"b").events.SinkCount(kInterfaceId<DAssemblyDocEvents>), 1u);
    EXPECT_EQ(App().Open(3, u"c").events.SinkCount(kInterfaceId<DDrawingDocEvents>), 1u);
}

TEST_F(DocumentsTest, ADocumentOfAnotherTypeEndsTheRefresh)
{
    ConfigureAndStart(kConvert);
    App().OpenSilently(kPart, u"a");
    App().OpenSilently(4, u"b");
    FakeDocument& behind = App().OpenSilently(kPart, u"c");
    EXPECT_EQ(manager.RefreshDocuments(), Code(0x8000FFFF));
    EXPECT_EQ(manager.DocumentCount(), 1u);
    EXPECT_EQ(behind.events.SinkCount(), 0u);
}

TEST_F(DocumentsTest, ADocumentOfAnotherTypeIsTakenInAPrintRunForItsViews)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(4, u"b");
    document.AddView();
    EXPECT_EQ(manager.RefreshDocuments(), 0);
    EXPECT_EQ(document.views[0]->events.SinkCount(), 1u);
}

TEST_F(DocumentsTest, AnEventIsAnsweredWithZeroThoughTheRefreshFailed)
{
    ConfigureAndStart(kConvert);
    App().OpenSilently(4, u"b");
    EXPECT_EQ(App().Fire(22), std::vector<Result>{0});
}

TEST_F(DocumentsTest, AFirstDocumentThatCannotBeHadEndsTheRefreshQuietly)
{
    ConfigureAndStart(kConvert);
    App().script.OnEveryCall(u"GetFirstDocument").Fail(E_FAIL);
    EXPECT_EQ(manager.RefreshDocuments(), 0);
}

TEST_F(DocumentsTest, ASavedFileIsRecordedWithItsConfiguration)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().Open(kPart, u"a");
    document.configuration = u"Long";
    EXPECT_EQ(App().Write(document, u"C:\\Vault\\a.step"), std::vector<Result>{0});
    EXPECT_EQ(OnlyOutput().path, u"C:\\Vault\\a.step");
    EXPECT_EQ(OnlyOutput().outputConf, u"Long");
    EXPECT_FALSE(OnlyOutput().isPrinted);
    EXPECT_EQ(manager.RunCount(), 1);
}

TEST_F(DocumentsTest, ADocumentSavedToTwoPathsIsTwoOutputsEachWithItsConfiguration)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().Open(kPart, u"a");
    document.configuration = u"Long";
    App().Write(document, u"C:\\Vault\\long.step");
    document.configuration = u"Short";
    App().Write(document, u"C:\\Vault\\short.step");
    ASSERT_EQ(outputs.Outputs().size(), 2u);
    EXPECT_EQ(outputs.Outputs()[0].outputConf, u"Long");
    EXPECT_EQ(outputs.Outputs()[1].outputConf, u"Short");
    EXPECT_EQ(manager.RunCount(), 2);
}

TEST_F(DocumentsTest, AnOutputIsBookedAgainstTheFileThatIsWorkedOn)
{
    ConfigureAndStart(kConvert);
    TaskFile source;
    outputs.SetCurrent(&source);
    FakeDocument& document = App().Open(kPart, u"a");
    App().Write(document, u"C:\\Vault\\a.step");
    EXPECT_EQ(OnlyOutput().source, &source);
}

TEST_F(DocumentsTest, ADrawingWithTheMaskForAllSheetsIsNamedSoWhateverSheetIsCurrent)
{
    task->variables.SetInt(u"OutputSheets", 2);
    ConfigureAndStart(kConvert);
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    drawing.sheet = u"Sheet2";
    App().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(OnlyOutput().outputConf, u"All sheets");
}

TEST_F(DocumentsTest, ADrawingIsRecordedWithItsCurrentSheet)
{
    ConfigureAndStart(kConvert);
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    drawing.sheet = u"Sheet2";
    App().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(OnlyOutput().outputConf, u"Sheet2");
}

TEST_F(DocumentsTest, NamesAreMappedInAConvertTaskOnly)
{
    task->variables.SetInt(u"OutputConfs", 2);
    ConfigureAndStart(kConvert);
    manager.CloseApplication(Waiting::Yes, 0);
    ConfigureAndStart(kScript);
    FakeDocument& document = App().Open(kPart, u"a");
    document.configuration = u"Long";
    App().Write(document, u"C:\\Vault\\a.step");
    EXPECT_EQ(OnlyOutput().outputConf, u"Long");
}

TEST_F(DocumentsTest, AConfigurationOrSheetThatCannotBeReadLeavesTheNameEmpty)
{
    for (const std::u16string name : {u"GetConfigurationManager", u"GetActiveConfiguration", u"Configuration.GetName",
                                      u"GetCurrentSheet", u"Sheet.GetName"}) {
        ConfigureAndStart(kConvert);
        App().script.OnEveryCall(name).Fail(E_FAIL);
        const bool isSheet = name.find(u"Sheet") != std::u16string::npos;
        FakeDocument& document = App().Open(isSheet ? kDrawing : kPart, u"a");
        EXPECT_EQ(App().Write(document, u"C:\\Vault\\a.step"), std::vector<Result>{0});
        EXPECT_EQ(OnlyOutput().outputConf, u"") << testing::PrintToString(name);
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

TEST_F(DocumentsTest, ADocumentWithoutItsInterfaceRaisesAndRecordsNothing)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().Open(kPart, u"a");
    document.withoutTypedInterfaces = true;
    EXPECT_EQ(App().Write(document, u"C:\\Vault\\a.step"), std::vector<Result>{Code(0x80004003)});
    EXPECT_TRUE(outputs.Outputs().empty());
    EXPECT_EQ(manager.RunCount(), 0);
}

TEST_F(DocumentsTest, OnlyAPrintRunHearsTheViews)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    manager.RefreshDocuments();
    EXPECT_EQ(document.views[0]->events.SinkCount(), 0u);
}

TEST_F(DocumentsTest, APrintOnEitherOfTwoViewsRecordsOnePrintedOutput)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    document.AddView();
    document.printTarget = u"a on Printer 1";
    document.configuration = u"Long";
    manager.RefreshDocuments();
    EXPECT_EQ(document.views[0]->events.SinkCount(), 1u);
    EXPECT_EQ(document.views[1]->events.SinkCount(), 1u);
    EXPECT_EQ(App().Print(document, 1), std::vector<Result>{0});
    EXPECT_EQ(OnlyOutput().extra, u"a on Printer 1");
    EXPECT_EQ(OnlyOutput().outputConf, u"Long");
    EXPECT_TRUE(OnlyOutput().isPrinted);
    EXPECT_EQ(manager.RunCount(), 1);
    App().Print(document, 0);
    EXPECT_EQ(outputs.Outputs().size(), 2u);
}

TEST_F(DocumentsTest, APrintOfADocumentWithoutItsInterfaceRaises)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    manager.RefreshDocuments();
    document.withoutTypedInterfaces = true;
    EXPECT_EQ(App().Print(document), std::vector<Result>{Code(0x80004003)});
    EXPECT_TRUE(outputs.Outputs().empty());
}

TEST_F(DocumentsTest, ADocumentThatGoesIsDetachedWithItsViews)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    manager.RefreshDocuments();
    const ComPtr<FakeDocument> kept = ComPtr<FakeDocument>::Share(&document);
    App().Close(document);
    EXPECT_EQ(manager.DocumentCount(), 0u);
    EXPECT_EQ(kept->events.SinkCount(), 0u);
    EXPECT_EQ(kept->views[0]->events.SinkCount(), 0u);
}

TEST_F(DocumentsTest, ADocumentThatGoesTwiceIsNoMatter)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().Open(kPart, u"a");
    const ComPtr<FakeDocument> kept = ComPtr<FakeDocument>::Share(&document);
    App().Close(document);
    kept->events.Fire(kInterfaceId<DPartDocEvents>, 2);
    EXPECT_EQ(manager.DocumentCount(), 0u);
}

TEST_F(DocumentsTest, AnOutputBeforeTheFirstRefreshGoesUnrecorded)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    App().Write(document, u"C:\\Vault\\a.step");
    EXPECT_TRUE(outputs.Outputs().empty());
    App().Fire(12);
    App().Write(document, u"C:\\Vault\\a.step");
    EXPECT_EQ(outputs.Outputs().size(), 1u);
}

TEST_F(DocumentsTest, AFileSavedTwiceIsRecordedOnce)
{
    ConfigureAndStart(kConvert);
    FakeDocument& document = App().Open(kPart, u"a");
    App().Write(document, u"C:\\Vault\\a.step");
    App().Write(document, u"C:\\VAULT\\A.STEP");
    EXPECT_EQ(outputs.Outputs().size(), 1u);
    EXPECT_EQ(manager.RunCount(), 2);
}

TEST_F(DocumentsTest, ADocumentOfTypeZeroIsPrintedUnderNoName)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(0, u"x");
    document.AddView();
    document.printTarget = u"x on Printer 1";
    ASSERT_EQ(manager.RefreshDocuments(), 0);
    EXPECT_EQ(App().Print(document), std::vector<Result>{0});
    EXPECT_EQ(OnlyOutput().outputConf, u"");
    EXPECT_EQ(OnlyOutput().extra, u"x on Printer 1");
    EXPECT_EQ(App().script.CountOf(u"GetConfigurationManager"), 0);
    EXPECT_EQ(App().script.CountOf(u"GetCurrentSheet"), 0);
}

TEST_F(DocumentsTest, TheNumbersOfAllEventsAreThese)
{
    ConfigureAndStart(kPrint);
    struct Row
    {
        int32_t type;
        GUID events;
    };
    const Row rows[] = {
        {1, kInterfaceId<DPartDocEvents>}, {2, kInterfaceId<DAssemblyDocEvents>}, {3, kInterfaceId<DDrawingDocEvents>}};
    size_t recorded = 0;
    for (const Row& row : rows) {
        FakeDocument& document = App().OpenSilently(row.type, u"a");
        document.AddView();
        App().Fire(22);
        const ComPtr<FakeDocument> kept = ComPtr<FakeDocument>::Share(&document);
        for (int32_t event = 0; event <= 30; ++event) {
            if (event != 2 && event != 7) {
                kept->events.Fire(row.events, event, {Variant::FromText(u"C:\\Vault\\x")});
            }
            if (event != 10) {
                kept->views[0]->events.Fire(kInterfaceId<DModelViewEvents>, event);
            }
        }
        EXPECT_EQ(outputs.Outputs().size(), recorded);
        const std::u16string path = u"C:\\Vault\\" + std::u16string(1, static_cast<char16_t>(u'0' + row.type));
        kept->events.Fire(row.events, 7, {Variant::FromText(path)});
        kept->views[0]->events.Fire(kInterfaceId<DModelViewEvents>, 10);
        recorded += 2;
        EXPECT_EQ(outputs.Outputs().size(), recorded);
        kept->events.Fire(row.events, 2);
        EXPECT_EQ(manager.DocumentCount(), 0u);
        App().Close(document);
    }
}

TEST_F(DocumentsTest, ADrawingWithTheMaskForANameIsRecordedUnderTheNamedSheet)
{
    task->variables.SetInt(u"OutputSheets", 8);
    task->variables.SetText(u"NamedSheet", u"Plan*");
    ConfigureAndStart(kConvert);
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    App().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(OnlyOutput().outputConf, u"Plan*");
}

TEST_F(DocumentsTest, OneFileForEachSheetKeepsTheNameOfTheSheet)
{
    task->variables.SetInt(u"FileSheets", 4);
    task->variables.SetInt(u"OutputSheets", 2);
    ConfigureAndStart(kConvert);
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    drawing.sheet = u"Sheet2";
    App().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(OnlyOutput().outputConf, u"Sheet2");
}

TEST_F(DocumentsTest, APartIsMappedByTheChoiceOfConfigurationsAndADrawingByThatOfSheets)
{
    task->variables.SetInt(u"OutputConfs", 2);
    task->variables.SetInt(u"OutputSheets", 8);
    task->variables.SetText(u"NamedSheet", u"Plan*");
    ConfigureAndStart(kConvert);
    FakeDocument& part = App().Open(kPart, u"a");
    App().Write(part, u"C:\\Vault\\a.step");
    FakeDocument& assembly = App().Open(2, u"b");
    App().Write(assembly, u"C:\\Vault\\b.step");
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    App().Write(drawing, u"C:\\Vault\\d.pdf");
    ASSERT_EQ(outputs.Outputs().size(), 3u);
    EXPECT_EQ(outputs.Outputs()[0].outputConf, u"All configurations");
    EXPECT_EQ(outputs.Outputs()[1].outputConf, u"All configurations");
    EXPECT_EQ(outputs.Outputs()[2].outputConf, u"Plan*");
}

TEST_F(DocumentsTest, ANameThatCannotBeReadIsMappedAllTheSame)
{
    task->variables.SetInt(u"OutputSheets", 2);
    ConfigureAndStart(kConvert);
    App().script.OnEveryCall(u"GetCurrentSheet").Fail(E_FAIL);
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    App().Write(drawing, u"C:\\Vault\\d.pdf");
    EXPECT_EQ(OnlyOutput().outputConf, u"All sheets");
}

TEST_F(DocumentsTest, ADrawingWithoutItsInterfaceRaisesAndRecordsNothing)
{
    ConfigureAndStart(kConvert);
    FakeDocument& drawing = App().Open(kDrawing, u"d");
    drawing.withoutTypedInterfaces = true;
    EXPECT_EQ(App().Write(drawing, u"C:\\Vault\\d.pdf"), std::vector<Result>{Code(0x80004003)});
    EXPECT_TRUE(outputs.Outputs().empty());
    EXPECT_EQ(manager.RunCount(), 0);
}

TEST_F(DocumentsTest, APrintTargetThatCannotBeReadIsRaised)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    manager.RefreshDocuments();
    App().script.OnEveryCall(u"GetPrintTarget").Fail(E_ACCESSDENIED);
    EXPECT_EQ(App().Print(document), std::vector<Result>{Code(0x80070005)});
    EXPECT_TRUE(outputs.Outputs().empty());
}

TEST_F(DocumentsTest, AFailureOfADocumentEndsTheRefreshAndKeepsWhatWasAttachedBefore)
{
    for (const std::u16string name : {u"GetDocumentType", u"Advise", u"FindConnectionPoint"}) {
        ConfigureAndStart(kConvert);
        FakeDocument& first = App().OpenSilently(kPart, u"a");
        FakeDocument& second = App().OpenSilently(kPart, u"b");
        FakeDocument& third = App().OpenSilently(kPart, u"c");
        App().script.OnCall(App().script.CountOf(name) + 2, name).Fail(Code(0x80010001));
        EXPECT_EQ(manager.RefreshDocuments(), Code(0x80010001)) << testing::PrintToString(name);
        EXPECT_EQ(first.events.SinkCount(), 1u);
        EXPECT_EQ(second.events.SinkCount(), 0u);
        EXPECT_EQ(third.events.SinkCount(), 0u);
        EXPECT_EQ(manager.RefreshDocuments(), 0);
        EXPECT_EQ(manager.DocumentCount(), 3u);
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

TEST_F(DocumentsTest, ANextDocumentThatCannotBeHadEndsTheRefresh)
{
    ConfigureAndStart(kConvert);
    App().OpenSilently(kPart, u"a");
    App().OpenSilently(kPart, u"b");
    App().script.OnCall(1, u"GetNextDocument").Fail(E_FAIL);
    EXPECT_EQ(manager.RefreshDocuments(), Code(0x80004005));
    EXPECT_EQ(manager.DocumentCount(), 1u);
}

TEST_F(DocumentsTest, AViewThatCannotBeHeardEndsTheAttachingOfItsDocument)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    document.AddView();
    App().script.OnCall(App().script.CountOf(u"Advise") + 2, u"Advise").Fail(E_FAIL);
    EXPECT_EQ(manager.RefreshDocuments(), Code(0x80004005));
    EXPECT_EQ(manager.DocumentCount(), 0u);
    EXPECT_EQ(document.events.SinkCount(), 0u);
    EXPECT_EQ(document.views[0]->events.SinkCount(), 0u);
}

TEST_F(DocumentsTest, AClosedApplicationTakesItsSinksOffOnce)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    manager.RefreshDocuments();
    const ComPtr<fakes::FakeApplication> kept = ComPtr<fakes::FakeApplication>::Share(&App());
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_EQ(kept->script.CountOf(u"Advise"), 3);
    EXPECT_EQ(kept->script.CountOf(u"Unadvise"), 3);
}

TEST_F(DocumentsTest, WhenOneDocumentGoesTheOthersAreStillHeard)
{
    ConfigureAndStart(kConvert);
    FakeDocument& first = App().Open(kPart, u"a");
    FakeDocument& second = App().Open(kPart, u"b");
    FakeDocument& third = App().Open(kDrawing, u"c");
    App().Close(second);
    EXPECT_EQ(manager.DocumentCount(), 2u);
    App().Write(first, u"C:\\Vault\\a.step");
    App().Write(third, u"C:\\Vault\\c.pdf");
    EXPECT_EQ(outputs.Outputs().size(), 2u);
}

TEST_F(DocumentsTest, ADocumentThatWentAndIsOpenedAgainIsANewOne)
{
    ConfigureAndStart(kConvert);
    FakeDocument& first = App().Open(kPart, u"a");
    App().Close(first);
    FakeDocument& again = App().Open(kPart, u"a");
    EXPECT_EQ(again.events.SinkCount(), 1u);
    App().Write(again, u"C:\\Vault\\a.step");
    EXPECT_EQ(outputs.Outputs().size(), 1u);
}

TEST_F(DocumentsTest, APrintRunAlsoHearsADocumentThatHasNoView)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().Open(kPart, u"a");
    EXPECT_EQ(document.events.SinkCount(kInterfaceId<DPartDocEvents>), 1u);
    App().Write(document, u"C:\\Vault\\a.step");
    EXPECT_EQ(OnlyOutput().path, u"C:\\Vault\\a.step");
    EXPECT_FALSE(OnlyOutput().isPrinted);
}

TEST_F(DocumentsTest, ADocumentWithoutItsInterfaceIsNotTakenInAPrintRun)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    document.withoutTypedInterfaces = true;
    EXPECT_EQ(manager.RefreshDocuments(), Code(0x80004002));
    EXPECT_EQ(manager.DocumentCount(), 0u);
    EXPECT_EQ(document.views[0]->events.SinkCount(), 0u);
}

TEST_F(DocumentsTest, ADocumentWithoutItsInterfaceIsHeardInAnyOtherRun)
{
    for (const int32_t kind : {kConvert, kScript}) {
        ConfigureAndStart(kind);
        FakeDocument& document = App().OpenSilently(kPart, u"a");
        document.withoutTypedInterfaces = true;
        EXPECT_EQ(manager.RefreshDocuments(), 0);
        EXPECT_EQ(document.events.SinkCount(), 1u);
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

TEST_F(DocumentsTest, ViewsThatCannotBeListedEndTheAttachingOfTheirDocument)
{
    for (const std::u16string name : {u"GetFirstModelView", u"GetNextModelView"}) {
        ConfigureAndStart(kPrint);
        FakeDocument& document = App().OpenSilently(kPart, u"a");
        document.AddView();
        document.AddView();
        App().script.OnEveryCall(name).Fail(Code(0x80010001));
        EXPECT_EQ(manager.RefreshDocuments(), Code(0x80010001)) << testing::PrintToString(name);
        EXPECT_EQ(manager.DocumentCount(), 0u);
        EXPECT_EQ(document.events.SinkCount(), 0u);
        EXPECT_EQ(document.views[0]->events.SinkCount(), 0u);
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

TEST_F(DocumentsTest, APrintedDrawingIsRecordedUnderItsSheetWhateverAConvertTaskChoseBefore)
{
    task->variables.SetInt(u"OutputSheets", 2);
    ConfigureAndStart(kConvert);
    manager.CloseApplication(Waiting::Yes, 0);
    ConfigureAndStart(kPrint);
    FakeDocument& drawing = App().OpenSilently(kDrawing, u"d");
    drawing.AddView();
    drawing.sheet = u"Sheet2";
    drawing.printTarget = u"d on Printer 1";
    manager.RefreshDocuments();
    EXPECT_EQ(App().Print(drawing), std::vector<Result>{0});
    EXPECT_EQ(OnlyOutput().outputConf, u"Sheet2");
    EXPECT_EQ(OnlyOutput().extra, u"d on Printer 1");
}

TEST_F(DocumentsTest, APrintWhoseSheetOrConfigurationCannotBeReadIsRecordedUnderNoName)
{
    for (const int32_t type : {kPart, kDrawing}) {
        ConfigureAndStart(kPrint);
        FakeDocument& document = App().OpenSilently(type, u"a");
        document.AddView();
        manager.RefreshDocuments();
        App().script.OnEveryCall(u"GetActiveConfiguration").Fail(E_FAIL);
        App().script.OnEveryCall(u"GetCurrentSheet").Fail(E_FAIL);
        EXPECT_EQ(App().Print(document), std::vector<Result>{0});
        EXPECT_EQ(OnlyOutput().outputConf, u"");
        EXPECT_TRUE(OnlyOutput().isPrinted);
        manager.CloseApplication(Waiting::Yes, 0);
    }
}

TEST_F(DocumentsTest, WhatWasAttachedBeforeAnApplicationIsClosedIsHeardNoMore)
{
    ConfigureAndStart(kPrint);
    FakeDocument& document = App().OpenSilently(kPart, u"a");
    document.AddView();
    manager.RefreshDocuments();
    const ComPtr<FakeDocument> kept = ComPtr<FakeDocument>::Share(&document);
    manager.CloseApplication(Waiting::Yes, 0);
    EXPECT_TRUE(kept->events.Fire(kInterfaceId<DPartDocEvents>, 7, {Variant::FromText(u"C:\\Vault\\x")}).empty());
    EXPECT_TRUE(kept->views[0]->events.Fire(kInterfaceId<DModelViewEvents>, 10).empty());
    EXPECT_TRUE(outputs.Outputs().empty());
}

} // namespace tv
