#include "tests/walks/LoopFault.h"

#include "standin/host/core/HostParts.h"
#include "standin/host/family/Sibling.h"
#include "standin/host/faults/FaultKinds.h"
#include "standin/host/sensors/FindingIds.h"
#include "tests/support/Agreement.h"

#include <algorithm>
#include <utility>

namespace standin::check
{
namespace
{
std::vector<std::string> sorted(std::vector<std::string> lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

/// As the model has it; all else stays.
EffectInstance patched(const Project& project, EffectInstance effect, const ModelEffect& wanted,
                       bool isHidden)
{
    if (project.NameOf(effect) != wanted.name)
        effect.customName = wanted.name;
    effect.flags = wanted.power == Power::on ? effect.flags | effectActive : effect.flags & ~effectActive;
    if (wanted.kind != ModelKind::outside && !wanted.isRigid)
        effect.family.group = static_cast<std::int16_t>(wanted.group);
    effect.groupHidden = isHidden;
    return effect;
}
} // namespace

LoopFault::LoopFault(LoopSession& theSession, const StackModel& before, const StackModel& wanted)
    : session(theSession), host(theSession.host), stepsBefore(host.UndoNames().size())
{
    run.project.before = SeeProject(host);
    target = targetOf(before, wanted);
    run.project.wanted = seeAs(target);
    StackModel refreshed = wanted;
    refreshed.RequestRefresh();
    (void)refreshed.Settle();
    wantedAfterRefresh = seeAs(targetOf(before, refreshed));
}

SeenProject LoopFault::seeAs(const ProjectState& state)
{
    const ProjectState base = std::exchange(host.State(), state);
    SeenProject seen = SeeProject(host);
    host.State() = base;
    return seen;
}

ProjectState LoopFault::targetOf(const StackModel& before, const StackModel& wanted)
{
    const ProjectState base = host.State();
    ProjectState state = base;
    for (std::size_t i = 0; i < session.layerIds.size(); ++i)
    {
        const int number = static_cast<int>(i);
        Layer& layer = *state.FindLayer(session.layerIds[i]);
        const std::vector<EffectInstance> present = std::exchange(layer.effects, {});
        const ModelStack& known = before.StackOf(number);
        for (const ModelEffect& effect : wanted.StackOf(number))
        {
            const auto place = std::find_if(known.begin(), known.end(),
                                            [&](const ModelEffect& each) { return each.id == effect.id; });
            const EffectInstance instance = place == known.end()
                                                ? fresh(layer.id, effect)
                                                : present[static_cast<std::size_t>(place - known.begin())];
            layer.effects.push_back(
                patched(host.ProjectView(), instance, effect, wanted.IsHidden(effect.id)));
        }
    }
    host.State() = base;
    return state;
}

/// What is new comes under its default name.
EffectInstance LoopFault::fresh(int layer, const ModelEffect& effect)
{
    const std::vector<InstalledEffect>& all = host.InstalledEffects();
    const auto installed = std::find_if(
        all.begin(), all.end(), [&](const InstalledEffect& each) { return each.defaultName == effect.name; });
    return *host.State().FindEffect(host.AddEffect(layer, installed->matchName));
}

bool LoopFault::Pass(int passes)
{
    for (int i = 0; i < passes; ++i)
        run.results.push_back(host.RunIdle());
    return host.Faults().Struck().has_value();
}

void LoopFault::Judge(bool isEmptyOrderWanted)
{
    Trial trial(
        "", 1, [](const std::string&) {}, [] {});
    FaultTally tally;
    run.calls = host.Trace().Records();
    run.project.after = SeeProject(host);
    for (Finding& finding : host.TakeFindings())
        if (finding.id != finding::emptyUndoGroup || !isEmptyOrderWanted)
            run.findings.push_back(std::move(finding));
    AuditFaultyRun(trial, run, tally);
    host.Faults().Disarm();
    bringTogether(trial);
    run.project.after = SeeProject(host);
    run.project.wanted = wantedAfterRefresh;
    AuditProject(trial, run, tally);
    requireUndoBringsItBack(trial);
}

/// One refresh brings the tree to the truth, and two passes both sides together. Which of a group's objects
/// stand together on the layer is no matter.
void LoopFault::bringTogether(Trial& trial)
{
    (void)Sibling(host).RefreshPanel();
    for (int i = 0; i < 2; ++i)
        trial.RequireEqual(host.RunIdle().thrown, std::string(), "what left a hook without a fault");
    const std::vector<ObjectItem> items = GetItemsFromTree(&session.Tree());
    const Layer& layer = *host.State().FindLayer(session.currentLayer);
    trial.RequireLines(sorted(TreeLines(items)), sorted(LayerLines(host, layer)), "the tree after the fault");
    (void)session.TakePrinted();
    trial.RequireEqual(host.RunIdle().thrown, std::string(), "what left a hook without a fault");
    trial.RequireLines(session.TakePrinted(), {}, "what the third pass without a fault prints");
    for (const Finding& finding : host.TakeFindings())
        trial.Require(finding.id == finding::emptyUndoGroup, "without a fault again: " + finding.Text());
}

void LoopFault::requireUndoBringsItBack(Trial& trial)
{
    while (host.UndoNames().size() > stepsBefore && host.Undo())
    {
    }
    trial.RequireLines(UndoableLines(SeeProject(host)), UndoableLines(run.project.before),
                       "the project after all undos");
}

void LoopFault::PutRight()
{
    host.State() = target;
    host.ForgetHistory();
}
} // namespace standin::check
