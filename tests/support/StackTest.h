#pragma once
// The fixture of tests over one layer's stack, which the test makes. At the end there may be no output that
// the test has not taken, no held suite and no unexpected finding.

#include "tests/support/LabelledStack.h"
#include "tests/support/OutputOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace standin
{
class StackTest : public ::testing::Test
{
protected:
    LabelledStack& Make(const std::string& labels, HostOptions options = {})
    {
        expectAllIsWell();
        scene.reset();
        scene = std::make_unique<LabelledStack>(labels, options);
        return *scene;
    }

    void TearDown() override { expectAllIsWell(); }

    void ExpectCalls(const Calls& expected) const { EXPECT_EQ(scene->Calls(), TextOf(expected)); }

    /// Changes the layer to this tree; expects these calls, this stack after them and these undo steps, which
    /// bring back the stack as it was. Gives what was printed.
    std::string ExpectChange(const std::string& tree, const Calls& calls, const std::string& after,
                             const std::string& steps) const
    {
        const std::string before = scene->Text();
        EXPECT_EQ(scene->ChangeTo(tree).thrown, "");
        ExpectCalls(calls);
        EXPECT_EQ(scene->Text(), after);
        EXPECT_EQ(scene->Steps(), steps);
        EXPECT_TRUE(scene->UndoBringsBackTheStart());
        EXPECT_EQ(scene->Text(), before);
        return scene->TakePrinted();
    }

    std::unique_ptr<LabelledStack> scene;

private:
    void expectAllIsWell() const
    {
        if (scene == nullptr)
            return;
        EXPECT_EQ(scene->TakePrinted(), "");
        scene->host.CheckSuiteBalance();
        EXPECT_EQ(scene->host.LeakedReferences(), 0);
        EXPECT_EQ(scene->host.FindingsReport(), "");
    }
};

/// A host on which an undo group without a change leaves an entry, so that every group can be seen.
inline HostOptions EveryGroupShows()
{
    HostOptions options;
    options.unchangedGroup = UnchangedGroup::leavesPhantomEntry;
    return options;
}
} // namespace standin
