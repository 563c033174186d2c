// Asserts a wrong offset, which the check of the sources has to notice.

#include "host/HostSuites.h"

static_assert(offsetof(SPBasicSuite, ReleaseSuite) == 4, "pointers have eight bytes on this target");
