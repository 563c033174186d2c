#pragma once
// The checks of an effect. What each holds an effect to is said in EffectChecks.cmake.

#include "standin/checks/Check.h"

namespace standin
{
const CheckBook& EffectChecks();
} // namespace standin
