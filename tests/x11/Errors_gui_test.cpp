// X errors: those of the panel reach no handler, those of the host reach the host.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;

namespace
{
class Errors : public PanelInHost
{
protected:
    Errors() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

using ErrorsDeathTest = Errors;
} // namespace

// Xlib's own handler ends the program at the first error.
TEST_F(ErrorsDeathTest, DoNotEndAHostWithoutAHandler)
{
    EXPECT_EXIT(
        {
            PlainHost::UseDefaultErrorHandler();
            Open();
            ClickInto(Row(2));
            OpenGeometryMenu();
            window.Destroy();
            IdleFor(300ms);
            (void)CreateAgain(window.MakeContainer(panelName));
            Settle();
            ClickInto(PanelBackground());
            window.Resize(1, 1);
            IdleFor(50ms);
            window.DestroyPanelWindow();
            IdleFor(50ms);
            window.Resize(PlainHost::panelWidth, PlainHost::panelHeight);
            (void)CreateAgain(reinterpret_cast<void*>(window.Container()));
            Settle();
            OpenGeometryMenu();
            window.Destroy();
            Die();
            std::_Exit(HasFailure() ? 1 : 0);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(Errors, OfTheHostReachItInsideHooks)
{
    window.SetWhileMakingContainer([this] { window.MakeAnError(); });
    EXPECT_TRUE(host.ChooseMenuItem(panelName));
    EXPECT_NE(window.PanelWindow(), 0u) << "the container was made inside the command hook";
    EXPECT_EQ(window.TakeErrors(), 1);
    window.MakeAnError();
    EXPECT_EQ(window.TakeErrors(), 1);
}

TEST_F(Errors, OfThePanelDoNotReachTheHost)
{
    Open();
    ClickInto(Row(2));
    window.Destroy();
    IdleFor(200ms);
    EXPECT_EQ(window.TakeErrors(), 0);
    EXPECT_TRUE(window.HasItsErrorHandler());
}

TEST_F(Errors, LeaveTheHostsHandlerSetInsideAHook)
{
    window.SetWhileMakingContainer([] { PlainHost::SetOtherErrorHandler(); });
    EXPECT_TRUE(host.ChooseMenuItem(panelName));
    EXPECT_TRUE(PlainHost::HasOtherErrorHandler());
    Idle();
    EXPECT_TRUE(PlainHost::HasOtherErrorHandler());
    window.UseOwnErrorHandler();
}
