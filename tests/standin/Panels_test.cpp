// Panels: shown, behind another tab, closed, created again, and what they are shown in.

#include "tests/standin/PluginTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;

class Panels : public PluginTest
{
};

TEST_F(Panels, ToggleCreatesBringsForwardAndCloses)
{
    EXPECT_EQ(isShown(), "0 0");
    toggle();
    EXPECT_EQ(isShown(), "1 1");
    EXPECT_THAT(plugin.events, ElementsAre("create"));
    EXPECT_EQ(host.FindPanel("Test Panel")->panelRefcon, &plugin);

    (void)host.SetPanelState("Test Panel", PanelState::behind);
    EXPECT_EQ(isShown(), "1 0");
    toggle();
    EXPECT_EQ(isShown(), "1 1");

    toggle();
    EXPECT_EQ(isShown(), "0 0");
    EXPECT_THAT(plugin.events, ElementsAre("create"));
}

TEST_F(Panels, AClosedPanelKeepsOrReplacesItsView)
{
    toggle();
    const void* first = host.FindPanel("Test Panel")->container;
    toggle();
    EXPECT_EQ(host.FindPanel("Test Panel")->container, first);
    toggle();
    EXPECT_EQ(host.FindPanel("Test Panel")->created, 1);

    host.Options().closedPanel = ClosedPanel::destroysView;
    toggle();
    EXPECT_EQ(host.FindPanel("Test Panel")->container, nullptr);
    toggle();
    EXPECT_NE(host.FindPanel("Test Panel")->container, first);
    EXPECT_THAT(plugin.events, ElementsAre("create", "create"));
}

TEST_F(Panels, APanelCanBeRestoredBehindAnotherTab)
{
    (void)host.SetPanelState("Test Panel", PanelState::behind);
    EXPECT_THAT(plugin.events, ElementsAre("create"));
    EXPECT_EQ(isShown(), "1 0");
    host.Options().tabBehind = TabBehind::isNotShown;
    EXPECT_EQ(isShown(), "0 0");
}

TEST_F(Panels, APanelThatNobodyRegisteredIsReported)
{
    const auto* nobody = reinterpret_cast<const unsigned char*>("Nobody");
    inHook([&](Client& client) { EXPECT_NE(client.Call(panelSuite, 1, 3, nobody), errNone); });
    EXPECT_THAT(FindingsOf(host), ElementsAre("unknown-panel in Panel 1 AEGP_ToggleVisibility(\"Nobody\")"));
}

class RecordingProvider : public ContainerProvider
{
public:
    void* MakeContainer(const std::string& name) override
    {
        events.push_back("make " + name);
        return this;
    }
    void DestroyContainer(void*) override { events.push_back("destroy"); }
    void ShowContainer(void*, Visibility visibility) override
    {
        events.push_back(visibility == Visibility::visible ? "show" : "hide");
    }
    std::vector<std::string> events;
};

TEST_F(Panels, ContainersComeFromTheProvider)
{
    RecordingProvider provider;
    host.SetContainerProvider(&provider);
    toggle();
    (void)host.SetPanelState("Test Panel", PanelState::behind);
    toggle();
    toggle();
    host.Quit();
    EXPECT_THAT(provider.events, ElementsAre("make Test Panel", "show", "hide", "show", "hide", "destroy"));
    host.SetContainerProvider(nullptr);
}
} // namespace
} // namespace standin
