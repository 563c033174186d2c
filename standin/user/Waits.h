#pragma once
// Every wait of a user, each with its reason. All else is waited for until it is to be seen.

#include <chrono>

namespace standin::user::waits
{
using namespace std::chrono_literals;

/// JUCE's menus ignore clicks in their first quarter of a second. One that believes that nobody looks at it
/// closes within this time.
constexpr auto menuIgnoresClicks = 260ms;

/// Two clicks at one place make a double click if no more than this lies between them: JUCE's default.
constexpr auto doubleClick = 400ms;
/// After this they surely make none, however the clocks of the user and of the server differ.
constexpr auto noDoubleClick = doubleClick + 50ms;

/// Between two passes of the host's idle, so that the processes of server and panel get their turn.
constexpr auto betweenPasses = 4ms;

/// Nothing is missed before this has passed, and so many passes: on a busy machine little happens in a
/// second.
constexpr auto untilSeen = 10s;
constexpr int leastPasses = 50;

/// So long an expectation of a scenario or a check may take to come true, and a menu to open.
constexpr auto untilExpected = 5s;

/// So long the panel's rows may differ from what a step of a walk has done. A walk takes hundreds of steps,
/// and one that goes wrong is cut down by walking again and again.
constexpr auto untilRowsFollow = 3s;

/// For what settles in normal operation.
constexpr auto untilStill = 30s;
/// After this many passes without a change, none is under way.
constexpr int stillPasses = 8;
} // namespace standin::user::waits
