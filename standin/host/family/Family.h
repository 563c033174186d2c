#pragma once
// The simulated effects of the family, as they are installed beside the panel, and some that have
// nothing to do with it.

#include "standin/host/core/Host.h"

namespace standin
{
/// Installs the 21 family effects, well-behaved, in this order: objects, effectors, renderers, the
/// legacy effect, the main effect, the kit effect. Then the outside effects of InstallOutsiders.
void InstallFamily(Host& host);

/// "ADBE Gaussian Blur 2", "ADBE Fill" and "ADBE Tint", which answer nothing.
void InstallOutsiders(Host& host);

/// One row of the family.
struct FamilyEffect
{
    const char* matchName;
    const char* defaultName;
};

/// All rows, in the order of installation.
const std::vector<FamilyEffect>& FamilyEffects();
} // namespace standin
