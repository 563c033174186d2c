#pragma once
// The hands and eyes of the guided tour: real mouse and key events on the desktop's windows, and pictures of
// the screen. Everything here is called on the tour's own thread; what it asks the windows is asked on the
// main thread. Nothing here waits for a guessed time: it waits for what is to be seen, or lets the program do
// so many of its own passes.

#include "standin/desktop/views/DesktopWindow.h"
#include "standin/x11/XTestInput.h"

#include <chrono>
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

    // Each of these looks again and again; false if it is not so within a generous limit.
    /// On the main thread.
    bool Until(const std::function<bool()>& condition);
    /// On the tour's own thread, for what is read from the screen.
    bool UntilSeen(const std::function<bool()>& condition);
    /// On the tour's own thread, until the host has idled so often: a limit that does not depend on how fast
    /// the machine is.
    bool Within(int passes, const std::function<bool()>& condition);

    /// Waits until the host has idled so often.
    void LetIdle(int passes);

    // In the desktop's own windows.
    void Click(const char* componentId, int x, int y);
    void DoubleClick(const char* componentId, int x, int y);
    void Drag(const char* componentId, juce::Point<int> from, juce::Point<int> to);
    /// On the screen, in its pixels.
    juce::Point<int> PlaceIn(const char* componentId, juce::Point<int> at);
    ScreenArea AreaOf(const char* componentId);
    /// Whether what is typed goes into the text field with this id.
    bool Listens(const char* editorId);
    std::string TextIn(const char* editorId);
    /// Types until the field that is open shows the text and nothing else. The keyboard may still be on its
    /// way back from a menu or a window that has gone; a click calls it. False if it never comes.
    bool TypeInto(const char* editorId, const std::string& text);
    /// Whether the keyboard is with the desktop itself, outside the panel.
    bool DesktopListens();
    /// Whether it is with the panel, which is a window in that of the desktop.
    bool PanelListens();

    /// Far enough behind the last one that they make no double click.
    void PressAt(juce::Point<int> at);
    void ClickAt(juce::Point<int> at);
    void Key(const std::string& name);
    void Keys(const std::vector<std::string>& modifiers, const std::string& name);
    void Type(const std::string& text);

    /// Writes the whole screen as PNG.
    void TakePicture(const juce::File& file);

    /// The bare hands.
    XTestInput input;

    static constexpr int longEnough = 60; ///< Passes in which whatever was going to happen has happened.

private:
    void pointAt(juce::Point<int> at);
    unsigned long desktopWindow();

    Workbench& bench;
    DesktopWindow& window;
    juce::Point<int> lastPlace;
    std::chrono::steady_clock::time_point lastClick;
};
} // namespace standin
