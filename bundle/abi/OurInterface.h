#pragma once
// The host's interface as this project declares it, in a namespace of its own, so that the host's own
// headers can stand beside it. Comes before those: a name that is a macro there is a constant here.

#include <cstddef>
#include <cstdint>

namespace ours
{
#include "host/HostSuites.h"
}
