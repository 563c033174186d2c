#include "tests/sweep/FaultRun.h"

#include "standin/host/core/HostParts.h"

#include <algorithm>

namespace standin
{
using namespace check;

namespace
{
Trial makeTrial()
{
    return Trial(
        "", 1, [](const std::string&) {}, [] {});
}

/// Of calls or findings.
template <class Record>
std::vector<std::string> textsOf(const std::vector<Record>& records)
{
    std::vector<std::string> texts;
    for (const Record& record : records)
        texts.push_back(record.Text());
    return texts;
}

std::vector<std::string> allLines(const SeenProject& project)
{
    std::vector<std::string> lines = UndoableLines(project);
    for (const auto& [layer, stack] : project.layers)
        for (const SeenEffect& effect : stack)
        {
            lines.push_back(std::to_string(layer) + (effect.hidden ? " hidden" : " shown"));
            for (const bool isHidden : effect.hiddenParameters)
                lines.back() += isHidden ? " h" : " s";
        }
    return lines;
}

/// Everything that can be undone is; then the project is the one from before the change.
void requireUndoBringsItBack(Trial& trial, Host& host, const SeenProject& before)
{
    while (host.Undo())
    {
    }
    trial.RequireLines(UndoableLines(SeeProject(host)), UndoableLines(before), "the project after all undos");
}

FaultyRun carryOut(SweptWork& work, const std::function<void(Host&)>& armFault)
{
    FaultyRun run;
    work.Run(
        [&](Host& host)
        {
            run.project.before = SeeProject(host);
            host.ClearTrace();
            FaultKind::Disarm(host);
            armFault(host);
        },
        run.results);
    Host& host = work.TheHost();
    run.calls = host.Trace().Records();
    run.findings = host.TakeFindings();
    run.project.after = SeeProject(host);
    return run;
}

void recover(Trial& trial, SweptWork& work, FaultyRun& run, FaultTally& tally)
{
    Host& host = work.TheHost();
    FaultKind::Disarm(host);
    work.Recover(trial);
    run.project.after = SeeProject(host);
    AuditProject(trial, run, tally);
    requireUndoBringsItBack(trial, host, run.project.before);
}

void close(Trial& trial, SweptWork& work)
{
    work.Close();
    trial.RequireNoFindings(work.TheHost());
}

std::string outcomeOf(const FaultyRun& run, const SoundRun& sound, const FaultTally& before,
                      const FaultTally& after)
{
    for (const HookResult& result : run.results)
        if (!result.thrown.empty())
            return run.isOutOfMemory ? "a hook was left for want of memory"
                                     : "a hook was left for want of a suite";
    if (before.allowed != after.allowed)
        return "beyond old and new, as the table has it";
    const std::vector<std::string> lines = allLines(run.project.after);
    if (lines == allLines(sound.after))
        return "all was done";
    return lines == allLines(run.project.before) ? "nothing was done" : "a part was done";
}

void requireSame(Trial& trial, const FaultyRun& run, const SoundRun& sound)
{
    trial.RequireLines(textsOf(run.calls), sound.texts, "the calls");
    trial.RequireLines(allLines(run.project.after), allLines(sound.after), "the project");
    trial.RequireLines(textsOf(run.findings), textsOf(sound.findings), "what the host has found");
}

/// Takes away what the host finds without a fault too.
void forgetKept(FaultyRun& run, const SoundRun& sound)
{
    for (const Finding& kept : sound.findings)
    {
        const auto same = std::find_if(run.findings.begin(), run.findings.end(),
                                       [&](const Finding& finding) { return finding.Text() == kept.Text(); });
        if (same != run.findings.end())
            run.findings.erase(same);
    }
}

/// The calls of an idle inside another are more than the sound run makes.
void judge(Trial& trial, const FaultKind& kind, FaultyRun& run, const SoundRun& sound, bool wasMet,
           FaultTally& tally)
{
    if (!wasMet)
        return requireSame(trial, run, sound);
    forgetKept(run, sound);
    AuditFaultyRun(trial, run, tally);
    if (kind.happens == FaultKind::Happens::idleInside)
        trial.RequireLines(allLines(run.project.after), allLines(sound.after), "the project");
}
} // namespace

SoundRun RunSoundly(const SweptScenario& scenario)
{
    Trial trial = makeTrial();
    SoundRun sound;
    FaultTally tally;
    try
    {
        const std::unique_ptr<SweptWork> work = scenario.make();
        FaultyRun run = carryOut(*work, [](Host&) {});
        sound.calls = run.calls;
        sound.texts = textsOf(run.calls);
        sound.after = run.project.after;
        sound.findings = run.findings;
        requireSame(trial, run, sound);
        run.project.wanted = sound.after;
        recover(trial, *work, run, tally);
        close(trial, *work);
    }
    catch (const std::exception& failure)
    {
        sound.violation = failure.what();
    }
    return sound;
}

FaultVerdict RunWithFault(const SweptScenario& scenario, const FaultKind& kind, std::size_t ordinal,
                          const SoundRun& sound, FaultTally& tally)
{
    Trial trial = makeTrial();
    FaultVerdict verdict;
    verdict.outcome = "unexplained";
    const FaultTally former = tally;
    const std::unique_ptr<SweptWork> work = scenario.make();
    try
    {
        FaultyRun run = carryOut(*work, [&](Host& host) { kind.Arm(host, ordinal); });
        verdict.wasMet = kind.WasMet(work->TheHost());
        run.how = kind.how;
        run.isOutOfMemory = verdict.wasMet && kind.happens == FaultKind::Happens::noMemory;
        run.project.wanted = sound.after;
        judge(trial, kind, run, sound, verdict.wasMet, tally);
        verdict.outcome = outcomeOf(run, sound, former, tally);
        recover(trial, *work, run, tally);
        close(trial, *work);
    }
    catch (const std::exception& failure)
    {
        verdict.violation = failure.what();
    }
    return verdict;
}
} // namespace standin
