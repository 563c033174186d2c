// The first entry point: what it publishes, what it registers, and the calls by which it does so.

#include "host/IdleSuite.h"
#include "standin/host/core/Host.h"
#include "standin/host/family/Sibling.h"
#include "standin/host/sensors/FindingIds.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
namespace
{
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr A_long loadedId = 8; ///< The id of the first plug-in that a host loads.

class IdleSuiteEntry : public ::testing::Test
{
protected:
    void TearDown() override
    {
        host.CheckSuiteBalance();
        EXPECT_EQ(host.FindingsReport(), "");
    }

    LoadedPlugin LoadWell()
    {
        const LoadedPlugin loaded = host.Load(&EffectorAEGP);
        EXPECT_EQ(loaded.result.error, A_Err_NONE);
        EXPECT_EQ(loaded.result.thrown, "");
        return loaded;
    }

    /// The table as another bundle finds it.
    const VnIdleSuite* Published()
    {
        const void* table = nullptr;
        host.RunInHook(
            [&]
            {
                auto* basic = static_cast<SPBasicSuite*>(host.BasicSuite());
                EXPECT_EQ(basic->AcquireSuite("Vortan Idle Suite v1", 1, &table), 0);
                EXPECT_EQ(basic->ReleaseSuite("Vortan Idle Suite v1", 1), 0);
            });
        return static_cast<const VnIdleSuite*>(table);
    }

    Host host;
};

/// Two functions in one queue tell by their order that they share it.
int noteRun(int, void*, void* refcon)
{
    ++*static_cast<int*>(refcon);
    return 0;
}

TEST_F(IdleSuiteEntry, PublishesRegistersAndReleasesInThisOrder)
{
    LoadWell();
    EXPECT_THAT(host.CallTexts(),
                ElementsAre(R"(Basic AcquireSuite("SP Suites Suite", 2))",
                            R"(Suites 2 AddSuite(null, null, "Vortan Idle Suite v1", 1, 1, table))",
                            R"(Basic ReleaseSuite("SP Suites Suite", 2))",
                            // Acquired once more, to no use.
                            R"(Basic AcquireSuite("SP Suites Suite", 2))",
                            R"(Basic ReleaseSuite("SP Suites Suite", 2))",
                            R"(Basic AcquireSuite("AEGP Register Suite", 6))",
                            R"(Basic AcquireSuite("AEGP Utility Suite", 7))",
                            "Register 6 AEGP_RegisterIdleHook(id 8, hook, refcon)",
                            R"(Basic ReleaseSuite("AEGP Register Suite", 6))",
                            R"(Basic ReleaseSuite("AEGP Utility Suite", 7))"));
}

TEST_F(IdleSuiteEntry, GivesTheHostABlock)
{
    struct GlobalBlock
    {
        std::int32_t pluginId;
        void* basicSuite;
    };
    const LoadedPlugin loaded = LoadWell();
    ASSERT_NE(loaded.globalRefcon, nullptr);
    const auto* block = static_cast<const GlobalBlock*>(loaded.globalRefcon);
    EXPECT_EQ(block->pluginId, loadedId);
    EXPECT_EQ(block->basicSuite, host.BasicSuite());
}

TEST_F(IdleSuiteEntry, PublishesATwoWordTableWithEmptyQueue)
{
    EXPECT_EQ(sizeof(VnIdleSuite), 16u);
    EXPECT_EQ(offsetof(VnIdleSuite, ref), 0u);
    EXPECT_EQ(offsetof(VnIdleSuite, AddFuncToIdleStack), 8u);
    EXPECT_EQ(offsetof(VnIdleRef, pluginId), 0u);
    EXPECT_EQ(offsetof(VnIdleRef, basicSuite), 8u);
    EXPECT_EQ(offsetof(VnIdleRef, idleSlots), 16u);
    EXPECT_EQ(sizeof(VnIdleRef), 16u + 32u * 16u);

    LoadWell();
    const VnIdleSuite* suite = Published();
    ASSERT_NE(suite, nullptr);
    EXPECT_EQ(suite->AddFuncToIdleStack, &AddFuncToIdleStack);
    ASSERT_NE(suite->ref, nullptr);
    EXPECT_EQ(suite->ref->pluginId, loadedId);
    EXPECT_EQ(suite->ref->basicSuite, host.BasicSuite());
    const std::string queue(reinterpret_cast<const char*>(suite->ref->idleSlots), 32 * 16);
    EXPECT_THAT(queue, Each('\0'));
}

TEST_F(IdleSuiteEntry, IgnoresTheVersionOfTheHost)
{
    const LoadedPlugin loaded =
        host.Load(+[](SPBasicSuite* basicSuite, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
                  { return EffectorAEGP(basicSuite, -1, 0, id, out); });
    EXPECT_EQ(loaded.result.error, A_Err_NONE);
    EXPECT_NE(Published(), nullptr);
}

TEST_F(IdleSuiteEntry, ASiblingsFunctionRunsAtTheNextIdle)
{
    LoadWell();
    Sibling sibling(host);
    int runs = 0;
    EXPECT_EQ(sibling.QueueIdleFunction(&noteRun, &runs), 0);
    EXPECT_EQ(sibling.QueueIdleFunction(&noteRun, &runs), 0);
    EXPECT_EQ(runs, 0);
    EXPECT_EQ(host.RunIdle().error, A_Err_NONE);
    EXPECT_EQ(runs, 2);
    host.RunIdle();
    EXPECT_EQ(runs, 2);
}

TEST_F(IdleSuiteEntry, WhatIsQueuedAtTheEndNeverRuns)
{
    LoadWell();
    int runs = 0;
    EXPECT_EQ(Sibling(host).QueueIdleFunction(&noteRun, &runs), 0);
    host.Quit();
    EXPECT_EQ(runs, 0);
}

TEST_F(IdleSuiteEntry, AnEmptyQueueMakesNoHostCall)
{
    LoadWell();
    host.ClearTrace();
    host.RunIdle();
    EXPECT_THAT(host.CallTexts(), IsEmpty());
}
} // namespace
} // namespace standin
