#pragma once
// A host on which a test installs what it needs, and the lookups over what is installed.

#include "effects/EffectCatalogue.h"
#include "standin/host/core/Host.h"
#include "tests/support/OutputOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace standin
{
/// At its end the lookups must have printed nothing and hold nothing.
class Catalogue : public ::testing::Test
{
protected:
    void TearDown() override
    {
        EXPECT_EQ(printed, "");
        host.CheckSuiteBalance();
        EXPECT_EQ(host.FindingsReport(), "");
    }

    void Install(const std::vector<std::pair<A_long, std::string>>& effects)
    {
        for (const auto& [key, matchName] : effects)
        {
            InstalledEffect effect;
            effect.key = key;
            effect.matchName = matchName;
            effect.category = "Test";
            effect.defaultName = "Default name of " + matchName;
            (void)host.Install(effect);
        }
    }

    std::vector<std::string> CallList() const { return host.CallTexts(SuiteTraffic::leftOut); }

    SPBasicSuite* Basic() { return static_cast<SPBasicSuite*>(host.BasicSuite()); }

    /// Runs a lookup inside a hook and with suites of its own.
    template <class Lookup>
    void InHook(Lookup lookup)
    {
        host.ClearTrace();
        HookResult result;
        printed += OutputOf(
            [&]
            {
                result = host.RunInHook(
                    [&]
                    {
                        const AEGP_SuiteHandler suites(Basic());
                        lookup(suites);
                    });
            });
        EXPECT_EQ(result.thrown, "");
    }

    int Find(const char* prefix)
    {
        int err = -1;
        InHook([&](const AEGP_SuiteHandler& suites) { err = FindEffectKeys(suites, keys, prefix); });
        return err;
    }

    std::vector<std::string> Popup(const std::vector<int>& ofKeys, const char** matchNames,
                                   const char** displayNames)
    {
        std::vector<std::string> names;
        InHook([&](const AEGP_SuiteHandler& suites)
               { names = GetObjectsPopupString(suites, ofKeys, matchNames, displayNames); });
        return names;
    }

    int KeyOf(const char* matchName)
    {
        int key = -1;
        InHook([&](const AEGP_SuiteHandler&) { key = GetEffectKeyFromMatchName(Basic(), matchName); });
        return key;
    }

    Host host;
    std::vector<int> keys;
    std::string printed;
};
} // namespace standin
