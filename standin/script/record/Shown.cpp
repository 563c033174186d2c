#include "standin/script/record/Shown.h"

#include <algorithm>
#include <tuple>

#include "standin/host/core/Project.h"

namespace standin::script
{
namespace
{
bool contains(const std::vector<int>& ids, int id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

std::vector<ShownItem> showItems(const Project& project)
{
    const bool projectHasFocus = project.selection.panel == ActivePanel::project;
    std::vector<ShownItem> shown;
    for (const Item& item : project.state.items)
    {
        ShownItem row{item.id, item.kind, item.name, 0, false};
        for (const Layer& layer : project.state.layers)
            row.layerCount += layer.compId == item.id ? 1 : 0;
        row.isFront = projectHasFocus ? contains(project.selection.items, item.id)
                                      : item.id == project.selection.frontComp;
        shown.push_back(std::move(row));
    }
    return shown;
}

std::vector<ShownLayer> showLayers(const Project& project, int activeLayer)
{
    std::vector<ShownLayer> shown;
    for (const Layer& layer : project.state.layers)
    {
        if (layer.compId == project.selection.frontComp)
            shown.push_back({layer.id, layer.name, static_cast<int>(layer.effects.size()),
                             contains(project.selection.layers, layer.id), layer.id == activeLayer});
    }
    return shown;
}

ShownEffect showEffect(const Project& project, const EffectInstance& effect)
{
    const InstalledEffect* entry = project.InstalledOf(effect);
    const auto twirl = project.twirledOpen.find(effect.id);
    ShownEffect shown;
    shown.id = effect.id;
    shown.name = project.NameOf(effect);
    shown.defaultName = entry != nullptr ? entry->defaultName : "";
    shown.group = effect.family.group;
    shown.isOn = (effect.flags & effectActive) != 0;
    shown.isHidden = effect.groupHidden;
    shown.isOpen = twirl != project.twirledOpen.end() && twirl->second;
    shown.isSelected = project.selection.effect == effect.id;
    for (std::size_t i = 1; i < effect.parameters.size(); ++i)
        shown.parameters.push_back({effect.parameters[i].name, effect.parameters[i].hidden});
    return shown;
}

std::string sayWhyNothingIsActive(const Project& project, const std::vector<ShownLayer>& layers)
{
    if (project.selection.panel == ActivePanel::project)
        return "The project's own list is in use: no layer is active.";
    if (project.state.FindItem(project.selection.frontComp) == nullptr)
        return "No composition is open.";
    if (layers.empty())
        return "The composition has no layers.";
    const auto selected =
        std::count_if(layers.begin(), layers.end(), [](const ShownLayer& layer) { return layer.isSelected; });
    return selected == 0 ? "No layer is selected." : "Several layers are selected: none is the active one.";
}
} // namespace

Shown ShowHost(Host& host)
{
    const Project& project = host.ProjectView();
    Shown shown;
    shown.activeLayer = project.selection.ActiveLayer(project.state, host.Options().focusInPanel);
    shown.items = showItems(project);
    shown.layers = showLayers(project, shown.activeLayer);
    if (const Item* comp = project.state.FindItem(project.selection.frontComp))
        shown.compositionName = comp->name;
    if (const Layer* layer = project.state.FindLayer(shown.activeLayer))
    {
        shown.activeLayerName = layer->name;
        for (const EffectInstance& effect : layer->effects)
            shown.effects.push_back(showEffect(project, effect));
    }
    else
        shown.whyNothingIsActive = sayWhyNothingIsActive(project, shown.layers);
    const std::vector<std::string> undo = host.UndoNames();
    const std::vector<std::string> redo = host.RedoNames();
    shown.canUndo = !undo.empty();
    shown.canRedo = !redo.empty();
    shown.undoName = undo.empty() ? "" : undo.back();
    shown.redoName = redo.empty() ? "" : redo.front();
    return shown;
}

bool ShownItem::operator==(const ShownItem& other) const
{
    const auto all = [](const ShownItem& item)
    { return std::tie(item.id, item.kind, item.name, item.layerCount, item.isFront); };
    return all(*this) == all(other);
}

bool ShownLayer::operator==(const ShownLayer& other) const
{
    const auto all = [](const ShownLayer& layer)
    { return std::tie(layer.id, layer.name, layer.effectCount, layer.isSelected, layer.isActive); };
    return all(*this) == all(other);
}

bool ShownParameter::operator==(const ShownParameter& other) const
{
    return name == other.name && isHidden == other.isHidden;
}

bool ShownEffect::operator==(const ShownEffect& other) const
{
    const auto all = [](const ShownEffect& effect)
    {
        return std::tie(effect.id, effect.name, effect.defaultName, effect.group, effect.isOn,
                        effect.isHidden, effect.isOpen, effect.isSelected, effect.parameters);
    };
    return all(*this) == all(other);
}

bool Shown::operator==(const Shown& other) const
{
    const auto all = [](const Shown& shown)
    {
        return std::tie(shown.items, shown.layers, shown.compositionName, shown.activeLayer,
                        shown.activeLayerName, shown.whyNothingIsActive, shown.effects, shown.canUndo,
                        shown.canRedo, shown.undoName, shown.redoName);
    };
    return all(*this) == all(other);
}
} // namespace standin::script
