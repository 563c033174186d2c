#pragma once
// What the program `standin` tells the shell. The first failure decides.

namespace standin::exit_code
{
constexpr int well = 0;
constexpr int failed = 1;      ///< A scenario or a check did not go as it should.
constexpr int usage = 2;       ///< The command line says what cannot be done.
constexpr int noFile = 3;      ///< A file is not there or cannot be read.
constexpr int badScenario = 4; ///< A line of a scenario cannot be understood.
constexpr int noBundle = 5;    ///< The file is no bundle or no effect, or the bundle does not start.
constexpr int crashed = 6;     ///< The bundle took its process with it.
constexpr int timeOut = 7;     ///< It took longer than it may.
constexpr int noDisplay = 8;   ///< The X display is not there.
} // namespace standin::exit_code
