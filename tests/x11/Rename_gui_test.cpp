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
        Type("Return");
        IdleFor(50);
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
    user.type("new 7");
    Type("Return");
    EXPECT_TRUE(isNamed("new 7")) << nameOfB();
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesAClickReturnLettersAndReturnInOneIdleInterval)
{
    Type("Escape");
    IdleFor(50);
    Click(Row(3));
    Type("Return");
    user.type("quick");
    Type("Return");
    EXPECT_TRUE(IdleUntil([this] { return host.NameOf("c") == "quick"; })) << host.NameOf("c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesKeypadEnter)
{
    user.type("pad");
    Type("KP_Enter");
    EXPECT_TRUE(isNamed("pad"));
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesItsOwnEditingKeys)
{
    user.type("abc");
    for (const char* key : {"Left", "Left", "BackSpace", "Delete", "Home"})
        Type(key);
    user.type("z");
    Type("End");
    user.type("q");
    Type("Return");
    EXPECT_TRUE(isNamed("zcq")) << nameOfB();
    EXPECT_EQ(Stack(), "a b c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Rename, TakesCutCopyPasteAndSelectAllForItsText)
{
    user.type("ab");
    TypeWith({"Control_L"}, "a");
    TypeWith({"Control_L"}, "x");
    TypeWith({"Control_L"}, "v");
    TypeWith({"Control_L"}, "v");
    IdleFor(50);
    Type("Return");
    EXPECT_TRUE(isNamed("abab")) << nameOfB();
    for (const auto& key : window.TakeKeys())
        EXPECT_THAT(key, testing::HasSubstr("Control_L"));
}

TEST_F(Rename, TakesShiftedLetters)
{
    TypeWith({"Shift_L"}, "n");
    user.type("ew");
    Type("Return");
    EXPECT_TRUE(isNamed("New")) << nameOfB();
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Shift_L", "-shift+Shift_L"));
}

TEST_F(Rename, IsLeftByEscapeWhichTheHostDoesNotGet)
{
    user.type("never");
    Type("Escape");
    IdleFor(100);
    EXPECT_EQ(nameOfB(), "b");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
    Type("Escape");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Escape", "-Escape"));
}

TEST_F(Rename, LeavesOtherKeysToTheHost)
{
    Type("F5");
    TypeWith({"Alt_L"}, "F4");
    TypeWith({"Super_L"}, "a");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+F5", "-F5", "+Alt_L", "+alt+F4", "-alt+F4", "-alt+Alt_L",
                                               "+Super_L", "+super+a", "-super+a", "-super+Super_L"));
    user.type("on");
    Type("Return");
    EXPECT_TRUE(isNamed("on")) << nameOfB();
}

TEST_F(Rename, GoesOnAfterTabWhichTheHostGets)
{
    Type("Tab");
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Tab", "-Tab"));
    user.type("on");
    Type("Return");
    EXPECT_TRUE(isNamed("on")) << nameOfB();
}

TEST_F(Rename, StaysOpenOverAClickOnTheHost)
{
    user.type("held");
    IdleFor(50);
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    user.type("host");
    IdleFor(50);
    EXPECT_EQ(window.TakeKeys().size(), 8u);
    EXPECT_EQ(nameOfB(), "b");
    ClickInto({Row(2).x + 40, Row(2).y});
    Type("Return");
    EXPECT_TRUE(isNamed("held")) << nameOfB();
}

TEST_F(Rename, LeavesTheKeysToTheTreeAfterAClickOnAnotherRow)
{
    user.type("held");
    IdleFor(50);
    Click(HostArea());
    EXPECT_TRUE(IdleUntil([this] { return HostHasFocus(); }));
    ClickInto(Row(3));
    Type("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a b"; })) << Stack();
    EXPECT_EQ(nameOfB(), "b");
}

TEST_F(Rename, IsForgottenWhenThePanelIsReplaced)
{
    user.type("gone");
    IdleFor(50);
    EXPECT_EQ(CreateAgain(reinterpret_cast<void*>(window.Container())).thrown, "");
    Settle();
    EXPECT_EQ(nameOfB(), "b");
    EXPECT_TRUE(HostHasFocus());
    ClickInto(Row(2));
    Type("Return");
    user.type("next");
    Type("Return");
    EXPECT_TRUE(isNamed("next"));
}
