#include "standin/script/record/EffectNames.h"

#include "standin/user/eyes/DisplayNames.h"

namespace standin::script
{
/// A scenario finds an effect by its full name and by the one that the panel shows, and counts both.
std::string ScenarioNameOf(Host& host, int effectId)
{
    const Layer* layer = host.State().FindLayerOfEffect(effectId);
    if (layer == nullptr)
        return {};
    const std::string name = host.NameOf(host.State().FindEffect(effectId)->label);
    int count = 0;
    for (const EffectInstance& effect : layer->effects)
    {
        const std::string other = host.NameOf(effect.label);
        count += other == name || user::DisplayNameOf(other) == name ? 1 : 0;
        if (effect.id == effectId)
            break;
    }
    return count > 1 ? name + "#" + std::to_string(count) : name;
}
} // namespace standin::script
