#pragma once
// The bundles that the build has made, and what each of them must hold.

#include "tests/bundle/InfoPlistReader.h"
#include "tests/bundle/PluginPropertyReader.h"

#include <iosfwd>

namespace standin
{
struct ExpectedPlugin
{
    int id;
    Plugin plugin;
};

struct ExpectedBundle
{
    std::string name;
    std::string folder;      ///< In which the tree, and on Linux the module, stands.
    std::string exportLists; ///< The folder of the linkers' lists.
    std::string identifier;
    std::vector<ExpectedPlugin> plugins;

    std::string Tree() const { return folder + "/" + name + ".plugin"; }
    std::string ResourceFile() const { return Tree() + "/Contents/Resources/" + name + ".rsrc"; }
};

void PrintTo(const ExpectedBundle&, std::ostream*);

/// The one bundle with both entry points.
const ExpectedBundle& WholeBundle();

/// The one bundle, and the two with one entry point each that stand in for it.
const std::vector<ExpectedBundle>& AllBundles();

bool HoldsExpectedPlugins(const Bytes& resourceFile, const ExpectedBundle&);
bool HoldsExpectedInfo(const Bytes& infoPlist, const ExpectedBundle&);
} // namespace standin
