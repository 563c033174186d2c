#include "tree/RetiredRows.h"

namespace
{
// Above every row and every place of the mouse.
constexpr juce::Point<int> outOfReach(0, -100000);

/// Null if no button is held over one of the components in `parent`.
juce::Component* heldChildOf(const juce::Component& parent)
{
    for (const auto& source : juce::Desktop::getInstance().getMouseSources())
        if (source.isDragging())
            if (auto* held = source.getComponentUnderMouse())
                if (held->getParentComponent() == &parent)
                    return held;
    return nullptr;
}
} // namespace

RetiredRows::RetiredRows(juce::TreeView& owner) : view(owner) {}

RetiredRows::~RetiredRows()
{
    if (!rows.empty())
        juce::Desktop::getInstance().removeGlobalMouseListener(this);
    if (heldRow != nullptr)
        heldRow->removeComponentListener(this);
}

bool RetiredRows::isAnyButtonDown()
{
    for (const auto& source : juce::Desktop::getInstance().getMouseSources())
        if (source.isDragging())
            return true;
    return false;
}

void RetiredRows::keep(std::unique_ptr<juce::TreeViewItem> root)
{
    if (root == nullptr)
        return;
    if (rows.empty())
        juce::Desktop::getInstance().addGlobalMouseListener(this);
    rows.push_back(std::move(root));
    moveHeldRowAway();
}

void RetiredRows::moveHeldRowAway()
{
    heldRow = heldChildOf(*view.getViewport()->getViewedComponent());
    if (heldRow == nullptr)
        return;
    heldRow->addComponentListener(this);
    heldRow->setTopLeftPosition(outOfReach);
}

// Each time JUCE lays out, it puts the component back to where its row stood last.
void RetiredRows::componentMovedOrResized(juce::Component& component, bool, bool)
{
    component.setTopLeftPosition(outOfReach);
}

// The release itself still has to reach the component of the row, so the rows go a little later.
void RetiredRows::mouseUp(const juce::MouseEvent&) { triggerAsyncUpdate(); }

void RetiredRows::handleAsyncUpdate()
{
    if (rows.empty() || isAnyButtonDown())
        return;
    juce::Desktop::getInstance().removeGlobalMouseListener(this);
    // Lets the view drop the component that it kept, before its row goes.
    auto& viewport = *view.getViewport();
    viewport.visibleAreaChanged(viewport.getViewArea());
    rows.clear();
}
