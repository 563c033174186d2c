// What scripts/release-macos does with the programs of macOS, which are replaced by programs that record how
// they are called.

#include "tests/support/ProgramRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace standin
{
namespace
{
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace files = std::filesystem;

const std::vector<std::string> certificate = {"CERTIFICATE=Y2VydGlmaWNhdGU=", "CERTIFICATE_PASSWORD=secret",
                                              "SIGNING_IDENTITY=Developer ID"};
const std::vector<std::string> notary = {"NOTARY_KEY=a2V5", "NOTARY_KEY_ID=K1", "NOTARY_ISSUER=I1"};

std::vector<std::string> both()
{
    std::vector<std::string> all = certificate;
    all.insert(all.end(), notary.begin(), notary.end());
    return all;
}

class ReleaseScript : public testing::Test
{
protected:
    ReleaseScript()
    {
        files::remove_all(work);
        files::create_directories(work);
        for (const char* const name : {"cmake", "codesign", "ditto", "security", "uuidgen", "xcrun"})
            standInFor(name);
    }

    ProgramRun Release(std::vector<std::string> environment)
    {
        environment.push_back("PATH=" + work + ":/usr/bin:/bin");
        environment.push_back("TMPDIR=" + work);
        environment.push_back("GITHUB_STEP_SUMMARY=");
        return RunProgram({VORTAN_SOURCE_FOLDER "/scripts/release-macos", "/juce"}, environment);
    }

    /// The calls in their order; the script's own scratch folder is "SCRATCH" in them.
    std::vector<std::string> Calls() const
    {
        std::vector<std::string> calls;
        std::ifstream log(work + "/calls");
        for (std::string line; std::getline(log, line);)
            calls.push_back(std::regex_replace(line, std::regex(work + "/tmp\\.[A-Za-z0-9]+"), "SCRATCH"));
        return calls;
    }

    std::vector<std::string> CallsOf(const std::string& program) const
    {
        std::vector<std::string> calls;
        for (const std::string& call : Calls())
            if (call.rfind(program + " ", 0) == 0)
                calls.push_back(call);
        return calls;
    }

    const std::string work =
        VORTAN_WORK_FOLDER "/" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name());

private:
    void standInFor(const std::string& name) const
    {
        const std::string path = work + "/" + name;
        std::ofstream(path) << "#!/bin/sh\necho \"" << name << " $*\" >>'" << work
                            << "/calls'\necho a-word\n";
        files::permissions(path, files::perms::owner_all);
    }
};

TEST_F(ReleaseScript, WithoutSecretsSignsAdHocAndSaysSo)
{
    const ProgramRun run = Release({});

    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(run.output, HasSubstr("There is no certificate: the bundle is signed ad hoc."));
    EXPECT_THAT(run.output, HasSubstr("the bundle is not notarised"));
    EXPECT_THAT(Calls(),
                ElementsAre("cmake --preset macos -DVORTAN_JUCE_DIR=/juce -DVORTAN_SIGNING_IDENTITY=-",
                            "cmake --build --preset macos",
                            "ditto -c -k --keepParent build/macos/VortanObjectPanel.plugin "
                            "build/VortanObjectPanel.zip",
                            "ditto -x -k build/VortanObjectPanel.zip SCRATCH/unpacked",
                            "codesign --verify --strict --all-architectures --verbose "
                            "SCRATCH/unpacked/VortanObjectPanel.plugin"));
}

TEST_F(ReleaseScript, WithAllSecretsPacksAgainAfterStapling)
{
    const ProgramRun run = Release(both());

    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_THAT(CallsOf("cmake"), ElementsAre("cmake --preset macos -DVORTAN_JUCE_DIR=/juce "
                                              "-DVORTAN_SIGNING_IDENTITY=Developer ID",
                                              "cmake --build --preset macos"));
    EXPECT_THAT(CallsOf("xcrun"),
                ElementsAre("xcrun notarytool submit build/VortanObjectPanel.zip --wait --key "
                            "SCRATCH/notary.p8 --key-id K1 --issuer I1",
                            "xcrun stapler staple build/macos/VortanObjectPanel.plugin"));
    const std::vector<std::string> calls = Calls();
    ASSERT_GT(calls.size(), 3u);
    EXPECT_THAT(calls[calls.size() - 4], HasSubstr("ditto -c -k"));
}

TEST_F(ReleaseScript, DeletesTheKeychainThatItMade)
{
    (void)Release(certificate);

    const std::vector<std::string> calls = CallsOf("security");
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.back(), "security delete-keychain SCRATCH/release.keychain-db");
    for (const auto& entry : files::directory_iterator(work))
        EXPECT_NE(entry.path().filename().string().rfind("tmp.", 0), 0u) << entry.path();
}

TEST_F(ReleaseScript, WithSomeSecretsOfALineDoesNothing)
{
    const ProgramRun run = Release({"CERTIFICATE=Y2VydGlmaWNhdGU="});

    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("of CERTIFICATE CERTIFICATE_PASSWORD SIGNING_IDENTITY only 1"));
    EXPECT_THAT(Calls(), IsEmpty());
}

TEST_F(ReleaseScript, NotarisesNothingThatIsSignedAdHoc)
{
    const ProgramRun run = Release(notary);

    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, HasSubstr("name a certificate"));
    EXPECT_THAT(Calls(), IsEmpty());
}

} // namespace
} // namespace standin
