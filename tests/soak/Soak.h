#pragma once
// Long runs of a built bundle in the stand-in: over and over the same round of work, after which the project
// is opened anew, so that all that is held should be what it was a round before.

#include "tests/soak/Growth.h"

#include "standin/host/core/Host.h"

#include <string>
#include <vector>

namespace standin
{
/// What a run leaks on purpose, once in each round, to show that it is found.
enum class Leak
{
    none,
    heap,
    reference,
    suite,
    window,
    descriptor
};

struct SoakPlan
{
    std::string bundleFile;
    long long passes = 0;
    Leak leak = Leak::none;
};

struct SoakResult
{
    long long passes = 0;
    long long edits = 0;
    std::vector<Holdings> looks;
    std::string findings; ///< The host's, and what left a hook.
};

/// Idle passes without any screen. The host's user edits, siblings call, layers are switched, the panel is
/// covered, closed and made anew.
SoakResult SoakIdle(const SoakPlan&);

/// A user at work in the panel, on an X server of its own; the host idles thirty times a second of simulated
/// time.
SoakResult SoakWork(const SoakPlan&);

/// What the host and the process hold. `windows` is for the caller. `juceWindows` is how many JUCE has made
/// of the X server's windows: it makes a colour map for each and never frees it, and Xlib keeps a record of
/// each.
Holdings HoldingsOf(Host&, int juceWindows = 0);

/// Tells the host, once and before the first round, what the panel's rules make it find.
void ExpectKeptFindings(Host&);

/// What the host has found since the last time and was not to find, a line each. The log, which would grow,
/// is empty afterwards.
std::string TakeUnexpected(Host&);

/// Leaks once. `display` is the connection to the X server, or null without one.
void MakeLeak(Leak, Host&, void* display);
} // namespace standin
