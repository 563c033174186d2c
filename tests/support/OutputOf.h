#pragma once
// What a piece of a test prints.

#include "standin/process/CapturedOutput.h"

#include <string>

namespace standin
{
/// What `action` writes to standard output.
template <class Action>
std::string OutputOf(Action action)
{
    const process::CapturedOutput printed;
    action();
    return printed.Text();
}
} // namespace standin
