// The rename editor and the keys that it needs.

#include "tests/x11/support/PanelInHost.h"

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Rename : public PanelInHost
{
protected:
    Rename()
    {
        Open();
        ClickInto(Row(2));
        PressKey("Return");
        IdleFor(50ms);
    }

    std::string nameOfB() { return host.NameOf("b"); }
    bool isNamed(const std::string& name)
    {
        return IdleUntil([&] { return nameOfB() == name; });
    }
};
} // namespace

TEST_F(Rename, TakesLettersAndReturn)
{
    TypeText("new 7");
    PressKey("Return");
    EXPECT_TRUE(isNamed("new 7")) << nameOfB();
    IdleFor(50ms);
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, HappensInOneIdleInterval)
{
    PressKey("Escape");
    IdleFor(50ms);
    Click(Row(3));
    PressKey("Return");
    TypeText("quick");
    PressKey("Return");
    EXPECT_TRUE(IdleUntil([this] { return host.NameOf("c") == "quick"; })) << host.NameOf("c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesKeypadEnter)
{
    TypeText("pad");
    PressKey("KP_Enter");
    EXPECT_TRUE(isNamed("pad"));
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesItsOwnEditingKeys)
{
    TypeText("abc");
    for (const char* key : {"Left", "Left", "BackSpace", "Delete", "Home"})
        PressKey(key);
    TypeText("z");
    PressKey("End");
    TypeText("q");
    PressKey("Return");
    EXPECT_TRUE(isNamed("zcq")) << nameOfB();
    EXPECT_EQ(Stack(), "a b c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesTheEditingKeysForItsText)
{
    TypeText("ab");
    PressKey("Control+a");
    PressKey("Control+x");
    PressKey("Control+v");
    PressKey("Control+v");
    IdleFor(50ms);
    PressKey("Return");
    EXPECT_TRUE(isNamed("abab")) << nameOfB();
    for (const auto& key : window.TakeKeys())
        EXPECT_THAT(key, testing::HasSubstr("Control_L"));
}

TEST_F(Rename, TakesShiftedLetters)
{
    PressKey("Shift+n");
    TypeText("ew");
    PressKey("Return");
    EXPECT_TRUE(isNamed("New")) << nameOfB();
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Shift_L", "-shift+Shift_L"));
}

TEST_F(Rename, EndsByEscapeUnseenByTheHost)
{
    TypeText("never");
    PressKey("Escape");
    IdleFor(100ms);
    EXPECT_EQ(nameOfB(), "b");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    PressKey("Escape");
    ExpectKeys({"+Escape", "-Escape"});
}

TEST_F(Rename, LeavesOtherKeysToTheHost)
{
    PressKey("F5");
    PressKey("Alt+F4");
    PressKey("Super+a");
    ExpectKeys({"+F5", "-F5", "+Alt_L", "+alt+F4", "-alt+F4", "-alt+Alt_L", "+Super_L", "+super+a",
                "-super+a", "-super+Super_L"});
    TypeText("on");
    PressKey("Return");
    EXPECT_TRUE(isNamed("on")) << nameOfB();
}

TEST_F(Rename, GoesOnAfterTabWhichTheHostGets)
{
    PressKey("Tab");
    ExpectKeys({"+Tab", "-Tab"});
    TypeText("on");
    PressKey("Return");
    EXPECT_TRUE(isNamed("on")) << nameOfB();
}

TEST_F(Rename, StaysOpenOverAClickOnTheHost)
{
    TypeText("held");
    IdleFor(50ms);
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    TypeText("host");
    ExpectKeys({"+h", "-h", "+o", "-o", "+s", "-s", "+t", "-t"});
    EXPECT_EQ(nameOfB(), "b");
    ClickInto({Row(2).x + 40, Row(2).y});
    PressKey("Return");
    EXPECT_TRUE(isNamed("held")) << nameOfB();
}

TEST_F(Rename, LeavesTheTreeItsKeysAfterRowClicks)
{
    TypeText("held");
    IdleFor(50ms);
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    ClickInto(Row(3));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a b"; })) << Stack();
    EXPECT_EQ(nameOfB(), "b");
}

TEST_F(Rename, IsForgottenWhenThePanelIsReplaced)
{
    TypeText("gone");
    IdleFor(50ms);
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    Settle();
    EXPECT_EQ(nameOfB(), "b");
    EXPECT_TRUE(HostHasFocus());
    ClickInto(Row(2));
    PressKey("Return");
    TypeText("next");
    PressKey("Return");
    EXPECT_TRUE(isNamed("next"));
}
