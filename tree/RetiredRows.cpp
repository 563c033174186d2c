#include "tree/RetiredRows.h"

RetiredRows::RetiredRows(juce::TreeView& owner) : view(owner) {}

RetiredRows::~RetiredRows()
{
    if (!rows.empty())
        juce::Desktop::getInstance().removeGlobalMouseListener(this);
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
