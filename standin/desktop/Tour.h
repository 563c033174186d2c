#pragma once
// The guided tour: what a new user would do in the first minutes, with a real mouse and real keys, told in
// words. Each step waits for what it expects to see on both sides; one that does not come ends the tour, and
// the program's exit code says so. It leaves pictures and all calls of the bundle in a folder.

#include "standin/desktop/TourMenus.h"
#include "standin/desktop/TourPanel.h"

#include <memory>

namespace standin
{
class Tour : private juce::Thread
{
public:
    Tour(Workbench& bench, DesktopWindow& window, const std::string& folder);
    ~Tour() override;

private:
    void run() override;
    void play();
    void showTheDesktop();
    void addFromThePanel();
    void workInThePanel();
    void undoAllAndRedoAll();
    void redoAll(std::size_t all);
    std::size_t undoSteps();
    void workInTheEffectControls();
    void useSiblingsAndDock();

    /// Prints the sentence, lets it happen and waits until the condition holds; throws if it does not.
    void tell(const std::string& sentence, const std::function<void()>& action,
              const std::function<bool(const Shown&)>& expected);
    /// Looks, on the tour's own thread, until it is seen; throws if it is not.
    void require(const std::string& what, const std::function<bool()>& seen);
    void requireAgreement();
    void print(const std::string& text);
    void printSides();
    bool writeCalls();
    void picture(const std::string& name);
    Shown now();

    Workbench& bench;
    DesktopWindow& window;
    juce::File folder;
    std::unique_ptr<TourHands> hands;
    std::unique_ptr<TourMenus> menus;
    std::unique_ptr<TourPanel> panel;
    std::string sentence; ///< Of the step that is told now.
    int step = 0;
    int pictures = 0;
};
} // namespace standin
