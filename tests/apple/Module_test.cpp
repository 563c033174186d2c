#include "tests/apple/MachOModule.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
namespace
{
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

std::vector<std::string> faultsOf(const std::string& path) { return FindModuleFaults(ReadMachOModule(path)); }
std::vector<std::string> faultsOfWrong(const std::string& name)
{
    return faultsOf(VORTAN_WRONG_MODULES "/" + name);
}

TEST(Module, IsAsTheHostNeedsIt)
{
    EXPECT_THAT(faultsOf(VORTAN_MODULE_TREE "/Contents/MacOS/VortanObjectPanel"), IsEmpty());
}

TEST(Module, IsFaultyWithoutUnderscoreInItsExportList)
{
    EXPECT_THAT(faultsOfWrong("exports-without-underscore"),
                AllOf(Contains("x86_64 exports nothing"), Contains("arm64 exports nothing")));
}

TEST(Module, IsFaultyWithoutOneOfItsRoots)
{
    EXPECT_THAT(faultsOfWrong("missing-root"),
                ElementsAre("x86_64 exports _PanelEntryPointFunc", "arm64 exports _PanelEntryPointFunc"));
}

TEST(Module, IsFaultyWithMoreExports)
{
    EXPECT_THAT(faultsOfWrong("all-exported"), Each(MatchesRegex("(x86_64|arm64) exports .*")));
}

TEST(Module, IsFaultyWithAnInitialiserMore)
{
    EXPECT_THAT(
        faultsOfWrong("stray-initialiser"),
        ElementsAre("x86_64 does at loading what is in StrayInitialiser.cpp TreeModel.cpp TreeStateTable.cpp",
                    "x86_64 lacks _getenv", "arm64 does at loading what is in StrayInitialiser.cpp",
                    "arm64 lacks _getenv"));
}

TEST(Module, IsFaultyForANewerSystemAlone)
{
    EXPECT_THAT(faultsOfWrong("wrong-minimum"),
                ElementsAre("x86_64 needs macOS 12.0", "arm64 needs macOS 12.0"));
}

TEST(Module, IsFaultyWithoutOneOfItsClasses)
{
    EXPECT_THAT(faultsOfWrong("missing-class"), ElementsAre("x86_64 has the classes VortanSurfaceView",
                                                            "arm64 has the classes VortanSurfaceView"));
}

TEST(Module, IsFaultyWithoutOneOfOurFunctions)
{
    EXPECT_THAT(faultsOfWrong("missing-library"),
                Contains(MatchesRegex("arm64 lacks __Z.*CreatePanelContents.*")));
}

TEST(Module, IsFaultyForOneArchitectureAlone)
{
    EXPECT_THAT(faultsOfWrong("one-architecture"), ElementsAre("there is no code for x86_64"));
}

TEST(Module, IsFaultyAsALibrary)
{
    EXPECT_THAT(faultsOfWrong("not-a-bundle"), ElementsAre("x86_64 is a DYLIB", "arm64 is a DYLIB"));
}

} // namespace
} // namespace standin
