// The identity of an effect over everything that a host does to it.

#include "standin/check/effects/EffectScene.h"
#include "standin/check/effects/OtherRun.h"

#include <algorithm>
#include <set>

namespace standin::check::effects
{
namespace
{
constexpr int newEffects = 50;

/// The identities of some new effects, one after the other.
std::vector<std::uint8_t> identitiesOfNewEffects(const std::string& file)
{
    EffectScene scene(file);
    std::vector<std::uint8_t> bytes;
    for (int i = 0; i < newEffects; ++i)
    {
        KeptBytes kept = scene.Apply();
        const Identity identity = scene.AskIdentity(kept);
        bytes.insert(bytes.end(), identity.begin(), identity.end());
    }
    return bytes;
}

std::vector<Identity> apart(const std::vector<std::uint8_t>& bytes)
{
    std::vector<Identity> identities(bytes.size() / std::tuple_size_v<Identity>);
    for (std::size_t i = 0; i < identities.size(); ++i)
        std::copy_n(bytes.begin() + static_cast<std::ptrdiff_t>(i * identities[i].size()),
                    identities[i].size(), identities[i].begin());
    return identities;
}

void requireIdentity(Trial& trial, const Identity& found, const Identity& expected, const std::string& what)
{
    trial.RequireEqual(TextOf(found), TextOf(expected), what);
}
} // namespace

void IdentityIsAnswered(Trial& trial)
{
    EffectScene scene(trial.File());
    KeptBytes kept = scene.Apply();
    const Identity first = scene.AskIdentity(kept);
    trial.Require(first != Identity{},
                  "a new effect answers the zero identity, as one from outside the family");
    for (int i = 0; i < 3; ++i)
    {
        scene.Idle();
        requireIdentity(trial, scene.AskIdentity(kept), first, "the identity, asked for again,");
    }
}

void IdentityIsItsOwn(Trial& trial)
{
    const std::string file = trial.File();
    auto bytes = InOtherRun([&] { return identitiesOfNewEffects(file); });
    const auto here = identitiesOfNewEffects(file);
    bytes.insert(bytes.end(), here.begin(), here.end());
    std::set<Identity> seen;
    for (const Identity& identity : apart(bytes))
        trial.Require(seen.insert(identity).second, "two of " + std::to_string(2 * newEffects) +
                                                        " effects, applied in two runs of the host, answer " +
                                                        TextOf(identity));
}

void IdentityAfterDuplicate(Trial& trial)
{
    EffectScene scene(trial.File());
    KeptBytes original = scene.Apply();
    const Identity before = scene.AskIdentity(original);
    KeptBytes copy = scene.Copy(original);
    KeptBytes second = scene.Copy(copy);
    requireIdentity(trial, scene.AskIdentity(original), before,
                    "the original's identity after the duplicate");
    const Identity ofCopy = scene.AskIdentity(copy);
    const Identity ofSecond = scene.AskIdentity(second);
    trial.Require(ofCopy != Identity{} && ofSecond != Identity{}, "a duplicate answers the zero identity");
    trial.Require(ofCopy != before, "original and duplicate both answer " + TextOf(before) +
                                        ", and the panel takes the two for one");
    trial.Require(ofSecond != ofCopy && ofSecond != before,
                  "a duplicate of a duplicate answers " + TextOf(ofSecond) + ", as another does");
}

void IdentityInKeptBytes(Trial& trial)
{
    EffectScene scene(trial.File());
    const KeptBytes fresh = scene.Apply();
    KeptBytes one = fresh;
    const Identity identity = scene.AskIdentity(one);
    KeptBytes other = fresh;
    requireIdentity(trial, scene.AskIdentity(other), identity,
                    "the identity of the same bytes at another address");
    scene.TellGroup(one, 4);
    const int group = scene.AskGroup(one);
    KeptBytes third = scene.Apply();
    KeptBytes copied = one;
    trial.RequireEqual(scene.AskGroup(copied), group, "the group of the same bytes at another address");
    requireIdentity(trial, scene.AskIdentity(copied), identity, "the identity after a change of group");
    trial.Require(scene.AskIdentity(third) != identity, "two effects answer the same identity");
}

void IdentityAfterUndo(Trial& trial)
{
    EffectScene scene(trial.File());
    Host& host = scene.host;
    InstallEffectModule(host, trial.File());
    const int layer = host.AddLayer(host.AddComposition("Comp 1"));
    const int effectId = host.User().Apply(layer, scene.module.MatchName());
    const auto answered = [&]
    {
        KeptBytes kept = host.State().FindEffect(effectId)->family.kept;
        return scene.AskIdentity(kept);
    };
    const std::string label = host.State().FindEffect(effectId)->label;
    const Identity identity = answered();
    host.User().SetGroup(label, 3);
    requireIdentity(trial, answered(), identity, "the identity after a change of group");
    (void)host.Undo();
    if (host.State().FindEffect(effectId) == nullptr)
        (void)host.Redo(); // A rigid effect made no step of the change, and the undo took the effect itself.
    requireIdentity(trial, answered(), identity, "the identity after an undo");
    (void)host.Redo();
    requireIdentity(trial, answered(), identity, "the identity after a redo");
}

void IdentityAfterSave(Trial& trial)
{
    const std::string file = trial.File();
    // The identity, the group, and the bytes as they would be saved.
    const auto saved = InOtherRun(
        [&]
        {
            EffectScene scene(file);
            for (int i = 0; i < 3; ++i)
                (void)scene.Apply();
            KeptBytes kept = scene.Apply();
            scene.TellGroup(kept, 6);
            const Identity identity = scene.AskIdentity(kept);
            std::vector<std::uint8_t> bytes(identity.begin(), identity.end());
            bytes.push_back(static_cast<std::uint8_t>(scene.AskGroup(kept)));
            bytes.insert(bytes.end(), kept.begin(), kept.end());
            return bytes;
        });
    EffectScene scene(file);
    KeptBytes kept(saved.begin() + 17, saved.end());
    requireIdentity(trial, scene.AskIdentity(kept), apart(saved).front(), "the identity after loading");
    trial.RequireEqual(static_cast<int>(static_cast<std::uint8_t>(scene.AskGroup(kept))),
                       static_cast<int>(saved[16]), "the group after loading");
}
} // namespace standin::check::effects
