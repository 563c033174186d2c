// standin play FILE...: plays scenarios.

#include "standin/cli/Commands.h"
#include "standin/cli/OwnFiles.h"
#include "standin/cli/SeparatePlay.h"
#include "standin/process/ExitCodes.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>

namespace standin::cli
{
namespace
{
struct PlayArguments
{
    std::vector<std::string> files;
    script::PlayOptions play;
    int timeout = 120;
    bool ownDisplay = false;
    bool verbose = false;
    bool checkOnly = false;
};

/// A file that is not there is another matter than one that says nonsense.
int readAll(const PlayArguments& options, std::vector<std::vector<script::Step>>& scenarios)
{
    for (const std::string& file : options.files)
    {
        if (!std::filesystem::is_regular_file(file))
        {
            std::cerr << file << ": there is no such file\n";
            return exit_code::noFile;
        }
        try
        {
            scenarios.push_back(script::ReadScenario(file));
        }
        catch (const script::ScenarioError& error)
        {
            std::cerr << error.what() << "\n";
            return exit_code::badInput;
        }
    }
    return exit_code::well;
}

int playOne(const std::string& file, const std::vector<script::Step>& steps, const PlayArguments& options)
{
    const SeparateOutcome outcome = PlaySeparately(steps, options.play, std::chrono::seconds(options.timeout),
                                                   options.verbose ? StepsShown::yes : StepsShown::no);
    if (outcome.exitCode == exit_code::well)
        std::cout << "passed  " << file << " (" << outcome.steps << " lines)" << std::endl;
    else
    {
        std::cout << "FAILED  " << file << std::endl;
        std::cerr << outcome.message << std::endl;
    }
    return outcome.exitCode;
}

int playAll(const PlayArguments& options)
{
    std::vector<std::vector<script::Step>> scenarios;
    if (const int code = readAll(options, scenarios); code != exit_code::well)
        return code;
    if (options.checkOnly)
        return exit_code::well;
    if (!std::filesystem::is_regular_file(options.play.bundleFile))
    {
        std::cerr << options.play.bundleFile << ": there is no such file; name the bundle with --bundle\n";
        return exit_code::noFile;
    }
    // The scenarios' processes write one after the other.
    if (const std::string& trace = options.play.traceFile; !trace.empty() && !std::ofstream(trace))
    {
        std::cerr << trace << ": the trace cannot be written\n";
        return exit_code::noFile;
    }
    int first = exit_code::well;
    int failed = 0;
    for (std::size_t i = 0; i < scenarios.size(); ++i)
    {
        const int code = playOne(options.files[i], scenarios[i], options);
        first = first == exit_code::well ? code : first;
        failed += code == exit_code::well ? 0 : 1;
    }
    std::cout << scenarios.size() - static_cast<std::size_t>(failed) << " passed, " << failed << " failed"
              << std::endl;
    return first;
}
} // namespace

void AddPlayCommand(CLI::App& app, int& exitCode)
{
    auto options = std::make_shared<PlayArguments>();
    options->play.bundleFile = BuiltBundle();
    CLI::App* play =
        app.add_subcommand("play", "Play scenarios: plain text, one action or expectation a line");
    play->add_option("FILE", options->files, "Scenarios, played one after the other")->required();
    play->add_option("--bundle", options->play.bundleFile, "The bundle that is played with")
        ->capture_default_str();
    play->add_option("--pictures", options->play.pictures,
                     "The folder for pictures, and for the screen at a failure")
        ->capture_default_str();
    play->add_option("--trace", options->play.traceFile,
                     "A file for all host calls, below the lines that began them");
    play->add_option("--limit", options->timeout, "Seconds that a scenario may take")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    play->add_flag("--own-display", options->ownDisplay,
                   "Start an X server without a screen even if DISPLAY names one");
    play->add_flag("--verbose", options->verbose, "Print each line as it is carried out");
    play->add_flag("--check", options->checkOnly, "Only read the scenarios");
    play->callback(
        [options, &exitCode]
        {
            if (options->ownDisplay)
                options->play.display = user::DisplayChoice::own;
            exitCode = playAll(*options);
        });
}

void AddWordsCommand(CLI::App& app, int& exitCode)
{
    CLI::App* words = app.add_subcommand("words", "Print every line that a scenario can say");
    words->callback(
        [&exitCode]
        {
            std::cout << script::PhraseReference();
            exitCode = exit_code::well;
        });
}
} // namespace standin::cli
