#include "standin/check/WalkTexts.h"

#include "standin/host/core/Host.h"
#include "standin/script/Parser.h"

namespace standin::check
{
namespace
{
using Texts = std::vector<std::string>;

constexpr const char* writingFunctions[] = {"AEGP_ApplyEffect",    "AEGP_ReorderEffect",
                                            "AEGP_SetEffectFlags", "AEGP_DeleteLayerEffect",
                                            "AEGP_SetStreamName",  "AEGP_DuplicateEffect"};

std::string listed(const Texts& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : ", ") + text;
    return all.empty() ? "nothing" : all;
}

std::string textOf(const std::string& name, int group, bool isOn)
{
    return script::Quoted(name) + (group == 0 ? "" : " in group " + std::to_string(group)) +
           (isOn ? "" : " off");
}

Texts textsOf(const ModelStack& stack)
{
    Texts texts;
    for (const ModelEffect& effect : stack)
        texts.push_back(textOf(effect.name, effect.group, effect.power == Power::on));
    return texts;
}

/// A rigid effect answers group -1, whatever it holds.
Texts textsOf(Host& host, int layerId)
{
    Texts texts;
    for (const EffectInstance& effect : host.State().FindLayer(layerId)->effects)
        texts.push_back(textOf(host.NameOf(effect.label),
                               effect.family.rigidity == Rigidity::rigid ? -1 : effect.family.group,
                               (effect.flags & effectActive) != 0));
    return texts;
}
} // namespace

std::string Difference(const std::string& what, const Texts& wanted, const Texts& found)
{
    if (wanted == found)
        return "";
    return what + " should be: " + listed(wanted) + "\n    and is: " + listed(found);
}

std::string StackDifference(const StackModel& model, Host& host, const std::vector<int>& layerIds)
{
    for (std::size_t i = 0; i < layerIds.size(); ++i)
    {
        std::string wrong =
            Difference("the stack of layer \"Solid " + std::to_string(i + 1) + "\"",
                       textsOf(model.StackOf(static_cast<int>(i))), textsOf(host, layerIds[i]));
        if (!wrong.empty())
            return wrong;
    }
    return "";
}

std::vector<std::string> WritesAmong(const Texts& calls)
{
    Texts writes;
    for (const std::string& call : calls)
        for (const char* function : writingFunctions)
            if (call.find(" " + std::string(function) + "(") != std::string::npos)
                writes.emplace_back(function);
    return writes;
}
} // namespace standin::check
