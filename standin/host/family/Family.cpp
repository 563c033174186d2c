#include "standin/host/family/Family.h"

#include "standin/host/family/FamilyBehaviour.h"

namespace standin
{
const std::vector<FamilyEffect>& FamilyEffects()
{
    static const std::vector<FamilyEffect> rows{
        {"QVK VORTSRC Lamps", "Vortan Sheets Object"},
        {"QVK VORTSRC Routes", "Vortan Route Object"},
        {"QVK VORTSRC GEO", "Vortan GEO Object"},
        {"QVK VORTSRC Solids", "Vortan Solids Object"},
        {"QVK VORTSRC Copies", "Vortan Copies Object"},
        {"QVK VORTSRC Scanner", "Vortan Cutter Object"},
        {"QVK VORTEFF Round Zone", "Vortan Round Zone"},
        {"QVK VORTEFF Jitter", "Vortan Jitter Effector"},
        {"QVK VORTEFF Enclosure", "Vortan Enclosure"},
        {"QVK VORTEFF Placement", "Vortan Placement"},
        {"QVK VORTEFF Tint Table", "Vortan Tint Table"},
        {"QVK VORTEFF Dimmer Effector", "Vortan Dimmer Effector"},
        {"QVK VORTEFF Pulse Effector", "Vortan Pulse Effector"},
        {"QVK VORTREN Dots", "Vortan Dots Renderer"},
        {"QVK VORTREN Strokes", "Vortan Strokes Renderer"},
        {"QVK VORTREN Tiles", "Vortan Tiling Renderer"},
        {"QVK VORTREN Rays", "Vortan Rays Renderer"},
        {"QVK VORTREN Panes", "Vortan Panes Renderer"},
        {"QVK VORTAN", "Vortan Elder Renderer"},
        {"QVK VORTAN TWO", "Vortan"},
        {"QVK VORTKIT", "Vortan Kit"},
    };
    return rows;
}

void InstallFamily(Host& host)
{
    const auto behaviour = std::make_shared<FamilyBehaviour>();
    for (const FamilyEffect& row : FamilyEffects())
    {
        InstalledEffect effect;
        effect.matchName = row.matchName;
        effect.category = "Vortan";
        effect.defaultName = row.defaultName;
        effect.behaviour = behaviour;
        host.Install(effect);
    }
    InstallOutsiders(host);
}

void InstallOutsiders(Host& host)
{
    for (const FamilyEffect& row : {FamilyEffect{"ADBE Gaussian Blur 2", "Gaussian Blur"},
                                    FamilyEffect{"ADBE Fill", "Fill"}, FamilyEffect{"ADBE Tint", "Tint"}})
    {
        InstalledEffect effect;
        effect.matchName = row.matchName;
        effect.category = "Outside";
        effect.defaultName = row.defaultName;
        host.Install(effect);
    }
}
} // namespace standin
