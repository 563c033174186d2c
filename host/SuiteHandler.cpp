#include "host/SuiteHandler.h"

namespace
{
template <class Suite>
void releaseIfHeld(const SPBasicSuite* basicSuite, const Suite* suite)
{
    if (suite != nullptr)
        (void)basicSuite->ReleaseSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
}
} // namespace

AEGP_SuiteHandler::AEGP_SuiteHandler(const SPBasicSuite* hostBasicSuite) : basicSuite(hostBasicSuite)
{
    if (basicSuite == nullptr)
        MissingSuiteError();
}

AEGP_SuiteHandler::~AEGP_SuiteHandler() { ReleaseAllSuites(); }

void AEGP_SuiteHandler::ReleaseAllSuites() const
{
    std::apply([this](const auto*... held) { (releaseIfHeld(basicSuite, held), ...); }, slots);
}

void AEGP_SuiteHandler::MissingSuiteError() const { throw static_cast<int>(PF_Err_BAD_CALLBACK_PARAM); }

const void* AEGP_SuiteHandler::Acquire(const char* name, std::int32_t version) const
{
    const void* table = nullptr;
    const SPErr err = basicSuite->AcquireSuite(name, version, &table);
    if (err != 0 || table == nullptr)
        MissingSuiteError();
    return table;
}
