#pragma once
// The effect of a press, by what happens while the button is down: every kind of press, compared with the
// quick click of it. Runs on a window without a screen and on a real one, with the hands that the fixture
// provides:
//   press(place in the view), letGo(), holdKey(Key), passTime(), show(items), makeWidget()

#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <algorithm>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace standin
{
enum class Key
{
    none,
    command,
    shift
};

enum class Part
{
    text,
    box,
    openBox,
    emptySpace
};

enum class Meanwhile
{
    nothing,
    muchTime,
    rebuild,
    rebuildTwice,
    rebuildAsBefore, ///< The layer changed between the press and the pass: the view is what it was before.
    reorder,
    changeOfGroup,
    loss, ///< The row is gone.
    clear,
    clearAndRebuild,
    end ///< The widget is gone.
};

enum class Clicks
{
    one,
    two ///< What happens meanwhile happens under the second.
};

struct PressCase
{
    Clicks clicks;
    Meanwhile meanwhile;
};

inline std::string NameOf(const PressCase& play)
{
    static const std::map<Meanwhile, std::string> names = {{Meanwhile::nothing, "Nothing"},
                                                           {Meanwhile::muchTime, "MuchTime"},
                                                           {Meanwhile::rebuild, "Rebuild"},
                                                           {Meanwhile::rebuildTwice, "RebuildTwice"},
                                                           {Meanwhile::rebuildAsBefore, "RebuildAsBefore"},
                                                           {Meanwhile::reorder, "Reorder"},
                                                           {Meanwhile::changeOfGroup, "ChangeOfGroup"},
                                                           {Meanwhile::loss, "LossOfTheRow"},
                                                           {Meanwhile::clear, "Clear"},
                                                           {Meanwhile::clearAndRebuild, "ClearAndRebuild"},
                                                           {Meanwhile::end, "EndOfTheWidget"}};
    return (play.clicks == Clicks::one ? "AClickWith" : "ADoubleClickWith") + names.at(play.meanwhile);
}

inline std::vector<PressCase> EveryPressCase()
{
    std::vector<PressCase> all;
    for (const Clicks clicks : {Clicks::one, Clicks::two})
        for (const Meanwhile meanwhile : {Meanwhile::muchTime, Meanwhile::rebuild, Meanwhile::rebuildTwice,
                                          Meanwhile::reorder, Meanwhile::changeOfGroup, Meanwhile::loss,
                                          Meanwhile::clear, Meanwhile::clearAndRebuild, Meanwhile::end})
            all.push_back({clicks, meanwhile});
    all.push_back({Clicks::one, Meanwhile::rebuildAsBefore});
    return all;
}

struct PressSpot
{
    Part part;
    std::string row; ///< empty for the empty space
};

struct Press
{
    Press(Part part, const std::string& row, Key pressedKey, const std::vector<std::string>& selectedBefore)
        : spot{part, row}, key(pressedKey), selected(selectedBefore)
    {
    }

    PressSpot spot;
    Key key;
    std::vector<std::string> selected; ///< before it
};

inline std::ostream& operator<<(std::ostream& out, const Press& press)
{
    static const char* const parts[] = {"text", "box", "open/close button", "empty space"};
    static const char* const keys[] = {"", " with Command", " with Shift"};
    out << parts[static_cast<int>(press.spot.part)] << " " << press.spot.row
        << keys[static_cast<int>(press.key)] << ", selected before:";
    for (const auto& name : press.selected)
        out << " " << name;
    return out;
}

/// What the user has in the end, wherever the rows stand.
struct PressOutcome
{
    std::vector<std::string> selected;
    std::map<std::string, int> active;
    std::vector<std::string> open;

    bool operator==(const PressOutcome& other) const
    {
        return selected == other.selected && active == other.active && open == other.open;
    }
};

inline std::ostream& operator<<(std::ostream& out, const PressOutcome& outcome)
{
    out << "selected:";
    for (const auto& name : outcome.selected)
        out << " " << name;
    out << ", on:";
    for (const auto& [name, active] : outcome.active)
        out << (active != 0 ? " " + name : "");
    out << ", open:";
    for (const auto& name : outcome.open)
        out << " " << name;
    return out;
}

template <class Hands>
class PressTable : public Hands
{
protected:
    PressTable() : table(CreateTreeStateTable()) {}
    ~PressTable() override { DeleteTreeStateTable(table); }

    const std::vector<ObjectItem> items = {object(1, "a"),    object(2, "b"), object(3, "c", 1),
                                           object(4, "d", 1), external("x"),  object(5, "e")};

    /// One cell of the table for each press: its outcome, compared with that of the quick click.
    void playAll(const PressCase& play, const std::vector<PressSpot>& spots)
    {
        for (const auto& spot : spots)
            for (const Key key : {Key::none, Key::command, Key::shift})
                for (const auto& selected : selectionsFor(spot.row))
                    if (canHappenTo(spot.row, play.meanwhile))
                        compare(play, Press(spot.part, spot.row, key, selected));
    }

    PressOutcome outcome()
    {
        PressOutcome result;
        appendRow(this->root(), result);
        std::sort(result.selected.begin(), result.selected.end());
        for (const auto& item : GetItemsFromTree(this->panel))
            result.active[item.name] = item.active;
        return result;
    }

    void arrange(const Press& press)
    {
        this->show(items);
        // So that it does not make a double click with an earlier press.
        this->press(this->view().getLocalPoint(this->panel, juce::Point<int>(300, 40)));
        this->letGo();
        this->select(press.selected);
        place = placeOf(press.spot);
        CacheLayerTreeState(table, layerId, this->panel);
        this->holdKey(press.key);
    }

    /// Up to the moment at which the last button is down.
    void begin(const Press& press, Clicks clicks)
    {
        arrange(press);
        this->press(place);
        if (clicks == Clicks::one)
            return;
        this->letGo();
        this->press(place);
    }

    void finish()
    {
        this->letGo();
        this->holdKey(Key::none);
        pump();
    }

    void happen(Meanwhile meanwhile, const std::string& row)
    {
        switch (meanwhile)
        {
        case Meanwhile::nothing:
            return;
        case Meanwhile::muchTime:
            return this->passTime();
        case Meanwhile::rebuildTwice:
            happen(Meanwhile::rebuild, row);
            return happen(Meanwhile::rebuild, row);
        case Meanwhile::rebuildAsBefore:
            return rebuild(items);
        case Meanwhile::clear:
            ClearTree(this->panel);
            return pump();
        case Meanwhile::clearAndRebuild:
        {
            const std::vector<ObjectItem> now = itemsAfter(meanwhile, row);
            CacheLayerTreeState(table, layerId, this->panel);
            ClearTree(this->panel);
            pump();
            return rebuild(now);
        }
        case Meanwhile::end:
            this->deleteWidget();
            return pump();
        default:
            // The pass that follows the press stores the view, and the next one rebuilds.
            CacheLayerTreeState(table, layerId, this->panel);
            return rebuild(itemsAfter(meanwhile, row));
        }
    }

    void rebuild(const std::vector<ObjectItem>& after)
    {
        RefreshTree(this->panel, after);
        ApplyLayerTreeState(table, layerId, this->panel);
        CacheLayerTreeState(table, layerId, this->panel);
        pump();
    }

    juce::Point<int> placeOf(const PressSpot& spot)
    {
        pump();
        if (spot.part == Part::emptySpace)
            return {100, this->view().getHeight() - 20};
        static const std::map<Part, juce::Point<int>> places = {
            {Part::text, {20, 10}}, {Part::box, {6, 10}}, {Part::openBox, {-10, 10}}};
        return this->row(spot.row).getItemPosition(true).getPosition() + places.at(spot.part);
    }

    _TreeStateTable_Internal* table;
    juce::Point<int> place;

private:
    static constexpr int layerId = 1;

    static std::vector<std::vector<std::string>> selectionsFor(const std::string& row)
    {
        if (row.empty())
            return {{}, {"a"}, {"a", "e"}};
        std::vector<std::vector<std::string>> all = {{}, {row}, {"a", row, "e"}, {"e"}};
        if (row != "a")
            all.push_back({"a"});
        return all;
    }

    static bool canHappenTo(const std::string& row, Meanwhile meanwhile)
    {
        if (meanwhile == Meanwhile::loss)
            return !row.empty() && row != "Layer";
        return meanwhile != Meanwhile::changeOfGroup || row == "b" || row == "c";
    }

    void compare(const PressCase& play, const Press& press)
    {
        SCOPED_TRACE(testing::PrintToString(press));
        begin(press, play.clicks);
        finish();
        const PressOutcome quick = outcome();

        begin(press, play.clicks);
        happen(play.meanwhile, press.spot.row);
        if (play.meanwhile == Meanwhile::end)
        {
            finish();
            this->makeWidget();
            return;
        }
        const PressOutcome held = outcome();
        finish();
        const PressOutcome expected = expectedOutcome(play.meanwhile, press.spot, quick, held);
        EXPECT_EQ(outcome(), expected);
    }

    static PressOutcome expectedOutcome(Meanwhile meanwhile, const PressSpot& spot, const PressOutcome& quick,
                                        const PressOutcome& held)
    {
        if (meanwhile == Meanwhile::loss || meanwhile == Meanwhile::clear)
            return held;
        if (meanwhile != Meanwhile::rebuildAsBefore)
            return quick;
        // What the press itself has done is lost with the tree in which it was done: the layer wins. What the
        // row's selection comes to belongs to the release.
        PressOutcome expected = held;
        if (spot.part == Part::text || spot.part == Part::box)
            expected.selected = quick.selected;
        return expected;
    }

    static void appendRow(juce::TreeViewItem* item, PressOutcome& out)
    {
        const auto* row = dynamic_cast<ValueTreeItem*>(item);
        if (row == nullptr)
            return;
        const std::string name = row->getNode()[TreeIds::name].toString().toStdString();
        if (row->isSelected())
            out.selected.push_back(name);
        if (row->isOpen() && row->getNode().getNumChildren() > 0)
            out.open.push_back(name);
        for (int i = 0; i < item->getNumSubItems(); ++i)
            appendRow(item->getSubItem(i), out);
    }

    std::vector<ObjectItem> itemsAfter(Meanwhile meanwhile, const std::string& row)
    {
        std::vector<ObjectItem> after;
        const std::map<std::string, int> active = outcome().active;
        for (ObjectItem item : items)
        {
            if (item.uuid != ZERO_UUID_TEXT)
                item.active = active.at(item.name);
            const bool isRow = item.name == row || (row == "Group 1" && item.group == 1);
            if (isRow && meanwhile == Meanwhile::loss)
                continue;
            if (isRow && meanwhile == Meanwhile::changeOfGroup)
                item.group = 1 - item.group;
            after.push_back(item);
        }
        if (meanwhile == Meanwhile::reorder)
            std::reverse(after.begin(), after.end());
        return after;
    }
};
} // namespace standin
