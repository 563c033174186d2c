#pragma once
// A scripted story on the stand-in host, told in words: what the user does, what the layer then holds, what
// the panel saw of it, and what an idle pass cost.

#include "panel/Panelator.h"
#include "tests/support/FakeTree.h"
#include "tests/support/ProductHost.h"

#include <memory>
#include <string>

namespace standin
{
class Story
{
public:
    /// A layer with an outside effect and none of the family; the panel shown and frontmost.
    Story();
    ~Story();

    /// Says what happens next, lets it happen and runs idle passes until one finds nothing to do.
    template <class Action>
    void Tell(const std::string& sentence, Action action)
    {
        Say(sentence);
        action();
        Settle();
    }

    /// Ends the panel and the host. False, with the reasons on standard error, if anything was found that a
    /// well-made plug-in would not do.
    bool End();

    ProductHost product;

    // What the user does in the panel's tree.
    ObjectItem& TreeItem(const std::string& name);
    void MoveTreeItem(const std::string& name, std::size_t place);
    void DeleteTreeItem(const std::string& name);
    void SelectTreeItems(const std::vector<std::string>& names);
    void AddFromMenu(const std::string& matchName);

private:
    void Say(const std::string& sentence);
    void Settle();
    std::size_t IdlePass();
    void PrintSides();

    Panelator* panelator = nullptr;
    int chapter = 0;
    bool atPeace = true; ///< Every chapter so far ended in a pass that found nothing to do.
};
} // namespace standin
