#include "standin/cli/OwnFiles.h"

#include <filesystem>

#ifdef __APPLE__
#include <mach-o/dyld.h>
#endif

namespace standin::cli
{
namespace
{
/// The file of this program.
std::string ownProgram()
{
#ifdef __APPLE__
    char name[4096];
    uint32_t size = sizeof name;
    return _NSGetExecutablePath(name, &size) == 0 ? name : "";
#else
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
#endif
}
} // namespace

std::string BuiltBundle()
{
    const auto build = std::filesystem::path(ownProgram()).parent_path().parent_path();
#ifdef __APPLE__
    return (build / "VortanObjectPanel.plugin/Contents/MacOS/VortanObjectPanel").string();
#else
    return (build / "VortanObjectPanel.so").string();
#endif
}
} // namespace standin::cli
