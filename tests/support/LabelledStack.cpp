#include "tests/support/LabelledStack.h"

#include "effects/EffectSelection.h"
#include "effects/LayerEffectChanges.h"
#include "standin/process/CapturedOutput.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace standin
{
namespace
{
constexpr const char* unknownText = "99999999-9999-9999-9999-999999999999";

/// Takes the part of `word` from `mark` on off it.
std::string takeFrom(std::string& word, char mark)
{
    const std::size_t start = word.find(mark);
    const std::string part = start == std::string::npos ? "" : word.substr(start + 1);
    word = word.substr(0, start);
    return part;
}

std::string groupAndSwitch(int group, int active)
{
    return (group == 0 ? "" : "@" + std::to_string(group)) + (active != 0 ? "" : "!");
}
} // namespace

const char* MatchNameOf(const std::string& label)
{
    switch (label.at(0))
    {
    case 'K':
        return "QVK VORTKIT";
    case 'M':
        return "QVK VORTAN TWO";
    case 'L':
        return "QVK VORTAN";
    case 'X':
        return "ADBE Fill";
    case 'E':
        return "QVK VORTEFF Jitter";
    case 'R':
        return "QVK VORTREN Dots";
    case 'G':
        return "QVK VORTSRC Lamps";
    default:
        return "QVK VORTSRC Routes";
    }
}

ObjectItem& ItemNamed(Items& items, const std::string& name)
{
    for (ObjectItem& item : items)
        if (item.name == name)
            return item;
    throw std::logic_error("no item is called " + name);
}

LabelledStack::LabelledStack(const std::string& labels, HostOptions options) : ProductHost(options)
{
    for (const std::string& label : Words(labels))
    {
        (void)Add(MatchNameOf(label), label);
        host.Effect(label).customName = label;
    }
    start = host.State();
    host.ClearTrace();
}

A_long LabelledStack::KeyOf(const std::string& label) const { return Key(MatchNameOf(label)); }

ObjectItem LabelledStack::itemOf(const EffectInstance& effect)
{
    const InstalledEffect& installed = *host.FindInstalled(effect.key);
    ObjectItem item;
    item.uuid = installed.behaviour == nullptr ? zeroUuid : TextOf(effect.family.uuid);
    item.name = effect.customName.value_or(installed.defaultName);
    item.group = installed.behaviour == nullptr || effect.family.rigidity == Rigidity::rigid
                     ? -1
                     : effect.family.group;
    item.active = effect.flags & effectActive;
    item.tag = installed.matchName;
    return item;
}

Items LabelledStack::LayerItems()
{
    Items items;
    for (const EffectInstance& effect : host.State().FindLayer(layerId)->effects)
        items.push_back(itemOf(effect));
    return items;
}

ObjectItem LabelledStack::itemIn(const std::string& word)
{
    std::string label = word;
    const bool isSwitched = label.back() == '!';
    if (isSwitched)
        label.pop_back();
    const std::string group = takeFrom(label, '@');
    const bool isNamed = label.find('=') != std::string::npos;
    const std::string name = takeFrom(label, '=');
    ObjectItem item = label == "?"   ? ObjectItem{unknownText, label, 0, 1, ""}
                      : label == "0" ? ObjectItem{zeroUuid, label, 0, 1, ""}
                                     : itemOf(host.Effect(label));
    item.tag.clear();
    if (isNamed)
        item.name = name;
    if (!group.empty())
        item.group = std::stoi(group);
    if (isSwitched)
        item.active = item.active == 0 ? 1 : 0;
    return item;
}

Items LabelledStack::Tree(const std::string& notation)
{
    Items items;
    for (const std::string& word : Words(notation))
        items.push_back(itemIn(word));
    return items;
}

std::string LabelledStack::Text(const Items& items)
{
    std::string text;
    for (const ObjectItem& item : items)
    {
        std::string label = item.uuid == zeroUuid ? "0" : item.uuid;
        std::string tag;
        for (const EffectInstance& effect : host.State().FindLayer(layerId)->effects)
        {
            if (tag.empty() && itemOf(effect).uuid == item.uuid && item.uuid != zeroUuid)
            {
                label = effect.label;
                tag = itemOf(effect).tag;
            }
        }
        text += (text.empty() ? "" : " ") + label + (item.name == label ? "" : "=" + item.name) +
                groupAndSwitch(item.group, item.active) + (item.tag == tag ? "" : "#" + item.tag);
    }
    return text;
}

std::string LabelledStack::Text()
{
    std::string text;
    for (const EffectInstance& effect : host.State().FindLayer(layerId)->effects)
    {
        const std::string name = host.NameOf(effect.label);
        text += (text.empty() ? "" : " ") + effect.label + (name == effect.label ? "" : "=" + name) +
                groupAndSwitch(effect.family.group, effect.flags & effectActive) +
                (effect.groupHidden ? "~" : "");
        for (std::size_t i = 0; i < effect.parameters.size(); ++i)
            text += effect.parameters[i].hidden ? "~" + std::to_string(i) : "";
    }
    return text;
}

HookResult LabelledStack::Change(const Items& layerItems, const Items& treeItems)
{
    return ChangeOn(Layer(), layerItems, treeItems);
}

HookResult LabelledStack::ChangeOn(AEGP_LayerH layer, const Items& layerItems, const Items& treeItems)
{
    start = host.State();
    host.ClearTrace();
    return host.RunInHook([&] { LayerEffectChanges(Id(), Basic(), layer, layerItems, treeItems); });
}

HookResult LabelledStack::ChangeTo(const Items& layerItems, const Items& treeItems)
{
    return printing([&] { return Change(layerItems, treeItems); });
}

HookResult LabelledStack::printing(const std::function<HookResult()>& run)
{
    process::CapturedOutput output;
    HookResult result = run();
    printed += output.Text();
    return result;
}

HookResult LabelledStack::Select(bool useHide, bool touchMain, const Items& selected)
{
    return SelectOn(Layer(), useHide, touchMain, selected);
}

HookResult LabelledStack::SelectOn(AEGP_LayerH layer, bool useHide, bool touchMain, const Items& selected)
{
    start = host.State();
    host.ClearTrace();
    return host.RunInHook([&]
                          { SelectEffectsFromItems(Id(), Basic(), layer, useHide, touchMain, selected); });
}

std::string LabelledStack::Steps()
{
    std::string text;
    for (const std::string& name : host.UndoNames())
        text += "[" + name + "]";
    return text;
}

bool LabelledStack::UndoBringsBackTheStart()
{
    while (host.Undo())
    {
    }
    return host.State() == start;
}

void LabelledStack::LabelNewEffects()
{
    for (EffectInstance& effect : host.State().FindLayer(layerId)->effects)
    {
        if (effect.label == "e" + std::to_string(effect.id))
            effect.label = "new";
    }
}

std::vector<std::string> LabelledStack::Found()
{
    host.CheckSuiteBalance();
    std::vector<std::string> found;
    for (const Finding& finding : host.Findings().All())
        found.push_back(finding.id + " " + finding.function);
    std::sort(found.begin(), found.end());
    return found;
}

std::string LabelledStack::Calls() { return TextOf(host.CallTexts(SuiteTraffic::leftOut)); }

standin::Calls LabelledStack::Sweep() const
{
    const standin::Calls calls = CallList();
    return {std::find_if(calls.begin(), calls.end(),
                         [](const std::string& call)
                         { return call.rfind("Utility 3 AEGP_StartUndoGroup", 0) == 0; }),
            calls.end()};
}

std::string LabelledStack::CallsWithSuites() { return TextOf(host.CallTexts()); }
} // namespace standin
