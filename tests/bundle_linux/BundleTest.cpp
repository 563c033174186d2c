#include "tests/bundle_linux/BundleTest.h"

#include "standin/host/family/Family.h"
#include "standin/host/family/KeptSuites.h"

namespace standin
{
BundleTest::BundleTest(HostOptions options) : host(options), bundle(VORTAN_BUNDLE)
{
    InstallFamily(host);
    const int comp = host.AddComposition("Comp 1");
    layer = host.AddLayer(comp);
    host.User().SelectLayers({layer});
}

/// The controller holds suites until the host ends, so a host that ends finds them held.
BundleTest::~BundleTest()
{
    ExpectKeptSuites(host);
    host.Quit();
    EXPECT_EQ(host.FindingsReport(), "");
    if (keptBlocks != nullptr)
        keptBlocks->Free();
}

LoadedPlugin BundleTest::LoadPanel()
{
    const LoadedPlugin plugin = bundle.LoadPanel(host);
    if (plugin.globalRefcon != nullptr)
        keptBlocks = std::make_unique<KeptBlocks>(host, plugin);
    return plugin;
}

const void* BundleTest::Published(const char* name)
{
    const void* table = nullptr;
    (void)host.RunInHook(
        [&]
        {
            if (Basic().acquire(name, 1, &table) == errNone)
                (void)Basic().release(name, 1);
        });
    return table;
}

std::vector<std::string> BundleTest::TakeCalls(SuiteTraffic traffic)
{
    auto calls = host.CallTexts(traffic);
    host.ClearTrace();
    return calls;
}
} // namespace standin
