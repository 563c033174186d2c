// What the bundle's entry points allocate lives as long as the host, which outlives every test.

#include "tests/support/Sanitized.h"

#if defined(VORTAN_TESTS_ARE_SANITIZED)
extern "C" const char* __lsan_default_suppressions();

extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:makeGlobalBlock\n"
           "leak:makeIdleSuite\n"
           "leak:Panelator::fillPublishedSuite\n";
}
#endif
