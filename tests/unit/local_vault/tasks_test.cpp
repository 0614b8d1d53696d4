#include "disk_world.h"

#include "vault/error_table.h"

#include <set>

namespace tv::local {

namespace {

class Tasks : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    TaskRecord task = store->MakeTask("Export STL", std::vector<NamedValue>{{"OutputPath", StoredValue::FromText("a")},
                                                                            {"__type", StoredValue::FromInt(1)}});
};

TEST_F(Tasks, ATaskIsFoundByItsNameWhateverTheCase)
{
    EXPECT_EQ(store->FindTask("export stl")->id, task.id);
    EXPECT_FALSE(store->FindTask("other"));
    EXPECT_EQ(CodeOf([&] { store->MakeTask("EXPORT STL", {}); }), kErrorNameAlreadyExists);
    EXPECT_EQ(CodeOf([&] { store->MakeTask("", {}); }), kErrorInvalidName);
}

TEST_F(Tasks, AVariableNameRespectsCase)
{
    EXPECT_EQ(store->TaskVariable(task.id, "OutputPath"), StoredValue::FromText("a"));
    EXPECT_FALSE(store->TaskVariable(task.id, "outputpath"));
}

TEST_F(Tasks, TheSameNameHasTheSameNumberInEveryTask)
{
    const TaskRecord other =
        store->MakeTask("Other", std::vector<NamedValue>{{"OutputPath", StoredValue::FromText("b")}});
    const auto number = store->VariableIdentifier("OutputPath");
    ASSERT_TRUE(number);
    EXPECT_EQ(store->VariableName(*number), "OutputPath");
    EXPECT_EQ(store->TaskVariable(other.id, "OutputPath"), StoredValue::FromText("b"));
    EXPECT_FALSE(store->VariableName(9999));
}

TEST_F(Tasks, VariablesAreListedByName)
{
    const auto variables = store->TaskVariables(task.id);
    ASSERT_EQ(variables.size(), 2u);
    EXPECT_EQ(variables[0].name, "OutputPath");
    EXPECT_EQ(variables[1].name, "__type");
}

TEST_F(Tasks, WhatAnInstanceWritesStaysWithIt)
{
    const InstanceRecord first = store->MakeInstance(task.id);
    const InstanceRecord second = store->MakeInstance(task.id);
    store->SetInstanceVariable(first.id, "OutputPath", StoredValue::FromText("mine"));
    EXPECT_EQ(store->InstanceVariable(first.id, "OutputPath"), StoredValue::FromText("mine"));
    EXPECT_EQ(store->InstanceVariable(second.id, "OutputPath"), StoredValue::FromText("a"));
    EXPECT_EQ(store->TaskVariable(task.id, "OutputPath"), StoredValue::FromText("a"));
    EXPECT_FALSE(store->InstanceVariable(first.id, "absent"));
}

TEST_F(Tasks, AnInstanceWaitsOnceItsLaunchIsFinished)
{
    const InstanceRecord made = store->MakeInstance(task.id);
    EXPECT_EQ(made.status, 0);
    EXPECT_EQ(made.launchedBy, kAnna);
    const std::vector<SelectionItem> selection{{7, 3, "C:\\V\\a.step", "Long", 1, 2}, {0, 4, "C:\\V\\Parts", "", 2, 0}};
    store->FinishLaunch(made.id, selection);
    EXPECT_EQ(store->Instance(made.id)->status, 1);
    EXPECT_EQ(store->Selection(made.id), selection);
}

TEST_F(Tasks, EachInstanceHasAGuidOfItsOwn)
{
    std::set<std::string> guids;
    for (int i = 0; i < 20; ++i) {
        guids.insert(store->MakeInstance(task.id).guid);
    }
    EXPECT_EQ(guids.size(), 20u);
}

TEST_F(Tasks, ARunIsFollowedFromItsBeginningToItsEnd)
{
    const int32_t id = store->MakeInstance(task.id).id;
    store->BeginRun(*store->Instance(id), 4711);
    EXPECT_EQ(store->Instance(id)->status, 3);
    EXPECT_EQ(store->Instance(id)->hostProcess, 4711);
    EXPECT_EQ(store->Instance(id)->started, "2026-11-21T01:40:05Z");
    store->SetProgressRange(id, 0, 6, "first");
    store->SetProgressPosition(id, 2, "second");
    EXPECT_EQ(store->Instance(id)->progress.upper, 6);
    EXPECT_EQ(store->Instance(id)->progress.position, 2);
    EXPECT_EQ(store->Instance(id)->progress.text, "second");
    const std::vector<DocumentItem> documents{{5, 1, 2, 3}, {6, 1, 2, 1}};
    store->SetStatus(id, 9, -5, "went wrong", documents);
    const InstanceRecord ended = *store->Instance(id);
    EXPECT_EQ(ended.status, 9);
    EXPECT_EQ(ended.result, -5);
    EXPECT_EQ(ended.message, "went wrong");
    EXPECT_EQ(ended.ended, "2026-11-21T01:40:05Z");
    EXPECT_EQ(ended.hostProcess, 0);
    EXPECT_EQ(store->Documents(id), documents);
}

TEST_F(Tasks, AnInstanceIsTakenByOneOfTheHostsThatSeeItWaiting)
{
    const int32_t id = store->MakeInstance(task.id).id;
    store->FinishLaunch(id, {});
    const InstanceRecord seen = *store->Instance(id);
    EXPECT_TRUE(store->BeginRun(seen, 4711));
    EXPECT_FALSE(OpenAs(kBert)->BeginRun(seen, 4712));
    EXPECT_EQ(store->Instance(id)->hostProcess, 4711);
}

TEST_F(Tasks, AnInstanceThatHasEndedSinceItWasSeenIsNotTaken)
{
    const int32_t id = store->MakeInstance(task.id).id;
    store->FinishLaunch(id, {});
    const InstanceRecord seen = *store->Instance(id);
    store->BeginRun(seen, 4711);
    store->SetStatus(id, 7, 0, "well", std::vector<DocumentItem>{{5, 1, 2, 3}});
    EXPECT_FALSE(store->BeginRun(seen, 4712));
    EXPECT_EQ(store->Instance(id)->status, 7);
    EXPECT_EQ(store->Instance(id)->message, "well");
    EXPECT_EQ(store->Documents(id).size(), 1u);
}

TEST_F(Tasks, AnInstanceWhoseHostDiedIsTakenByOneOfTheHostsThatSeeIt)
{
    const int32_t id = store->MakeInstance(task.id).id;
    store->BeginRun(*store->Instance(id), 4711);
    const InstanceRecord seen = *store->Instance(id);
    EXPECT_TRUE(store->BeginRun(seen, 4712));
    EXPECT_FALSE(store->BeginRun(seen, 4713));
    EXPECT_EQ(store->Instance(id)->hostProcess, 4712);
}

TEST_F(Tasks, AnInstanceThatWasRemovedSinceItWasSeenIsNotTaken)
{
    const InstanceRecord seen = store->MakeInstance(task.id);
    store->RemoveInstance(seen.id);
    EXPECT_FALSE(store->BeginRun(seen, 4711));
}

TEST_F(Tasks, ACancelRequestOfAnotherProcessIsSeen)
{
    const int32_t id = store->MakeInstance(task.id).id;
    store->BeginRun(*store->Instance(id), 1);
    OpenAs(kBert)->SetStatus(id, 6);
    EXPECT_EQ(store->Instance(id)->status, 6);
    EXPECT_EQ(store->Instance(id)->ended, "");
}

TEST_F(Tasks, ARemovedInstanceIsGoneWithAllThatItHad)
{
    const int32_t id = store->MakeInstance(task.id).id;
    store->SetInstanceVariable(id, "x", StoredValue::FromInt(1));
    store->RemoveInstance(id);
    EXPECT_FALSE(store->Instance(id));
    EXPECT_FALSE(store->InstanceVariable(id, "x"));
}

struct ExpectedWord
{
    int32_t status;
    std::string_view word;
};

TEST(TaskStatusWords, EachStatusHasItsWord)
{
    constexpr ExpectedWord kExpected[] = {
        {0, "launching"},          {1, "waiting"},           {3, "running"},   {5, "suspended"},
        {6, "cancel requested"},   {7, "finished"},          {8, "cancelled"}, {9, "failed"},
        {10, "suspend requested"}, {11, "resume requested"}, {42, "unknown"},
    };
    for (const ExpectedWord& expected : kExpected) {
        EXPECT_EQ(StatusWord(expected.status), expected.word);
    }
}

} // namespace

} // namespace tv::local
