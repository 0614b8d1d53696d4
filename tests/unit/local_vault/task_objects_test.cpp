#include "disk_world.h"

#include "vault/error_table.h"
#include "vault/vault_objects.h"

namespace tv::local {

namespace {

class TaskObjects : public DiskWorld
{
  protected:
    std::shared_ptr<VaultStore> store = Make();
    TaskRecord task = store->MakeTask(
        "Export", std::vector<NamedValue>{{"Text", StoredValue::FromText("Ω")}, {"Number", StoredValue::FromInt(5)}});
    int32_t id = store->MakeInstance(task.id).id;
    std::vector<InstanceRecord> told;
    ComPtr<IVyxTaskInstance> instance =
        MakeTaskInstance(store, id, [this](const InstanceRecord& record) { told.push_back(record); });
    ComPtr<IVyxTaskProperties> properties = MakeTaskProperties(store, task.id);
};

TEST_F(TaskObjects, AnInstanceSeesTheDefinitionAndKeepsWhatIsWritten)
{
    Variant value;
    EXPECT_EQ(instance->GetVariable(u"Text", value.put()), 0);
    EXPECT_EQ(value.ToText(), u"Ω");
    EXPECT_EQ(instance->SetVariable(u"Text", Variant::FromText(u"own").get()), 0);
    EXPECT_EQ(instance->GetVariable(u"Text", value.put()), 0);
    EXPECT_EQ(value.ToText(), u"own");
    EXPECT_EQ(properties->GetVariable(u"Text", value.put()), 0);
    EXPECT_EQ(value.ToText(), u"Ω");
}

TEST_F(TaskObjects, AnAbsentVariableIsOneAndEmpty)
{
    Variant value = Variant::FromInt(3);
    EXPECT_EQ(instance->GetVariable(u"absent", value.put()), 1);
    EXPECT_TRUE(value.IsEmpty());
    EXPECT_EQ(properties->GetVariable(u"absent", value.put()), 1);
    EXPECT_EQ(instance->GetVariableByKey(Variant::FromText(u"absent").get(), value.put()), 1);
    EXPECT_EQ(instance->GetVariableByKey(Variant::FromInt(9999).get(), value.put()), 1);
}

TEST_F(TaskObjects, AKeyIsANameOrANumber)
{
    Variant value;
    EXPECT_EQ(instance->GetVariableByKey(Variant::FromText(u"Number").get(), value.put()), 0);
    EXPECT_EQ(value.ToInt(), 5);
    const int32_t number = *store->VariableIdentifier("Number");
    EXPECT_EQ(instance->GetVariableByKey(Variant::FromInt(number).get(), value.put()), 0);
    EXPECT_EQ(value.ToInt(), 5);
    EXPECT_EQ(instance->GetVariableByKey(Variant::FromBool(true).get(), value.put()), E_INVALIDARG);
}

TEST_F(TaskObjects, MissingArgumentsAreRefused)
{
    Variant value;
    EXPECT_EQ(instance->GetVariable(nullptr, value.put()), E_POINTER);
    EXPECT_EQ(instance->GetVariable(u"Text", nullptr), E_POINTER);
    EXPECT_EQ(instance->SetVariable(u"Text", nullptr), E_POINTER);
    EXPECT_EQ(instance->GetStatus(nullptr), E_POINTER);
    EXPECT_EQ(instance->GetTaskName(nullptr), E_POINTER);
}

TEST_F(TaskObjects, TheInstanceTellsItsTaskAndAlwaysTheSameGuid)
{
    BString name;
    BString first;
    BString second;
    EXPECT_EQ(instance->GetTaskName(name.put()), 0);
    EXPECT_EQ(name.View(), u"Export");
    EXPECT_EQ(instance->GetInstanceGuid(first.put()), 0);
    EXPECT_EQ(instance->GetInstanceGuid(second.put()), 0);
    EXPECT_EQ(first.View(), second.View());
}

TEST_F(TaskObjects, StatusAndProgressAreStoredAndTold)
{
    store->BeginRun(*store->Instance(id), 1);
    EXPECT_EQ(instance->SetProgressRange(4, 0, u"one"), 0);
    EXPECT_EQ(instance->SetProgressPos(2, nullptr), 0);
    EXPECT_EQ(instance->SetProgressRange(0, 4, u"one"), E_INVALIDARG);
    const VyxDocument document{5, 1, 2, 3};
    const Variant documents = Variant::FromArray(MakeRecordArray<VyxDocument>({&document, 1}).release(), VT_RECORD);
    EXPECT_EQ(instance->SetStatus(9, E_FAIL, u"why", documents.get(), 0), 0);
    int32_t status = 0;
    EXPECT_EQ(instance->GetStatus(&status), 0);
    EXPECT_EQ(status, 9);
    EXPECT_EQ(store->Instance(id)->message, "why");
    EXPECT_EQ(store->Instance(id)->result, E_FAIL);
    EXPECT_EQ(store->Documents(id), (std::vector<DocumentItem>{{5, 1, 2, 3}}));
    ASSERT_EQ(told.size(), 3u);
    EXPECT_EQ(told[0].progress.upper, 4);
    EXPECT_EQ(told[1].progress.position, 2);
    EXPECT_EQ(told[2].status, 9);
}

TEST_F(TaskObjects, ADocumentListThatIsNoneIsRefused)
{
    EXPECT_EQ(instance->SetStatus(7, 0, nullptr, Variant::FromInt(1).get(), 0), E_INVALIDARG);
    EXPECT_EQ(instance->SetStatus(7, 0, nullptr, Variant().get(), 0), 0);
}

TEST_F(TaskObjects, AVanishedInstanceIsAFailure)
{
    store->RemoveInstance(id);
    int32_t status = 0;
    EXPECT_EQ(instance->GetStatus(&status), kErrorDatabaseAccess);
}

TEST_F(TaskObjects, PropertiesKeepCardVariablesByNumber)
{
    Variant value;
    EXPECT_EQ(properties->GetCardVariable(3, value.put()), 1);
    EXPECT_EQ(properties->SetCardVariable(3, Variant::FromText(u"x").get()), 0);
    EXPECT_EQ(properties->GetCardVariable(3, value.put()), 0);
    EXPECT_EQ(value.ToText(), u"x");
    EXPECT_EQ(properties->SetFlags(23), 0);
    EXPECT_EQ(store->TaskFlags(task.id), 23);
}

TEST_F(TaskObjects, MenuCommandsComeBackAsTheyWereGiven)
{
    SafeArray given;
    EXPECT_EQ(properties->GetMenuCmds(given.put()), 0);
    EXPECT_FALSE(given);
    EXPECT_EQ(properties->SetMenuCmds(nullptr), E_POINTER);
    const SafeArray commands = SafeArray::Vector(VT_I4, 3);
    EXPECT_EQ(properties->SetMenuCmds(commands.get()), 0);
    EXPECT_EQ(properties->GetMenuCmds(given.put()), 0);
    EXPECT_EQ(SafeArrayView<int32_t>(given.get()).size(), 3u);
}

TEST_F(TaskObjects, APreviewSeesTheDefinitionAndLeavesNothingBehind)
{
    const auto preview = MakePreviewInstance(store, task);
    Variant value;
    EXPECT_EQ(preview->GetVariable(u"Text", value.put()), 0);
    EXPECT_EQ(preview->SetVariable(u"Text", Variant::FromText(u"own").get()), 0);
    EXPECT_EQ(preview->GetVariableByKey(Variant::FromText(u"Text").get(), value.put()), 0);
    EXPECT_EQ(value.ToText(), u"own");
    EXPECT_EQ(store->TaskVariable(task.id, "Text"), StoredValue::FromText("Ω"));
    EXPECT_EQ(store->Instances().size(), 1u);
}

TEST_F(TaskObjects, TheCommandDataKeepsEveryField)
{
    const std::vector<SelectionItem> selection{{7, 3, "C:\\V\\Größe.step", "Long", 1, 2},
                                               {0, 4, "C:\\V\\Parts", "", 2, 0}};
    EXPECT_EQ(ReadCommandData(MakeCommandData(selection).get()), selection);
    EXPECT_TRUE(ReadCommandData(nullptr).empty());
}

} // namespace

} // namespace tv::local
