#include "tests/apple/ModuleTree.h"

#include "tests/apple/MachOModule.h"
#include "tests/bundle/InfoPlistReader.h"
#include "tests/bundle/PluginPropertyReader.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace standin
{
namespace
{
std::string valueOf(const KeysAndValues& info, const std::string& wanted)
{
    for (const auto& [key, value] : info)
        if (key == wanted)
            return value;
    throw std::runtime_error("Info.plist has no " + wanted);
}

/// The resource has a key for each architecture, and the key names the function.
std::string entryFor(const std::string& architecture, const Plugin& plugin)
{
    return architecture == "arm64" ? plugin.siliconEntry : plugin.intelEntry;
}

class TreeFaults
{
public:
    explicit TreeFaults(const std::string& tree) : contents(tree + "/Contents/") {}

    void FollowInfo()
    {
        const KeysAndValues info = ReadInfoPlist(ReadFile(contents + "Info.plist"));
        const std::string executable = valueOf(info, "CFBundleExecutable");
        const Bytes package = ReadFile(contents + "PkgInfo");
        if (std::string(package.begin(), package.end()) !=
            valueOf(info, "CFBundlePackageType") + valueOf(info, "CFBundleSignature"))
            found.push_back("PkgInfo says something else than Info.plist");
        if (!std::filesystem::is_regular_file(contents + "MacOS/" + executable))
        {
            found.push_back("there is no MacOS/" + executable);
            return;
        }
        const std::vector<MachOSlice> module = ReadMachOModule(contents + "MacOS/" + executable);
        compareVersions(module, valueOf(info, "LSMinimumSystemVersion"));
        followResource(module, contents + "Resources/" + executable + ".rsrc");
    }

    std::vector<std::string> found;

private:
    void compareVersions(const std::vector<MachOSlice>& module, const std::string& oldestSystem)
    {
        if (std::none_of(module.begin(), module.end(),
                         [&](const MachOSlice& slice) { return slice.oldestSystem == oldestSystem; }))
            found.push_back("no code is for macOS " + oldestSystem);
    }

    void followResource(const std::vector<MachOSlice>& module, const std::string& file)
    {
        for (const Resource& resource : ReadResourceFile(ReadFile(file)))
            for (const char* const architecture : {"x86_64", "arm64"})
                demandEntry(module, architecture, "_" + entryFor(architecture, ReadPlugin(resource.data)));
    }

    void demandEntry(const std::vector<MachOSlice>& module, const std::string& architecture,
                     const std::string& symbol)
    {
        const bool isThere =
            std::any_of(module.begin(), module.end(),
                        [&](const MachOSlice& slice)
                        {
                            return slice.architecture == architecture &&
                                   std::binary_search(slice.exports.begin(), slice.exports.end(), symbol);
                        });
        if (!isThere)
            found.push_back("no " + symbol + " for " + architecture);
    }

    std::string contents;
};
} // namespace

std::vector<std::string> FindTreeFaults(const std::string& tree)
{
    TreeFaults faults(tree);
    faults.FollowInfo();
    return faults.found;
}
} // namespace standin
