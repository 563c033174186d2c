#pragma once
// The commands of the program `standin`. Each adds itself to the command line; when it is the one that the
// user wants, it runs and puts what the shell is to be told into `exitCode`.

namespace CLI
{
class App;
}

namespace standin::cli
{
#if STANDIN_HAS_SCREEN
void AddPlayCommand(CLI::App& app, int& exitCode);
void AddWordsCommand(CLI::App& app, int& exitCode);
#endif
void AddCheckCommand(CLI::App& app, int& exitCode);
void AddCheckEffectCommand(CLI::App& app, int& exitCode);
} // namespace standin::cli
