#include "standin/check/Scene.h"

#include "standin/host/family/Family.h"
#include "standin/host/family/KeptSuites.h"

namespace standin::check
{
Scene::Scene(const std::string& bundleFile, HostOptions options) : host(options), bundle(bundleFile)
{
    InstallFamily(host);
    layer = host.AddLayer(host.AddComposition("Comp 1"));
    host.User().SelectLayers({layer});
}

Scene::~Scene() { Quit(); }

std::vector<std::string> Scene::TakeCalls(SuiteTraffic traffic)
{
    auto calls = host.CallTexts(traffic);
    host.ClearTrace();
    return calls;
}

const void* Scene::Published(const char* name)
{
    struct BasicWords
    {
        A_Err (*acquire)(const char* name, A_long version, const void** table);
        A_Err (*release)(const char* name, A_long version);
    };
    const auto& basic = *static_cast<const BasicWords*>(host.BasicSuite());
    const void* table = nullptr;
    (void)host.RunInHook(
        [&]
        {
            if (basic.acquire(name, 1, &table) == errNone)
                (void)basic.release(name, 1);
        });
    return table;
}

void Scene::Quit()
{
    ExpectKeptSuites(host);
    host.Quit();
    Bundle::KeepMemoryOf(host);
}

const void* WordOf(const void* table, int index) { return static_cast<const void* const*>(table)[index]; }
} // namespace standin::check
