#pragma once
// The window of a plain host: a strip with the tabs of its panels, and below it the native child window of
// the panel whose tab is in front. It uses Xlib and nothing else, on a connection of its own.

#include "standin/core/ContainerProvider.h"
#include "standin/core/HostOptions.h"
#include "standin/x11/XTestInput.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin
{
/// A place on the screen or in a window, in pixels from its upper left corner.
struct Place
{
    int x = 0;
    int y = 0;
};

struct Area
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// A top-level window of somebody else, such as a menu.
struct PopUp
{
    unsigned long window = 0;
    Area area;
};

class Dock : public ContainerProvider
{
public:
    static constexpr int left = 20;
    static constexpr int top = 20;
    static constexpr int width = 380;
    static constexpr int stripHeight = 24;

    /// The height is that of a container. Throws std::runtime_error if there is no display.
    explicit Dock(int containerHeight);
    ~Dock() override;
    Dock(const Dock&) = delete;
    Dock& operator=(const Dock&) = delete;

    /// From now on the windows behave as these options say.
    void Obey(const HostOptions& options);
    /// Reads what has come for the host's windows.
    void HandleEvents();

    /// The keys that have reached the host since the last call: "Delete", "Control+a".
    std::vector<std::string> TakeKeys();
    /// Errors that Xlib told the host of, while its options have it count them.
    int Errors() const;

    /// Where the container stands on the screen. It has a size while no panel is there.
    Area ContainerOnScreen() const;
    /// A place in the strip where no tab is.
    Place EmptyPlace() const;
    void Resize(int newWidth, int newHeight);

    /// What the screen shows there.
    ScreenPicture Picture(const Area& onScreen) const;
    /// Mapped windows on the screen's ground, other than the host's own, the topmost last.
    std::vector<PopUp> PopUps() const;
    Area WholeScreen() const;

    // For the stand-in.
    void* MakeContainer(const std::string& panelName) override;
    void DestroyContainer(void* container) override;
    void ShowContainer(void* container, Visibility visibility) override;

private:
    struct Windows;
    std::unique_ptr<Windows> windows;
};
} // namespace standin
