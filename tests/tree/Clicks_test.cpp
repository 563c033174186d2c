// What one click on a row comes to, in its node and in the selection.

#include "tests/tree/support/HeadlessHands.h"

#include <gtest/gtest.h>

using namespace standin;
using testing::ElementsAre;

namespace
{
struct ClickCase
{
    Press press;
    std::string shape;
    std::vector<int> actives; ///< of a, b, c, d and e
};

class AClick : public PressTable<HeadlessHands>
{
protected:
    void click(const Press& press)
    {
        begin(press, Clicks::one);
        finish();
    }

    std::vector<int> actives() { return activesOf(GetItemsFromTree(panel)); }
};

/// The mouse over the open/close box of a group, in a tree that is too long for the view.
class AHover : public HeadlessHands
{
protected:
    AHover()
    {
        std::vector<ObjectItem> many;
        for (int i = 1; i <= 30; ++i)
            many.push_back(object(i, "row " + std::to_string(i), i == 9 ? 1 : 0));
        show(many);
        plain = box();
        moveTo(placeOfBox());
        EXPECT_NE(box(), plain);
    }

    juce::Point<int> placeOfBox()
    {
        return row("Group 1").getItemPosition(true).getPosition() + juce::Point<int>(-10, 10);
    }

    /// The pixels around the box. No message is delivered, since JUCE sends itself a move of the mouse.
    std::vector<juce::uint32> box()
    {
        const auto image =
            view().createComponentSnapshot(juce::Rectangle<int>(16, 16).withCentre(placeOfBox()));
        std::vector<juce::uint32> pixels;
        for (int y = 0; y < image.getHeight(); ++y)
            for (int x = 0; x < image.getWidth(); ++x)
                pixels.push_back(image.getPixelAt(x, y).getARGB());
        return pixels;
    }

    std::vector<juce::uint32> plain;
};
} // namespace

TEST_F(AClick, SwitchesByTheBoxAlone)
{
    const ClickCase cases[] = {
        {{Part::text, "b", Key::none, {}}, "Layer(a b* Group 1(c d) x e)", {1, 1, 1, 1, 1}},
        {{Part::text, "b", Key::none, {"b"}}, "Layer(a b* Group 1(c d) x e)", {1, 1, 1, 1, 1}},
        {{Part::box, "b", Key::none, {"a"}}, "Layer(a b* Group 1(c d) x e)", {1, 0, 1, 1, 1}},
        {{Part::box, "b", Key::command, {"a"}}, "Layer(a* b* Group 1(c d) x e)", {1, 0, 1, 1, 1}},
        {{Part::box, "b", Key::command, {"a", "b"}}, "Layer(a* b Group 1(c d) x e)", {1, 0, 1, 1, 1}},
        {{Part::text, "Group 1", Key::none, {}}, "Layer(a b Group 1*(c d) x e)", {1, 1, 1, 1, 1}},
        {{Part::box, "Group 1", Key::none, {}}, "Layer(a b Group 1*(c d) x e)", {1, 1, 0, 0, 1}},
        {{Part::box, "c", Key::shift, {"b"}}, "Layer(a b* Group 1*(c* d) x e)", {1, 1, 0, 1, 1}},
        {{Part::text, "e", Key::shift, {"a", "e"}}, "Layer(a* b Group 1(c d) x e*)", {1, 1, 1, 1, 1}},
        {{Part::box, "Layer", Key::none, {}}, "Layer*(a b Group 1(c d) x e)", {1, 1, 1, 1, 1}}};
    for (const auto& each : cases)
    {
        SCOPED_TRACE(testing::PrintToString(each.press));
        click(each.press);
        EXPECT_EQ(shape(), each.shape);
        EXPECT_EQ(actives(), each.actives);
        passTime();
    }
}

TEST_F(AClick, SwitchesAGroupOffBeforeOn)
{
    show(items);
    node("c").setProperty(TreeIds::active, 0, nullptr);
    for (const auto& expected :
         {ElementsAre(1, 1, 0, 0, 1), ElementsAre(1, 1, 1, 1, 1), ElementsAre(1, 1, 0, 0, 1)})
    {
        press(placeOf({Part::box, "Group 1"}));
        letGo();
        EXPECT_THAT(actives(), expected);
        passTime();
    }
}

TEST_F(AClick, SwitchesAnOutsideRowBackAndForth)
{
    show(items);
    for (const int expected : {1, 0, 1})
    {
        press(placeOf({Part::box, "x"}));
        letGo();
        EXPECT_EQ(static_cast<int>(node("x")[TreeIds::active]), expected);
        passTime();
    }
}

TEST_F(AClick, CountsFromTheRowsFirstColumn)
{
    for (const int column : {0, -1})
    {
        arrange(Press(Part::text, "b", Key::none, {"a", "b"}));
        press(placeOf({Part::text, "b"}).translated(column - 20, 0));
        finish();
        EXPECT_EQ(shape(), column == 0 ? "Layer(a b* Group 1(c d) x e)" : "Layer(a* b* Group 1(c d) x e)");
        passTime();
    }
}

TEST_F(AClick, OpensAndClosesWithTheSecondAndFourth)
{
    show(items);
    for (const char* expected : {"Layer(a b Group 1*(c d) x e)", "Layer(a b Group 1*+ x e)",
                                 "Layer(a b Group 1*+ x e)", "Layer(a b Group 1*(c d) x e)"})
    {
        press(placeOf({Part::text, "Group 1"}));
        letGo();
        EXPECT_EQ(shape(), expected);
    }
}

TEST_F(AClick, SwitchesInAScrolledTree)
{
    std::vector<ObjectItem> many;
    for (int i = 1; i <= 60; ++i)
        many.push_back(object(i, "row " + std::to_string(i)));
    show(many);
    view().getViewport()->setViewPosition(0, 405);
    press(placeOf({Part::box, "row 30"}));
    letGo();
    EXPECT_EQ(static_cast<int>(node("row 30")[TreeIds::active]), 0);
}

TEST_F(AClick, PaintsTheRowAgain)
{
    show(items);
    select({"x"});
    juce::Image before = view().createComponentSnapshot(view().getLocalBounds());
    press(placeOf({Part::box, "x"}));
    letGo();
    const juce::Point<int> centre = placeOf({Part::box, "x"});
    EXPECT_NE(view().createComponentSnapshot(view().getLocalBounds()).getPixelAt(centre.x, centre.y),
              before.getPixelAt(centre.x, centre.y));
}

// JUCE paints the open/close box under the mouse in a stronger colour.

TEST_F(AHover, IsForgottenWhenTheViewChangesItsSize)
{
    panel->setSize(400, 300);
    EXPECT_EQ(box(), plain);
}

TEST_F(AHover, IsForgottenWhenRowsScroll)
{
    view().getViewport()->setViewPosition(0, 40);
    EXPECT_EQ(box(), plain);
}

TEST_F(AHover, IsForgottenBeforeItsRowGoes)
{
    panel->setSize(400, 120);
    ASSERT_EQ(view().getItemComponent(&row("Group 1")), nullptr);
    panel->setSize(400, 420);
    EXPECT_EQ(box(), plain);
    moveTo({300, 10});
    EXPECT_EQ(box(), plain);
}

TEST_F(AHover, IsForgottenWhenTheMouseLeaves)
{
    moveTo({300, -40});
    EXPECT_EQ(box(), plain);
}

TEST_F(AHover, IsForgottenByTheReleaseElsewhere)
{
    press(placeOfBox());
    moveTo(placeOfBox().translated(100, 0));
    letGo();
    const auto released = box();
    moveTo({300, -40});
    EXPECT_EQ(box(), released);
}
