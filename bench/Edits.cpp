#include "bench/Benchmarks.h"
#include "bench/Floor.h"
#include "bench/Measure.h"

#include <memory>

namespace standin
{
namespace
{
constexpr const char* group = "Pass after a change";

/// A change is made, and the pass after it is measured. Everything is at rest before each change.
class Edit
{
public:
    Edit(FastPanel& thePanel, int numberOfEffects)
        : panel(thePanel), floor(std::make_shared<Floor>(thePanel.host.Basic())), effects(numberOfEffects)
    {
    }

    /// The layer stays the same from one change to the next.
    Edit& OnOneLayer()
    {
        keepsLayer = true;
        return *this;
    }

    void Register(const std::string& name, const std::function<void()>& change,
                  const std::function<void(Floor&)>& floorPass) const
    {
        Measurement edit = {group, name, effects, {}, {}};
        edit.subject = {[this_ = *this] { this_.pass(); },
                        [this_ = *this, change]
                        {
                            this_.setScene();
                            change();
                        }};
        edit.floor = {[f = floor, floorPass] { floorPass(*f); }, [this_ = *this] { this_.setFloorScene(); }};
        edit.samples = effects >= 1000 ? 51 : 101;
        standin::Register(panel.host, edit);
    }

private:
    void pass() const { panel.plugin->IdleHook(panel.plugin->publishedSuite.panelRef); }

    void setScene() const
    {
        panel.host.Set(FastHost::Speed::atOnce);
        panel.host.Set(FastHost::Panel::frontmost);
        if (!keepsLayer || panel.host.CountEffects() != effects)
            panel.ShowLayer(effects);
        panel.Settle();
    }

    void setFloorScene() const
    {
        if (!keepsLayer)
            panel.host.ShowLayer(1, effects);
    }

    FastPanel& panel;
    std::shared_ptr<Floor> floor;
    int effects;
    bool keepsLayer = false;
};

/// A name that was not there before.
std::string nextName()
{
    static int names = 0;
    return "Renamed by the user " + std::to_string(++names);
}
} // namespace

void RegisterEdits(FastPanel& panel)
{
    for (const int effects : {10, 100, 1000})
    {
        Edit(panel, effects)
            .OnOneLayer()
            .Register(
                "effect renamed in the host", [&panel] { panel.host.Rename(0, nextName()); },
                [](Floor& floor) { floor.ChangedLayerPass(0); });
        Edit(panel, effects)
            .OnOneLayer()
            .Register(
                "object renamed in the tree", [&panel] { panel.RenameInTree(0, nextName()); },
                [](Floor& floor) { floor.RenamePass(0, "Renamed by the floor"); });
        Edit(panel, effects)
            .Register(
                "another layer", [&panel, effects] { panel.host.ShowLayer(-1, effects); },
                [](Floor& floor) { floor.ChangedLayerPass(0); });
    }
    Edit(panel, 100)
        .Register(
            "objects reversed in the tree", [&panel] { panel.ReverseInTree(); },
            [](Floor& floor) { floor.ReversalPass(); });
    Edit(panel, 100)
        .Register(
            "half of the objects deleted in the tree", [&panel] { panel.DeleteHalfInTree(); },
            [](Floor& floor) { floor.RemovalPass(); });
    for (const int effects : {100, 1000})
        Edit(panel, effects)
            .Register(
                "all objects selected in the tree", [&panel, effects] { panel.SelectInTree(effects); },
                [effects](Floor& floor) { floor.SelectionPass(effects); });
}
} // namespace standin
