// standin check BUNDLE: judges any build of the bundle. standin check-effect MODULE: judges an effect.

#include "standin/checks/CheckAlone.h"
#include "standin/checks/CheckRun.h"
#include "standin/cli/CheckPrinter.h"
#include "standin/cli/Commands.h"
#include "standin/process/ExitCodes.h"
#include "standin/cli/OwnFiles.h"
#include "standin/effect_checks/EffectChecks.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iostream>

namespace standin
{
namespace
{
struct Wishes
{
    const CheckBook* book = nullptr;
    std::string file;
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
    options.job = {OwnProgram(), wishes.file, wishes.book, wishes.seed};
    options.atATime = wishes.jobs;
    if (wishes.limit > 0)
        options.limit = std::chrono::seconds(wishes.limit);
    return options;
}

/// The checks that are wanted, in the order of the table. False, with a line for the user, for an unknown id.
bool choose(const Wishes& wishes, std::vector<Check>& chosen)
{
    for (const std::string& id : wishes.only)
        if (wishes.book->Find(id) == nullptr)
        {
            std::cerr << id << ": there is no such check; --list names them all\n";
            return false;
        }
    for (const Check& check : *wishes.book->checks)
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
    if (!std::filesystem::is_regular_file(wishes.file))
    {
        std::cerr << wishes.file << ": there is no such file\n";
        return exit_code::noFile;
    }
    const CheckOutcome outcome = TryToLoad(optionsFor(wishes));
    const int code = codeOf(outcome);
    if (code == exit_code::noBundle)
        std::cerr << outcome.found << "\n";
    else if (code != exit_code::well)
        std::cerr << wishes.file << " cannot be loaded: " << outcome.found << "\n";
    return code;
}

/// The run's own exit code: the first failure decides.
int judge(const std::vector<Check>& chosen, const Wishes& wishes, CheckPrinter& printer)
{
    CheckSummary summary{chosen.size(), 0, 0};
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
        std::cout << (wishes.json ? CheckListAsJson(*wishes.book) : CheckList(*wishes.book));
        return exit_code::well;
    }
    std::vector<Check> chosen;
    if (wishes.file.empty() || !choose(wishes, chosen))
    {
        if (wishes.file.empty())
            std::cerr << "name the " << wishes.book->kind << " that is to be judged\n";
        return exit_code::usage;
    }
    if (const int code = tryFile(wishes); code != exit_code::well)
        return code;
    const CheckJob job = optionsFor(wishes).job;
    const auto printer = wishes.json ? MakeJsonPrinter(job) : MakeLinePrinter(job);
    return judge(chosen, wishes, *printer);
}
CLI::App& addCommand(CLI::App& app, int& exitCode, const CheckBook& book, const std::string& file,
                     const std::string& help, const std::shared_ptr<Wishes>& wishes)
{
    wishes->book = &book;
    CLI::App* command = app.add_subcommand(book.command, help);
    command->add_option(file, wishes->file, std::string("The ") + book.kind + " that is judged");
    command->add_flag("--list", wishes->list, "Print the checks' ids and sentences, and judge nothing");
    command->add_option("--only", wishes->only, "Run these checks alone");
    command
        ->add_option("--limit", wishes->limit, "Seconds that each check may take, in place of its own limit")
        ->check(CLI::PositiveNumber);
    command->add_option("--jobs", wishes->jobs, "Checks that run at a time")
        ->check(CLI::PositiveNumber)
        ->capture_default_str();
    command->add_flag("--json", wishes->json, "Print one JSON document in place of lines");
    command->callback([wishes, &exitCode] { exitCode = check(*wishes); });
    return *command;
}

/// No user sees it.
void addAloneCommand(CLI::App& app, const CheckBook& book)
{
    struct Wish
    {
        std::string file;
        std::string id;
        std::uint64_t seed = 1;
    };
    auto wish = std::make_shared<Wish>();
    CLI::App* command = app.add_subcommand(book.aloneCommand, "")->group("");
    command->add_option("FILE", wish->file)->required();
    command->add_option("ID", wish->id)->required();
    command->add_option("SEED", wish->seed)->required();
    command->callback([wish, &book] { RunCheckAlone(book, wish->file, wish->id, wish->seed); });
}
} // namespace

void AddCheckCommand(CLI::App& app, int& exitCode)
{
    auto wishes = std::make_shared<Wishes>();
    addCommand(app, exitCode, BundleChecks(), "BUNDLE",
               "Judge a build of the bundle, each check in a process of its own", wishes)
        .add_option("--seed", wishes->seed, "The seed of the random walks")
        ->capture_default_str();
}

void AddCheckEffectCommand(CLI::App& app, int& exitCode)
{
    (void)addCommand(app, exitCode, EffectChecks(), "MODULE",
                     "Judge an effect of the family, each check in a process of its own",
                     std::make_shared<Wishes>());
}

void AddCheckAloneCommands(CLI::App& app)
{
    addAloneCommand(app, BundleChecks());
    addAloneCommand(app, EffectChecks());
}
} // namespace standin
