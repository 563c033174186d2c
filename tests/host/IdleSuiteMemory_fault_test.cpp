// The first entry point in a process that has no memory for its queue. The program's calloc is the linker's
// to lead here.

#include "host/IdleSuite.h"
#include "standin/host/core/Host.h"

#include <cstdlib>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
std::size_t refusedSize = 0; ///< A zeroed block of this size is refused. 0 for none.
int refusals = 0;
} // namespace

extern "C" void* __real_calloc(std::size_t count, std::size_t size);
extern "C" void* __wrap_calloc(std::size_t count, std::size_t size);

extern "C" void* __wrap_calloc(std::size_t count, std::size_t size)
{
    if (refusedSize != 0 && count * size == refusedSize)
    {
        ++refusals;
        return nullptr;
    }
    return __real_calloc(count, size);
}

namespace standin
{
namespace
{
using ::testing::IsEmpty;

TEST(IdleSuiteWithoutMemory, ForTheQueueRegistersWithoutOne)
{
    Host host;
    refusals = 0;
    refusedSize = sizeof(VnIdleRef);
    const LoadedPlugin loaded = host.Load(&EffectorAEGP);
    refusedSize = 0;
    EXPECT_EQ(refusals, 1);
    EXPECT_EQ(loaded.result.error, A_Err_NONE);
    EXPECT_THAT(host.Alerts(), IsEmpty());
    EXPECT_THAT(host.CallTexts(), ::testing::Contains("Register 6 AEGP_RegisterIdleHook(id 8, hook, null)"));
    const void* table = nullptr;
    host.RunInHook(
        [&]
        {
            auto* basic = static_cast<SPBasicSuite*>(host.BasicSuite());
            EXPECT_EQ(basic->AcquireSuite("Vortan Idle Suite v1", 1, &table), 0);
            EXPECT_EQ(basic->ReleaseSuite("Vortan Idle Suite v1", 1), 0);
        });
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(static_cast<const VnIdleSuite*>(table)->ref, nullptr);
    EXPECT_EQ(static_cast<const VnIdleSuite*>(table)->AddFuncToIdleStack, &AddFuncToIdleStack);
    host.CheckSuiteBalance();
    EXPECT_EQ(host.FindingsReport(), "");
}
} // namespace
} // namespace standin
