#include "tree/HeldPress.h"

#include <algorithm>
#include <utility>

namespace
{
constexpr int dragDistance = 5;

juce::ScaledImage pictureOf(ValueTreeItem& row, juce::Component& rows)
{
    constexpr float sharpness = 2.0f;
    const float scale = sharpness * juce::Component::getApproximateScaleFactorForComponent(&rows);
    const int width = std::max(1, row.getItemPosition(false).getWidth());
    const int height = row.getItemHeight();
    juce::Image image(juce::Image::ARGB, juce::roundToInt(static_cast<float>(width) * scale),
                      juce::roundToInt(static_cast<float>(height) * scale), true);
    {
        juce::Graphics g(image);
        g.addTransform(juce::AffineTransform::scale(scale));
        row.paintItem(g, width, height);
    }
    image.multiplyAllAlphas(0.6f);
    return {image, sharpness};
}
} // namespace

HeldPress::HeldPress(juce::TreeView& owner) : view(owner), rows(*owner.getViewport()->getViewedComponent())
{
    rows.addComponentListener(this);
}

HeldPress::~HeldPress()
{
    rows.removeComponentListener(this);
    for (auto* row : rows.getChildren())
    {
        row->removeComponentListener(this);
        row->removeMouseListener(this);
    }
}

// ---- Getting between the rows and JUCE

// JUCE begins to listen to a new row after this, and before it gives the row its place.
void HeldPress::componentChildrenChanged(juce::Component&)
{
    for (auto* row : rows.getChildren())
        row->addComponentListener(this);
}

void HeldPress::componentMovedOrResized(juce::Component& component, bool, bool)
{
    if (&component == &rows)
        return;
    component.removeMouseListener(&rows);
    component.addMouseListener(this, false);
}

void HeldPress::mouseMove(const juce::MouseEvent& event) { rows.mouseMove(event); }

void HeldPress::mouseExit(const juce::MouseEvent& event) { rows.mouseExit(event); }

// ---- The press and what becomes of it

void HeldPress::mouseDown(const juce::MouseEvent& event)
{
    press.reset();
    if (const auto* row = dynamic_cast<ValueTreeItem*>(view.getItemAt(event.getEventRelativeTo(&view).y)))
    {
        press = pressOn(*row, event);
        lastPressed = press->item;
    }
    rows.mouseDown(event);
}

HeldPress::Press HeldPress::pressOn(const ValueTreeItem& row, const juce::MouseEvent& event) const
{
    const ShownItem item(row);
    const int clicks = event.getNumberOfClicks();
    // As JUCE has it, the third click in a row does not count.
    const bool isDoubleClick = clicks >= 2 && clicks != 3 && lastPressed.has_value() && *lastPressed == item;
    const auto place =
        event.getEventRelativeTo(&rows).getPosition() - row.getItemPosition(false).getPosition();
    Press made{item, event.mods, place, Selecting::alone, {}, row.isSelected(), isDoubleClick, false};
    if (event.mods.isShiftDown() && view.getNumSelectedItems() > 0)
    {
        made.selecting = Selecting::range;
        made.range = rangeTo(row);
    }
    else if (event.mods.isCommandDown())
        made.selecting = Selecting::toggled;
    return made;
}

/// The rows that JUCE selects with Shift, which are known only as the tree stands at the press: from the row
/// to the far end of the selection.
std::vector<ShownItem> HeldPress::rangeTo(const ValueTreeItem& row) const
{
    const int first = view.getSelectedItem(0)->getRowNumberInTree();
    const int last = view.getSelectedItem(view.getNumSelectedItems() - 1)->getRowNumberInTree();
    const int pressed = row.getRowNumberInTree();
    const int farEnd = pressed < last ? first : last;
    std::vector<ShownItem> range;
    for (int i = std::min(pressed, farEnd); i <= std::max(pressed, farEnd); ++i)
        if (const auto* item = dynamic_cast<ValueTreeItem*>(view.getItemOnRow(i)))
            range.emplace_back(*item);
    return range;
}

void HeldPress::mouseDrag(const juce::MouseEvent& event)
{
    const bool isFar =
        event.source.hasMovedSignificantlySincePressed() && event.getDistanceFromDragStart() >= dragDistance;
    if (!isFar || !press.has_value() || !press->isOnItem() || press->hasDragged ||
        press->modifiers.isPopupMenu())
        return;
    if (auto* row = press->item.findRow(view))
    {
        press->hasDragged = true;
        bringSelectionBack(*press, *row);
        startDrag(*row, event);
    }
}

void HeldPress::startDrag(ValueTreeItem& row, const juce::MouseEvent& event) const
{
    const juce::var description = row.getDragSourceDescription();
    auto* container = juce::DragAndDropContainer::findParentDragContainerFor(&view);
    if (container == nullptr || description.toString().isEmpty())
        return;
    const juce::Point<int> fromPointer = -(press->place + event.getOffsetFromDragStart());
    container->startDragging(description, &view, pictureOf(row, rows), true, &fromPointer, &event.source);
}

void HeldPress::mouseUp(const juce::MouseEvent& event)
{
    const auto ended = std::exchange(press, std::nullopt);
    rows.mouseMove(event); // The mouse may have left the open/close button that it was over.
    if (!ended.has_value() || !ended->isOnItem() || event.source.hasMovedSignificantlySincePressed())
        return;
    auto* row = ended->item.findRow(view);
    if (row == nullptr)
        return;
    // JUCE has selected a row that was not selected when it was pressed.
    if (!ended->wasSelected)
        bringSelectionBack(*ended, *row);
    else if (!ended->modifiers.isPopupMenu())
        select(*ended, *row);
    if (ended->isDoubleClick)
        row->itemDoubleClicked(event.withNewPosition(ended->place));
}

void HeldPress::select(const Press& made, ValueTreeItem& row) const
{
    switch (made.selecting)
    {
    case Selecting::alone:
        return row.setSelected(true, true);
    case Selecting::toggled:
        return row.setSelected(!made.wasSelected, false);
    case Selecting::range:
        for (const auto& item : made.range)
            if (auto* other = item.findRow(view))
                other->setSelected(true, false);
        return;
    }
}

/// While the button is down, the row is selected. A tree that was built anew may have lost that.
void HeldPress::bringSelectionBack(const Press& made, ValueTreeItem& row) const
{
    if (row.isSelected() || made.item.isInDocumentOf(view))
        return;
    if (made.wasSelected)
        row.setSelected(true, false);
    else
        select(made, row);
}

bool HeldPress::canDrop() const { return !press.has_value() || press->item.findRow(view) != nullptr; }

void HeldPress::prepareDrop()
{
    if (press.has_value())
        if (auto* row = press->item.findRow(view))
            bringSelectionBack(*press, *row);
}
