// What a user does in the panel, by what they see of it.

#include "standin/scenario/Phrase.h"
#include "standin/scenario/Stage.h"
#include "standin/session/Typing.h"

namespace standin
{
namespace
{
constexpr int middle = PanelReader::rowHeight / 2;

Place textOf(const PanelRow& row) { return {row.x + (row.depth == 0 ? 12 : 20), row.y + middle}; }
Place boxOf(const PanelRow& row) { return {row.x + 6, row.y + middle}; }
Place triangleOf(const PanelRow& row) { return {row.x - 10, row.y + middle}; }

void clickButton(Stage& stage, const std::string& name)
{
    const PanelButton button = stage.Button(name);
    stage.session.Click({button.x + PanelReader::buttonWidth / 2, button.y + PanelReader::buttonHeight / 2});
}

/// Where a row has to be dropped to land in a group: behind what is in it, or on the group itself.
Place insideOf(Stage& stage, const PanelRow& group)
{
    PanelRow last = group;
    for (const PanelRow& row : stage.Rows())
    {
        if (row.y != last.y + PanelReader::rowHeight || row.depth <= group.depth)
            continue;
        last = row;
    }
    const bool isEmpty = last.y == group.y;
    return {last.x + 10, last.y + (isEmpty ? middle : PanelReader::rowHeight - 4)};
}

void drag(Stage& stage, const std::string& name, Place target)
{
    stage.session.Drag(textOf(stage.Row(name)), target);
}

void dragToEnd(Stage& stage, const std::string& name)
{
    const std::vector<PanelRow> rows = stage.Rows();
    const int below = rows.empty() ? 0 : rows.back().y + 2 * PanelReader::rowHeight;
    drag(stage, name, {60, below});
}

void press(Stage& stage, const std::string& key, int times)
{
    for (int i = 0; i < times; ++i)
    {
        PressKey(stage.session.user, key);
        if (stage.held == IdleHeld::no)
            stage.session.Idle();
    }
}

/// A place of the panel where nothing stands.
Place emptyPlace(const Stage& stage) { return {stage.session.dock.ContainerOnScreen().width - 20, 40}; }

Place belowRows(const Stage& stage) { return {60, stage.session.dock.ContainerOnScreen().height - 30}; }

std::vector<Phrase> mousePhrases()
{
    constexpr auto action = Phrase::Kind::action;
    return {{action,
             "click row TEXT",
             "Clicks the text of a row. \"lamp#2\" is the second row of that text.",
             [](Stage& s, const Arguments& a) { s.session.Click(textOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "click row TEXT with WORD",
             "With Control to add it to the selection, with Shift up to it.",
             [](Stage& s, const Arguments& a) { s.session.Click(textOf(s.Row(a.texts[0])), {a.texts[1]}); },
             {}},
            {action,
             "click box of TEXT",
             "Clicks a row's check box.",
             [](Stage& s, const Arguments& a) { s.session.Click(boxOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "click triangle of TEXT",
             "Opens or closes a row.",
             [](Stage& s, const Arguments& a) { s.session.Click(triangleOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "double click row TEXT",
             "Two clicks in quick succession.",
             [](Stage& s, const Arguments& a) { s.session.DoubleClick(textOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "double click box of TEXT",
             "The same on a row's check box.",
             [](Stage& s, const Arguments& a) { s.session.DoubleClick(boxOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "click the panel",
             "Clicks where nothing stands, beside the buttons.",
             [](Stage& s, const Arguments&) { s.session.Click(emptyPlace(s)); },
             {}},
            {action,
             "click below the rows",
             "Clicks in the tree, under its last row.",
             [](Stage& s, const Arguments&) { s.session.Click(belowRows(s)); },
             {}},
            {action,
             "click the host",
             "Clicks the host's own window. The panel gives the keyboard back; the host does not take it.",
             [](Stage& s, const Arguments&) { s.session.ClickOnHost(); },
             {}},
            {action,
             "click button TEXT",
             "Clicks a button of the panel.",
             [](Stage& s, const Arguments& a) { clickButton(s, a.texts[0]); },
             {}},
            {action,
             "choose TEXT from TEXT",
             "Opens a button's menu and clicks an entry of it.",
             [](Stage& s, const Arguments& a) { s.ChooseFromMenu(a.texts[1], a.texts[0]); },
             {}},
            {action,
             "choose nothing from TEXT",
             "Opens a button's menu and leaves it with Escape.",
             [](Stage& s, const Arguments& a)
             {
                 (void)s.OpenMenu(a.texts[0]);
                 s.CloseMenu();
             },
             {}},
            {action,
             "scroll NUMBER notches",
             "Turns the mouse wheel over the rows, down if above 0.",
             [](Stage& s, const Arguments& a) { s.session.Wheel(belowRows(s), a.numbers[0]); },
             {}}};
}

void hold(Stage& stage, Place place, const std::vector<std::string>& modifiers = {})
{
    stage.pressed = place;
    stage.session.Press(place, modifiers);
}

/// The button stays down, so that what follows happens under it.
std::vector<Phrase> holdPhrases()
{
    constexpr auto action = Phrase::Kind::action;
    return {{action,
             "hold the button on row TEXT",
             "Presses the button on the text of a row, and keeps it down.",
             [](Stage& s, const Arguments& a) { hold(s, textOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "hold the button on row TEXT with WORD",
             "And Control or Shift with it.",
             [](Stage& s, const Arguments& a) { hold(s, textOf(s.Row(a.texts[0])), {a.texts[1]}); },
             {}},
            {action,
             "hold the button on box of TEXT",
             "The same on a row's check box.",
             [](Stage& s, const Arguments& a) { hold(s, boxOf(s.Row(a.texts[0]))); },
             {}},
            {action,
             "hold the button on box of TEXT with WORD",
             "And Control or Shift with it.",
             [](Stage& s, const Arguments& a) { hold(s, boxOf(s.Row(a.texts[0])), {a.texts[1]}); },
             {}},
            {action,
             "move below TEXT",
             "Moves the mouse to the lower edge of a row.",
             [](Stage& s, const Arguments& a)
             {
                 const PanelRow target = s.Row(a.texts[0]);
                 const Place to = {target.x + 10, target.y + PanelReader::rowHeight - 4};
                 s.session.Move(s.pressed, to);
             },
             {}},
            {action,
             "let go",
             "Releases what is held.",
             [](Stage& s, const Arguments&) { s.session.Release(); },
             {}}};
}

std::vector<Phrase> dragPhrases()
{
    constexpr auto action = Phrase::Kind::action;
    return {{action,
             "drag row TEXT into TEXT",
             "Drops a row on a group, behind what is in it.",
             [](Stage& s, const Arguments& a) { drag(s, a.texts[0], insideOf(s, s.Row(a.texts[1]))); },
             {}},
            {action,
             "drag row TEXT above TEXT",
             "Drops a row at the upper edge of another.",
             [](Stage& s, const Arguments& a)
             {
                 const PanelRow target = s.Row(a.texts[1]);
                 drag(s, a.texts[0], {target.x + 10, target.y + 2});
             },
             {}},
            {action,
             "drag row TEXT below TEXT",
             "Drops a row at the lower edge of another.",
             [](Stage& s, const Arguments& a)
             {
                 const PanelRow target = s.Row(a.texts[1]);
                 drag(s, a.texts[0], {target.x + 10, target.y + PanelReader::rowHeight - 4});
             },
             {}},
            {action,
             "drag row TEXT to the end",
             "Drops a row under the last one.",
             [](Stage& s, const Arguments& a) { dragToEnd(s, a.texts[0]); },
             {}}};
}

std::vector<Phrase> keyPhrases()
{
    constexpr auto action = Phrase::Kind::action;
    return {{action,
             "press WORD",
             "Presses a key: Return, Delete, Escape, Up, Control+a.",
             [](Stage& s, const Arguments& a) { press(s, a.texts[0], 1); },
             {}},
            {action,
             "press WORD NUMBER times",
             "The same key several times.",
             [](Stage& s, const Arguments& a) { press(s, a.texts[0], a.numbers[0]); },
             {}},
            {action,
             "type TEXT",
             "Types a text. In the field for a new name it takes the place of the old one.",
             [](Stage& s, const Arguments& a) { TypeText(s.session.user, a.texts[0]); },
             {}}};
}
} // namespace

PhraseBook PanelPhrases()
{
    PhraseBook book{"The panel", mousePhrases()};
    for (std::vector<Phrase>& more :
         std::vector<std::vector<Phrase>>{holdPhrases(), dragPhrases(), keyPhrases()})
        book.phrases.insert(book.phrases.end(), more.begin(), more.end());
    return book;
}
} // namespace standin
