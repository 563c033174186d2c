// Misbehaving effects, and odd names.

#include "standin/check/PanelScene.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/family/Liars.h"
#include "standin/host/sensors/FindingIds.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <set>

namespace standin::check::bundles
{
namespace
{
using Record = std::array<std::uint8_t, message::size>;

/// Answers as it should, and looks at what it is sent.
class Witness : public FamilyBehaviour
{
public:
    A_Err OnGeneralCommand(const EffectCall& call, A_Time compTime, void* extra) const override
    {
        if (extra != nullptr)
        {
            Record record{};
            std::memcpy(record.data(), extra, record.size());
            records.push_back(record);
            times.push_back(std::to_string(compTime.value) + "/" + std::to_string(compTime.scale));
        }
        else
            ++nulls;
        return FamilyBehaviour::OnGeneralCommand(call, compTime, extra);
    }

    mutable std::vector<Record> records;
    mutable std::vector<std::string> times;
    mutable int nulls = 0;
};

/// The first bytes of a record, in hexadecimal.
std::string bytesOf(const Record& record, std::size_t count)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        (text += digits[record[i] >> 4]) += digits[record[i] & 15];
    return text;
}

/// How many bytes of a message have a meaning. One that tells a group is zeroed as a whole.
std::size_t meaningOf(std::uint32_t command)
{
    return command == message::getGroup ? 10 : command == message::getIdentity ? 24 : message::size;
}

/// What a well-made message of this command looks like.
Record wellMade(std::uint32_t command, std::int16_t group)
{
    Record record{};
    const std::uint32_t magic = message::magic;
    std::memcpy(record.data(), &magic, sizeof magic);
    std::memcpy(record.data() + sizeof magic, &command, sizeof command);
    if (command != message::getIdentity)
        message::PutGroup(record.data(), group);
    return record;
}

struct OddBehaviour
{
    const char* what;
    std::shared_ptr<const Behaviour> behaviour;
    /// What the effect does to the stack by itself: these effects go, and so many come.
    std::set<std::string> gone{};
    std::size_t come = 0;
};

std::vector<OddBehaviour> oddBehaviours()
{
    return {{"leaves its first three messages unanswered", AnswersLate(3)},
            {"gives an error to every message", FailsWith(4)},
            {"answers and gives an error", AnswersAndFailsWith(4)},
            {"bears an identity that others bear", RepeatsIdentity(IdentityOf(7))},
            {"scribbles into the reserved bytes", ScribblesReserved()},
            {"scribbles over the whole message", ScribblesAll()},
            {"always answers group 5", AnswersGroup(5)},
            {"always answers group -300", AnswersGroup(-300)},
            {"deletes itself inside a message",
             ActsInMessage([](Host& host) { host.User().Delete("odd"); }, 2),
             {"odd"}},
            {"deletes another effect inside a message",
             ActsInMessage([](Host& host) { host.User().Delete("disc"); }, 3),
             {"disc"}},
            {"applies an effect inside a message",
             ActsInMessage([](Host& host) { (void)host.User().Apply(1, "QVK VORTREN Dots"); }, 2),
             {},
             1},
            {"undoes inside a message", ActsInMessage([](Host& host) { (void)host.Undo(); }, 4)}};
}

/// References that an effect has made stale inside a message are the host's to refuse.
bool isHandedOn(const Finding& finding)
{
    return finding.id == finding::staleReference || finding.id == finding::indexOutOfRange;
}

/// An effect with all that a user sees of it.
std::string lineOf(const EffectInstance& effect)
{
    return effect.customName.value_or("") + ", group " + std::to_string(effect.family.group) + ", flags " +
           std::to_string(effect.flags) + (effect.groupHidden ? ", hidden" : ", shown");
}

/// The odd effect does what it does, and the bundle nothing: every other effect is as it was, in its place.
void requireTheRestAsItWas(PanelScene& scene, const ProjectState& base, const OddBehaviour& odd)
{
    const std::vector<EffectInstance>& former = base.layers.front().effects;
    std::vector<std::string> expected;
    for (const EffectInstance& effect : former)
        if (odd.gone.count(effect.label) == 0)
            expected.push_back(lineOf(effect));
    std::vector<std::string> found;
    for (const EffectInstance& effect : scene.TheLayer().effects)
        if (base.FindEffect(effect.id) != nullptr)
            found.push_back(lineOf(effect));
    scene.trial.RequireLines(found, expected, "the effects that were there before");
    scene.trial.RequireEqual(scene.TheLayer().effects.size(), expected.size() + odd.come,
                             "the number of effects");
}

void meet(PanelScene& scene, const ProjectState& base, const OddBehaviour& odd)
{
    Trial& trial = scene.trial;
    trial.At(std::string("an effect that ") + odd.what);
    scene.host().State() = base;
    scene.host().ForgetHistory();
    EffectInstance& effect = scene.host().Effect("odd");
    effect.behaviour = odd.behaviour;
    scene.host().RuntimeOf(effect.id).messages = 0; // Some behaviours count them.
    for (int i = 0; i < 6; ++i)
    {
        const HookResult result = scene.host().RunIdle();
        trial.RequireEqual(result.thrown, std::string(), "what left the idle hook");
        trial.RequireEqual(scene.host().LeakedReferences(), 0,
                           "the number of references that hooks have leaked");
        trial.RequireEqual(scene.host().UndoGroupsLeftOpen(), 0,
                           "the number of undo groups that hooks have left open");
    }
    for (const Finding& finding : scene.host().TakeFindings())
        trial.Require(isHandedOn(finding), finding.Text());
    requireTheRestAsItWas(scene, base, odd);
}
} // namespace

void OddEffects(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.AddObject("odd");
    scene.OpenPanel();
    const ProjectState base = scene.host().State();
    for (const OddBehaviour& odd : oddBehaviours())
        meet(scene, base, odd);
    scene.host().State() = base;
    scene.Do("rename \"odd\" to \"even\"");
    scene.RequireAgreement();
    scene.End();
}

void Messages(Trial& trial)
{
    PanelScene scene(trial);
    scene.AddFourObjects();
    scene.TheLayer().startTime = 250;
    scene.OpenPanel();
    const auto witness = std::make_shared<Witness>();
    scene.host().Effect("lamp").behaviour = witness;
    scene.Do("rename \"disc\" to \"plate\"");
    scene.Do("drag row \"lamp\" into \"Group 1\"");
    trial.RequireEqual(witness->nulls, 0, "the number of general commands without a record");
    int told = 0;
    for (const Record& record : witness->records)
    {
        const std::uint32_t command = message::CommandOf(record.data());
        const bool tells = command == message::setGroup;
        told += tells ? 1 : 0;
        trial.Require(tells || command == message::getGroup || command == message::getIdentity,
                      "no effect knows the command " + std::to_string(command));
        trial.RequireEqual(bytesOf(record, meaningOf(command)),
                           bytesOf(wellMade(command, tells ? 1 : -1), meaningOf(command)),
                           "the message with command " + std::to_string(command));
    }
    for (const std::string& time : witness->times)
        trial.RequireEqual(time, std::string("250/100"), "the time that goes with a message");
    trial.RequireEqual(told, 1, "the number of messages that tell the group");
    trial.Require(witness->records.size() > 20, "hardly any message was sent");
    scene.End();
}

void OddNames(Trial& trial)
{
    const std::vector<std::string> names{"",
                                         " ",
                                         std::string(120, 'w'),
                                         "gr\xfc\xdf",   // Latin-1
                                         "\xe7\x81\xaf", // UTF-8
                                         "cut \xe7\x81", // UTF-8 that ends too early
                                         "\xff\xfe\x80", // no encoding at all
                                         "%s %n %d",
                                         "tab\tand \"quotes\" \\",
                                         "Group 1"};
    PanelScene scene(trial);
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        const std::string label = "odd" + std::to_string(i);
        scene.AddObject(label);
        scene.host().Effect(label).customName = names[i];
    }
    scene.AddObject("lamp");
    scene.OpenPanel();
    std::vector<std::string> expected = names;
    expected.push_back("lamp");
    trial.RequireLines(scene.StackNames(), expected, "the names after the opening of the panel");
    // A pass that compares all of them, and one that writes one.
    scene.Do("rename \"lamp\" to \"torch\"");
    scene.Do("click row \"torch\"");
    scene.Do("press Return");
    scene.Do("type \"plate\"");
    scene.Do("press Return");
    expected.back() = "plate";
    std::vector<std::string> found = scene.StackNames();
    std::sort(expected.begin(), expected.end());
    std::sort(found.begin(), found.end());
    trial.RequireLines(found, expected, "the names, sorted, after a rename of the last");
    scene.End();
}
} // namespace standin::check::bundles
