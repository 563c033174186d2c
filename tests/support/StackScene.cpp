#include "tests/support/StackScene.h"

#include "effects/EffectSelection.h"
#include "effects/LayerEffectChanges.h"
#include "tests/support/HostCalls.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace standin
{
namespace
{
const char* matchNameOf(const std::string& label)
{
    switch (label.at(0))
    {
    case 'K':
        return "QVK VORTKIT";
    case 'M':
        return "QVK VORTAN TWO";
    case 'L':
        return "QVK VORTAN";
    case 'Z':
        return "ADBE Fill";
    default:
        return "QVK VORTSRC Routes";
    }
}

constexpr const char* unknownText = "99999999-9999-9999-9999-999999999999";
} // namespace

std::vector<std::string> Words(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

ObjectItem& ItemNamed(Items& items, const std::string& name)
{
    for (ObjectItem& item : items)
        if (item.name == name)
            return item;
    throw std::logic_error("no item is called " + name);
}

StackScene::StackScene(const std::string& labels, HostOptions options) : ProductHost(options)
{
    for (const std::string& label : Words(labels))
    {
        (void)Add(matchNameOf(label), label);
        host.Effect(label).customName = label;
    }
    start = host.State();
}

ObjectItem StackScene::itemOf(const EffectInstance& effect)
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

Items StackScene::LayerItems()
{
    Items items;
    for (const EffectInstance& effect : host.State().FindLayer(layerId)->effects)
        items.push_back(itemOf(effect));
    return items;
}

Items StackScene::Tree(const std::string& labels)
{
    Items items;
    for (const std::string& label : Words(labels))
    {
        if (label == "?")
            items.push_back({unknownText, label, 0, 1, ""});
        else if (label == "0")
            items.push_back({zeroUuid, label, 0, 1, ""});
        else
            items.push_back(itemOf(host.Effect(label)));
        items.back().tag.clear();
    }
    return items;
}

std::string StackScene::Report()
{
    std::ostringstream text;
    for (const EffectInstance& effect : host.State().FindLayer(layerId)->effects)
    {
        text << effect.label << ": " << host.NameOf(effect.label) << ", group " << effect.family.group
             << ((effect.flags & effectActive) != 0 ? ", on" : ", off")
             << (effect.groupHidden ? ", hidden" : "");
        for (std::size_t i = 0; i < effect.parameters.size(); ++i)
            text << (effect.parameters[i].hidden ? ", hides " + std::to_string(i) : "");
        text << "\n";
    }
    return text.str();
}

HookResult StackScene::Change(const Items& layerItems, const Items& treeItems)
{
    return ChangeOn(Layer(), layerItems, treeItems);
}

HookResult StackScene::ChangeOn(AEGP_LayerH layer, const Items& layerItems, const Items& treeItems)
{
    start = host.State();
    host.ClearTrace();
    return host.RunInHook([&] { LayerEffectChanges(Id(), Basic(), layer, layerItems, treeItems); });
}

HookResult StackScene::Select(bool useHide, bool touchMain, const Items& selected)
{
    return SelectOn(Layer(), useHide, touchMain, selected);
}

HookResult StackScene::SelectOn(AEGP_LayerH layer, bool useHide, bool touchMain, const Items& selected)
{
    start = host.State();
    host.ClearTrace();
    return host.RunInHook([&]
                          { SelectEffectsFromItems(Id(), Basic(), layer, useHide, touchMain, selected); });
}

std::string StackScene::Steps()
{
    std::string text;
    for (const std::string& name : host.UndoNames())
        text += "[" + name + "]";
    return text;
}

bool StackScene::UndoBringsBackTheStart()
{
    while (host.Undo())
    {
    }
    return host.State() == start;
}

std::vector<std::string> StackScene::Found()
{
    host.CheckSuiteBalance();
    std::vector<std::string> found;
    for (const Finding& finding : host.Findings().All())
        found.push_back(finding.id + " " + finding.function);
    std::sort(found.begin(), found.end());
    return found;
}

std::string StackScene::Calls() { return TextOf(host.CallTexts(SuiteTraffic::leftOut)); }

std::string StackScene::CallsWithSuites() { return TextOf(host.CallTexts()); }
} // namespace standin
