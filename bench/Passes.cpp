#include "bench/Benchmarks.h"
#include "bench/Floor.h"
#include "bench/Measure.h"
#include "panel/platform/PlatformEvents.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace standin
{

namespace
{
/// Sets the scene once before the first of many runs.
Steps inScene(FastPanel& panel, FastHost::Panel shown, FastHost::Speed speed, int effects, int times,
              std::function<void()> run)
{
    const auto isSet = std::make_shared<bool>(false);
    return {std::move(run),
            [=, &panel]
            {
                panel.host.Set(speed);
                panel.host.Set(shown);
                if (std::exchange(*isSet, true))
                    return;
                panel.host.Set(FastHost::Panel::frontmost);
                panel.ShowLayer(effects);
                panel.host.Set(shown);
                panel.Settle();
            },
            times};
}

struct Scene
{
    const char* name;
    FastHost::Panel shown;
    void (Floor::*floor)();
};

constexpr Scene scenes[] = {{"hidden", FastHost::Panel::hidden, &Floor::HiddenPass},
                            {"background", FastHost::Panel::background, &Floor::HiddenPass},
                            {"quiet", FastHost::Panel::frontmost, &Floor::QuietPass}};

void registerPass(FastPanel& panel, const std::string& group, const Scene& scene, FastHost::Speed speed,
                  int effects)
{
    const auto floor = std::make_shared<Floor>(panel.host.Basic());
    const bool isSlow = speed == FastHost::Speed::aMicrosecond;
    const int times = isSlow ? 1 : std::max(1, 2000 / (effects + 1));
    const auto step = [&](std::function<void()> once)
    {
        return inScene(panel, scene.shown, speed, effects, times,
                       [times, once = std::move(once)]
                       {
                           for (int i = 0; i < times; ++i)
                               once();
                       });
    };
    Measurement pass = {group, scene.name, effects, {}, {}};
    pass.subject = step([&panel] { panel.plugin->IdleHook(panel.plugin->publishedSuite.panelRef); });
    pass.floor = step([floor, run = scene.floor] { ((*floor).*run)(); });
    if (isSlow)
        pass.samples = 21;
    Register(panel.host, pass);
}

/// What the idle hook does ahead of the pass.
void registerDelivery(FastPanel& panel, const Scene& scene, int effects)
{
    constexpr int times = 200;
    Measurement delivery = {"Delivery of events", scene.name, effects, {}, {}, Calls::none};
    delivery.subject = inScene(panel, scene.shown, FastHost::Speed::atOnce, effects, times,
                               [&panel]
                               {
                                   for (int i = 0; i < times; ++i)
                                   {
                                       const PlatformErrorScope errors;
                                       DispatchPlatformEvents(&panel.Tree());
                                   }
                               });
    Register(panel.host, delivery);
}
} // namespace

void RegisterPasses(FastPanel& panel)
{
    for (const Scene& scene : scenes)
        for (const int effects : {0, 1, 10, 100, 1000})
            registerPass(panel, "Pass", scene, FastHost::Speed::atOnce, effects);
    for (const int effects : {10, 100, 1000})
        registerPass(panel, "Pass, a microsecond a call", scenes[2], FastHost::Speed::aMicrosecond, effects);
    for (const Scene& scene : scenes)
        registerDelivery(panel, scene, 100);
}
} // namespace standin
