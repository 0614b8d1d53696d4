#include "support/task_variables.h"

#include "com/com_object.h"
#include "com/result.h"

#include <gtest/gtest.h>

#include <map>

namespace tv {
namespace {

/// Variables by name, with a result to answer with instead.
struct Store
{
    Result Get(const char16_t* name, VARIANT* value)
    {
        ++reads;
        if (answer != 0) {
            return answer;
        }
        const auto found = variables.find(name);
        if (found == variables.end()) {
            return 1;
        }
        Variant copy = found->second;
        copy.MoveTo(value);
        return 0;
    }

    Result Set(const char16_t* name, const VARIANT* value)
    {
        if (answer != 0) {
            return answer;
        }
        variables[name] = Variant::Copy(*value);
        return 0;
    }

    std::map<std::u16string, Variant> variables;
    Result answer = 0;
    int reads = 0;
};

class Properties : public ComObject<IVyxTaskProperties>
{
  public:
    Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) override { return store.Get(name, value); }
    Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) override { return store.Set(name, value); }
    Result TV_CALL GetCardVariable(int32_t, VARIANT*) override { return E_NOTIMPL; }
    Result TV_CALL SetCardVariable(int32_t, const VARIANT*) override { return E_NOTIMPL; }
    Result TV_CALL SetFlags(int32_t) override { return E_NOTIMPL; }
    Result TV_CALL SetSetupPages(SAFEARRAY*) override { return E_NOTIMPL; }
    Result TV_CALL GetMenuCmds(SAFEARRAY**) override { return E_NOTIMPL; }
    Result TV_CALL SetMenuCmds(SAFEARRAY*) override { return E_NOTIMPL; }
    Store store;
};

class Instance : public ComObject<IVyxTaskInstance>
{
  public:
    Result TV_CALL GetVariable(const char16_t* name, VARIANT* value) override { return store.Get(name, value); }
    Result TV_CALL SetVariable(const char16_t* name, const VARIANT* value) override { return store.Set(name, value); }
    Result TV_CALL GetVariableByKey(const VARIANT*, VARIANT*) override { return E_NOTIMPL; }
    Result TV_CALL GetTaskName(BStr*) override { return E_NOTIMPL; }
    Result TV_CALL GetInstanceGuid(BStr*) override { return E_NOTIMPL; }
    Result TV_CALL GetStatus(int32_t*) override { return E_NOTIMPL; }
    Result TV_CALL SetStatus(int32_t, Result, const char16_t*, const VARIANT*, int32_t) override { return E_NOTIMPL; }
    Result TV_CALL SetProgressRange(int32_t, int32_t, const char16_t*) override { return E_NOTIMPL; }
    Result TV_CALL SetProgressPos(int32_t, const char16_t*) override { return E_NOTIMPL; }
    Store store;
};

/// A definition that is an instance too.
class Both final : public Properties
{
  public:
    ComPtr<Instance> instance = MakeObject<Instance>();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override
    {
        return id == kInterfaceId<IVyxTaskInstance> ? instance->QueryInterface(id, object)
                                                    : Properties::QueryInterface(id, object);
    }
};

class Neither final : public ComObject<IVyxPos>
{
  public:
    Result TV_CALL IsNull(VariantBool*) override { return E_NOTIMPL; }
};

class TaskVariablesTest : public testing::Test
{
  protected:
    ComPtr<Properties> properties = MakeObject<Properties>();
    ComPtr<Instance> instance = MakeObject<Instance>();
};

template <typename Action> Result RaisedBy(Action&& action)
{
    try {
        action();
    } catch (const ResultError& error) {
        return error.Code();
    }
    return 0;
}

TEST_F(TaskVariablesTest, ADefinitionIsReadAndWritten)
{
    WriteText(properties.get(), u"OutputPath", u"out");
    EXPECT_EQ(ReadText(properties.get(), u"OutputPath"), u"out");
}

TEST_F(TaskVariablesTest, AnInstanceIsReadThroughTheSameCodeWithNoDefinitionAtHand)
{
    WriteText(instance.get(), u"OutputPath", u"out");
    EXPECT_EQ(ReadText(instance.get(), u"OutputPath"), u"out");
}

TEST_F(TaskVariablesTest, AHandleThatIsBothIsReadAndWrittenAsADefinition)
{
    const ComPtr<Both> both = MakeObject<Both>();
    WriteInt(both.get(), u"n", 5);
    EXPECT_EQ(both->store.variables.count(u"n"), 1u);
    EXPECT_TRUE(both->instance->store.variables.empty());
    EXPECT_EQ(ReadInt(both.get(), u"n"), 5);
    EXPECT_EQ(both->instance->store.reads, 0);
}

TEST_F(TaskVariablesTest, AHandleThatIsNeitherRaises)
{
    const ComPtr<Neither> neither = MakeObject<Neither>();
    Variant value;
    EXPECT_EQ(RaisedBy([&] { ReadVariable(neither.get(), u"n", value); }), static_cast<Result>(0x80004003u));
    EXPECT_EQ(RaisedBy([&] { WriteInt(neither.get(), u"n", 1); }), static_cast<Result>(0x80004003u));
    EXPECT_EQ(RaisedBy([&] { WriteInt(nullptr, u"n", 1); }), static_cast<Result>(0x80004003u));
}

TEST_F(TaskVariablesTest, AnAbsentVariableIsNoFailureAndLeavesTheValueEmpty)
{
    Variant value = Variant::FromInt(5);
    EXPECT_FALSE(ReadVariable(instance.get(), u"ErrorLogPath", value));
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_EQ(ReadText(instance.get(), u"ErrorLogPath"), std::nullopt);
    EXPECT_EQ(ReadInt(instance.get(), u"n"), std::nullopt);
    EXPECT_EQ(ReadBool(instance.get(), u"n"), std::nullopt);
    EXPECT_EQ(ReadFloat(instance.get(), u"n"), std::nullopt);
}

TEST_F(TaskVariablesTest, AFailureIsRaised)
{
    instance->store.answer = static_cast<Result>(0x80040207u);
    EXPECT_EQ(RaisedBy([&] { ReadInt(instance.get(), u"n"); }), static_cast<Result>(0x80040207u));
    EXPECT_EQ(RaisedBy([&] { WriteInt(instance.get(), u"n", 1); }), static_cast<Result>(0x80040207u));
    properties->store.answer = static_cast<Result>(0x80004005u);
    EXPECT_EQ(RaisedBy([&] { ReadInt(properties.get(), u"n"); }), static_cast<Result>(0x80004005u));
}

TEST_F(TaskVariablesTest, EachKindIsWrittenWithItsTypeCode)
{
    WriteInt(instance.get(), u"int", 7);
    WriteFloat(instance.get(), u"float", 1.5f);
    WriteText(instance.get(), u"text", u"t");
    WriteBool(instance.get(), u"bool", true);
    EXPECT_EQ(instance->store.variables[u"int"].Type(), 3);
    EXPECT_EQ(instance->store.variables[u"float"].Type(), 4);
    EXPECT_EQ(instance->store.variables[u"text"].Type(), 8);
    EXPECT_EQ(instance->store.variables[u"bool"].Type(), 11);
    EXPECT_EQ(instance->store.variables[u"bool"].get()->boolVal, -1);
    WriteBool(instance.get(), u"bool", false);
    EXPECT_EQ(instance->store.variables[u"bool"].get()->boolVal, 0);
}

TEST_F(TaskVariablesTest, TheWantedKindCountsAndNotTheStoredOne)
{
    WriteText(instance.get(), u"text", u"2");
    EXPECT_EQ(ReadInt(instance.get(), u"text"), 2);
    EXPECT_EQ(ReadFloat(instance.get(), u"text"), 2.0f);
    WriteInt(instance.get(), u"int", 42);
    EXPECT_EQ(ReadText(instance.get(), u"int"), u"42");
    EXPECT_EQ(ReadBool(instance.get(), u"int"), true);
    WriteBool(instance.get(), u"bool", true);
    EXPECT_EQ(ReadInt(instance.get(), u"bool"), -1);
    WriteFloat(instance.get(), u"float", 2.5f);
    EXPECT_EQ(ReadInt(instance.get(), u"float"), 2);
    EXPECT_EQ(ReadFloat(instance.get(), u"float"), 2.5f);
}

TEST_F(TaskVariablesTest, ATextThatIsNoNumberRaisesInTheConversion)
{
    WriteText(instance.get(), u"text", u"abc");
    EXPECT_EQ(RaisedBy([&] { ReadInt(instance.get(), u"text"); }), static_cast<Result>(0x80020005u));
    EXPECT_EQ(RaisedBy([&] { ReadFloat(instance.get(), u"text"); }), static_cast<Result>(0x80020005u));
}

TEST_F(TaskVariablesTest, NamesAreExactInTheirCase)
{
    WriteInt(instance.get(), u"__type", 1);
    EXPECT_EQ(ReadInt(instance.get(), u"__Type"), std::nullopt);
}

TEST_F(TaskVariablesTest, ATaskThatNobodyTypedExecutesAScript)
{
    int32_t kind = 0;
    EXPECT_EQ(ReadTaskKind(instance.get(), true, kind), 0);
    EXPECT_EQ(kind, 3);
    kind = 0;
    EXPECT_EQ(ReadTaskKind(properties.get(), false, kind), 0);
    EXPECT_EQ(kind, 3);
}

TEST_F(TaskVariablesTest, TheKindIsTheStoredNumber)
{
    int32_t kind = 0;
    WriteInt(instance.get(), u"__type", 1);
    EXPECT_EQ(ReadTaskKind(instance.get(), true, kind), 0);
    EXPECT_EQ(kind, 1);
}

TEST_F(TaskVariablesTest, AKindStoredAsTheTextTwoIsTwo)
{
    int32_t kind = 0;
    WriteText(properties.get(), u"__type", u"2");
    EXPECT_EQ(ReadTaskKind(properties.get(), false, kind), 0);
    EXPECT_EQ(kind, 2);
}

TEST_F(TaskVariablesTest, TheKindIsReadFromTheInterfaceThatIsAskedFor)
{
    const ComPtr<Both> both = MakeObject<Both>();
    WriteInt(both.get(), u"__type", 1);
    WriteInt(both->instance.get(), u"__type", 2);
    int32_t kind = 0;
    EXPECT_EQ(ReadTaskKind(both.get(), false, kind), 0);
    EXPECT_EQ(kind, 1);
    EXPECT_EQ(ReadTaskKind(both.get(), true, kind), 0);
    EXPECT_EQ(kind, 2);
}

TEST_F(TaskVariablesTest, AMissingInterfaceIsAFailureThatLeavesTheKind)
{
    int32_t kind = 77;
    EXPECT_EQ(ReadTaskKind(properties.get(), true, kind), static_cast<Result>(0x80004003u));
    EXPECT_EQ(ReadTaskKind(instance.get(), false, kind), static_cast<Result>(0x80004003u));
    EXPECT_EQ(ReadTaskKind(nullptr, true, kind), static_cast<Result>(0x80004003u));
    EXPECT_EQ(kind, 77);
}

TEST_F(TaskVariablesTest, AFailedReadOfTheKindIsReturnedAndLeavesTheKind)
{
    int32_t kind = 77;
    instance->store.answer = static_cast<Result>(0x80040204u);
    EXPECT_EQ(ReadTaskKind(instance.get(), true, kind), static_cast<Result>(0x80040204u));
    EXPECT_EQ(kind, 77);
}

TEST_F(TaskVariablesTest, AKindThatIsNoNumberIsAFailureThatLeavesTheKind)
{
    int32_t kind = 77;
    WriteText(instance.get(), u"__type", u"print");
    EXPECT_EQ(ReadTaskKind(instance.get(), true, kind), static_cast<Result>(0x80020005u));
    EXPECT_EQ(kind, 77);
}

} // namespace
} // namespace tv
