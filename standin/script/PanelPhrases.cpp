// What a user does in the panel, by what they see of it.

#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

namespace standin::script
{
namespace
{
constexpr int middle = user::PanelReader::rowHeight / 2;

/// A place of a row on the screen, from its left upper corner.
user::Place inRow(const Stage& stage, const user::PanelRow& row, user::Place place)
{
    return stage.session.OnScreen(user::Place{row.x, row.y} + place);
}

user::Place textOf(Stage& stage, const std::string& name)
{
    const user::PanelRow row = stage.Row(name);
    return inRow(stage, row, {row.depth == 0 ? 12 : 20, middle});
}

user::Place boxOf(Stage& stage, const std::string& name)
{
    return inRow(stage, stage.Row(name), {6, middle});
}

user::Place triangleOf(Stage& stage, const std::string& name)
{
    return inRow(stage, stage.Row(name), {-10, middle});
}

user::Place upperEdgeOf(Stage& stage, const std::string& name)
{
    return inRow(stage, stage.Row(name), {10, 2});
}

user::Place lowerEdge(const Stage& stage, const user::PanelRow& row)
{
    return inRow(stage, row, {10, user::PanelReader::rowHeight - 4});
}

/// Where a row has to be dropped to land in a group: after what is in it, or on the group itself.
user::Place insideOf(Stage& stage, const user::PanelRow& group)
{
    user::PanelRow last = group;
    for (const user::PanelRow& row : stage.Rows())
    {
        if (row.y != last.y + user::PanelReader::rowHeight || row.depth <= group.depth)
            continue;
        last = row;
    }
    return last.y == group.y ? inRow(stage, group, {10, middle}) : lowerEdge(stage, last);
}

void drag(Stage& stage, const std::string& name, user::Place target)
{
    stage.session.Drag(textOf(stage, name), target);
}

void dragToEnd(Stage& stage, const std::string& name)
{
    const std::vector<user::PanelRow> rows = stage.Rows();
    const int below = rows.empty() ? 0 : rows.back().y + 2 * user::PanelReader::rowHeight;
    drag(stage, name, stage.session.OnScreen({60, below}));
}

void press(Stage& stage, const std::string& key, int times)
{
    for (int i = 0; i < times; ++i)
    {
        stage.session.PressKey(key);
        if (stage.held == IdleHeld::no)
            stage.session.Idle();
    }
}

/// A place of the panel where nothing stands.
user::Place emptyPlace(const Stage& stage)
{
    return stage.session.OnScreen({stage.session.PanelArea().width - 20, 40});
}

user::Place belowRows(const Stage& stage)
{
    return stage.session.OnScreen({60, stage.session.PanelArea().height - 30});
}

std::vector<Phrase> mousePhrases()
{
    return {
        Action("click row TEXT", "Clicks the text of a row. \"lamp#2\" is the second row of that text.",
               [](Stage& s, const Arguments& a) { s.session.Click(textOf(s, a.texts[0])); }),
        Action("click row TEXT with WORD", "With Control to add it to the selection, with Shift up to it.",
               [](Stage& s, const Arguments& a) { s.session.Click(textOf(s, a.texts[0]), {a.texts[1]}); }),
        Action("click box of TEXT", "Clicks a row's check box.",
               [](Stage& s, const Arguments& a) { s.session.Click(boxOf(s, a.texts[0])); }),
        Action("click triangle of TEXT", "Opens or closes a row.",
               [](Stage& s, const Arguments& a) { s.session.Click(triangleOf(s, a.texts[0])); }),
        Action("double click row TEXT", "Two clicks in quick succession.",
               [](Stage& s, const Arguments& a) { s.session.DoubleClick(textOf(s, a.texts[0])); }),
        Action("double click box of TEXT", "The same on a row's check box.",
               [](Stage& s, const Arguments& a) { s.session.DoubleClick(boxOf(s, a.texts[0])); }),
        Action("click the panel", "Clicks the empty place beside the buttons.",
               [](Stage& s, const Arguments&) { s.session.Click(emptyPlace(s)); }),
        Action("click below the rows", "Clicks in the tree, under its last row.",
               [](Stage& s, const Arguments&) { s.session.Click(belowRows(s)); }),
        Action("click the host",
               "Clicks the host's own window. The panel gives the keyboard back; the host does not take it.",
               [](Stage& s, const Arguments&) { s.session.ClickHost(); }),
        Action("click button TEXT", "Clicks a button of the panel.",
               [](Stage& s, const Arguments& a) { s.session.Click(s.MiddleOf(s.Button(a.texts[0]))); }),
        Action("choose TEXT from TEXT", "Opens a button's menu and clicks an entry of it.",
               [](Stage& s, const Arguments& a) { s.ChooseFromMenu(a.texts[1], a.texts[0]); }),
        Action("choose nothing from TEXT", "Opens a button's menu and leaves it with Escape.",
               [](Stage& s, const Arguments& a)
               {
                   (void)s.OpenMenu(a.texts[0]);
                   s.session.CloseMenu();
               }),
        Action("scroll NUMBER notches", "Turns the mouse wheel over the rows, down if above 0.",
               [](Stage& s, const Arguments& a) { s.session.Wheel(belowRows(s), a.numbers[0]); })};
}

void hold(Stage& stage, user::Place place, const std::vector<std::string>& modifiers = {})
{
    stage.pressed = place;
    stage.session.Press(place, modifiers);
}

/// The button stays down, so that what follows happens under it.
std::vector<Phrase> holdPhrases()
{
    return {
        Action("hold the button on row TEXT", "Presses the button on the text of a row, and keeps it down.",
               [](Stage& s, const Arguments& a) { hold(s, textOf(s, a.texts[0])); }),
        Action("hold the button on row TEXT with WORD", "And Control or Shift with it.",
               [](Stage& s, const Arguments& a) { hold(s, textOf(s, a.texts[0]), {a.texts[1]}); }),
        Action("hold the button on box of TEXT", "The same on a row's check box.",
               [](Stage& s, const Arguments& a) { hold(s, boxOf(s, a.texts[0])); }),
        Action("hold the button on box of TEXT with WORD", "And Control or Shift with it.",
               [](Stage& s, const Arguments& a) { hold(s, boxOf(s, a.texts[0]), {a.texts[1]}); }),
        Action("move below TEXT", "Moves the mouse to the lower edge of a row.",
               [](Stage& s, const Arguments& a)
               { s.session.Move(s.pressed, lowerEdge(s, s.Row(a.texts[0]))); }),
        Action("let go", "Releases what is held.", [](Stage& s, const Arguments&) { s.session.Release(); })};
}

std::vector<Phrase> dragPhrases()
{
    return {Action("drag row TEXT into TEXT", "Drops a row on a group, after the rows in it.",
                   [](Stage& s, const Arguments& a) { drag(s, a.texts[0], insideOf(s, s.Row(a.texts[1]))); }),
            Action("drag row TEXT above TEXT", "Drops a row at the upper edge of another.",
                   [](Stage& s, const Arguments& a) { drag(s, a.texts[0], upperEdgeOf(s, a.texts[1])); }),
            Action("drag row TEXT below TEXT", "Drops a row at the lower edge of another.",
                   [](Stage& s, const Arguments& a)
                   { drag(s, a.texts[0], lowerEdge(s, s.Row(a.texts[1]))); }),
            Action("drag row TEXT to the end", "Drops a row under the last one.",
                   [](Stage& s, const Arguments& a) { dragToEnd(s, a.texts[0]); })};
}

std::vector<Phrase> keyPhrases()
{
    return {Action("press WORD", "Presses a key: Return, Delete, Escape, Up, Control+a.",
                   [](Stage& s, const Arguments& a) { press(s, a.texts[0], 1); }),
            Action("press WORD NUMBER times", "The same key several times.",
                   [](Stage& s, const Arguments& a) { press(s, a.texts[0], a.numbers[0]); }),
            Action("type TEXT", "Types a text. In the field for a new name it replaces the old one.",
                   [](Stage& s, const Arguments& a) { s.session.TypeText(a.texts[0]); })};
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
} // namespace standin::script
