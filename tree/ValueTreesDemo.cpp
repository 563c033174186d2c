#include "tree/ValueTreesDemo.h"

#include "tree/TreeModel.h"

#include <algorithm>
#include <memory>

namespace
{
constexpr int notifyTimeMs = 10000;
constexpr int toolbarRoom = 80;

/// A row that its panel has left. JUCE deletes it when it shuts down.
class LeftBehind : private juce::DeletedAtShutdown
{
public:
    explicit LeftBehind(juce::TreeViewItem* left) : root(left) {}

private:
    std::unique_ptr<juce::TreeViewItem> root;
};
} // namespace

ValueTreesDemo::ValueTreesDemo(bool hideToolbar)
    : toolbarHidden(hideToolbar), notifyLabel(notifyTimeMs), panelKeys(*this, treeView), dragFocus(treeView)
{
    setSize(400, 200);
    bgColour = juce::Colours::blue;
    setUpButtons();
    addAndMakeVisible(treeView);
    treeView.setDefaultOpenness(false);
    treeView.setMultiSelectEnabled(true);
    toFront(true);
    treeView.setVisible(true);
    for (auto* button : buttons())
        button->setVisible(false);
    addChildComponent(notifyLabel);
    treeView.getViewport()->setScrollBarThickness(8);
    treeView.setColour(juce::TreeView::linesColourId, juce::Colours::white);
    // The buttons have fitted themselves to their texts since the first layout, and a container of this
    // very size brings no second one.
    ValueTreesDemo::resized();
}

void ValueTreesDemo::setUpButtons()
{
    const char* const texts[] = {"Add Geometry", "Add Effector", "Add Renderer", "Add Group", "Add Vortan"};
    const auto all = buttons();
    for (auto* button : all)
        if (button != &vortanButton) // Kept: "Add Vortan" goes without.
            button->setLookAndFeel(&buttonLookAndFeel);
    for (std::size_t i = 0; i < all.size(); ++i)
    {
        all[i]->setButtonText(texts[i]);
        // The group id is the button's identity; no radio behaviour is used.
        all[i]->setRadioGroupId(static_cast<int>(i) + 1, juce::sendNotification);
        all[i]->changeWidthToFitText();
        if (!toolbarHidden)
            addAndMakeVisible(*all[i]);
        all[i]->onClick = [this](juce::Button* clicked) { buttonClicked(clicked); };
    }
}

ValueTreesDemo::~ValueTreesDemo()
{
    if (auto* root = treeView.getRootItem())
    {
        treeView.setRootItem(nullptr);
        new LeftBehind(root); // NOLINT: nothing else can be done about a row without memory.
    }
    if (openMenus > 0)
        juce::PopupMenu::dismissAllActiveMenus();
    // The picture of a row that was dragged fades in a window of its own, which must not outlive JUCE.
    juce::Desktop::getInstance().getAnimator().cancelAllAnimations(false);
    // The look and feel goes before the buttons do.
    for (auto* button : buttons())
        button->setLookAndFeel(nullptr);
}

std::vector<SimpleButton*> ValueTreesDemo::buttons()
{
    return {&geometryButton, &effectorButton, &rendererButton, &groupButton, &vortanButton};
}

void ValueTreesDemo::showToolbar(Toolbar toolbar)
{
    const bool isEmpty = toolbar == Toolbar::forEmptyLayer;
    for (auto* button : buttons())
        button->setVisible((button == &vortanButton) == isEmpty);
}

void ValueTreesDemo::setBGColor(const juce::Colour& colour)
{
    bgColour = colour;
    auto* viewport = treeView.getViewport();
    viewport->getVerticalScrollBar().setColour(juce::ScrollBar::trackColourId, colour);
    viewport->getHorizontalScrollBar().setColour(juce::ScrollBar::trackColourId, colour);
    treeView.setColour(juce::TreeView::backgroundColourId, colour);
}

void ValueTreesDemo::paint(juce::Graphics& g)
{
    g.setColour(bgColour);
    g.fillAll();
}

void ValueTreesDemo::mouseDown(const juce::MouseEvent& event)
{
    treeView.clearSelectedItems();
    juce::Component::mouseDown(event);
}

bool ValueTreesDemo::keyPressed(const juce::KeyPress& key) { return panelKeys.offer(key); }

void ValueTreesDemo::resized()
{
    const auto bounds = getLocalBounds();
    const int x = bounds.getX();
    const int y = bounds.getY();
    int top = y + 8;
    int height = std::max(bounds.getHeight() - 16, 0);
    if (!toolbarHidden)
    {
        const int room = std::min(height, toolbarRoom);
        top += room;
        height -= room;
    }
    height -= std::min(height, 4);
    treeView.setBounds(x + 8, top, std::max(bounds.getWidth() - 16, 0), height);

    const auto place = [x, y](SimpleButton& button, int down)
    { button.setBounds(x + 13, y + down, 100, 15); };
    // These two share a place, since only one of them ever shows.
    place(vortanButton, 8);
    place(geometryButton, 8);
    place(effectorButton, 24);
    place(rendererButton, 40);
    place(groupButton, 56);
    notifyLabel.setCentrePosition(x + bounds.getWidth() / 2, y + bounds.getHeight() / 2);
}

// On X11 the picture of the dragged row is a window of its own, and takes the focus with it when it goes.
void ValueTreesDemo::dragOperationStarted(const juce::DragAndDropTarget::SourceDetails&)
{
    dragFocus.dragStarted();
}

void ValueTreesDemo::dragOperationEnded(const juce::DragAndDropTarget::SourceDetails&)
{
    dragFocus.dragEnded();
}
