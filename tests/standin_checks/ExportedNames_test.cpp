// The reader of exported names, on files that are and are not what it reads.

#include "standin/check/ExportedNames.h"
#include "tests/support/Scratch.h"

#include <gmock/gmock.h>

using testing::ElementsAre;

namespace standin
{
using namespace check;

namespace
{
const std::string folder = VORTAN_BAD_BUNDLES;

TEST(ExportedNames, AreReadFromTheFile)
{
    EXPECT_THAT(ExportedNames(folder + "/refuses.so"), ElementsAre("EffectorAEGP", "PanelEntryPointFunc"));
    EXPECT_THAT(ExportedNames(folder + "/half.so"), ElementsAre("EffectorAEGP"));
}

TEST(ExportedNames, AreNotReadFromOtherFiles)
{
    const Scratch scratch;
    scratch.Write("no-elf.so", std::string(100, 'x'));
    EXPECT_THROW((void)ExportedNames(scratch.Path("no-elf.so")), std::runtime_error);
    EXPECT_THROW((void)ExportedNames("/nowhere.so"), std::runtime_error);
}

TEST(ExportedNames, ATruncatedFileIsReported)
{
    const std::string bytes = FileText(folder + "/refuses.so");
    const Scratch scratch;
    scratch.Write("cut.so", bytes.substr(0, bytes.size() / 2));
    EXPECT_THROW((void)ExportedNames(scratch.Path("cut.so")), std::runtime_error);
}
} // namespace
} // namespace standin
