#pragma once
// The fixture of tests over one layer's stack: the scene is made by the test, and at the end nothing may have
// been found that the test did not expect.

#include "tests/support/StackScene.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace standin
{
class StackTest : public ::testing::Test
{
protected:
    StackScene& Make(const std::string& labels, HostOptions options = {})
    {
        scene.reset();
        scene = std::make_unique<StackScene>(labels, options);
        return *scene;
    }

    void TearDown() override
    {
        if (scene == nullptr)
            return;
        scene->host.CheckSuiteBalance();
        EXPECT_EQ(scene->host.FindingsReport(), "");
    }

    std::unique_ptr<StackScene> scene;
};

/// A host on which an undo group without a change leaves an entry, so that every group can be seen.
inline HostOptions EveryGroupShows()
{
    HostOptions options;
    options.unchangedGroup = UnchangedGroup::leavesPhantomEntry;
    return options;
}

/// What `action` writes to the standard output.
template <class Action>
std::string OutputOf(Action action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}
} // namespace standin
