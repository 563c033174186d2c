#pragma once
// The window of a host without any toolkit, with a child window in it that the panel is put into, on an X
// connection of its own. A strip above the panel, if there is room for one, shows the panel's tab.

#include "standin/host/core/ContainerProvider.h"
#include "standin/host/core/HostOptions.h"
#include "standin/user/Geometry.h"

#include <string>
#include <vector>

struct _XDisplay;
union _XEvent;

namespace standin::user
{
struct HostLayout
{
    Area frame{20, 20, 380, 484};    ///< On the screen.
    Area container{0, 24, 380, 460}; ///< In the frame.
};

class HostWindow : public ContainerProvider
{
public:
    /// On the screen when the constructor returns. Throws std::runtime_error if there is no display.
    explicit HostWindow(const HostLayout& layout = {});
    ~HostWindow() override;
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// From now on the windows behave as these options say. Without it a press on them takes the keyboard
    /// focus, and the errors of X are counted.
    void Obey(const HostOptions& options);
    /// Reads what has come for the host's windows.
    void HandleEvents();

    /// The keys that have reached the host since the last call: "Delete", "Control+a".
    std::vector<std::string> TakeKeys();
    /// Errors that Xlib reported to the host since the last call, while it counts them.
    int TakeErrors();

    unsigned long Frame() const { return frame; }
    /// As a window travels through plain C interfaces.
    void* FrameHandle() const { return reinterpret_cast<void*>(frame); }
    /// Where the container stands on the screen. It has a size while no panel is there.
    Area ContainerOnScreen() const;
    /// A place of the frame on the screen where nothing stands.
    Place EmptyPlace() const;
    /// The container's size; the frame goes along.
    void Resize(int newWidth, int newHeight);

    // For the stand-in.
    void* MakeContainer(const std::string& panelName) override;
    void DestroyContainer(void* container) override;
    void ShowContainer(void* container, Visibility visibility) override;

protected:
    void settle() const;
    unsigned long makeFrame() const;
    virtual void handle(_XEvent& event);
    /// Whether the errors still come to this host.
    bool hasItsErrorHandler() const;
    static void setItsErrorHandler();

    HostLayout layout;
    _XDisplay* display;
    unsigned long frame = 0;
    unsigned long container = 0;

private:
    void paint() const;

    std::string tab;
    std::vector<std::string> keys;
    FocusAtClicks focusAtClicks = FocusAtClicks::isTaken;
    XErrors xErrors = XErrors::areCounted;
    void (*formerHandler)() = nullptr; ///< Of Xlib's type for handlers of errors.
};
} // namespace standin::user
