#pragma once
// What window managers have in common, as far as it matters to a panel: a click gives a window the focus and
// is handed on only then, and a focus that nobody has any more goes to the last window that had it.

#include "standin/process/Child.h"

namespace standin
{
class TinyWindowManager
{
public:
    /// Manages the display of the environment, in a process of its own, from when the constructor returns.
    TinyWindowManager();

private:
    process::Child manager;
};
} // namespace standin
