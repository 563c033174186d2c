// How long a button is held never changes what it does, with a real button on a real window.

#include "tests/tree/support/PressTable.h"
#include "tests/tree/support/TreeGuiTest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace standin;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr int beyondAnyClick = 350;

class ScreenHands : public TreeGuiTest
{
protected:
    ScreenHands()
    {
        // The table keeps presses apart that are no double click.
        juce::MouseEvent::setDoubleClickTimeout(5000);
    }

    void press(juce::Point<int> place) { Press(inView(place)); }
    void letGo() { Release(); }

    void holdKey(Key key)
    {
        static const char* const names[] = {"", "Control_L", "Shift_L"};
        if (heldKey != Key::none)
            hands.keyUp(names[static_cast<int>(heldKey)]);
        if (key != Key::none)
            hands.keyDown(names[static_cast<int>(key)]);
        heldKey = key;
        pump();
    }

    void passTime() { pumpFor(beyondAnyClick); }

    void makeWidget()
    {
        panel = CreateTreeWidget(false);
        SetBGColor(panel, 0.19f, 0.19f, 0.19f, 1.0f);
        addToDesktop(panel, nullptr, panelWidth, panelHeight, host.FrameHandle());
        EXPECT_TRUE(pumpUntil([this] { return panel->isShowing(); }));
        // JUCE has not heard of the release, since it had no window then.
        for (int x = 300; isButtonDown() && x < 310; ++x)
            Point(OnScreen({x, 40}));
    }

private:
    Key heldKey = Key::none;
};

class AHeldButton : public PressTable<ScreenHands>
{
};

class AHeldButtonInTheTable : public AHeldButton, public testing::WithParamInterface<PressCase>
{
};
} // namespace

TEST_P(AHeldButtonInTheTable, DoesWhatTheQuickOneDoes)
{
    playAll(GetParam(), {{Part::text, "b"},
                         {Part::box, "b"},
                         {Part::text, "Group 1"},
                         {Part::openBox, "Group 1"},
                         {Part::emptySpace, ""}});
}

INSTANTIATE_TEST_SUITE_P(Each, AHeldButtonInTheTable, testing::ValuesIn(EveryPressCase()),
                         [](const auto& each) { return NameOf(each.param); });

TEST_F(AHeldButton, AllowsAClickInTheSameIdle)
{
    begin(standin::Press(Part::box, "b", Key::none, {"b"}), Clicks::one);
    happen(Meanwhile::rebuild, "b");
    hands.release();
    hands.press();
    hands.release();
    pump();
    EXPECT_THAT(activesOf(GetItemsFromTree(panel)), ElementsAre(1, 1, 1, 1, 1));
    EXPECT_EQ(shape(), "Layer(a b* Group 1(c d) x e)");
}

TEST_F(AHeldButton, AllowsADoubleClickInTheSameIdle)
{
    begin(standin::Press(Part::text, "Group 1", Key::none, {}), Clicks::one);
    happen(Meanwhile::rebuild, "Group 1");
    hands.release();
    hands.press();
    hands.release();
    pump();
    EXPECT_EQ(shape(), "Layer(a b Group 1*+ x e)");
}

// ---- Drags

namespace
{
/// When the tree changes: with the button down and the mouse still, or with the row in the air.
enum class Moment
{
    beforeTheDrag,
    inTheDrag
};

struct DragCase
{
    Moment moment;
    Meanwhile meanwhile;
};

class AHeldDrag : public AHeldButton, public testing::WithParamInterface<DragCase>
{
protected:
    /// Drags the row to the bottom of the tree, and says what was printed.
    std::string dragDown(const standin::Press& made, Meanwhile before, Meanwhile meanwhileInTheAir)
    {
        begin(made, Clicks::one);
        happen(before, made.spot.row);
        if (panel == nullptr)
            return "";
        Point(inView(place) + Place{3, 8});
        Point(inView(place) + Place{9, 20});
        happen(meanwhileInTheAir, made.spot.row);
        if (panel == nullptr)
            return "";
        Point(inView({100, 280}));
        Point(inView({100, 285}));
        const std::string printed = OutputOf([this] { Drop(); });
        holdKey(Key::none);
        pump();
        return printed;
    }

    std::string dragHeld(const standin::Press& made)
    {
        const bool isBefore = GetParam().moment == Moment::beforeTheDrag;
        return dragDown(made, isBefore ? GetParam().meanwhile : Meanwhile::nothing,
                        isBefore ? Meanwhile::nothing : GetParam().meanwhile);
    }

    /// What moves, as printed, from the last to the first.
    static std::vector<std::string> movedBy(const std::string& printed)
    {
        std::vector<std::string> names;
        for (const auto& line : juce::StringArray::fromLines(juce::String(printed)))
            if (line.startsWith("Moving Item: "))
                names.push_back(line.fromFirstOccurrenceOf(": ", false, false).toStdString());
        std::sort(names.begin(), names.end());
        return names;
    }

    const std::vector<std::string> rowsDragged = {"b", "Group 1"};
    const std::vector<Key> keys = {Key::none, Key::command, Key::shift};
};

std::string nameOf(const DragCase& play)
{
    const std::string click = NameOf({Clicks::one, play.meanwhile});
    return (play.moment == Moment::beforeTheDrag ? "BeforeIt" : "InIt") + click.substr(click.find("With"));
}

std::vector<DragCase> dragCases(const std::vector<Meanwhile>& meanwhiles)
{
    std::vector<DragCase> all;
    for (const Moment moment : {Moment::beforeTheDrag, Moment::inTheDrag})
        for (const Meanwhile meanwhile : meanwhiles)
            all.push_back({moment, meanwhile});
    return all;
}

class AHeldDragOfARowThatStays : public AHeldDrag
{
};

class AHeldDragOfARowThatGoes : public AHeldDrag
{
};
} // namespace

TEST_P(AHeldDragOfARowThatStays, MovesWhatTheQuickOneMoves)
{
    for (const auto& dragged : rowsDragged)
        for (const Key key : keys)
            for (const auto& selected : std::vector<std::vector<std::string>>{{}, {"a"}, {"a", dragged, "e"}})
            {
                if (GetParam().meanwhile == Meanwhile::changeOfGroup && dragged != "b")
                    continue;
                const standin::Press made(Part::text, dragged, key, selected);
                SCOPED_TRACE(testing::PrintToString(made));
                const auto quick = movedBy(dragDown(made, Meanwhile::nothing, Meanwhile::nothing));
                const PressOutcome before = outcome();
                ASSERT_THAT(quick, testing::Contains(dragged));
                EXPECT_THAT(movedBy(dragHeld(made)), testing::ContainerEq(quick));
                EXPECT_EQ(outcome(), before);
            }
}

INSTANTIATE_TEST_SUITE_P(Each, AHeldDragOfARowThatStays,
                         testing::ValuesIn(dragCases({Meanwhile::muchTime, Meanwhile::rebuild,
                                                      Meanwhile::rebuildTwice, Meanwhile::rebuildAsBefore,
                                                      Meanwhile::reorder, Meanwhile::changeOfGroup,
                                                      Meanwhile::clearAndRebuild})),
                         [](const auto& each) { return nameOf(each.param); });

TEST_P(AHeldDragOfARowThatGoes, MovesNothing)
{
    for (const auto& dragged : rowsDragged)
    {
        EXPECT_THAT(dragHeld(standin::Press(Part::text, dragged, Key::none, {"a", dragged, "e"})), IsEmpty());
        if (GetParam().meanwhile != Meanwhile::end)
            continue;
        letGo();
        pumpFor(300);
        makeWidget();
    }
}

INSTANTIATE_TEST_SUITE_P(Each, AHeldDragOfARowThatGoes,
                         testing::ValuesIn(dragCases({Meanwhile::loss, Meanwhile::clear, Meanwhile::end})),
                         [](const auto& each) { return nameOf(each.param); });

TEST_F(AHeldButton, OnTheOpenButtonDragsNothing)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::rebuild})
    {
        begin(standin::Press(Part::openBox, "Group 1", Key::none, {"b"}), Clicks::one);
        happen(meanwhile, "Group 1");
        Point(inView(place) + Place{0, 60});
        EXPECT_FALSE(panel->isDragAndDropActive());
        EXPECT_EQ(OutputOf([this] { Drop(); }), "");
    }
}

TEST_F(AHeldButton, DragsARowThatHasScrolledAway)
{
    std::vector<ObjectItem> many;
    for (int i = 1; i <= 60; ++i)
        many.push_back(object(i, "row " + std::to_string(i)));
    show(many);
    press(placeOf({Part::text, "row 2"}));
    std::reverse(many.begin(), many.end());
    RefreshTree(panel, many);
    pump();
    ASSERT_EQ(view().getItemComponent(&row("row 2")), nullptr);
    Point(inView({100, 62}));
    Point(inView({100, 82}));
    EXPECT_EQ(OutputOf([this] { Drop(); }), "Items: 1\nMoving Item: row 2\n");
}

TEST_F(AHeldButton, DragsARowsPictureUnderThePointer)
{
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::reorder})
    {
        begin(standin::Press(Part::text, "b", Key::none, {}), Clicks::one);
        happen(meanwhile, "b");
        // JUCE adds to the place of the press what the mouse has moved until the drag begins.
        Point(inView(place) + Place{0, 6});
        const Place mouse = inView(place) + Place{0, 40};
        Point(mouse);
        pump();
        ASSERT_EQ(juce::Desktop::getInstance().getNumComponents(), 2);
        const auto picture = juce::Desktop::getInstance().getComponent(1)->getScreenBounds();
        EXPECT_EQ(picture.getX(), mouse.x - 20);
        EXPECT_EQ(picture.getY(), mouse.y - 16);
        (void)OutputOf([this] { Drop(); });
    }
}
