#pragma once
// The built bundle as a host and a sibling effect know it: two entry points, two published tables of words,
// and nothing else. Its own headers are not used here.

#include "standin/host/bundle/Bundle.h"
#include "standin/host/core/Host.h"
#include "tests/support/KeptBlocks.h"
#include "tests/support/OutputOf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin
{
/// The basic suite.
struct BasicSlots
{
    A_Err (*acquire)(const char* name, A_long version, const void** table);
    A_Err (*release)(const char* name, A_long version);
    void (*others[5])();
};

/// "Vortan Idle Suite v1", 16 bytes.
struct IdleWords
{
    void* ref;
    int (*addFuncToIdleStack)(void* ref, int (*func)(int, void*, void*), void* refcon);
};

/// "Vortan Panel Suite v1", 32 bytes.
struct PanelWords
{
    void* panelRef;
    int (*openPanel)(void* panelRef, unsigned char force);
    int (*refreshPanel)(void* panelRef);
    int (*panelNotify)(void* panelRef, const char* text);
};

class BundleTest : public testing::Test
{
protected:
    static constexpr const char* idleSuiteName = "Vortan Idle Suite v1";
    static constexpr const char* panelSuiteName = "Vortan Panel Suite v1";

    explicit BundleTest(HostOptions options = {});
    ~BundleTest() override;

    LoadedPlugin LoadIdleSuite() { return bundle.LoadIdleSuite(host); }
    LoadedPlugin LoadPanel();

    const BasicSlots& Basic() { return *static_cast<const BasicSlots*>(host.BasicSuite()); }
    /// A published table, as a sibling gets it; null if it is not published.
    const void* Published(const char* name);
    const IdleWords& Idle() { return *static_cast<const IdleWords*>(Published(idleSuiteName)); }
    const PanelWords& PanelTable() { return *static_cast<const PanelWords*>(Published(panelSuiteName)); }

    /// The calls since the last time; without suite traffic if asked for.
    std::vector<std::string> TakeCalls(SuiteTraffic traffic = SuiteTraffic::included);

    Host host;
    Bundle bundle;
    int layer = 0;

private:
    std::unique_ptr<KeptBlocks> keptBlocks;
};
} // namespace standin
