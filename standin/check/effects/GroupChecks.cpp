// What an effect makes of the groups that it is told.

#include "standin/check/effects/EffectScene.h"

namespace standin::check::effects
{
namespace
{
constexpr int rigid = -1;

std::string answerText(int told, int answered)
{
    return "told group " + std::to_string(told) + ", the effect answers " + std::to_string(answered);
}
} // namespace

void Groups(Trial& trial)
{
    EffectScene scene(trial.File());
    KeptBytes kept = scene.Apply();
    const int first = scene.AskGroup(kept);
    trial.Require(first == 0 || first == rigid,
                  "a new effect answers group " + std::to_string(first) + " before it is told any");
    for (const int told : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0, 10, 1, 0})
    {
        scene.TellGroup(kept, told);
        const int answered = scene.AskGroup(kept);
        const int expected = first == rigid ? rigid : told;
        trial.Require(answered == expected, answerText(told, answered));
        trial.Require(scene.AskGroup(kept) == expected, answerText(told, answered) + " the first time alone");
    }
}

void GroupToldMinusOne(Trial& trial)
{
    EffectScene scene(trial.File());
    for (const int before : {0, 5, 10})
    {
        KeptBytes kept = scene.Apply();
        scene.TellGroup(kept, before);
        scene.TellGroup(kept, -1);
        const int answered = scene.AskGroup(kept);
        trial.Require(answered == 0 || answered == -1, answerText(-1, answered));
    }
}

void GroupsBeyond(Trial& trial)
{
    EffectScene scene(trial.File());
    for (const int told : {11, 12, 100, 255, 256, 261, 32767, -2, -32768})
    {
        KeptBytes kept = scene.Apply();
        const Identity identity = scene.AskIdentity(kept);
        scene.TellGroup(kept, 5);
        const int before = scene.AskGroup(kept);
        scene.TellGroup(kept, told);
        const int answered = scene.AskGroup(kept);
        trial.Require(answered == told || answered == before || answered == 0, answerText(told, answered));
        trial.RequireEqual(TextOf(scene.AskIdentity(kept)), TextOf(identity),
                           "the identity after group " + std::to_string(told));
    }
}
} // namespace standin::check::effects
