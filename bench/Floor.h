#pragma once
// The floor under a pass: plain loops that make the very same host calls in the same order, and build
// nothing. Nothing that the panel does can cost less than this.

#include "host/HostSuites.h"

namespace standin
{
class Floor
{
public:
    explicit Floor(SPBasicSuite*);

    /// A panel that is hidden or behind another.
    void HiddenPass();
    void QuietPass();
    /// The layer has changed; `selected` of its effects, from the top, are selected in the tree.
    void ChangedLayerPass(int selected);
    /// One effect has got another name in the tree.
    void RenamePass(int index, const char* name);
    /// The tree has been turned upside down.
    void ReversalPass();
    /// Every second effect, from the top, has been deleted in the tree.
    void RemovalPass();
    /// So many effects have been selected in the tree, from the top.
    void SelectionPass(int selected);

private:
    class Suites;

    void examine();
    void findLayer(Suites&);
    void read();
    void readEffect(Suites&, int index);
    int readIdentities(Suites&);
    void askEffect(Suites&, int index, int command);
    void select(int selected);
    void hide(Suites&, int index);
    void show(Suites&, int index);
    void takeStreams(Suites&);
    void takeFlags(Suites&, int index);
    void disposeStreams(Suites&);
    void rename(int index, const char* newName);
    enum class Order
    {
        asItIs,
        reversed
    };
    void reorder(Order);
    void remove();

    SPBasicSuite* basic;
    const AEGP_PanelSuite1* panels = nullptr;
    const AEGP_CommandSuite1* commands = nullptr;
    const AEGP_ItemSuite1* items = nullptr;
    AEGP_LayerH layer = nullptr;
    AEGP_EffectRefH effect = nullptr;
    AEGP_StreamRefH paramStream = nullptr;
    AEGP_StreamRefH groupStream = nullptr;
    char name[129] = {};
};
} // namespace standin
