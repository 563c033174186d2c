// standin check BUNDLE: judges any build of the bundle. standin check-effect MODULE: judges an effect.

#include "standin/check/CheckAlone.h"
#include "standin/check/CheckRun.h"
#include "standin/check/effects/EffectChecks.h"
#include "standin/cli/CheckPrinter.h"
#include "standin/cli/Commands.h"
#include "standin/process/ExitCodes.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>
#include <unistd.h>

namespace standin::cli
{
namespace
{
struct Options
{
    check::CheckRunOptions run;
    std::vector<std::string> only;
    int timeout = 0;
    bool list = false;
    bool json = false;
    bool here = false;

    const check::CheckBook& Book() const { return *run.job.book; }
};

/// The checks that are wanted, in the order of the table. False, with a line for the user, for an unknown id.
bool choose(const Options& options, std::vector<check::Check>& chosen)
{
    for (const std::string& id : options.only)
        if (options.Book().Find(id) == nullptr)
        {
            std::cerr << id << ": there is no such check; --list names them all\n";
            return false;
        }
    for (const check::Check& check : options.Book().checks)
        if (options.only.empty() ||
            std::find(options.only.begin(), options.only.end(), check.id) != options.only.end())
            chosen.push_back(check);
    return true;
}

/// Whether there is anything to judge. What is not is said on standard error.
int tryFile(const Options& options)
{
    const std::string& file = options.run.job.file;
    if (!std::filesystem::is_regular_file(file))
    {
        std::cerr << file << ": there is no such file\n";
        return exit_code::noFile;
    }
    const check::CheckOutcome outcome = check::TryToLoad(options.run);
    if (outcome.code == exit_code::noBundle)
        std::cerr << outcome.found << "\n";
    else if (!outcome.IsPassed())
        std::cerr << file << " cannot be loaded: " << outcome.found << "\n";
    return outcome.code;
}

/// The run's own exit code: the first failure decides.
int judge(const std::vector<check::Check>& chosen, const Options& options, CheckPrinter& printer)
{
    CheckSummary summary{chosen.size(), 0, 0};
    int code = exit_code::well;
    const std::size_t told = check::RunChecks(
        chosen, options.run,
        [&](const check::Check& check, const check::CheckOutcome& outcome)
        {
            printer.Tell(check, outcome);
            ++summary.run;
            summary.failed += outcome.IsPassed() ? 0 : 1;
            if (code != exit_code::well || outcome.IsPassed())
                return;
            code = outcome.code == exit_code::noDisplay ? exit_code::noDisplay : exit_code::failed;
        });
    printer.End(summary);
    if (told == chosen.size() && summary.run == chosen.size())
        return code;
    std::cerr << chosen.size() << " checks were to be run, and " << summary.run << " were\n";
    return exit_code::failed;
}

int check(const Options& options)
{
    const check::CheckJob& job = options.run.job;
    if (options.list)
    {
        std::cout << (options.json ? CheckListAsJson(*job.book) : CheckList(*job.book));
        return exit_code::well;
    }
    std::vector<check::Check> chosen;
    if (job.file.empty() || !choose(options, chosen))
    {
        if (job.file.empty())
            std::cerr << "name the " << job.book->kind << " that is to be judged\n";
        return exit_code::usage;
    }
    if (options.here && chosen.size() != 1)
    {
        std::cerr << "--here runs one check; name it with --only\n";
        return exit_code::usage;
    }
    if (options.here) // What the bundle prints is taken from standard output, the report is not.
        check::RunCheckAlone(job, chosen.front().id, dup(STDOUT_FILENO));
    if (const int code = tryFile(options); code != exit_code::well)
        return code;
    const auto printer = options.json ? MakeJsonPrinter(job) : MakeLinePrinter(job);
    return judge(chosen, options, *printer);
}

CLI::App& addCommand(CLI::App& app, int& exitCode, const std::string& file, const std::string& help,
                     const std::shared_ptr<Options>& options)
{
    check::CheckRunOptions& run = options->run;
    CLI::App* command = app.add_subcommand(options->Book().command, help);
    command->add_option(file, run.job.file, std::string("The ") + options->Book().kind + " that is judged");
    command->add_flag("--list", options->list, "Print the checks' ids and sentences, and judge nothing");
    command->add_option("--only", options->only, "Run these checks alone");
    command
        ->add_option("--limit", options->timeout,
                     "Seconds that each check may take, in place of its own limit")
        ->check(CLI::PositiveNumber);
    command->add_option("--jobs", run.atATime, "Checks that run at a time")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    command->add_flag("--json", options->json, "Print one JSON document in place of lines");
    command->add_flag("--here", options->here, "Run the one check in this process, for a debugger");
    command->callback(
        [options, &exitCode]
        {
            if (options->timeout > 0)
                options->run.timeout = std::chrono::seconds(options->timeout);
            exitCode = check(*options);
        });
    return *command;
}

std::shared_ptr<Options> optionsFor(const check::CheckBook& book)
{
    auto options = std::make_shared<Options>();
    options->run.job.book = &book;
    return options;
}
} // namespace

void AddCheckCommand(CLI::App& app, int& exitCode)
{
    const auto options = optionsFor(check::BundleChecks());
    addCommand(app, exitCode, "BUNDLE", "Judge a build of the bundle, each check in a process of its own",
               options)
        .add_option("--seed", options->run.job.seed, "The seed of the random walks")
        ->capture_default_str();
}

void AddCheckEffectCommand(CLI::App& app, int& exitCode)
{
    (void)addCommand(app, exitCode, "MODULE",
                     "Judge an effect of the family, each check in a process of its own",
                     optionsFor(check::EffectChecks()));
}
} // namespace standin::cli
