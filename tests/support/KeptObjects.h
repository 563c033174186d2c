#pragma once
// What the plug-in leaves to the end of the host on purpose.

#include "panel/Panelator.h"
#include "standin/host/core/Host.h"

namespace standin
{
/// Deletes the controller, its inbox and the panel that it made last, after the host has quit, so that the
/// leak sanitizer reports only real leaks. By then the suites that they release no longer count.
void DeleteKeptObjects(Host& host, Panelator* panelator);
} // namespace standin
