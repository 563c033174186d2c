// Has an object that is made when the host loads the module, before anyone calls it.

#include <cstdlib>

const char* Home();

namespace
{
const char* const home = std::getenv("HOME");
}

const char* Home() { return home; }
