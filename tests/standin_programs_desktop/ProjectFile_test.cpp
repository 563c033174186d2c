// Projects in files: what is written comes back, and what cannot be read changes nothing.

#include "standin/host/project/ProjectFile.h"
#include "tests/support/Scratch.h"

#include "standin/host/core/HostParts.h"
#include "standin/host/family/Family.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
namespace
{
using testing::ElementsAre;
using testing::HasSubstr;

class ProjectFileTest : public testing::Test
{
protected:
    ProjectFileTest() { InstallFamily(host); }

    void Fill()
    {
        const int comp = host.AddComposition("Titles \"main\"");
        (void)host.AddFootage("plate.mov");
        (void)host.AddFolder("Old");
        const int other = host.AddComposition("Other");
        first = host.AddLayer(comp, "Logo");
        second = host.AddLayer(other, "B\xc3\xbchne");
        (void)host.AddEffect(first, "QVK VORTSRC Lamps", "A");
        (void)host.AddEffect(first, "ADBE Fill", "B");
        (void)host.AddEffect(second, "QVK VORTREN Dots", "C");
        host.Effect("A").customName = "";
        host.Effect("A").family.group = -3;
        host.Effect("B").flags = 6;
        host.Effect("B").groupHidden = true;
        host.Effect("C").family.rigidity = Rigidity::rigid;
        host.Effect("C").parameters[1] = {"Size", true};
        host.State().FindLayer(second)->startTime = -250;
        host.User().OpenComposition(other);
        host.User().SelectLayers({second});
        host.User().ToggleTwirl(host.Effect("C").id);
    }

    /// What ReadProject says to a text.
    std::string Complaint(const std::string& text)
    {
        try
        {
            (void)ReadProject(text, host.InstalledEffects(), "p.json");
        }
        catch (const ProjectFileError& error)
        {
            return error.what();
        }
        return "no complaint";
    }

    /// A project of one layer with this effect.
    static std::string WithEffect(const std::string& effect)
    {
        return R"({"format": "stand-in project", "version": 1,
 "items": [{"id": 101, "kind": "composition", "name": "Comp"}],
 "layers": [{"id": 1, "composition": 101, "name": "L", "effects": [)" +
               effect + "]}]}";
    }

    Host host;
    Scratch scratch;
    int first = 0;
    int second = 0;
};
} // namespace

TEST_F(ProjectFileTest, ASavedProjectComesBackWhole)
{
    Fill();
    const ProjectState saved = host.State();
    SaveProject(host, scratch.Path("p.json"));

    ReplaceProject(host, {});
    ASSERT_TRUE(host.State().layers.empty());
    OpenProject(host, scratch.Path("p.json"));

    EXPECT_EQ(host.State(), saved);
    EXPECT_EQ(host.ProjectView().selection.ActiveLayer(host.State(), FocusInPanel::keepsFrontComp), second);
    EXPECT_EQ(ProjectOf(host).selectedLayers, std::vector<int>{second});
    EXPECT_TRUE(host.IsOpen("C"));
    EXPECT_FALSE(host.IsOpen("A"));
}

TEST_F(ProjectFileTest, OpeningLeavesNoUndoAndFreshIds)
{
    Fill();
    host.User().Rename("A", "lamp");
    SaveProject(host, scratch.Path("p.json"));
    OpenProject(host, scratch.Path("p.json"));

    EXPECT_TRUE(host.UndoNames().empty());
    EXPECT_FALSE(host.Undo());
    EXPECT_EQ(host.AddLayer(101), 3);
    EXPECT_EQ(host.User().Apply(first, "ADBE Tint"), 4);
    EXPECT_EQ(host.AddComposition("New"), 105);
}

TEST_F(ProjectFileTest, OpeningMakesReferencesStale)
{
    Fill();
    const void* effect = host.EffectReference("A");
    ReplaceProject(host, ProjectOf(host));
    const ReferenceRegistry& references = host.SensorsView().references;
    const Reference* reference = references.Find(effect);
    ASSERT_NE(reference, nullptr);
    EXPECT_TRUE(references.IsStale(*reference));
}

TEST_F(ProjectFileTest, AShortFileTakesTheInstalledDefaults)
{
    ReplaceProject(host, ReadProject(WithEffect(R"({"id": 5, "effect": "QVK VORTSRC Lamps"})"),
                                     host.InstalledEffects(), "p.json"));
    const EffectInstance& effect = host.Effect("e5");
    EXPECT_EQ(effect.flags, effectActive);
    EXPECT_EQ(effect.parameters.size(), 3u);
    EXPECT_EQ(effect.family.group, 0);
    (void)host.RunIdle();
    EXPECT_NE(host.Effect("e5").family.uuid, Identity{}) << "the effect makes its identity when it is idle";
}

TEST_F(ProjectFileTest, ABadFileIsRefusedInClearWords)
{
    EXPECT_EQ(Complaint("{\n \"format\": \"stand-in project\",\n oops}"),
              "p.json: this is no JSON from line 3 on");
    EXPECT_EQ(Complaint(""), "p.json: this is no JSON from line 1 on");
    EXPECT_EQ(Complaint(R"({"version": 1e999})"), "p.json: a number is too large for JSON");
    EXPECT_EQ(Complaint("[]"), "p.json: an object in braces belongs here");
    EXPECT_EQ(Complaint("{}"), "p.json: the field \"format\" is missing");
    EXPECT_EQ(Complaint(R"({"format": "x"})"), "p.json: format: this is no project of the stand-in host");
    EXPECT_EQ(Complaint(R"({"format": "stand-in project", "version": 2})"),
              "p.json: version: only version 1 is known");
    EXPECT_EQ(Complaint(R"({"format": "stand-in project", "format": "x"})"),
              "p.json: the field \"format\" stands twice in one object");
    EXPECT_EQ(Complaint(R"({"format": "stand-in project", "version": 1, "items": 3})"),
              "p.json: items: a list in brackets belongs here");
}

TEST_F(ProjectFileTest, ABadEffectIsRefusedWithItsPlace)
{
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1, "effect": "Nobody"})")),
              "p.json: layers[0].effects[0].effect: no effect \"Nobody\" is installed");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 0, "effect": "ADBE Fill"})")),
              "p.json: layers[0].effects[0].id: an id is a number above 0");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1, "effect": "ADBE Fill"}, {"id": 1, "effect": "ADBE Fill"})")),
              "p.json: layers[0].effects[1].id: the id 1 is taken already");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1, "effect": "ADBE Fill", "colour": 1})")),
              "p.json: layers[0].effects[0]: the field \"colour\" is unknown");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1, "effect": "ADBE Fill", "group": 40000})")),
              "p.json: layers[0].effects[0].group: the number does not lie between -32768 and 32767");
    EXPECT_EQ(
        Complaint(WithEffect(R"({"id": 1, "effect": "ADBE Fill", "flags": 18446744073709551615})")),
        "p.json: layers[0].effects[0].flags: the number does not lie between -2147483648 and 2147483647");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1, "effect": "ADBE Fill", "hidden": 1})")),
              "p.json: layers[0].effects[0].hidden: true or false belongs here");
    EXPECT_THAT(Complaint(WithEffect(R"({"id": 1, "effect": "ADBE Fill", "identity": "12"})")),
                HasSubstr("effects[0].identity: an identity reads like"));
}

TEST_F(ProjectFileTest, AnIdLeavesRoomForNewOnes)
{
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 2147483647, "effect": "ADBE Fill"})")),
              "p.json: layers[0].effects[0].id: the number does not lie between 1 and 1000000000");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1000000001, "effect": "ADBE Fill"})")),
              "p.json: layers[0].effects[0].id: the number does not lie between 1 and 1000000000");
    EXPECT_EQ(Complaint(WithEffect(R"({"id": 1000000000, "effect": "ADBE Fill"})")), "no complaint");
}

TEST_F(ProjectFileTest, NewEffectsGetLabelsThatAreFree)
{
    const char* const effects = R"({"id": 1, "label": "e2", "effect": "ADBE Fill"},
 {"id": 3, "label": "e7x", "effect": "ADBE Fill"},
 {"id": 4, "label": "e99999999999999999999", "effect": "ADBE Fill"})";
    ReplaceProject(host, ReadProject(WithEffect(effects), host.InstalledEffects(), "p.json"));
    for (int i = 0; i < 2; ++i)
        (void)host.User().Apply(1, "ADBE Tint");
    EXPECT_EQ(host.StackText(1), "e2 e7x e99999999999999999999 e5 e6");

    ReplaceProject(host, ReadProject(WithEffect(R"({"id": 1, "label": "e2", "effect": "ADBE Fill"})"),
                                     host.InstalledEffects(), "p.json"));
    (void)host.User().Apply(1, "ADBE Tint");
    EXPECT_EQ(Complaint(WriteProject(ProjectOf(host), host.InstalledEffects())), "no complaint");
}

TEST_F(ProjectFileTest, AProjectWithDanglingReferencesIsRefused)
{
    const std::string head = R"({"format": "stand-in project", "version": 1, "items": [], "layers": [)";
    EXPECT_EQ(Complaint(head + R"({"id": 1, "composition": 7, "name": "L", "effects": []}]})"),
              "p.json: layers[0].composition: no composition has the id 7");
    EXPECT_EQ(Complaint(head + R"(], "view": {"selectedLayers": [4]}})"),
              "p.json: view.selectedLayers: nothing here has the id 4");
    EXPECT_EQ(Complaint(head + R"(], "view": {"front": 4}})"),
              "p.json: view.front: no composition has the id 4");
}

TEST_F(ProjectFileTest, AnUnreadableFileLeavesTheHostAlone)
{
    Fill();
    host.User().Rename("A", "lamp");
    const ProjectState before = host.State();
    scratch.Write("bad.json", "{");

    EXPECT_THROW(OpenProject(host, scratch.Path("bad.json")), ProjectFileError);
    EXPECT_THROW(OpenProject(host, scratch.Path("none.json")), ProjectFileError);
    EXPECT_THROW(OpenProject(host, scratch.Path(".")), ProjectFileError);

    EXPECT_EQ(host.State(), before);
    EXPECT_THAT(host.UndoNames(), ElementsAre("Rename Effect"));
}

TEST_F(ProjectFileTest, AFailedSaveLeavesTheFormerFile)
{
    Fill();
    scratch.Write("p.json", "precious");
    host.Effect("A").customName = "\xff";
    EXPECT_THROW(SaveProject(host, scratch.Path("p.json")), ProjectFileError);
    EXPECT_EQ(scratch.Read("p.json"), "precious");
    EXPECT_THAT(scratch.Names(), ElementsAre("p.json"));

    host.Effect("A").customName = "lamp";
    EXPECT_THROW(SaveProject(host, scratch.Path("no folder/p.json")), ProjectFileError);
    EXPECT_THROW(SaveProject(host, scratch.Path("")), ProjectFileError) << "a folder is no file";
    EXPECT_THAT(scratch.Names(), ElementsAre("p.json"));
}

TEST_F(ProjectFileTest, ASaveReplacesTheFileAtOnce)
{
    Fill();
    scratch.Write("p.json", "precious");
    ASSERT_TRUE(std::filesystem::create_directory(scratch.Path("p.json.new")));
    EXPECT_THROW(SaveProject(host, scratch.Path("p.json")), ProjectFileError);
    EXPECT_EQ(scratch.Read("p.json"), "precious");
}
} // namespace standin
