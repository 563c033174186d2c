#include "tests/bundle/Alterations.h"
#include "tests/bundle/BuiltBundles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace standin
{

namespace
{
using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::string textOf(const std::string& path)
{
    const Bytes bytes = ReadFile(path);
    return std::string(bytes.begin(), bytes.end());
}

std::vector<std::string> filesIn(const std::string& folder)
{
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (!entry.is_directory())
            files.push_back(std::filesystem::relative(entry.path(), folder).string());
    return files;
}

class BuiltBundle : public testing::TestWithParam<ExpectedBundle>
{
protected:
    const ExpectedBundle& bundle = GetParam();
};

#if !defined(__APPLE__)
TEST_P(BuiltBundle, HasExactlyItsFilesWithoutTheExecutable)
{
    EXPECT_THAT(filesIn(bundle.Tree()), UnorderedElementsAre("Contents/Info.plist", "Contents/PkgInfo",
                                                             "Contents/Resources/" + bundle.name + ".rsrc"));
}
#else
TEST_P(BuiltBundle, HasExactlyItsFilesExecutableAndSeal)
{
    EXPECT_THAT(filesIn(bundle.Tree()), UnorderedElementsAre("Contents/Info.plist", "Contents/PkgInfo",
                                                             "Contents/Resources/" + bundle.name + ".rsrc",
                                                             "Contents/MacOS/" + bundle.name,
                                                             "Contents/_CodeSignature/CodeResources"));
}
#endif

TEST_P(BuiltBundle, IsAPackageOfTheHostsKind)
{
    EXPECT_EQ(textOf(bundle.Tree() + "/Contents/PkgInfo"), "AEgxFXTC");
}

TEST_P(BuiltBundle, TellsWhatItIsInItsInfo)
{
    EXPECT_TRUE(HoldsExpectedInfo(ReadFile(bundle.Tree() + "/Contents/Info.plist"), bundle));
}

TEST_P(BuiltBundle, NamesItsEntryPointsInItsResource)
{
    EXPECT_TRUE(HoldsExpectedPlugins(ReadFile(bundle.ResourceFile()), bundle));
}

TEST_P(BuiltBundle, ExportsTheEntryPointsOfItsResource)
{
    std::string forMacOS;
    std::string forLinux;
    for (const Resource& resource : ReadResourceFile(ReadFile(bundle.ResourceFile())))
    {
        forMacOS += "_" + ReadPlugin(resource.data).intelEntry + "\n";
        forLinux += "    " + ReadPlugin(resource.data).intelEntry + ";\n";
    }

    EXPECT_EQ(textOf(bundle.exportLists + "/exports.txt"), forMacOS);
    EXPECT_EQ(textOf(bundle.exportLists + "/exports.map"),
              "{\n  global:\n" + forLinux + "  local:\n    *;\n};\n");
}

TEST_P(BuiltBundle, FailsWithAnyResourceByteAltered)
{
    const Bytes resource = ReadFile(bundle.ResourceFile());

    EXPECT_THAT(FindUnnoticedAlterations(resource, [this](const Bytes& altered)
                                         { return HoldsExpectedPlugins(altered, bundle); }),
                IsEmpty());
}

TEST_P(BuiltBundle, FailsWithAnyInfoByteAltered)
{
    const Bytes info = ReadFile(bundle.Tree() + "/Contents/Info.plist");

    EXPECT_THAT(FindUnnoticedAlterations(info, [this](const Bytes& altered)
                                         { return HoldsExpectedInfo(altered, bundle); }),
                IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(WholeAndSplit, BuiltBundle, testing::ValuesIn(AllBundles()),
                         [](const testing::TestParamInfo<ExpectedBundle>& built)
                         { return built.index == 0 ? "Whole" : "Split" + built.param.name; });

TEST(ExportLists, OfTheWholeBundleHoldTwoEntryPoints)
{
    EXPECT_EQ(textOf(WholeBundle().exportLists + "/exports.txt"), "_EffectorAEGP\n_PanelEntryPointFunc\n");
    EXPECT_EQ(textOf(WholeBundle().exportLists + "/exports.map"),
              "{\n  global:\n    EffectorAEGP;\n    PanelEntryPointFunc;\n  local:\n    *;\n};\n");
}

} // namespace
} // namespace standin
