// What the panel shows.

#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

#include <algorithm>
#include <cstdio>

namespace standin::script
{
namespace
{
using Texts = std::vector<std::string>;

Texts rowTexts(const std::vector<user::PanelRow>& rows)
{
    Texts texts;
    for (const user::PanelRow& row : rows)
        texts.push_back(RowText(row));
    return texts;
}

Texts selectedTexts(const std::vector<user::PanelRow>& rows)
{
    Texts texts;
    for (const user::PanelRow& row : rows)
        if (row.selected == user::Marked::yes)
            texts.push_back(row.text);
    return texts;
}

std::string compareShown(const Texts& wanted, const Texts& found)
{
    return wanted == found ? "" : "the panel shows " + QuotedList(found);
}

const char* nameOf(user::Box box)
{
    switch (box)
    {
    case user::Box::none:
        return "none";
    case user::Box::empty:
        return "empty";
    case user::Box::half:
        return "half full";
    case user::Box::full:
        break;
    }
    return "full";
}

std::string box(Stage& stage, const Arguments& arguments, user::Box wanted)
{
    const user::Box found = stage.Row(arguments.texts[0]).box;
    return found == wanted ? "" : std::string("it is ") + nameOf(found);
}

std::string triangle(Stage& stage, const Arguments& arguments, user::Triangle wanted)
{
    return stage.Row(arguments.texts[0]).triangle == wanted ? "" : "it is not";
}

/// A row with the state of its box.
Texts wholeTexts(const std::vector<user::PanelRow>& rows)
{
    Texts texts;
    for (const user::PanelRow& row : rows)
        texts.push_back(RowText(row) + (row.depth == 0 ? "" : std::string(", box ") + nameOf(row.box)));
    return texts;
}

std::string agreement(Stage& stage)
{
    const Texts wanted = wholeTexts(stage.RowsOfStack());
    const Texts found = wholeTexts(stage.Rows());
    return wanted == found
               ? ""
               : "the stack calls for " + QuotedList(wanted) + "\n  the panel shows " + QuotedList(found);
}

std::string pixel(Stage& stage, const Arguments& arguments)
{
    const user::ScreenPicture picture = stage.session.PanelPicture();
    const int x = arguments.numbers[0];
    const int y = arguments.numbers[1];
    if (x < 0 || y < 0 || x >= picture.width || y >= picture.height)
        throw StageError("the panel has no such pixel");
    char text[8];
    (void)std::snprintf(text, sizeof text, "%06x", static_cast<unsigned>(picture.at(x, y)));
    return arguments.texts[0] == text ? "" : std::string("it is ") + text;
}

std::vector<Phrase> rowPhrases()
{
    return {Expectation("expect rows TEXTS",
                        "All visible rows, with a dash for each level: \"Layer\" \"- Group 1\" \"-- lamp\".",
                        [](Stage& s, const Arguments& a)
                        { return compareShown(a.texts, rowTexts(s.Rows())); }),
            Expectation("expect no rows", "The tree is empty.",
                        [](Stage& s, const Arguments&) { return compareShown({}, rowTexts(s.Rows())); }),
            Expectation("expect panel and stack agree",
                        "Rows, order, groups and boxes match the current layer's stack.",
                        [](Stage& s, const Arguments&) { return agreement(s); }),
            Expectation("expect selected TEXTS", "Exactly these rows are selected.",
                        [](Stage& s, const Arguments& a)
                        { return compareShown(a.texts, selectedTexts(s.Rows())); }),
            Expectation("expect nothing selected", "No row is.",
                        [](Stage& s, const Arguments&) { return compareShown({}, selectedTexts(s.Rows())); }),
            Expectation("expect box of TEXT is full", "Switched on.",
                        [](Stage& s, const Arguments& a) { return box(s, a, user::Box::full); }),
            Expectation("expect box of TEXT is half", "A group of which some are on.",
                        [](Stage& s, const Arguments& a) { return box(s, a, user::Box::half); }),
            Expectation("expect box of TEXT is empty", "Switched off.",
                        [](Stage& s, const Arguments& a) { return box(s, a, user::Box::empty); }),
            Expectation("expect TEXT is open", "A row whose triangle points down.",
                        [](Stage& s, const Arguments& a) { return triangle(s, a, user::Triangle::open); }),
            Expectation("expect TEXT is closed", "A row whose triangle points at it.",
                        [](Stage& s, const Arguments& a) { return triangle(s, a, user::Triangle::closed); })};
}

std::vector<Phrase> widgetPhrases()
{
    return {Expectation("expect buttons TEXTS", "The panel's buttons from the top.",
                        [](Stage& s, const Arguments& a)
                        {
                            Texts texts;
                            for (const user::PanelButton& button : s.Buttons())
                                texts.push_back(button.text);
                            return compareShown(a.texts, texts);
                        }),
            Expectation("expect TEXT offers TEXTS", "The entries of a button's menu.",
                        [](Stage& s, const Arguments& a)
                        {
                            const Texts found = s.OpenMenu(a.texts[0]);
                            s.session.CloseMenu();
                            return compareShown(Texts(a.texts.begin() + 1, a.texts.end()), found);
                        }),
            Expectation("expect notification TEXT", "The text that the panel shows over its middle.",
                        [](Stage& s, const Arguments& a)
                        {
                            s.AddCandidate(a.texts[0]);
                            const std::optional<std::string> found = s.Notification();
                            return compareShown(a.texts, found ? Texts{*found} : Texts{});
                        }),
            Expectation("expect no notification", "None is shown.",
                        [](Stage& s, const Arguments&)
                        {
                            const std::optional<std::string> found = s.Notification();
                            return compareShown({}, found ? Texts{*found} : Texts{});
                        }),
            Expectation("expect the name field", "The field for a new name lies over a row.",
                        [](Stage& s, const Arguments&) {
                            return std::string(user::PanelReader::IsEditorOpen(s.session.PanelPicture())
                                                   ? ""
                                                   : "there is none");
                        }),
            Expectation("expect no name field", "It does not.",
                        [](Stage& s, const Arguments&) {
                            return std::string(user::PanelReader::IsEditorOpen(s.session.PanelPicture())
                                                   ? "there is one"
                                                   : "");
                        }),
            Expectation("expect pixel NUMBER NUMBER is TEXT", "A colour in the panel, as \"rrggbb\".",
                        [](Stage& s, const Arguments& a) { return pixel(s, a); })};
}
} // namespace

PhraseBook ExpectedPanelPhrases()
{
    PhraseBook book{"What the panel shows", rowPhrases()};
    const std::vector<Phrase> more = widgetPhrases();
    book.phrases.insert(book.phrases.end(), more.begin(), more.end());
    return book;
}
} // namespace standin::script
