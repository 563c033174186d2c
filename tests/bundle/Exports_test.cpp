#include "tests/support/ProgramRun.h"

#include <algorithm>

namespace standin
{
namespace
{
/// The names of the dynamic symbols that the module defines, sorted.
std::vector<std::string> exportsOf(const std::string& module)
{
    std::vector<std::string> names;
    for (const std::string& line : LinesOf({"nm", "-D", "--defined-only", module}))
    {
        const std::vector<std::string> words = WordsOf(line); // An address, a kind and a name.
        names.push_back(words.at(1) + " " + words.at(2));
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
