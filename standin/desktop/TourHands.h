#pragma once
// The hands and eyes of the guided tour: real mouse and key events on the desktop's windows and on the panel,
// and pictures of the screen. Everything here is called on the tour's own thread; what it asks the windows is
// asked on the main thread.

#include "standin/desktop/views/DesktopWindow.h"
#include "standin/x11/XTestInput.h"

#include <functional>
#include <future>

namespace standin
{
class TourHands
{
public:
    TourHands(Workbench& bench, DesktopWindow& window);

    /// Runs `question` on the main thread and waits for its answer.
    template <class Question>
    auto OnMain(Question question) -> decltype(question())
    {
        using Answer = decltype(question());
        auto task = std::make_shared<std::packaged_task<Answer()>>(std::move(question));
        std::future<Answer> answer = task->get_future();
        juce::MessageManager::callAsync([task] { (*task)(); });
        return answer.get();
    }
    /// Waits until the condition holds on the main thread; false if it does not within a generous limit.
    bool Until(const std::function<bool()>& condition);
    /// Waits until the host has idled so often.
    void LetIdle(int passes);

    // In the desktop's own windows.
    void Click(const char* componentId, int x, int y);
    void DoubleClick(const char* componentId, int x, int y);
    void Drag(const char* componentId, juce::Point<int> from, juce::Point<int> to);
    /// Opens the menu and clicks the line with this index, separators counted.
    void ChooseFromMenu(const char* menu, int line);
    void OpenMenu(const char* menu);

    // In the panel, which is docked and in front.
    void ClickPanel(int x, int y);
    void ClickRow(const std::string& name);
    void ClickBox(const std::string& name);
    /// Into a row that takes others in, a group without any.
    void DragRowInto(const std::string& name, const std::string& target);
    /// Behind a row, to the same depth.
    void DragRowBelow(const std::string& name, const std::string& target);
    /// The panel has just made this group, which is above all rows until an object is in it.
    void NoteNewGroup(const std::string& name) { newGroup = name; }

    void Key(const std::string& name);
    void Keys(const std::vector<std::string>& modifiers, const std::string& name);
    void Type(const std::string& text);

    /// Whether the panel shows a notification, which is the one thing in it that is blue.
    bool SeesNotification();
    std::string TextIn(const char* editorId);
    /// Writes the whole screen as PNG.
    void TakePicture(const juce::File& file);

private:
    void clickAt(juce::Point<int> at);
    void dragBetween(juce::Point<int> from, juce::Point<int> to);
    juce::Point<int> pointOfMenuLine(int line);
    juce::Point<int> pointIn(const char* componentId, juce::Point<int> at);
    juce::Point<int> rowPoint(const std::string& name, int x);

    Workbench& bench;
    DesktopWindow& window;
    XTestInput input;
    std::string newGroup;
};

/// The rows of the panel below "Layer", from the top, as a layer's effects and their groups make them: a
/// group stands where its first object is.
std::vector<std::string> PanelRows(const Shown& shown);
} // namespace standin
