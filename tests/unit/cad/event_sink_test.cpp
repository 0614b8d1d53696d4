#include "cad/event_sink.h"

#include "cad/event_interfaces.h"
#include "cad_test.h"

namespace tv {

namespace {

constexpr EventDescription kTaken[] = {{7, 1}, {2, 0}, {8, 8}, {9, 9}, {5, 2}};
constexpr EventInterface kEvents{kInterfaceId<DPartDocEvents>, 1, kTaken};
constexpr GUID kNoId{};

class Recorder : public EventHandler
{
  public:
    void OnEvent(int32_t event, std::span<const VARIANT> arguments) override
    {
        heard.push_back(event);
        texts.clear();
        for (const VARIANT& argument : arguments) {
            texts.push_back(Variant::Copy(argument).ToText());
        }
        if (raise != 0) {
            throw ResultError(raise);
        }
    }

    std::vector<int32_t> heard;
    std::vector<std::u16string> texts;
    Result raise = 0;
};

class EventSinkTest : public testing::Test
{
  protected:
    Result Fire(int32_t event, std::vector<Variant> arguments = {})
    {
        std::vector<VARIANT> reversed;
        for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
            reversed.push_back(*argument->get());
        }
        DISPPARAMS params{};
        params.rgvarg = reversed.data();
        params.cArgs = static_cast<UINT>(reversed.size());
        return sink->Invoke(event, kNoId, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, answer.put(), nullptr,
                            nullptr);
    }

    Recorder recorder;
    Variant answer;
    ComPtr<EventSink> sink = MakeObject<EventSink>(kEvents, recorder);
};

} // namespace

TEST_F(EventSinkTest, ASinkAnswersForItsEventInterfaceAndForIDispatch)
{
    ComPtr<IDispatch> dispatch;
    EXPECT_EQ(sink.As(dispatch), 0);
    ComPtr<IUnknown> identity;
    EXPECT_EQ(sink.As(identity), 0);
    ComPtr<IUnknown> events;
    EXPECT_EQ(sink->QueryInterface(kInterfaceId<DPartDocEvents>, events.putVoid()), 0);
    EXPECT_EQ(sink->QueryInterface(kInterfaceId<DDrawingDocEvents>, events.putVoid()), E_NOINTERFACE);
}

TEST_F(EventSinkTest, AnEventOfTheTableReachesTheHandlerAndReturnsZero)
{
    EXPECT_EQ(Fire(7, {Variant::FromText(u"C:\\a.step")}), 0);
    EXPECT_EQ(recorder.heard, std::vector<int32_t>{7});
    EXPECT_EQ(recorder.texts, std::vector<std::u16string>{u"C:\\a.step"});
    EXPECT_EQ(answer.ToInt(), 0);
}

TEST_F(EventSinkTest, ArgumentsComeInTheEventsOwnOrder)
{
    Fire(5, {Variant::FromText(u"first"), Variant::FromText(u"second")});
    EXPECT_EQ(recorder.texts, (std::vector<std::u16string>{u"first", u"second"}));
}

TEST_F(EventSinkTest, NoOtherEventIsTaken)
{
    EXPECT_EQ(Fire(3), 0);
    EXPECT_TRUE(recorder.heard.empty());
}

TEST_F(EventSinkTest, AnEventThatClaimsMoreThanEightArgumentsFails)
{
    EXPECT_EQ(Fire(9, std::vector<Variant>(9)), E_FAIL);
    EXPECT_TRUE(recorder.heard.empty());
}

TEST_F(EventSinkTest, WhatAnEventClaimsCountsAndNotWhatComes)
{
    EXPECT_EQ(Fire(9), E_FAIL);
    EXPECT_TRUE(recorder.heard.empty());
}

TEST_F(EventSinkTest, EightArgumentsArePassedInTheirOrder)
{
    std::vector<Variant> numbers;
    for (int32_t number = 1; number <= 8; ++number) {
        numbers.push_back(Variant::FromInt(number));
    }
    EXPECT_EQ(Fire(8, numbers), 0);
    EXPECT_EQ(recorder.texts, (std::vector<std::u16string>{u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8"}));
}

TEST_F(EventSinkTest, ArgumentsBeyondTheEventsOwnAreLeftOut)
{
    EXPECT_EQ(Fire(5, {Variant::FromText(u"first"), Variant::FromText(u"second"), Variant::FromText(u"third")}), 0);
    EXPECT_EQ(recorder.texts, (std::vector<std::u16string>{u"first", u"second"}));
}

TEST_F(EventSinkTest, ATextByReferenceIsReadLikeAnyOther)
{
    BString path(u"C:\\a.step");
    BSTR place = reinterpret_cast<BSTR>(path.get());
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_BSTR;
    reference.pbstrVal = &place;
    DISPPARAMS params{};
    params.rgvarg = &reference;
    params.cArgs = 1;
    EXPECT_EQ(sink->Invoke(7, kNoId, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(recorder.texts, std::vector<std::u16string>{u"C:\\a.step"});
}

TEST_F(EventSinkTest, AnEventWithoutArgumentsNeedsNoParametersAndNoPlaceForItsAnswer)
{
    EXPECT_EQ(sink->Invoke(2, kNoId, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(recorder.heard, std::vector<int32_t>{2});
    EXPECT_EQ(sink->Invoke(7, kNoId, LOCALE_USER_DEFAULT, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
}

TEST_F(EventSinkTest, ASinkOffersNoTypeInformationAndNoNames)
{
    UINT count = 7;
    EXPECT_EQ(sink->GetTypeInfoCount(&count), 0);
    EXPECT_EQ(count, 0u);
    EXPECT_EQ(sink->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(sink->GetTypeInfo(0, LOCALE_USER_DEFAULT, nullptr), E_NOTIMPL);
    DISPID member = 0;
    EXPECT_EQ(sink->GetIDsOfNames(kNoId, nullptr, 0, LOCALE_USER_DEFAULT, &member), E_NOTIMPL);
}

TEST_F(EventSinkTest, AnEventWithTooFewArgumentsIsRefused)
{
    EXPECT_EQ(Fire(7), DISP_E_BADPARAMCOUNT);
}

TEST_F(EventSinkTest, WhatAHandlerRaisesComesBackAsACode)
{
    recorder.raise = E_POINTER;
    EXPECT_EQ(Fire(2), E_POINTER);
}

TEST_F(EventSinkTest, ASinkThatWasTakenOffHearsNothing)
{
    sink->Forget();
    EXPECT_EQ(Fire(2), 0);
    EXPECT_TRUE(recorder.heard.empty());
}

TEST(SinkConnectionTest, AnUnconnectedConnectionHasTheMark)
{
    SinkConnection connection;
    EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
    EXPECT_EQ(connection.MajorVersion(), 17);
}

TEST(SinkConnectionTest, ConnectingTakesTheVersionOfTheRunningApplication)
{
    Recorder recorder;
    fakes::CallScript script;
    const auto document = MakeObject<fakes::FakeDocument>(script, 1, u"a");
    ComPtr<ITorvaneDocument> typed;
    document.As(typed);
    SinkConnection connection;
    EXPECT_EQ(connection.Connect(typed.get(), kEvents, recorder, 21), 0);
    EXPECT_EQ(connection.MajorVersion(), 21);
    EXPECT_NE(connection.Cookie(), 0xFEFEFEFEu);
    EXPECT_EQ(document->events.SinkCount(), 1u);
    connection.Disconnect();
    EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
    EXPECT_EQ(document->events.SinkCount(), 0u);
}

TEST(SinkConnectionTest, ConnectingTwiceIsAProgrammingError)
{
    Recorder recorder;
    fakes::CallScript script;
    const auto document = MakeObject<fakes::FakeDocument>(script, 1, u"a");
    ComPtr<ITorvaneDocument> typed;
    document.As(typed);
    SinkConnection connection;
    connection.Connect(typed.get(), kEvents, recorder, 21);
    EXPECT_EQ(RaisedBy([&] { connection.Connect(typed.get(), kEvents, recorder, 21); }), Code(0x80004005));
}

TEST(SinkConnectionTest, ASourceWithoutTheEventInterfaceCannotBeConnected)
{
    Recorder recorder;
    fakes::CallScript script;
    const auto drawing = MakeObject<fakes::FakeDocument>(script, 3, u"a");
    ComPtr<ITorvaneDocument> typed;
    drawing.As(typed);
    SinkConnection connection;
    EXPECT_EQ(connection.Connect(typed.get(), kEvents, recorder, 21), CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(connection.IsConnected());
}

TEST(SinkConnectionTest, AConnectThatFailedLeavesTheMarkAndMayBeTriedAgain)
{
    Recorder recorder;
    fakes::CallScript script;
    const auto document = MakeObject<fakes::FakeDocument>(script, 1, u"a");
    ComPtr<ITorvaneDocument> typed;
    document.As(typed);
    script.OnCall(1, u"Advise").Fail(CONNECT_E_CANNOTCONNECT);
    SinkConnection connection;
    EXPECT_EQ(connection.Connect(typed.get(), kEvents, recorder, 21), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
    EXPECT_EQ(connection.MajorVersion(), 21);
    EXPECT_EQ(connection.Connect(typed.get(), kEvents, recorder, 22), 0);
    EXPECT_EQ(connection.MajorVersion(), 22);
    EXPECT_EQ(document->events.SinkCount(), 1u);
}

TEST(SinkConnectionTest, ASourceWithoutConnectionPointsCannotBeConnected)
{
    Recorder recorder;
    const auto stranger = MakeObject<ComObject<IUnknown>>();
    SinkConnection connection;
    EXPECT_EQ(connection.Connect(stranger.get(), kEvents, recorder, 21), E_NOINTERFACE);
    EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
}

TEST(SinkConnectionTest, ADisconnectThatTheSourceRefusesLeavesTheMarkAndADeafSink)
{
    Recorder recorder;
    fakes::CallScript script;
    const auto document = MakeObject<fakes::FakeDocument>(script, 1, u"a");
    ComPtr<ITorvaneDocument> typed;
    document.As(typed);
    SinkConnection connection;
    connection.Connect(typed.get(), kEvents, recorder, 21);
    script.OnEveryCall(u"Unadvise").Fail(E_FAIL);
    connection.Disconnect();
    EXPECT_EQ(connection.Cookie(), 0xFEFEFEFEu);
    EXPECT_EQ(document->events.Fire(kInterfaceId<DPartDocEvents>, 2), std::vector<Result>{0});
    EXPECT_TRUE(recorder.heard.empty());
    connection.Disconnect();
    EXPECT_EQ(script.CountOf(u"Unadvise"), 1);
}

TEST(SinkConnectionTest, AConnectionThatGoesWithoutADisconnectMakesItsSinkDeafAndCallsNobody)
{
    Recorder recorder;
    fakes::CallScript script;
    const auto document = MakeObject<fakes::FakeDocument>(script, 1, u"a");
    ComPtr<ITorvaneDocument> typed;
    document.As(typed);
    {
        SinkConnection connection;
        connection.Connect(typed.get(), kEvents, recorder, 21);
    }
    EXPECT_EQ(script.CountOf(u"Unadvise"), 0);
    EXPECT_EQ(document->events.Fire(kInterfaceId<DPartDocEvents>, 2), std::vector<Result>{0});
    EXPECT_TRUE(recorder.heard.empty());
}

TEST(EventInterfacesTest, EachEventInterfaceHasItsControlIdAndItsEvents)
{
    struct Event
    {
        int32_t id;
        uint32_t arguments;
    };
    struct Row
    {
        const EventInterface& described;
        GUID id;
        int32_t controlId;
        std::vector<Event> events;
    };
    ASSERT_EQ(std::size(kDocumentKinds), 3u);
    const Row rows[] = {
        {kApplicationEvents, kInterfaceId<DTorvaneEvents>, 0, {{22, 0}, {7, 0}, {12, 0}}},
        {kDocumentKinds[0].events, kInterfaceId<DPartDocEvents>, 1, {{7, 1}, {2, 0}}},
        {kDocumentKinds[1].events, kInterfaceId<DAssemblyDocEvents>, 2, {{7, 1}, {2, 0}}},
        {kDocumentKinds[2].events, kInterfaceId<DDrawingDocEvents>, 3, {{7, 1}, {2, 0}}},
        {kModelViewEvents, kInterfaceId<DModelViewEvents>, 4, {{10, 0}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.controlId);
        EXPECT_EQ(row.described.id, row.id);
        EXPECT_EQ(row.described.controlId, row.controlId);
        ASSERT_EQ(row.described.events.size(), row.events.size());
        for (size_t i = 0; i < row.events.size(); ++i) {
            EXPECT_EQ(row.described.events[i].id, row.events[i].id);
            EXPECT_EQ(row.described.events[i].argumentCount, row.events[i].arguments);
        }
    }
}

TEST(EventInterfacesTest, TheTypesOfDocumentsAreOneTwoAndThree)
{
    ASSERT_EQ(std::size(kDocumentKinds), 3u);
    EXPECT_EQ(kDocumentKinds[0].type, 1);
    EXPECT_EQ(kDocumentKinds[1].type, 2);
    EXPECT_EQ(kDocumentKinds[2].type, 3);
}

} // namespace tv
