#include "tests/walks/LoopSession.h"

#include "standin/host/family/Family.h"
#include "standin/host/family/KeptSuites.h"
#include "standin/script/Stage.h"
#include "standin/user/eyes/DisplayNames.h"
#include "tests/support/KeptObjects.h"
#include "tree/NameText.h"
#include "tree/TreeModel.h"

#include <JuceInternals.h>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace standin::check
{
namespace
{
constexpr int panelWidth = 400;
constexpr int panelHeight = 700; ///< All rows of a walk are in view.
constexpr int middleOfRow = 10;

const char* matchNameOf(ModelKind kind)
{
    switch (kind)
    {
    case ModelKind::geometry:
        return "QVK VORTSRC Lamps";
    case ModelKind::effector:
        return "QVK VORTEFF Pulse Effector";
    case ModelKind::renderer:
        return "QVK VORTREN Dots";
    case ModelKind::main:
        return "QVK VORTAN TWO";
    case ModelKind::outside:
        break;
    }
    return "ADBE Gaussian Blur 2";
}

void addEffect(Host& host, int layer, const ModelEffect& effect)
{
    EffectInstance& made = *host.State().FindEffect(host.AddEffect(layer, matchNameOf(effect.kind)));
    made.customName = effect.name;
    made.family.group = static_cast<std::int16_t>(std::max(effect.group, 0));
    made.family.rigidity = effect.isRigid ? Rigidity::rigid : Rigidity::movable;
}

HostOptions plainOptions()
{
    HostOptions options;
    options.undoLevels = 100000;
    return options;
}

void appendRows(ValueTreeItem& row, std::vector<ValueTreeItem*>& all)
{
    all.push_back(&row);
    for (int i = 0; i < row.getNumSubItems(); ++i)
        appendRows(dynamic_cast<ValueTreeItem&>(*row.getSubItem(i)), all);
}
} // namespace

MemoryOutput::MemoryOutput()
{
    (void)std::fflush(stdout);
    former = std::exchange(stdout, open_memstream(&text, &size));
}

MemoryOutput::~MemoryOutput()
{
    (void)std::fclose(std::exchange(stdout, former));
    std::free(text);
}

std::vector<std::string> MemoryOutput::TakeLines()
{
    (void)std::fflush(stdout);
    std::istringstream written(std::string(text, size));
    std::vector<std::string> lines;
    for (std::string line; std::getline(written, line);)
        lines.push_back(line);
    (void)std::fseek(stdout, 0, SEEK_SET);
    return lines;
}

LoopSession::LoopSession(const StackModel& begin) : host(plainOptions())
{
    InstallFamily(host);
    compId = host.AddComposition("Comp 1");
    for (int i = 0; i < StackModel::layerCount; ++i)
    {
        layerIds.push_back(host.AddLayer(compId, "Solid " + std::to_string(i + 1)));
        for (const ModelEffect& effect : begin.StackOf(i))
            addEffect(host, layerIds.back(), effect);
    }
    currentLayer = layerIds.front();
    host.User().SelectLayers({currentLayer});
    panelator = static_cast<Panelator*>(host.Load(&PanelEntryPointFunc).globalRefcon);
    (void)host.SetPanelState(user::Session::panelName, PanelState::frontmost);
    Tree().setSize(panelWidth, panelHeight);
    window = std::make_unique<HeadlessWindow>(Tree());
}

LoopSession::~LoopSession() { (void)End(); }

std::string LoopSession::End()
{
    if (panelator == nullptr)
        return "";
    window.reset();
    ExpectKeptSuites(host);
    host.Idles().Clear();
    host.Options().idleInCalls = IdleInCalls::never;
    host.Quit();
    std::string findings = host.FindingsReport();
    DeleteKeptObjects(host, std::exchange(panelator, nullptr));
    return findings;
}

std::string LoopSession::Idle(int passes)
{
    for (int i = 0; i < passes; ++i)
    {
        const HookResult result = host.RunIdle();
        if (!result.thrown.empty())
            return "a hook was left by " + result.thrown;
    }
    return "";
}

std::vector<ValueTreeItem*> LoopSession::Rows()
{
    std::vector<ValueTreeItem*> all;
    if (auto* root = dynamic_cast<ValueTreeItem*>(Tree().treeView.getRootItem()))
        appendRows(*root, all);
    return all;
}

std::string LoopSession::LabelOf(const std::string& name)
{
    auto [wanted, count] = script::NameAndCount(name);
    for (const EffectInstance& effect : host.State().FindLayer(currentLayer)->effects)
        if (user::DisplayNameOf(host.NameOf(effect.label)) == wanted && --count == 0)
            return effect.label;
    throw std::runtime_error("there is no effect " + name);
}

ValueTreeItem& LoopSession::Row(const std::string& name)
{
    auto [wanted, count] = script::NameAndCount(name);
    for (ValueTreeItem* row : Rows())
        if (user::DisplayNameOf(BytesFromText(row->getNode()[TreeIds::name].toString())) == wanted &&
            --count == 0)
            return *row;
    throw std::runtime_error("there is no row " + name);
}

void LoopSession::ClickAt(ValueTreeItem& row, int x, juce::ModifierKeys keys)
{
    PressAt(row, x, keys);
    window->release();
    window->hold({});
}

void LoopSession::DoubleClick(ValueTreeItem& row)
{
    ClickAt(row, onText);
    window->press(placeOf(row, onText));
    window->release();
}

void LoopSession::PressAt(ValueTreeItem& row, int x, juce::ModifierKeys keys)
{
    window->wait(1000); // Not the second of a double click.
    window->hold(keys);
    window->press(placeOf(row, x));
}

/// Long enough for JUCE to count the press as more than a click.
void LoopSession::LetGo()
{
    window->wait(1000);
    window->release();
    window->hold({});
}

/// Of the window.
juce::Point<int> LoopSession::placeOf(ValueTreeItem& row, int x)
{
    while (DispatchJuceMessages()) // Rows are laid out by a message.
    {
    }
    return Tree().treeView.getPosition() + row.getItemPosition(true).getPosition() +
           juce::Point<int>(x, middleOfRow);
}

void LoopSession::ClickButton(const std::string& text)
{
    for (juce::Component* child : Tree().getChildren())
    {
        auto* button = dynamic_cast<SimpleButton*>(child);
        if (button == nullptr || !button->isVisible() || button->getButtonText() != juce::String(text))
            continue;
        window->wait(1000);
        window->press(button->getBounds().getCentre());
        window->release();
        return;
    }
    throw std::runtime_error("there is no button " + text);
}

/// What is not selected is by the press that begins the drag.
void LoopSession::Drop(const std::string& dragged, ValueTreeItem& target, int index)
{
    ValueTreeItem& row = Row(dragged);
    if (!row.isSelected())
        ClickAt(row, onText);
    const juce::DragAndDropTarget::SourceDetails details(row.getDragSourceDescription(), &Tree().treeView,
                                                         {});
    if (!target.isInterestedInDragSource(details))
        throw std::runtime_error("the row " + dragged + " cannot be dropped there");
    target.itemDropped(details, index);
}

void LoopSession::PressKey(const std::string& key)
{
    CustomTreeView& view = Tree().treeView;
    if (key == "Return" && view.renameEditor->isVisible())
        view.renameEditor->returnPressed();
    else if (key == "Return")
        (void)view.keyPressed(juce::KeyPress(juce::KeyPress::returnKey));
    else if (key == "Delete")
        (void)view.keyPressed(juce::KeyPress(juce::KeyPress::deleteKey));
    else if (key == "Control+a")
        (void)view.keyPressed(juce::KeyPress('a', juce::ModifierKeys::commandModifier, 0));
    else
        throw std::runtime_error("there is no key " + key);
}

/// The menu itself opens on a screen alone.
void LoopSession::ChooseFromMenu(const std::string& entry)
{
    for (const InstalledEffect& effect : host.InstalledEffects())
        for (const ValueTreesDemo::ObjectEntry& offered : Tree().objectEntries)
            if (offered.key == effect.key && user::DisplayNameOf(effect.defaultName) == entry)
                return Tree().keysToBeAdded.push_back(offered.key);
    throw std::runtime_error("no menu offers " + entry);
}
} // namespace standin::check
