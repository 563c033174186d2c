// Which keys are the tree's and which are the host's while the panel holds the keyboard.

#include "tests/x11/support/PanelInHost.h"

#include <map>
#include <tuple>

using namespace standin;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{
class Keys : public PanelInHost
{
protected:
    Keys()
    {
        Open();
        ClickInto(Row(2));
        (void)window.TakeKeys();
    }

    /// What the key writes: this text has to come, and what comes a little later belongs to it.
    std::string write(const std::string& key, const std::string& awaited = "Key Pressed\n")
    {
        static constexpr auto noMoreComes = 30ms;
        const std::string output = OutputUntil(awaited, [&] { PressKey(key); });
        return output + OutputOf([this] { IdleFor(noMoreComes); });
    }

    void expectStack(const std::string& stack)
    {
        EXPECT_TRUE(IdleUntil([&] { return Stack() == stack; })) << Stack();
    }

    void expectAtHost(const std::string& key, const std::vector<std::string>& atHost)
    {
        expectAtHostAfter("Key Pressed\n", key, atHost);
    }

    /// The same for a key about which the panel writes these lines.
    void expectAtHostAfter(const std::string& written, const std::string& key,
                           const std::vector<std::string>& atHost)
    {
        EXPECT_EQ(write(key, written), written) << key;
        ExpectKeys(atHost);
        EXPECT_EQ(Stack(), "a b c");
        EXPECT_TRUE(PanelHasFocus());
    }
};
} // namespace

TEST_F(Keys, DeleteIsTheTrees)
{
    EXPECT_EQ(write("Delete").substr(0, 31), "Delete Key Pressed\nKey Pressed\n");
    expectStack("a c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, BackSpaceIsTheTrees)
{
    EXPECT_EQ(write("BackSpace").substr(0, 31), "Delete Key Pressed\nKey Pressed\n");
    expectStack("a c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, DeleteWithoutSelectionIsTheTrees)
{
    ClickInto(PanelBackground());
    EXPECT_EQ(write("Delete"), "Delete Key Pressed\nKey Pressed\n");
    EXPECT_EQ(Stack(), "a b c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, ReturnAndKeypadEnterAreTheTrees)
{
    for (const char* key : {"Return", "KP_Enter"})
    {
        EXPECT_EQ(write(key, "Edit Button\n"),
                  "Return Key Pressed\nKey Pressed\nReturn Key Pressed\nEdit Button\n");
        EXPECT_EQ(write("Escape", ""), "");
    }
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, ReturnWithoutSelectionIsTheTrees)
{
    ClickInto(PanelBackground());
    EXPECT_EQ(write("Return", "Edit Button\n"),
              "Return Key Pressed\nKey Pressed\nReturn Key Pressed\nEdit Button\n");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, UnusedGroupKeysAreNotTheHosts)
{
    const std::tuple<std::string, std::string, std::string> groups[] = {
        {"Control", "Delete", "Delete Key Pressed\n"},   {"Shift", "Delete", "Delete Key Pressed\n"},
        {"Alt", "BackSpace", "Delete Key Pressed\n"},    {"Shift", "Return", "Return Key Pressed\n"},
        {"Control", "Return", "Return Key Pressed\n"},   {"Alt", "KP_Enter", "Return Key Pressed\n"},
        {"Control", "KP_Delete", "Delete Key Pressed\n"}};
    for (const auto& [modifier, key, line] : groups)
    {
        ClickInto(PanelBackground());
        EXPECT_THAT(write(modifier + "+" + key, line), HasSubstr(line)) << modifier << " " << key;
        EXPECT_THAT(window.TakeKeys(), testing::Each(HasSubstr(modifier + "_L"))) << modifier << " " << key;
    }
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(Keys, CommandGroupsWithAltAreNotTheHosts)
{
    const std::map<std::string, std::string> lines = {{"x", "Command Key Pressed\nCmd X Pressed\n"},
                                                      {"c", "Command Key Pressed\nCmd C Pressed\n"},
                                                      {"v", "Command Key Pressed\nCmd v Pressed\n"},
                                                      {"a", "Command Key Pressed\nCmd a Pressed\n"}};
    for (const auto& [key, line] : lines)
    {
        EXPECT_THAT(write("Control+Alt+" + key, line), HasSubstr(line));
        ExpectKeys({"+Control_L", "+ctrl+Alt_L", "-ctrl+alt+Alt_L", "-ctrl+Control_L"});
    }
}

TEST_F(Keys, CutCopyPasteSelectAllAreTheTrees)
{
    const std::map<std::string, std::string> lines = {
        {"x", "Command Key Pressed\nCmd X Pressed\nKey Pressed\nCut Button\n"},
        {"c", "Command Key Pressed\nCmd C Pressed\nKey Pressed\nCopy Button\n"},
        {"v", "Command Key Pressed\nCmd v Pressed\nKey Pressed\nPaste Button\n"},
        {"a", "Command Key Pressed\nCmd a Pressed\nKey Pressed\nSelect All Button\n"}};
    for (const auto& [key, written] : lines)
    {
        EXPECT_EQ(write("Control+" + key, written).substr(0, written.size()), written);
        ExpectKeys({"+Control_L", "-ctrl+Control_L"});
    }
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(Keys, CtrlASelectsNothingInAnEmptyTree)
{
    host.User().SelectLayers({});
    Settle();
    EXPECT_THAT(write("Control+a", "Select All Button\n"), HasSubstr("Select All Button\n"));
    ExpectKeys({"+Control_L", "-ctrl+Control_L"});
}

TEST_F(Keys, GroupsStayTheTreesWithLockKeysDown)
{
    for (const char* lock : {"Caps_Lock", "Num_Lock"})
    {
        PressKey(lock);
        EXPECT_THAT(write("Control+c", "Copy Button\n"),
                    HasSubstr("Cmd C Pressed\nKey Pressed\nCopy Button\n"))
            << lock;
        PressKey(lock);
        IdleFor(20ms);
        (void)window.TakeKeys();
    }
    PressKey("Caps_Lock");
    EXPECT_THAT(write("Delete"), HasSubstr("Key Pressed\n"));
    PressKey("Caps_Lock");
    expectStack("a c");
}

TEST_F(Keys, KeysUnusedByTheTreeAreTheHosts)
{
    expectAtHost("F5", {"+F5", "-F5"});
    expectAtHost("q", {"+q", "-q"});
    expectAtHost("x", {"+x", "-x"});
    expectAtHost("space", {"+space", "-space"});
    expectAtHost("Escape", {"+Escape", "-Escape"});
    expectAtHost("Tab", {"+Tab", "-Tab"});
    expectAtHost("Insert", {"+Insert", "-Insert"});
    expectAtHostAfter("", "KP_5", {"+KP_Begin", "-KP_Begin"});
    expectAtHostAfter("", "Shift_R", {"+Shift_R", "-shift+Shift_R"});
    expectAtHostAfter("", "Control_L", {"+Control_L", "-ctrl+Control_L"});
}

TEST_F(Keys, KeysWithOtherModifiersAreTheHosts)
{
    expectAtHostAfter("Command Key Pressed\nKey Pressed\n", "Control+Shift+c",
                      {"+Control_L", "+ctrl+Shift_L", "+ctrl+shift+C", "-ctrl+shift+C", "-ctrl+shift+Shift_L",
                       "-ctrl+Control_L"});
    expectAtHost("Alt+q", {"+Alt_L", "+alt+q", "-alt+q", "-alt+Alt_L"});
    expectAtHostAfter("", "Super+a", {"+Super_L", "+super+a", "-super+a", "-super+Super_L"});
    expectAtHostAfter("", "Super+Delete", {"+Super_L", "+super+Delete", "-super+Delete", "-super+Super_L"});
    expectAtHostAfter("", "Control+Super+c",
                      {"+Control_L", "+ctrl+Super_L", "+ctrl+super+c", "-ctrl+super+c", "-ctrl+super+Super_L",
                       "-ctrl+Control_L"});
    expectAtHostAfter("Command Key Pressed\nKey Pressed\n", "Control+z",
                      {"+Control_L", "+ctrl+z", "-ctrl+z", "-ctrl+Control_L"});
}

TEST_F(Keys, KeysMovingTheSelectionAreTheHosts)
{
    for (const std::string key : {"Up", "Down", "Left", "Right", "Home", "End", "Prior", "Next"})
        expectAtHostAfter("Key Pressed\nState Changed\n", key, {"+" + key, "-" + key});
}

TEST_F(Keys, ArrowsMoveTheSelectionInTheTree)
{
    (void)write("Down");
    (void)write("Delete");
    EXPECT_EQ(Stack(), "a b");
}

TEST_F(Keys, ReachTheHostWithTheirLockState)
{
    PressKey("Caps_Lock");
    PressKey("Num_Lock");
    IdleFor(20ms);
    (void)window.TakeKeys();
    expectAtHost("q", {"+caps+num+Q", "-caps+num+Q"});
    expectAtHost("KP_5", {"+caps+num+KP_5", "-caps+num+KP_5"});
    PressKey("Num_Lock");
    PressKey("Caps_Lock");
}

TEST_F(Keys, ReachTheHostWithWindowAndTime)
{
    const unsigned long before = window.ServerTime();
    PressKey("F5");
    const unsigned long after = window.ServerTime();
    ExpectKeys({"+F5", "-F5"});
    EXPECT_EQ(window.LastKeyWindow(), window.Frame());
    EXPECT_GE(window.LastKeyTime(), before);
    EXPECT_LE(window.LastKeyTime(), after);
}

TEST_F(Keys, ReachTheHostWindowThatWantsThem)
{
    const unsigned long field = window.MakeField();
    window.SetFocus(field);
    IdleFor(20ms);
    ClickInto(Row(2));
    expectAtHost("F5", {"+F5", "-F5"});
    EXPECT_EQ(window.LastKeyWindow(), window.Frame());
    window.SelectKeysOn(field);
    expectAtHost("F6", {"+F6", "-F6"});
    EXPECT_EQ(window.LastKeyWindow(), field);
}

TEST_F(Keys, KeysPressedInTheHostAreReleasedThere)
{
    window.SetFocus(window.Frame());
    IdleFor(20ms);
    hands.keyDown("Delete");
    IdleFor(20ms);
    ClickInto(Row(2));
    hands.keyUp("Delete");
    EXPECT_TRUE(IdleUntil([this] { return window.CountOf("-Delete") == 1; }));
    EXPECT_EQ(Stack(), "a b c");
    const auto keys = window.TakeKeys();
    EXPECT_THAT(keys, testing::Contains("+Delete"));
    EXPECT_EQ(keys.back(), "-Delete");
}

TEST_F(Keys, AHeldKeyRepeatsWhereItIsUsed)
{
    ClickInto(Row(1));
    hands.repeatHeldKeys();
    hands.keyDown("F5");
    EXPECT_TRUE(IdleUntil([this] { return window.CountOf("+F5") >= 3; }));
    hands.keyUp("F5");
    EXPECT_TRUE(IdleUntil([this] { return window.CountOf("+F5") == window.CountOf("-F5"); }));
}

TEST_F(Keys, ClickAndKeyOfOneIdleKeepOrder)
{
    Click(Row(3));
    PressKey("Delete");
    expectStack("a b");
    // The rebuild has restored the former selection: "b".
    PressKey("Delete");
    Click(Row(1));
    expectStack("a");
    PressKey("F5");
    Click(HostArea());
    PressKey("Delete");
    ExpectKeys({"+F5", "-F5", "+Delete", "-Delete"});
    EXPECT_EQ(Stack(), "a");
}

TEST_F(Keys, GroupsReachTheTreeAfterAToolbarClick)
{
    Click(Button(3));
    Settle();
    (void)write("Control+a", "Select All Button\n");
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack().empty(); })) << Stack();
    ExpectKeys({"+Control_L", "-ctrl+Control_L"});
}

TEST_F(Keys, WorkOnAfterTheKeyboardMapHasChanged)
{
    window.ChangeKeyboardMap();
    IdleFor(20ms);
    expectAtHost("F5", {"+F5", "-F5"});
    (void)write("Delete");
    expectStack("a c");
}
