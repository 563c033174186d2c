#pragma once
// Whether the panel is up, as the host tells it.

#include "host/HostSuites.h"

/// What stands here before the question is the answer of a host that gives none.
struct PanelVisibility
{
    A_Boolean shown = 0;
    A_Boolean frontmost = 0;

    bool IsInFront() const { return shown != 0 && frontmost != 0; }
};

/// The text in the type that the host's panel suite takes.
const A_u_char* HostText(const char* text);

/// Asks the host about the panel of this name. An error counts for nothing: what the host stored holds.
PanelVisibility AskVisibility(const AEGP_PanelSuite1& suite, const char* matchName,
                              PanelVisibility preset = PanelVisibility());
