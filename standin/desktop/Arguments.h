#pragma once
// What the program was called with.

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace standin
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
    bool isForHelp = false;
};

class ArgumentError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Without the program's own name. Throws ArgumentError, in words for a user.
DesktopArguments ReadArguments(const std::vector<std::string>& arguments);

/// What --help prints.
extern const char* const desktopHelp;
} // namespace standin
