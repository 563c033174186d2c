// Has an object that is constructed when the host loads the module, before any call.

#include <cstdlib>

const char* Home();

namespace
{
const char* const home = std::getenv("HOME");
}

const char* Home() { return home; }
