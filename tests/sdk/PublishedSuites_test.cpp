// The suites that the built bundle publishes, as the kit's declarations have them.

#include "sdk/VortanFamily.h"

#include "standin/host/bundle/Bundle.h"
#include "standin/host/family/KeptSuites.h"

#include <gtest/gtest.h>

namespace
{
TEST(PublishedSuites, AreHadByNameAndVersion)
{
    standin::Host host;
    const standin::Bundle bundle(VORTAN_BUNDLE);
    bundle.LoadAll(host);
    const auto* basicSuite = static_cast<const VortanBasicSuite*>(host.BasicSuite());
    (void)host.RunInHook(
        [&]
        {
            const VortanIdleSuite* idle = VortanAcquireIdleSuite(basicSuite);
            const VortanPanelSuite* panel = VortanAcquirePanelSuite(basicSuite);
            ASSERT_NE(idle, nullptr);
            ASSERT_NE(panel, nullptr);
            EXPECT_NE(idle->ref, nullptr);
            EXPECT_EQ(panel->RefreshPanel(panel->panelRef), 0);
            EXPECT_EQ(panel->PanelNotify(panel->panelRef, "hello"), 0);
            EXPECT_EQ(host.SuiteCount(VORTAN_IDLE_SUITE_NAME, VORTAN_IDLE_SUITE_VERSION), 1);
            VortanReleaseIdleSuite(basicSuite);
            VortanReleasePanelSuite(basicSuite);
        });
    EXPECT_EQ(host.SuiteCount(VORTAN_IDLE_SUITE_NAME, VORTAN_IDLE_SUITE_VERSION), 0);
    EXPECT_EQ(host.SuiteCount(VORTAN_PANEL_SUITE_NAME, VORTAN_PANEL_SUITE_VERSION), 0);
    ExpectKeptSuites(host);
    host.Quit();
    standin::Bundle::KeepMemoryOf(host);
    EXPECT_EQ(host.FindingsReport(), "");
}
} // namespace
