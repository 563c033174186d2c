// Keeps GNUstep's hands off the user's home folder. GNUstep takes its environment over when it is loaded,
// so the program starts itself once more with a configuration of its own.

#include <cstdlib>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace
{
std::vector<std::string> ownArguments()
{
    std::ifstream file("/proc/self/cmdline", std::ios::binary);
    std::vector<std::string> arguments;
    for (std::string argument; std::getline(file, argument, '\0');)
        arguments.push_back(argument);
    return arguments;
}

bool startOnceMore()
{
    constexpr const char* variable = "GNUSTEP_CONFIG_FILE";
    const char* const configured = std::getenv(variable);
    if (configured != nullptr && std::string(configured) == VORTAN_GNUSTEP_CONFIGURATION)
        return false;
    setenv(variable, VORTAN_GNUSTEP_CONFIGURATION, 1);
    std::vector<std::string> arguments = ownArguments();
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    (void)execv("/proc/self/exe", pointers.data());
    return true;
}

[[maybe_unused]] const bool isStartedOnceMore = startOnceMore();
} // namespace
