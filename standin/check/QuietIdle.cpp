// What an idle pass does when nothing has changed: it looks, and that is all. And what many passes leave
// behind: nothing.

#include "standin/check/PanelScene.h"
#include "standin/host/suites/SuiteDescription.h"
#include "standin/process/ProcessCounts.h"

#include <algorithm>

namespace standin::check::bundles
{
namespace
{
/// Calls that write to the host and are nevertheless part of every pass.
bool isPartOfEveryPass(const std::string& function)
{
    return function == "AcquireSuite" || function == "ReleaseSuite" || function == "AEGP_DisposeEffect" ||
           function == "AEGP_DisposeStream" || function == "AEGP_CheckMarkMenuCommand" ||
           function == "AEGP_EffectCallGeneric";
}

/// The functions of the pass that would change something.
std::vector<std::string> writesOf(const CallTrace& trace)
{
    std::vector<std::string> writes;
    for (const CallRecord& record : trace.Records())
    {
        const SuiteDescription* suite = FindSuite(record.suite, record.version);
        const SlotDescription* slot = suite == nullptr ? nullptr : suite->FindSlot(record.slot);
        const bool isRead = slot != nullptr && slot->access == Access::reads;
        if (!isRead && !isPartOfEveryPass(record.function))
            writes.push_back(record.Text());
    }
    return writes;
}

std::vector<std::string> passCalls(PanelScene& scene)
{
    scene.session.Forget();
    scene.session.Idle();
    return scene.host().CallTexts();
}

/// The stand-in itself notes each handle that it has given away, so that it knows it for ever.
std::size_t notesOf(const std::vector<std::string>& calls)
{
    std::size_t handles = 0;
    for (const std::string& call : calls)
        for (const char* giver : {"GetLayerEffectByIndex", "GetNewEffectStreamByIndex",
                                  "GetNewParentStreamRef", "GetActiveItem", "GetActiveLayer"})
            handles += call.find(giver) == std::string::npos ? 0 : 1;
    return handles * sizeof(std::uint64_t);
}
} // namespace

void QuietIdle(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.OpenPanel();
    scene.Settle();
    const ProjectState before = scene.host().State();
    const std::vector<std::string> first = passCalls(scene);
    const auto isName = [](const std::string& call)
    { return call.find("AEGP_GetStreamName") != std::string::npos; };
    trial.RequireEqual<std::ptrdiff_t>(std::count_if(first.begin(), first.end(), isName), 4,
                                       "the number of names that a pass reads");
    constexpr int passes = 60;
    for (int i = 0; i < passes; ++i)
    {
        trial.At("idle pass " + std::to_string(i + 2) + " with nothing changed");
        const std::vector<std::string> calls = passCalls(scene);
        trial.RequireLines(writesOf(scene.host().Trace()), {}, "the calls that write");
        trial.RequireLines(calls, first, "the calls of the pass, compared with those of the first");
    }
    trial.RequireLines(scene.session.Printed(), {}, "the printed lines");
    trial.Require(scene.host().State() == before, "the project is not what it was");
    trial.RequireLines(scene.host().UndoNames(), {}, "what can be undone");
    scene.End();
}

void MemorySteady(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.OpenPanel();
    const auto idle = [&](int passes)
    {
        for (int i = 0; i < passes; ++i)
        {
            (void)scene.host().RunIdle();
            scene.host().ClearTrace();
        }
    };
    // The stand-in remembers so many references that it has to have filled that up.
    constexpr int untilSteady = 1000;
    constexpr int passes = 2000;
    constexpr std::size_t allowed = 16384;
    idle(untilSteady);
    scene.session.Forget();
    const std::size_t before = process::BytesInUse();
    idle(passes);
    const std::size_t used = std::max(process::BytesInUse(), before) - before;
    const std::size_t notes = passes * notesOf(passCalls(scene));
    const std::size_t own = used - std::min(used, notes);
    trial.Require(before > 0, "the memory in use cannot be told");
    trial.Require(own <= allowed, std::to_string(passes) + " idle passes with nothing changed took " +
                                      std::to_string(own) + " bytes of memory");
    scene.End();
}
} // namespace standin::check::bundles
