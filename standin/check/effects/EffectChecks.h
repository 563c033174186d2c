#pragma once
// The checks of an effect. What each holds an effect to is said in EffectChecks.cmake.

#include "standin/check/Check.h"

namespace standin::check
{
const CheckBook& EffectChecks();
} // namespace standin::check
