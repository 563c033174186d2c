#pragma once
// The whole panel in a fast host, and what a user does in it by way of the document.

#include "bench/FastHost.h"
#include "panel/Panelator.h"
#include "standin/process/Silence.h"
#include "tree/ValueTreesDemo.h"

#include <string>

namespace standin
{
class FastPanel
{
public:
    /// Loads the panel and opens it frontmost. `container` is an X11 window, or null for none.
    explicit FastPanel(void* container = nullptr);
    ~FastPanel();
    FastPanel(const FastPanel&) = delete;
    FastPanel& operator=(const FastPanel&) = delete;

    void Idle() { host.Idle(); }
    /// Idles often enough for everything to come to rest.
    void Settle();
    /// Another layer of so many effects, to which the panel has settled. The states of all others are
    /// forgotten.
    void ShowLayer(int effects);

    // ---- What a user does in the tree

    void RenameInTree(int object, const std::string& name);
    void ReverseInTree();
    /// Every second object, as the Delete key deletes it.
    void DeleteHalfInTree();
    void SelectInTree(int objects);

    process::Silence silence;
    FastHost host;
    Panelator* plugin = nullptr;
    ValueTreesDemo& Tree() { return *plugin->tree; }

private:
    juce::ValueTree document();

    void* panelRefcon = nullptr;
    int layers = 0;
};
} // namespace standin
