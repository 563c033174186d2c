#include "panel/platform/PanelatorUI.h"

#include "tests/panel/PanelFakes.h"

#include <gtest/gtest.h>

#include <csignal>
#include <type_traits>

namespace standin
{
namespace
{
using Calls = std::vector<std::string>;

static_assert(!std::is_polymorphic_v<PanelatorUI>,
              "the host holds the object, nobody derives behaviour from it");

static_assert(std::is_nothrow_destructible_v<PanelatorUI>, "no exception leaves the destructor");

class PanelatorUIBase : public testing::Test
{
protected:
    int MakeAndCatch()
    {
        try
        {
            const PanelatorUI panel(&fakes.basicSuite, nullptr, nullptr, nullptr);
        }
        catch (int thrown)
        {
            return thrown;
        }
        return 0;
    }

    PanelFakes fakes;
};

TEST_F(PanelatorUIBase, HoldsTheAppAndThePanelSuite)
{
    {
        const PanelatorUI panel(&fakes.basicSuite, nullptr, nullptr, nullptr);
        EXPECT_EQ(fakes.TakeCalls(),
                  (Calls{"AcquireSuite PF AE App Suite 6", "AcquireSuite AEGP Workspace Panel Suite 1"}));
    }
    EXPECT_EQ(fakes.TakeCalls(),
              (Calls{"ReleaseSuite AEGP Workspace Panel Suite 1", "ReleaseSuite PF AE App Suite 6"}));
}

TEST_F(PanelatorUIBase, LeavesTheHostsFunctionTableAsItIs)
{
    AEGP_PanelFunctions1 functions = {&fakes, &functions, this};

    const PanelatorUI panel(&fakes.basicSuite, nullptr, nullptr, &functions);

    EXPECT_EQ(functions.GetSnapSizes, &fakes);
    EXPECT_EQ(functions.PopulateFlyout, &functions);
    EXPECT_EQ(functions.DoFlyoutCommand, this);
}

TEST_F(PanelatorUIBase, WithoutTheAppSuiteThrows13)
{
    fakes.missingSuites = {"PF AE App Suite"};

    EXPECT_EQ(MakeAndCatch(), 13);
    EXPECT_EQ(fakes.TakeCalls(), Calls{"AcquireSuite PF AE App Suite 6"});
}

TEST_F(PanelatorUIBase, WithoutThePanelSuiteThrows13AndReleases)
{
    fakes.missingSuites = {"AEGP Workspace Panel Suite"};

    EXPECT_EQ(MakeAndCatch(), 13);
    EXPECT_EQ(fakes.TakeCalls(),
              (Calls{"AcquireSuite PF AE App Suite 6", "AcquireSuite AEGP Workspace Panel Suite 1",
                     "ReleaseSuite PF AE App Suite 6"}));
}

using PanelatorUIBaseDeathTest = PanelatorUIBase;

TEST_F(PanelatorUIBaseDeathTest, TerminatesWhenAReleaseThrowsInItsDestructor)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    // One suite alone: two exceptions would terminate in any case.
    fakes.basicSuite.ReleaseSuite = [](const char* name, std::int32_t) -> SPErr
    {
        if (std::string(name) == "AEGP Workspace Panel Suite")
            throw 13;
        return 0;
    };
    EXPECT_EXIT((void)MakeAndCatch(), testing::KilledBySignal(SIGABRT), "");
}
} // namespace
} // namespace standin
