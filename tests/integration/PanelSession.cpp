#include "tests/integration/PanelSession.h"

#include "standin/host/family/KeptSuites.h"
#include "tests/support/KeptObjects.h"
#include "tree/TreeModel.h"
#include "tree/ValueTreesDemo.h"

#include <algorithm>

namespace standin
{
using namespace user;

namespace
{
constexpr const char* panelName = "Vortan Object Panel";
constexpr int rowHeight = 20;
} // namespace

PanelSession::PanelSession() : User(std::make_unique<Xvfb>(1000, 700))
{
    product.host.SetContainerProvider(&window);
    panelator = static_cast<Panelator*>(product.host.Load(&PanelEntryPointFunc).globalRefcon);
}

PanelSession::~PanelSession()
{
    ExpectKeptSuites(product.host);
    product.host.Quit();
    EXPECT_EQ(product.host.FindingsReport(), "");
    EXPECT_EQ(window.TakeErrors(), 0);
    DeleteKeptObjects(product.host, panelator);
}

void PanelSession::OpenPanel()
{
    (void)product.host.SetPanelState(panelName, PanelState::frontmost);
    Settle();
}

void PanelSession::Settle()
{
    const auto isBusy = [this]
    {
        const std::vector<std::string> calls = product.host.CallTexts();
        product.host.ClearTrace();
        return std::any_of(calls.begin(), calls.end(), &DoesWork);
    };
    EXPECT_TRUE(IdleUntilStill(PanelArea(), isBusy)) << "the idle pass never comes to rest";
}

std::vector<std::string> PanelSession::TreeNames()
{
    std::vector<std::string> names;
    for (const ObjectItem& item : GetItemsFromTree(panelator->tree))
        names.push_back(item.name);
    return names;
}

Place PanelSession::InRow(const std::string& name, Place place)
{
    CustomTreeView& view = panelator->tree->treeView;
    const ValueTreeItem* row = FindRow(view, name);
    if (row == nullptr)
        throw std::runtime_error("no row \"" + name + "\" in " + Shape());
    Idle(); // Rows are laid out when messages are delivered.
    const auto corner = view.localPointToGlobal(row->getItemPosition(true).getPosition());
    return Place{corner.x, corner.y} + place;
}

void PanelSession::ClickAndIdle(Place at)
{
    Click(at);
    Idle();
}

void PanelSession::ClickRow(const std::string& name) { ClickAndIdle(InRow(name, {24, rowHeight / 2})); }

void PanelSession::ClickBox(const std::string& name) { ClickAndIdle(InRow(name, {6, rowHeight / 2})); }

void PanelSession::DragRowBelow(const std::string& name, const std::string& target)
{
    Drag(InRow(name, {24, rowHeight / 2}), InRow(target, {30, rowHeight - 4}));
}

void PanelSession::DragRowAbove(const std::string& name, const std::string& target)
{
    Drag(InRow(name, {24, rowHeight / 2}), InRow(target, {30, 2}));
}

void PanelSession::ClickButton(const std::string& text)
{
    for (juce::Component* child : panelator->tree->getChildren())
    {
        auto* button = dynamic_cast<SimpleButton*>(child);
        if (button == nullptr || !button->isVisible() || button->getButtonText() != juce::String(text))
            continue;
        const auto at = button->getScreenBounds().getCentre();
        return ClickAndIdle({at.x, at.y});
    }
    throw std::runtime_error("no button \"" + text + "\"");
}

void PanelSession::Key(const std::string& name)
{
    PressKey(name);
    Idle();
}

void PanelSession::TypeName(const std::string& name)
{
    TypeText(name);
    Idle();
}

void PanelSession::Add(const std::string& matchName, const std::string& label, const std::string& name)
{
    (void)product.Add(matchName, label);
    product.host.Effect(label).customName = name;
}
} // namespace standin
