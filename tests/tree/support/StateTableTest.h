#pragma once
// A state table beside a panel.

#include "tests/tree/support/Pump.h"
#include "tests/tree/support/TreeTest.h"

#include <string>
#include <vector>

namespace standin
{
class StateTable : public TreeTest
{
protected:
    StateTable() : table(CreateTreeStateTable()) { panel->setBounds(0, 0, 300, 260); }
    ~StateTable() override { DeleteTreeStateTable(table); }

    void cache(int layerId) { CacheLayerTreeState(table, layerId, panel); }
    void apply(int layerId) { ApplyLayerTreeState(table, layerId, panel); }
    bool didChange(int layerId) { return DidLayerStateChange(table, layerId, panel); }

    /// As the idle pass does it when the layer side has changed.
    void show(int layerId, const std::vector<ObjectItem>& items)
    {
        RefreshTree(panel, items);
        apply(layerId);
        cache(layerId);
    }

    void scrollTo(int y)
    {
        pump();
        view().getViewport()->setViewPosition(0, y);
    }
    int scrolledTo() { return view().getViewport()->getViewPositionY(); }

    static std::vector<ObjectItem> manyItems(const std::string& prefix, int count)
    {
        std::vector<ObjectItem> items;
        for (int i = 1; i <= count; ++i)
            items.push_back(object(i, prefix + std::to_string(i), i <= 4 ? 1 : i <= 6 ? 2 : 0));
        return items;
    }

    _TreeStateTable_Internal* table;
};
} // namespace standin
