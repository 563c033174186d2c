// A session with the built bundle, on which the player and the checks are built.

#include "standin/user/WindowSession.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace standin
{
using namespace user;

namespace
{
TEST(Typing, AModifierThatThereIsNotIsRefused)
{
    EXPECT_EQ(ModifierKey("Control"), "Control_L");
    EXPECT_THROW((void)ModifierKey("Meta4"), std::runtime_error);
}

/// A process has one bundle, so that all of a bundle's life is one test.
TEST(Session, ShowsTheBundlesPanelAndItsOutput)
{
    WindowSession session(VORTAN_BUNDLE, DisplayChoice::own);
    session.host.AddComposition("Comp 1");
    const int layer = session.host.AddLayer(session.host.State().items.front().id);
    (void)session.host.AddEffect(layer, "QVK VORTSRC Lamps");
    session.host.User().SelectLayers({layer});
    session.TheBundle().LoadAll(session.host);
    EXPECT_EQ(session.host.FindPanel(Session::panelName)->container, nullptr);

    const auto before = session.PanelPicture().pixels;
    session.Forget();
    EXPECT_EQ(session.host.SetPanelState(Session::panelName, PanelState::frontmost).thrown, "");
    session.Settle();
    EXPECT_NE(session.PanelPicture().pixels, before);
    EXPECT_THAT(session.Printed(), Contains("State Changed"));
    EXPECT_THAT(session.Calls(), Contains("Panel 1 AEGP_IsShown(\"Vortan Object Panel\") -> 1, 1"));
    session.Forget();
    EXPECT_THAT(session.Printed(), IsEmpty());

    session.ClickHost();
    session.PressKey("Control+Shift+x");
    EXPECT_THAT(session.HostKeys(), ElementsAre("Control+Shift+x"));
    EXPECT_THAT(session.hands.popUps(), IsEmpty());
    EXPECT_FALSE(session.IdleUntil([] { return false; }, std::chrono::milliseconds(20)));

    session.End();
    EXPECT_EQ(session.host.FindingsReport(), "");
    EXPECT_EQ(session.TakeErrors(), 0);
}
} // namespace
} // namespace standin
