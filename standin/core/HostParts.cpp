#include "standin/core/HostParts.h"

#include <algorithm>
#include <cstdlib>

namespace standin
{
void HostBlocks::FreeAll()
{
    for (const auto& [block, note] : all)
        std::free(block);
    all.clear();
}

HostParts::HostParts(Host& owner, HostOptions hostOptions)
    : host(owner),
      options(hostOptions),
      thread(std::this_thread::get_id()),
      user(owner),
      undo(options),
      trace(hostOptions.traceLimit)
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

void HostParts::Report(const char* id, const std::string& sentence)
{
    Finding finding;
    finding.id = id;
    finding.sentence = sentence;
    if (!running.empty())
    {
        finding.call = running.back().head;
        finding.function = running.back().function;
    }
    findings.Add(std::move(finding));
}

bool HostParts::MayUseId(A_long pluginId) const
{
    if (pluginId == runningPlugin)
        return true;
    return std::any_of(published.begin(), published.end(),
                       [&](const auto& entry)
                       {
                           const auto& [name, version] = entry.first;
                           return entry.second.pluginId == pluginId && suiteCounts.Count(name, version) > 0;
                       });
}

std::string HostParts::LabelOf(int effectId)
{
    if (const EffectInstance* effect = project.FindEffect(effectId))
        lastLabels[effectId] = effect->label;
    return lastLabels[effectId];
}

const InstalledEffect* HostParts::InstalledOf(const EffectInstance& effect) const
{
    const auto found = std::find_if(installed.begin(), installed.end(),
                                    [&](const InstalledEffect& entry) { return entry.key == effect.key; });
    return found == installed.end() ? nullptr : &*found;
}

const Behaviour& HostParts::BehaviourOf(const EffectInstance& effect) const
{
    static const Behaviour mute;
    if (effect.behaviour != nullptr)
        return *effect.behaviour;
    const InstalledEffect* entry = InstalledOf(effect);
    return entry != nullptr && entry->behaviour != nullptr ? *entry->behaviour : mute;
}

std::string HostParts::NameOf(const EffectInstance& effect) const
{
    if (effect.customName)
        return *effect.customName;
    const InstalledEffect* entry = InstalledOf(effect);
    return entry != nullptr ? entry->defaultName : "Missing";
}

void* HostParts::HandOut(Reference reference)
{
    reference.hookDepth = hookDepth;
    reference.ordinal = running.empty() ? 0 : running.back().ordinal;
    if (reference.kind >= ReferenceKind::effect)
        (void)LabelOf(reference.owner);
    return references.HandOut(reference);
}
} // namespace standin
