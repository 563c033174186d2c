// What a line of a scenario does where there is no screen. The language is the scenarios'; here its lines
// reach the tree's own components.

#include "standin/host/family/Sibling.h"
#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"
#include "tests/walks/LoopSession.h"
#include "tree/NameText.h"
#include "tree/TreeModel.h"

#include <map>
#include <sstream>
#include <stdexcept>

namespace standin::check
{
namespace
{
using Texts = std::vector<std::string>;
using Lines = std::map<std::string, std::function<void(LoopSession&, const script::Arguments&)>>;

void selectLayer(LoopSession& s, const std::string& name)
{
    s.currentLayer = name == "Solid 1" ? s.layerIds.at(0) : s.layerIds.at(1);
    s.host.User().SelectLayers({s.currentLayer});
}

void apply(LoopSession& s, const std::string& name)
{
    for (const InstalledEffect& effect : s.host.InstalledEffects())
        if (effect.defaultName == name)
            return (void)s.host.User().Apply(s.currentLayer, effect.matchName);
    throw std::runtime_error("no effect " + name + " is installed");
}

void requireChange(bool isDone, const char* what)
{
    if (!isDone)
        throw std::runtime_error(std::string("there is nothing to ") + what);
}

void idleInside(LoopSession& s, IdleInCalls everywhere, const char* function = nullptr)
{
    s.host.Idles().Clear();
    s.host.Options().idleInCalls = everywhere;
    if (function != nullptr)
        s.host.Idles().InEachCallOf(function);
}

juce::ModifierKeys keysOf(const std::string& name)
{
    return name == "Control" ? juce::ModifierKeys::commandModifier : juce::ModifierKeys::shiftModifier;
}

/// Beside another row, among the rows that it stands among.
void dropBeside(LoopSession& s, const std::string& dragged, const std::string& other, int below)
{
    ValueTreeItem& row = s.Row(other);
    auto& parent = dynamic_cast<ValueTreeItem&>(*row.getParentItem());
    s.Drop(dragged, parent, parent.getNode().indexOf(row.getNode()) + below);
}

void dropAtEnd(LoopSession& s, const std::string& dragged, ValueTreeItem& target)
{
    s.Drop(dragged, target, target.getNode().getNumChildren());
}

void setPanel(LoopSession& s, PanelState state)
{
    (void)s.host.SetPanelState(user::Session::panelName, state);
}

Lines hostLines()
{
    using S = LoopSession;
    using A = const script::Arguments&;
    return {
        {"apply TEXT", [](S& s, A a) { apply(s, a.texts[0]); }},
        {"rename TEXT to TEXT", [](S& s, A a) { s.host.User().Rename(s.LabelOf(a.texts[0]), a.texts[1]); }},
        {"move TEXT to place NUMBER",
         [](S& s, A a) { s.host.User().Reorder(s.LabelOf(a.texts[0]), a.numbers[0] - 1); }},
        {"delete TEXT", [](S& s, A a) { s.host.User().Delete(s.LabelOf(a.texts[0])); }},
        {"duplicate TEXT", [](S& s, A a) { (void)s.host.User().Duplicate(s.LabelOf(a.texts[0])); }},
        {"turn off TEXT", [](S& s, A a) { s.host.User().SetActive(s.LabelOf(a.texts[0]), Switch::off); }},
        {"turn on TEXT", [](S& s, A a) { s.host.User().SetActive(s.LabelOf(a.texts[0]), Switch::on); }},
        {"put TEXT into group NUMBER", [](S& s, A a)
         { s.host.User().SetGroup(s.LabelOf(a.texts[0]), static_cast<std::int16_t>(a.numbers[0])); }},
        {"undo", [](S& s, A) { requireChange(s.host.Undo(), "undo"); }},
        {"redo", [](S& s, A) { requireChange(s.host.Redo(), "redo"); }},
        {"select layer TEXT", [](S& s, A a) { selectLayer(s, a.texts[0]); }},
        {"select no layer", [](S& s, A) { s.host.User().SelectLayers({}); }},
        {"close all compositions", [](S& s, A) { s.host.User().OpenComposition(0); }},
        {"open composition TEXT", [](S& s, A) { s.host.User().OpenComposition(s.compId); }},
        {"cover the panel", [](S& s, A) { setPanel(s, PanelState::behind); }},
        {"open the panel", [](S& s, A) { setPanel(s, PanelState::frontmost); }},
        {"close the panel", [](S& s, A) { setPanel(s, PanelState::absent); }},
        {"choose TEXT in the WORD menu",
         [](S& s, A a) { requireChange(s.host.ChooseMenuItem(a.texts[0]), "choose"); }},
        {"a sibling opens the panel", [](S& s, A) { (void)Sibling(s.host).OpenPanel(Force::ifNotUp); }},
        {"a sibling opens the panel by force",
         [](S& s, A) { (void)Sibling(s.host).OpenPanel(Force::always); }},
        {"a sibling refreshes the panel", [](S& s, A) { (void)Sibling(s.host).RefreshPanel(); }},
        {"a sibling notifies TEXT", [](S& s, A a) { (void)Sibling(s.host).NotifyPanel(a.texts[0].c_str()); }},
        {"idle inside no call", [](S& s, A) { idleInside(s, IdleInCalls::never); }},
        {"idle inside each call", [](S& s, A) { idleInside(s, IdleInCalls::always); }},
        {"idle inside each call of WORD",
         [](S& s, A a) { idleInside(s, IdleInCalls::never, a.texts[0].c_str()); }},
        {"fail call NUMBER of WORD",
         [](S& s, A a) { s.host.Faults().FailFunction(a.texts[0], static_cast<std::size_t>(a.numbers[0])); }},
        {"all is well again", [](S& s, A) { s.host.Faults().Disarm(); }},
        {"hold idle", [](S&, A) {}}, // The walker holds it.
        {"go on", [](S&, A) {}},
    };
}

Lines panelLines()
{
    using S = LoopSession;
    using A = const script::Arguments&;
    return {
        {"click row TEXT", [](S& s, A a) { s.ClickAt(s.Row(a.texts[0]), S::onText); }},
        {"click row TEXT with WORD",
         [](S& s, A a) { s.ClickAt(s.Row(a.texts[0]), S::onText, keysOf(a.texts[1])); }},
        {"click box of TEXT", [](S& s, A a) { s.ClickAt(s.Row(a.texts[0]), S::onBox); }},
        {"click triangle of TEXT", [](S& s, A a) { s.ClickAt(s.Row(a.texts[0]), S::onTriangle); }},
        {"double click row TEXT", [](S& s, A a) { s.DoubleClick(s.Row(a.texts[0])); }},
        {"hold the button on row TEXT", [](S& s, A a) { s.PressAt(s.Row(a.texts[0]), S::onText); }},
        {"hold the button on row TEXT with WORD",
         [](S& s, A a) { s.PressAt(s.Row(a.texts[0]), S::onText, keysOf(a.texts[1])); }},
        {"hold the button on box of TEXT", [](S& s, A a) { s.PressAt(s.Row(a.texts[0]), S::onBox); }},
        {"hold the button on box of TEXT with WORD",
         [](S& s, A a) { s.PressAt(s.Row(a.texts[0]), S::onBox, keysOf(a.texts[1])); }},
        {"let go", [](S& s, A) { s.LetGo(); }},
        {"click the panel",
         [](S& s, A)
         {
             s.Window().wait(1000);
             s.Window().press({s.Tree().getWidth() - 20, 40});
             s.Window().release();
         }},
        {"click button TEXT", [](S& s, A a) { s.ClickButton(a.texts[0]); }},
        {"choose TEXT from TEXT", [](S& s, A a) { s.ChooseFromMenu(a.texts[0]); }},
        {"press WORD", [](S& s, A a) { s.PressKey(a.texts[0]); }},
        {"type TEXT", [](S& s, A a) { s.Tree().treeView.renameEditor->setText(TextFromBytes(a.texts[0])); }},
        {"drag row TEXT into TEXT", [](S& s, A a) { dropAtEnd(s, a.texts[0], s.Row(a.texts[1])); }},
        {"drag row TEXT above TEXT", [](S& s, A a) { dropBeside(s, a.texts[0], a.texts[1], 0); }},
        {"drag row TEXT below TEXT", [](S& s, A a) { dropBeside(s, a.texts[0], a.texts[1], 1); }},
        {"drag row TEXT to the end", [](S& s, A a) { dropAtEnd(s, a.texts[0], *s.Rows().front()); }},
    };
}

const Lines& allLines()
{
    static const Lines lines = []
    {
        Lines all = hostLines();
        all.merge(panelLines());
        return all;
    }();
    return lines;
}
} // namespace

void LoopSession::Do(const std::string& line)
{
    std::istringstream text(line);
    for (const script::Statement& statement : script::ParseScenario(text, "walk"))
    {
        const script::Step step = script::BindPhrase(statement);
        const auto found = allLines().find(step.phrase->pattern);
        if (found == allLines().end())
            throw std::runtime_error("without a screen there is no line " + line);
        found->second(*this, step.arguments);
    }
}
} // namespace standin::check
