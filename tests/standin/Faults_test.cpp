// Calls that are made to fail, suites that are withheld, and the sweep over all calls.

#include "standin/host/faults/Sweep.h"
#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Faults : public LayerTest
{
protected:
    Faults()
    {
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        handle = host.LayerHandle(layer);
    }

    /// The errors of five calls: count, count, flags of the layer's first effect by suite 1, count by
    /// suite 3, count by suite 1.
    std::vector<A_Err> errors()
    {
        std::vector<A_Err> all;
        inHook(
            [&](Client& client)
            {
                const auto count = [&](A_long version)
                {
                    A_long value = -7;
                    const A_Err error = client.Call(effectSuite, version, 0, handle, &value);
                    EXPECT_EQ(value, error == errNone ? 1 : -7);
                    return error;
                };
                all = {count(1), count(1)};
                void* effect = host.EffectReference("A");
                (void)client.Flags(effect);
                all.push_back(client.error);
                all.push_back(count(3));
                all.push_back(count(1));
                host.Faults().Disarm();
                (void)client.DisposeEffect(effect);
            });
        return all;
    }

    void* handle = nullptr;
};

TEST_F(Faults, TheNthCallFailsOnce)
{
    host.Faults().FailCall(3); // After the acquire and the first count.
    EXPECT_THAT(errors(), ElementsAre(0, 1, 0, 0, 0));
}

TEST_F(Faults, AnNthCallAndItsFunctionFailForever)
{
    host.Faults().FailCall(3, FaultLength::functionForGood, 515);
    EXPECT_THAT(errors(), ElementsAre(0, 515, 0, 0, 515));
}

TEST_F(Faults, TheNthCallAndEverythingBehindItFail)
{
    host.Faults().FailCall(3, FaultLength::everythingForGood);
    inHook(
        [&](Client& client)
        {
            EXPECT_EQ(client.NumEffects(handle), 1);
            EXPECT_EQ(client.NumEffects(handle), -1);
            const void* table = nullptr;
            EXPECT_EQ(client.Acquire(layerSuite, 5, &table), errGeneric);
            EXPECT_EQ(client.NumEffects(handle), -1);
        });
    EXPECT_EQ(host.Faults().Struck()->function, "AEGP_GetLayerNumEffects");
    EXPECT_EQ(host.Faults().CallsCounted(), 6u);
}

TEST_F(Faults, ANamedFunctionFailsInEverySuite)
{
    host.Faults().FailFunction("AEGP_GetLayerNumEffects", 3);
    EXPECT_THAT(errors(), ElementsAre(0, 0, 0, 1, 0));
}

TEST_F(Faults, ANamedFunctionOfOneSuiteFailsThere)
{
    host.Faults().FailFunction(effectSuite, 1, "AEGP_GetLayerNumEffects", 3);
    EXPECT_THAT(errors(), ElementsAre(0, 0, 0, 0, 1));
    host.Faults().FailFunction(effectSuite, 0, "AEGP_GetLayerNumEffects", 2, FaultLength::functionForGood);
    EXPECT_THAT(errors(), ElementsAre(0, 1, 0, 0, 1));
}

TEST_F(Faults, AFailedCallDoesNothing)
{
    host.Faults().FailFunction("AEGP_DeleteLayerEffect");
    inHook(
        [&](Client& client)
        {
            void* effect = client.EffectAt(handle, 0);
            EXPECT_EQ(client.Delete(effect), errGeneric);
            EXPECT_EQ(client.Flags(effect), 1); // Not even stale.
            (void)client.DisposeEffect(effect);
        });
    EXPECT_EQ(host.StackText(layer), "A");
    EXPECT_THAT(host.UndoNames(), IsEmpty());
}

TEST_F(Faults, AnAcquireCanFail)
{
    host.Faults().FailFunction("AcquireSuite");
    const void* table = this;
    host.RunInHook([&] { EXPECT_EQ(Client(host).Acquire(effectSuite, 1, &table), errGeneric); });
    EXPECT_EQ(table, this);
    EXPECT_EQ(host.SuiteCount(effectSuite, 1), 0);
}

/// What a failed count leaves in its out-value.
class FaultOuts : public LayerTest
{
protected:
    struct Count
    {
        A_Err error;
        A_long value;
    };

    Count countWith(FailedCall how)
    {
        Count count{errNone, -7};
        host.Faults().FailFunction(effectSuite, 1, "AEGP_GetLayerNumEffects", 1, FaultLength::once, how);
        host.RunInHook(
            [&]
            { count.error = Client(host).Call(effectSuite, 1, 0, host.LayerHandle(layer), &count.value); });
        return count;
    }
};

TEST_F(FaultOuts, StayUntouchedUnlessTheFaultSaysOtherwise)
{
    EXPECT_EQ(countWith({errAlloc, OutValues::untouched}).value, -7);
    EXPECT_EQ(countWith({errAlloc, OutValues::null}).value, 0);
    EXPECT_EQ(countWith({errAlloc, OutValues::garbage}).value, 77);
}

TEST_F(FaultOuts, CanComeWithoutAnError)
{
    host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
    const Count count = countWith({errNone, OutValues::null});
    EXPECT_EQ(count.error, errNone);
    EXPECT_EQ(count.value, 0) << "the call does nothing, although it says that all went well";
    const CallRecord& call = host.Trace().Records()[1];
    EXPECT_TRUE(call.struck);
    EXPECT_TRUE(call.hasOutValues);
}

TEST_F(FaultOuts, GarbageIsAForeignHandleOrPoisonedTable)
{
    host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
    host.Expect("foreign-reference", "AEGP_GetEffectFlags", "the test uses what it got");
    host.Expect("poisoned-table", "", "the same");
    inHook(
        [&](Client& client)
        {
            void* effect = nullptr;
            host.Faults().FailFunction(effectSuite, 1, "AEGP_GetLayerEffectByIndex", 1, FaultLength::once,
                                       {errGeneric, OutValues::garbage});
            EXPECT_EQ(client.Call(effectSuite, 1, 1, host.PluginId(), host.LayerHandle(layer), A_long{0},
                                  static_cast<void*>(&effect)),
                      errGeneric);
            EXPECT_NE(effect, nullptr);
            (void)client.Flags(effect);
            const void* table = nullptr;
            host.Faults().FailFunction("", 0, "AcquireSuite", 1, FaultLength::once,
                                       {errGeneric, OutValues::garbage});
            (void)client.Acquire(layerSuite, 5, &table);
            reinterpret_cast<A_Err (*)()> (*static_cast<const std::uintptr_t*>(table))();
        });
}

TEST_F(Faults, AWithheldSuiteIsNotFound)
{
    host.Faults().Withhold(effectSuite, 1);
    const void* table = this;
    inHook(
        [&](Client& client)
        {
            EXPECT_EQ(client.Acquire(effectSuite, 1, &table), 0x53214664);
            EXPECT_EQ(table, nullptr);
            EXPECT_EQ(client.Acquire(effectSuite, 3, &table), errNone);
            EXPECT_EQ(client.Release(effectSuite, 3), errNone);
            host.Faults().GiveBack(effectSuite);
            EXPECT_EQ(client.Acquire(effectSuite, 1, &table), errNone);
            EXPECT_EQ(client.Release(effectSuite, 1), errNone);
        });
}

TEST_F(Faults, AWithheldSuiteCanBeANullTable)
{
    host.Faults().Withhold(effectSuite, 0, Withheld::asNullTable);
    const void* table = this;
    host.RunInHook([&] { EXPECT_EQ(Client(host).Acquire(effectSuite, 3, &table), errNone); });
    EXPECT_EQ(table, nullptr);
    EXPECT_EQ(host.SuiteCount(effectSuite, 3), 0);
}

TEST_F(Faults, AWithheldSuiteCanLeaveAPoisonedPointer)
{
    host.Faults().Withhold(effectSuite, 0, Withheld::asPoisonedPointer);
    const void* table = nullptr;
    host.RunInHook(
        [&]
        {
            EXPECT_EQ(Client(host).Acquire(effectSuite, 3, &table), 0x53214664);
            ASSERT_NE(table, nullptr);
            using AnyFunction = A_Err (*)();
            EXPECT_NE(static_cast<const AnyFunction*>(table)[16](), errNone);
        });
    const std::vector<Finding> findings = host.TakeFindings();
    ASSERT_EQ(findings.size(), 1u);
    EXPECT_EQ(findings[0].id, "poisoned-table");
}

/// A scenario for the sweep: a layer with one effect.
struct Scenario
{
    Scenario()
    {
        InstallFamily(host);
        layer = host.AddLayer(host.AddComposition("Comp"));
        host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
        handle = host.LayerHandle(layer);
    }
    Host host;
    int layer = 0;
    void* handle = nullptr;
    A_Err error = errNone;
};

/// Reads the first effect's flags; disposes of the reference or, with a mistake, forgets to when
/// reading fails.
enum class Mistake
{
    none,
    leaksOnError
};

void readFlags(Scenario& scenario, Mistake mistake)
{
    InHook(scenario.host,
           [&](Client& client)
           {
               void* effect = client.EffectAt(scenario.handle, 0);
               scenario.error = client.error;
               if (effect == nullptr)
                   return;
               (void)client.Flags(effect);
               scenario.error = client.error;
               if (scenario.error == errNone || mistake == Mistake::none)
                   (void)client.DisposeEffect(effect);
           });
}

TEST(Sweep, VisitsCallsAndLengthsOnFreshHosts)
{
    std::vector<std::string> visited;
    const std::size_t calls = SweepFaults([] { return std::make_unique<Scenario>(); },
                                          [](Scenario& scenario) { readFlags(scenario, Mistake::none); },
                                          [&](Scenario& scenario, const SweptFault& fault)
                                          {
                                              visited.push_back(fault.Text());
                                              EXPECT_EQ(scenario.host.LiveReferences(), 0) << fault.Text();
                                          },
                                          {FaultLength::once});
    EXPECT_EQ(calls, 5u);
    EXPECT_THAT(
        visited,
        ElementsAre(
            "no fault", "call 1 fails once with 1: Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
            "call 2 fails once with 1: Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect A",
            "call 3 fails once with 1: Effect 1 AEGP_GetEffectFlags(effect A) -> 1",
            "call 4 fails once with 1: Effect 1 AEGP_DisposeEffect(effect A)",
            "call 5 fails once with 1: Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
}

std::string faultyCalls(Mistake mistake)
{
    std::string leaking;
    (void)SweepFaults([] { return std::make_unique<Scenario>(); },
                      [=](Scenario& scenario) { readFlags(scenario, mistake); },
                      [&](Scenario& scenario, const SweptFault& fault)
                      {
                          for (const Finding& finding : scenario.host.TakeFindings())
                              if (finding.id == "leaked-reference")
                                  leaking += std::to_string(fault.ordinal) + " ";
                      });
    return leaking;
}

TEST(Sweep, FindsALeakThatOnlyAFailureShows)
{
    EXPECT_EQ(faultyCalls(Mistake::none), "");
    EXPECT_EQ(faultyCalls(Mistake::leaksOnError), "3 3 3 ");
}

TEST(Sweep, OverNothingCountsNothing)
{
    EXPECT_EQ(SweepFaults([] { return std::make_unique<Scenario>(); }, [](Scenario&) {},
                          [](Scenario&, const SweptFault&) {}),
              0u);
}
} // namespace
} // namespace standin
