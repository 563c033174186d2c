// What the other effects of the family ask for through the published suites.

#include "standin/script/Phrase.h"
#include "standin/script/Stage.h"

namespace standin::script
{
namespace
{
int countRun(int, void*, void* refcon)
{
    ++*static_cast<int*>(refcon);
    return 0;
}

void queue(Stage& stage, int count)
{
    Sibling sibling(stage.host());
    for (int i = 0; i < count; ++i)
        if (sibling.QueueIdleFunction(&countRun, &stage.queuedRuns) != 0)
            throw StageError("the idle suite refuses a function");
}
} // namespace

PhraseBook SiblingPhrases()
{
    return {"The siblings",
            {Action("a sibling opens the panel", "It asks for the panel unless it is up already.",
                    [](Stage& s, const Arguments&) { (void)Sibling(s.host()).OpenPanel(Force::ifNotUp); }),
             Action("a sibling opens the panel by force", "It asks in any case.",
                    [](Stage& s, const Arguments&) { (void)Sibling(s.host()).OpenPanel(Force::always); }),
             Action("a sibling refreshes the panel", "It asks for a rebuild of the rows.",
                    [](Stage& s, const Arguments&) { (void)Sibling(s.host()).RefreshPanel(); }),
             Action("a sibling notifies TEXT", "It has the panel show a text for ten seconds.",
                    [](Stage& s, const Arguments& a)
                    {
                        s.AddCandidate(a.texts[0]);
                        (void)Sibling(s.host()).NotifyPanel(a.texts[0].c_str());
                    }),
             Action("a sibling queues NUMBER functions", "Each is to be run once at the next idle.",
                    [](Stage& s, const Arguments& a) { queue(s, a.numbers[0]); })}};
}
} // namespace standin::script
