#include "standin/effect_checks/EffectChecks.h"

#include "standin/session/EffectModule.h"

namespace standin
{
namespace
{
using namespace effect_checks;

const std::vector<Check> table{
    {"match-name", "The match name is one of those that the panel looks for.", &MatchName},
    {"calls-return-well", "No call ends with an error or is left by an exception.", &CallsReturnWell},
    {"identity-answered", "The effect answers an identity that is not zero, each time the same.",
     &IdentityIsAnswered},
    {"identity-of-its-own",
     "Every new effect has an identity that no other has, also in another run of the host.",
     &IdentityIsItsOwn},
    {"identity-after-duplicate", "A duplicated effect keeps its identity, and the duplicate makes its own.",
     &IdentityAfterDuplicate},
    {"identity-in-kept-bytes", "Identity and group lie in the kept bytes, wherever the host copies them.",
     &IdentityInKeptBytes},
    {"identity-after-undo", "A change of group, its undo and its redo leave the identity as it is.",
     &IdentityAfterUndo},
    {"identity-after-save",
     "Saved, and loaded in another run of the host, the effect answers the identity and the group that it "
     "had.",
     &IdentityAfterSave},
    {"groups",
     "Told a group from 1 to 10, or 0, the effect answers just that; a rigid one always answers -1.",
     &Groups},
    {"group-minus-one", "Told group -1, the effect answers 0 or -1.", &GroupToldMinusOne},
    {"groups-beyond", "Told a number that is no group, the effect answers it, or its group before, or 0.",
     &GroupsBeyond},
    {"foreign-records", "A record of another size, with another magic or another command is left alone.",
     &ForeignRecords},
    {"nothing-outside", "Nothing is written outside the record's 128 bytes and the kept ones.",
     &NothingOutside},
    {"asked-quietly", "Asked for identity or group, the effect calls nobody and changes nothing.",
     &AskedQuietly},
    {"no-other-thread", "The suites are called on the host's main thread alone.", &NoOtherThread},
    {"queued-functions", "Every function that the effect queues returns, and throws nothing.",
     &QueuedFunctions},
    {"suite-arguments",
     "The suites' functions get the reference of their own table, and a text that is there.",
     &SuiteArguments},
    {"suites-released", "Every suite is released as often as it was acquired.", &SuitesAreReleased},
    {"without-the-panel", "Where the panel's plug-in is not installed, the effect answers all the same.",
     &WithoutThePanel}};
} // namespace

const CheckBook& EffectChecks()
{
    static const CheckBook book{"check-effect", "check-effect-alone", "effect", &table,
                                [](const std::string& file) { (void)EffectModule(file); }};
    return book;
}
} // namespace standin
