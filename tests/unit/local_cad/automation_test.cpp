#include "cad/dispatch_object.h"
#include "cad/value_conversion.h"
#include "com/safe_array.h"
#include "interfaces/ids.h"
#include "local_cad/world.h"

#include <gtest/gtest.h>

namespace tv::app {

namespace {

Result CallByName(IDispatch* object, const char16_t* name, WORD flags, std::vector<VARIANT> arguments, Variant& answer)
{
    std::reverse(arguments.begin(), arguments.end());
    auto* text = reinterpret_cast<LPOLESTR>(const_cast<char16_t*>(name));
    const GUID none{};
    DISPID member = 0;
    const Result found = object->GetIDsOfNames(none, &text, 1, LOCALE_USER_DEFAULT, &member);
    if (found < 0) {
        return found;
    }
    DISPPARAMS params{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    return object->Invoke(member, none, LOCALE_USER_DEFAULT, flags, &params, answer.put(), nullptr, nullptr);
}

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

} // namespace

TEST(Automation, ThePropertiesOfTheApplicationAreReadByName)
{
    World world;
    const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
    Variant answer;
    ASSERT_EQ(CallByName(application.get(), u"RevisionNumber", kRead, {}, answer), S_OK);
    EXPECT_EQ(answer.ToText(), u"21.1.0");
}

TEST(Automation, AnUnknownNameHasNoNumber)
{
    World world;
    const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
    Variant answer;
    EXPECT_EQ(CallByName(application.get(), u"Nope", kRead, {}, answer), DISP_E_UNKNOWNNAME);
}

TEST(Automation, AWrongNumberOfArgumentsIsRefused)
{
    World world;
    const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
    Variant answer;
    EXPECT_EQ(CallByName(application.get(), u"SetInteractive", kRead, {}, answer), DISP_E_BADPARAMCOUNT);
}

TEST(Automation, OneDocumentHasOneIdentity)
{
    World world;
    world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"");
    const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
    Variant first;
    Variant second;
    ASSERT_EQ(CallByName(application.get(), u"GetFirstDocument", kRead, {}, first), S_OK);
    ASSERT_EQ(CallByName(application.get(), u"ActiveDoc", kRead, {}, second), S_OK);
    EXPECT_NE(first.get()->pdispVal, nullptr);
    EXPECT_EQ(first.get()->pdispVal, second.get()->pdispVal);
}

TEST(Automation, AutomationObjectsGoWithTheirLastHolder)
{
    World world;
    const size_t before = DispatchObjectCount();
    {
        const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
        EXPECT_EQ(DispatchObjectCount(), before + 1);
    }
    EXPECT_EQ(DispatchObjectCount(), before);
}

TEST(Automation, ArgumentsByReferenceAreWrittenBack)
{
    World world;
    const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
    const Variant path = Variant::FromText(u"C:\\Temp\\missing.tvb");
    const Variant module = Variant::FromText(u"TVMacro1");
    const Variant procedure = Variant::FromText(u"main");
    const Variant options = Variant::FromInt(0);
    auto error = decltype(VARIANT::lVal){0};
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_I4;
    reference.plVal = &error;
    Variant answer;
    ASSERT_EQ(CallByName(application.get(), u"RunMacroEx", kRead,
                         {*path.get(), *module.get(), *procedure.get(), *options.get(), reference}, answer),
              S_OK);
    EXPECT_FALSE(answer.ToBool());
    EXPECT_EQ(error, 28);
}

TEST(Automation, TheApplicationsEventsHaveAConnectionPoint)
{
    World world;
    const ComPtr<IDispatch> application = DispatchFor(MakeApplicationObject(world.context));
    ComPtr<IConnectionPointContainer> container;
    ASSERT_EQ(application.As(container), S_OK);
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(kInterfaceId<DPartDocEvents>, point.put()), CONNECT_E_NOCONNECTION);
    ASSERT_EQ(container->FindConnectionPoint(kInterfaceId<DTorvaneEvents>, point.put()), S_OK);
    const ComPtr<NotingSink> sink = MakeObject<NotingSink>();
    ConnectionCookie cookie = 0;
    ASSERT_EQ(point->Advise(sink.get(), &cookie), S_OK);
    world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"");
    EXPECT_EQ(point->Unadvise(cookie), S_OK);
    EXPECT_EQ(point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
    world.application.Open(u"C:\\Vault\\plan.tvndrw", DocumentType::Drawing, true, u"");
    EXPECT_EQ(sink->heard, (std::vector<std::string>{"22", "12", "7"}));
}

TEST(Automation, ADocumentsEventsAreThoseOfItsKind)
{
    World world;
    for (const auto& [path, id] : {std::pair{u"C:\\Vault\\bracket.tvnprt", kInterfaceId<DPartDocEvents>},
                                   std::pair{u"C:\\Vault\\gearbox.tvnasm", kInterfaceId<DAssemblyDocEvents>},
                                   std::pair{u"C:\\Vault\\plan.tvndrw", kInterfaceId<DDrawingDocEvents>}}) {
        const auto document = world.application.Open(path, DocumentType::None, true, u"").document;
        const ComPtr<IDispatch> object = DispatchFor(DocumentValue(world.context, document).ToObject());
        ComPtr<IConnectionPointContainer> container;
        ASSERT_EQ(object.As(container), S_OK);
        ComPtr<IConnectionPoint> point;
        EXPECT_EQ(container->FindConnectionPoint(id, point.put()), S_OK) << ToUtf8(path);
    }
}

TEST(Automation, AListenerThatHasGoneIsDropped)
{
    World world;
    const ComPtr<NotingSink> sink = MakeObject<NotingSink>();
    ConnectionCookie cookie = 0;
    world.application.Events()->Connect(sink.get(), &cookie);
    sink->answer = static_cast<Result>(0x800706BAu);
    world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"");
    EXPECT_EQ(sink->heard, (std::vector<std::string>{"22"}));
    EXPECT_EQ(world.application.Events()->ListenerCount(), 0u);
}

TEST(Automation, AListenerThatFailsStaysAndTheEventGoesOn)
{
    World world;
    const ComPtr<NotingSink> failing = MakeObject<NotingSink>();
    const ComPtr<NotingSink> other = MakeObject<NotingSink>();
    ConnectionCookie cookie = 0;
    world.application.Events()->Connect(failing.get(), &cookie);
    world.application.Events()->Connect(other.get(), &cookie);
    failing->answer = E_FAIL;
    world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::Part, true, u"");
    EXPECT_EQ(other->heard, (std::vector<std::string>{"22", "12", "7"}));
    EXPECT_EQ(world.application.Events()->ListenerCount(), 2u);
}

TEST(Automation, ValuesKeepTheirKindBothWays)
{
    EXPECT_EQ(ToVariant(macro::Value(int16_t{7})).Type(), VT_I2);
    EXPECT_EQ(ToVariant(macro::Value(int32_t{7})).Type(), VT_I4);
    EXPECT_EQ(ToVariant(macro::Value(2.5)).Type(), VT_R8);
    EXPECT_EQ(ToVariant(macro::Value(true)).Type(), VT_BOOL);
    EXPECT_EQ(ToVariant(macro::Value(u"a")).Type(), VT_BSTR);
    EXPECT_EQ(ToVariant(macro::Value::Null()).Type(), VT_NULL);
    EXPECT_EQ(FromVariant(*Variant::FromInt(70000).get()).ToLong(), 70000);
    EXPECT_EQ(FromVariant(*Variant::FromText(u"x\u03A9").get()).ToText(), u"x\u03A9");
    EXPECT_TRUE(FromVariant(*Variant::FromBool(true).get()).Truth());
    EXPECT_TRUE(FromVariant(*Variant().get()).IsEmpty());
}

TEST(Automation, AnArrayOfNamesTravelsAsAnArrayOfVariants)
{
    World world;
    const auto document = world.application.Open(u"C:\\Vault\\bracket.tvnprt", DocumentType::None, true, u"").document;
    const ComPtr<IDispatch> object = DispatchFor(DocumentValue(world.context, document).ToObject());
    Variant names;
    ASSERT_EQ(CallByName(object.get(), u"GetConfigurationNames", kRead, {}, names), S_OK);
    ASSERT_EQ(names.Type(), VT_ARRAY | VT_VARIANT);
    const macro::Value back = FromVariant(*names.get());
    ASSERT_EQ(back.ToArray()->items.size(), 3u);
    EXPECT_EQ(back.ToArray()->items[2].ToText(), u"A/B");
}

} // namespace tv::app
