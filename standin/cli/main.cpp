// The program `standin`: the stand-in host on the command line.

#include "standin/cli/Commands.h"
#include "standin/process/ExitCodes.h"

#include <CLI/CLI.hpp>

int main(int argc, char** argv)
{
    CLI::App app("The stand-in host for the Vortan Object Panel", "standin");
    app.require_subcommand(1);
    app.footer(
        "Exit codes: 0 all is well, 1 something failed, 2 wrong command line, 3 no such file,\n"
        "4 a scenario that cannot be read, 5 no bundle or effect, 6 a crash, 7 too slow, 8 no display.");
    int exitCode = standin::exit_code::well;
#if STANDIN_HAS_SCREEN
    standin::AddPlayCommand(app, exitCode);
    standin::AddWordsCommand(app, exitCode);
#endif
    standin::AddCheckCommand(app, exitCode);
    standin::AddCheckEffectCommand(app, exitCode);
    standin::AddCheckAloneCommands(app);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        const int code = app.exit(error);
        return code == 0 ? standin::exit_code::well : standin::exit_code::usage;
    }
    return exitCode;
}
