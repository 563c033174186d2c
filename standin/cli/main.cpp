// The program `standin`: the stand-in host on the command line.

#include "standin/cli/Commands.h"
#include "standin/process/ExitCodes.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <exception>

namespace
{
int run(int argc, char** argv)
{
    CLI::App app("The stand-in host for the Vortan Object Panel", "standin");
    app.require_subcommand(1);
    app.footer(standin::exit_code::Help());
    int exitCode = standin::exit_code::well;
#if STANDIN_HAS_SCREEN
    standin::cli::AddPlayCommand(app, exitCode);
    standin::cli::AddWordsCommand(app, exitCode);
#endif
    standin::cli::AddCheckCommand(app, exitCode);
    standin::cli::AddCheckEffectCommand(app, exitCode);
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
} // namespace

int main(int argc, char** argv)
{
    try
    {
        return run(argc, argv);
    }
    catch (const std::exception& error)
    {
        (void)std::fprintf(stderr, "standin: %s\n", error.what());
        return standin::exit_code::failed;
    }
}
