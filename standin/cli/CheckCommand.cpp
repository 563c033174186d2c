// standin check BUNDLE: judges any build of the bundle.

#include "standin/checks/CheckAlone.h"
#include "standin/checks/CheckRun.h"
#include "standin/cli/CheckPrinter.h"
#include "standin/cli/Commands.h"
#include "standin/cli/ExitCodes.h"
#include "standin/cli/OwnFiles.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>

namespace standin
{
namespace
{
struct Wishes
{
    std::string bundleFile;
    std::vector<std::string> only;
    std::uint64_t seed = 1;
    int limit = 0;
    int jobs = 2;
    bool list = false;
    bool json = false;
};

CheckRunOptions optionsFor(const Wishes& wishes)
{
    CheckRunOptions options;
    options.job = {OwnProgram(), wishes.bundleFile, wishes.seed};
    options.atATime = wishes.jobs;
    if (wishes.limit > 0)
        options.limit = std::chrono::seconds(wishes.limit);
    return options;
}

/// The checks that are wanted, in the order of the table. False, with a line for the user, for an unknown id.
bool choose(const Wishes& wishes, std::vector<Check>& chosen)
{
    for (const std::string& id : wishes.only)
        if (FindCheck(id) == nullptr)
        {
            std::cerr << id << ": there is no such check; --list names them all\n";
            return false;
        }
    for (const Check& check : AllChecks())
        if (wishes.only.empty() ||
            std::find(wishes.only.begin(), wishes.only.end(), check.id) != wishes.only.end())
            chosen.push_back(check);
    return true;
}

/// What is wrong with the file, as an exit code; `found` says it in words.
int codeOf(const CheckOutcome& outcome)
{
    switch (outcome.ending)
    {
    case Ending::crashed:
    case Ending::early:
        return exit_code::crashed;
    case Ending::tooLate:
        return exit_code::timeOut;
    case Ending::well:
        break;
    }
    return outcome.IsPassed() ? exit_code::well : exit_code::noBundle;
}

/// Whether there is anything to judge. What is not is said on standard error.
int tryFile(const Wishes& wishes)
{
    if (!std::filesystem::is_regular_file(wishes.bundleFile))
    {
        std::cerr << wishes.bundleFile << ": there is no such file\n";
        return exit_code::noFile;
    }
    const CheckOutcome outcome = TryToLoad(optionsFor(wishes));
    const int code = codeOf(outcome);
    if (code == exit_code::noBundle)
        std::cerr << outcome.found << "\n";
    else if (code != exit_code::well)
        std::cerr << wishes.bundleFile << " cannot be loaded: " << outcome.found << "\n";
    return code;
}

/// The run's own exit code: the first failure decides.
int judge(const std::vector<Check>& chosen, const Wishes& wishes, CheckPrinter& printer)
{
    CheckSummary summary{wishes.bundleFile, wishes.seed, chosen.size(), 0, 0};
    int code = exit_code::well;
    const std::size_t told = RunChecks(chosen, optionsFor(wishes),
                                       [&](const Check& check, const CheckOutcome& outcome)
                                       {
                                           printer.Tell(check, outcome);
                                           ++summary.run;
                                           summary.failed += outcome.IsPassed() ? 0 : 1;
                                           if (code != exit_code::well || outcome.IsPassed())
                                               return;
                                           code = outcome.report.word == Word::noDisplay
                                                      ? exit_code::noDisplay
                                                      : exit_code::failed;
                                       });
    printer.End(summary);
    if (told == chosen.size() && summary.run == chosen.size())
        return code;
    std::cerr << chosen.size() << " checks were to be run, and " << summary.run << " were\n";
    return exit_code::failed;
}

int check(const Wishes& wishes)
{
    if (wishes.list)
    {
        std::cout << (wishes.json ? CheckListAsJson() : CheckList());
        return exit_code::well;
    }
    std::vector<Check> chosen;
    if (wishes.bundleFile.empty() || !choose(wishes, chosen))
    {
        if (wishes.bundleFile.empty())
            std::cerr << "name the bundle that is to be judged\n";
        return exit_code::usage;
    }
    if (const int code = tryFile(wishes); code != exit_code::well)
        return code;
    const auto printer = wishes.json ? MakeJsonPrinter() : MakeLinePrinter(wishes.bundleFile, wishes.seed);
    return judge(chosen, wishes, *printer);
}
} // namespace

void AddCheckCommand(CLI::App& app, int& exitCode)
{
    auto wishes = std::make_shared<Wishes>();
    CLI::App* command =
        app.add_subcommand("check", "Judge a build of the bundle, each check in a process of its own");
    command->add_option("BUNDLE", wishes->bundleFile, "The bundle that is judged");
    command->add_flag("--list", wishes->list, "Print the checks' ids and sentences, and judge nothing");
    command->add_option("--only", wishes->only, "Run these checks alone");
    command->add_option("--seed", wishes->seed, "The seed of the random walks")->capture_default_str();
    command
        ->add_option("--limit", wishes->limit, "Seconds that each check may take, in place of its own limit")
        ->check(CLI::PositiveNumber);
    command->add_option("--jobs", wishes->jobs, "Checks that run at a time")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    command->add_flag("--json", wishes->json, "Print one JSON document in place of lines");
    command->callback([wishes, &exitCode] { exitCode = check(*wishes); });
}

void AddCheckAloneCommand(CLI::App& app)
{
    struct Wish
    {
        std::string bundleFile;
        std::string id;
        std::uint64_t seed = 1;
    };
    auto wish = std::make_shared<Wish>();
    CLI::App* command = app.add_subcommand(aloneCommand, "")->group("");
    command->add_option("BUNDLE", wish->bundleFile)->required();
    command->add_option("ID", wish->id)->required();
    command->add_option("SEED", wish->seed)->required();
    command->callback([wish] { RunCheckAlone(wish->bundleFile, wish->id, wish->seed); });
}
} // namespace standin
