// The program standin-desktop.

#include "standin/desktop/DesktopApplication.h"
#include "standin/x11/Xvfb.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <stdexcept>

namespace
{
constexpr int wrongUsage = 2;
constexpr int noDisplay = 8;

juce::JUCEApplicationBase* makeApplication() { return new standin::DesktopApplication(); }

int run(const standin::DesktopArguments& arguments)
{
    std::optional<standin::Xvfb> screen;
    if (!arguments.scenario.empty())
        screen.emplace(1320, 820);
    else if (const char* const named = std::getenv("DISPLAY"); named == nullptr || *named == '\0')
        // JUCE would take the first display of the machine, which may be anybody's.
        throw std::runtime_error("there is no display; --play has a screen of its own");
    standin::DesktopApplication::Use(arguments);
    juce::JUCEApplicationBase::createInstance = &makeApplication;
    const char* const name[] = {"standin-desktop"};
    return juce::JUCEApplicationBase::main(1, const_cast<const char**>(name));
}
} // namespace

int main(int argc, char* argv[])
{
    try
    {
        const standin::DesktopArguments arguments = standin::ReadArguments({argv + 1, argv + argc});
        if (!arguments.isForHelp)
            return run(arguments);
        std::printf("%s", standin::desktopHelp);
        return 0;
    }
    catch (const standin::ArgumentError& error)
    {
        std::fprintf(stderr, "standin-desktop: %s\n", error.what());
        return wrongUsage;
    }
    catch (const std::runtime_error& error)
    {
        std::fprintf(stderr, "standin-desktop: %s\n", error.what());
        return noDisplay;
    }
}
