#pragma once
// Holds one host suite for the life of a member. Code that wants many suites on demand uses
// AEGP_SuiteHandler instead.

#include "host/SuiteTraits.h"

/// The policy of a SuiteHelper whose owner cannot live without the suite: throws the integer 13.
template <class Suite>
struct AssertAndThrowOnMissingSuite
{
    [[noreturn]] static void OnMissingSuite() { throw static_cast<int>(A_Err_MISSING_SUITE); }
};

/// Acquires the suite on construction and releases it on destruction.
/// `basicSuite` must outlive the helper. `Policy::OnMissingSuite` runs when the host answers with an
/// error or with a null table; if it returns, the helper is empty.
template <class Suite, class Policy = AssertAndThrowOnMissingSuite<Suite>>
class SuiteHelper
{
public:
    explicit SuiteHelper(const SPBasicSuite* hostBasicSuite) : basicSuite(hostBasicSuite)
    {
        const void* table = nullptr;
        const SPErr err =
            basicSuite->AcquireSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version, &table);
        if (err != 0 || table == nullptr)
            Policy::OnMissingSuite();
        else
            suite = static_cast<const Suite*>(table);
    }

    ~SuiteHelper()
    {
        if (suite != nullptr)
            (void)basicSuite->ReleaseSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
    }

    SuiteHelper(const SuiteHelper&) = delete;
    SuiteHelper& operator=(const SuiteHelper&) = delete;

    const Suite* operator->() const { return suite; }
    const Suite& operator*() const { return *suite; }

private:
    const SPBasicSuite* basicSuite;
    const Suite* suite = nullptr;
};
