#include "tests/appkit/VirtualScreen.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

namespace
{
class VirtualScreen
{
public:
    VirtualScreen()
    {
        int ends[2];
        if (pipe(ends) != 0)
            throw std::runtime_error("no pipe for the screen's number");
        server = fork();
        if (server == 0)
            serve(ends[1]);
        close(ends[1]);
        const std::string name = ":" + readNumber(ends[0]);
        setenv("DISPLAY", name.c_str(), 1);
        display = XOpenDisplay(name.c_str());
        if (display == nullptr)
            throw std::runtime_error("the screen " + name + " does not open");
    }

    ~VirtualScreen()
    {
        kill(server, SIGTERM);
        (void)waitpid(server, nullptr, 0);
    }

    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    Display* display = nullptr;

private:
    [[noreturn]] static void serve(int numberEnd)
    {
        (void)prctl(PR_SET_PDEATHSIG, SIGTERM);
        const std::string end = std::to_string(numberEnd);
        const std::string size =
            std::to_string(standin::screenWidth) + "x" + std::to_string(standin::screenHeight) + "x24";
        (void)execlp("Xvfb", "Xvfb", "-displayfd", end.c_str(), "-screen", "0", size.c_str(), "-nolisten",
                     "tcp", "-noreset", nullptr);
        _exit(127);
    }

    /// Blocks until the server is ready: it writes its number and a newline then.
    static std::string readNumber(int numberEnd)
    {
        std::string number;
        char next = 0;
        while (read(numberEnd, &next, 1) == 1 && next != '\n')
            number += next;
        close(numberEnd);
        if (number.empty())
            throw std::runtime_error("Xvfb does not start");
        return number;
    }

    pid_t server = -1;
};

Display* openDisplay()
{
    static VirtualScreen screen;
    return screen.display;
}
} // namespace

namespace standin
{
void OpenVirtualScreen() { (void)openDisplay(); }

void MovePointer(int x, int y)
{
    XTestFakeMotionEvent(openDisplay(), 0, x, y, CurrentTime);
    XSync(openDisplay(), False);
}

void ClickLeftButton()
{
    XTestFakeButtonEvent(openDisplay(), 1, True, CurrentTime);
    XTestFakeButtonEvent(openDisplay(), 1, False, CurrentTime);
    XSync(openDisplay(), False);
}

void TapKey(unsigned long keysym)
{
    const KeyCode code = XKeysymToKeycode(openDisplay(), keysym);
    XTestFakeKeyEvent(openDisplay(), code, True, CurrentTime);
    XTestFakeKeyEvent(openDisplay(), code, False, CurrentTime);
    XSync(openDisplay(), False);
}

void WaitUntilShown(void* connection) { XSync(static_cast<Display*>(connection), False); }
} // namespace standin
