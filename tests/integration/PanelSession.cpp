#include "tests/integration/PanelSession.h"

#include "tests/support/KeptObjects.h"
#include "tree/NameText.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace standin
{
namespace
{
constexpr const char* panelName = "Vortan Object Panel";
constexpr auto limit = std::chrono::seconds(30);
constexpr auto betweenIdles = std::chrono::milliseconds(5);
constexpr int mostPasses = 100;
constexpr int rowHeight = 20;

std::string nameOf(juce::TreeViewItem& item)
{
    return BytesFromText(dynamic_cast<ValueTreeItem&>(item).getNode()[TreeIds::name].toString());
}

std::string shapeOf(juce::TreeViewItem& item)
{
    std::string text = nameOf(item) + (item.isSelected() ? "*" : "");
    if (!item.isOpen() && item.mightContainSubItems())
        text += "+";
    if (item.getNumSubItems() == 0)
        return text;
    text += "(";
    for (int i = 0; i < item.getNumSubItems(); ++i)
        text += (i > 0 ? " " : "") + shapeOf(*item.getSubItem(i));
    return text + ")";
}

juce::TreeViewItem* findRow(juce::TreeViewItem* item, const std::string& name)
{
    if (item == nullptr || nameOf(*item) == name)
        return item;
    for (int i = 0; i < item->getNumSubItems(); ++i)
    {
        if (juce::TreeViewItem* found = findRow(item->getSubItem(i), name))
            return found;
    }
    return nullptr;
}

/// Whether a pass did anything but look.
bool didSomething(const std::vector<std::string>& calls)
{
    return std::any_of(calls.begin(), calls.end(),
                       [](const std::string& call)
                       {
                           return call.find("AEGP_GetLayerParentComp") != std::string::npos ||
                                  call.find("AEGP_StartUndoGroup") != std::string::npos ||
                                  call.find("AEGP_ApplyEffect") != std::string::npos;
                       });
}
} // namespace

PanelSession::PanelSession()
{
    product.host.SetContainerProvider(this);
    panelator = static_cast<Panelator*>(product.host.Load(&PanelEntryPointFunc).globalRefcon);
}

PanelSession::~PanelSession()
{
    product.host.Expect("unbalanced-suite", "",
                        "the panel and its controller hold their suites until the host ends");
    product.host.Quit();
    EXPECT_EQ(product.host.FindingsReport(), "");
    DeleteKeptObjects(product.host, panelator);
}

void* PanelSession::MakeContainer(const std::string&) { return window.handle(); }

void PanelSession::DestroyContainer(void*) {}

void PanelSession::OpenPanel()
{
    (void)product.host.SetPanelState(panelName, PanelState::frontmost);
    Settle();
}

bool PanelSession::IdleUntil(const std::function<bool()>& condition)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < end)
    {
        EXPECT_EQ(Idle().thrown, "");
        if (condition())
            return true;
        std::this_thread::sleep_for(betweenIdles);
    }
    return false;
}

void PanelSession::Settle()
{
    int quiet = 0;
    for (int pass = 0; pass < mostPasses && quiet < 2; ++pass)
    {
        product.host.ClearTrace();
        EXPECT_EQ(Idle().thrown, "");
        quiet = didSomething(product.host.CallTexts()) ? 0 : quiet + 1;
    }
    EXPECT_EQ(quiet, 2) << "the idle pass never comes to rest";
}

std::string PanelSession::Shape()
{
    juce::TreeViewItem* root = panelator->tree->treeView.getRootItem();
    return root == nullptr ? "" : shapeOf(*root);
}

std::vector<std::string> PanelSession::TreeNames()
{
    std::vector<std::string> names;
    for (const ObjectItem& item : GetItemsFromTree(panelator->tree))
        names.push_back(item.name);
    return names;
}

PanelSession::Point PanelSession::RowPoint(const std::string& name, int fromTop, int fromLeft)
{
    CustomTreeView& view = panelator->tree->treeView;
    juce::TreeViewItem* row = findRow(view.getRootItem(), name);
    if (row == nullptr)
        throw std::runtime_error("no row \"" + name + "\" in " + Shape());
    EXPECT_EQ(Idle().thrown, ""); // Rows are laid out when messages are delivered.
    const auto inView = row->getItemPosition(true).getPosition() + juce::Point<int>(fromLeft, fromTop);
    const auto onScreen = view.localPointToGlobal(inView);
    return {onScreen.x, onScreen.y};
}

void PanelSession::Click(Point at)
{
    user.move(at.x, at.y);
    user.press();
    user.release();
    (void)Idle();
}

void PanelSession::ClickRow(const std::string& name) { Click(RowPoint(name, rowHeight / 2, 24)); }

void PanelSession::ClickBox(const std::string& name) { Click(RowPoint(name, rowHeight / 2, 6)); }

void PanelSession::DragRowBelow(const std::string& name, const std::string& target)
{
    Drag(RowPoint(name, rowHeight / 2, 24), RowPoint(target, rowHeight - 4, 30));
}

void PanelSession::DragRowAbove(const std::string& name, const std::string& target)
{
    Drag(RowPoint(name, rowHeight / 2, 24), RowPoint(target, 2, 30));
}

void PanelSession::Drag(Point from, Point to)
{
    user.move(from.x, from.y);
    user.press();
    (void)Idle();
    constexpr int steps = 8;
    for (int i = 1; i <= steps; ++i)
    {
        user.move(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps);
        (void)Idle();
    }
    EXPECT_TRUE(IdleUntil([&] { return panelator->tree->isDragAndDropActive(); }));
    user.release();
    EXPECT_TRUE(IdleUntil([&] { return !panelator->tree->isDragAndDropActive(); }));
}

void PanelSession::ClickButton(const std::string& text)
{
    for (juce::Component* child : panelator->tree->getChildren())
    {
        auto* button = dynamic_cast<SimpleButton*>(child);
        if (button == nullptr || !button->isVisible() || button->getButtonText() != juce::String(text))
            continue;
        const auto at = button->localPointToGlobal(juce::Point<int>(20, 7));
        return Click({at.x, at.y});
    }
    throw std::runtime_error("no button \"" + text + "\"");
}

void PanelSession::PressKey(const std::string& key)
{
    user.key(key);
    (void)Idle();
}

void PanelSession::TypeName(const std::string& name)
{
    user.type(name);
    (void)Idle();
}

void PanelSession::Add(const std::string& matchName, const std::string& label, const std::string& name)
{
    (void)product.Add(matchName, label);
    product.host.Effect(label).customName = name;
}
} // namespace standin
