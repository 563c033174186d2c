#include "standin/desktop/model/Designer.h"

#include <algorithm>

#include "standin/script/record/EffectNames.h"

namespace standin::desktop
{
namespace
{
template <class Value>
void toggle(std::vector<Value>& values, Value value)
{
    const auto found = std::find(values.begin(), values.end(), value);
    if (found == values.end())
        values.push_back(value);
    else
        values.erase(found);
}

int activeLayerOf(Host& host)
{
    const Project& project = host.ProjectView();
    return project.selection.ActiveLayer(project.state, host.Options().focusInPanel);
}
} // namespace

void Designer::say(const std::string& pattern, const std::vector<std::string>& blanks) const
{
    if (record != nullptr)
        record->Line(pattern, blanks);
}

std::string Designer::nameOf(int effectId) const { return script::ScenarioNameOf(host, effectId); }

void Designer::saySelection() const
{
    std::vector<std::string> names;
    for (const int id : host.ProjectView().selection.layers)
        if (const Layer* layer = host.State().FindLayer(id))
            names.push_back(layer->name);
    if (names.empty())
        return say("select no layer");
    say(names.size() == 1 ? "select layer TEXT" : "select layers TEXTS", names);
}

std::string Designer::unusedName(const char* kind, const std::vector<std::string>& taken) const
{
    for (int number = 1;; ++number)
    {
        std::string name = std::string(kind) + " " + std::to_string(number);
        if (std::find(taken.begin(), taken.end(), name) == taken.end())
            return name;
    }
}

int Designer::NewComposition()
{
    std::vector<std::string> taken;
    for (const Item& item : host.State().items)
        taken.push_back(item.name);
    const std::string name = unusedName("Comp", taken);
    say("composition TEXT", {name});
    const int comp = host.User().NewComposition(name);
    ClickItem(comp);
    return comp;
}

int Designer::NewLayer()
{
    const int comp = host.ProjectView().selection.frontComp;
    if (host.State().FindItem(comp) == nullptr)
        return 0;
    std::vector<std::string> taken;
    for (const Layer& layer : host.State().layers)
        if (layer.compId == comp)
            taken.push_back(layer.name);
    const std::string name = unusedName("Layer", taken);
    say("layer TEXT", {name});
    const int layer = host.User().NewLayer(comp, name);
    ClickLayer(layer, Click::alone);
    return layer;
}

void Designer::ClickItem(int itemId)
{
    const Item* item = host.State().FindItem(itemId);
    if (item == nullptr)
        return;
    if (item->kind == ItemKind::composition)
    {
        say("open composition TEXT", {item->name});
        host.User().OpenComposition(itemId);
        host.User().Activate(ActivePanel::timeline);
        say("activate WORD", {"timeline"});
        return;
    }
    host.User().SelectItems({itemId});
    host.User().Activate(ActivePanel::project);
    say("activate WORD", {"project"});
}

void Designer::ClickLayer(int layerId, Click click)
{
    if (host.State().FindLayer(layerId) == nullptr)
        return;
    std::vector<int> layers;
    if (click == Click::toggle)
    {
        layers = host.ProjectView().selection.layers;
        toggle(layers, layerId);
    }
    else
        layers = {layerId};
    host.User().SelectLayers(std::move(layers));
    host.User().Activate(ActivePanel::timeline);
    saySelection();
    say("activate WORD", {"timeline"});
}

void Designer::SelectNoLayer()
{
    host.User().SelectLayers({});
    host.User().Activate(ActivePanel::timeline);
    saySelection();
    say("activate WORD", {"timeline"});
}

const EffectInstance* Designer::find(int effectId) const { return host.State().FindEffect(effectId); }

/// The controls show the active layer, so that it stays the active one when they get the focus.
void Designer::focusControls()
{
    const int layer = activeLayerOf(host);
    if (layer == 0)
        return;
    host.User().ShowEffectControls(layer);
    host.User().Activate(ActivePanel::effectControls);
    say("activate WORD", {"effect-controls"});
}

void Designer::ClickEffect(int effectId)
{
    if (find(effectId) == nullptr)
        return;
    focusControls();
    host.User().SelectEffect(effectId);
}

void Designer::ClickNoEffect()
{
    focusControls();
    host.User().SelectNoEffect();
}

int Designer::Apply(const std::string& matchName)
{
    const int layer = activeLayerOf(host);
    if (layer == 0)
        return 0;
    say("apply TEXT", {matchName});
    const int effect = host.User().Apply(layer, matchName);
    host.User().SelectEffect(effect);
    return effect;
}

void Designer::ToggleSwitch(int effectId)
{
    const EffectInstance* effect = find(effectId);
    if (effect == nullptr)
        return;
    const bool isOn = (effect->flags & effectActive) != 0;
    say(isOn ? "turn off TEXT" : "turn on TEXT", {nameOf(effectId)});
    host.User().SetActive(effect->label, isOn ? Switch::off : Switch::on);
}

void Designer::ToggleHidden(int effectId)
{
    const EffectInstance* effect = find(effectId);
    if (effect == nullptr)
        return;
    say(effect->groupHidden ? "show TEXT" : "hide TEXT", {nameOf(effectId)});
    host.User().SetHidden(effect->label, effect->groupHidden ? Switch::off : Switch::on);
}

void Designer::ToggleTwirl(int effectId)
{
    if (find(effectId) != nullptr)
        host.User().ToggleTwirl(effectId);
}

void Designer::Rename(int effectId, const std::string& name)
{
    const EffectInstance* effect = find(effectId);
    if (effect == nullptr || host.NameOf(effect->label) == name)
        return;
    say("rename TEXT to TEXT", {nameOf(effectId), name});
    host.User().Rename(effect->label, name);
}

void Designer::MoveToGap(int effectId, int gap)
{
    const Layer* layer = host.State().FindLayerOfEffect(effectId);
    if (layer == nullptr)
        return;
    const auto& effects = layer->effects;
    const auto found = std::find_if(effects.begin(), effects.end(),
                                    [&](const EffectInstance& effect) { return effect.id == effectId; });
    const int from = static_cast<int>(found - effects.begin());
    const int count = static_cast<int>(effects.size());
    const int to = std::clamp(gap > from ? gap - 1 : gap, 0, count - 1);
    if (to == from)
        return;
    say("move TEXT to place NUMBER", {nameOf(effectId), std::to_string(to + 1)});
    host.User().Reorder(found->label, to);
}

void Designer::Duplicate(int effectId)
{
    const EffectInstance* effect = find(effectId);
    if (effect == nullptr)
        return;
    say("duplicate TEXT", {nameOf(effectId)});
    host.User().SelectEffect(host.User().Duplicate(effect->label));
}

void Designer::Delete(int effectId)
{
    const EffectInstance* effect = find(effectId);
    if (effect == nullptr)
        return;
    say("delete TEXT", {nameOf(effectId)});
    host.User().Delete(effect->label);
}

int Designer::SelectedEffect() const
{
    const Layer* layer = host.State().FindLayer(activeLayerOf(host));
    if (layer == nullptr)
        return 0;
    for (const EffectInstance& effect : layer->effects)
        if (effect.id == host.ProjectView().selection.effect)
            return effect.id;
    return 0;
}

void Designer::Undo()
{
    if (host.UndoNames().empty())
        return;
    say("undo");
    (void)host.RunCommand(commandUndo);
}

void Designer::Redo()
{
    if (host.RedoNames().empty())
        return;
    say("redo");
    (void)host.RunCommand(commandRedo);
}

EffectCategories CategoriesOf(const Host& host)
{
    EffectCategories categories;
    for (const InstalledEffect& effect : host.InstalledEffects())
        categories[effect.category].push_back({effect.defaultName, effect.matchName});
    for (auto& [category, entries] : categories)
        std::sort(entries.begin(), entries.end(),
                  [](const EffectEntry& a, const EffectEntry& b) { return a.name < b.name; });
    return categories;
}
} // namespace standin::desktop
