#include "standin/host/bundle/OpenModule.h"

#include <dlfcn.h>
#include <filesystem>
#include <stdexcept>

namespace standin
{
/// dlopen looks a bare name up in the system's folders, and a path where it is.
void* OpenModule(const std::string& file, const std::string& kind)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        throw std::runtime_error(file + ": there is no such file");
    void* module = dlopen(std::filesystem::absolute(file).c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr)
        throw std::runtime_error(file + " is no " + kind + ": " + dlerror());
    return module;
}
} // namespace standin
