#pragma once
// The panel's one top-level component: the tree, five toolbar buttons, the notification label, and the
// lists through which the user asks for new effects.

#include "effects/ObjectItem.h"
#include "tree/CustomTreeView.h"
#include "tree/DocumentWatch.h"
#include "tree/Keyboard.h"
#include "tree/NotifyLabel.h"
#include "tree/PanelKeys.h"
#include "tree/SimpleButton.h"
#include "tree/platform/Platform.h"

#include <string>
#include <vector>

class ValueTreeItem;

class ValueTreesDemo : public PanelBase, public juce::DragAndDropContainer
{
public:
    /// What a toolbar menu offers.
    struct ObjectEntry
    {
        VN_OBJECT_TYPE type;
        int key;
        std::string name;
    };

    /// `hideToolbar` leaves the buttons off and gives their place to the tree.
    explicit ValueTreesDemo(bool hideToolbar);

    /// Detaches the root row and does not delete it: the row ends with JUCE at the latest.
    ~ValueTreesDemo() override;

    void mouseDown(const juce::MouseEvent&) override;
    bool keyPressed(const juce::KeyPress&) override;
    void paint(juce::Graphics&) override;
    void resized() override;
    void dragOperationStarted(const juce::DragAndDropTarget::SourceDetails&) override;
    void dragOperationEnded(const juce::DragAndDropTarget::SourceDetails&) override;

    void buttonClicked(juce::Button*);
    void setBGColor(const juce::Colour&);

    /// Adds an empty group after the last one, or tells the user that all numbers are in use. Null does
    /// nothing.
    void AddNewGroup(ValueTreeItem* root);

    /// Makes the document of the items and its root row, which is the caller's. The row of item
    /// `activeIndex` is selected, the root row with -1.
    static ValueTreeItem* CreateTreeFromItems(const std::vector<ObjectItem>& items, int activeIndex);

    static juce::ValueTree createTree(const juce::String& type, const juce::String& name);

    /// Shows "Add Vortan" alone, or the other four buttons.
    enum class Toolbar
    {
        forEmptyLayer,
        forObjects
    };
    void showToolbar(Toolbar);

    CustomTreeView treeView;
    DocumentWatch documentWatch;
    SimpleButton geometryButton;
    SimpleButton effectorButton;
    SimpleButton rendererButton;
    SimpleButton groupButton;
    SimpleButton vortanButton;
    juce::Colour bgColour;
    juce::LookAndFeel_V3 buttonLookAndFeel;
    std::vector<ObjectEntry> objectEntries;
    std::vector<int> keysToBeAdded; ///< oldest first, waiting for the next idle pass
    bool toolbarHidden;
    NotifyLabel notifyLabel;
    PanelKeys panelKeys;

private:
    std::vector<SimpleButton*> buttons();
    void setUpButtons();
    void showMenu(juce::PopupMenu, juce::Button&, std::vector<int> keys);
    void takeChoice(const std::vector<int>& keys, int result);
    void addKey(int key);

    int openMenus = 0;
    DragFocus dragFocus;

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR(ValueTreesDemo)
};
