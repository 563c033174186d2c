// The host that idles in the midst of a call, as while an effect's alert is open.

#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

namespace standin::script
{
PhraseBook IdlePhrases()
{
    return {
        "Idling inside calls",
        {Setting("idle inside WORD once",
                 "The host idles inside the next call of this function, before the call returns.",
                 [](Stage& s, const Arguments& a) { s.host().Idles().InFunction(a.texts[0]); }),
         Setting("idle inside call NUMBER of WORD",
                 "The same for the call so many calls from now, counted from 1.",
                 [](Stage& s, const Arguments& a)
                 { s.host().Idles().InFunction(a.texts[0], static_cast<std::size_t>(a.numbers[0])); }),
         Setting("idle inside each call of WORD", "The same for each of its calls from now on.",
                 [](Stage& s, const Arguments& a) { s.host().Idles().InEachCallOf(a.texts[0]); }),
         Setting("idle inside each call",
                 "The same for every call of the host that a hook makes; short for switch every-call-idles.",
                 [](Stage& s, const Arguments&) { s.host().Options().idleInCalls = IdleInCalls::always; }),
         Setting("idle inside no call",
                 "The host idles between calls alone again, also if it was switched to every-call-idles.",
                 [](Stage& s, const Arguments&)
                 {
                     s.host().Options().idleInCalls = IdleInCalls::never;
                     s.host().Idles().Clear();
                 }),
         Expectation("expect the host has idled inside NUMBER calls",
                     "So often since the beginning, or since it was told to idle inside no call.",
                     [](Stage& s, const Arguments& a)
                     {
                         const std::size_t times = s.host().Idles().TimesIdled();
                         return times == static_cast<std::size_t>(a.numbers[0])
                                    ? ""
                                    : "it has idled inside " + std::to_string(times);
                     }),
         Expectation("expect the host has idled inside calls", "At least once.",
                     [](Stage& s, const Arguments&)
                     { return s.host().Idles().TimesIdled() != 0 ? "" : "it has idled inside none"; })}};
}
} // namespace standin::script
