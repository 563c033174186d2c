// Which keys are the tree's and which are the host's while the panel holds the keyboard.

#include "tests/x11/support/PanelInHost.h"

#include <map>
#include <tuple>

using namespace standin;
using testing::ElementsAre;
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

    /// What the key writes, and what the host gets of it.
    std::string write(const std::vector<std::string>& modifiers, const std::string& key)
    {
        return OutputOf(
            [&]
            {
                TypeWith(modifiers, key);
                IdleFor(30);
            });
    }

    void expectAtHost(const std::vector<std::string>& modifiers, const std::string& key,
                      const std::vector<std::string>& atHost)
    {
        expectAtHostAfter("Key Pressed\n", modifiers, key, atHost);
    }

    /// The same for a key about which the panel writes these lines.
    void expectAtHostAfter(const std::string& written, const std::vector<std::string>& modifiers,
                           const std::string& key, const std::vector<std::string>& atHost)
    {
        EXPECT_EQ(write(modifiers, key), written) << key;
        EXPECT_EQ(window.TakeKeys(), atHost);
        EXPECT_EQ(Stack(), "a b c");
        EXPECT_TRUE(PanelHasFocus());
    }
};
} // namespace

TEST_F(Keys, DeleteIsTheTrees)
{
    EXPECT_EQ(write({}, "Delete").substr(0, 31), "Delete Key Pressed\nKey Pressed\n");
    EXPECT_EQ(Stack(), "a c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, BackSpaceIsTheTrees)
{
    EXPECT_EQ(write({}, "BackSpace").substr(0, 31), "Delete Key Pressed\nKey Pressed\n");
    EXPECT_EQ(Stack(), "a c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, DeleteWithNothingSelectedIsTheTreesAllTheSame)
{
    ClickInto(PanelBackground());
    EXPECT_EQ(write({}, "Delete"), "Delete Key Pressed\nKey Pressed\n");
    EXPECT_EQ(Stack(), "a b c");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, ReturnAndKeypadEnterAreTheTrees)
{
    for (const char* key : {"Return", "KP_Enter"})
    {
        EXPECT_EQ(write({}, key), "Return Key Pressed\nKey Pressed\nReturn Key Pressed\nEdit Button\n");
        EXPECT_EQ(write({}, "Escape"), "");
    }
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, ReturnWithNothingSelectedIsTheTreesAllTheSame)
{
    ClickInto(PanelBackground());
    EXPECT_EQ(write({}, "Return"), "Return Key Pressed\nKey Pressed\nReturn Key Pressed\nEdit Button\n");
    EXPECT_THAT(window.TakeKeys(), IsEmpty());
}

TEST_F(Keys, GroupsThatTheTreeHasNoUseForAreNotTheHosts)
{
    const std::tuple<std::string, std::string, std::string> groups[] = {
        {"Control_L", "Delete", "Delete Key Pressed\n"},   {"Shift_L", "Delete", "Delete Key Pressed\n"},
        {"Alt_L", "BackSpace", "Delete Key Pressed\n"},    {"Shift_L", "Return", "Return Key Pressed\n"},
        {"Control_L", "Return", "Return Key Pressed\n"},   {"Alt_L", "KP_Enter", "Return Key Pressed\n"},
        {"Control_L", "KP_Delete", "Delete Key Pressed\n"}};
    for (const auto& [modifier, key, line] : groups)
    {
        ClickInto(PanelBackground());
        EXPECT_THAT(write({modifier}, key), HasSubstr(line)) << modifier << " " << key;
        EXPECT_THAT(window.TakeKeys(), testing::Each(HasSubstr(modifier))) << modifier << " " << key;
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
        EXPECT_THAT(write({"Control_L", "Alt_L"}, key), HasSubstr(line));
        EXPECT_THAT(window.TakeKeys(),
                    ElementsAre("+Control_L", "+ctrl+Alt_L", "-ctrl+alt+Alt_L", "-ctrl+Control_L"));
    }
}

TEST_F(Keys, CutCopyPasteAndSelectAllAreTheTrees)
{
    const std::map<std::string, std::string> lines = {
        {"x", "Command Key Pressed\nCmd X Pressed\nKey Pressed\nCut Button\n"},
        {"c", "Command Key Pressed\nCmd C Pressed\nKey Pressed\nCopy Button\n"},
        {"v", "Command Key Pressed\nCmd v Pressed\nKey Pressed\nPaste Button\n"},
        {"a", "Command Key Pressed\nCmd a Pressed\nKey Pressed\nSelect All Button\n"}};
    for (const auto& [key, written] : lines)
    {
        EXPECT_EQ(write({"Control_L"}, key).substr(0, written.size()), written);
        EXPECT_THAT(window.TakeKeys(), ElementsAre("+Control_L", "-ctrl+Control_L")) << key;
    }
    EXPECT_EQ(Stack(), "a b c");
}

TEST_F(Keys, SelectAllIsNotDoneByCtrlAWhileTheTreeIsEmpty)
{
    host.User().SelectLayers({});
    Settle();
    EXPECT_THAT(write({"Control_L"}, "a"), HasSubstr("Select All Button\n"));
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Control_L", "-ctrl+Control_L"));
}

TEST_F(Keys, GroupsStayTheTreesWithLockKeysDown)
{
    for (const char* lock : {"Caps_Lock", "Num_Lock"})
    {
        Type(lock);
        EXPECT_THAT(write({"Control_L"}, "c"), HasSubstr("Cmd C Pressed\nKey Pressed\nCopy Button\n"))
            << lock;
        Type(lock);
        IdleFor(20);
        (void)window.TakeKeys();
    }
    Type("Caps_Lock");
    EXPECT_THAT(write({}, "Delete"), HasSubstr("Key Pressed\n"));
    Type("Caps_Lock");
    EXPECT_EQ(Stack(), "a c");
}

TEST_F(Keys, KeysWithoutAnEffectInTheTreeAreTheHosts)
{
    expectAtHost({}, "F5", {"+F5", "-F5"});
    expectAtHost({}, "q", {"+q", "-q"});
    expectAtHost({}, "x", {"+x", "-x"});
    expectAtHost({}, "space", {"+space", "-space"});
    expectAtHost({}, "Escape", {"+Escape", "-Escape"});
    expectAtHost({}, "Tab", {"+Tab", "-Tab"});
    expectAtHost({}, "Insert", {"+Insert", "-Insert"});
    expectAtHostAfter("", {}, "KP_5", {"+KP_Begin", "-KP_Begin"});
    expectAtHostAfter("", {}, "Shift_R", {"+Shift_R", "-shift+Shift_R"});
    expectAtHostAfter("", {}, "Control_L", {"+Control_L", "-ctrl+Control_L"});
}

TEST_F(Keys, KeysWithOtherModifiersAreTheHosts)
{
    expectAtHostAfter("Command Key Pressed\nKey Pressed\n", {"Control_L", "Shift_L"}, "c",
                      {"+Control_L", "+ctrl+Shift_L", "+ctrl+shift+C", "-ctrl+shift+C", "-ctrl+shift+Shift_L",
                       "-ctrl+Control_L"});
    expectAtHost({"Alt_L"}, "q", {"+Alt_L", "+alt+q", "-alt+q", "-alt+Alt_L"});
    expectAtHostAfter("", {"Super_L"}, "a", {"+Super_L", "+super+a", "-super+a", "-super+Super_L"});
    expectAtHostAfter("", {"Super_L"}, "Delete",
                      {"+Super_L", "+super+Delete", "-super+Delete", "-super+Super_L"});
    expectAtHostAfter("", {"Control_L", "Super_L"}, "c",
                      {"+Control_L", "+ctrl+Super_L", "+ctrl+super+c", "-ctrl+super+c", "-ctrl+super+Super_L",
                       "-ctrl+Control_L"});
    expectAtHostAfter("Command Key Pressed\nKey Pressed\n", {"Control_L"}, "z",
                      {"+Control_L", "+ctrl+z", "-ctrl+z", "-ctrl+Control_L"});
}

TEST_F(Keys, KeysThatMoveTheSelectionAreTheHostsToo)
{
    for (const std::string key : {"Up", "Down", "Left", "Right", "Home", "End", "Prior", "Next"})
        expectAtHostAfter("Key Pressed\nState Changed\n", {}, key, {"+" + key, "-" + key});
}

TEST_F(Keys, ArrowsMoveTheSelectionInTheTree)
{
    (void)write({}, "Down");
    (void)write({}, "Delete");
    EXPECT_EQ(Stack(), "a b");
}

TEST_F(Keys, ReachTheHostWithTheirLockState)
{
    Type("Caps_Lock");
    Type("Num_Lock");
    IdleFor(20);
    (void)window.TakeKeys();
    expectAtHost({}, "q", {"+caps+num+Q", "-caps+num+Q"});
    expectAtHost({}, "KP_5", {"+caps+num+KP_5", "-caps+num+KP_5"});
    Type("Num_Lock");
    Type("Caps_Lock");
}

TEST_F(Keys, ReachTheHostAsEventsOfItsOwnWindowWithTheirTime)
{
    const unsigned long before = window.ServerTime();
    Type("F5");
    const unsigned long after = window.ServerTime();
    IdleFor(50);
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+F5", "-F5"));
    EXPECT_EQ(window.LastKeyWindow(), window.TopWindow());
    EXPECT_GE(window.LastKeyTime(), before);
    EXPECT_LE(window.LastKeyTime(), after);
}

TEST_F(Keys, ReachTheHostWindowThatHadTheKeyboardOrTheFirstAroundItThatWantsKeys)
{
    const unsigned long field = window.MakeField();
    window.SetFocus(field);
    IdleFor(20);
    ClickInto(Row(2));
    expectAtHost({}, "F5", {"+F5", "-F5"});
    EXPECT_EQ(window.LastKeyWindow(), window.TopWindow());
    window.SelectKeysOn(field);
    expectAtHost({}, "F6", {"+F6", "-F6"});
    EXPECT_EQ(window.LastKeyWindow(), field);
}

TEST_F(Keys, AKeyThatWentDownInTheHostComesUpInTheHost)
{
    window.SetFocus(window.TopWindow());
    IdleFor(20);
    user.keyDown("Delete");
    IdleFor(20);
    ClickInto(Row(2));
    user.keyUp("Delete");
    IdleFor(30);
    EXPECT_EQ(Stack(), "a b c");
    const auto keys = window.TakeKeys();
    EXPECT_THAT(keys, testing::Contains("+Delete"));
    EXPECT_EQ(keys.back(), "-Delete");
}

TEST_F(Keys, AKeyThatIsHeldDownRepeatsWhereItIsUsed)
{
    ClickInto(Row(1));
    user.repeatHeldKeys();
    user.keyDown("F5");
    EXPECT_TRUE(IdleUntil([this] { return window.CountOf("+F5") >= 3; }));
    user.keyUp("F5");
    IdleFor(30);
    const auto keys = window.TakeKeys();
    EXPECT_EQ(std::count(keys.begin(), keys.end(), "+F5"), std::count(keys.begin(), keys.end(), "-F5"));
}

TEST_F(Keys, AClickAndAKeyInOneIdleIntervalActInTheirOrder)
{
    Click(Row(3));
    Type("Delete");
    IdleFor(50);
    EXPECT_EQ(Stack(), "a b");
    // The rebuild has brought the selection back that was there before: "b".
    Type("Delete");
    Click(Row(1));
    IdleFor(50);
    EXPECT_EQ(Stack(), "a");
    Type("F5");
    Click(HostArea());
    Type("Delete");
    IdleFor(50);
    EXPECT_EQ(Stack(), "a");
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+F5", "-F5", "+Delete", "-Delete"));
}

TEST_F(Keys, GroupsReachTheTreeAfterAClickOnAToolbarButton)
{
    Click(Button(3));
    IdleFor(50);
    TypeWith({"Control_L"}, "a");
    IdleFor(30);
    Type("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack().empty(); })) << Stack();
    EXPECT_THAT(window.TakeKeys(), ElementsAre("+Control_L", "-ctrl+Control_L"));
}

TEST_F(Keys, WorkOnAfterTheKeyboardMapHasChanged)
{
    window.ChangeKeyboardMap();
    IdleFor(20);
    expectAtHost({}, "F5", {"+F5", "-F5"});
    (void)write({}, "Delete");
    EXPECT_EQ(Stack(), "a c");
}
