#include "tests/bundle/BuiltBundles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace standin
{
namespace
{
/// The names of the dynamic symbols that the module defines, sorted.
std::vector<std::string> exportsOf(const std::string& module)
{
    const std::string command = "nm -D --defined-only '" + module + "'";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (pipe == nullptr)
        throw std::runtime_error("nm does not run");
    std::vector<std::string> names;
    char line[512];
    while (std::fgets(line, sizeof line, pipe.get()) != nullptr)
    {
        std::istringstream words(line);
        std::string address;
        std::string kind;
        std::string name;
        words >> address >> kind >> name;
        names.push_back(kind + " " + name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(Module, OfTheWholeBundleExportsTwoEntryPoints)
{
    EXPECT_EQ(exportsOf(VORTAN_BUILD_FOLDER "/VortanObjectPanel.so"),
              (std::vector<std::string>{"T EffectorAEGP", "T PanelEntryPointFunc"}));
}

TEST(Module, OfEachSplitBundleExportsOneEntryPoint)
{
    EXPECT_EQ(exportsOf(VORTAN_SPLIT_FOLDER "/VortanObjectPanel.so"),
              std::vector<std::string>{"T PanelEntryPointFunc"});
    EXPECT_EQ(exportsOf(VORTAN_SPLIT_FOLDER "/VortanIdleSuite.so"),
              std::vector<std::string>{"T EffectorAEGP"});
}

} // namespace
} // namespace standin
