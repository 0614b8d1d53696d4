// Runs with a translation library in the place of the one that answers in English: every text is its key, the names
// that it was looked up by, and its default.
#include "fakes/platform/fake_platform.h"
#include "fakes/vault/fake_vault.h"
#include "memory_choice_list.h"
#include "script/path_field.h"
#include "script/script_resource.h"
#include "script/token_menu.h"
#include "script/version_list.h"
#include "support/format.h"

#include <gtest/gtest.h>

#include <list>

namespace tv {

const char16_t* TSS_internal(uint32_t key, const char16_t* prefix, const char16_t* section, const char16_t* defaultText)
{
    static std::list<std::u16string> texts;
    texts.push_back(FormatText(u"%s/%s/%u/%s", prefix, section, key, defaultText));
    return texts.back().c_str();
}

namespace {

std::vector<std::u16string> Labels(const std::vector<TokenMenuItem>& menu)
{
    std::vector<std::u16string> labels;
    for (const TokenMenuItem& item : menu) {
        labels.push_back(item.label);
    }
    return labels;
}

TEST(TranslatedTexts, LabelTheMenuOfAPathField)
{
    EXPECT_EQ(Labels(PathMenu()), (std::vector<std::u16string>{
                                      u"TS/TVTaskAddIn/23/Source File Name",
                                      u"TS/TVTaskAddIn/24/Source File Extension",
                                      u"TS/TVTaskAddIn/25/Configuration Name",
                                      u"TS/TVTaskAddIn/26/Source Folder Path",
                                      u"TS/TVTaskAddIn/27/Vault Root Folder Path",
                                      u"TS/TVTaskAddIn/130/Source File Revision",
                                      u"TS/TVTaskAddIn/131/Source File Version",
                                      u"TS/TVTaskAddIn/132/Source File Workflow State",
                                      u"TS/TVTaskAddIn/133/Todays Date",
                                  }));
}

TEST(TranslatedTexts, LabelTheMenuOfTheScriptPage)
{
    EXPECT_EQ(Labels(ScriptMenu()), (std::vector<std::u16string>{
                                        u"TS/TVTaskAddIn/23/Source File Name",
                                        u"TS/TVTaskAddIn/24/Source File Extension",
                                        u"TS/TVTaskAddIn/25/Configuration Name",
                                        u"TS/TVTaskAddIn/26/Source Folder Path",
                                        u"TS/TVTaskAddIn/27/Vault Root Folder Path",
                                        u"TS/TVTaskAddIn/88/Task Instance GUID",
                                        u"TS/TVTaskAddIn/160/Source File Path",
                                    }));
}

TEST(TranslatedTexts, BeginTheExampleLine)
{
    fakes::FakePlatform machine;
    fakes::FakeVault vault;
    EXPECT_EQ(BuildExamplePath(u"x", *vault.Get(), machine.platform, u".pdf"), u"TS/TVTaskAddIn/123/Example: x.pdf");
}

TEST(TranslatedTexts, NameTheDefaultVersion)
{
    fakes::FakePlatform machine;
    MemoryChoiceList list;
    ListInstalledVersions(machine.products, list, 0);
    EXPECT_EQ(list.SelectedLabel(), u"TS/TVTaskAddIn/125/<Use default>");
}

TEST(TranslatedTexts, NameTheKindsOfTask)
{
    std::vector<std::u16string> labels;
    for (const TaskTypeRow& row : kTaskTypes) {
        labels.push_back(TaskTypeLabel(row));
    }
    EXPECT_EQ(labels, (std::vector<std::u16string>{u"TS/TVTaskAddIn/89/File Conversion", u"TS/TVTaskAddIn/90/Printing",
                                                   u"TS/TVTaskAddIn/91/General"}));
}

TEST(TranslatedTexts, AreNotWantedForTheFailuresOfAScriptResource)
{
    fakes::FakePlatform machine;
    EXPECT_EQ(ReadScriptResource(machine.module, 211), u"");
    EXPECT_EQ(machine.module.Messages(), (std::vector<std::u16string>{u"Could not find Script resource!"}));
}

} // namespace
} // namespace tv
