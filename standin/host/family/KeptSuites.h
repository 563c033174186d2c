#pragma once
// The suites that the panel's plug-in holds until the process ends.

namespace standin
{
class Host;

/// Called before the host quits: it reports each of these suites, and no other, as often as the plug-in and
/// its panels hold it. A host without the panel expects nothing. `madeBeside` counts the panels whose create
/// hook was called by somebody other than the host.
void ExpectKeptSuites(Host& host, int madeBeside = 0);
} // namespace standin
