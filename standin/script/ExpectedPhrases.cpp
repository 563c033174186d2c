// What the host shows: stack, history, menus, alerts, and what the bundle printed and called.

#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

#include <algorithm>

namespace standin::script
{
namespace
{
using Texts = std::vector<std::string>;

std::string compare(const Texts& wanted, const Texts& found)
{
    return wanted == found ? "" : "found " + QuotedList(found);
}

Texts stack(Stage& stage)
{
    Texts names;
    const Layer* layer = stage.host().State().FindLayer(stage.layer);
    if (layer == nullptr)
        throw StageError("there is no layer yet");
    for (const EffectInstance& effect : layer->effects)
        names.push_back(stage.host().NameOf(effect.label));
    return names;
}

EffectInstance& effect(Stage& stage, const Arguments& arguments)
{
    return stage.host().Effect(stage.EffectLabel(arguments.texts[0]));
}

std::string isTrue(bool holds, const std::string& otherwise) { return holds ? "" : otherwise; }

bool contains(const Texts& lines, const std::string& part)
{
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.find(part) != std::string::npos; });
}

/// The newest calls that did more than look, for a message.
std::string lastOf(const Texts& calls)
{
    constexpr std::size_t most = 40;
    std::string text;
    for (std::size_t i = calls.size() > most ? calls.size() - most : 0; i < calls.size(); ++i)
        text += "\n    " + calls[i];
    return text;
}

/// Whether the texts are consecutive lines.
bool containsRow(const Texts& lines, const Texts& texts)
{
    return std::search(lines.begin(), lines.end(), texts.begin(), texts.end()) != lines.end();
}

std::string tick(Stage& stage, const std::string& name, bool wanted)
{
    (void)stage.host().UpdateMenus();
    for (const MenuItem& item : stage.host().MenuItems())
        if (item.name == name)
            return isTrue(item.ticked == wanted, item.ticked ? "it is ticked" : "it is not ticked");
    return "the Window menu has no such entry";
}

std::vector<Phrase> stackPhrases()
{
    return {Expectation("expect stack TEXTS", "The names of the current layer's effects, from the top.",
                        [](Stage& s, const Arguments& a) { return compare(a.texts, stack(s)); }),
            Expectation("expect empty stack", "The current layer has no effects.",
                        [](Stage& s, const Arguments&) { return compare({}, stack(s)); }),
            Expectation("expect TEXT is on", "The effect's switch.",
                        [](Stage& s, const Arguments& a)
                        { return isTrue((effect(s, a).flags & effectActive) != 0, "it is off"); }),
            Expectation("expect TEXT is off", "The effect's switch.",
                        [](Stage& s, const Arguments& a)
                        { return isTrue((effect(s, a).flags & effectActive) == 0, "it is on"); }),
            Expectation("expect TEXT is twirled open", "The effect's row in the Effect Controls.",
                        [](Stage& s, const Arguments& a)
                        { return isTrue(s.host().IsOpen(effect(s, a).label), "it is not"); }),
            Expectation("expect TEXT in group NUMBER", "The group that the effect itself knows.",
                        [](Stage& s, const Arguments& a)
                        {
                            const int group = effect(s, a).family.group;
                            return isTrue(group == a.numbers[0], "it is in group " + std::to_string(group));
                        }),
            Expectation("expect hidden TEXTS", "Exactly these effects of the current layer are hidden.",
                        [](Stage& s, const Arguments& a)
                        {
                            Texts hidden;
                            for (const EffectInstance& each : s.host().State().FindLayer(s.layer)->effects)
                                if (each.groupHidden)
                                    hidden.push_back(s.host().NameOf(each.label));
                            return compare(a.texts, hidden);
                        }),
            Expectation("expect nothing hidden", "Every effect of the current layer is shown.",
                        [](Stage& s, const Arguments&)
                        {
                            Texts hidden;
                            for (const EffectInstance& each : s.host().State().FindLayer(s.layer)->effects)
                                if (each.groupHidden)
                                    hidden.push_back(s.host().NameOf(each.label));
                            return compare({}, hidden);
                        })};
}

std::vector<Phrase> historyPhrases()
{
    return {Expectation("expect undo TEXTS", "What can be undone, the newest first; \"\" has no name.",
                        [](Stage& s, const Arguments& a)
                        {
                            Texts names = s.host().UndoNames();
                            std::reverse(names.begin(), names.end());
                            return compare(a.texts, names);
                        }),
            Expectation("expect next undo TEXT", "The newest step alone.",
                        [](Stage& s, const Arguments& a)
                        {
                            const Texts names = s.host().UndoNames();
                            return compare(a.texts, names.empty() ? Texts{} : Texts{names.back()});
                        }),
            Expectation("expect nothing to undo", "The history is empty.",
                        [](Stage& s, const Arguments&) { return compare({}, s.host().UndoNames()); }),
            Expectation("expect redo TEXTS", "What can be redone, the next first.",
                        [](Stage& s, const Arguments& a) { return compare(a.texts, s.host().RedoNames()); })};
}

std::vector<Phrase> outputPhrases()
{
    return {
        Expectation("expect printed TEXTS",
                    "These lines in this order, among those printed since the last action began.",
                    [](Stage& s, const Arguments& a)
                    {
                        const Texts& lines = s.session.Printed();
                        return isTrue(containsRow(lines, a.texts), "printed was " + QuotedList(lines));
                    }),
        Expectation("expect not printed TEXT", "No such line since the last action began.",
                    [](Stage& s, const Arguments& a)
                    { return isTrue(!containsRow(s.session.Printed(), {a.texts[0]}), "it was printed"); }),
        Expectation("expect nothing printed", "No line at all since the last action began.",
                    [](Stage& s, const Arguments&) { return compare({}, s.session.Printed()); }),
        Expectation("expect call TEXT", "A call of the host that contains this, since the last action began.",
                    [](Stage& s, const Arguments& a)
                    {
                        return isTrue(contains(s.session.Calls(), a.texts[0]),
                                      "no call contains that; the last are" + lastOf(s.session.Calls()));
                    }),
        Expectation(
            "expect NUMBER calls TEXT", "So many calls contain this.",
            [](Stage& s, const Arguments& a)
            {
                const Texts& calls = s.session.Calls();
                const auto count = std::count_if(calls.begin(), calls.end(),
                                                 [&](const std::string& call)
                                                 { return call.find(a.texts[0]) != std::string::npos; });
                return isTrue(count == a.numbers[0],
                              std::to_string(count) + " calls contain that; the last are" + lastOf(calls));
            }),
        Expectation("expect no call TEXT", "No call contains this.",
                    [](Stage& s, const Arguments& a)
                    { return isTrue(!contains(s.session.Calls(), a.texts[0]), "a call contains that"); }),
        Expectation("expect alerts TEXTS", "All alerts since the beginning.",
                    [](Stage& s, const Arguments& a) { return compare(a.texts, s.host().AlertTexts()); }),
        Expectation("expect no alerts", "None since the beginning.",
                    [](Stage& s, const Arguments&) { return compare({}, s.host().AlertTexts()); }),
        Expectation("expect the host got TEXTS",
                    "The keys that reached the host since the last action began.",
                    [](Stage& s, const Arguments& a) { return compare(a.texts, s.session.HostKeys()); }),
        Expectation("expect the host got no key", "The panel kept them all.",
                    [](Stage& s, const Arguments&) { return compare({}, s.session.HostKeys()); }),
        Expectation("expect NUMBER queued functions have run", "Of those that siblings queued.",
                    [](Stage& s, const Arguments& a) {
                        return isTrue(s.queuedRuns == a.numbers[0],
                                      std::to_string(s.queuedRuns) + " have run");
                    }),
        Expectation("expect TEXT is ticked", "In the Window menu.",
                    [](Stage& s, const Arguments& a) { return tick(s, a.texts[0], true); }),
        Expectation("expect TEXT is not ticked", "In the Window menu.",
                    [](Stage& s, const Arguments& a) { return tick(s, a.texts[0], false); })};
}
} // namespace

PhraseBook ExpectedPhrases()
{
    PhraseBook book{"What the host shows", stackPhrases()};
    for (std::vector<Phrase>& more : std::vector<std::vector<Phrase>>{historyPhrases(), outputPhrases()})
        book.phrases.insert(book.phrases.end(), more.begin(), more.end());
    return book;
}
} // namespace standin::script
