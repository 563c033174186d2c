#pragma once
// The switches of the host by words, one for each way in which it can behave other than by default.

#include "standin/host/core/HostOptions.h"

#include <string>
#include <vector>

namespace standin
{
struct HostSwitch
{
    const char* word;  ///< As scenarios say it: "names-are-short".
    const char* value; ///< As the options say it: "NameLimit::published".
    void (*turn)(HostOptions&);
};

const std::vector<HostSwitch>& HostSwitches();
/// Null for a word that is no switch.
const HostSwitch* FindHostSwitch(const std::string& word);
} // namespace standin
