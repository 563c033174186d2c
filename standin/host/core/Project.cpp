#include "standin/host/core/Project.h"

#include <algorithm>

namespace standin
{
Project::Project()
{
    std::uint32_t made = 0;
    identitySource = [made]() mutable
    {
        ++made;
        Identity identity = IdentityOf(static_cast<std::uint8_t>(made));
        for (unsigned i = 0; i < 4; ++i)
            identity[12 + i] = static_cast<std::uint8_t>(made >> (24 - 8 * i));
        return identity;
    };
}

std::string Project::LabelOf(int effectId)
{
    if (const EffectInstance* effect = state.FindEffect(effectId))
        lastLabels[effectId] = effect->label;
    return lastLabels[effectId];
}

const InstalledEffect* Project::InstalledOf(const EffectInstance& effect) const
{
    const auto found = std::find_if(installed.begin(), installed.end(),
                                    [&](const InstalledEffect& entry) { return entry.key == effect.key; });
    return found == installed.end() ? nullptr : &*found;
}

const Behaviour& Project::BehaviourOf(const EffectInstance& effect) const
{
    static const Behaviour mute;
    if (effect.behaviour != nullptr)
        return *effect.behaviour;
    const InstalledEffect* entry = InstalledOf(effect);
    return entry != nullptr && entry->behaviour != nullptr ? *entry->behaviour : mute;
}

std::string Project::NameOf(const EffectInstance& effect) const
{
    if (effect.customName)
        return *effect.customName;
    const InstalledEffect* entry = InstalledOf(effect);
    return entry != nullptr ? entry->defaultName : "Missing";
}
} // namespace standin
