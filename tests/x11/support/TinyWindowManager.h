#pragma once
// What window managers have in common, as far as it matters to a panel: a click gives a window the focus
// before it is passed on, and a lost focus goes back to the last window that had it.

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
