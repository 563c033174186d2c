// Holds what is not so, to see that the check over the sources notices it.

#include "host/HostSuites.h"

static_assert(offsetof(SPBasicSuite, ReleaseSuite) == 4, "pointers have eight bytes on this target");
