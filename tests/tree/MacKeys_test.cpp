// Keys and clicks on the path that they take on macOS, with either generation of JUCE.

#include "tests/tree/support/MacWindow.h"
#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

#include <memory>
#include <tuple>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
using juce::KeyPress;

const juce::ModifierKeys noModifier;
const juce::ModifierKeys command(juce::ModifierKeys::commandModifier);

const MacKey macDeleteKey = {"Delete", KeyPress::backspaceKey, 0x7f, noModifier, false, true};
const MacKey forwardDeleteKey = {"ForwardDelete", KeyPress::deleteKey, 0, noModifier, true, true};
const MacKey macReturnKey = {"Return", KeyPress::returnKey, '\r', noModifier, false, true};
const MacKey cutKeys = {"CommandX", 'X', 'x', command, true, true};
const MacKey copyKeys = {"CommandC", 'C', 'c', command, true, true};
const MacKey pasteKeys = {"CommandV", 'V', 'v', command, true, true};
const MacKey selectAllKeys = {"CommandA", 'A', 'a', command, true, true};
const MacKey downKey = {"Down", KeyPress::downKey, 0, noModifier, true, false};
const MacKey leftKey = {"Left", KeyPress::leftKey, 0, noModifier, true, false};
const MacKey tabKey = {"Tab", KeyPress::tabKey, '\t', noModifier, false, false};
const MacKey tabAsEquivalent = {"TabAsEquivalent", KeyPress::tabKey, '\t', noModifier, true, false};
const MacKey saveKeys = {"CommandS", 'S', 's', command, true, false};
const MacKey f5Key = {"F5", KeyPress::F5Key, 0, noModifier, true, false};

MacKey letter(char text)
{
    return {std::string(1, text),
            juce::CharacterFunctions::toUpperCase(static_cast<juce::juce_wchar>(text)) & 0xff,
            static_cast<juce::juce_wchar>(text),
            noModifier,
            false,
            false};
}

/// The tree "Layer(a Group 1(b c) x)" in a window, with the row "a" clicked.
class MacKeys : public TreeTest
{
protected:
    explicit MacKeys(JuceGeneration juce)
    {
        deleteWidget();
        generation = juce;
        window = std::make_unique<MacWindow>(juce);
        panel = window->panel;
        RefreshTree(panel, {object(1, "a"), object(2, "b", 1), object(3, "c", 1), external("x")});
        pump();
        click("a");
    }

    ~MacKeys() override { panel = nullptr; }

    void click(const std::string& name)
    {
        const auto place = row(name).getItemPosition(true).getPosition() + juce::Point<int>(20, 10);
        window->clickInside(panel->getLocalPoint(&view(), place));
    }

    CustomTextEditor& editor() { return *view().renameEditor; }

    void type(const std::string& text)
    {
        for (const char character : text)
            EXPECT_EQ(window->press(letter(character)), KeyEnd::panel) << character;
    }

    /// Where a key ends that the panel does not use.
    KeyEnd unusedEnd(const MacKey& key) const
    {
        return key.isEquivalent && generation == JuceGeneration::eight ? KeyEnd::surface : KeyEnd::host;
    }

    void loseAndRegainKeyStatus()
    {
        window->loseKeyStatus();
        pump();
        window->gainKeyStatus();
        pump();
    }

    JuceGeneration generation;
    std::unique_ptr<MacWindow> window;
};

std::string nameOf(JuceGeneration generation)
{
    return generation == JuceGeneration::seven ? "Seven" : "Eight";
}

class MacKeyPath : public MacKeys, public testing::WithParamInterface<JuceGeneration>
{
protected:
    MacKeyPath() : MacKeys(GetParam()) {}
};
} // namespace

TEST_P(MacKeyPath, MovesOneRowWithAnArrow)
{
    KeyEnd end = KeyEnd::panel;
    EXPECT_EQ(OutputOf([&] { end = window->press(downKey); }), "Key Pressed\n");
    EXPECT_EQ(end, unusedEnd(downKey));
    EXPECT_THAT(selectedNames(), ElementsAre("Group 1"));
    (void)window->press(downKey);
    EXPECT_THAT(selectedNames(), ElementsAre("b"));
}

TEST_P(MacKeyPath, ClosesARowAndStaysOnIt)
{
    click("Group 1");
    (void)window->press(leftKey);
    EXPECT_EQ(shape(), "Layer(a Group 1*+ x)");
}

TEST_P(MacKeyPath, AsksReturnOnceWithNothingSelected)
{
    view().clearSelectedItems();
    KeyEnd end = KeyEnd::panel;
    EXPECT_EQ(OutputOf([&] { end = window->press(macReturnKey); }),
              "Key Pressed\nReturn Key Pressed\nEdit Button\n");
    EXPECT_EQ(end, KeyEnd::host);
}

TEST_P(MacKeyPath, LeavesTheHostItsKeys)
{
    for (const MacKey& key : {saveKeys, f5Key, letter('q')})
        EXPECT_EQ(window->press(key), unusedEnd(key)) << key.name;
    EXPECT_EQ(shape(), "Layer(a* Group 1(b c) x)");
}

TEST_P(MacKeyPath, LeavesTheHostsKeysDuringARename)
{
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    for (const MacKey& key : {saveKeys, f5Key})
        EXPECT_EQ(window->press(key), unusedEnd(key)) << key.name;
    EXPECT_EQ(editor().getText(), "a");
}

TEST_P(MacKeyPath, LeavesTheHostTab)
{
    for (const MacKey& key : {tabKey, tabAsEquivalent})
        EXPECT_EQ(window->press(key), unusedEnd(key)) << key.name;
    (void)window->press(downKey);
    EXPECT_THAT(selectedNames(), ElementsAre("Group 1"));
}

TEST_P(MacKeyPath, LeavesTheHostTabInTheNameField)
{
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    type("first");
    EXPECT_EQ(window->press(tabKey), KeyEnd::host);
    type("second");
    EXPECT_EQ(editor().getText(), "firstsecond");
    EXPECT_TRUE(editor().hasKeyboardFocus(false));
}

TEST_P(MacKeyPath, RenamesAfterTheWindowHasBeenAway)
{
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    type("ne");
    loseAndRegainKeyStatus();
    type("w");
    EXPECT_EQ(window->press(macDeleteKey), KeyEnd::panel);
    EXPECT_EQ(editor().getText(), "ne");
    // Otherwise the system's input context would have no field to write into.
    EXPECT_TRUE(editor().hasKeyboardFocus(false));
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    EXPECT_EQ(shape(), "Layer(ne* Group 1(b c) x)");
    EXPECT_THAT(GetEffectsToBeRemoved(panel), IsEmpty());
}

TEST_P(MacKeyPath, LeavesTheHostsTextFieldItsKeys)
{
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    window->clickElsewhere(MacWindow::Other::takesFirstResponder);
    EXPECT_EQ(window->press(letter('q')), KeyEnd::host);
    EXPECT_EQ(window->press(leftKey), unusedEnd(leftKey));
    EXPECT_EQ(editor().getText(), "a");
    EXPECT_TRUE(editor().isVisible());
}

TEST_P(MacKeyPath, ClickingTheNameFieldTakesTheKeyboard)
{
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    window->clickElsewhere(MacWindow::Other::leavesFirstResponder);
    EXPECT_EQ(window->press(letter('q')), KeyEnd::host);
    window->clickInside(panel->getLocalPoint(&editor(), juce::Point<int>(100, 10)));
    EXPECT_EQ(window->press(selectAllKeys), KeyEnd::panel);
    type("new");
    EXPECT_EQ(window->press(macReturnKey), KeyEnd::panel);
    EXPECT_EQ(shape(), "Layer(new* Group 1(b c) x)");
}

TEST_P(MacKeyPath, WorksWhateverJuceHoldsForFocused)
{
    panel->giveAwayKeyboardFocus();
    EXPECT_EQ(window->press(macDeleteKey), KeyEnd::panel);
    EXPECT_EQ(shape(), "Layer(Group 1(b c) x)");
}

INSTANTIATE_TEST_SUITE_P(OfJuce, MacKeyPath, testing::Values(JuceGeneration::seven, JuceGeneration::eight),
                         [](const auto& test) { return nameOf(test.param); });

namespace
{
struct KeyAndOutcome
{
    MacKey key;
    std::string lines;
    std::string shape;
};

/// A key of the panel's own.
class MacPanelKey : public MacKeys,
                    public testing::WithParamInterface<std::tuple<JuceGeneration, KeyAndOutcome>>
{
protected:
    MacPanelKey() : MacKeys(std::get<0>(GetParam())) {}

    const KeyAndOutcome& tried() { return std::get<1>(GetParam()); }

    void expectInThePanel()
    {
        KeyEnd end = KeyEnd::host;
        EXPECT_EQ(OutputOf([&] { end = window->press(tried().key); }), tried().lines);
        EXPECT_EQ(end, KeyEnd::panel);
        EXPECT_EQ(shape(), tried().shape);
    }

    void expectAtTheHost()
    {
        const std::string before = shape();
        KeyEnd end = KeyEnd::panel;
        EXPECT_EQ(OutputOf([&] { end = window->press(tried().key); }), "");
        EXPECT_EQ(end, unusedEnd(tried().key));
        EXPECT_EQ(shape(), before);
        EXPECT_FALSE(editor().isVisible());
    }
};
} // namespace

TEST_P(MacPanelKey, ReachesTheTree) { expectInThePanel(); }

TEST_P(MacPanelKey, ReachesTheTreeAfterTheWindowReturns)
{
    loseAndRegainKeyStatus();
    expectInThePanel();
}

TEST_P(MacPanelKey, ReachesTheHostWhileTheWindowIsAway)
{
    window->loseKeyStatus();
    const std::string before = shape();
    EXPECT_EQ(window->press(tried().key), KeyEnd::host);
    EXPECT_EQ(shape(), before);
}

TEST_P(MacPanelKey, ReachesTheHostAfterClickingAFocusableView)
{
    window->clickElsewhere(MacWindow::Other::takesFirstResponder);
    expectAtTheHost();
}

TEST_P(MacPanelKey, ReachesTheHostAfterClickingAnUnfocusableView)
{
    window->clickElsewhere(MacWindow::Other::leavesFirstResponder);
    expectAtTheHost();
}

TEST_P(MacPanelKey, ReachesTheTreeAfterAClickBack)
{
    window->clickElsewhere(MacWindow::Other::leavesFirstResponder);
    click("a");
    expectInThePanel();
}

INSTANTIATE_TEST_SUITE_P(
    OfJuce, MacPanelKey,
    testing::Combine(
        testing::Values(JuceGeneration::seven, JuceGeneration::eight),
        testing::Values(KeyAndOutcome{macDeleteKey, "Key Pressed\n", "Layer(Group 1(b c) x)"},
                        KeyAndOutcome{forwardDeleteKey, "Key Pressed\n", "Layer(Group 1(b c) x)"},
                        KeyAndOutcome{macReturnKey, "Key Pressed\nReturn Key Pressed\nEdit Button\n",
                                      "Layer(a* Group 1(b c) x)"},
                        KeyAndOutcome{cutKeys, "Key Pressed\nCut Button\n", "Layer(a* Group 1(b c) x)"},
                        KeyAndOutcome{copyKeys, "Key Pressed\nCopy Button\n", "Layer(a* Group 1(b c) x)"},
                        KeyAndOutcome{pasteKeys, "Key Pressed\nPaste Button\n", "Layer(a* Group 1(b c) x)"},
                        KeyAndOutcome{selectAllKeys, "Key Pressed\nSelect All Button\n",
                                      "Layer(a* Group 1*(b* c*) x*)"})),
    [](const auto& test) { return nameOf(std::get<0>(test.param)) + std::get<1>(test.param).key.name; });
