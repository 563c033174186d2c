// What an effect is called, and how it deals with records.

#include "standin/check/effects/EffectScene.h"
#include "standin/host/family/Family.h"

#include <algorithm>

namespace standin::check::effects
{
namespace
{
/// The bytes as they are to a reader of a report.
std::string differenceText(const std::vector<std::uint8_t>& before, const std::vector<std::uint8_t>& after)
{
    const auto found = std::mismatch(before.begin(), before.end(), after.begin());
    return "byte " + std::to_string(found.first - before.begin()) + " was " + std::to_string(*found.first) +
           " and is " + std::to_string(*found.second);
}
} // namespace

void MatchName(Trial& trial)
{
    const EffectModule module(trial.File());
    const auto& known = FamilyEffects();
    trial.Require(std::any_of(known.begin(), known.end(),
                              [&](const FamilyEffect& each) { return each.matchName == module.MatchName(); }),
                  "the panel knows no effect with the match name \"" + module.MatchName() +
                      "\": a menu offers it as \"Not Found\", or none does");
}

void CallsReturnWell(Trial& trial)
{
    EffectScene scene(trial.File());
    scene.Exercise();
    trial.RequireLines(scene.BadReturns(), {}, "calls that did not return well");
}

void ForeignRecords(Trial& trial)
{
    EffectScene scene(trial.File());
    KeptBytes kept = scene.Apply();
    scene.TellGroup(kept, 2);
    const Identity identity = scene.AskIdentity(kept);
    const int group = scene.AskGroup(kept);
    for (const auto& [what, original] : ForeignRecordsOf())
    {
        trial.At("a record with " + what);
        auto record = original;
        scene.Send(kept, record);
        trial.Require(record == original, "the effect has written to the record: " +
                                              (record == original ? "" : differenceText(original, record)));
        trial.RequireEqual(TextOf(scene.AskIdentity(kept)), TextOf(identity), "the identity afterwards");
        trial.RequireEqual(scene.AskGroup(kept), group, "the group afterwards");
    }
}

void NothingOutside(Trial& trial)
{
    EffectScene scene(trial.File());
    scene.Exercise();
    trial.RequireLines(scene.Damages(), {}, "calls that wrote outside");
}

void AskedQuietly(Trial& trial)
{
    EffectScene scene(trial.File());
    KeptBytes kept = scene.Apply();
    scene.Idle(3);
    const std::size_t calls = scene.witness.Calls().size();
    scene.host.ClearTrace();
    KeptBytes before = kept;
    for (int i = 0; i < 3; ++i)
    {
        (void)scene.AskGroup(kept);
        (void)scene.AskIdentity(kept);
    }
    auto since = scene.witness.Calls();
    since.erase(since.begin(), since.begin() + static_cast<std::ptrdiff_t>(calls));
    trial.RequireLines(since, {}, "calls of the panel's suites");
    trial.RequireLines(scene.host.CallTexts(), {}, "calls of the host");
    trial.Require(kept == before,
                  "the kept bytes have changed: " + (kept == before ? "" : differenceText(before, kept)));
}
} // namespace standin::check::effects
