#include "tests/apple/ModuleTree.h"

#include "tests/bundle/BuiltBundles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace standin
{
namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

namespace files = std::filesystem;

const std::string tree = VORTAN_MODULE_TREE;

/// A copy of the tree that a test alters.
class AlteredTree : public testing::Test
{
protected:
    AlteredTree()
    {
        files::remove_all(altered);
        files::create_directories(files::path(altered).parent_path());
        files::copy(tree, altered, files::copy_options::recursive);
    }

    void TakeModule(const std::string& wrong)
    {
        files::copy_file(VORTAN_WRONG_MODULES "/" + wrong, altered + "/Contents/MacOS/VortanObjectPanel",
                         files::copy_options::overwrite_existing);
    }

    const std::string altered =
        VORTAN_ALTERED_TREES "/" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST(ModuleTree, IsMarkedAsNotLoadable) { EXPECT_NE(tree.find("/not-loadable/"), std::string::npos); }

TEST(ModuleTree, HoldsWhatTheBundleHolds)
{
    const ExpectedBundle& bundle = WholeBundle();
    EXPECT_TRUE(HoldsExpectedInfo(ReadFile(tree + "/Contents/Info.plist"), bundle));
    EXPECT_TRUE(HoldsExpectedPlugins(ReadFile(tree + "/Contents/Resources/VortanObjectPanel.rsrc"), bundle));
}

TEST(ModuleTree, LeadsTheHostToBothEntryPoints) { EXPECT_THAT(FindTreeFaults(tree), IsEmpty()); }

TEST_F(AlteredTree, LacksItsExecutableUnderAnotherName)
{
    files::rename(altered + "/Contents/MacOS/VortanObjectPanel", altered + "/Contents/MacOS/ObjectPanel");

    EXPECT_THAT(FindTreeFaults(altered), ElementsAre("there is no MacOS/VortanObjectPanel"));
}

TEST_F(AlteredTree, LacksTheEntriesOfAnArchitectureWithoutCode)
{
    TakeModule("one-architecture");

    EXPECT_THAT(FindTreeFaults(altered),
                ElementsAre("no code is for macOS 10.15", "no _EffectorAEGP for x86_64",
                            "no _PanelEntryPointFunc for x86_64"));
}

TEST_F(AlteredTree, LacksAnEntryThatIsNotExported)
{
    TakeModule("missing-root");

    EXPECT_THAT(FindTreeFaults(altered),
                ElementsAre("no _EffectorAEGP for x86_64", "no _EffectorAEGP for arm64"));
}

TEST_F(AlteredTree, DiffersInItsKindOfPackage)
{
    std::ofstream(altered + "/Contents/PkgInfo") << "BNDL????";

    EXPECT_THAT(FindTreeFaults(altered), ElementsAre("PkgInfo says something else than Info.plist"));
}

} // namespace
} // namespace standin
