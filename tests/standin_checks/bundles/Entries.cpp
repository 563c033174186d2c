// Bundles that do to the process what no bundle should. The definitions LOADING,
// IDLE_SUITE_ENTRY and PANEL_ENTRY say what loading and each entry point do, in the words below.

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#ifndef LOADING
#define LOADING returnError
#endif

#define EXPORT extern "C" __attribute__((visibility("default")))

namespace
{
[[maybe_unused]] int returnError() { return 1; }

[[maybe_unused]] int crash()
{
    std::fputs("about to crash\n", stderr);
    (void)std::raise(SIGSEGV);
    return 0;
}

[[maybe_unused]] int hang()
{
    for (;;)
        (void)sleep(1);
}

[[maybe_unused]] int endTheProcess() { std::exit(0); }

[[maybe_unused]] int throwNumber() { throw 4711; }

const int loaded = LOADING();
} // namespace

#ifdef IDLE_SUITE_ENTRY
EXPORT std::int32_t EffectorAEGP(void*, std::int32_t, std::int32_t, std::int32_t, void**)
{
    return loaded + IDLE_SUITE_ENTRY();
}
#endif

#ifdef PANEL_ENTRY
EXPORT std::int32_t PanelEntryPointFunc(void*, std::int32_t, std::int32_t, std::int32_t, void**)
{
    return loaded + PANEL_ENTRY();
}
#endif
