// Who has the keyboard after clicks and drags, as far as JUCE alone decides it.

#include "tests/tree/support/Erased.h"
#include "tests/tree/support/HeadlessHands.h"
#include "tree/Keyboard.h"

#include <gtest/gtest.h>

using namespace standin;

namespace
{
struct Focusable : juce::Component
{
    Focusable() { setWantsKeyboardFocus(true); }
};

/// Two components in a window.
class Focus : public HeadlessHands
{
protected:
    Focus()
    {
        parent.setSize(100, 100);
        parent.addAndMakeVisible(one);
        parent.addAndMakeVisible(two);
        twoInAWindow = std::make_unique<HeadlessWindow>(parent);
    }

    void click(juce::Component& component)
    {
        focus.gained(component, juce::Component::focusChangedByMouseClick);
    }

    /// As JUCE gives the focus to the component and tells it, which is the one called two in most tests.
    void give(juce::Component& component,
              juce::Component::FocusChangeType cause = juce::Component::focusChangedDirectly)
    {
        component.grabKeyboardFocus();
        focus.gained(component, cause);
    }

    static juce::Component* focused() { return juce::Component::getCurrentlyFocusedComponent(); }

    juce::Component parent;
    Focusable one;
    Focusable two;
    std::unique_ptr<HeadlessWindow> twoInAWindow;
    ClickFocus focus;
};

class DragEnd : public HeadlessHands
{
protected:
    DragEnd()
    {
        show({object(1, "a"), object(2, "b")});
        press({20, 30});
        juce::Component::unfocusAllComponents();
    }

    void releaseAndWait()
    {
        letGo();
        pump();
    }

    bool isTreeFocused() { return view().hasKeyboardFocus(true); }

    const juce::DragAndDropTarget::SourceDetails details{"Object", &view(), {}};
};
} // namespace

TEST_F(Focus, StaysWithWhatWasClicked)
{
    click(one);
    give(two);
    EXPECT_EQ(focused(), &one);
}

TEST_F(Focus, IsNotTakenByOtherCauses)
{
    for (const auto cause : {juce::Component::focusChangedByTabKey, juce::Component::focusChangedDirectly})
    {
        focus.gained(one, cause);
        give(two);
        EXPECT_EQ(focused(), &two);
    }
}

TEST_F(Focus, GoesWhereTheLastClickWent)
{
    click(one);
    click(two);
    give(two);
    EXPECT_EQ(focused(), &two);
    give(one);
    EXPECT_EQ(focused(), &two);
}

TEST_F(Focus, IsFreeOnceTheClickedOneHasLostIt)
{
    click(one);
    focus.lost(two);
    give(two);
    EXPECT_EQ(focused(), &one) << "another one's loss does not count";
    focus.lost(one);
    give(two);
    EXPECT_EQ(focused(), &two);
}

TEST_F(Focus, IsNotHeldByAHiddenComponent)
{
    click(one);
    one.setVisible(false);
    give(two);
    EXPECT_EQ(focused(), &two);
}

TEST_F(Focus, LeavesTheTreeForTheNameField)
{
    show({object(1, "a")});
    press(row("a").getItemPosition(true).getPosition() + juce::Point<int>(20, 10));
    letGo();
    ASSERT_TRUE(view().hasKeyboardFocus(false));
    (void)OutputOf([this] { (void)pressKey(juce::KeyPress(juce::KeyPress::returnKey)); });
    EXPECT_TRUE(view().renameEditor->hasKeyboardFocus(false));
}

TEST_F(Focus, LeavesTheClickedNameFieldForTheTree)
{
    show({object(1, "a")});
    select({"a"});
    (void)OutputOf([this] { (void)pressKey(juce::KeyPress(juce::KeyPress::returnKey)); });
    view().grabKeyboardFocus();
    press(view().renameEditor->getBounds().getCentre());
    letGo();
    ASSERT_TRUE(view().renameEditor->hasKeyboardFocus(false));
    bool isJuceTold = false;
    view().renameEditor->onFocusLost = [&isJuceTold] { isJuceTold = true; };
    view().grabKeyboardFocus();
    EXPECT_TRUE(view().hasKeyboardFocus(false));
    pump();
    EXPECT_TRUE(isJuceTold);
    view().renameEditor->onFocusLost = nullptr;
}

TEST_F(Focus, GoesToAClickFromAnotherWindow)
{
    show({object(1, "a"), object(2, "b")});
    select({"a"});
    (void)OutputOf([this] { (void)pressKey(juce::KeyPress(juce::KeyPress::returnKey)); });
    const auto onB = row("b").getItemPosition(true).getPosition() + juce::Point<int>(250, 10);
    const auto onField = view().renameEditor->getBounds().getCentre();
    auto& field = *view().renameEditor;
    struct
    {
        juce::Point<int> place;
        juce::Component& clicked;
        juce::Component& focusedBefore;
    } const cases[] = {{onB, view(), field}, {onField, field, view()}};
    for (const auto& each : cases)
    {
        each.focusedBefore.grabKeyboardFocus();
        window->getPeer()->handleFocusLoss();
        press(each.place);
        letGo();
        ASSERT_TRUE(each.clicked.hasKeyboardFocus(false));
        window->getPeer()->handleFocusGain();
        EXPECT_TRUE(each.clicked.hasKeyboardFocus(false));
    }
}

TEST_F(DragEnd, BringsTheKeyboardAtTheRelease)
{
    panel->dragOperationStarted(details);
    EXPECT_FALSE(isTreeFocused());
    releaseAndWait();
    EXPECT_TRUE(isTreeFocused());
    // That was all of it.
    juce::Component::unfocusAllComponents();
    panel->dragOperationEnded(details);
    releaseAndWait();
    EXPECT_FALSE(isTreeFocused());
}

TEST_F(DragEnd, BringsTheKeyboardWithoutARelease)
{
    panel->dragOperationStarted(details);
    panel->dragOperationEnded(details);
    EXPECT_TRUE(isTreeFocused());
    juce::Component::unfocusAllComponents();
    releaseAndWait();
    EXPECT_FALSE(isTreeFocused());
}

TEST_F(DragEnd, BringsNothingWithoutADrag)
{
    releaseAndWait();
    panel->dragOperationEnded(details);
    EXPECT_FALSE(isTreeFocused());
}

TEST_F(DragEnd, BringsNothingToAHiddenTree)
{
    panel->dragOperationStarted(details);
    view().setVisible(false);
    releaseAndWait();
    EXPECT_EQ(juce::Component::getCurrentlyFocusedComponent(), nullptr);
}

TEST_F(DragEnd, BringsNothingOnceItsWatchIsOver)
{
    Erased<DragFocus> dragged(view());
    dragged->dragStarted();
    dragged.end();
    Erased<DragFocus> dropped(view());
    dropped->dragStarted();
    dropped->dragEnded();
    dropped.end();
    juce::Component::unfocusAllComponents();
    releaseAndWait();
    EXPECT_FALSE(isTreeFocused());
}

// What the panel does at the start of each event.

TEST_F(Focus, ComesBackToWhatHadItLast)
{
    show({object(1, "a")});
    select({"a"});
    (void)OutputOf([this] { (void)pressKey(juce::KeyPress(juce::KeyPress::returnKey)); });
    auto& field = *view().renameEditor;
    field.setText("some text", false);
    Focusable another;
    panel->addAndMakeVisible(another);
    const juce::Range<int> marked(2, 5);
    struct
    {
        juce::Component& last;
        juce::Component* focused;
    } const cases[] = {{field, &field}, {view(), &view()}, {another, nullptr}};
    for (const auto& each : cases)
    {
        each.last.grabKeyboardFocus();
        field.setHighlightedRegion(marked);
        panel->panelKeys.startEvent(KeyboardOwner::host);
        EXPECT_EQ(focused(), nullptr);
        panel->panelKeys.startEvent(KeyboardOwner::panel);
        EXPECT_EQ(focused(), each.focused);
        EXPECT_EQ(field.getHighlightedRegion(), marked);
    }
}

TEST_F(Focus, StaysOutsideThePanel)
{
    view().grabKeyboardFocus();
    panel->panelKeys.startEvent(KeyboardOwner::host);
    one.grabKeyboardFocus();
    panel->panelKeys.startEvent(KeyboardOwner::panel);
    EXPECT_EQ(focused(), &one) << "another component has it";
    panel->panelKeys.startEvent(KeyboardOwner::host);
    EXPECT_EQ(focused(), &one);
    juce::Component::unfocusAllComponents();
    one.enterModalState(false);
    panel->panelKeys.startEvent(KeyboardOwner::panel);
    EXPECT_NE(focused(), &view()) << "a modal component waits";
    one.exitModalState(0);
}

TEST_F(Focus, IsNobodysWithoutAWindow)
{
    std::unique_ptr<ValueTreesDemo> unshown(CreateTreeWidget(false));
    for (const auto owner : {KeyboardOwner::panel, KeyboardOwner::host, KeyboardOwner::panel})
        unshown->panelKeys.startEvent(owner);
    EXPECT_EQ(focused(), nullptr);
}

TEST_F(Focus, GoesWithAnUnusedTabAlone)
{
    show({object(1, "a")});
    const juce::KeyPress tab(juce::KeyPress::tabKey);
    view().grabKeyboardFocus();
    EXPECT_FALSE(panel->keyPressed(tab));
    EXPECT_EQ(focused(), &view()) << "of an event that nobody has told of";
    panel->panelKeys.startEvent(KeyboardOwner::panel);
    EXPECT_FALSE(panel->keyPressed(juce::KeyPress(juce::KeyPress::F5Key)));
    EXPECT_EQ(focused(), &view());
    EXPECT_FALSE(panel->keyPressed(tab));
    EXPECT_EQ(focused(), nullptr);
}

TEST_F(Focus, LeavesItsKeysWhereItWas)
{
    show({object(1, "a")});
    select({"a"});
    (void)OutputOf([this] { (void)pressKey(juce::KeyPress(juce::KeyPress::returnKey)); });
    auto& field = *view().renameEditor;
    field.setText("typed", false);
    field.grabKeyboardFocus();
    window->getPeer()->handleFocusLoss();
    // What the field has no use for is the tree's.
    EXPECT_EQ(OutputOf([this] { (void)panel->keyPressed(juce::KeyPress(juce::KeyPress::F5Key)); }),
              "Key Pressed\n");
    EXPECT_EQ(OutputOf([this] { EXPECT_TRUE(panel->keyPressed(juce::KeyPress(juce::KeyPress::returnKey))); }),
              "");
    EXPECT_FALSE(field.isVisible());
    EXPECT_EQ(shape(), "Layer(typed*)");
}
