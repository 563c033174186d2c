#include "standin/host/core/ProjectState.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace standin
{
namespace
{
template <class List, class Predicate>
auto* findIn(List& list, Predicate predicate)
{
    const auto found = std::find_if(list.begin(), list.end(), predicate);
    return found == list.end() ? nullptr : &*found;
}
} // namespace

std::string TextOf(const Identity& identity)
{
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < identity.size(); ++i)
    {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            text += '-';
        text += digits[identity[i] >> 4];
        text += digits[identity[i] & 15];
    }
    return text;
}

Identity IdentityOf(std::uint8_t byte)
{
    Identity identity{};
    identity.fill(byte);
    return identity;
}

bool FamilyData::operator==(const FamilyData& other) const
{
    return std::tie(uuid, group, rigidity, kept) ==
           std::tie(other.uuid, other.group, other.rigidity, other.kept);
}

bool Parameter::operator==(const Parameter& other) const
{
    return std::tie(name, hidden) == std::tie(other.name, other.hidden);
}

bool EffectInstance::operator==(const EffectInstance& other) const
{
    return std::tie(id, label, key, customName, flags, parameters, groupHidden, revealing, family,
                    behaviour) == std::tie(other.id, other.label, other.key, other.customName, other.flags,
                                           other.parameters, other.groupHidden, other.revealing, other.family,
                                           other.behaviour);
}

bool Layer::operator==(const Layer& other) const
{
    return std::tie(id, compId, name, startTime, effects) ==
           std::tie(other.id, other.compId, other.name, other.startTime, other.effects);
}

bool Item::operator==(const Item& other) const
{
    return std::tie(id, kind, name) == std::tie(other.id, other.kind, other.name);
}

bool ProjectState::operator==(const ProjectState& other) const
{
    return std::tie(items, layers) == std::tie(other.items, other.layers);
}

const Item* ProjectState::FindItem(int itemId) const
{
    return findIn(items, [itemId](const Item& item) { return item.id == itemId; });
}

Layer* ProjectState::FindLayer(int layerId)
{
    return findIn(layers, [layerId](const Layer& layer) { return layer.id == layerId; });
}

const Layer* ProjectState::FindLayer(int layerId) const
{
    return findIn(layers, [layerId](const Layer& layer) { return layer.id == layerId; });
}

Layer* ProjectState::FindLayerOfEffect(int effectId)
{
    const auto isIt = [effectId](const EffectInstance& effect) { return effect.id == effectId; };
    return findIn(layers, [&](const Layer& layer) { return findIn(layer.effects, isIt) != nullptr; });
}

EffectInstance* ProjectState::FindEffect(int effectId)
{
    return const_cast<EffectInstance*>(std::as_const(*this).FindEffect(effectId));
}

const EffectInstance* ProjectState::FindEffect(int effectId) const
{
    for (const Layer& layer : layers)
        if (const auto* found =
                findIn(layer.effects, [=](const EffectInstance& e) { return e.id == effectId; }))
            return found;
    return nullptr;
}

EffectInstance* ProjectState::FindEffect(const std::string& label)
{
    for (Layer& layer : layers)
        if (auto* found = findIn(layer.effects, [&](const EffectInstance& e) { return e.label == label; }))
            return found;
    return nullptr;
}
} // namespace standin
