// soak idle PASSES [--leak WHAT]      idle passes and edits without a screen
// soak work SECONDS [--leak WHAT]     so many seconds of a user's work, at thirty passes each
//
// Counts what is held over the run, prints each count and what grows. The exit code is 0 only if nothing
// grows and the host has found nothing. --leak leaks on purpose, to show that it is found: heap, reference,
// suite, window, descriptor.

#include "tests/soak/Soak.h"

#include "standin/process/Silence.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <map>
#include <unistd.h>

using namespace standin;

namespace
{
const std::map<std::string, Leak> leaks{{"heap", Leak::heap},
                                        {"reference", Leak::reference},
                                        {"suite", Leak::suite},
                                        {"window", Leak::window},
                                        {"descriptor", Leak::descriptor}};

int usage()
{
    std::fputs("soak idle PASSES | work SECONDS [--leak heap|reference|suite|window|descriptor]\n", stderr);
    return 2;
}

bool isWell(const SoakResult& result, std::string& found)
{
    found = Growth(result.looks) + result.findings;
    return found.empty();
}

/// The panel prints a line for much of what it does.
SoakResult runInSilence(bool isWork, const SoakPlan& plan)
{
    const process::Silence silence;
    return isWork ? SoakWork(plan) : SoakIdle(plan);
}

/// The C library counts cached free blocks as in use, so the heap seems to grow until it has enough of each
/// size. It can be told to cache none, before a program starts.
void startWithoutSpareBlocks(char** argv)
{
    constexpr const char* options = "GLIBC_TUNABLES";
    if (std::getenv(options) != nullptr)
        return;
    (void)setenv(options, "glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0", 1);
    (void)execv("/proc/self/exe", argv);
}

int soak(bool isWork, const SoakPlan& plan)
{
    const SoakResult result = runInSilence(isWork, plan);
    std::string found;
    const bool well = isWell(result, found);
    const auto& looks = result.looks;
    for (std::size_t look = 0; look < looks.size(); ++look)
        std::printf("  look %2zu: %s\n", look + 1, TextOf(looks[look]).c_str());
    std::printf("%s%lld passes, %lld edits: %s\n", found.c_str(), result.passes, result.edits,
                well ? "nothing grows" : "FAILED");
    return well ? 0 : 1;
}
} // namespace

int main(int argc, char** argv)
{
    constexpr long long passesOfASecond = 30;
    if (argc != 3 && !(argc == 5 && std::string(argv[3]) == "--leak" && leaks.count(argv[4]) == 1))
        return usage();
    const std::string part = argv[1];
    const long long amount = std::atoll(argv[2]);
    if ((part != "idle" && part != "work") || amount <= 0)
        return usage();
    startWithoutSpareBlocks(argv);
    SoakPlan plan{VORTAN_BUNDLE, part == "work" ? amount * passesOfASecond : amount};
    if (argc == 5)
        plan.leak = leaks.at(argv[4]);
    try
    {
        return soak(part == "work", plan);
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "soak: %s\n", error.what());
        return 1;
    }
}
