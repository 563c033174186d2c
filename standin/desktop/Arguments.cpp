#include "standin/desktop/Arguments.h"

#include "standin/process/ExitCodes.h"

#include <CLI/CLI.hpp>

#include <cstdlib>

namespace standin::desktop
{
namespace
{
/// CLI11's own range takes what is no number for one in it.
std::string scaleError(const std::string& text)
{
    char* end = nullptr;
    const double scale = std::strtod(text.c_str(), &end);
    return *end == '\0' && scale >= 0.5 && scale <= 4 ? "" : text + " is no number from 0.5 to 4";
}
} // namespace

void AddArguments(CLI::App& app, DesktopArguments& arguments)
{
    app.add_option("PROJECT", arguments.project, "A project of the stand-in host, as JSON");
    app.add_option("--bundle", arguments.bundle,
                   "The bundle to load; VortanObjectPanel.so beside the program if none is named");
    app.add_option(
           "--effect", arguments.effects,
           "Install the effect in a module, in place of the one of its match name; may come several times")
        ->allow_extra_args(false);
    app.add_option("--scale", arguments.scale, "Draw everything so many times as large, from 0.5 to 4")
        ->check(CLI::Validator(scaleError, "NUMBER"));
    app.add_option("--play", arguments.scenario,
                   "Play a scenario on a screen of its own, in the desktop's windows");
    app.add_option("--pictures", arguments.pictures, "The folder for its pictures and the bundle's calls")
        ->capture_default_str();
    app.add_option("--record", arguments.record,
                   "Write what you do, in the panel as well, as a scenario that `standin play` plays");
    app.footer(exit_code::Help());
}
} // namespace standin::desktop
