#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;
using Bounds = juce::Rectangle<int>;

namespace
{
class Panel : public TreeTest
{
protected:
    std::vector<SimpleButton*> buttons()
    {
        return {&panel->geometryButton, &panel->effectorButton, &panel->rendererButton, &panel->groupButton,
                &panel->vortanButton};
    }

    std::vector<std::string> visibleButtons()
    {
        std::vector<std::string> texts;
        for (auto* button : buttons())
            if (button->isVisible())
                texts.push_back(button->getButtonText().toStdString());
        return texts;
    }

    void recreate(bool hideToolbar)
    {
        deleteWidget();
        panel = CreateTreeWidget(hideToolbar);
    }

    void click(SimpleButton& button)
    {
        (void)OutputOf([&] { button.clicked(); });
    }
};
} // namespace

TEST_F(Panel, StartsWithTheTreeAt400By200)
{
    EXPECT_EQ(panel->getWidth(), 400);
    EXPECT_EQ(panel->getHeight(), 200);
    EXPECT_TRUE(view().isVisible());
    EXPECT_THAT(visibleButtons(), IsEmpty());
    EXPECT_FALSE(panel->notifyLabel.isVisible());
    EXPECT_EQ(view().getBounds(), Bounds(8, 88, 384, 100));
    EXPECT_EQ(panel->bgColour, juce::Colours::blue);
    EXPECT_EQ(root(), nullptr);
}

TEST_F(Panel, SetsItsButtonsUp)
{
    const char* texts[] = {"Add Geometry", "Add Effector", "Add Renderer", "Add Group", "Add Vortan"};
    for (int i = 0; i < 5; ++i)
    {
        auto* button = buttons()[static_cast<std::size_t>(i)];
        EXPECT_EQ(button->getButtonText(), texts[i]);
        EXPECT_EQ(button->getRadioGroupId(), i + 1);
        EXPECT_EQ(button->getParentComponent(), panel);
        EXPECT_EQ(&button->getLookAndFeel() == &panel->buttonLookAndFeel, i < 4);
    }
}

TEST_F(Panel, SetsItsTreeUp)
{
    EXPECT_FALSE(view().areItemsOpenByDefault());
    EXPECT_TRUE(view().isMultiSelectEnabled());
    EXPECT_TRUE(view().isRootItemVisible());
    EXPECT_EQ(view().getViewport()->getScrollBarThickness(), 8);
    EXPECT_EQ(view().findColour(0x1000501), juce::Colours::white);
    EXPECT_FALSE(view().getViewport()->getWantsKeyboardFocus());
}

TEST_F(Panel, KeepsItsLooksUnderAnyLookAndFeel)
{
    juce::LookAndFeel_V2 red; // Its scroll bars are wider.
    for (int id = 0x1000500; id < 0x1000508; ++id)
        red.setColour(id, juce::Colours::red);
    view().setLookAndFeel(&red);
    for (const int id : {juce::TreeView::selectedItemBackgroundColourId, juce::TreeView::oddItemsColourId,
                         juce::TreeView::evenItemsColourId})
        EXPECT_EQ(view().findColour(id), juce::Colours::transparentBlack);
    EXPECT_EQ(view().findColour(juce::TreeView::backgroundColourId), juce::Colours::red);
    EXPECT_EQ(view().getViewport()->getScrollBarThickness(), 8);
    view().setLookAndFeel(nullptr);
}

TEST_F(Panel, LaysOutWithTheToolbar)
{
    panel->setBounds(0, 0, 400, 200);
    EXPECT_EQ(view().getBounds(), Bounds(8, 88, 384, 100));
    EXPECT_EQ(panel->vortanButton.getBounds(), Bounds(13, 8, 100, 15));
    EXPECT_EQ(panel->geometryButton.getBounds(), Bounds(13, 8, 100, 15));
    EXPECT_EQ(panel->effectorButton.getBounds(), Bounds(13, 24, 100, 15));
    EXPECT_EQ(panel->rendererButton.getBounds(), Bounds(13, 40, 100, 15));
    EXPECT_EQ(panel->groupButton.getBounds(), Bounds(13, 56, 100, 15));
    EXPECT_EQ(panel->notifyLabel.getBounds().getCentre(), juce::Point<int>(200, 100));
}

TEST_F(Panel, CentresItsLabelWithHalvesRoundedTowardsZero)
{
    NotifyMsg(panel, "Hello");
    auto& label = panel->notifyLabel;
    for (const auto& [width, height] : {std::pair(401, 301), std::pair(399, 200), std::pair(400, 199)})
    {
        panel->setBounds(0, 0, width, height);
        EXPECT_EQ(label.getX(), width / 2 - label.getWidth() / 2) << width;
        EXPECT_EQ(label.getY(), height / 2 - label.getHeight() / 2) << height;
    }
}

TEST_F(Panel, LaysOutWithoutTheToolbar)
{
    recreate(true);
    EXPECT_EQ(view().getBounds(), Bounds(8, 8, 384, 180));
    for (auto* button : buttons())
        EXPECT_EQ(button->getParentComponent(), nullptr);
    RefreshTree(panel, {object(1, "a")});
    panel->setBounds(0, 0, 300, 100);
    EXPECT_EQ(view().getBounds(), Bounds(8, 8, 284, 80));
}

TEST_F(Panel, LaysOutAPanelOfToolbarHeight)
{
    panel->setBounds(0, 0, 400, 50);
    EXPECT_EQ(view().getBounds(), Bounds(8, 42, 384, 0));
}

TEST_F(Panel, LaysOutNothingNegativeAtZeroByZero)
{
    panel->setBounds(0, 0, 0, 0);
    EXPECT_EQ(view().getBounds(), Bounds(8, 8, 0, 0));
    EXPECT_EQ(panel->notifyLabel.getBounds().getCentre(), juce::Point<int>(0, 0));
    RefreshTree(panel, {object(1, "a", 1)});
    NotifyMsg(panel, "Hello");
    pump();
    recreate(true);
    panel->setBounds(0, 0, 0, 0);
    EXPECT_EQ(view().getBounds(), Bounds(8, 8, 0, 0));
}

TEST_F(Panel, LaysOutSmallSizesWithoutNegativeOnes)
{
    for (int size = 0; size < 120; ++size)
    {
        panel->setBounds(0, 0, size, size);
        EXPECT_EQ(view().getWidth(), std::max(size - 16, 0));
        EXPECT_EQ(view().getHeight(), std::max(std::max(size - 16, 0) - 80 - 4, 0));
        EXPECT_EQ(view().getY(), 8 + std::min(80, std::max(size - 16, 0)));
    }
}

TEST_F(Panel, FillsItselfWithItsBackground)
{
    const auto picture = [this] { return panel->createComponentSnapshot(panel->getLocalBounds()); };
    EXPECT_EQ(picture().getPixelAt(2, 2), juce::Colours::blue);
    SetBGColor(panel, 0.2f, 0.4f, 0.6f, 1.0f);
    const auto colour = juce::Colour::fromFloatRGBA(0.2f, 0.4f, 0.6f, 1.0f);
    EXPECT_EQ(panel->bgColour, colour);
    EXPECT_EQ(picture().getPixelAt(2, 2), colour);
    EXPECT_EQ(picture().getPixelAt(200, 150), colour);
    auto* viewport = view().getViewport();
    EXPECT_EQ(viewport->getVerticalScrollBar().findColour(0x1000401), colour);
    EXPECT_EQ(viewport->getHorizontalScrollBar().findColour(0x1000401), colour);
    EXPECT_EQ(view().findColour(0x1000500), colour);
}

TEST_F(Panel, ShowsAddVortanAloneForAnEmptyLayer)
{
    RefreshTree(panel, {});
    EXPECT_THAT(visibleButtons(), ElementsAre("Add Vortan"));
    RefreshTree(panel, {object(1, "a")});
    EXPECT_THAT(visibleButtons(), ElementsAre("Add Geometry", "Add Effector", "Add Renderer", "Add Group"));
    ClearTree(panel);
    EXPECT_THAT(visibleButtons(), ElementsAre("Add Geometry", "Add Effector", "Add Renderer", "Add Group"));
    RefreshTree(panel, {});
    EXPECT_THAT(visibleButtons(), ElementsAre("Add Vortan"));
}

TEST_F(Panel, AddsNothingWhenNothingIsOffered)
{
    for (auto* button : buttons())
        EXPECT_EQ(OutputOf([&] { button->clicked(); }), "button clicked\n");
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
}

TEST_F(Panel, TakesTheOnlyEntryWithoutAMenu)
{
    AddObject(panel, VN_OBJECT_GEOMETRY, 11, "g");
    AddObject(panel, VN_OBJECT_EFFECTOR, 12, "e");
    AddObject(panel, VN_OBJECT_RENDERER, 13, "r");
    AddObject(panel, VN_OBJECT_VORTAN, 14, "Vortan");
    click(panel->vortanButton);
    click(panel->rendererButton);
    click(panel->geometryButton);
    click(panel->effectorButton);
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), ElementsAre(14, 13, 11, 12));
    EXPECT_EQ(juce::Component::getNumCurrentlyModalComponents(), 0);
}

TEST_F(Panel, DoesNotAddTheKeyZero)
{
    AddObject(panel, VN_OBJECT_VORTAN, 0, "Vortan");
    click(panel->vortanButton);
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
}

TEST_F(Panel, IgnoresAButtonOfAnyOtherIdentity)
{
    AddObject(panel, VN_OBJECT_GEOMETRY, 11, "g");
    juce::TextButton other;
    for (const int id : {0, 6, -1})
    {
        other.setRadioGroupId(id);
        panel->buttonClicked(&other);
    }
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
}

TEST_F(Panel, AddsAGroupByItsButton)
{
    RefreshTree(panel, {object(1, "a")});
    click(panel->groupButton);
    EXPECT_EQ(shape(), "Layer(Group 1 a)");
    EXPECT_THAT(GetKeysToBeAddedToLayer(panel), IsEmpty());
}

TEST_F(Panel, ClearsTheSelectionByAClickOnItself)
{
    RefreshTree(panel, {object(1, "a"), object(2, "b")});
    select({"a", "b"});
    const auto now = juce::Time::getCurrentTime();
    panel->mouseDown(juce::MouseEvent(juce::Desktop::getInstance().getMainMouseSource(), {2.0f, 2.0f}, {},
                                      0.0f, 0.0f, 0.0f, 0.0f, 0.0f, panel, panel, now, {2.0f, 2.0f}, now, 1,
                                      false));
    EXPECT_EQ(shape(), "Layer(a b)");
}

TEST_F(Panel, LeavesItsRowsToJuceWhenItGoes)
{
    RefreshTree(panel, {object(1, "a", 1), object(2, "b")});
    auto* left = root();
    DeleteTreeWidget(panel);
    panel = nullptr;
    // Still alive, and in no view; it ends when JUCE does.
    EXPECT_EQ(left->getOwnerView(), nullptr);
    EXPECT_EQ(left->getNumSubItems(), 2);
    const juce::ValueTree document = left->getNode();
    JuceGlobalShutDown();
    EXPECT_EQ(document.getReferenceCount(), 1);
    JuceGlobalInit();
}

TEST_F(Panel, StopsAnimationsWhereTheyAre)
{
    juce::Component moving;
    auto& animator = juce::Desktop::getInstance().getAnimator();
    animator.animateComponent(&moving, {100, 100, 10, 10}, 1.0f, 100000, false, 1.0, 1.0);
    ASSERT_TRUE(animator.isAnimating());
    deleteWidget();
    EXPECT_FALSE(animator.isAnimating());
    EXPECT_EQ(moving.getX(), 0);
}

TEST_F(Panel, GoesWithoutRowsAsWell)
{
    ClearTree(panel);
    DeleteTreeWidget(panel);
    panel = nullptr;
    DeleteTreeWidget(nullptr);
}

TEST_F(Panel, ScrollsByEightPixelBars)
{
    std::vector<ObjectItem> items;
    for (int i = 1; i < 50; ++i)
        items.push_back(object(i, "o"));
    RefreshTree(panel, items);
    pump();
    auto* viewport = view().getViewport();
    EXPECT_TRUE(viewport->getVerticalScrollBar().isVisible());
    EXPECT_EQ(viewport->getVerticalScrollBar().getWidth(), 8);
}
