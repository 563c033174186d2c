#include "host/IdleSuite.h"

#include "host/SuiteTraits.h"

#include <cstdlib>

namespace
{
/// The global refcon. Nothing reads it once the host has it.
struct GlobalBlock
{
    AEGP_PluginID pluginId;
    SPBasicSuite* basicSuite;
};

template <class Suite>
SPErr acquire(SPBasicSuite* basicSuite, const Suite*& suite)
{
    const void* table = nullptr;
    const SPErr err =
        basicSuite->AcquireSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version, &table);
    suite = static_cast<const Suite*>(table);
    return err;
}

template <class Suite>
SPErr release(SPBasicSuite* basicSuite)
{
    return basicSuite->ReleaseSuite(SuiteTraits<Suite>::i_name, SuiteTraits<Suite>::i_version);
}

GlobalBlock* makeGlobalBlock(SPBasicSuite* basicSuite, AEGP_PluginID id)
{
    auto* block = static_cast<GlobalBlock*>(std::malloc(sizeof(GlobalBlock)));
    block->pluginId = id;
    block->basicSuite = basicSuite;
    return block;
}

VnIdleSuite* makeIdleSuite(SPBasicSuite* basicSuite, AEGP_PluginID id)
{
    auto* suite = static_cast<VnIdleSuite*>(std::calloc(1, sizeof(VnIdleSuite)));
    auto* ref = static_cast<VnIdleRef*>(std::calloc(1, sizeof(VnIdleRef)));
    suite->ref = ref;
    suite->AddFuncToIdleStack = &AddFuncToIdleStack;
    if (ref != nullptr)
    {
        ref->pluginId = id;
        ref->basicSuite = basicSuite;
    }
    return suite;
}

SPErr publish(SPBasicSuite* basicSuite, const VnIdleSuite* suite)
{
    const SPSuitesSuite* suites = nullptr;
    SPErr err = acquire(basicSuite, suites);
    if (err == 0 && suites != nullptr)
    {
        void* suiteRef = nullptr;
        err = suites->AddSuite(nullptr, nullptr, VN_IDLE_SUITE_NAME, 1, 1, suite, &suiteRef);
    }
    if (err == 0)
        err = release<SPSuitesSuite>(basicSuite);
    // Kept: a second acquire and release without a use, which a host that counts them sees.
    if (err == 0)
    {
        err = acquire(basicSuite, suites);
        if (err == 0)
            err = release<SPSuitesSuite>(basicSuite);
    }
    return err;
}

/// `utility` stays null until the utility suite is asked for, and then holds what the host wrote, be it
/// beside an error.
A_Err registerIdleHook(SPBasicSuite* basicSuite, AEGP_PluginID id, VnIdleRef* ref,
                       const AEGP_UtilitySuite3*& utility)
{
    const AEGP_RegisterSuite5* registering = nullptr;
    A_Err err = acquire(basicSuite, registering);
    if (err == A_Err_NONE)
        err = acquire(basicSuite, utility);
    if (err != A_Err_NONE)
        return err;
    // A host that hands out no table without an error has no such suite.
    return registering == nullptr ? static_cast<A_Err>(A_Err_MISSING_SUITE)
                                  : registering->AEGP_RegisterIdleHook(id, &IdleHook, ref);
}
} // namespace

int AddFuncToIdleStack(VnIdleRef* ref, IdleFunc func, void* refcon)
{
    for (IdleSlot& slot : ref->idleSlots)
    {
        if (slot.func == nullptr && slot.refcon == nullptr)
        {
            slot = {func, refcon};
            return 0;
        }
    }
    const AEGP_UtilitySuite5* utility = nullptr;
    // Kept: the pointer alone decides, whatever the acquire answered.
    (void)acquire(ref->basicSuite, utility);
    if (utility != nullptr)
        (void)utility->AEGP_ReportInfo(ref->pluginId, "Max Idle Stack Limit Reached.");
    // Kept: released also when it was not obtained.
    (void)release<AEGP_UtilitySuite5>(ref->basicSuite);
    return 0;
}

A_Err IdleHook(AEGP_GlobalRefcon, AEGP_IdleRefcon refcon, A_long*)
{
    auto* ref = static_cast<VnIdleRef*>(refcon);
    for (IdleSlot& slot : ref->idleSlots)
    {
        if (slot.func == nullptr && slot.refcon == nullptr)
            break;
        if (slot.func != nullptr)
            (void)slot.func(ref->pluginId, ref->basicSuite, slot.refcon);
        slot = {nullptr, nullptr};
    }
    return A_Err_NONE;
}

A_Err EffectorAEGP(SPBasicSuite* basicSuite, A_long, A_long, AEGP_PluginID id, AEGP_GlobalRefcon* out)
{
    *out = makeGlobalBlock(basicSuite, id);
    VnIdleSuite* suite = makeIdleSuite(basicSuite, id);
    A_Err err = publish(basicSuite, suite);

    const AEGP_UtilitySuite3* acquired = nullptr;
    if (err == A_Err_NONE)
        err = registerIdleHook(basicSuite, id, suite->ref, acquired); // NOLINT: the suite is the host's now.
    if (err != A_Err_NONE)
    {
        // Kept: called without a test of the pointer. Reading it as volatile keeps the compiler from
        // concluding that a null pointer cannot get here.
        const AEGP_UtilitySuite3* volatile utility = acquired;
        (void)utility->AEGP_ReportInfo(id, "Vort AEGP : Could not register Plugin Suite."); // NOLINT
    }
    // Kept: both are released also when they were never acquired.
    const SPErr registerRelease = release<AEGP_RegisterSuite5>(basicSuite);
    const SPErr utilityRelease = release<AEGP_UtilitySuite3>(basicSuite);
    if (err != A_Err_NONE)
        return err;
    return registerRelease != 0 ? registerRelease : utilityRelease;
}
