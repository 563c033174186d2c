#pragma once
// One pass of the main loop, which polls: it hashes the layer's items and the tree's items, and a hash
// that moved since the last pass stands for a change on that side.

#include "panel/Panelator.h"

class IdlePass
{
public:
    /// Both must outlive the pass.
    IdlePass(Panelator& panelator, VnPanelRef& panelRef);

    /// The whole pass, from the requests of siblings to the selection.
    void Run();

private:
    enum class Outcome
    {
        goOn,
        passIsOver
    };

    void takeRefreshRequest();
    void runOpenRequest();
    Outcome examinePanel();
    void showNotification();
    Outcome findActiveItem();
    void findActiveLayer();
    void carryOutAddsAndDeletes();
    void compareLayer();
    void rebuildTree();
    void compareTree();
    void reportMismatch(const std::vector<ObjectItem>& layerItems,
                        const std::vector<ObjectItem>& treeItems) const;
    void lookForTreeStateChange();
    void pushSelection();

    /// Good until the next reading.
    const std::vector<ObjectItem>& readLayer();

    /// Keeps other passes out while this one lives, from Begin on.
    class Exclusion
    {
    public:
        explicit Exclusion(bool& excludes) : excludesPasses(excludes) {}
        ~Exclusion()
        {
            if (hasBegun)
                excludesPasses = false;
        }
        Exclusion(const Exclusion&) = delete;
        Exclusion& operator=(const Exclusion&) = delete;

        void Begin() { excludesPasses = hasBegun = true; }

    private:
        bool& excludesPasses;
        bool hasBegun = false;
    };

    Panelator& panel;
    VnPanelRef& requests;
    Exclusion others;         ///< Before `suites`, whose end calls the host.
    AEGP_SuiteHandler suites; ///< Serves the layer suite alone, for the length of the pass.
    bool force = false;       ///< The tree is rebuilt whatever the hashes say.
    bool layerChanged = false;
    A_long itemId = 0;
    AEGP_LayerIDVal layerId = 0; ///< 0 for no active layer.
    AEGP_ItemH item = nullptr;
    AEGP_LayerH layer = nullptr;
    std::uint64_t currentLayerHash = 0;
};
