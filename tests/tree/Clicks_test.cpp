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
