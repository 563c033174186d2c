// The program standin-desktop.

#include "standin/desktop/DesktopApplication.h"
#include "standin/process/ExitCodes.h"
#include "standin/user/x11/Xvfb.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>

namespace
{
juce::JUCEApplicationBase* makeApplication() { return new standin::desktop::DesktopApplication(); }

int open(const standin::desktop::DesktopArguments& arguments)
{
    std::optional<standin::user::Xvfb> screen;
    if (!arguments.scenario.empty())
        screen.emplace(1320, 820);
    else if (const char* const named = std::getenv("DISPLAY"); named == nullptr || *named == '\0')
        // JUCE would try the machine's first display, which may be another user's.
        throw std::runtime_error("there is no display; --play has a screen of its own");
    standin::desktop::DesktopApplication::Use(arguments);
    juce::JUCEApplicationBase::createInstance = &makeApplication;
    const char* const name[] = {"standin-desktop"};
    return juce::JUCEApplicationBase::main(1, const_cast<const char**>(name));
}

int run(int argc, char** argv)
{
    CLI::App app("Opens a window of the stand-in host with the panel docked in it.", "standin-desktop");
    standin::desktop::DesktopArguments arguments;
    standin::desktop::AddArguments(app, arguments);
    try
    {
        app.parse(argc, argv);
        return open(arguments);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error) == 0 ? standin::exit_code::well : standin::exit_code::usage;
    }
    catch (const std::runtime_error& error)
    {
        (void)std::fprintf(stderr, "standin-desktop: %s\n", error.what());
        return standin::exit_code::noDisplay;
    }
}
} // namespace

int main(int argc, char** argv)
{
    try
    {
        return run(argc, argv);
    }
    catch (const std::exception& error)
    {
        (void)std::fprintf(stderr, "standin-desktop: %s\n", error.what());
        return standin::exit_code::failed;
    }
}
