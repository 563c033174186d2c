// What happens in the host, outside the panel.

#include "standin/host/core/HostParts.h"
#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"
#include "standin/user/eyes/Png.h"

#include <map>

namespace standin::script
{
namespace
{
UserActions& user(Stage& stage) { return stage.host().User(); }

void selectLayers(Stage& stage, const std::vector<std::string>& names)
{
    std::vector<int> ids;
    ids.reserve(names.size());
    for (const std::string& name : names)
        ids.push_back(stage.LayerId(name));
    stage.layer = ids.front();
    user(stage).SelectLayers(ids);
}

void activate(Stage& stage, const std::string& window)
{
    const std::map<std::string, ActivePanel> windows{{"timeline", ActivePanel::timeline},
                                                     {"composition", ActivePanel::comp},
                                                     {"project", ActivePanel::project},
                                                     {"layer", ActivePanel::layer},
                                                     {"effect-controls", ActivePanel::effectControls},
                                                     {"render-queue", ActivePanel::renderQueue},
                                                     {"panel", ActivePanel::ours},
                                                     {"nothing", ActivePanel::none}};
    const auto found = windows.find(window);
    if (found == windows.end())
        throw StageError("the host has no window " + window);
    user(stage).Activate(found->second);
}

/// "Undo" with the step's name, as the menu shows it.
std::string entryFor(const std::string& verb, const std::vector<std::string>& names, std::size_t index)
{
    if (names.empty())
        return "";
    return names[index].empty() ? verb : verb + " " + names[index];
}

void chooseFromEdit(Stage& stage, const std::string& entry)
{
    const std::vector<std::string> undo = stage.host().UndoNames();
    const std::string canUndo = entryFor("Undo", undo, undo.empty() ? 0 : undo.size() - 1);
    const std::string canRedo = entryFor("Redo", stage.host().RedoNames(), 0);
    if (!canUndo.empty() && entry == canUndo)
        (void)stage.host().RunCommand(commandUndo);
    else if (!canRedo.empty() && entry == canRedo)
        (void)stage.host().RunCommand(commandRedo);
    else
        throw StageError("the Edit menu offers " + QuotedList({canUndo, canRedo}));
}

void chooseFromMenuBar(Stage& stage, const std::string& menu, const std::string& entry)
{
    if (menu == "Edit")
        return chooseFromEdit(stage, entry);
    if (menu == "Effect")
        return (void)user(stage).Apply(stage.layer, stage.Installed(entry).matchName);
    if (menu != "Window")
        throw StageError("the menus are Edit, Effect and Window");
    if (!stage.host().ChooseMenuItem(entry))
        throw StageError("the Window menu does not offer " + Quoted(entry));
}

void twirl(Stage& stage, const std::string& name)
{
    user(stage).ToggleTwirl(stage.host().Effect(stage.EffectLabel(name)).id);
}

void setPanel(Stage& stage, PanelState state)
{
    if (stage.host().FindPanel(user::Session::panelName) == nullptr)
        throw StageError("no plug-in has registered the panel");
    (void)stage.host().SetPanelState(user::Session::panelName, state);
}

void requireWell(const LoadedPlugin& plugin, const char* entry)
{
    if (!plugin.result.thrown.empty())
        throw StageError(std::string(entry) + " was left by " + plugin.result.thrown);
}

void takePicture(Stage& stage, const std::string& name)
{
    user::WritePng(stage.session.hands.screen(), stage.pictures + "/" + name + ".png");
}

std::vector<Phrase> effectPhrases()
{
    return {Action("apply TEXT", "Applies an effect from the Effect menu to the current layer.",
                   [](Stage& s, const Arguments& a) { chooseFromMenuBar(s, "Effect", a.texts[0]); }),
            Action("rename TEXT to TEXT", "Renames an effect in the Effect Controls.",
                   [](Stage& s, const Arguments& a)
                   { user(s).Rename(s.EffectLabel(a.texts[0]), a.texts[1]); }),
            Action("move TEXT to place NUMBER", "Drags an effect in the Effect Controls; 1 is the top.",
                   [](Stage& s, const Arguments& a)
                   { user(s).Reorder(s.EffectLabel(a.texts[0]), a.numbers[0] - 1); }),
            Action("delete TEXT", "Deletes an effect in the Effect Controls.",
                   [](Stage& s, const Arguments& a) { user(s).Delete(s.EffectLabel(a.texts[0])); }),
            Action("duplicate TEXT", "The copy comes right after the original.",
                   [](Stage& s, const Arguments& a) { (void)user(s).Duplicate(s.EffectLabel(a.texts[0])); }),
            Action("turn off TEXT", "Clicks the effect's switch in the Effect Controls.",
                   [](Stage& s, const Arguments& a)
                   { user(s).SetActive(s.EffectLabel(a.texts[0]), Switch::off); }),
            Action("turn on TEXT", "The other way round.",
                   [](Stage& s, const Arguments& a)
                   { user(s).SetActive(s.EffectLabel(a.texts[0]), Switch::on); }),
            Action("hide TEXT", "Hides an effect in the Effect Controls.",
                   [](Stage& s, const Arguments& a)
                   { user(s).SetHidden(s.EffectLabel(a.texts[0]), Switch::on); }),
            Action("show TEXT", "The other way round.",
                   [](Stage& s, const Arguments& a)
                   { user(s).SetHidden(s.EffectLabel(a.texts[0]), Switch::off); }),
            Action("twirl TEXT", "Opens or closes the effect's row in the Effect Controls.",
                   [](Stage& s, const Arguments& a) { twirl(s, a.texts[0]); }),
            Action("put TEXT into group NUMBER", "Changes the group in the effect's own controls.",
                   [](Stage& s, const Arguments& a)
                   { user(s).SetGroup(s.EffectLabel(a.texts[0]), static_cast<std::int16_t>(a.numbers[0])); }),
            Action("undo", "One step back, whatever it is called.",
                   [](Stage& s, const Arguments&)
                   {
                       if (!s.host().Undo())
                           throw StageError("there is nothing to undo");
                   }),
            Action("redo", "One step forth.",
                   [](Stage& s, const Arguments&)
                   {
                       if (!s.host().Redo())
                           throw StageError("there is nothing to redo");
                   }),
            Action("choose TEXT in the WORD menu",
                   "Chooses from the host's menu bar: the Edit menu with the step's name (\"Undo Rename "
                   "Effect(s)\"), the "
                   "Effect menu, or the Window menu.",
                   [](Stage& s, const Arguments& a) { chooseFromMenuBar(s, a.texts[1], a.texts[0]); })};
}

std::vector<Phrase> viewPhrases()
{
    return {
        Action("select layer TEXT", "Selects a layer in the timeline; it is the current one from now on.",
               [](Stage& s, const Arguments& a) { selectLayers(s, a.texts); }),
        Action("select layers TEXTS", "Selects several, so that none is active.",
               [](Stage& s, const Arguments& a) { selectLayers(s, a.texts); }),
        Action("select no layer", "Nothing is selected in the timeline.",
               [](Stage& s, const Arguments&) { user(s).SelectLayers({}); }),
        Action("open composition TEXT", "Brings the composition's tab to the front.",
               [](Stage& s, const Arguments& a) { user(s).OpenComposition(s.ItemId(a.texts[0])); }),
        Action("close all compositions", "There is no active item then.",
               [](Stage& s, const Arguments&) { user(s).OpenComposition(0); }),
        Action("activate WORD",
               "Gives the focus to a window of the host: timeline, composition, project, layer, "
               "effect-controls, "
               "render-queue, panel or nothing.",
               [](Stage& s, const Arguments& a) { activate(s, a.texts[0]); }),
        Action("open the panel", "Brings the panel's tab to the front.",
               [](Stage& s, const Arguments&) { setPanel(s, PanelState::frontmost); }),
        Action("open another panel", "Opens a second panel of the same name, in front of the first.",
               [](Stage& s, const Arguments&) { (void)s.host().OpenAnotherPanel(user::Session::panelName); }),
        Action("open a dialog", "A modal dialog of the host opens: no menu can be used until it is closed.",
               [](Stage& s, const Arguments&) { s.host().OpenDialog(); }),
        Action("close the dialog", "The other way round.",
               [](Stage& s, const Arguments&) { s.host().CloseDialog(); }),
        Action("select effect TEXT", "Selects an effect in the Effect Controls.",
               [](Stage& s, const Arguments& a) { user(s).SelectEffect(s.EffectLabel(a.texts[0])); }),
        Action("cover the panel", "Brings another tab in front of it.",
               [](Stage& s, const Arguments&) { setPanel(s, PanelState::behind); }),
        Action("close the panel", "Closes its tab.",
               [](Stage& s, const Arguments&) { setPanel(s, PanelState::absent); }),
        Action("resize the panel to NUMBER by NUMBER", "Width and height in pixels.",
               [](Stage& s, const Arguments& a) { s.session.ResizePanel(a.numbers[0], a.numbers[1]); }),
        Action("filter the calls for TEXT", "Types into the filter of the desktop's list of calls.",
               [](Stage&, const Arguments&) { throw StageError("only the desktop lists the calls"); }),
        Action("quit", "Ends the host. Nothing happens afterwards, but expectations can follow.",
               [](Stage& s, const Arguments&) { s.session.End(); })};
}

std::vector<Phrase> runPhrases()
{
    return {
        Setting(
            "load the idle suite",
            "Calls one entry point of the bundle. A scenario without such a line begins with both loaded.",
            [](Stage& s, const Arguments&)
            { requireWell(s.session.TheBundle().LoadIdleSuite(s.host()), "EffectorAEGP"); }),
        Setting("load the panel plug-in", "Calls the other one.",
                [](Stage& s, const Arguments&)
                { requireWell(s.session.TheBundle().LoadPanel(s.host()), "PanelEntryPointFunc"); }),
        Setting("hold idle", "From now on the host does not idle, as while a mouse button is held.",
                [](Stage& s, const Arguments&) { s.held = IdleHeld::yes; }),
        Action("go on", "The host idles again, until all is quiet.",
               [](Stage& s, const Arguments&) { s.held = IdleHeld::no; }),
        Setting("idle NUMBER times", "Exactly so many idle passes.",
                [](Stage& s, const Arguments& a)
                {
                    for (int i = 0; i < a.numbers[0]; ++i)
                        s.session.Idle();
                }),
        Setting("wait NUMBER milliseconds", "The host idles for so long.",
                [](Stage& s, const Arguments& a)
                { s.session.IdleFor(std::chrono::milliseconds(a.numbers[0])); }),
        Setting("picture TEXT", "Leaves a picture of the screen under this name, as PNG.",
                [](Stage& s, const Arguments& a) { takePicture(s, a.texts[0]); }),
        Setting("say TEXT", "Tells the spectators what comes next.",
                [](Stage& s, const Arguments& a) { s.tell(a.texts[0]); })};
}
} // namespace

PhraseBook HostPhrases()
{
    PhraseBook book{"The host", effectPhrases()};
    for (std::vector<Phrase>& more : std::vector<std::vector<Phrase>>{viewPhrases(), runPhrases()})
        book.phrases.insert(book.phrases.end(), more.begin(), more.end());
    return book;
}
} // namespace standin::script
