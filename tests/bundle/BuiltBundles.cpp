#include "tests/bundle/BuiltBundles.h"

#include <ostream>

namespace standin
{
namespace
{
const Plugin idleSuite = {"AEgx", "Vortan Idle Suite", "Vortan", 0x00010000, "EffectorAEGP", "EffectorAEGP"};
const Plugin panel = {"AEgx",     "Vortan Object Panel", "Vortan",
                      0x00010000, "PanelEntryPointFunc", "PanelEntryPointFunc"};

bool isSame(const Plugin& one, const Plugin& other)
{
    return one.kind == other.kind && one.name == other.name && one.category == other.category &&
           one.version == other.version && one.intelEntry == other.intelEntry &&
           one.siliconEntry == other.siliconEntry;
}
} // namespace

void PrintTo(const ExpectedBundle& bundle, std::ostream* out) { *out << bundle.Tree(); }

const ExpectedBundle& WholeBundle() { return AllBundles().front(); }

const std::vector<ExpectedBundle>& AllBundles()
{
    static const std::vector<ExpectedBundle> bundles = {
        {"VortanObjectPanel",
         VORTAN_BUILD_FOLDER,
         VORTAN_BUILD_FOLDER "/bundle/VortanObjectPanel",
         "com.vortan.objectpanel",
         {{16000, idleSuite}, {16001, panel}}},
        {"VortanObjectPanel",
         VORTAN_SPLIT_FOLDER,
         VORTAN_SPLIT_FOLDER "/../split-panel",
         "com.vortan.objectpanel",
         {{16000, panel}}},
        {"VortanIdleSuite",
         VORTAN_SPLIT_FOLDER,
         VORTAN_SPLIT_FOLDER "/../split-idle",
         "com.vortan.idlesuite",
         {{16000, idleSuite}}},
    };
    return bundles;
}

bool HoldsExpectedPlugins(const Bytes& resourceFile, const ExpectedBundle& bundle)
{
    const std::vector<Resource> resources = ReadResourceFile(resourceFile);
    if (resources.size() != bundle.plugins.size())
        return false;
    for (std::size_t i = 0; i < resources.size(); ++i)
    {
        const ExpectedPlugin& expected = bundle.plugins[i];
        if (resources[i].type != "PiPL" || resources[i].id != expected.id ||
            !isSame(ReadPlugin(resources[i].data), expected.plugin))
            return false;
    }
    return true;
}

bool HoldsExpectedInfo(const Bytes& infoPlist, const ExpectedBundle& bundle)
{
    return ReadInfoPlist(infoPlist) == KeysAndValues{{"CFBundleDevelopmentRegion", "en"},
                                                     {"CFBundleExecutable", bundle.name},
                                                     {"CFBundleIdentifier", bundle.identifier},
                                                     {"CFBundleInfoDictionaryVersion", "6.0"},
                                                     {"CFBundleName", bundle.name},
                                                     {"CFBundlePackageType", "AEgx"},
                                                     {"CFBundleShortVersionString", "1.0.0"},
                                                     {"CFBundleSignature", "FXTC"},
                                                     {"CFBundleVersion", "1.0.0"},
                                                     {"LSMinimumSystemVersion", "10.15"}};
}
} // namespace standin
