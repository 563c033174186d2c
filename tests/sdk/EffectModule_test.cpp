// An effect that comes in a module, among the simulated ones of the stand-in.

#include "standin/host/bundle/EffectModule.h"

#include "effects/EffectMessages.h"
#include "effects/LayerItems.h"
#include "standin/host/project/ProjectFile.h"
#include "tests/support/ProductHost.h"
#include "tests/support/Scratch.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

namespace standin
{
namespace
{
constexpr const char* matchName = "QVK VORTEFF Pulse Effector";

std::string complaintAbout(const std::string& file)
{
    try
    {
        (void)EffectModule(file);
    }
    catch (const std::runtime_error& error)
    {
        return error.what();
    }
    return "no complaint";
}

class EffectModules : public testing::Test
{
protected:
    EffectModules() { InstallEffectModule(stage.host, VORTAN_EXAMPLE); }

    int apply() { return stage.host.User().Apply(stage.layerId, matchName); }
    EffectInstance& instance(int effectId) { return *stage.host.State().FindEffect(effectId); }

    /// The layer as the panel reads it.
    std::vector<ObjectItem> read()
    {
        std::vector<ObjectItem> items;
        (void)stage.host.RunInHook(
            [&] { items = CreateItemsFromLayer(stage.Id(), stage.Basic(), stage.Layer(), -1); });
        return items;
    }
    void tell(const std::string& uuid, int group)
    {
        (void)stage.host.RunInHook(
            [&] { SetEffectGroup(stage.Id(), stage.Basic(), stage.Layer(), uuid, group); });
    }

    ProductHost stage;
};

TEST_F(EffectModules, TakeThePlaceOfTheSimulatedEffect)
{
    std::vector<std::string> names;
    for (const InstalledEffect& effect : stage.host.InstalledEffects())
        if (effect.matchName == matchName)
            names.push_back(ModuleFileOf(effect));
    EXPECT_THAT(names, ElementsAre(VORTAN_EXAMPLE));
    EXPECT_EQ(stage.host.InstalledEffects().size(), FamilyEffects().size() + 3);
    EXPECT_EQ(ModuleFileOf(*stage.host.FindInstalled("QVK VORTKIT")), "");
}

TEST_F(EffectModules, AnswerThePanelFromTheirOwnBytes)
{
    const int effectId = apply();
    const auto items = read();
    ASSERT_EQ(items.size(), 1U);
    EXPECT_NE(items[0].uuid, ZERO_UUID_TEXT);
    EXPECT_EQ(items[0].uuid, TextOf(instance(effectId).family.uuid)) << "what the stand-in's windows show";
    EXPECT_EQ(items[0].group, 0);
    EXPECT_EQ(items[0].name, "Vortan Pulse Effector");
    EXPECT_EQ(instance(effectId).family.kept.size(), std::size_t{VORTAN_TRY_KEPT_SIZE});
}

TEST_F(EffectModules, AToldGroupIsItsOwnStep)
{
    const int effectId = apply();
    const std::string uuid = read()[0].uuid;
    tell(uuid, 4);
    EXPECT_EQ(read()[0].group, 4);
    EXPECT_EQ(instance(effectId).family.group, 4);
    ASSERT_THAT(stage.host.UndoNames(), ElementsAre("Apply Effect", "Change Group"));
    (void)stage.host.Undo();
    EXPECT_EQ(read()[0].group, 0);
    (void)stage.host.Redo();
    EXPECT_EQ(read()[0].group, 4);
    EXPECT_EQ(read()[0].uuid, uuid);
    EXPECT_EQ(stage.host.FindingsReport(), "");
}

TEST_F(EffectModules, AGroupIsNoStepWithoutTheHosts)
{
    stage.host.Options().groupUndo = GroupUndo::isNotUndoable;
    const int effectId = apply();
    tell(read()[0].uuid, 4);
    EXPECT_EQ(instance(effectId).family.group, 4);
    EXPECT_THAT(stage.host.UndoNames(), ElementsAre("Apply Effect"));
}

TEST_F(EffectModules, TheUserChangesTheirGroupThemselves)
{
    const int effectId = apply();
    stage.host.User().SetGroup(instance(effectId).label, 9);
    EXPECT_EQ(read()[0].group, 9);
    EXPECT_THAT(stage.host.UndoNames(), ElementsAre("Apply Effect", "Change Group"));
}

TEST_F(EffectModules, ADuplicateMakesItsOwnIdentity)
{
    const int effectId = apply();
    tell(read()[0].uuid, 2);
    (void)stage.host.User().Duplicate(instance(effectId).label);
    const auto items = read();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_NE(items[0].uuid, items[1].uuid);
    EXPECT_EQ(items[0].uuid, TextOf(instance(effectId).family.uuid));
    EXPECT_EQ(items[1].group, 2);
}

TEST_F(EffectModules, ADuplicateIsNotToldBySilentHosts)
{
    stage.host.Options().duplicateIdentity = DuplicateIdentity::isCopied;
    (void)stage.host.User().Duplicate(instance(apply()).label);
    const auto items = read();
    ASSERT_EQ(items.size(), 2U);
    EXPECT_EQ(items[0].uuid, items[1].uuid);
}

TEST_F(EffectModules, TheirBytesAreSavedWithTheProject)
{
    (void)apply();
    tell(read()[0].uuid, 7);
    const auto before = read();
    const Scratch scratch;
    SaveProject(stage.host, scratch.Path("saved.json"));
    tell(before[0].uuid, 1);
    OpenProject(stage.host, scratch.Path("saved.json"));
    EXPECT_EQ(read()[0].uuid, before[0].uuid);
    EXPECT_EQ(read()[0].group, 7);
}

TEST_F(EffectModules, UnreadableBytesAreTheProjectsError)
{
    (void)apply();
    const Scratch scratch;
    SaveProject(stage.host, scratch.Path("saved.json"));
    std::string text = scratch.Read("saved.json");
    text.replace(text.find("\"kept\": \"") + 9, 2, "xy");
    scratch.Write("bad.json", text);
    try
    {
        OpenProject(stage.host, scratch.Path("bad.json"));
        FAIL() << "the project was taken";
    }
    catch (const ProjectFileError& error)
    {
        EXPECT_THAT(error.what(), HasSubstr("effects[0].kept: bytes in hexadecimal digits belong here"));
    }
}

TEST_F(EffectModules, AnInstanceWithoutBytesIsSetUpNew)
{
    const int effectId = apply();
    instance(effectId).family.kept.clear();
    instance(effectId).family.uuid = {};
    const auto items = read();
    EXPECT_NE(items[0].uuid, ZERO_UUID_TEXT);
    EXPECT_EQ(items[0].uuid, TextOf(instance(effectId).family.uuid));
}

TEST_F(EffectModules, AFailingModuleReadsAsOutside)
{
    InstallEffectModule(stage.host, std::string(VORTAN_BAD_EFFECTS) + "/returnsAnError.so");
    (void)apply();
    int error = 0;
    (void)stage.host.RunInHook(
        [&]
        {
            AEGP_SuiteHandler suites(stage.Basic());
            VnEffectMessage message{};
            error = PingEffectIndex(stage.Id(), &suites, stage.Layer(), MESSAGE_TIME, &message, 0, 0);
        });
    EXPECT_EQ(error, 1);
}

TEST(EffectModuleBytes, AreAPartOfWhatAProjectHolds)
{
    FamilyData one;
    FamilyData other = one;
    EXPECT_EQ(one, other);
    other.kept = {1};
    EXPECT_FALSE(one == other);
}

TEST(EffectModuleFiles, ThatAreNoneAreToldByTheirNames)
{
    const Scratch scratch;
    scratch.Write("text.so", "no code");
    EXPECT_EQ(complaintAbout("/nowhere.so"), "/nowhere.so: there is no such file");
    EXPECT_THAT(complaintAbout(scratch.Path("text.so")), HasSubstr("text.so is no effect: "));
    EXPECT_THAT(complaintAbout(VORTAN_BAD_EFFECTS "/no-effect.so"),
                EndsWith(" is no effect: it does not export VortanTryEffect"));
    EXPECT_EQ(complaintAbout(VORTAN_EXAMPLE), "no complaint");
}
} // namespace
} // namespace standin
