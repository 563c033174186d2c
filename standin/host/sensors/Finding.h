#pragma once
// What the stand-in saw and a well-made plug-in would not do.

#include <string>

namespace standin
{
struct Finding
{
    std::string id;       ///< For example "leaked-reference"; see FindingIds.h.
    std::string sentence; ///< What happened, for a reader.
    std::string call;     ///< The call that did it, as in the trace. Empty outside any call.
    std::string function; ///< The function of that call, for example "AEGP_DisposeEffect".
    std::string origin;   ///< What the run was doing: a seed or a scenario line, if one was set.
    std::string hook{};   ///< The hook that ran: "IdleHook". Empty outside those of plug-ins.

    /// All of it on one line.
    std::string Text() const;
};
} // namespace standin
