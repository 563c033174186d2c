// What goes wrong in the host.

#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

namespace standin::script
{
PhraseBook FaultPhrases()
{
    return {
        "Faults",
        {Setting("fail WORD once", "The next call of this function of the host fails and does nothing.",
                 [](Stage& s, const Arguments& a) { s.host().Faults().FailFunction(a.texts[0]); }),
         Setting("fail call NUMBER of WORD", "The call so many calls from now, counted from 1, fails.",
                 [](Stage& s, const Arguments& a)
                 { s.host().Faults().FailFunction(a.texts[0], static_cast<std::size_t>(a.numbers[0])); }),
         Setting("fail WORD for good", "Each call of this function fails from now on.",
                 [](Stage& s, const Arguments& a)
                 { s.host().Faults().FailFunction(a.texts[0], 1, FaultLength::functionForGood); }),
         Setting("withhold TEXT", "The suite of this name cannot be acquired.",
                 [](Stage& s, const Arguments& a) { s.host().Faults().Withhold(a.texts[0]); }),
         Setting("give back TEXT", "It can be acquired again.",
                 [](Stage& s, const Arguments& a) { s.host().Faults().GiveBack(a.texts[0]); }),
         Setting("all is well again", "No call fails any more.",
                 [](Stage& s, const Arguments&) { s.host().Faults().Disarm(); }),
         Setting("expect finding WORD in WORD of WORD because TEXT",
                 "The stand-in reports this of one call of the function in this hook, and it is meant to.",
                 [](Stage& s, const Arguments& a)
                 { (void)s.host().Expect(a.texts[0], a.texts[1], a.texts[3]).In(a.texts[2]).Times(1); }),
         Setting(
             "expect NUMBER findings WORD in WORD of WORD because TEXT",
             "Of so many calls, no more and no fewer.",
             [](Stage& s, const Arguments& a) {
                 (void)s.host().Expect(a.texts[0], a.texts[1], a.texts[3]).In(a.texts[2]).Times(a.numbers[0]);
             }),
         Setting("expect finding WORD of WORD because TEXT",
                 "The same, once, for a finding outside any call.",
                 [](Stage& s, const Arguments& a)
                 { (void)s.host().Expect(a.texts[0], "", a.texts[2]).In(a.texts[1]).Times(1); })}};
}
} // namespace standin::script
