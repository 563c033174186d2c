#include "standin/user/x11/Xvfb.h"

#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace standin::user
{
namespace
{
constexpr auto startTimeout = std::chrono::seconds(30);

process::Body serverOf(int width, int height)
{
    const std::string screen = std::to_string(width) + "x" + std::to_string(height) + "x24";
    // "-r": a key that a slow machine holds down for long is no key that is pressed again and again. Without
    // GLX, which nothing here draws with, the server is up in half the time.
    return process::Program({"Xvfb", "-displayfd", std::to_string(process::reportDescriptor), "-screen", "0",
                             screen, "-nolisten", "tcp", "-noreset", "-r", "-extension", "GLX"});
}
} // namespace

Xvfb::Xvfb(int width, int height) : server(serverOf(width, height), process::Streams::kept)
{
    const auto end = std::chrono::steady_clock::now() + startTimeout;
    while (server.Told().find('\n') == std::string::npos)
    {
        // It tells its number when it takes connections.
        if (server.IsDone() || std::chrono::steady_clock::now() > end)
            throw DisplayMissing("Xvfb did not start");
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    display = ":" + server.Told().substr(0, server.Told().find('\n'));
    (void)setenv("DISPLAY", display.c_str(), 1);
}

// The server notes the signal and looks at its note before it waits for its clients. A signal that comes
// between the two is slept over, for ten minutes if no client is left; the next one wakes it.
Xvfb::~Xvfb() { server.End(SIGTERM); }
} // namespace standin::user
