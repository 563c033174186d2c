#pragma once
// Plays a scenario in a process of its own, so that a bundle that crashes or hangs takes nothing else with
// it.

#include "standin/script/Player.h"

namespace standin::cli
{
struct SeparateOutcome
{
    int exitCode = 0;    ///< See ExitCodes.h.
    int steps = 0;       ///< Lines that went as they should.
    std::string message; ///< Empty if all is well.
};

enum class StepsShown
{
    no,
    yes ///< Each line is printed before it is carried out.
};

/// The timeout runs from the start of the process.
SeparateOutcome PlaySeparately(const std::vector<script::Step>& steps, const script::PlayOptions& options,
                               std::chrono::seconds timeout, StepsShown shown);
} // namespace standin::cli
