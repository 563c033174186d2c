// Whose the keyboard is, and where each key goes.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Keyboard : public PanelInHost
{
protected:
    Keyboard() { Open(); }
};
} // namespace

TEST_F(Keyboard, IsNotTakenWhenThePanelIsCreated)
{
    window.SetFocus(window.TopWindow());
    IdleFor(100);
    EXPECT_TRUE(HostHasFocus());
    Type("Delete");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Delete", "-Delete"));
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(Keyboard, IsTakenByAClickInside)
{
    ClickInto(Row(2));
    Type("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; })) << Stack();
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}
