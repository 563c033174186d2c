#pragma once
// The host's window with what only tests do to it: it records every key event, tells what it contains and who
// listens to it, and does to the panel's windows what a host may do.

#include "standin/user/HostWindow.h"

#include <functional>
#include <string>
#include <vector>

namespace standin
{
/// What the host does with a click on its window.
enum class HostClicks
{
    areIgnored,
    takeTheFocus
};

/// When the container of a panel appears.
enum class ContainerStart
{
    mapped,
    unmapped
};

class PlainHost : public user::HostWindow
{
public:
    static constexpr int left = 60;
    static constexpr int top = 40;
    /// The container leaves a strip of the host's window free at its right and below it.
    static constexpr int panelWidth = 400;
    static constexpr int panelHeight = 420;

    PlainHost();
    ~PlainHost() override;

    void SetClicks(HostClicks wanted) { clicks = wanted; }
    void SetContainerStart(ContainerStart wanted) { start = wanted; }

    /// The keys since the last call, in order: "+Control_L", "+c", "-c". A modifier or lock that is down is
    /// named in front: "+ctrl+shift C". A key that another program has sent by XSendEvent looks the same.
    std::vector<std::string> TakeKeys();
    /// The fields of the last key that a reader of TakeKeys does not see.
    unsigned long LastKeyTime() const { return lastKeyTime; }
    unsigned long LastKeyWindow() const { return lastKeyWindow; }

    /// How often a key stands in what TakeKeys would give.
    long CountOf(const std::string& key) const;
    /// How many it would give.
    std::size_t KeyCount() const { return keys.size(); }

    /// The server's present time.
    unsigned long ServerTime();
    /// Has the server tell everybody that the keyboard map is another.
    void ChangeKeyboardMap();

    /// What a left-handed user sets.
    void SwapMouseButtons();

    bool HasItsErrorHandler() const { return hasItsErrorHandler(); }
    /// Has the server refuse a request of the host's.
    void MakeAnError();
    /// Lets Xlib's own handler have the errors, which ends the program at the first.
    static void UseDefaultErrorHandler();
    /// Sets another handler of the host's, and tells whether it is still that one.
    static void SetOtherErrorHandler();
    static bool HasOtherErrorHandler();
    static void UseOwnErrorHandler() { setItsErrorHandler(); }
    /// What the host does besides whenever it makes a container.
    void SetWhileMakingContainer(std::function<void()> action) { whileMakingContainer = std::move(action); }

    unsigned long Container() const { return container; }
    /// The window that the panel has put into the container; 0 for none. Throws
    /// std::runtime_error if there are several.
    unsigned long PanelWindow() const;
    /// In the window around it.
    user::Area GeometryOf(unsigned long window) const;
    bool IsOnScreen(unsigned long window) const;
    /// The host's own event mask of a window.
    long SelectionOn(unsigned long window) const;
    /// The event masks of all who have selected something on a window.
    long AllSelectionsOn(unsigned long window) const;
    std::vector<std::string> PropertiesOf(unsigned long window) const;
    int ChildrenOfRoot() const;

    void SetFocus(unsigned long window);
    /// A small window at the right of the container, which wants no keys itself.
    unsigned long MakeField();
    void SelectKeysOn(unsigned long window);
    /// The container alone.
    void Resize(int newWidth, int newHeight);
    void Map();
    void Unmap();
    /// Destroys the container with everything in it.
    void Destroy();
    void DestroyPanelWindow();

    /// A window on the root that has nothing to do with the host; one at a time.
    unsigned long MakeWindowOfAnotherProgram(int x, int y, int itsWidth, int itsHeight);
    void DestroyWindowOfAnotherProgram();
    void MoveContainerToNewTop();

    /// What a user's resource file would say. Programs read it when they connect.
    void SetScreenResource(const std::string& line);

    // For the stand-in.
    void* MakeContainer(const std::string& panelName) override;
    void DestroyContainer(void* container) override;
    void ShowContainer(void* container, Visibility visibility) override;

private:
    void handle(_XEvent& event) override;

    HostClicks clicks = HostClicks::areIgnored;
    ContainerStart start = ContainerStart::mapped;
    std::vector<std::string> keys;
    unsigned long lastKeyTime = 0;
    unsigned long lastKeyWindow = 0;
    unsigned long other = 0;
    std::function<void()> whileMakingContainer;
};
} // namespace standin
