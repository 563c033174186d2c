#include "tests/bundle_linux/BundleTest.h"

#include "standin/family/KeptSuites.h"

#include <dlfcn.h>

namespace standin
{
BundleTest::BundleTest(HostOptions options) : host(options), bundle(VORTAN_BUNDLE)
{
    InstallFamily(host);
    const int comp = host.AddComposition("Comp 1");
    layer = host.AddLayer(comp);
    host.User().SelectLayers({layer});
}

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

EntryPoint BundleTest::Entry(const char* name) const
{
    return reinterpret_cast<EntryPoint>(dlsym(dlopen(VORTAN_BUNDLE, RTLD_NOW | RTLD_NOLOAD), name));
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

std::vector<std::string> BundleTest::AlertTexts() const
{
    std::vector<std::string> texts;
    for (const Alert& alert : host.Alerts())
        texts.push_back(alert.text);
    return texts;
}

std::string BundleTest::OutputOf(const std::function<void()>& action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}

const void* WordOf(const void* table, int index) { return static_cast<const void* const*>(table)[index]; }
} // namespace standin
