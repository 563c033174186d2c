#pragma once

/// Called from the host's loop, outside of JUCE: makes the call that CallFromHostLoop has put off, if any.
void RunWhatWaitsForHost();
