#pragma once
// How a scenario calls an effect of the project.

#include "standin/host/core/Host.h"

#include <string>

namespace standin::script
{
/// Its name, and "#2" after it if it is the second of it on its layer.
std::string ScenarioNameOf(Host& host, int effectId);
} // namespace standin::script
