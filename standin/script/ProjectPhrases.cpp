// The scene before the play: the project, and how the host and its effects are.

#include "standin/host/bundle/EffectModule.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/core/HostSwitches.h"
#include "standin/host/core/StackChanges.h"
#include "standin/host/family/Liars.h"
#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

#include <algorithm>
#include <filesystem>

namespace standin::script
{
namespace
{
void addLayer(Stage& stage, const std::string& name)
{
    if (stage.composition == 0)
        throw StageError("a layer needs a composition before it");
    stage.layer = stage.host().AddLayer(stage.composition, name);
    stage.host().User().SelectLayers({stage.layer});
}

/// The effect has been there all along: what it asked the panel for when it was applied is long done.
std::string addEffect(Stage& stage, const std::string& kind)
{
    if (stage.layer == 0)
        throw StageError("an effect needs a layer before it");
    FaultPlan& faults = stage.host().Faults();
    for (const char* const suite : {VORTAN_IDLE_SUITE_NAME, VORTAN_PANEL_SUITE_NAME})
        faults.Withhold(suite);
    const int id = stage.host().AddEffect(stage.layer, stage.Installed(kind).matchName);
    for (const char* const suite : {VORTAN_IDLE_SUITE_NAME, VORTAN_PANEL_SUITE_NAME})
        faults.GiveBack(suite);
    return stage.host().State().FindEffect(id)->label;
}

void addNamed(Stage& stage, const std::string& kind, const std::string& name)
{
    stage.host().Effect(addEffect(stage, kind)).customName = name;
}

void addLayerWithThreeObjects(Stage& stage, const std::string& name)
{
    if (stage.composition == 0)
        stage.composition = stage.host().AddComposition("Comp 1");
    addLayer(stage, name);
    addNamed(stage, "Vortan Sheets Object", "lamp");
    addNamed(stage, "Vortan Route Object", "route");
    addNamed(stage, "Vortan Dots Renderer", "dots");
    for (const char* const text : {"lamp", "route", "dots"})
        stage.AddCandidate(text);
}

EffectInstance& effect(Stage& stage, const std::string& name)
{
    return stage.host().Effect(stage.EffectLabel(name));
}

/// An effect whose answers are the stand-in's. What the effect of a module answers is its own business.
EffectInstance& simulated(Stage& stage, const std::string& name)
{
    EffectInstance& found = effect(stage, name);
    if (!found.family.kept.empty())
        throw StageError(Quoted(name) + " comes from a module and answers for itself");
    return found;
}

void putIntoGroup(Stage& stage, const std::string& name, int group)
{
    const EffectInstance& found = effect(stage, name);
    stage.host().ProjectView().BehaviourOf(found).OnGroupChosen(
        {stage.host(), found.id}, static_cast<std::int16_t>(group), Undoable::no);
}

void installModule(Stage& stage, const std::string& file)
{
    // An absolute path stays as it is.
    const auto path = std::filesystem::path(stage.folder) / file;
    InstallEffectModule(stage.host(), path.string());
    for (const InstalledEffect& installed : stage.host().InstalledEffects())
        stage.AddCandidate(installed.defaultName);
}

void uninstall(Stage& stage, const std::string& name)
{
    stage.host().Uninstall(stage.Installed(name).matchName);
}

void turnSwitch(Stage& stage, const std::string& word)
{
    if (const HostSwitch* found = FindHostSwitch(word))
        return found->turn(stage.host().Options());
    std::string words;
    for (const HostSwitch& each : HostSwitches())
        words += std::string("\n    ") + each.word;
    throw StageError("the host has no switch " + word + "; it has" + words);
}
} // namespace

PhraseBook ProjectPhrases()
{
    return {
        "The project",
        {Setting("composition TEXT", "The project has a composition of this name; layers go into it.",
                 [](Stage& s, const Arguments& a) { s.composition = s.host().AddComposition(a.texts[0]); }),
         Setting("layer TEXT", "The composition has this layer. It is selected, and effects go onto it.",
                 [](Stage& s, const Arguments& a) { addLayer(s, a.texts[0]); }),
         Setting("layer TEXT with three objects",
                 "The same, with \"lamp\" and \"route\", which are geometry, and below them \"dots\", a "
                 "renderer, "
                 "in \"Comp 1\" if "
                 "there is no composition.",
                 [](Stage& s, const Arguments& a) { addLayerWithThreeObjects(s, a.texts[0]); }),
         {Phrase::Kind::action,
          "open the panel on three objects",
          "The layer \"Solid 1\" with these, and the panel in front.",
          [](Stage& s, const Arguments&)
          {
              addLayerWithThreeObjects(s, "Solid 1");
              (void)s.host().SetPanelState(user::Session::panelName, PanelState::frontmost);
          },
          {}},
         Setting("footage TEXT", "The project has a footage item.",
                 [](Stage& s, const Arguments& a) { (void)s.host().AddFootage(a.texts[0]); }),
         Setting("effect TEXT",
                 "The layer has one more effect at its end, by its match name or its default name.",
                 [](Stage& s, const Arguments& a) { (void)addEffect(s, a.texts[0]); }),
         Setting("effect TEXT named TEXT", "The same, under a name that the user gave it.",
                 [](Stage& s, const Arguments& a) { addNamed(s, a.texts[0], a.texts[1]); }),
         Setting("TEXT is in group NUMBER", "The effect has been in this group all along.",
                 [](Stage& s, const Arguments& a) { putIntoGroup(s, a.texts[0], a.numbers[0]); }),
         Setting("TEXT is off", "The effect has been off all along.",
                 [](Stage& s, const Arguments& a) { effect(s, a.texts[0]).flags &= ~effectActive; }),
         Setting("TEXT is rigid", "The effect takes part in no group: it answers -1 whatever it is told.",
                 [](Stage& s, const Arguments& a)
                 { simulated(s, a.texts[0]).family.rigidity = Rigidity::rigid; }),
         Setting("TEXT asks for no reveal", "Un-hiding the effect neither opens it nor scrolls to it.",
                 [](Stage& s, const Arguments& a)
                 { effect(s, a.texts[0]).revealing = Revealing::isNotWanted; }),
         Setting("TEXT has the identity of TEXT", "Two effects bear the same identity.",
                 [](Stage& s, const Arguments& a)
                 {
                     const Identity identity = effect(s, a.texts[1]).family.uuid;
                     simulated(s, a.texts[0]).behaviour = RepeatsIdentity(identity);
                 }),
         Setting("TEXT answers after NUMBER messages", "The effect leaves its first messages unanswered.",
                 [](Stage& s, const Arguments& a)
                 { simulated(s, a.texts[0]).behaviour = AnswersLate(a.numbers[0]); }),
         Setting("TEXT answers nothing", "The effect gives an error to each message.",
                 [](Stage& s, const Arguments& a)
                 { simulated(s, a.texts[0]).behaviour = FailsWith(errGeneric); }),
         Setting("TEXT always answers group NUMBER", "Whatever it is told.",
                 [](Stage& s, const Arguments& a) {
                     simulated(s, a.texts[0]).behaviour =
                         AnswersGroup(static_cast<std::int16_t>(a.numbers[0]));
                 }),
         Setting("install TEXT as TEXT",
                 "One more effect of the family is installed: match name, default name.",
                 [](Stage& s, const Arguments& a)
                 {
                     InstalledEffect more = s.Installed("QVK VORTKIT");
                     more.key = 0;
                     more.matchName = a.texts[0];
                     more.defaultName = a.texts[1];
                     (void)s.host().Install(more);
                     s.AddCandidate(a.texts[1]);
                 }),
         Setting(
             "install the effect in TEXT",
             "The effect in this module is installed, in place of the one with its match name. The file is "
             "looked "
             "for "
             "from the scenario's folder.",
             [](Stage& s, const Arguments& a) { installModule(s, a.texts[0]); }),
         Setting("TEXT is not installed", "The user has not installed this effect.",
                 [](Stage& s, const Arguments& a) { uninstall(s, a.texts[0]); }),
         Setting("switch WORD", "The host behaves in its other way. An unknown switch gives the list of all.",
                 [](Stage& s, const Arguments& a) { turnSwitch(s, a.texts[0]); })}};
}
} // namespace standin::script
