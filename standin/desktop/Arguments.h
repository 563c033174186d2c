#pragma once
// What the program was called with.

#include <optional>
#include <string>
#include <vector>

namespace CLI
{
class App;
}

namespace standin::desktop
{
struct DesktopArguments
{
    std::string bundle;                ///< Empty for the bundle beside the program.
    std::vector<std::string> effects;  ///< Modules whose effects are installed.
    std::string project;               ///< Empty for a new project with one composition and one layer.
    std::string scenario;              ///< Played on the desktop, if one is named.
    std::string pictures = ".";        ///< The folder for its pictures and the bundle's calls.
    std::optional<std::string> record; ///< The scenario that is written.
    double scale = 1;                  ///< How much larger than usual everything is drawn.
};

/// Puts the program's options on its command line. `arguments` gets what the user gives.
void AddArguments(CLI::App& app, DesktopArguments& arguments);
} // namespace standin::desktop
