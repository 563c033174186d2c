#pragma once
// The product in one process with the stand-in host, without a screen: the panel's own tree in a window that
// no server knows. Lines of a scenario are carried out on it.

#include "panel/Panelator.h"
#include "standin/check/WalkStep.h"
#include "standin/host/core/Host.h"
#include "standin/script/Phrase.h"
#include "tests/tree/support/HeadlessWindow.h"
#include "tree/ValueTreeItem.h"
#include "tree/ValueTreesDemo.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace standin::check
{
/// What the program writes to standard output while this lives.
class MemoryOutput
{
public:
    MemoryOutput();
    ~MemoryOutput();
    MemoryOutput(const MemoryOutput&) = delete;
    MemoryOutput& operator=(const MemoryOutput&) = delete;

    /// The lines since the last call.
    std::vector<std::string> TakeLines();

private:
    char* text = nullptr;
    std::size_t size = 0;
    std::FILE* former;
};

class LoopSession
{
public:
    // From the left edge of a row.
    static constexpr int onText = 24;
    static constexpr int onBox = 6;
    static constexpr int onTriangle = -10;

    /// Makes the layers of the model's beginning, and opens the panel.
    explicit LoopSession(const StackModel& begin);
    ~LoopSession();

    /// Carries out what a line of a scenario says. Throws std::runtime_error if it cannot be.
    void Do(const std::string& line);
    /// Passes of the host's idle. What left a hook, in words.
    std::string Idle(int passes);
    /// Ends the host; what is found then.
    std::string End();

    ValueTreesDemo& Tree() { return *panelator->tree; }
    std::vector<ValueTreeItem*> Rows();
    std::vector<std::string> TakePrinted() { return output.TakeLines(); }

    Host host;
    std::vector<int> layerIds;

    // What lines are made of.
    std::string LabelOf(const std::string& name);
    ValueTreeItem& Row(const std::string& name);
    void ClickAt(ValueTreeItem& row, int x, juce::ModifierKeys keys = {});
    void DoubleClick(ValueTreeItem& row);
    /// The button goes down and stays down.
    void PressAt(ValueTreeItem& row, int x, juce::ModifierKeys keys = {});
    void LetGo();
    void ClickButton(const std::string& text);
    void Drop(const std::string& dragged, ValueTreeItem& target, int index);
    void PressKey(const std::string& key);
    void ChooseFromMenu(const std::string& entry);
    HeadlessWindow& Window() { return *window; }
    int compId = 0;
    int currentLayer = 0;

private:
    juce::Point<int> placeOf(ValueTreeItem& row, int x);

    MemoryOutput output;
    Panelator* panelator = nullptr;
    std::unique_ptr<HeadlessWindow> window;
};
} // namespace standin::check
