#include "standin/desktop/Arguments.h"

#include <cstdlib>

namespace standin
{
const char* const desktopHelp =
    "standin-desktop [options] [PROJECT]\n"
    "\n"
    "Opens a window of the stand-in host with the panel docked in it.\n"
    "\n"
    "  PROJECT        a project of the stand-in host, as JSON\n"
    "  --bundle FILE  the bundle to load; VortanObjectPanel.so beside the program if none is named\n"
    "  --effect FILE  installs the effect in a module, in place of the one of its match name; may come "
    "several times\n"
    "  --scale N      draws everything N times as large, from 0.5 to 4\n"
    "  --play FILE    plays a scenario on a screen of its own, in the desktop's windows\n"
    "  --pictures FOLDER  for its pictures and the bundle's calls; the working directory if none is named\n"
    "  --record FILE  writes what you do, in the panel as well, as a scenario that `standin play` plays\n"
    "  --help         prints this\n"
    "\n"
    "Exit codes: 0 all is well, 1 the scenario failed or the host's end found what should not be, 2 wrong "
    "usage,\n"
    "3 a file is not there, 4 a project or a scenario cannot be understood, 5 the bundle or an effect is "
    "none "
    "or does not start,\n"
    "8 there is no display, 9 the recording cannot be written.\n";

namespace
{
double scaleOf(const std::string& text)
{
    char* end = nullptr;
    const double scale = std::strtod(text.c_str(), &end);
    if (end == text.c_str() || *end != '\0' || !(scale >= 0.5 && scale <= 4))
        throw ArgumentError("--scale " + text + ": a number from 0.5 to 4 belongs here");
    return scale;
}
} // namespace

DesktopArguments ReadArguments(const std::vector<std::string>& arguments)
{
    DesktopArguments read;
    for (std::size_t i = 0; i < arguments.size(); ++i)
    {
        const std::string& argument = arguments[i];
        const auto value = [&]
        {
            if (i + 1 == arguments.size())
                throw ArgumentError(argument + " needs a value behind it");
            return arguments[++i];
        };
        if (argument == "--help" || argument == "-h")
            read.isForHelp = true;
        else if (argument == "--bundle")
            read.bundle = value();
        else if (argument == "--effect")
            read.effects.push_back(value());
        else if (argument == "--play")
            read.scenario = value();
        else if (argument == "--pictures")
            read.pictures = value();
        else if (argument == "--record")
            read.record = value();
        else if (argument == "--scale")
            read.scale = scaleOf(value());
        else if (argument.rfind("-", 0) == 0)
            throw ArgumentError(argument + ": there is no such option; --help lists them");
        else if (!read.project.empty())
            throw ArgumentError(argument + ": one project is open at a time");
        else
            read.project = argument;
    }
    return read;
}
} // namespace standin
