#include "standin/process/ExitCodes.h"

namespace standin::exit_code
{
const std::vector<std::string>& Meanings()
{
    static const std::vector<std::string> meanings{
        "all is well",
        "a scenario, a check or the tour failed, or something was found at the host's end",
        "the command line is wrong, or names a check that does not exist",
        "a file is missing, or cannot be written",
        "a line of a scenario, or a project, cannot be understood; nothing was played",
        "the file is no bundle or no effect, lacks an entry point, or does not start",
        "the bundle crashed in a scenario, or when `check` loaded it",
        "a scenario, or the loading by `check`, took longer than `--limit` seconds",
        "the X display is missing",
        "the recording cannot be written"};
    return meanings;
}

std::string Help()
{
    std::string help = "Exit codes:\n";
    for (std::size_t code = 0; code < Meanings().size(); ++code)
        help += "  " + std::to_string(code) + "  " + Meanings()[code] + "\n";
    return help;
}
} // namespace standin::exit_code
