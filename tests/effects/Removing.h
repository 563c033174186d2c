#pragma once
// A removal of effects by their labels that the host may disturb, and how it ends.

#include "effects/EffectRemoval.h"
#include "tests/effects/FaultOutcome.h"
#include "tests/support/StackTest.h"

#include <string>
#include <vector>

namespace standin
{
struct Removing : LabelledStack
{
    Removing(const std::string& labels, const std::string& labelsOfDoomed)
        : LabelledStack(labels), before(host.State())
    {
        for (const std::string& label : Words(labelsOfDoomed))
            doomed.push_back(Uuid(label));
    }

    void Run()
    {
        int returned = -1;
        const HookResult hook = host.RunInHook(
            [&]
            {
                returned = RemoveMultipleEffectsByUUID(Id(), Basic(), doomed, Layer());
                openGroups = host.OpenUndoGroups();
            });
        outcome = OutcomeText(hook, returned);
    }

    standin::Calls SweepWithoutDisposals() const
    {
        standin::Calls calls;
        for (const std::string& call : Sweep())
        {
            if (call.find("AEGP_DisposeEffect") == std::string::npos)
                calls.push_back(call);
        }
        return calls;
    }

    void ExpectUndoBringsBackEverything()
    {
        while (host.Undo())
        {
        }
        EXPECT_EQ(host.State(), before);
    }

    std::vector<std::string> doomed;
    ProjectState before;
    std::string outcome;
    int openGroups = 0; ///< When the operation returned.
};
} // namespace standin
